#include "view/summary.h"

#include <algorithm>

#include "base/number_format.h"
#include "config/comps.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

// A whole number plainly, any other by its own picture.
std::string WholeOr(MoneyAmount value, std::string_view picture) {
  return FormatNumber(value, value.IsWhole() ? kCountPicture : picture);
}

MoneyAmount PerCount(MoneyAmount sum, MoneyAmount count) {
  return count.Raw() <= 0 ? MoneyAmount() : Quotient(sum, count);
}

// A casino takes nothing from a player who is ahead.
MoneyAmount GivenBack(const Comps& comps) {
  return std::max(comps.CompValue, MoneyAmount());
}

std::string AverageOfHands(std::int32_t sum, std::int32_t hands) {
  return WholeOr(PerCount(MoneyAmount::FromWhole(sum), MoneyAmount::FromWhole(hands)),
                 "#,#.##;-#,#.##;0");
}

// Decided, won, lost and net of all bets together, by their number or their amounts.
void AddBetTotals(Game& game, ResultRow row, std::string_view heading, Figures& figures) {
  const auto total = [&](ResultKind kind) { return ResultCell(game, kind, kActual, 0, row); };
  const MoneyAmount decided = total(ResultKind::kWagers);
  const MoneyAmount won = total(ResultKind::kWins);
  const MoneyAmount lost = total(ResultKind::kLosses);
  const MoneyAmount net = won - lost;
  figures.insert(figures.end(),
                 {{std::string(heading), ""},
                  {"Bets decided:", CountText(decided)},
                  {"Bets won:", CountText(won)},
                  {"Bets lost:", CountText(lost)},
                  {net.Raw() < 0 ? "Net loss:" : "Net win:", CountText(net), ToneOf(net)},
                  {"", FormatNumber(PerCount(net, decided), "#,#.00%;-#,#.00%;0%"), ToneOf(net)}});
}

}  // namespace

Figures SummaryFigures(Game& game) {
  // Lay 2 and Lay 3 do not count in the totals, here as in the Games Log.
  constexpr int kFirstCounted = 3;
  const Comps comps = FigureComps(game);
  TotalBetResults(game, kFirstCounted, kBetCount, true);

  const auto& counters = game.GameCounters;
  const auto count = [&](GameCounter counter) {
    return CountText(std::int64_t{counters[static_cast<std::size_t>(counter)]});
  };
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  const std::int64_t rolls = RollCounts(game, 0);
  const MoneyAmount average = PerCount(game.BankrollSum, MoneyAmount::FromWhole(rolls));
  const std::int32_t hands = counters[kHandsCompleted];

  Figures figures = {
      {"Total rolls:", CountText(rolls)},
      {"Rolls / hr:", RateText(game.RollsPerHour)},
      {"Sim hrs:", RateText(SimulatedHours(game))},
      {" Hands:", ""},
      {"# of rolls (current hand):", count(kRollsThisHand)},
      {"# of passes (current hand):", count(kPassesThisHand)},
      {"Total completed:", count(kHandsCompleted)},
      {"Longest #  of rolls:", count(kLongestHandRolls)},
      {"Most passes:", count(kMostPassesInHand)},
      {"Average # of rolls:", AverageOfHands(counters[kTotalHandRolls], hands)},
      {"Average # of passes:", AverageOfHands(counters[kTotalHandPasses], hands)},
      {"# of points established:", count(kPointsEstablished)},
      {"# that passed (rolled point):", count(kPassesOnPoint)},
      {"# that passed (7, 11):", count(kPassesOnComeOut)},
      {"Total passes:", count(kTotalPasses)},
      {"# that missed (seven-out):", count(kSevenOuts)},
      {"Total misses:", count(kTotalMisses)},
      {"# of come-out rolls:", count(kComeOutRolls)},
      {" Bankroll:", ""},
      {"Current:", CountText(bankroll), ToneOf(bankroll)},
      {"High:", CountText(game.BankrollHigh), ToneOf(game.BankrollHigh)},
      {"Low:", CountText(game.BankrollLow), ToneOf(game.BankrollLow)},
      {"Average:", CountText(average)},
      {"Total comp value:", FormatNumber(GivenBack(comps), "$#,0.00;0;0")},
  };
  AddBetTotals(game, kResultCount, " Total number of:", figures);
  AddBetTotals(game, kResultTotal, " Total $ amount of:", figures);
  return figures;
}

Figures CompFigures(Game& game) {
  const Comps comps = FigureComps(game);
  return {
      {"Total comp action $", CountText(comps.Action)},
      {"Total # bets", CountText(comps.Count)},
      {"Average comp action $", WholeOr(PerCount(comps.Action, comps.Count), "#,#.##;-#,#.00;0")},
      {"Theoretical house vig $", FormatNumber(-comps.Value, "#,#.00;-#,#.00;0"),
       comps.Value.Raw() > 0 ? Tone::kLoss : Tone::kVig},
      {"Avg. comp action x time $", WholeOr(comps.ActionTime, "#,#.00;-#,#.00;0")},
      {"Total comp value $", FormatNumber(GivenBack(comps), "#,#.00;0;0")},
      {"Simulated hours", FormatNumber(comps.Hours, "#,#.00;0;0")},
  };
}

std::vector<std::string> CompBetLines(const Game& game) {
  const BetSet counted = CompBets(game);
  std::vector<std::string> lines;
  for (int bet = 1; bet <= kBetCount; ++bet) {
    lines.push_back(std::string(kBetName[static_cast<std::size_t>(bet)]) +
                    (counted.Has(bet) ? " - Yes" : " - No"));
  }
  return lines;
}

}  // namespace feltmaster
