#pragma once

#include "game/game.h"

namespace feltmaster {

// The questions that a command asks before it disturbs what is running. A Yes to the first ends the
// script; a Yes to the second lets Hyper-Drive end after the roll in progress, and leaves
// HyperDriveActive to it. True for a Yes.
bool AskToEndScript(Game& game);
bool AskToStopHyperDrive(Game& game);

// Asks whether to interrupt what is running. True when nothing is; otherwise the press, key or
// command ends here, whatever the answer.
bool TableIsFree(Game& game);

// Every press and every key on the table begins here. False when it ends here as well: the table is
// not free, or the amount in the entry box was committed and left a message.
bool TableListens(Game& game);

}  // namespace feltmaster
