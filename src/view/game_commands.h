#pragma once

#include "game/game.h"

namespace feltmaster {

// The commands of the Game menu.

// Asks about unsaved Auto-Bets, probabilities and the game, in this order, and saves what the
// player wants saved. False when the player gave up; the command that asked ends then.
bool AskToSaveAll(Game& game);

// New: asks about unsaved work, starts a new game and asks what to keep. False when the player gave
// up and the game stands as it was.
bool NewGame(Game& game);

}  // namespace feltmaster
