#include "reports/script_reports.h"

#include <string>

#include "reports/report_pages.h"
#include "stats/roll_statistics.h"
#include "view/table_rows.h"

namespace feltmaster {

Document ScriptReport(Game& game) {
  ReportPages pages(game, "Feltmaster Auto-Bets");
  pages.AddDate();
  pages.AddHeadline("Auto-Bet File:  " + NameOrUntitled(game.ScriptFileName));
  pages.EndHeading();
  Table table;
  table.columns = {Align::kLeft};
  if (game.ShowLineNumbers) table.columns.insert(table.columns.begin(), Align::kRight);
  for (std::size_t i = 0; i < game.ScriptLines.size(); ++i) {
    const std::string& text = game.ScriptLines[i].LineText;
    table.rows.push_back(game.ShowLineNumbers ? PlainRow({std::to_string(i + 1), text})
                                              : PlainRow({text}));
  }
  pages.AddTable(table);
  return pages.Finish();
}

Document FlagsReport(Game& game) {
  constexpr std::size_t kRuleLength = 43;
  ReportPages pages(game, "Feltmaster: " + NameOrUntitled(game.GameFileName, "untitled game"));
  const CalendarTime& made = pages.Made();
  pages.AddHeadline(MediumDate(made) + " at " + ClockTime(made) + "  " +
                    CountText(std::int64_t{RollCounts(game, 0)}) + " rolls");
  pages.AddHeadline("Flag values for Auto-Bet file: " + NameOrUntitled(game.ScriptFileName));
  pages.AddHeadline(std::string(kRuleLength, '_'));
  pages.EndHeading(false);
  Table table;
  table.columns = {Align::kLeft};
  for (const Row& row : FlagRows(game)) table.rows.push_back(PlainRow(row));
  pages.AddTable(table);
  return pages.Finish();
}

Document HotKeysReport(Game& game) {
  ReportPages pages(game, "Feltmaster Hot-Keys");
  pages.AddDate();
  pages.EndHeading();
  Table table;
  table.columns = {Align::kLeft, Align::kLeft, Align::kLeft};
  table.gap = 2 * kTextSize;
  for (const Row& row : HotKeyRows(game)) table.rows.push_back(PlainRow(row));
  pages.AddTable(table);
  return pages.Finish();
}

}  // namespace feltmaster
