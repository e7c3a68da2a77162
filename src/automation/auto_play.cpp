#include "automation/auto_play.h"

#include <algorithm>
#include <string>

#include "autobet/message.h"
#include "engine/bet_states.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "engine/table_effects.h"

namespace feltmaster {

void ApplyWorkStates(Game& game) {
  UpdateBetStates(game);
  ShowTableChange(game, kChangedStatus);
}

void ResetWorkOnComeOut(Game& game) {
  DefaultWorkOnComeOut(game);
  ShowTableChange(game, kChangedStatus);
}

void SetWorkOnComeOut(Game& game, int bet, bool works) {
  if (!IsLayoutBet(bet)) return;
  game.WorkOnComeOut.Put(bet, works);
  ApplyWorkStates(game);
}

void SetAutoAdjust(Game& game, std::int32_t option) {
  if (option < kAdjustManually || option > kColorCorrection) return;
  const bool changed = option != game.AutoAdjustBetAmounts;
  game.AutoAdjustBetAmounts = option;
  if (changed && option > kAdjustManually) AdjustAllBets(game);
}

void SetAutoTakeFullOdds(Game& game, bool on) {
  game.AutoTakeFullOdds = on;
  if (!on) return;
  const bool now = AskYesNo(game, "Auto-Take Full Odds",
                            "\nAuto-Take Full Odds is now active.\n\n"
                            "Do you also want to take full odds on any bets that are already on "
                            "the table?");
  if (now) TakeAllFullOdds(game);
}

void SetAutoRollDice(Game& game, bool on) {
  game.AutoRollDice = on;
  if (!on || game.AutoRollsRemaining == game.NumAutoRolls) return;
  const bool resume = AskYesNo(game, "Auto-Roll",
                               "Would you like to resume the current roll count at " +
                                   std::to_string(game.AutoRollsRemaining) +
                                   "?\n\nIf not, then the count will be reset to " +
                                   std::to_string(game.NumAutoRolls));
  if (!resume) game.AutoRollsRemaining = game.NumAutoRolls;
}

void SetNumAutoRolls(Game& game, std::int64_t rolls) {
  game.NumAutoRolls =
      static_cast<std::int32_t>(std::clamp(rolls, std::int64_t{0}, std::int64_t{kRollLimit}));
  game.AutoRollsRemaining = game.NumAutoRolls;
}

void RollCommand(Game& game) {
  if (game.CallBetMode != 0) {
    game.CallBetMode = 0;
    ShowTableChange(game, kChangedPrompt);
  }
  if (game.AutoRollDice) {
    game.KeepRolling = !game.KeepRolling;
    if (!game.KeepRolling) return;
    if (game.AutoRollsRemaining == 0) game.AutoRollsRemaining = game.NumAutoRolls;
  }
  if (!game.AutoBetRunning && !game.RollInProgress) RollCycle(game);
}

}  // namespace feltmaster
