#pragma once

#include "game/game.h"
#include "reports/document.h"

namespace feltmaster {

// The lines of the script, the values of its flags, and the Hot-Keys.
Document ScriptReport(Game& game);
Document FlagsReport(Game& game);
Document HotKeysReport(Game& game);

}  // namespace feltmaster
