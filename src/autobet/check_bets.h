#pragma once

#include "game/game.h"

namespace feltmaster {

// The structure test. Empty MsgText when the script is sound; otherwise MsgText, MsgTitle and
// MsgHelpId tell the first fault. Gives the number of the line at fault, 0 when sound.
int CheckBets(Game& game);

}  // namespace feltmaster
