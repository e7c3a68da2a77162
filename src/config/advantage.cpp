#include "config/advantage.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <string_view>

#include "base/number_format.h"
#include "config/payoffs.h"
#include "dice/probability.h"

namespace feltmaster {

namespace {

double RatioOf(const PayRow& row) {
  if (row.PayDenominator.Raw() == 0) return 0;
  return row.PayNumerator.ToDouble() / row.PayDenominator.ToDouble();
}
double RatioOf(const Game& game, int bet) {
  return RatioOf(game.PayTable[static_cast<std::size_t>(bet)]);
}

// What a winning Lay or Buy bet brings for one unit put up in all. Charged up front, the vig is a
// part of the unit: of 1 / (1 + v) bet and v / (1 + v) vig, the vig is lost either way.
double WinAfterVig(double ratio, double vig, bool up_front) {
  if (ratio <= 0) return ratio;
  if (!up_front) return ratio - vig;
  const double bet = 1 / (1 + vig);
  return ratio * bet - (1 - bet);
}

double LayWin(const Game& game, int bet) {
  const double ratio = RatioOf(game, bet);
  return WinAfterVig(ratio, game.LayVigPct.ToDouble() * ratio, game.LayVigAllBets);
}
double BuyWin(const Game& game, int bet) {
  return WinAfterVig(RatioOf(game, bet), game.BuyVigPct.ToDouble(), game.BuyVigAllBets);
}

// A bet split into equal parts: one part wins by the row of its number, the others are lost.
double SplitWin(const Game& game, int row, double part) {
  return RatioOf(game, row) * part - (1 - part);
}

constexpr std::array<int, 4> kHardNumber = {4, 6, 8, 10};

struct Pair {
  std::int8_t low;
  std::int8_t high;
};
// By bet less 72.
constexpr auto kHopPairs = std::to_array<Pair>({{1, 3},
                                                {1, 4},
                                                {1, 5},
                                                {1, 6},
                                                {2, 2},
                                                {2, 3},
                                                {2, 4},
                                                {2, 5},
                                                {2, 6},
                                                {3, 3},
                                                {3, 4},
                                                {3, 5},
                                                {3, 6},
                                                {4, 4},
                                                {4, 5},
                                                {4, 6},
                                                {5, 5}});
static_assert(kHopPairs.size() == kHop55 - kHop13 + 1);

// The row of PayTable that pays a number among the one-roll bets.
int RowOfNumber(int total) {
  switch (total) {
    case 2:
      return kTwo;
    case 3:
      return kThree;
    case 7:
      return kSeven;
    case 11:
      return kEleven;
    case 12:
      return kTwelve;
    default:
      return 0;
  }
}

bool IsCraps(int total) {
  return total == 2 || total == 3 || total == 12;
}

// The net result of one unit on a roll, 0 where the roll leaves the bet standing.
double Outcome(const Game& game, int bet, int die1, int die2) {
  const int total = die1 + die2;
  const auto against_seven = [&](int number, double win) {
    return total == number ? win : total == 7 ? -1.0 : 0.0;
  };
  const auto one_roll = [&](bool wins) { return wins ? RatioOf(game, bet) : -1.0; };
  const int number = bet <= kBuy + kSlotCount - 1 ? NumberOfSlot((bet - 1) % kSlotCount) : 0;

  if (IsLay(bet)) return total == 7 ? LayWin(game, bet) : total == number ? -1.0 : 0.0;
  if (IsBuy(bet)) return against_seven(number, BuyWin(game, bet));
  if (number != 0) return against_seven(number, RatioOf(game, bet));
  if (bet >= kHard4 && bet <= kHard10) {
    const int hard = kHardNumber[static_cast<std::size_t>(bet - kHard4)];
    return total == hard && die1 != die2 ? -1.0 : against_seven(hard, RatioOf(game, bet));
  }
  if (bet >= kHop13 && bet <= kHop55) {
    const Pair pair = kHopPairs[static_cast<std::size_t>(bet - kHop13)];
    return one_roll((die1 == pair.low && die2 == pair.high) ||
                    (die1 == pair.high && die2 == pair.low));
  }
  const int row = RowOfNumber(total);
  switch (bet) {
    case kComeBox:
      return total == 7 ? RatioOf(game, bet) : 0.0;
    case kField:
      return RatioOf(game.FieldPayTable[static_cast<std::size_t>(FieldRowOfDice(die1, die2))]);
    case kBig6:
      return against_seven(6, RatioOf(game, bet));
    case kBig8:
      return against_seven(8, RatioOf(game, bet));
    case kCraps:
      return one_roll(IsCraps(total));
    case kCAndE:
      if (IsCraps(total)) return SplitWin(game, kCraps, 0.5);
      return total == 11 ? SplitWin(game, kEleven, 0.5) : -1.0;
    case kHorn:
      return row != 0 && total != 7 ? SplitWin(game, row, 0.25) : -1.0;
    case kWorld:
      return row != 0 ? SplitWin(game, row, 0.2) : -1.0;
    case kOver7:
      return one_roll(total > 7);
    case kUnder7:
      return one_roll(total < 7);
    default:  // Two, Three, Seven, Eleven, Twelve
      return one_roll(row == bet);
  }
}

// The chance of a cell of the probability grid.
double RollProb(const Game& game, int row, int column) {
  if (!game.UseSkewedProbability) return (row == kTotalRow ? WaysOfColumn(column) : 1) / 36.0;
  const auto& weights = game.DiceProbability[1];
  return weights[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] /
         double{kCertainty};
}
double TotalProb(const Game& game, int total) {
  return RollProb(game, kTotalRow, total - 1);
}

// A bet that single rolls decide.
Advantage OneRoll(const Game& game, int bet) {
  struct Roll {
    double outcome;
    double probability;
  };
  std::array<Roll, 36> rolls{};
  std::size_t count = 0;
  double expected = 0;
  double decided = 0;
  for (int column = 1; column <= kTotalColumns; ++column) {
    for (int row = kFirstRollRow; row <= WaysOfColumn(column) + 1; ++row) {
      const double outcome =
          Outcome(game, bet, FirstDieOfCell(row, column), SecondDieOfCell(row, column));
      const double probability = RollProb(game, row, column);
      rolls[count++] = {outcome, probability};
      expected += outcome * probability;
      if (outcome != 0) decided += probability;
    }
  }
  const bool every_roll_counts = game.IncludeZeroOutcomes;
  if (every_roll_counts) decided = 1;

  Advantage result;
  result.ev_per_roll = expected;
  if (decided != 0) {
    result.ev_per_decision = expected / decided;
    result.rolls_per_decision = NumericPrefix(FormatNumber(1 / decided, "#.##"));
  }
  double variance_per_roll = 0;
  double variance_per_decision = 0;
  for (const Roll& roll : rolls) {
    const double off_roll = roll.outcome - result.ev_per_roll;
    variance_per_roll += off_roll * off_roll * roll.probability;
    if (decided == 0 || (roll.outcome == 0 && !every_roll_counts)) continue;
    const double off_decision = roll.outcome - result.ev_per_decision;
    variance_per_decision += off_decision * off_decision * roll.probability / decided;
  }
  result.deviation_per_roll = std::sqrt(variance_per_roll);
  result.deviation_per_decision = std::sqrt(variance_per_decision);
  return result;
}

// A bet that is decided in two stages, as the list of its ways out.
class TwoStages {
 public:
  void Add(double net, double weight) {
    ways_[count_++] = {net, weight};
    weight_ += weight;
    expected_ += net * weight;
  }
  void AddRolls(double rolls) { rolls_ += rolls; }

  Advantage Figure(bool every_roll_counts) const {
    Advantage result;
    if (weight_ == 0 || rolls_ == 0) return result;
    const double decisions = every_roll_counts ? 1 : weight_;
    result.ev_per_decision = expected_ / decisions;
    result.rolls_per_decision = rolls_ / decisions;
    result.ev_per_roll = expected_ / rolls_;
    result.deviation_per_decision = Deviation(result.ev_per_decision, 1);
    result.deviation_per_roll = Deviation(result.ev_per_roll, rolls_);
    return result;
  }

 private:
  struct Way {
    double net;
    double weight;
  };
  double Deviation(double mean, double divisor) const {
    double sum = 0;
    for (std::size_t i = 0; i < count_; ++i) {
      sum += (ways_[i].net - mean) * (ways_[i].net - mean) * ways_[i].weight / divisor;
    }
    return std::sqrt(sum);
  }

  std::array<Way, 2 * kSlotCount + 1> ways_{};
  std::size_t count_ = 0;
  double weight_ = 0;
  double expected_ = 0;
  double rolls_ = 0;
};

Advantage PassLine(const Game& game) {
  const double seven = TotalProb(game, 7);
  TwoStages stages;
  stages.Add(RatioOf(game, kComeBox), seven);
  stages.AddRolls(seven);
  for (const int total : kNumbers) {
    const double point = TotalProb(game, total);
    const double either = point + seven;
    if (either <= 0) continue;
    stages.Add(RatioOf(game, BetOnNumber(kComePoint, total)), point * point / either);
    stages.Add(-1, point * seven / either);
    stages.AddRolls((1 + 1 / either) * point);
  }
  return stages.Figure(game.IncludeZeroOutcomes);
}

Advantage PassLineOdds(const Game& game) {
  constexpr std::array<int, 6> kPoints = {4, 5, 6, 8, 9, 10};
  const double seven = TotalProb(game, 7);
  double points = 0;
  for (const int total : kPoints) points += TotalProb(game, total);
  TwoStages stages;
  for (const int total : kPoints) {
    const double point = TotalProb(game, total);
    const double either = point + seven;
    if (either <= 0 || points <= 0) continue;
    const double share = point / points;
    stages.Add(RatioOf(game, BetOnNumber(kComeOdds, total)), share * point / either);
    stages.Add(-1, share * seven / either);
    stages.AddRolls(share / either);
  }
  return stages.Figure(game.IncludeZeroOutcomes);
}

double SixPlaces(double value) {
  return NumericPrefix(FormatNumber(value, "#.######;-#.######;0.000000"));
}

}  // namespace

Advantage FigureAdvantage(const Game& game, int bet) {
  if (!IsLayoutBet(bet)) return {};
  Advantage exact = bet == kPassLine   ? PassLine(game)
                    : bet == kPassOdds ? PassLineOdds(game)
                                       : OneRoll(game, bet);
  return {SixPlaces(exact.ev_per_roll), SixPlaces(exact.ev_per_decision),
          SixPlaces(exact.rolls_per_decision), SixPlaces(exact.deviation_per_roll),
          SixPlaces(exact.deviation_per_decision)};
}

}  // namespace feltmaster
