#pragma once

#include "game/game.h"

namespace feltmaster {

enum class ResetMode { kAll = 0, kKeepChipStacks = 1 };

// The new-game operation: clears the table and all statistics, sets the bankroll by
// BankrollInitType. Settings stay.
void ResetGame(Game& game, ResetMode mode);

}  // namespace feltmaster
