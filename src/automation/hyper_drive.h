#pragma once

#include "game/game.h"

namespace feltmaster {

// Starts Hyper-Drive and returns when it has ended; clears KeepRolling when something rolls.
void ToggleHyperDrive(Game& game);

}  // namespace feltmaster
