#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "view/rows.h"

namespace feltmaster {

// The bars of the Roll Totals screen: how often each roll came, against how often it should.
enum RollTotalsBars : std::int32_t {
  kElevenNumbers = 0,
  kTwentyOneCombinations = 1,
  kThirtySixCombinations = 2,
  kDiceFaces = 3,
};

struct RollBar {
  std::string label;
  int event = 0;  // RollCategory
  std::int32_t rolls = 0;
  std::int32_t since = 0;  // rolls since it last appeared
  double probable = 0;     // percent
  double actual = 0;
  double probable_height = 0;  // as a share of the graph, 0 to 1
  double actual_height = 0;
};

struct RollTotals {
  std::string_view heading;
  std::string total_rolls;
  bool offers_skewed = false;   // skewed dice are in force
  bool against_skewed = false;  // and compared with
  std::vector<RollBar> bars;
  std::array<double, 5> axis{};  // 0 to the top of the scale, in percent
};

RollTotals RollTotalsOf(Game& game);

// The top of a scale that holds `most` percent: the next multiple of 5 from 8 on, of 4 below. A
// most that rounds to such a multiple without being one takes the multiple after it.
double RollScaleTop(double most);

// The names of RollTotalsDisplay.
inline constexpr std::array<std::string_view, 4> kRollTotalsDisplays = {
    "11 Standard Numbers",
    "21 Distinguishable Combos",
    "36 Unique Combos",
    "Dice Faces",
};

// The backgrounds that the screen offers, as palette numbers.
struct RollTotalsBack {
  std::string_view caption;
  int color;
};
extern const std::array<RollTotalsBack, 4> kRollTotalsBacks;

// What RollTotalsGraphColor means: the palette numbers of the probable and the actual bars.
struct RollTotalsColors {
  std::string_view caption;
  int probable;
  int actual;
  bool many = false;  // each pair of bars has a colour of its own
};
inline constexpr int kRollTotalsColorings = 10;
extern const std::array<RollTotalsColors, kRollTotalsColorings> kRollTotalsColors;
// The colours of the bars at a place of the graph, from 0.
RollTotalsColors RollTotalsColorsOf(const Game& game, std::size_t bar);

// The table above the bars, a column for each: heading and labels, counts, rolls since, percents.
Rows RollTotalRows(Game& game);

// A probable percentage as it is shown: two places, and the third of the skewed ones.
std::string ProbableText(double percent);

}  // namespace feltmaster
