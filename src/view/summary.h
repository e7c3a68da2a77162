#pragma once

#include "view/figure.h"

namespace feltmaster {

// A digest of the game, in the order of the screen. Works out the comps and the totals of all bets
// (bet 0 of the results) anew.
Figures SummaryFigures(Game& game);

// The labels of the "Comps" tab.
Figures CompFigures(Game& game);

// The bets of the "Comps" tab's list: "Lay 2 - Yes".
std::vector<std::string> CompBetLines(const Game& game);

}  // namespace feltmaster
