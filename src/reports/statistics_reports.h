#pragma once

#include "game/game.h"
#include "reports/document.h"

namespace feltmaster {

// The reports of the statistics screens and of the Chip-Stacks.
Document RollTotalsReport(Game& game);
// Of the entry that the screen has selected.
Document RollFrequenciesReport(Game& game);
Document SummaryReport(Game& game);
// Of the bets that the screen has selected.
Document BetResultsReport(Game& game);
Document BetTrendsReport(Game& game);
Document ChipStacksReport(Game& game);

}  // namespace feltmaster
