#include "reports/games_reports.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/number_format.h"
#include "files/games_log.h"
#include "reports/page_layout.h"
#include "reports/report_pages.h"
#include "view/games_screen.h"
#include "view/palette.h"

namespace feltmaster {

namespace {

// ---- The histogram ------------------------------------------------------------------------------

constexpr double kLeft = 50;
constexpr double kTop = 16;
constexpr double kWidth = 470;
constexpr double kHeight = 220;
constexpr double kBelow = 26;
constexpr double kLabelSize = 8;
constexpr double kAxisWeight = 0.6;
constexpr double kMarkWeight = 0.4;
constexpr double kRangeHeight = 3;

double PlaceX(double column) {
  return kLeft + column * kWidth / kHistogramColumns;
}
double PlaceY(double line) {
  return kTop + line * kHeight / kHistogramHeight;
}

// On white; the bars and the mean take the print colours, and a bar below the base shows the range.
Picture HistogramPicture(const Game& game, const GamesAnalysis& analysis) {
  const GamesHistogram histogram = PaintGamesHistogram(game, analysis);
  const double base = kTop + kHeight;
  Picture picture;
  picture.height = kTop + kHeight + kBelow;
  for (const HistogramBox& bar : histogram.bars) {
    picture.boxes.push_back({PlaceX(bar.left), PlaceY(bar.top),
                             PlaceX(bar.right) - PlaceX(bar.left),
                             PlaceY(bar.bottom) - PlaceY(bar.top), game.PrintColorWin});
  }
  for (const HistogramBox& part : histogram.range) {
    picture.boxes.push_back({PlaceX(part.left), base + 2, PlaceX(part.right) - PlaceX(part.left),
                             kRangeHeight, kGrayInk});
  }
  for (const HistogramLine& mark : histogram.marks) {
    const int ink = mark.x == histogram.mean ? InkOf(game, analysis.mean) : kGrayInk;
    const double x = PlaceX(mark.x + 0.5);
    picture.strokes.push_back({x, kTop, x, base, ink, kMarkWeight});
  }
  picture.strokes.push_back({kLeft, base, kLeft + kWidth, base, kBlackInk, kAxisWeight});
  picture.strokes.push_back({kLeft, kTop, kLeft, base, kBlackInk, kAxisWeight});

  const auto label = [&](double x, double y, std::string text, Align align) {
    picture.labels.push_back({x, y, {std::move(text), kBlackInk, false}, kLabelSize, align});
  };
  label(kLeft - 5, kTop + kLabelSize, histogram.highest, Align::kRight);
  label(kLeft - 5, base, "0", Align::kRight);
  const double below = base + kRangeHeight + kLabelSize + 5;
  label(kLeft, below, FormatMoney(analysis.low), Align::kLeft);
  label(kLeft + kWidth / 2, below, NameOfGameValue(analysis.value), Align::kCentre);
  label(kLeft + kWidth, below, FormatMoney(analysis.high), Align::kRight);
  if (!histogram.empty) label(PlaceX(histogram.mean + 0.5), kTop - 3, "Mean", Align::kCentre);
  return picture;
}

Table CaptionedTable(std::initializer_list<Align> columns) {
  Table table;
  table.columns = columns;
  table.least_widths = {70, 60};
  return table;
}

Table OutcomeTable(const Game& game, const GamesAnalysis& analysis) {
  Table table = CaptionedTable({Align::kLeft, Align::kRight, Align::kRight});
  table.head = {HeadRow({"", "Games", "%"})};
  for (const OutcomeFigure& figure : OutcomeFigures(game, analysis)) {
    table.rows.push_back(PlainRow({figure.caption, figure.games, figure.percent}));
  }
  return table;
}

Table RangeTable(const Game& game, const GamesAnalysis& analysis) {
  const RangeFigures range = GamesInRange(analysis);
  Table table = CaptionedTable({Align::kLeft, Align::kRight, Align::kRight});
  table.head = {HeadRow({NameOfGameValue(analysis.value), "From", "To"})};
  table.rows = {PlainRow({"Value", game.GamesValueBox[0], game.GamesValueBox[1]}),
                PlainRow({"Std Devs", game.GamesDeviationBox[0], game.GamesDeviationBox[1]}),
                PlainRow({"", range.games, range.percent})};
  return table;
}

Table StatisticsTable(const Game& game, Figures::const_iterator first,
                      Figures::const_iterator last) {
  Table table = CaptionedTable({Align::kLeft, Align::kRight});
  for (; first != last; ++first) {
    table.rows.push_back(
        {{first->caption, kBlackInk, false}, {first->text, InkOf(game, *first), false}});
  }
  return table;
}

// ---- The data -----------------------------------------------------------------------------------

constexpr const char* kDataPlace = "Print RawData";

std::string LogName(const Game& game) {
  return NameOrUntitled(game.GamesLogFile);
}

ReportPages DataPages(Game& game, int value) {
  ReportPages pages(game, "Feltmaster Games Log");
  pages.AddDate();
  pages.AddHeadline("Filename:  " + LogName(game));
  pages.AddHeadline(NameOfGameValue(value));
  pages.EndHeading();
  return pages;
}

Table DataTable(int value) {
  constexpr std::string_view kWidestValue = "B -99,999,999  ";
  Table table;
  table.columns = {Align::kRight, Align::kRight};
  table.least_widths = {TextWidth("1,000,000", kTextSize), TextWidth(kWidestValue, kTextSize)};
  table.head = {HeadRow({"Game #", NameOfGameValue(value)})};
  return table;
}

}  // namespace

Document GamesReport(Game& game, const GamesAnalysis& analysis) {
  constexpr std::ptrdiff_t kFirstHalf = 8;
  ReportPages pages(game, "Feltmaster Games Log");
  pages.AddDate();
  pages.AddHeadline("Filename:  " + LogName(game));
  pages.EndHeading();
  pages.AddLine(NameOfGameValue(analysis.value), true);
  pages.AddGap();
  const Figures figures = GamesFigures(analysis);
  const auto split = figures.begin() + kFirstHalf;
  SideBySide labels;
  labels.stacks.push_back({OutcomeTable(game, analysis), Gap{10}, RangeTable(game, analysis)});
  labels.stacks.push_back({StatisticsTable(game, figures.begin(), split)});
  labels.stacks.push_back({StatisticsTable(game, split, figures.end())});
  pages.Add(std::move(labels));
  pages.AddGap(16);
  pages.Add(HistogramPicture(game, analysis));
  return pages.Finish();
}

GamesDataReport::GamesDataReport(Game& game, int value)
    : game_(game), value_(value), pages_(DataPages(game, value)), table_(DataTable(value)) {}

std::optional<Document> GamesDataReport::Make() {
  GamesLogReader log;
  if (const std::optional<LogFault> fault = log.Open(game_.GamesLogFile)) {
    TellLogFault(game_, game_.GamesLogFile, *fault, kDataPlace);
    return std::nullopt;
  }
  const int strips = ReportPages::StripsFor(table_);
  Record record;
  for (std::int64_t number = 1; log.Read(record); ++number) {
    if (!IsIncluded(game_, OutcomeOf(game_, ValueOfGame(record, kNetValue)))) continue;
    const MoneyAmount value = ValueOfGame(record, value_);
    table_.rows.push_back(
        {{CountText(number), kBlackInk, false}, {FormatMoney(value), InkOf(game_, value), false}});
  }
  pages_.AddTable(std::move(table_), strips);
  return pages_.Finish();
}

}  // namespace feltmaster
