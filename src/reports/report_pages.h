#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "reports/document.h"
#include "view/figure.h"
#include "view/rows.h"

namespace feltmaster {

// A report in the making. A block that does not fit on the page goes to the next one, below the
// same heading.
class ReportPages {
 public:
  // The report is of this moment, by the clock of the surface.
  ReportPages(Game& game, std::string title);

  // The heading: the title, then lines. To be given before anything else.
  void AddHeadline(std::string text);
  void AddDate();
  void AddGame(std::string_view caption = "Game file:  ");
  // Ruled off from what follows unless it has a rule of its own.
  void EndHeading(bool ruled = true);

  void Add(Block block);
  void AddLine(std::string text, bool bold = false);
  // Text that goes on in the next line where it is too long.
  void AddParagraph(std::string_view text);
  void AddGap(double height = kTextSize);
  // The rows go on in the next of `strips` columns, and on the next page below the same head.
  void AddTable(Table table, int strips = 1);
  // How many such columns stand side by side on a page, and the pages that so many rows fill.
  static int StripsFor(const Table& table);
  std::int64_t PagesFor(const Table& table, std::int64_t rows) const;
  void NewPage();

  const CalendarTime& Made() const { return document_.made; }
  // Pages are numbered where there are several.
  void NumberEveryPage() { numbers_every_page_ = true; }
  Document Finish();

 private:
  double Used() const;

  const Game& game_;
  Document document_;
  Page heading_;
  bool numbers_every_page_ = false;
};

// The name of a file without its folder, or "untitled".
std::string NameOrUntitled(std::string_view path, std::string_view untitled = "untitled");

// "report-1.pdf" in a folder, or the next number of which there is no file.
std::string FreeReportName(const std::string& folder);

// "05-Nov-26, 08:04:09".
std::string DateAndTime(const CalendarTime& time);

// The print colours of the player, by what a value shows: won, lost, or zero.
int InkOf(const Game& game, const Figure& figure);
int InkOf(const Game& game, MoneyAmount amount);
Run AmountRun(const Game& game, std::string text, Tone tone);

Runs PlainRow(const Row& row);
Runs HeadRow(const Row& row);

}  // namespace feltmaster
