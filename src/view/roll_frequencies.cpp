#include "view/roll_frequencies.h"

#include "stats/roll_statistics.h"
#include "view/roll_totals.h"

namespace feltmaster {

constexpr std::array<FrequencyEntry, kFrequencyEntries> kFrequencyEntry = {{
    {"Number 2 (1-1)", 2},
    {"Number 3 (1-2)", 22},
    {"Number 3 (2-1)", 23},
    {"Number 3 (1-2) or (2-1)", 3},
    {"Number 4 (1-3)", 24},
    {"Number 4 (3-1)", 25},
    {"Hard 4 (2-2)", 13},
    {"Number 4 (1-3) or (3-1)", 26},
    {"Any 4", 4},
    {"Number 5 (1-4)", 27},
    {"Number 5 (4-1)", 28},
    {"Number 5 (2-3)", 29},
    {"Number 5 (3-2)", 30},
    {"Number 5 (1-4) or (4-1)", 31},
    {"Number 5 (2-3) or (3-2)", 32},
    {"Any 5", 5},
    {"Number 6 (1-5)", 33},
    {"Number 6 (5-1)", 34},
    {"Number 6 (2-4)", 35},
    {"Number 6 (4-2)", 36},
    {"Hard 6 (3-3)", 14},
    {"Number 6 (1-5) or (5-1)", 37},
    {"Number 6 (2-4) or (4-2)", 38},
    {"Any 6", 6},
    {"Number 7 (1-6)", 39},
    {"Number 7 (6-1)", 40},
    {"Number 7 (2-5)", 41},
    {"Number 7 (5-2)", 42},
    {"Number 7 (3-4)", 43},
    {"Number 7 (4-3)", 44},
    {"Number 7 (1-6) or (6-1)", 45},
    {"Number 7 (2-5) or (5-2)", 46},
    {"Number 7 (3-4) or (4-3)", 47},
    {"Any 7", 7},
    {"Number 8 (2-6)", 48},
    {"Number 8 (6-2)", 49},
    {"Number 8 (3-5)", 50},
    {"Number 8 (5-3)", 51},
    {"Hard 8 (4-4)", 15},
    {"Number 8 (2-6) or (6-2)", 52},
    {"Number 8 (3-5) or (5-3)", 53},
    {"Any 8", 8},
    {"Number 9 (3-6)", 54},
    {"Number 9 (6-3)", 55},
    {"Number 9 (4-5)", 56},
    {"Number 9 (5-4)", 57},
    {"Number 9 (3-6) or (6-3)", 58},
    {"Number 9 (4-5) or (5-4)", 59},
    {"Any 9", 9},
    {"Number 10 (4-6)", 60},
    {"Number 10 (6-4)", 61},
    {"Hard 10 (5-5)", 16},
    {"Number 10 (4-6) or (6-4)", 62},
    {"Any 10", 10},
    {"Number 11 (5-6)", 63},
    {"Number 11 (6-5)", 64},
    {"Number 11 (5-6) or (6-5)", 11},
    {"Number 12 (6-6)", 12},
    {"Numbers 2,3,4,9,10,11,12", 21},
    {"Numbers 4,5,6,8,9,10", 17},
    {"Numbers 2,3,7,11,12", 65},
    {"Numbers 2,3,11,12", 66},
    {"Numbers 5,6,8,9", 18},
    {"Numbers 4,5,9,10", 19},
    {"Numbers 2,3,12", 20},
    {"Numbers 4,5,6", 67},
    {"Numbers 8,9,10", 68},
    {"Numbers 2,12", 69},
    {"Numbers 3,11", 70},
    {"Numbers 4,10", 71},
    {"Numbers 5,9", 72},
    {"Numbers 6,8", 73},
    {"Numbers 2,3", 74},
    {"Numbers 3,12", 75},
    {"Numbers 7,11", 76},
    {"Numbers 11,12", 77},
    {"Die 1, face 1", 78},
    {"Die 1, face 2", 79},
    {"Die 1, face 3", 80},
    {"Die 1, face 4", 81},
    {"Die 1, face 5", 82},
    {"Die 1, face 6", 83},
    {"Die 2, face 1", 84},
    {"Die 2, face 2", 85},
    {"Die 2, face 3", 86},
    {"Die 2, face 4", 87},
    {"Die 2, face 5", 88},
    {"Die 2, face 6", 89},
}};

namespace {

constexpr std::size_t kLastGap = kGaps - 1;  // holds all gaps of its length and longer

}  // namespace

double AverageGap(Game& game, int event) {
  const auto& gaps = GapsOf(game, event);
  // Gaps of exactly 200 rolls are in neither sum of lengths, but they are counted.
  std::int64_t rolls = gaps[0];
  std::int64_t count = gaps[kLastGap];
  for (std::size_t gap = 1; gap < kLastGap; ++gap) {
    rolls += static_cast<std::int64_t>(gap) * gaps[gap];
    count += gaps[gap];
  }
  return count == 0 ? 0 : static_cast<double>(rolls) / static_cast<double>(count);
}

Figures FrequencyFigures(Game& game, int event, bool skewed) {
  const std::int64_t all = RollCounts(game, 0);
  const std::int64_t rolls = RollCounts(game, event);
  const double actual = all == 0 ? 0 : static_cast<double>(rolls) / static_cast<double>(all) * 100;
  const bool against_skewed = skewed && game.UseSkewedProbability;
  return {
      {"Total game rolls:", CountText(all)},
      {"Total rolls this selection:", CountText(rolls)},
      {"Actual % rolled:", StandardText(actual)},
      {"# rolls since last rolled:", CountText(std::int64_t{RollsSinceLast(game, event)})},
      {"Average # of rolls to achieve:", StandardText(AverageGap(game, event))},
      {against_skewed ? "Skewed probable %:" : "True probable %:",
       ProbableText(ProbablePercent(game, event, against_skewed))},
  };
}

Rows FrequencyRows(Game& game, const FrequencyEntry& entry, bool skewed) {
  Rows rows = RowsOf(FrequencyFigures(game, entry.event, skewed));
  rows.insert(rows.begin(), {"Display frequencies for:", std::string(entry.caption)});
  return rows;
}

Rows GapRows(Game& game, int event) {
  const auto& gaps = GapsOf(game, event);
  Rows rows;
  for (std::size_t gap = 1; gap <= kLastGap; ++gap) {
    rows.push_back({std::to_string(gap) + (gap == kLastGap ? "+" : ""),
                    gaps[gap] >= 1 ? CountText(std::int64_t{gaps[gap]}) : ""});
  }
  return rows;
}

}  // namespace feltmaster
