#pragma once

#include "game/game.h"
#include "view/rows.h"

namespace feltmaster {

// The bets that stand: name, working state, amount, and the vig of Lay and Buy bets.
Rows BetRows(const Game& game);

// Number, amount and name of every Chip-Stack.
Rows ChipStackRows(const Game& game);

// The bets of the list of what works on the come-out, in its order: "Place 4 - No".
Rows WorkOnComeOutRows(const Game& game);

// The current run of wins or losses of every bet; blank where there is none.
Rows TrendRows(const Game& game);

// The Hot-Keys: "Ctrl A", the script's file without its folder, the description.
Rows HotKeyRows(const Game& game);

// The flags of the script: "NAME - True".
Rows FlagRows(const Game& game);

}  // namespace feltmaster
