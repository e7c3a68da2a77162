#pragma once

#include "game/game.h"

namespace feltmaster {

// Once a roll, after the bets are resolved: the sum, the extremes, the history and its page.
void TrackBankroll(Game& game);

// The average of the bankroll over the last `count` rolls (0 all rolls, at most 525) up to a
// position of the page.
MoneyAmount MovingAverage(const Game& game, bool include_current, int position, int count);

// BankrollAverages(position), 1 to 525, computed when it is asked for.
MoneyAmount BankrollAverage(Game& game, int position);
// Computes the averages of the page that have not been read yet. Needed before the history, or the
// settings of the average, change by another road than TrackBankroll.
void SettleAverages(Game& game);

void RebuildAverages(Game& game);
void RescanGraphRange(Game& game);
// The scale rules of the graph.
void DrawGraph(Game& game, bool rescale);
// The rung of the ladder of scales beside this one, 0.02 to 100,000 dollars a point.
MoneyAmount NextGraphScale(MoneyAmount scale, bool larger);
// A new game: scale 1, top 150, an empty page, the extremes at the bankroll.
void RestartGraph(Game& game);

}  // namespace feltmaster
