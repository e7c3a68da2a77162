#include "view/roll_totals.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "base/number_format.h"
#include "stats/roll_events.h"
#include "stats/roll_statistics.h"
#include "view/figure.h"
#include "view/palette.h"

namespace feltmaster {

constexpr std::array<RollTotalsBack, 4> kRollTotalsBacks = {{
    {"Cyan", kCyanInk},
    {"Black", kBlackInk},
    {"White", kBrightWhiteInk},
    {"Gray", kGrayInk},
}};

constexpr std::array<RollTotalsColors, kRollTotalsColorings> kRollTotalsColors = {{
    {"Black", kBlackInk, kBlackInk},
    {"White", kBrightWhiteInk, kBrightWhiteInk},
    {"Red", kRedInk, kRedInk},
    {"Blue", kBlueInk, kBlueInk},
    {"Yellow", kYellowInk, kYellowInk},
    {"Black and Blue", kBlackInk, kBlueInk},
    {"Black and Red", kBlackInk, kRedInk},
    {"Red and Blue", kRedInk, kBlueInk},
    {"Yellow and Blue", kYellowInk, kBlueInk},
    {"Multi-Color", kBlackInk, kBlackInk, true},
}};

namespace {

// The colours that follow each other where every bar has its own: none of the backgrounds.
constexpr std::array<int, 6> kManyColors = {kBlueInk,    kRedInk,   kYellowInk,
                                            kMagentaInk, kGreenInk, kBrownInk};

struct BarName {
  std::string label;
  int event;
};

BarName OrderedPair(int die1, int die2) {
  return {std::to_string(die1) + '-' + std::to_string(die2),
          kPairEvent[static_cast<std::size_t>(die1 - 1)][static_cast<std::size_t>(die2 - 1)]};
}
BarName UnorderedPair(int low, int high) {
  BarName bar = OrderedPair(low, high);
  if (low == high) return bar;
  const int either =
      kEitherWayEvent[static_cast<std::size_t>(low - 1)][static_cast<std::size_t>(high - 1)];
  bar.event = either != 0 ? either : low + high;  // 3 and 11 come by one pair alone
  return bar;
}

// By total; within a total the pairs farthest apart first, a double last.
std::vector<BarName> Combinations(bool ordered) {
  std::vector<BarName> bars;
  for (int total = 2; total <= 12; ++total) {
    for (int low = std::max(1, total - 6); 2 * low <= total; ++low) {
      const int high = total - low;
      if (!ordered) {
        bars.push_back(UnorderedPair(low, high));
        continue;
      }
      bars.push_back(OrderedPair(low, high));
      if (low != high) bars.push_back(OrderedPair(high, low));
    }
  }
  return bars;
}

std::vector<BarName> BarsOf(std::int32_t display) {
  std::vector<BarName> bars;
  switch (display) {
    case kTwentyOneCombinations:
    case kThirtySixCombinations:
      return Combinations(display == kThirtySixCombinations);
    case kDiceFaces:
      for (int die = 1; die <= 2; ++die) {
        for (int face = 1; face <= 6; ++face) {
          bars.push_back({"Die " + std::to_string(die) + ", face " + std::to_string(face),
                          (die == 1 ? kDie1Events : kDie2Events) + face});
        }
      }
      return bars;
    default:
      for (int total = 2; total <= 12; ++total) bars.push_back({std::to_string(total), total});
      return bars;
  }
}

std::string_view HeadingOf(std::int32_t display) {
  switch (display) {
    case kTwentyOneCombinations:
    case kThirtySixCombinations:
      return "COMBINATIONS";
    case kDiceFaces:
      return "DICE FACES";
    default:
      return "NUMBER";
  }
}

}  // namespace

double RollScaleTop(double most) {
  const int step = most >= 8 ? 5 : 4;
  const double steps = most / step;
  if (steps == std::floor(steps)) return most;
  const int rounded = static_cast<int>(std::nearbyint(most));
  return step * (rounded / step) + step;
}

RollTotals RollTotalsOf(Game& game) {
  RollTotals totals;
  totals.heading = HeadingOf(game.RollTotalsDisplay);
  totals.total_rolls = CountText(std::int64_t{RollCounts(game, 0)});
  totals.offers_skewed = game.UseSkewedProbability;
  totals.against_skewed = game.UseSkewedProbability && game.ShowSkewedPercent;

  const double rolls = RollCounts(game, 0);
  double most = 0;
  for (BarName& name : BarsOf(game.RollTotalsDisplay)) {
    RollBar bar;
    bar.label = std::move(name.label);
    bar.event = name.event;
    bar.rolls = RollCounts(game, bar.event);
    bar.since = RollsSinceLast(game, bar.event);
    bar.probable = ProbablePercent(game, bar.event, totals.against_skewed);
    bar.actual = rolls == 0 ? 0 : bar.rolls / rolls * 100;
    most = std::max({most, bar.probable, bar.actual});
    totals.bars.push_back(std::move(bar));
  }
  const double top = RollScaleTop(most);
  for (std::size_t i = 0; i < totals.axis.size(); ++i) {
    totals.axis[i] = top * static_cast<double>(i) / 4;
  }
  if (top > 0) {
    for (RollBar& bar : totals.bars) {
      bar.probable_height = bar.probable / top;
      bar.actual_height = bar.actual / top;
    }
  }
  return totals;
}

RollTotalsColors RollTotalsColorsOf(const Game& game, std::size_t bar) {
  const std::int32_t chosen = game.RollTotalsGraphColor;
  const bool known = chosen >= 0 && chosen < kRollTotalsColorings;
  RollTotalsColors colors = kRollTotalsColors[known ? static_cast<std::size_t>(chosen) : 0];
  if (colors.many) colors.probable = colors.actual = kManyColors[bar % kManyColors.size()];
  return colors;
}

std::string ProbableText(double percent) {
  return FormatNumber(percent, "#,##0.00#");
}

Rows RollTotalRows(Game& game) {
  const RollTotals totals = RollTotalsOf(game);
  Row labels = {std::string(totals.heading)};
  Row rolls = {"# of rolls"};
  Row since = {"# of rolls since last appeared"};
  Row probable = {"Prob %"};
  Row actual = {"Actual %"};
  for (const RollBar& bar : totals.bars) {
    labels.push_back(bar.label);
    rolls.push_back(CountText(std::int64_t{bar.rolls}));
    since.push_back(CountText(std::int64_t{bar.since}));
    probable.push_back(ProbableText(bar.probable));
    actual.push_back(StandardText(bar.actual));
  }
  return {{"Total rolls", totals.total_rolls}, labels, rolls, since, probable, actual};
}

}  // namespace feltmaster
