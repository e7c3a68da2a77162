#include "reports/statistics_reports.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "reports/page_layout.h"
#include "reports/report_pages.h"
#include "stats/roll_events.h"
#include "stats/roll_statistics.h"
#include "view/bet_results_table.h"
#include "view/figure.h"
#include "view/roll_frequencies.h"
#include "view/roll_totals.h"
#include "view/summary.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

// ---- Roll Totals ------------------------------------------------------------------------------

struct NamedEvent {
  std::string name;
  int event;
};

std::string PairName(int die1, int die2) {
  return std::to_string(die1) + '-' + std::to_string(die2);
}

std::vector<NamedEvent> NumberEvents() {
  std::vector<NamedEvent> events;
  for (int total = 2; total <= 12; ++total) events.push_back({std::to_string(total), total});
  for (const FrequencyEntry& entry : kFrequencyEntry) {
    constexpr std::string_view kNumbers = "Numbers ";
    if (entry.caption.starts_with(kNumbers)) {
      events.push_back({std::string(entry.caption.substr(kNumbers.size())), entry.event});
    }
  }
  return events;
}

std::vector<NamedEvent> DieEvents() {
  std::vector<NamedEvent> events;
  for (int die = 1; die <= 2; ++die) {
    for (int face = 1; face <= 6; ++face) {
      events.push_back({"Die " + std::to_string(die) + ", face " + std::to_string(face),
                        (die == 1 ? kDie1Events : kDie2Events) + face});
    }
  }
  return events;
}

// Every pair in either order, and the two orders together.
std::vector<NamedEvent> PairEventsByTotal() {
  std::vector<NamedEvent> events;
  for (int total = 2; total <= 12; ++total) {
    for (int low = std::max(1, total - 6); 2 * low <= total; ++low) {
      const int high = total - low;
      const auto i = static_cast<std::size_t>(low - 1);
      const auto j = static_cast<std::size_t>(high - 1);
      events.push_back({PairName(low, high), kPairEvent[i][j]});
      if (low == high) continue;
      events.push_back({PairName(high, low), kPairEvent[j][i]});
      const int either = kEitherWayEvent[i][j] != 0 ? kEitherWayEvent[i][j] : total;
      events.push_back({PairName(low, high) + " or " + PairName(high, low), either});
    }
  }
  return events;
}

Table EventTable(Game& game, std::string_view heading, bool skewed,
                 const std::vector<NamedEvent>& events) {
  Table table;
  table.columns = {Align::kLeft, Align::kRight, Align::kRight, Align::kRight, Align::kRight};
  table.size = 8;
  table.head = {
      HeadRow({"", "", "# of rolls", "PERCENT", ""}),
      HeadRow({"", "# of times", "since last", "Probable %", "Actual %"}),
      HeadRow({std::string(heading), "rolled", "appeared", skewed ? "(skewed)" : "", ""})};
  const double rolls = RollCounts(game, 0);
  for (const auto& [name, event] : events) {
    const std::int32_t count = RollCounts(game, event);
    table.rows.push_back(PlainRow({name, CountText(std::int64_t{count}),
                                   CountText(std::int64_t{RollsSinceLast(game, event)}),
                                   ProbableText(ProbablePercent(game, event, skewed)),
                                   StandardText(rolls == 0 ? 0 : count / rolls * 100)}));
  }
  return table;
}

// ---- Summary ----------------------------------------------------------------------------------

// A line of the printed Summary: its caption, and the one of the screen's line that it shows.
struct SummaryLine {
  std::string_view printed;
  std::string_view shown;
};
constexpr auto kGameLines = std::to_array<SummaryLine>({
    {"Total rolls:", "Total rolls:"},
    {"Rolls/hr:", "Rolls / hr:"},
    {"Sim hrs:", "Sim hrs:"},
    {"Total comp value:", "Total comp value:"},
});
constexpr auto kBankrollLines = std::to_array<SummaryLine>({
    {"High:", "High:"},
    {"Current:", "Current:"},
    {"Low:", "Low:"},
    {"Average:", "Average:"},
});
constexpr auto kHandLines = std::to_array<SummaryLine>({
    {"# of rolls (current Hand):", "# of rolls (current hand):"},
    {"# of Passes (current Hand):", "# of passes (current hand):"},
    {"Total completed:", "Total completed:"},
    {"Longest # of rolls:", "Longest #  of rolls:"},
    {"Average # of rolls:", "Average # of rolls:"},
    {"Most Passes:", "Most passes:"},
    {"Average # of Passes:", "Average # of passes:"},
    {"# of Come-out rolls:", "# of come-out rolls:"},
    {"# that Passed (7, 11):", "# that passed (7, 11):"},
    {"# of Points established:", "# of points established:"},
    {"# that Passed (rolled point):", "# that passed (rolled point):"},
    {"# that Missed (Seven-out):", "# that missed (seven-out):"},
    {"Total Passes:", "Total passes:"},
    {"Total Misses:", "Total misses:"},
});

using FigureRange = Figures::const_iterator;
FigureRange FindFigure(const Figures& figures, std::string_view caption) {
  return std::find_if(figures.begin(), figures.end(),
                      [&](const Figure& figure) { return figure.caption == caption; });
}

Runs FigureRow(const Game& game, std::string_view caption, const Figure& figure) {
  return {{std::string(caption), 0, false}, {figure.text, InkOf(game, figure), false}};
}

Table FigureTable(std::string_view heading) {
  Table table;
  table.columns = {Align::kLeft, Align::kRight};
  table.least_widths = {150, 60};
  table.size = 10;
  if (!heading.empty()) table.head = {HeadRow({std::string(heading)})};
  return table;
}

template <std::size_t kCount>
Table SummaryGroup(const Game& game, const Figures& figures, std::string_view heading,
                   const std::array<SummaryLine, kCount>& lines) {
  Table table = FigureTable(heading);
  for (const SummaryLine& line : lines) {
    const auto figure = FindFigure(figures, line.shown);
    if (figure != figures.end()) table.rows.push_back(FigureRow(game, line.printed, *figure));
  }
  return table;
}

// Decided, won, lost, net and its share, behind a heading of the screen.
Table BetTotals(const Game& game, const Figures& figures, std::string_view shown_heading,
                std::string_view heading) {
  Table table = FigureTable(heading);
  auto figure = FindFigure(figures, shown_heading);
  if (figure == figures.end()) return table;
  for (++figure; figure != figures.end() && !figure->text.empty(); ++figure) {
    table.rows.push_back(FigureRow(game, figure->caption, *figure));
  }
  return table;
}

// ---- Bet Results ------------------------------------------------------------------------------

std::string ResultsHeading(const BetResultsChoice& choice) {
  const std::string series = choice.phantom ? "esults of continuous phantom $1 wagers for "
                                            : "esults of actual decided wagers for ";
  const int count = choice.bets.Count();
  if (count == 1) return "R" + series + "this bet:";
  return "Combined r" + series + "these " + std::to_string(count) + " bets:";
}

std::string NamesOf(const BetSet& bets) {
  std::string names;
  bets.ForEach([&](int bet) {
    if (!names.empty()) names += ", ";
    names += kBetName[static_cast<std::size_t>(bet)];
  });
  return names;
}

// ---- Chip-Stacks ------------------------------------------------------------------------------

Table StackTable(const Game& game) {
  Table table;
  table.columns = {Align::kRight, Align::kRight, Align::kLeft};
  table.least_widths = {16, 60, 150};
  table.head = {HeadRow({"#", "Value", "Name"})};
  const Rows rows = ChipStackRows(game);
  for (std::size_t stack = 0; stack < rows.size(); ++stack) {
    const MoneyAmount amount = game.BetAmount[kFirstStack + static_cast<int>(stack)];
    table.rows.push_back({{rows[stack][0], 0, false},
                          {rows[stack][1], InkOf(game, amount), false},
                          {rows[stack][2], 0, false}});
  }
  return table;
}

}  // namespace

Document RollTotalsReport(Game& game) {
  const bool skewed = game.UseSkewedProbability && game.ShowSkewedPercent;
  ReportPages pages(game, "Feltmaster Roll Totals");
  pages.AddDate();
  pages.AddGame();
  pages.EndHeading();
  const auto table = [&](std::string_view heading, const std::vector<NamedEvent>& events) {
    return EventTable(game, heading, skewed, events);
  };
  SideBySide groups;
  groups.stacks.push_back({table("Numbers", NumberEvents()), Gap{14}, table("Dice", DieEvents())});
  groups.stacks.push_back({table("Combinations", PairEventsByTotal())});
  pages.Add(std::move(groups));
  pages.AddGap();
  pages.AddLine("Total rolls:  " + CountText(std::int64_t{RollCounts(game, 0)}), true);
  return pages.Finish();
}

Document RollFrequenciesReport(Game& game) {
  constexpr int kStrips = 8;
  const FrequencyEntry& entry = kFrequencyEntry[static_cast<std::size_t>(
      std::clamp(game.RollFreqsListIndex, 0, kFrequencyEntries - 1))];
  ReportPages pages(game, "Feltmaster Roll Frequencies");
  pages.AddDate();
  pages.AddGame();
  pages.EndHeading();
  pages.AddLine("Roll Frequencies for " + std::string(entry.caption), true);
  pages.AddGap(4);
  pages.AddLine("Average # of Rolls to achieve:    " + StandardText(AverageGap(game, entry.event)));
  pages.AddGap();
  Table table;
  table.columns = {Align::kRight, Align::kRight};
  table.head = {HeadRow({"Rolls", "Times"})};
  for (const Row& row : GapRows(game, entry.event)) table.rows.push_back(PlainRow(row));
  pages.AddTable(table, kStrips);
  return pages.Finish();
}

Document SummaryReport(Game& game) {
  const Figures figures = SummaryFigures(game);
  ReportPages pages(game, "Feltmaster Summary");
  pages.AddDate();
  pages.AddGame();
  if (game.ScriptActive == 1) {
    pages.AddHeadline("Auto-bet file:  " + NameOrUntitled(game.ScriptFileName));
  }
  if (game.DiceRollFileMode == kPlayback) {
    pages.AddHeadline("Dice roll file:  " + game.DiceRollFileName);
  }
  pages.EndHeading();
  SideBySide groups;
  groups.stacks.push_back({SummaryGroup(game, figures, "", kGameLines), Gap{16},
                           SummaryGroup(game, figures, "Bankroll:", kBankrollLines), Gap{16},
                           BetTotals(game, figures, " Total number of:", "Total number of:"),
                           Gap{16},
                           BetTotals(game, figures, " Total $ amount of:", "Total $ amount of:")});
  groups.stacks.push_back({SummaryGroup(game, figures, "Hands:", kHandLines)});
  pages.Add(std::move(groups));
  return pages.Finish();
}

Document BetResultsReport(Game& game) {
  const BetResultsChoice choice = ReadBetResultsSelection(game.BetResultsSelection);
  const BetResultsTable results = BetResultsOf(game, choice);
  ReportPages pages(game, "Feltmaster Bet Results");
  pages.AddDate();
  pages.AddGame("Game File:  ");
  pages.EndHeading();
  pages.AddLine(ResultsHeading(choice), true);
  pages.AddParagraph(NamesOf(choice.bets));
  pages.AddGap();

  // What the screen's heads show, but for the count of bets.
  constexpr std::array<std::string_view, 5> kCaptions = {
      "Current $ amount wagered:", "$ amount wagered on last roll:", "Total rolls:",
      "Rolls / hour:", "Sim hours:"};
  Table heads = FigureTable("");
  for (std::size_t i = 0; i < kCaptions.size(); ++i) {
    heads.rows.push_back(FigureRow(game, kCaptions[i], results.heads[i + 1]));
  }
  pages.Add(std::move(heads));
  pages.AddGap();

  Table table;
  table.columns = {Align::kLeft,  Align::kRight, Align::kRight,
                   Align::kRight, Align::kRight, Align::kRight};
  table.gap = 24;
  table.size = 10;
  table.head = {HeadRow({"", "Wagers", "Wins", "Losses", "Net", "Net %"})};
  for (const BetResultsLine& line : results.lines) {
    Runs row = PlainRow({std::string(line.label), line.wagers, line.wins, line.losses});
    row.push_back(AmountRun(game, line.net, line.tone));
    row.push_back(AmountRun(game, line.net_percent, line.tone));
    table.rows.push_back(std::move(row));
  }
  pages.Add(std::move(table));
  return pages.Finish();
}

Document BetTrendsReport(Game& game) {
  constexpr std::string_view kLongestCaption = "Don't Come 10 Odds   ";
  constexpr std::size_t kRows = 30;
  ReportPages pages(game, "Feltmaster Bet Trends");
  pages.AddDate();
  pages.AddGame("Game File:  ");
  pages.EndHeading();
  pages.AddLine(CountText(std::int64_t{RollCounts(game, 0)}) + " rolls");
  pages.AddGap(4);
  pages.AddLine(
      "Recent Won / Lost trend for bets actually made (losses shown as negative numbers).", true);
  pages.AddGap();

  const Rows trends = TrendRows(game);
  SideBySide columns;
  for (std::size_t first = 0; first < trends.size(); first += kRows) {
    Table table;
    table.columns = {Align::kLeft, Align::kRight};
    table.least_widths = {TextWidth(kLongestCaption, kTextSize), 30};
    for (std::size_t i = first; i < std::min(first + kRows, trends.size()); ++i) {
      const int run = game.BetStreak.Now(static_cast<int>(i) + 1);
      table.rows.push_back(
          {{trends[i][0], 0, false}, {trends[i][1], InkOf(game, MoneyAmount(run)), false}});
    }
    columns.stacks.push_back({std::move(table)});
  }
  pages.Add(std::move(columns));
  return pages.Finish();
}

Document ChipStacksReport(Game& game) {
  ReportPages pages(game, "Chip-Stack values and names for " +
                              NameOrUntitled(game.GameFileName, "untitled game"));
  const CalendarTime& made = pages.Made();
  pages.AddHeadline(CountText(std::int64_t{RollCounts(game, 0)}) + " rolls.  " + MediumDate(made) +
                    " at " + ClockTime(made));
  pages.EndHeading();
  const Table table = StackTable(game);
  // Long names need the whole width.
  const SideBySide twice = {{{table}, {table}}};
  pages.AddTable(table, NaturalWidth(twice) <= kPrintWidth ? 2 : 1);
  return pages.Finish();
}

}  // namespace feltmaster
