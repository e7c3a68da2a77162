#include "view/bet_results_table.h"

#include <algorithm>

#include "base/number_format.h"
#include "config/advantage.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

// The lines of the table, from 0.
enum Line : std::size_t {
  kTotalCount,
  kTotalAmount,
  kHigh,
  kLow,
  kAverage,
  kLast,
  kLastRollCount,
  kLastRollAmount,
  kCountPerHour,
  kAmountPerHour,
  kExpectedValue,
};
constexpr std::array<std::string_view, kBetResultsLines> kLabels = {
    "Total #",     "Total $",     "High $",        "Low $",         "Average $",      "Last $",
    "Last roll #", "Last roll $", "Avg. # / hour", "Avg. $ / hour", "Expctd value $",
};

// The lines that a column of amounts has.
using Column = std::array<MoneyAmount, kExpectedValue>;

Column CombinedColumn(Game& game, const BetResultsChoice& choice, ResultKind kind) {
  Column column{};
  choice.bets.ForEach([&](int bet) {
    const auto cell = [&](ResultRow row) {
      return ResultCell(game, kind, choice.phantom ? kPhantom : kActual, bet, row);
    };
    column[kTotalCount] += cell(kResultCount);
    column[kTotalAmount] += cell(kResultTotal);
    column[kHigh] = std::max(column[kHigh], cell(kResultHigh));
    const MoneyAmount low = cell(kResultLow);
    if (low.Raw() > 0 && (column[kLow].Raw() == 0 || low < column[kLow])) column[kLow] = low;
    column[kLast] += cell(kResultLast);
    column[kLastRollCount] += cell(kResultLastRollCount);
    column[kLastRollAmount] += cell(kResultLastRollAmount);
  });
  if (column[kTotalCount].Raw() > 0) {
    column[kAverage] = Quotient(column[kTotalAmount], column[kTotalCount]);
  }
  // Hours are rolls by the rate; divided by at once, so that they are not rounded before.
  const std::int32_t rolls = RollCounts(game, 0);
  if (rolls > 0 && game.RollsPerHour.Raw() > 0) {
    const auto per_hour = [&](MoneyAmount value) {
      return Ratio(value, game.RollsPerHour, MoneyAmount::FromWhole(rolls));
    };
    column[kCountPerHour] = per_hour(column[kTotalCount]);
    column[kAmountPerHour] = per_hour(column[kTotalAmount]);
  }
  return column;
}

std::string AmountText(MoneyAmount amount) {
  return FormatNumber(amount, amount.IsWhole() ? kCountPicture : "#,#.###;-#,#.###;0");
}

// What the rules give on average for the wagers decided.
MoneyAmount ExpectedValue(Game& game, const BetResultsChoice& choice) {
  double expected = 0;
  choice.bets.ForEach([&](int bet) {
    const MoneyAmount total = ResultCell(game, ResultKind::kWagers,
                                         choice.phantom ? kPhantom : kActual, bet, kResultTotal);
    if (total.Raw() != 0) expected += total.ToDouble() * FigureAdvantage(game, bet).ev_per_decision;
  });
  return MoneyAmount::FromDouble(expected);
}

std::string PercentText(MoneyAmount part, MoneyAmount whole, std::string_view picture) {
  if (whole.Raw() <= 0) return "0 %";
  return FormatNumber(part.ToDouble() / whole.ToDouble(), picture);
}

Figures Heads(const Game& game, const BetSet& bets) {
  MoneyAmount current;
  MoneyAmount last_roll;
  bets.ForEach([&](int bet) {
    current += game.BetAmount[bet];
    last_roll += game.BetAmountAtRollStart[static_cast<std::size_t>(bet)];
  });
  return {
      {"# of bets selected for display:", CountText(std::int64_t{bets.Count()})},
      {" Current $ wagered", AmountText(current)},
      {" $ wagered on last roll", AmountText(last_roll)},
      {"Total rolls:", CountText(std::int64_t{RollCounts(game, 0)})},
      {"Rolls / hr:", RateText(game.RollsPerHour)},
      {"Sim hrs:", RateText(SimulatedHours(game))},
  };
}

}  // namespace

BetResultsChoice ReadBetResultsSelection(std::string_view text) {
  BetResultsChoice choice;
  for (std::size_t bet = 1; bet <= kBetCount && bet <= text.size(); ++bet) {
    if (text[bet - 1] == 'S') choice.bets.Add(static_cast<int>(bet));
  }
  choice.phantom = text.size() > kBetCount && text[kBetCount] == '1';
  return choice;
}

std::string BetResultsSelectionOf(const BetResultsChoice& choice) {
  std::string text(kBetCount, ' ');
  choice.bets.ForEach([&](int bet) { text[static_cast<std::size_t>(bet - 1)] = 'S'; });
  return text + (choice.phantom ? '1' : '0');
}

BetResultsTable BetResultsOf(Game& game, const BetResultsChoice& wanted) {
  const BetResultsChoice choice = {wanted.bets & kLayoutBets, wanted.phantom};
  const Column wagers = CombinedColumn(game, choice, ResultKind::kWagers);
  const Column wins = CombinedColumn(game, choice, ResultKind::kWins);
  const Column losses = CombinedColumn(game, choice, ResultKind::kLosses);

  BetResultsTable table;
  table.heads = Heads(game, choice.bets);
  for (std::size_t line = 0; line < kExpectedValue; ++line) {
    const MoneyAmount net = wins[line] - losses[line];
    table.lines[line] = {kLabels[line],
                         AmountText(wagers[line]),
                         AmountText(wins[line]),
                         AmountText(losses[line]),
                         AmountText(net),
                         PercentText(net, wagers[line], "#,#.00 %;-#,#.00 %;0 %"),
                         ToneOf(net)};
  }
  const MoneyAmount expected = ExpectedValue(game, choice);
  table.lines[kExpectedValue] = {kLabels[kExpectedValue],
                                 "",
                                 "",
                                 "",
                                 PlainNumber(expected),
                                 PercentText(expected, wagers[kTotalAmount], "0.0# %;-0.0# %;0 %"),
                                 ToneOf(expected)};
  return table;
}

Rows BetResultRows(Game& game, const BetResultsChoice& choice) {
  const BetResultsTable table = BetResultsOf(game, choice);
  Rows rows = RowsOf(table.heads);
  rows.push_back({"", " Wagers", " Wins", " Losses", " Net", " Net %"});
  for (const BetResultsLine& line : table.lines) {
    rows.push_back(
        {std::string(line.label), line.wagers, line.wins, line.losses, line.net, line.net_percent});
  }
  return rows;
}

}  // namespace feltmaster
