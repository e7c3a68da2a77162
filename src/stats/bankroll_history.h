#pragma once

#include <algorithm>
#include <cstdint>

#include "game/game.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

inline MoneyAmount& HistoryCell(Game& game, int position) {
  return game.BankrollHistory[static_cast<std::size_t>(position)];
}
inline void Widen(MoneyAmount& high, MoneyAmount& low, MoneyAmount value) {
  high = std::max(high, value);
  low = std::min(low, value);
}

// The page of the history is full: the next one, and its graph, which begins at the roll on the
// table.
void TurnPage(Game& game);
void BeginGraph(Game& game);

// Once a roll, after the bets are resolved: the sum, the extremes, the history and its page.
inline void TrackBankroll(Game& game) {
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  // Also true of a negative count, which no game makes but a file may hold.
  const bool page_full = static_cast<std::uint32_t>(game.BankrollHistoryCount) >= kGraphRolls;
  if (page_full) [[unlikely]]
    TurnPage(game);
  game.BankrollSum += bankroll;
  game.HistoryRolls = RollsMade(game);
  Widen(game.BankrollHigh, game.BankrollLow, bankroll);
  Widen(game.GraphHigh, game.GraphLow, bankroll);
  if (page_full) [[unlikely]]
    BeginGraph(game);
  HistoryCell(game, ++game.BankrollHistoryCount) = bankroll;
}

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
