#include <algorithm>
#include <cstdlib>

#include "reference/reference_arithmetic.h"

namespace reference {
namespace {

constexpr int kPage = 525;
constexpr int kTwoPages = 1050;

}  // namespace

void ReferenceTable::BeginRollResults() {
  for (std::size_t bet = 0; bet <= kLastBet; ++bet) {
    bet_streak[bet][0] = bet_streak[bet][1];
    for (std::size_t series = 0; series <= 1; ++series) {
      for (auto* table : {&results.wagers, &results.wins, &results.losses}) {
        (*table)[series][bet][6] = 0;
        (*table)[series][bet][7] = 0;
      }
    }
  }
  // dice_total and prev_point are still those of the roll before.
  if (dice_total == 7) {
    for (std::size_t bet = 1; bet <= kLastBet; ++bet) results.wagers[0][bet][0] = 0;
  } else {
    const auto slot = static_cast<std::size_t>(Slot(dice_total));
    const Raw stands = prev_point > 0 ? kOne : 0;
    results.wagers[0][kCome + slot][0] = stands;
    results.wagers[0][kComeOdds + slot][0] = stands;
  }
}

void ReferenceTable::RecordBetResult(int series, int bet, Raw amount, Raw result) {
  const auto s = static_cast<std::size_t>(series);
  const auto b = static_cast<std::size_t>(bet);
  if (result == 0) return;
  if (series == 0 && bet >= 11 && bet <= 30 && results.wagers[0][b][0] == 0 && !allow_put_bets) {
    return;
  }
  Raw wager = amount;
  if (IsLay(bet) && (result > 0 || lay_vig_all_bets)) {
    wager += series == 1 ? VigPaid(bet)
                         : TimesOver(pay_table[b].numerator, lay_vig_pct, pay_table[b].denominator);
  }
  if (IsBuy(bet) && (result > 0 || buy_vig_all_bets)) {
    wager += series == 1 ? VigPaid(bet) : buy_vig_pct;
  }
  const auto add = [](std::array<Raw, 8>& rows, Raw value) {
    rows[1] += kOne;
    rows[2] += value;
    if (value > rows[3]) rows[3] = value;
    if ((rows[4] == 0 || value < rows[4]) && value > 0) rows[4] = value;
    rows[5] = value;
    rows[6] = kOne;
    rows[7] = value;
  };
  add(results.wagers[s][b], wager);
  if (result > 0) add(results.wins[s][b], result);
  if (result < 0) add(results.losses[s][b], -result);
}

void ReferenceTable::RecordRollStatistics() {
  ++roll_counts[0];
  ++game_counters[0];
  if (prev_point == 0) ++game_counters[14];
  ++script_roll_counts[0];
  ++script_roll_counts[1];
  for (std::size_t i = 1; i <= 90; ++i) {
    ++rolls_since_last[i];
    ++script_rolls_since[i];
  }
  HitRollCategory(77 + die1);
  HitRollCategory(83 + die2);

  // Ordered combinations, by die 1 and die 2.
  static constexpr int kOrdered[6][6] = {
      {2, 22, 24, 27, 33, 39},  {23, 13, 29, 35, 41, 48}, {25, 30, 14, 43, 50, 54},
      {28, 36, 44, 15, 56, 60}, {34, 42, 51, 57, 16, 63}, {40, 49, 55, 61, 64, 12},
  };
  HitRollCategory(kOrdered[die1 - 1][die2 - 1]);
  if (dice_total >= 3 && dice_total <= 11) {
    HitRollCategory(dice_total);
    static constexpr int kEitherWay[13][3] = {
        {1, 3, 26}, {1, 4, 31}, {2, 3, 32}, {1, 5, 37}, {2, 4, 38}, {1, 6, 45}, {2, 5, 46},
        {3, 4, 47}, {2, 6, 52}, {3, 5, 53}, {3, 6, 58}, {4, 5, 59}, {4, 6, 62},
    };
    for (const auto& [low, high, category] : kEitherWay) {
      if (std::min(die1, die2) == low && std::max(die1, die2) == high) HitRollCategory(category);
    }
  }
  struct Group {
    int category;
    std::vector<int> totals;
  };
  static const std::vector<Group> kGroups = {
      {21, {2, 3, 4, 9, 10, 11, 12}},
      {17, {4, 5, 6, 8, 9, 10}},
      {65, {2, 3, 7, 11, 12}},
      {66, {2, 3, 11, 12}},
      {18, {5, 6, 8, 9}},
      {19, {4, 5, 9, 10}},
      {20, {2, 3, 12}},
      {67, {4, 5, 6}},
      {68, {8, 9, 10}},
      {69, {2, 12}},
      {70, {3, 11}},
      {71, {4, 10}},
      {72, {5, 9}},
      {73, {6, 8}},
      {74, {2, 3}},
      {75, {3, 12}},
      {76, {7, 11}},
      {77, {11, 12}},
  };
  for (const Group& group : kGroups) {
    for (const int total : group.totals) {
      if (total == dice_total) HitRollCategory(group.category);
    }
  }
}

void ReferenceTable::HitRollCategory(int category) {
  const auto i = static_cast<std::size_t>(category);
  ++roll_counts[i];
  ++script_roll_counts[i];
  const int gap = rolls_since_last[i];
  if (gap <= 200) {
    ++roll_gap_table[i][static_cast<std::size_t>(gap)];
  } else {
    ++roll_gap_table[i][200];
    roll_gap_table[i][0] += gap;
  }
  rolls_since_last[i] = 0;
  script_rolls_since[i] = 0;
}

void ReferenceTable::ResetScriptCounters(int category) {
  const auto i = static_cast<std::size_t>(category);
  script_roll_counts[i] = 0;
  script_roll_counts_seen[i] = 0;
  script_rolls_since[i] = 0;
  script_rolls_since_seen[i] = 0;
}

void ReferenceTable::HandPassed() {
  ++game_counters[1];
  ++game_counters[10];
  ++game_counters[prev_point > 0 ? 8 : 9];
}

void ReferenceTable::HandMissed() {
  auto& c = game_counters;
  ++c[15];
  ++c[13];
  ++c[11];
  ++c[2];
  c[3] = std::max(c[3], c[0]);
  c[4] = std::max(c[4], c[1]);
  c[5] += c[0];
  c[6] += c[1];
  c[16] = std::max(c[16], c[15]);
  c[17] = c[0];
  c[18] = c[1];
  c[19] = c[15];
  c[0] = 0;
  c[1] = 0;
  c[15] = 0;
}

void ReferenceTable::TrackBankroll() {
  const Raw bankroll = Bankroll();
  bankroll_sum += bankroll;
  bankroll_high = std::max(bankroll_high, bankroll);
  bankroll_low = std::min(bankroll_low, bankroll);
  graph_high = std::max(graph_high, bankroll);
  graph_low = std::min(graph_low, bankroll);
  if (bankroll_history_count == kPage) {
    bankroll_history_count = 0;
    bankroll_history[0] = Raw{roll_counts[0]} * kOne;
    graph_high = bankroll;
    graph_low = bankroll;
    for (std::size_t i = 1; i <= kPage; ++i) bankroll_history[kPage + i] = bankroll_history[i];
    DrawGraph(true);
  }
  ++bankroll_history_count;
  const auto here = static_cast<std::size_t>(bankroll_history_count);
  bankroll_history[here] = bankroll;
  if (graph_show_average) {
    bankroll_averages[here] = MovingAverage(true, bankroll_history_count, graph_average_rolls);
  }
}

Raw ReferenceTable::MovingAverage(bool include_current, int position, int count) const {
  const int rolls = roll_counts[0];
  count = std::min(count, kPage);
  if (count == 0) {
    const Raw sum = include_current ? bankroll_sum : bankroll_sum - bet_amount[0];
    const int divisor = include_current ? rolls : rolls - 1;
    return divisor == 0 ? 0 : Nearest(sum, divisor);
  }
  const bool two_pages = rolls >= kPage + 1;
  int at = include_current && position != 0 ? position : position - 1;
  if (at < 1) {
    if (!two_pages) return 0;
    at = kTwoPages;
  }
  Wide sum = 0;
  int added = 0;
  while (added < count) {
    sum += bankroll_history[static_cast<std::size_t>(at)];
    ++added;
    if (at == 1) {
      if (!two_pages) break;
      at = kTwoPages;
    } else {
      --at;
    }
  }
  return Nearest(sum, added);
}

void ReferenceTable::RebuildAverages() {
  if (graph_average_rolls > 0) {
    for (int i = 1; i <= bankroll_history_count; ++i) {
      bankroll_averages[static_cast<std::size_t>(i)] = MovingAverage(true, i, graph_average_rolls);
    }
  } else {
    Raw sum = bankroll_sum;
    int count = roll_counts[0];
    for (int i = bankroll_history_count; i >= 1; --i) {
      const auto at = static_cast<std::size_t>(i);
      bankroll_averages[at] = count == 0 ? 0 : Nearest(sum, count);
      sum -= bankroll_history[at];
      --count;
    }
  }
  RescanGraphRange();
}

void ReferenceTable::RescanGraphRange() {
  graph_high = Bankroll();
  graph_low = Bankroll();
  for (int i = 1; i <= bankroll_history_count; ++i) {
    const Raw value = bankroll_history[static_cast<std::size_t>(i)];
    graph_high = std::max(graph_high, value);
    graph_low = std::min(graph_low, value);
  }
}

void ReferenceTable::RestartGraph() {
  graph_scale = kOne;
  graph_top = 150 * kOne;
  bankroll_history_count = 0;
  bankroll_history[0] = kOne;
  bankroll_high = bankroll_low = graph_high = graph_low = Bankroll();
}

void ReferenceTable::DrawGraph(bool rescale) {
  static constexpr Raw kLadder[] = {100,         200,          400,        1'000,       2'000,
                                    4'000,       10'000,       20'000,     40'000,      100'000,
                                    200'000,     400'000,      1'000'000,  2'000'000,   4'000'000,
                                    10'000'000,  20'000'000,   40'000'000, 100'000'000, 200'000'000,
                                    400'000'000, 1'000'000'000};
  const auto top_over = [this](Raw base) {
    const Raw whole = Nearest(base, kOne) * kOne;
    const Raw step = 50 * graph_scale;
    return (static_cast<Raw>(FloorDivide(whole, step)) + 3) * step;
  };

  if (graph_adjust_type == 2 && bankroll_history_count == 0) graph_scale = graph_manual_scale;
  if (rescale) {
    Raw base = Bankroll();
    if (graph_ref_lines) {
      const bool first = ref_line_roll[1] + 1 <= bankroll_history_count;
      const bool second = ref_line_roll[2] + 1 <= bankroll_history_count;
      const auto value = [this](std::size_t line) {
        return bankroll_history[static_cast<std::size_t>(ref_line_roll[line] + 1)];
      };
      if (first && second) {
        base = Nearest(Wide{value(1)} + value(2), 2);
      } else if (first) {
        base = value(1);
      } else if (second) {
        base = value(2);
      }
    }
    graph_top = top_over(base);
  }
  if (graph_adjust_type == 0) return;
  while (graph_high - graph_low > 250 * graph_scale) {
    const Raw* rung = std::find(std::begin(kLadder), std::end(kLadder), graph_scale);
    if (rung == std::end(kLadder) || rung + 1 == std::end(kLadder)) break;
    graph_scale = rung[1];
    graph_top = top_over(graph_high);
  }
  while (graph_high > graph_top) graph_top += 50 * graph_scale;
  while (graph_top - 300 * graph_scale > graph_low) graph_top -= 50 * graph_scale;
}

}  // namespace reference
