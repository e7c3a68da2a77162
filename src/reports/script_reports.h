#pragma once

#include "game/game.h"
#include "reports/document.h"

namespace feltmaster {

// The lines of the script and the values of its flags.
Document ScriptReport(Game& game);
Document FlagsReport(Game& game);

}  // namespace feltmaster
