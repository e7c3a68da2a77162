#include "reports/print_commands.h"

#include <algorithm>
#include <array>
#include <exception>
#include <optional>
#include <string>

#include "autobet/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "reports/games_reports.h"
#include "reports/graph_print.h"
#include "reports/rolls_report.h"
#include "reports/rules_reports.h"
#include "reports/script_reports.h"
#include "reports/statistics_reports.h"
#include "surface/surface.h"
#include "view/bet_results_table.h"

namespace feltmaster {

namespace {

void TellFailure(Game& game, std::string error) {
  game.LastErrorText = std::move(error);
  Tell(game, "Print", game.LastErrorText, kButtonOk | kPictureStop);
}

// Prints what `make` gives, if it gives anything; an error ends the report.
template <typename Function>
bool PrintMade(Game& game, std::string_view place, Function&& make) {
  try {
    const std::optional<Document> document = make();
    return document && SendToPrinter(game, *document, place);
  } catch (const std::exception& fault) {
    TellFailure(game, std::string(fault.what()) + " occurred, at: " + std::string(place));
    return false;
  }
}

// The common form of the commands.
bool PrintReport(Game& game, Confirm confirm, Document (*report)(Game&), std::string_view place) {
  if (confirm == Confirm::kAsk && !ConfirmPrint(game)) return false;
  return PrintMade(game, place, [&]() -> std::optional<Document> { return report(game); });
}

bool PrintRollTotals(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, RollTotalsReport, "Print Roll Totals");
}
bool PrintRollFrequencies(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, RollFrequenciesReport, "Print Roll Frequencies");
}
bool PrintSummary(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, SummaryReport, "Print Summary");
}
bool PrintBetResults(Game& game, Confirm confirm) {
  if (ReadBetResultsSelection(game.BetResultsSelection).bets.Empty()) {
    Tell(game, "Print Bet Results", "You need to select one or more bets to print.");
    return false;
  }
  return PrintReport(game, confirm, BetResultsReport, "Print Bet Results");
}
bool PrintBetTrends(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, BetTrendsReport, "Print Bet Trends");
}
bool PrintChipStacks(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, ChipStacksReport, "Print Chip-Stacks");
}
bool PrintScript(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, ScriptReport, "Print Auto-Bets");
}
bool PrintFlags(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, FlagsReport, "Print Flags");
}
bool PrintHotKeys(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, HotKeysReport, "Print Hot-Keys");
}
bool PrintAdvantage(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, AdvantageReport, "Print Advantage");
}
bool PrintSettings(Game& game, Confirm confirm) {
  return PrintReport(game, confirm, SettingsReport, "Print Settings");
}
// A graph of the bankroll waits for others on its page; printed by name, the page goes at once.
bool PrintBankroll(Game& game, Confirm) {
  PrintGraph(game);
  return SendGraphPage(game);
}

// More than this many lines would be a report of hundreds of pages that nobody could hold.
constexpr std::int64_t kMostLines = 2'500'000;
bool IsTooLong(Game& game, std::int64_t lines, const char* title) {
  if (lines <= kMostLines) return false;
  Tell(game, title,
       "That are " + FormatNumber(lines, "#,#") + " lines, and a report may have no more than " +
           FormatNumber(kMostLines, "#,#") + ".");
  return true;
}

bool PrintDiceRolls(Game& game, Confirm confirm) {
  constexpr const char* kTitle = "Print Dice Rolls";
  const std::optional<RollReport> rolls = PrepareRollReport(game);
  if (!rolls || IsTooLong(game, rolls->Rolls.Count, kTitle)) return false;
  RollsReport report(game, *rolls);
  if (confirm == Confirm::kAsk && !ConfirmRollReport(game, *rolls, report.Pages())) return false;
  return PrintMade(game, kTitle, [&]() -> std::optional<Document> {
    game.LastErrorText.clear();
    Document document = report.Make();
    if (game.LastErrorText.empty()) return document;
    TellFailure(game, game.LastErrorText);
    return std::nullopt;
  });
}

int ChosenGameValue(const Game& game) {
  const std::int32_t value = game.GamesDisplayChoice;
  return value < 0 || value >= kGameValues ? 0 : value;
}

bool PrintGamesLog(Game& game, Confirm confirm) {
  if (confirm == Confirm::kAsk && !ConfirmPrint(game)) return false;
  return PrintMade(game, "Print Histogram", [&]() -> std::optional<Document> {
    const std::optional<GamesAnalysis> analysis = AnalyzeGames(game, ChosenGameValue(game));
    if (!analysis) return std::nullopt;
    return GamesReport(game, *analysis);
  });
}

bool PrintGamesData(Game& game, Confirm confirm) {
  constexpr const char* kTitle = "Games Log";
  const int value = ChosenGameValue(game);
  const std::optional<GamesAnalysis> analysis = AnalyzeGames(game, value);
  if (!analysis) return false;
  const std::int64_t games = analysis->included;
  if (games == 0) {
    Tell(game, kTitle, "There are no games selected for printing.");
    return false;
  }
  if (IsTooLong(game, games, kTitle)) return false;
  GamesDataReport report(game, value);
  const std::int64_t pages = report.PagesFor(games);
  if (confirm == Confirm::kAsk &&
      !AskYesNo(game, "Print Games Log Raw Data",
                "Number of games to be printed: " + std::to_string(games) +
                    "\n\nThis should result in " + std::to_string(pages) +
                    (pages == 1 ? " page." : " pages.") + "\n\nAre you ready to begin printing?",
                kButtonYes | kButtonNo | kPictureQuestion)) {
    return false;
  }
  return PrintMade(game, "Print RawData", [&] { return report.Make(); });
}

constexpr auto kPrintCommands = std::to_array<PrintCommand>({
    {"totals", "how often each roll came", PrintRollTotals},
    {"frequencies", "one roll event in depth", PrintRollFrequencies},
    {"summary", "a digest of the game", PrintSummary},
    {"results", "what the selected bets have won and lost", PrintBetResults},
    {"trends", "runs of wins and losses", PrintBetTrends},
    {"stacks", "the Chip-Stacks", PrintChipStacks},
    {"bankroll", "the graph of the bankroll", PrintBankroll},
    {"games", "the figures and the histogram of the Games Log", PrintGamesLog},
    {"gamesdata", "the chosen value of every game of the Games Log", PrintGamesData},
    {"rolls", "the Dice Roll File", PrintDiceRolls},
    {"script", "the lines of the Auto-Bet script", PrintScript},
    {"flags", "the flags of the script", PrintFlags},
    {"hotkeys", "the Hot-Keys", PrintHotKeys},
    {"advantage", "the payoffs, and what each bet is worth", PrintAdvantage},
    {"settings", "all settings", PrintSettings},
});

}  // namespace

std::span<const PrintCommand> PrintCommands() {
  return kPrintCommands;
}

const PrintCommand* FindPrintCommand(std::string_view name) {
  const auto* const command =
      std::find_if(kPrintCommands.begin(), kPrintCommands.end(),
                   [&](const PrintCommand& one) { return EqualIgnoringCase(one.name, name); });
  return command == kPrintCommands.end() ? nullptr : command;
}

bool ConfirmPrint(Game& game) {
  return AskYesNo(game, "Print", "Confirm ready to print?",
                  kButtonYes | kButtonNo | kPictureQuestion | kDefaultNo);
}

bool SendToPrinter(Game& game, const Document& document, std::string_view place) {
  const std::optional<FileError> error = game.surface->Print(document);
  if (error) TellFailure(game, error->At(place));
  return !error;
}

}  // namespace feltmaster
