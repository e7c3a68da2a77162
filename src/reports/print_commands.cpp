#include "reports/print_commands.h"

#include <algorithm>
#include <array>
#include <exception>
#include <string>

#include "autobet/message.h"
#include "base/number_format.h"
#include "base/text.h"
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

// The common form of the commands.
bool PrintReport(Game& game, Confirm confirm, Document (*report)(Game&), std::string_view place) {
  if (confirm == Confirm::kAsk && !ConfirmPrint(game)) return false;
  try {
    return SendToPrinter(game, report(game), place);
  } catch (const std::exception& fault) {
    TellFailure(game, std::string(fault.what()) + " occurred, at: " + std::string(place));
    return false;
  }
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
  game.LastErrorText.clear();
  const Document document = report.Make();
  if (game.LastErrorText.empty()) return SendToPrinter(game, document, kTitle);
  TellFailure(game, game.LastErrorText);
  return false;
}

constexpr auto kPrintCommands = std::to_array<PrintCommand>({
    {"totals", "how often each roll came", PrintRollTotals},
    {"frequencies", "one roll event in depth", PrintRollFrequencies},
    {"summary", "a digest of the game", PrintSummary},
    {"results", "what the selected bets have won and lost", PrintBetResults},
    {"trends", "runs of wins and losses", PrintBetTrends},
    {"stacks", "the Chip-Stacks", PrintChipStacks},
    {"bankroll", "the graph of the bankroll", PrintBankroll},
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
