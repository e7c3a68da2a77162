#include "reports/graph_report.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <string_view>

#include "reports/page_layout.h"
#include "reports/report_pages.h"
#include "stats/bankroll_history.h"
#include "view/bankroll_graph.h"
#include "view/palette.h"

namespace feltmaster {

namespace {

// As many as fit below the heading, all in twips, of which a point has 20.
constexpr int kTwips = 20;
constexpr int kHeadingTwips = 660;
constexpr int kGraphTwips = 4700;
static_assert((static_cast<int>(kPageHeight) * kTwips - kHeadingTwips) / kGraphTwips ==
              kGraphsPerPage);

// The graph within its drawing, in points.
constexpr double kLeft = 70;
constexpr double kTop = 10;
constexpr double kWidth = 420;
constexpr double kHeight = 138;
constexpr double kBelow = 20;
constexpr double kAbove = 8;
constexpr double kLabelSize = 7;
constexpr double kSmallLabel = 6;

constexpr double kGridWeight = 0.3;
constexpr double kFillWeight = 0.4;
constexpr double kFrameWeight = 0.5;
constexpr double kLineWeight = 0.9;

double PlaceX(int x) {
  return kLeft + (x + 0.5) * kWidth / kGraphRolls;
}
double PlaceY(int y) {
  return kTop + std::clamp(y, 0, kGraphHeight) * kHeight / kGraphHeight;
}
Stroke Placed(const GraphStroke& stroke, int ink, double weight) {
  return {PlaceX(stroke.x1), PlaceY(stroke.y1), PlaceX(stroke.x2), PlaceY(stroke.y2), ink, weight};
}

void AddFrame(Picture& picture) {
  const double right = kLeft + kWidth;
  const double bottom = kTop + kHeight;
  for (const double y : {kTop, bottom}) {
    picture.strokes.push_back({kLeft, y, right, y, kBlackInk, kFrameWeight});
  }
  for (const double x : {kLeft, right}) {
    picture.strokes.push_back({x, kTop, x, bottom, kBlackInk, kFrameWeight});
  }
}

// The side caption, the scale, the rolls and the average's caption.
void AddCaptions(const BankrollGraph& graph, Picture& picture) {
  const auto add = [&](double x, double y, const std::string& text, Align align) {
    picture.labels.push_back({x, y, {text, kBlackInk, false}, kLabelSize, align});
  };
  constexpr std::string_view kSide = "BANKROLL";
  const double step = kHeight / static_cast<double>(kSide.size());
  for (std::size_t i = 0; i < kSide.size(); ++i) {
    add(24, kTop + step * (static_cast<double>(i) + 0.5) + kLabelSize / 3, std::string(1, kSide[i]),
        Align::kCentre);
  }
  const double scale_step = kHeight / static_cast<double>(graph.scale_labels.size() - 1);
  for (std::size_t i = 0; i < graph.scale_labels.size(); ++i) {
    add(kLeft - 5, kTop + scale_step * static_cast<double>(i) + kLabelSize / 3,
        graph.scale_labels[i], Align::kRight);
  }
  const double below = kTop + kHeight + kLabelSize + 3;
  add(kLeft, below, graph.rolls_left, Align::kLeft);
  add(kLeft + kWidth / 2, below, "ROLLS", Align::kCentre);
  add(kLeft + kWidth, below, graph.rolls_right, Align::kRight);
  if (!graph.average_caption.empty()) {
    add(kLeft + kWidth, below + kLabelSize + 2, graph.average_caption, Align::kRight);
  }
}

void AddReferenceLabels(const Game& game, const BankrollGraph& graph, Picture& picture) {
  const auto add = [&](double x, double y, const std::string& text, Align align) {
    picture.labels.push_back({x, y, {text, game.PrintColorOther, false}, kSmallLabel, align});
  };
  double last = -kHeight;  // where the label before stands
  for (std::size_t line = 1; line <= graph.reference_labels.size(); ++line) {
    const ReferenceLabel& label = graph.reference_labels[line - 1];
    add(PlaceX(game.RefLineRoll[line]), kTop - 2, label.roll, Align::kCentre);
    if (label.amount.empty()) continue;
    double y = PlaceY(game.RefLineLevel[line]) + kSmallLabel / 3;
    if (std::fabs(y - last) < kSmallLabel) y = last + (y < last ? -kSmallLabel : kSmallLabel);
    add(kLeft + kWidth + 4, y, label.amount, Align::kLeft);
    last = y;
  }
}

// On paper the ground is white and the line black; what is won and lost takes the print colours.
Picture GraphPicture(const Game& game, const BankrollGraph& graph) {
  const GraphColors& colors = GraphColorsOf(game);
  Picture picture;
  picture.height = kTop + kHeight + kBelow;
  for (const GraphStroke& line : graph.grid) {
    picture.strokes.push_back(Placed(line, kWhiteInk, kGridWeight));
  }
  for (const GraphColumn& column : graph.columns) {
    if (!column.fill) continue;
    const bool won = column.fill->color == colors.win;
    picture.strokes.push_back(
        Placed(*column.fill, won ? game.PrintColorWin : game.PrintColorLoss, kFillWeight));
  }
  for (const GraphColumn& column : graph.columns) {
    picture.strokes.push_back(Placed(column.line, kBlackInk, kLineWeight));
  }
  for (const GraphStroke& line : graph.reference_lines) {
    picture.strokes.push_back(Placed(line, game.PrintColorOther, kFrameWeight));
  }
  AddFrame(picture);
  AddCaptions(graph, picture);
  if (game.GraphRefLines) AddReferenceLabels(game, graph, picture);
  return picture;
}

const Figure& FigureOf(const Figures& figures, std::string_view caption) {
  return *std::find_if(figures.begin(), figures.end(),
                       [&](const Figure& figure) { return figure.caption == caption; });
}

TextLine FileLine(const Game& game) {
  std::string text = "Game file:  " + NameOrUntitled(game.GameFileName);
  if (game.ScriptActive == 1) {
    text += "     Auto-bet file:  " + NameOrUntitled(game.ScriptFileName);
  }
  if (game.DiceRollFileMode == kPlayback) text += "     Dice roll file:  " + game.DiceRollFileName;
  return {{{text, kBlackInk, false}}};
}

TextLine MoneyLine(const Game& game, const Figures& header) {
  TextLine line;
  const auto add = [&](std::string caption, std::string_view figure) {
    line.runs.push_back({std::move(caption), kBlackInk, false});
    const Figure& shown = FigureOf(header, figure);
    line.runs.push_back(AmountRun(game, shown.text, shown.tone));
  };
  add("High:  ", "High:");
  add("  Current:  ", "Current:");
  add("  Low:  ", "Low:");
  return line;
}

TextLine RollsLine(const Figures& header) {
  const auto text = [&](std::string_view caption) { return FigureOf(header, caption).text; };
  return {{{text("Total Rolls:") + " rolls @ " + text("Rolls / hr:") +
                " rolls/hr = " + text("Sim hrs:") + " sim hrs",
            kBlackInk, false}}};
}

TextLine DifferenceLine(const BankrollGraph& graph) {
  std::string text = "Reference line differences:  " + graph.rolls_between;
  if (!graph.bankroll_between.empty()) text += "  " + graph.bankroll_between;
  return {{{text, kBlackInk, false}}};
}

}  // namespace

Document EmptyGraphPage(Game& game) {
  ReportPages pages(game, "Feltmaster");
  pages.AddDate();
  pages.EndHeading();
  Document document = pages.Finish();
  document.title = "Feltmaster Bankroll Graph";
  document.unattended = true;
  return document;
}

void AddGraph(Game& game, Document& document) {
  // The scale that the screen would have when it is opened now.
  const MoneyAmount scale = game.GraphScale;
  const MoneyAmount top = game.GraphTop;
  DrawGraph(game, false);
  const BankrollGraph graph = PaintBankrollGraph(game);
  game.GraphScale = scale;
  game.GraphTop = top;

  const Figures header = BankrollHeader(game);
  Page& page = document.pages.back();
  page.push_back(Gap{kAbove});
  page.push_back(FileLine(game));
  page.push_back(MoneyLine(game, header));
  page.push_back(RollsLine(header));
  if (game.GraphRefLines) page.push_back(DifferenceLine(graph));
  page.push_back(GraphPicture(game, graph));
}

}  // namespace feltmaster
