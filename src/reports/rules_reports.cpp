#include "reports/rules_reports.h"

#include <string>

#include "base/number_format.h"
#include "config/payoffs.h"
#include "reports/report_pages.h"
#include "view/rules_rows.h"
#include "view/settings_rows.h"

namespace feltmaster {

namespace {

int InkOfShown(const Game& game, const std::string& number) {
  return InkOf(game, ParseMoney(number));
}

Table AdvantageTable(const Game& game) {
  const Rows rows = AdvantageRows(game);
  Table table;
  table.columns.assign(rows[0].size(), Align::kRight);
  table.columns[0] = Align::kLeft;
  table.gap = 24;
  table.size = 8;
  table.head = {HeadRow(rows[0])};
  for (std::size_t bet = 1; bet < rows.size(); ++bet) {
    Runs row = PlainRow(rows[bet]);
    // Of the figures only the expected values are won or lost.
    for (std::size_t i = 1; i < row.size(); ++i) {
      if (rows[0][i].starts_with("EV")) row[i].ink = InkOfShown(game, row[i].text);
    }
    table.rows.push_back(std::move(row));
  }
  return table;
}

Table PayoffTable(const Game& game, Rows::const_iterator first, Rows::const_iterator last) {
  Table table;
  table.columns = {Align::kLeft, Align::kRight, Align::kCentre, Align::kRight};
  table.gap = 6;
  table.least_widths = {100, 24, 16, 24};
  for (; first != last; ++first) {
    Runs row = PlainRow(*first);
    row[1].ink = InkOfShown(game, row[1].text);
    if (row[2].text == "for") row[2].ink = game.PrintColorOther;
    table.rows.push_back(std::move(row));
  }
  return table;
}

}  // namespace

Document AdvantageReport(Game& game) {
  constexpr int kStrips = 3;
  ReportPages pages(game, "Feltmaster Payoffs and Advantage");
  pages.AddDate();
  pages.AddGame();
  if (game.UseSkewedProbability) {
    pages.AddHeadline("Probability file:  " + NameOrUntitled(game.ProbabilityFileName));
  }
  pages.AddHeadline(game.UseSkewedProbability ? "Figured using skewed probabilities"
                                              : "Figured using true probabilities");
  pages.EndHeading();
  const Rows payoffs = PayoffRows(game);
  const auto field = payoffs.begin() + kPayoffGridRows;
  pages.AddLine("Payoffs", true);
  pages.AddGap(4);
  pages.AddTable(PayoffTable(game, payoffs.begin(), field), kStrips);
  pages.AddGap();
  pages.AddLine("Field payoffs", true);
  pages.AddGap(4);
  pages.AddTable(PayoffTable(game, field, payoffs.end()), kStrips);
  pages.NewPage();
  pages.AddTable(AdvantageTable(game));
  return pages.Finish();
}

Document SettingsReport(Game& game) {
  ReportPages pages(game, "Feltmaster Settings");
  pages.AddDate();
  pages.AddGame();
  pages.EndHeading();
  Table table;
  table.columns = {Align::kLeft, Align::kRight};
  table.size = 7;
  for (const Row& row : SettingRows(game)) table.rows.push_back(PlainRow(row));
  pages.AddTable(table, 3);
  return pages.Finish();
}

}  // namespace feltmaster
