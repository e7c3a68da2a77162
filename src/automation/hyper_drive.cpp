#include "automation/hyper_drive.h"

#include "engine/roll_cycle.h"
#include "surface/surface.h"

namespace feltmaster {

void ToggleHyperDrive(Game& game) {
  if (game.KeepRolling) {
    game.KeepRolling = false;
    return;
  }
  const MoneyAmount limit = MoneyAmount::FromWhole(kBankLimit);
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  if (bankroll > limit || bankroll < -limit) {
    BankLimitReached(game);
    return;
  }
  game.HyperDriveActive = true;
  game.KeepRolling = true;
  game.surface->RefreshOpenScreens();
  if (!game.surface->TableMinimised()) game.surface->TableChanged(kChangedAll);
  RollCycle(game);
}

}  // namespace feltmaster
