#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// The box in which amounts are keyed in. It stands over a bet or Chip-Stack, EntryBoxBet, and is
// seen while KeyInBetAmounts is on. It shows the amount of its bet, selected, until somebody types;
// what was typed waits for CommitEnteredBet (engine/place_bet.h).

inline bool EntryBoxOpen(const Game& game) {
  return game.KeyInBetAmounts;
}
std::string TextInEntryBox(const Game& game);
// What was typed and not committed is dropped.
void MoveEntryBox(Game& game, int slot);
void EditEntryBox(Game& game, std::string text);
void ResetEntryBox(Game& game);

}  // namespace feltmaster
