#pragma once

#include "game/game.h"

namespace feltmaster {

// Every press and every key on the table begins here. False when it ends here as well: a script or
// Hyper-Drive runs, and the player was asked whether to stop it; or the amount in the entry box was
// committed and left a message.
bool TableListens(Game& game);

}  // namespace feltmaster
