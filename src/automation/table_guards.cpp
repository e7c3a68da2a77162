#include "automation/table_guards.h"

#include "autobet/message.h"
#include "engine/entry_box.h"
#include "engine/place_bet.h"

namespace feltmaster {

bool TableListens(Game& game) {
  if (game.AutoBetRunning) {
    if (AskYesNo(game, "Auto-Bet Active", "Do you want to interrupt Auto-Betting? ")) {
      game.AutoBetRunning = false;
      game.KeepRolling = false;
    }
    return false;
  }
  if (game.HyperDriveActive) {
    if (AskYesNo(game, "Hyper-Drive Active", "Do you want to stop Hyper-Drive?")) {
      game.KeepRolling = false;
    }
    return false;
  }
  return !EntryBoxOpen(game) || CommitEnteredBet(game);
}

}  // namespace feltmaster
