#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// What a dealer says. Lines end with a line break.

// The dice as they come to lie, before anything is decided: "6 and 2: eight".
std::string DiceInWords(const Game& game);
// What the roll has done: the point, every decided bet, and the bankroll.
std::string RollInWords(const Game& game);
// The bankroll, and what it has gained or lost since it stood at `before`.
std::string BankrollInWords(const Game& game, MoneyAmount before);
// What stands on a bet or Chip-Stack.
std::string BetInWords(const Game& game, int slot);

}  // namespace feltmaster
