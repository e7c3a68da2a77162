#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "base/text.h"
#include "console/console_command.h"
#include "console/text_table.h"
#include "stats/bankroll_history.h"
#include "stats/games_analysis.h"
#include "view/bankroll_graph.h"
#include "view/bet_results_table.h"
#include "view/games_screen.h"
#include "view/probability_grid.h"
#include "view/roll_frequencies.h"
#include "view/roll_totals.h"
#include "view/rules_rows.h"
#include "view/settings_rows.h"
#include "view/status_lines.h"
#include "view/summary.h"
#include "view/table_rows.h"
namespace feltmaster {

namespace {

template <auto kRows>
Reply ShowRows(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  return RowsReply(kRows(console.Table));
}
Reply ShowStatus(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Game& game = console.Table;
  return RowsReply(StatusRows(game, BetOfStatus(game)));
}
// The rows of a screen, in columns.
template <auto kRows>
Reply ShowTable(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Rows rows = kRows(console.Table);
  return RowsReply(rows, TextTable(rows));
}
template <auto kFigures>
Reply ShowFigures(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Rows rows = RowsOf(kFigures(console.Table));
  return RowsReply(rows, TextTable(rows));
}

// A person reads a line for each bar, with the bar drawn.
Reply ShowTotals(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  constexpr int kBarWidth = 30;
  const Rows rows = RollTotalRows(console.Table);
  const RollTotals totals = RollTotalsOf(console.Table);
  Rows lines(rows[1].size());
  for (std::size_t row = 1; row < rows.size(); ++row) {
    for (std::size_t bar = 0; bar < lines.size(); ++bar) lines[bar].push_back(rows[row][bar]);
  }
  lines[0][2] = "since last";
  lines[0].push_back("");
  for (std::size_t bar = 0; bar < totals.bars.size(); ++bar) {
    lines[bar + 1].push_back(TextBar(totals.bars[bar].actual_height, kBarWidth));
  }
  return RowsReply(rows, TextTable(lines, true) + "Total rolls  " + totals.total_rolls + '\n');
}

// The page of the graph in characters: a column stands for seven rolls and shows the last of them.
std::string TextGraph(Game& game) {
  constexpr int kRollsAColumn = 7;
  constexpr int kColumns = kGraphRolls / kRollsAColumn;
  constexpr int kPointsALine = 25;
  constexpr int kLines = kGraphHeight / kPointsALine + 1;
  constexpr std::size_t kLabelWidth = 12;
  DrawGraph(game, false);
  const BankrollGraph graph = PaintBankrollGraph(game);
  std::array<std::string, kLines> lines;
  lines.fill(std::string(kColumns, ' '));
  for (std::size_t i = 0; i < graph.columns.size(); ++i) {
    const int y = std::clamp(graph.columns[i].line.y2, 0, kGraphHeight);
    const std::size_t column = i / kRollsAColumn;
    for (std::string& line : lines) line[column] = ' ';
    lines[static_cast<std::size_t>((y + kPointsALine / 2) / kPointsALine)][column] = '*';
  }
  std::string text;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const std::string label = line % 2 == 0 ? graph.scale_labels[line / 2] : std::string();
    text += std::string(kLabelWidth - std::min(kLabelWidth, label.size()), ' ') + label + " |" +
            std::string(TrimRight(lines[line])) + '\n';
  }
  const std::string rolls = "rolls " + graph.rolls_left + " to " + graph.rolls_right;
  return text + std::string(kLabelWidth + 2, ' ') + rolls + '\n';
}

Reply ShowBankroll(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Rows rows = RowsOf(BankrollHeader(console.Table));
  std::string words = TextTable(rows);
  if (console.Surface.Paper != nullptr && console.Table.BankrollHistoryCount > 0) {
    // Looking at the graph moves its scale; the table's own stays as it is.
    const auto copy = std::make_unique<Game>(console.Table);
    words += '\n' + TextGraph(*copy);
  }
  return RowsReply(rows, words);
}

// Without N the entry that the screen has selected.
Reply ShowFrequencies(Console& console, Arguments& args) {
  Game& game = console.Table;
  std::int64_t entry = std::clamp(game.RollFreqsListIndex, 0, kFrequencyEntries - 1);
  bool skewed = args.Take("skewed");
  if (!skewed && !args.AtEnd()) {
    entry = args.Number("N", 0, kFrequencyEntries - 1);
    skewed = args.Take("skewed");
  }
  args.End();
  if (args.Failed()) return Refused(args);
  const FrequencyEntry& chosen = kFrequencyEntry[static_cast<std::size_t>(entry)];
  Rows rows = FrequencyRows(game, chosen, skewed);
  std::string words = TextTable(rows) + '\n';

  const Rows gaps = GapRows(game, chosen.event);
  rows.insert(rows.end(), gaps.begin(), gaps.end());
  return RowsReply(rows, words + TextTable(InColumns(gaps, kGapRowsShown)));
}

// What the arguments choose, or else the screen's own choice, or else all bets.
Reply ShowResults(Console& console, Arguments& args) {
  Game& game = console.Table;
  BetResultsChoice choice = ReadBetResultsSelection(game.BetResultsSelection);
  if (args.Take("phantom")) {
    choice.phantom = true;
  } else if (args.Take("actual")) {
    choice.phantom = false;
  }
  if (args.Take("all")) {
    choice.bets = kLayoutBets;
  } else if (!args.AtEnd()) {
    choice.bets.Clear();
    while (!args.AtEnd() && !args.Failed()) choice.bets.Add(args.LayoutBet(game));
  }
  args.End();
  if (args.Failed()) return Refused(args);
  if (choice.bets.Empty()) choice.bets = kLayoutBets;
  const Rows rows = BetResultRows(game, choice);
  return RowsReply(rows, TextTable(rows));
}

// All tabs, or one of them. A person reads the tabs under headings.
Reply ShowSettings(Console& console, Arguments& args) {
  const std::string wanted = args.AtEnd() ? std::string() : args.Rest("TAB");
  Rows rows = SettingRows(console.Table);
  if (!wanted.empty()) {
    std::erase_if(rows, [&](const Row& row) { return !EqualIgnoringCase(row[0], wanted); });
    if (rows.empty()) {
      args.Fail("TAB " + Quoted(wanted) + " is none of " +
                NamesOf(SettingTabs(), &SettingTab::caption) + '.');
    }
  }
  args.End();
  if (args.Failed()) return Refused(args);
  std::string words;
  for (const Row& row : rows) {
    const bool heading = &row == &rows.front() || (&row - 1)->front() != row.front();
    if (heading) words += (words.empty() ? "" : "\n") + row.front() + '\n';
    constexpr std::size_t kCaptionWidth = 46;
    words += "  " + PadRight(row[1], std::max(row[1].size(), kCaptionWidth)) + ' ' + row[2] + '\n';
  }
  return RowsReply(rows, words);
}

// The log by the variable that the screen has chosen; each time as if the screen were opened.
Reply ShowGames(Console& console, Arguments& args) {
  Game& game = console.Table;
  args.End();
  if (args.Failed()) return Refused(args);
  game.GamesValueBox = {};
  game.GamesDeviationBox = {};
  const std::optional<GamesAnalysis> analysis = AnalyzeGames(game, game.GamesDisplayChoice);
  const Rows rows = analysis ? GamesRows(game, *analysis) : Rows();
  return RowsReply(rows, TextTable(rows));
}

constexpr Command kScreens[] = {
    {"bets", "", "the bets that stand", ShowRows<BetRows>},
    {"status", "", "the status lines", ShowStatus},
    {"summary", "", "a digest of the game", ShowFigures<SummaryFigures>},
    {"totals", "", "how often each roll came", ShowTotals},
    {"frequencies", "[N] [skewed]", "one roll event in depth", ShowFrequencies},
    {"results", "[phantom|actual] [all|BET ...]", "what the bets have won and lost", ShowResults},
    {"trends", "", "runs of wins and losses", ShowTable<TrendRows>},
    {"bankroll", "", "the figures of the bankroll", ShowBankroll},
    {"games", "", "the Games Log", ShowGames},
    {"stacks", "", "the Chip-Stacks", ShowRows<ChipStackRows>},
    {"flags", "", "the flags of the script", ShowRows<FlagRows>},
    {"hotkeys", "", "the Hot-Keys", ShowRows<HotKeyRows>},
    {"advantage", "", "what each bet is worth", ShowTable<AdvantageRows>},
    {"payoffs", "", "the payoffs in force", ShowTable<PayoffRows>},
    {"probabilities", "", "the chances of the dice", ShowTable<ProbabilityRows>},
    {"comps", "", "the comps earned", ShowFigures<CompFigures>},
    {"settings", "[TAB]", "the Configure and Auto-Play screens", ShowSettings},
};

Reply Show(Console& console, Arguments& args) {
  return GoOn(console, args, kScreens, "SCREEN");
}

constexpr Command kScreenCommands[] = {
    {"show", "SCREEN", "what a screen shows", Show, kScreens},
};

}  // namespace

CommandTable ScreenCommands() {
  return kScreenCommands;
}

}  // namespace feltmaster
