#include "automation/table_guards.h"

#include "autobet/message.h"
#include "engine/entry_box.h"
#include "engine/place_bet.h"

namespace feltmaster {

bool AskToEndScript(Game& game) {
  return AskYesNo(game, "Auto-Bet Active", "Do you want to interrupt Auto-Betting? ");
}

bool AskToStopHyperDrive(Game& game) {
  if (!AskYesNo(game, "Hyper-Drive Active", "Do you want to stop Hyper-Drive?")) return false;
  game.KeepRolling = false;
  return true;
}

bool TableIsFree(Game& game) {
  if (game.AutoBetRunning) {
    AskToEndScript(game);
    return false;
  }
  if (game.HyperDriveActive) {
    AskToStopHyperDrive(game);
    return false;
  }
  return true;
}

bool TableListens(Game& game) {
  return TableIsFree(game) && CommitEnteredBet(game);
}

}  // namespace feltmaster
