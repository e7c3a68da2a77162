#include "reports/rolls_report.h"

#include <algorithm>
#include <string>
#include <utility>

#include "files/roll_text.h"
#include "reports/page_layout.h"

namespace feltmaster {

namespace {

ReportPages RollPages(Game& game, const std::string& title) {
  ReportPages pages(game, title);
  pages.AddDate();
  pages.EndHeading();
  pages.NumberEveryPage();
  return pages;
}

double SizeOfLetters(const Game& game) {
  constexpr std::int32_t kUsual = 6;
  const std::int32_t size = game.RollPrintFontSize;
  return size < 3 || size > 20 ? kUsual : size;
}

Table RollTable(const Game& game, const RollReport& report) {
  const RollTextParts parts = PartsOfRollText(game);
  const double size = SizeOfLetters(game);
  std::string widest;
  if (parts.RollNumber) widest += kWidestRollNumber;
  if (parts.DieNumbers) widest += kWidestRollDice;
  const std::string last = RollText(parts, report.FirstNumber + report.Rolls.Count - 1, Dice{6, 6});
  Table table;
  table.columns = {Align::kLeft};
  table.size = size;
  table.least_widths = {std::max(TextWidth(widest, size), TextWidth(last, size))};
  return table;
}

}  // namespace

RollsReport::RollsReport(Game& game, const RollReport& report)
    : game_(game),
      report_(report),
      pages_(RollPages(game, report.Title)),
      table_(RollTable(game, report)) {}

Document RollsReport::Make() {
  for (const std::string& line : RollReportLines(game_, report_, 0, report_.Rolls.Count)) {
    table_.rows.push_back({{line, 0, false}});
  }
  const int strips = ReportPages::StripsFor(table_);
  pages_.AddTable(std::move(table_), strips);
  return pages_.Finish();
}

}  // namespace feltmaster
