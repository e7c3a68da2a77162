#include <iostream>
#include <limits>
#include <memory>
#include <optional>

#include "autobet/hot_keys.h"
#include "base/text.h"
#include "console/report_printing.h"
#include "console/verbs.h"
#include "engine/start_up.h"
#include "files/game_file.h"
#include "view/bet_results_table.h"
#include "view/roll_frequencies.h"

namespace feltmaster {

namespace {

struct ReportOptions {
  std::string name;
  std::string file = kStandardOutput;
  std::string game;
  std::string data_dir;
  std::vector<std::string> bets;
  bool phantom = false;
  std::int32_t entry = 0;  // counted from 1; 0 for the one selected in the game
  std::int32_t seed = 0;
};

// A bet by its number or name, 0 for none.
int BetOf(const std::string& text) {
  if (const int bet = BetNumberOfName(text); IsLayoutBet(bet)) return bet;
  if (text.empty() || text.size() > 2) return 0;
  if (text.find_first_not_of("0123456789") != std::string::npos) return 0;
  return IsLayoutBet(std::stoi(text)) ? std::stoi(text) : 0;
}

// All bets, unless some are named. Gives the complaint, or an empty text.
std::string ChooseBets(const ReportOptions& options, Game& table) {
  BetResultsChoice choice;
  choice.phantom = options.phantom;
  for (const std::string& text : options.bets) {
    const int bet = BetOf(text);
    if (bet == 0) return "--bet \"" + text + "\" is no bet of the table.";
    choice.bets.Add(bet);
  }
  if (choice.bets.Empty()) choice.bets = kLayoutBets;
  table.BetResultsSelection = BetResultsSelectionOf(choice);
  return {};
}

std::string OpenTable(const ReportOptions& options, Console& console) {
  Game& table = console.Table;
  StartUp(table, {.data_dir = "", .seed = 1});
  if (!options.game.empty() && !OpenGame(table, options.game, true)) {
    return WhyNotOpened(table, options.game);
  }
  if (!options.data_dir.empty()) {
    table.AppPath = options.data_dir + (options.data_dir.ends_with('/') ? "" : "/");
    LoadHotKeys(table);
    table.AppPath.clear();  // nothing there is changed
  }
  if (options.entry > 0) table.RollFreqsListIndex = options.entry - 1;
  return ChooseBets(options, table);
}

// Gives the complaint, or an empty text.
std::string RunReport(const ReportOptions& options) {
  ReportOrder order;
  order.command = FindPrintCommand(options.name);
  order.file = options.file;
  if (order.command == nullptr)
    return "there is no report \"" + options.name + "\"; --help lists them.";
  if (order.file != kStandardOutput) {
    if (std::string fault = FaultOfReportFile(order.file); !fault.empty()) return fault;
  }
  const auto console =
      std::make_unique<Console>(options.seed == 0 ? std::nullopt : std::optional(options.seed));
  if (std::string fault = OpenTable(options, *console); !fault.empty()) return fault;
  // What the game misses, such as a file that has been moved since.
  for (const ShownMessage& message : console->Surface.Messages) {
    std::cerr << "feltmaster report: " << OneLine(message.text) << '\n';
  }
  console->Surface.Messages.clear();
  if (std::string fault = PrintInto(*console, order); !fault.empty()) return fault;
  if (console->Surface.PagesPrinted > 0) return {};
  return console->Surface.Messages.empty() ? "nothing was printed."
                                           : OneLine(console->Surface.Messages.back().text);
}

constexpr const char* kExamples = R"(
The end of the file's name tells the format: .pdf, .svg (the pages after the first one go to
name-2.svg and so on) or .txt. Without a file the report is printed as text.

Examples:
  feltmaster report summary --game evening.crp
  feltmaster report bankroll --game evening.crp graph.pdf
  feltmaster report results --game evening.crp --bet "Pass Line" --bet "Place 6" line.svg
  feltmaster report frequencies --game evening.crp --entry 34 sevens.pdf
  feltmaster report hotkeys --data-dir ~/.local/share/feltmaster keys.txt
)";

std::string ListOfReports() {
  constexpr std::size_t kNameWidth = 14;
  std::string list = "Reports:\n";
  for (const PrintCommand& command : PrintCommands()) {
    list += "  " + PadRight(command.name, kNameWidth) + std::string(command.help) + '\n';
  }
  return list;
}

}  // namespace

void AddReportVerb(Verb program) {
  const Verb verb = program.Sub("report", "Prints a report on a saved game");
  verb.Footer(ListOfReports() + kExamples);
  const auto options = std::make_shared<ReportOptions>();
  verb.Add("NAME", options->name, "Which report").Required().Takes("");
  verb.Add("FILE", options->file, "Where it goes: .pdf, .svg or .txt; - is standard output")
      .Takes("");
  verb.Add("--game", options->game, "The game that it is about; without it a fresh table")
      .Takes("FILE.crp");
  verb.Add("--data-dir", options->data_dir, "The folder of the Hot-Keys").Takes("DIR");
  verb.Add("--bet", options->bets,
           "A bet of the report \"results\", by name or number; may be repeated; all bets "
           "without it")
      .Takes("BET");
  verb.Flag("--phantom", options->phantom,
            "The report \"results\" tells of the continuous phantom $1 wagers");
  verb.Add("--entry", options->entry,
           "The roll event of the report \"frequencies\", 1 to 88 in the order of its list")
      .Takes("N")
      .InRange(1, kFrequencyEntries);
  verb.Add("--seed", options->seed,
           "Dates the report by the clock of a table seeded with N, to repeat it exactly")
      .Takes("N")
      .InRange(1, std::numeric_limits<std::int32_t>::max());
  verb.RunsOrComplains([options] { return RunReport(*options); });
}

}  // namespace feltmaster
