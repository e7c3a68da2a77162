#pragma once

#include "game/game.h"

namespace feltmaster {

// The questions that a command asks before it disturbs what is running. True for a Yes: to the
// first the message dialog itself ends the script and the rolling, to the second Hyper-Drive ends
// after the roll in progress, and leaves HyperDriveActive to it.
bool AskToEndScript(Game& game);
bool AskToStopHyperDrive(Game& game);

// Asks whether to interrupt what is running. True when nothing is; otherwise the press, key or
// command ends here, whatever the answer.
bool TableIsFree(Game& game);

// Every press and every key on the table begins here. False when it ends here as well: the table is
// not free, or the amount in the entry box was committed and left a message.
bool TableListens(Game& game);

}  // namespace feltmaster
