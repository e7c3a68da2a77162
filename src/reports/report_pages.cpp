#include "reports/report_pages.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <utility>

#include "base/text.h"
#include "reports/page_layout.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr double kTitleSize = 14;
// Kept free for the number of the page.
constexpr double kFootHeight = 14;
constexpr double kRoom = kPrintHeight - kFootHeight;

TextLine PlainLine(std::string text, bool bold = false) {
  return {{{std::move(text), 0, bold}}, kTextSize, Align::kLeft};
}

// The rows of a table that fit below its head; the table itself has none yet.
std::size_t RowsThatFit(const Table& head, double room) {
  return static_cast<std::size_t>(
      std::max(std::floor((room - HeightOf(head)) / LineHeight(head.size)), 0.0));
}

bool ShowsZero(std::string_view text) {
  return text.find_first_of("123456789") == std::string_view::npos;
}

}  // namespace

ReportPages::ReportPages(Game& game, std::string title) : game_(game) {
  document_.title = title;
  document_.made = game.surface->Now();
  heading_.push_back(TextLine{{{std::move(title), 0, true}}, kTitleSize, Align::kLeft});
}

void ReportPages::AddHeadline(std::string text) {
  heading_.push_back(PlainLine(std::move(text)));
}

void ReportPages::AddDate() {
  AddHeadline(DateAndTime(document_.made));
}

void ReportPages::AddGame(std::string_view caption) {
  AddHeadline(std::string(caption) + NameOrUntitled(game_.GameFileName));
}

void ReportPages::EndHeading(bool ruled) {
  if (ruled) heading_.push_back(Rule());
  heading_.push_back(Gap{kTextSize / 2});
  document_.pages.push_back(heading_);
}

void ReportPages::NewPage() {
  document_.pages.push_back(heading_);
}

double ReportPages::Used() const {
  return HeightOf(document_.pages.back());
}

void ReportPages::Add(Block block) {
  const bool fresh = document_.pages.back().size() == heading_.size();
  if (!fresh && Used() + HeightOf(block) > kRoom) NewPage();
  document_.pages.back().push_back(std::move(block));
}

void ReportPages::AddLine(std::string text, bool bold) {
  Add(PlainLine(std::move(text), bold));
}

void ReportPages::AddParagraph(std::string_view text) {
  std::string line;
  while (!text.empty()) {
    const std::size_t blank = std::min(text.find(' '), text.size() - 1) + 1;
    const std::string_view word = text.substr(0, blank);
    if (!line.empty() && TextWidth(line + std::string(TrimRight(word)), kTextSize) > kPrintWidth) {
      AddLine(std::exchange(line, std::string()));
    }
    line += word;
    text.remove_prefix(blank);
  }
  if (!line.empty()) AddLine(line);
}

void ReportPages::AddGap(double height) {
  document_.pages.back().push_back(Gap{height});
}

void ReportPages::AddTable(Table table, int strips) {
  const auto columns = static_cast<std::size_t>(strips);
  table.least_widths = ColumnWidths(table);  // the same in every strip and on every page
  std::vector<Runs> rows;
  rows.swap(table.rows);
  for (std::size_t first = 0; first < rows.size();) {
    const std::size_t left = rows.size() - first;
    std::size_t height = RowsThatFit(table, kRoom - Used());
    if (height == 0) {
      NewPage();
      height = std::max<std::size_t>(RowsThatFit(table, kRoom - Used()), 1);
    }
    height = std::min(height, (left + columns - 1) / columns);
    SideBySide side;
    for (std::size_t strip = 0; strip < columns && first < rows.size(); ++strip) {
      const std::size_t end = std::min(first + height, rows.size());
      Table part = table;
      for (; first < end; ++first) part.rows.push_back(std::move(rows[first]));
      side.stacks.emplace_back().emplace_back(std::move(part));
    }
    document_.pages.back().push_back(std::move(side));
  }
}

int ReportPages::StripsFor(const Table& table) {
  Table head = table;
  head.rows.clear();
  const double width = NaturalWidth(head) + kTextSize;
  return std::max(static_cast<int>((kPrintWidth + kTextSize) / width), 1);
}

std::int64_t ReportPages::PagesFor(const Table& table, std::int64_t rows) const {
  Table head = table;
  head.rows.clear();
  const auto height = static_cast<std::int64_t>(RowsThatFit(head, kRoom - HeightOf(heading_)));
  const std::int64_t on_page = std::max<std::int64_t>(height, 1) * StripsFor(head);
  return std::max<std::int64_t>((rows + on_page - 1) / on_page, 1);
}

Document ReportPages::Finish() {
  const std::size_t count = document_.pages.size();
  const bool numbered = count > 1 || numbers_every_page_;
  for (std::size_t i = 0; numbered && i < count; ++i) {
    Page& page = document_.pages[i];
    page.push_back(Gap{std::max(kPrintHeight - HeightOf(page) - LineHeight(kTextSize), 0.0)});
    TextLine number = PlainLine("Page " + std::to_string(i + 1) + " of " + std::to_string(count));
    number.align = Align::kCentre;
    page.push_back(number);
  }
  return std::move(document_);
}

std::string NameOrUntitled(std::string_view path, std::string_view untitled) {
  const std::string_view name = path.substr(path.rfind('/') + 1);  // npos + 1 is 0
  return std::string(name.empty() ? untitled : name);
}

std::string FreeReportName(const std::string& folder) {
  std::error_code ignored;
  for (int number = 1;; ++number) {
    std::string path = folder + "report-" + std::to_string(number) + ".pdf";
    if (!std::filesystem::exists(path, ignored)) return path;
  }
}

std::string DateAndTime(const CalendarTime& time) {
  return MediumDate(time) + ", " + ClockTime(time);
}

int InkOf(const Game& game, MoneyAmount amount) {
  if (amount.Raw() == 0) return game.PrintColorOther;
  return amount.Raw() > 0 ? game.PrintColorWin : game.PrintColorLoss;
}

int InkOf(const Game& game, const Figure& figure) {
  if (figure.tone == Tone::kNeutral) return 0;
  if (ShowsZero(figure.text)) return game.PrintColorOther;
  return figure.tone == Tone::kWin ? game.PrintColorWin : game.PrintColorLoss;
}

Run AmountRun(const Game& game, std::string text, Tone tone) {
  const int ink = InkOf(game, Figure{{}, text, tone});
  return {std::move(text), ink, false};
}

Runs PlainRow(const Row& row) {
  Runs runs;
  for (const std::string& cell : row) runs.push_back({cell, 0, false});
  return runs;
}

Runs HeadRow(const Row& row) {
  Runs runs;
  for (const std::string& cell : row) runs.push_back({cell, 0, true});
  return runs;
}

}  // namespace feltmaster
