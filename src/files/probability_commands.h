#pragma once

#include "game/game.h"

namespace feltmaster {

// The commands of the Probability tab that have to do with files. Each gives false when the player
// gave up or it failed, which the player has been told.

// Both ask about numbers that no file holds before they go.
bool NewProbabilitiesCommand(Game& game);
bool OpenProbabilitiesCommand(Game& game);
// Without a file of the player's own this is Save As.
bool SaveProbabilitiesCommand(Game& game);
bool SaveProbabilitiesAsCommand(Game& game);

}  // namespace feltmaster
