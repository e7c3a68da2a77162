#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "view/figure.h"

namespace feltmaster {

// The figures above the bankroll graph.
Figures BankrollHeader(const Game& game);

// Palette numbers of a colour scheme.
struct GraphColors {
  std::string_view caption;
  std::array<int, 2> reference;
  int win;
  int loss;
  int background;
  int line;
};
inline constexpr int kGraphSchemes = 8;
extern const std::array<GraphColors, kGraphSchemes> kGraphColors;
const GraphColors& GraphColorsOf(const Game& game);

// A straight stroke between two pixels, both painted, x from 0 to 524 and y from 0 (the top) to
// 300; -1 and 301 lie just outside. color is a palette number.
struct GraphStroke {
  int x1 = 0;
  int y1 = 0;
  int x2 = 0;
  int y2 = 0;
  int color = 0;

  bool operator==(const GraphStroke&) const = default;
};

// One roll of the graph: the fill towards the baseline, if its style has one here, and the bankroll
// line on top of it.
struct GraphColumn {
  std::optional<GraphStroke> fill;
  GraphStroke line;

  bool operator==(const GraphColumn&) const = default;
};

// The labels of a reference line: the number of its roll, and the amount there, blank when that
// roll has not been made.
struct ReferenceLabel {
  std::string roll;
  std::string amount;
};

// The whole graph, in the order of painting.
struct BankrollGraph {
  int background = 0;
  std::array<std::string, 7> scale_labels;  // from the top down, 50 points apart
  std::string rolls_left, rolls_right;
  std::string average_caption;  // empty when no average shows
  std::vector<GraphStroke> grid;
  std::vector<GraphColumn> columns;  // by position, from 1
  int pen = 0;                       // height from which the next column starts
  std::vector<GraphStroke> reference_lines;
  std::array<ReferenceLabel, 2> reference_labels;
  std::string rolls_between, bankroll_between;  // between the reference lines; the latter blank
                                                // when one of them is past the last roll
};

// Paints by the scale as it stands (DrawGraph of stats/bankroll_history.h sets it) and notes the
// levels of the reference lines.
BankrollGraph PaintBankrollGraph(Game& game);

// The newest column, to be painted behind the others. Nothing when the graph must be painted as a
// whole: a page began, or the bankroll left the scale, which has been set anew then.
std::optional<GraphColumn> ExtendGraph(Game& game);

// The height of an amount on the graph, clipped to one step outside it.
int GraphHeightOf(const Game& game, MoneyAmount amount);

// Puts reference line 1 or 2 at a pixel. on_average lets its level follow the average; with
// both_lines the other line goes along, and follows the other of the two.
void MoveReferenceLine(Game& game, int line, int x, bool on_average, bool both_lines);

// The four buttons of the scale: the top moves by a line of the scale, or the scale itself changes,
// which the automatic scales come back to.
enum class GraphStep { kUp, kDown, kLarger, kSmaller };
void StepGraph(Game& game, GraphStep step);
void SetGraphAdjustType(Game& game, std::int32_t type);
void ShowGraphAverage(Game& game, bool on);
// Asks how many rolls the moving average takes in. False when the player gave up.
bool AskGraphAverage(Game& game);

// "120 roll moving average".
std::string AverageCaption(const Game& game);

}  // namespace feltmaster
