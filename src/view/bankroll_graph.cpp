#include "view/bankroll_graph.h"

#include <algorithm>
#include <cstdlib>

#include "autobet/message.h"
#include "base/number_format.h"
#include "stats/bankroll_history.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

constexpr std::array<GraphColors, kGraphSchemes> kGraphColors = {{
    {"Cyan", {0, 13}, 9, 12, 11, 0},
    {"Black", {12, 14}, 3, 5, 0, 10},
    {"White", {3, 5}, 9, 12, 15, 0},
    {"Red", {11, 14}, 9, 0, 4, 15},
    {"Green", {0, 12}, 9, 5, 10, 1},
    {"Yellow", {2, 12}, 9, 12, 14, 0},
    {"Blue", {12, 14}, 3, 0, 1, 15},
    {"Gray", {9, 12}, 3, 0, 8, 15},
}};

namespace {

constexpr int kGray = 8;
constexpr int kWhite = 7;
constexpr int kGridStep = 50;
constexpr int kAbove = -1;
constexpr int kBelow = kGraphHeight + 1;
constexpr std::size_t kLines = 2;  // reference lines 1 and 2

enum GraphStyles : std::int32_t { kPlain = 0, kStriped = 1, kSolid = 2 };

int RollsOnPage(const Game& game) {
  return std::clamp(game.BankrollHistoryCount, 0, kGraphRolls);
}

MoneyAmount BankrollAt(const Game& game, int position) {
  return game.BankrollHistory[static_cast<std::size_t>(position)];
}
// What the bankroll is compared with: its average, or what was put in.
MoneyAmount BaselineAt(Game& game, int position) {
  return game.GraphShowAverage ? BankrollAverage(game, position) : game.AmountInvested;
}

bool IsOnGraph(int y) {
  return y >= 0 && y <= kGraphHeight;
}

GraphColumn ColumnAt(Game& game, int position) {
  const GraphColors& colors = GraphColorsOf(game);
  const int x = position - 1;
  const int y = GraphHeightOf(game, BankrollAt(game, position));
  const int base = GraphHeightOf(game, BaselineAt(game, position));
  const int fill_color = base > y ? colors.win : colors.loss;

  GraphColumn column;
  const bool striped_here = game.GraphStyle == kStriped && position % 2 == 0;
  if (game.GraphStyle == kPlain) {
    if (IsOnGraph(base)) column.fill = GraphStroke{x, base, x, base, fill_color};
  } else if (striped_here || game.GraphStyle == kSolid) {
    column.fill = GraphStroke{x, base, x, y, fill_color};
  }
  // The first roll of a page has none before it to start from.
  if (position == 1) {
    column.line = {x, y, x, y, colors.line};
  } else {
    column.line = {x - 1, GraphHeightOf(game, BankrollAt(game, position - 1)), x, y, colors.line};
  }
  return column;
}

int LinePosition(const Game& game, std::size_t line) {
  return std::clamp(game.RefLineRoll[line], 0, kGraphRolls - 1) + 1;
}

// The amount that a reference line stands on; nothing past the last roll.
std::optional<MoneyAmount> AmountAtLine(Game& game, std::size_t line) {
  const int position = LinePosition(game, line);
  if (position > RollsOnPage(game)) return {};
  return game.RefLineOnAverage[line] ? BaselineAt(game, position) : BankrollAt(game, position);
}

void AddReferenceLines(Game& game, BankrollGraph& graph) {
  std::array<std::optional<MoneyAmount>, kLines + 1> amounts;
  for (std::size_t line = 1; line <= kLines; ++line) {
    amounts[line] = AmountAtLine(game, line);
    const int level = amounts[line] ? GraphHeightOf(game, *amounts[line]) : kAbove;
    game.RefLineLevel[line] = level;
    if (!game.GraphRefLines) continue;

    const int x = LinePosition(game, line) - 1;
    const int color = GraphColorsOf(game).reference[line - 1];
    graph.reference_lines.push_back({x, 0, x, kGraphHeight, color});
    if (IsOnGraph(level)) {
      graph.reference_lines.push_back({0, level, kGraphRolls - 1, level, color});
    }
    const MoneyAmount roll = game.BankrollHistory[0] + MoneyAmount(x);
    graph.reference_labels[line - 1] = {PlainNumber(roll),
                                        amounts[line] ? FormatMoney(*amounts[line]) : ""};
  }
  if (!game.GraphRefLines) return;
  const int apart = std::abs(LinePosition(game, 1) - LinePosition(game, 2));
  graph.rolls_between = "Rolls:  " + std::to_string(apart);
  if (amounts[1] && amounts[2]) {
    graph.bankroll_between = "Bankroll:  " + FormatMoney(Abs(*amounts[1] - *amounts[2]));
  }
}

}  // namespace

Figures BankrollHeader(const Game& game) {
  const MoneyAmount current = game.BetAmount[kBankroll];
  const MoneyAmount hours = SimulatedHours(game);
  const bool whole = game.BankrollHigh.IsWhole() && game.BankrollLow.IsWhole() && current.IsWhole();
  const std::string_view money = whole ? kCountPicture : "#,#.00;-#,#.00;0.00";
  const auto amount = [&](const char* caption, MoneyAmount value) {
    return Figure{caption, FormatNumber(value, money), ToneOf(value)};
  };
  return {
      {"Total Rolls:", FormatNumber(std::int64_t{RollCounts(game, 0)}, "#,#;0;0")},
      {"Rolls / hr:", RateText(game.RollsPerHour)},
      {"Sim hrs:", FormatNumber(hours, hours.IsWhole() ? kCountPicture : "#,#.00;-#,#;0.00")},
      amount("High:", game.BankrollHigh),
      amount("Low:", game.BankrollLow),
      amount("Current:", current),
  };
}

const GraphColors& GraphColorsOf(const Game& game) {
  return kGraphColors[static_cast<std::size_t>(
      std::clamp(game.GraphColorScheme, 0, kGraphSchemes - 1))];
}

int GraphHeightOf(const Game& game, MoneyAmount amount) {
  const __int128 below_top = static_cast<__int128>(game.GraphTop.Raw()) - amount.Raw();
  const __int128 scale = std::max<std::int64_t>(game.GraphScale.Raw(), 1);
  if (below_top < -scale) return kAbove;
  if (below_top > scale * kBelow) return kBelow;
  // Points of height, rounded once.
  const std::int64_t height =
      Ratio(MoneyAmount::FromRaw(static_cast<std::int64_t>(below_top)), MoneyAmount::FromRaw(1),
            MoneyAmount::FromRaw(static_cast<std::int64_t>(scale)))
          .Raw();
  return static_cast<int>(std::clamp<std::int64_t>(height, kAbove, kBelow));
}

std::string AverageCaption(const Game& game) {
  if (game.GraphAverageRolls <= 0) return "All rolls average";
  return std::to_string(game.GraphAverageRolls) + " roll moving average";
}

BankrollGraph PaintBankrollGraph(Game& game) {
  const GraphColors& colors = GraphColorsOf(game);
  BankrollGraph graph;
  graph.background = colors.background;
  for (std::size_t i = 0; i < graph.scale_labels.size(); ++i) {
    const auto points = static_cast<std::int64_t>(i) * kGridStep;
    graph.scale_labels[i] = CountText(game.GraphTop - game.GraphScale.Times(points));
  }
  graph.rolls_left = PlainNumber(game.BankrollHistory[0]);
  graph.rolls_right = PlainNumber(game.BankrollHistory[0] + MoneyAmount(kGraphRolls - 1));
  if (game.GraphShowAverage) graph.average_caption = AverageCaption(game);
  if (game.GraphGridLines) {
    const int color = colors.background == kGray ? kGray : kWhite;
    for (int y = kGridStep; y < kGraphHeight; y += kGridStep) {
      graph.grid.push_back({0, y, kGraphRolls - 1, y, color});
    }
  }
  const int last = RollsOnPage(game);
  for (int position = 1; position <= last; ++position) {
    graph.columns.push_back(ColumnAt(game, position));
  }
  graph.pen =
      last == 0 ? GraphHeightOf(game, game.BetAmount[kBankroll]) : graph.columns.back().line.y2;
  AddReferenceLines(game, graph);
  return graph;
}

std::optional<GraphColumn> ExtendGraph(Game& game) {
  const int last = RollsOnPage(game);
  if (last == 0) return {};
  // The extremes are on the scale as long as all rolls were; some may not have been looked at.
  const bool on_scale = IsOnGraph(GraphHeightOf(game, game.GraphHigh)) &&
                        IsOnGraph(GraphHeightOf(game, game.GraphLow));
  if (game.GraphAdjustType > 0 && !on_scale) {
    DrawGraph(game, true);
    return {};
  }
  const GraphColumn column = ColumnAt(game, last);
  if (last == 1) return {};  // the page before is still on the screen
  return column;
}

void StepGraph(Game& game, GraphStep step) {
  if (step == GraphStep::kUp || step == GraphStep::kDown) {
    const MoneyAmount line = game.GraphScale.Times(kGridStep);
    game.GraphTop += step == GraphStep::kUp ? line : -line;
    DrawGraph(game, false);
    return;
  }
  game.GraphScale = game.GraphManualScale =
      NextGraphScale(game.GraphScale, step == GraphStep::kLarger);
  DrawGraph(game, true);
}

void SetGraphAdjustType(Game& game, std::int32_t type) {
  game.GraphAdjustType = type;
  DrawGraph(game, type > 0);
}

void ShowGraphAverage(Game& game, bool on) {
  SettleAverages(game);
  game.GraphShowAverage = on;
  if (on) {
    RebuildAverages(game);
  } else {
    RescanGraphRange(game);
  }
  DrawGraph(game, false);
}

bool AskGraphAverage(Game& game) {
  game.MsgInputDefault = std::to_string(game.GraphAverageRolls);
  game.MsgAnswer = kAnswerCancel;  // what an unanswered question leaves behind
  Tell(game, "Set Bankroll Moving Average",
       "Enter the number of rolls (max 525) that you'd like to include in the bankroll moving "
       "average (a value of 0 will display an average of all rolls since the beginning of the "
       "game):",
       kButtonOk | kButtonCancel | kOneInput);
  if (game.MsgAnswer != kAnswerOk) return false;
  SettleAverages(game);
  game.GraphAverageRolls = static_cast<std::int32_t>(
      std::clamp(game.BetRequest, MoneyAmount(), MoneyAmount(kGraphRolls)).RoundWhole());
  if (game.GraphShowAverage) RebuildAverages(game);
  DrawGraph(game, false);
  return true;
}

void MoveReferenceLine(Game& game, int line, int x, bool on_average, bool both_lines) {
  const auto moved = static_cast<std::size_t>(line);
  const std::size_t other = kLines + 1 - moved;
  game.RefLineRoll[moved] = std::clamp(x, 0, kGraphRolls - 1);
  game.RefLineOnAverage[moved] = on_average;
  if (!both_lines) return;
  game.RefLineRoll[other] = game.RefLineRoll[moved];
  game.RefLineOnAverage[other] = !on_average;
}

}  // namespace feltmaster
