#include "reports/graph_print.h"

#include <exception>
#include <memory>
#include <string>
#include <utility>

#include "autobet/message.h"
#include "reports/document.h"
#include "reports/graph_report.h"
#include "reports/print_commands.h"
#include "stats/roll_statistics.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr const char* kTitle = "Bankroll Graph";
constexpr const char* kErrorPlace = "Print Bankroll Graph";
constexpr std::int32_t kYesOrNo = kButtonYes | kButtonNo | kPictureQuestion;

bool RolledSincePrinted(const Game& game) {
  return RollCounts(game, 0) != game.LastPrintedRoll;
}

bool AtRest(Game& game) {
  if (!game.HyperDriveActive) return true;
  if (AskYesNo(game, "Hyper-Drive Active", "Do you want to stop Hyper-Drive?")) {
    game.KeepRolling = false;
  }
  return false;
}

}  // namespace

void PrintGraph(Game& game) {
  if (!game.surface->HasPrinter()) return;
  ShowNotice(game, kTitle, "Preparing output for printer.");
  try {
    auto page = std::make_shared<Document>(game.GraphPage ? *game.GraphPage : EmptyGraphPage(game));
    AddGraph(game, *page);
    game.GraphPage = std::move(page);
  } catch (const std::exception& fault) {
    game.LastErrorText = std::string(fault.what()) + " occurred, at: " + kErrorPlace;
    game.surface->ShowNotice({}, {});
    return;
  }
  game.surface->ShowNotice({}, {});
  ++game.GraphsOnPage;
  game.LastPrintedRoll = RollCounts(game, 0);
  if (game.GraphsOnPage < game.GraphsPerPage) return;
  ShowNotice(game, kTitle, "Standby . . .\n\nSending output to printer.");
  SendGraphPage(game);
  game.surface->ShowNotice({}, {});
}

void PrintGraphNow(Game& game) {
  if (AtRest(game)) PrintGraph(game);
}

void SetGraphAutoPrint(Game& game, bool on) {
  if (AtRest(game)) game.GraphAutoPrint = on;
}

bool SendGraphPage(Game& game) {
  game.GraphsOnPage = 0;
  if (!game.GraphPage) return true;
  const auto page = std::exchange(game.GraphPage, nullptr);
  return SendToPrinter(game, *page, kErrorPlace);
}

void FinishGraphPrint(Game& game) {
  if (!game.GraphAutoPrint || !game.surface->HasPrinter()) return;
  if (RolledSincePrinted(game) &&
      AskYesNo(game, "Bankroll Graph Auto-Print Active",
               "Would you like to print the last graph now?", kYesOrNo)) {
    PrintGraph(game);
  }
  if (game.GraphsOnPage == 0) return;
  if (AskYesNo(game, kTitle,
               "So far you've sent " + std::to_string(game.GraphsOnPage) +
                   " to the current page.\n" + std::to_string(game.GraphsPerPage) +
                   " graphs will fit on a page.\n\nWould you like to finish printing now?",
               kYesOrNo)) {
    ShowNotice(game, kTitle, "Sending output to printer.");
    SendGraphPage(game);
    game.surface->ShowNotice({}, {});
  }
}

void PrintLastGraphs(Game& game) {
  if (game.GraphAutoPrint && RolledSincePrinted(game)) PrintGraph(game);
  SendGraphPage(game);
}

}  // namespace feltmaster
