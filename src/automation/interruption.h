#pragma once

#include "game/game.h"

namespace feltmaster {

// The questions that a command asks before it disturbs what is running. A Yes to the first ends the
// script; a Yes to the second lets Hyper-Drive end after the roll in progress, and leaves
// HyperDriveActive to it. True for a Yes.
bool AskToEndScript(Game& game);
bool AskToStopHyperDrive(Game& game);

}  // namespace feltmaster
