#include "automation/interruption.h"

#include "autobet/message.h"

namespace feltmaster {

bool AskToEndScript(Game& game) {
  if (!AskYesNo(game, "Auto-Bet Active", "Do you want to interrupt Auto-Betting? ")) return false;
  game.AutoBetRunning = false;
  return true;
}

bool AskToStopHyperDrive(Game& game) {
  if (!AskYesNo(game, "Hyper-Drive Active", "Do you want to stop Hyper-Drive?")) return false;
  game.KeepRolling = false;
  return true;
}

}  // namespace feltmaster
