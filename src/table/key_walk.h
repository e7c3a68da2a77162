#pragma once

#include <cstdint>

#include "game/game.h"

namespace feltmaster {

// The walk of the arrow keys over all bets, in key-in mode.

enum class Arrow : std::uint8_t { kLeft, kRight, kUp, kDown };

// The bet or Chip-Stack to which an arrow key leads from another. Keeps the places to which the
// walk comes back (LastStackBet, LastPanelBet, LastGridColumn, LastGridRow). A slot that is no
// place of the walk leads to itself.
int WalkFrom(Game& game, int slot, Arrow arrow);

}  // namespace feltmaster
