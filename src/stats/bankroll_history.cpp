#include "stats/bankroll_history.h"

#include <algorithm>
#include <array>
#include <utility>

#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

constexpr MoneyAmount kCent = MoneyAmount::FromRaw(100);

// 1, 2 and 4 times the powers of ten, from a cent to 100,000 dollars a point.
constexpr std::array<MoneyAmount, 22> kScales = [] {
  std::array<MoneyAmount, 22> ladder{};
  MoneyAmount power = kCent;
  for (std::size_t rung = 0; rung < ladder.size(); ++rung) {
    ladder[rung] = power.Times(rung % 3 == 0 ? 1 : rung % 3 == 1 ? 2 : 4);
    if (rung % 3 == 2) power = power.Times(10);
  }
  return ladder;
}();
static_assert(kScales.back() == MoneyAmount(100'000));

constexpr std::int64_t kTopStep = 50;  // points between two lines of the graph's scale

MoneyAmount HistoryCell(const Game& game, int position) {
  return game.BankrollHistory[static_cast<std::size_t>(position)];
}

// The place of the roll so many before a position: down the page, then down the page before it from
// its end. 0 when there is none.
int PlaceBefore(int position, int rolls_before, bool page_before) {
  const int place = position - rolls_before;
  if (place >= 1) return place;
  return page_before && place > -kGraphRolls ? kHistorySize - 1 + place : 0;
}

// A page of the history with the page before it behind, as BankrollHistory has them.
using Pages = const MoneyAmount*;

// The sum of up to `count` values from `start` down, and how many there were.
struct WindowSum {
  MoneyAmount sum;
  int added = 0;
};
WindowSum SumDown(Pages pages, int start, int count, bool page_before) {
  WindowSum window;
  if (start < 1) {
    if (!page_before) return window;
    start = kHistorySize - 1;
  }
  for (int position = start; window.added < count; --position, ++window.added) {
    if (position < 1) {
      if (!page_before) break;
      position = kHistorySize - 1;
    }
    window.sum += pages[position];
  }
  return window;
}

bool HasPageBefore(std::int32_t rolls) {
  return rolls > kGraphRolls;
}

MoneyAmount AverageOf(MoneyAmount sum, std::int64_t rolls) {
  return rolls == 0 ? MoneyAmount() : sum.Shared(rolls);
}

// The averages at the positions of a page. `rolls` and `sum` are those of the game at the last of
// them.
void AverageOverPage(Game& game, Pages pages, int first, int last, std::int32_t rolls,
                     MoneyAmount sum) {
  const auto average = [&](int position) -> MoneyAmount& {
    return game.BankrollAverages[static_cast<std::size_t>(position)];
  };
  if (game.GraphAverageRolls <= 0) {
    for (int position = last; position >= first; --position) {
      average(position) = AverageOf(sum, rolls - (last - position));
      sum -= pages[position];
    }
    return;
  }
  const int count = std::min(game.GraphAverageRolls, kGraphRolls);
  // The window slides: the newest value comes in, the one that falls out of it goes.
  WindowSum window;
  bool page_before = false;
  for (int position = first; position <= last; ++position) {
    const bool has_page = HasPageBefore(rolls - (last - position));
    if (position == first || has_page != page_before) {
      page_before = has_page;
      window = SumDown(pages, position, count, page_before);
    } else {
      window.sum += pages[position];
      const int leaving = PlaceBefore(position, count, page_before);
      if (leaving == 0) {
        ++window.added;
      } else {
        window.sum -= pages[leaving];
      }
    }
    average(position) = AverageOf(window.sum, window.added);
  }
}

// The line of the scale above a value, three lines up.
MoneyAmount TopOver(MoneyAmount base, MoneyAmount scale) {
  const MoneyAmount step = scale.Times(kTopStep);
  return step.Times(UnitsIn(MoneyAmount::FromWhole(base.RoundWhole()), step) + 3);
}

MoneyAmount GraphBase(const Game& game) {
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  if (!game.GraphRefLines) return bankroll;
  const auto on_page = [&](std::size_t line) {
    return game.RefLineRoll[line] >= 0 && game.RefLineRoll[line] < game.BankrollHistoryCount;
  };
  const auto value = [&](std::size_t line) {
    return HistoryCell(game, game.RefLineRoll[line] + 1);
  };
  if (on_page(1) && on_page(2)) return Quotient(value(1) + value(2), MoneyAmount(2));
  if (on_page(1)) return value(1);
  if (on_page(2)) return value(2);
  return bankroll;
}

// How many steps bring `distance` down to 0 or below; 0 when it is there.
std::int64_t StepsOver(MoneyAmount distance, MoneyAmount step) {
  return distance.Raw() <= 0 ? 0 : -UnitsIn(-distance, step);
}

}  // namespace

MoneyAmount MovingAverage(const Game& game, bool include_current, int position, int count) {
  count = std::min(count, kGraphRolls);
  const std::int32_t rolls = RollsMade(game);
  if (count <= 0) {
    if (include_current) return AverageOf(game.BankrollSum, rolls);
    return AverageOf(game.BankrollSum - game.BetAmount[kBankroll], std::int64_t{rolls} - 1);
  }
  const bool from_here = include_current && position != 0;
  const int start = std::clamp(from_here ? position : position - 1, -1, kHistorySize - 1);
  const WindowSum window = SumDown(game.BankrollHistory.data(), start, count, HasPageBefore(rolls));
  return AverageOf(window.sum, window.added);
}

void SettleAverages(Game& game) {
  constexpr int kWholePage = kGraphRolls;
  const Pages pages = game.BankrollHistory.data();
  if (std::exchange(game.PageBeforeUnsettled, false)) {
    AverageOverPage(game, pages + kGraphRolls, 1, kWholePage, game.PageBeforeRolls,
                    game.PageBeforeSum);
  }
  const int last = std::clamp(game.BankrollHistoryCount, 0, kWholePage);
  const int first = std::exchange(game.AveragesSettled, last) + 1;
  if (!game.GraphShowAverage || first > last) return;
  AverageOverPage(game, pages, first, last, game.HistoryRolls, game.BankrollSum);
}

MoneyAmount BankrollAverage(Game& game, int position) {
  SettleAverages(game);
  return game.BankrollAverages[static_cast<std::size_t>(position)];
}

void RebuildAverages(Game& game) {
  const bool shown = std::exchange(game.GraphShowAverage, true);
  game.PageBeforeUnsettled = false;
  game.AveragesSettled = 0;
  game.HistoryRolls = RollsMade(game);
  SettleAverages(game);
  game.GraphShowAverage = shown;
  RescanGraphRange(game);
}

void RescanGraphRange(Game& game) {
  game.GraphHigh = game.GraphLow = game.BetAmount[kBankroll];
  const int last = std::clamp(game.BankrollHistoryCount, 0, kGraphRolls);
  for (int position = 1; position <= last; ++position) {
    Widen(game.GraphHigh, game.GraphLow, HistoryCell(game, position));
  }
}

void DrawGraph(Game& game, bool rescale) {
  constexpr std::int32_t kManual = 0;
  constexpr std::int32_t kSnapBack = 2;
  if (game.GraphAdjustType == kSnapBack && game.BankrollHistoryCount == 0) {
    game.GraphScale = game.GraphManualScale;
  }
  if (game.GraphScale < kCent) game.GraphScale = kCent;
  if (rescale) game.GraphTop = TopOver(GraphBase(game), game.GraphScale);
  if (game.GraphAdjustType == kManual) return;

  while (game.GraphHigh - game.GraphLow > game.GraphScale.Times(5 * kTopStep)) {
    const auto* const rung = std::upper_bound(kScales.begin(), kScales.end(), game.GraphScale);
    if (rung == kScales.end()) break;
    game.GraphScale = *rung;
    game.GraphTop = TopOver(game.GraphHigh, game.GraphScale);
  }
  const MoneyAmount step = game.GraphScale.Times(kTopStep);
  game.GraphTop += step.Times(StepsOver(game.GraphHigh - game.GraphTop, step));
  const MoneyAmount bottom = game.GraphTop - game.GraphScale.Times(kGraphHeight);
  game.GraphTop -= step.Times(StepsOver(bottom - game.GraphLow, step));
}

MoneyAmount NextGraphScale(MoneyAmount scale, bool larger) {
  constexpr auto kSmallest = kScales.begin() + 1;
  if (larger) {
    const auto* const above = std::upper_bound(kSmallest, kScales.end(), scale);
    return above == kScales.end() ? kScales.back() : *above;
  }
  const auto* const here = std::lower_bound(kSmallest, kScales.end(), scale);
  return here == kSmallest ? *kSmallest : *(here - 1);
}

void RestartGraph(Game& game) {
  SettleAverages(game);
  game.GraphScale = MoneyAmount(1);
  game.GraphTop = MoneyAmount(150);
  game.BankrollHistoryCount = 0;
  game.AveragesSettled = 0;
  HistoryCell(game, 0) = MoneyAmount(1);
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  game.BankrollHigh = game.BankrollLow = game.GraphHigh = game.GraphLow = bankroll;
}

// The averages of the page wait until somebody reads them: most pages are never looked at,
// and the next one writes over all of them.
void TurnPage(Game& game) {
  if (game.AveragesSettled == 0 && game.BankrollHistoryCount == kGraphRolls) {
    game.PageBeforeUnsettled = game.GraphShowAverage;
    game.PageBeforeRolls = game.HistoryRolls;
    game.PageBeforeSum = game.BankrollSum;
  } else {
    SettleAverages(game);
  }
  game.BankrollHistoryCount = 0;
  game.AveragesSettled = 0;
  std::copy_backward(game.BankrollHistory.begin() + 1, game.BankrollHistory.begin() + kHistorySize,
                     game.BankrollHistory.end());
}

void BeginGraph(Game& game) {
  HistoryCell(game, 0) = MoneyAmount::FromWhole(game.HistoryRolls);
  game.GraphHigh = game.GraphLow = game.BetAmount[kBankroll];
  DrawGraph(game, true);
}

}  // namespace feltmaster
