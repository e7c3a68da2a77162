#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// What a dealer says. Lines end with a line break.

// The roll that lies on the table: the dice, the point, every decided bet, and the bankroll, which
// stood at `before`.
std::string RollInWords(const Game& game, MoneyAmount before);
std::string BankrollInWords(const Game& game, MoneyAmount before);
// What stands on a bet or Chip-Stack.
std::string BetInWords(const Game& game, int slot);

}  // namespace feltmaster
