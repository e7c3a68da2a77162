#pragma once

#include "game/game.h"

namespace feltmaster {

// Walks the script once from top to bottom. A failure ends the run with "Auto-Bet Abort".
void RunScript(Game& game);
// One run with ScriptNeedsInit set, which it clears: the condition "Initializing Auto-Bet" is true.
void RunInitialisationCycle(Game& game);

}  // namespace feltmaster
