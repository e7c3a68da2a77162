#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "game/game.h"
#include "stats/games_analysis.h"
#include "view/figure.h"

namespace feltmaster {

// The Games Log screen over an analysis of the log in use.

// "Games Log", with the name of a log that is not the default one.
std::string GamesCaption(const Game& game);

// The outcomes by the break-points: "Won" or "> 100".
std::array<std::string, kGameOutcomes> OutcomeCaptions(const GamesLogState& state);

// A line of the outcome table: caption, games and percentage. The last line is all games.
struct OutcomeFigure {
  std::string caption;
  std::string games;
  std::string percent;
};
std::array<OutcomeFigure, kGameOutcomes + 1> OutcomeFigures(const Game& game,
                                                            const GamesAnalysis& analysis);

// The fifteen statistics.
Figures GamesFigures(const GamesAnalysis& analysis);

// The games in the range: "12 games" and "40.0%".
struct RangeFigures {
  std::string games;
  std::string percent;
};
RangeFigures GamesInRange(const GamesAnalysis& analysis);

inline constexpr int kHistogramHeight = 223;
inline constexpr int kHistogramBarColor = 10;

// A filled box of the histogram, x from 0 to 524, y from 0 at the top to 223 at the base; right and
// bottom are the first column and line outside it.
struct HistogramBox {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  bool operator==(const HistogramBox&) const = default;
};
struct HistogramLine {
  int x = 0;
  int color = 0;  // palette number

  bool operator==(const HistogramLine&) const = default;
};
// The histogram in the order of painting: the ground, the chosen range in black, the marks, the
// bars, the word at the mean.
struct GamesHistogram {
  bool empty = true;                // black all over, and nothing else
  std::vector<HistogramBox> range;  // the band between the pointers, or the two tails outside them
  std::vector<HistogramLine> marks;
  std::vector<HistogramBox> bars;
  int mean = 0;               // the column under the middle of the word "Mean"
  std::string highest = "0";  // the label at the top of the scale; "0" stands at its bottom
};
inline constexpr int kHistogramGround = 0x0000BB;  // 0xBBGGRR, under a pattern of tiles
GamesHistogram PaintGamesHistogram(const Game& game, const GamesAnalysis& analysis);

// Moves pointer 0 or 1 to a column: it snaps to the bar there, its boxes take the value, and the
// figures of the range are counted anew from the bars.
void MoveGamesPointer(Game& game, GamesAnalysis& analysis, int pointer, int column);
// The Left and Right keys on the pointer moved last; steps of -1 and 1 columns or whole bars.
void StepGamesPointer(Game& game, GamesAnalysis& analysis, int step, bool by_bars);

// A line of the data list: the game's number, and its value.
struct GameLine {
  std::int32_t number = 0;
  std::string value;
  Tone tone = Tone::kNeutral;
};
inline constexpr int kDataLines = 16;
// So many of the next games from GamesTopLine on that pass the outcome filter. A failure is told.
std::vector<GameLine> GamesRawData(Game& game, int value, std::size_t lines = kDataLines);

// The scroll bar of the data list, 1 to 30,000, and the game at a place of it.
std::int32_t RawDataScroll(const GamesLogState& state);
std::int32_t GameAtScroll(const GamesLogState& state, std::int32_t place);

// The screen row by row: caption, variable, outcomes, statistics, range, and the data list or the
// bars of the histogram that hold games.
Rows GamesRows(Game& game, const GamesAnalysis& analysis);

}  // namespace feltmaster
