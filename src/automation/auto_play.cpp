#include "automation/auto_play.h"

#include <algorithm>
#include <array>
#include <string>

#include "autobet/message.h"
#include "base/number_format.h"
#include "engine/bet_states.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "engine/table_effects.h"

namespace feltmaster {

namespace {

std::size_t Cell(int option) {
  return static_cast<std::size_t>(option - kFirstHandleOption);
}

}  // namespace

void ApplyWorkStates(Game& game) {
  UpdateBetStates(game);
  ShowTableChange(game, kChangedStatus);
}

void ResetWorkOnComeOut(Game& game) {
  DefaultWorkOnComeOut(game);
  ShowTableChange(game, kChangedStatus);
}

BetSet WorkList() {
  BetSet bound;
  bound.AddRange(kComePoint, kComePoint + kSlotCount - 1);
  bound.AddRange(kPassLine, kComeBox);
  return kLayoutBets.Without(bound);
}

void MarkWorkOnComeOut(Game& game, const BetSet& selected, BetMark mark) {
  game.WorkOnComeOut = Marked(game.WorkOnComeOut, selected & WorkList(), mark, WorkingByDefault());
  ApplyWorkStates(game);
}

std::string_view HandleOperatorText(const Game& game, int option) {
  constexpr std::array<std::string_view, 4> kOperators = {"+", "-", "x", "/"};
  return kOperators[static_cast<std::size_t>(game.HandleChoiceTag[Cell(option)]) %
                    kOperators.size()];
}

void StepHandleOperator(Game& game, int option) {
  constexpr std::int32_t kOperators = 4;
  std::int32_t& tag = game.HandleChoiceTag[Cell(option)];
  tag = (tag + 1) % kOperators;
}

std::string HandleUnitsText(const Game& game, int option) {
  constexpr std::int64_t kSlotBelowChipUnits = 93;
  const std::int64_t units = game.HandleUnits[Cell(option)].FloorWhole();
  if (units == 0) return "$";
  if (units == 1) return "%";
  const auto chip = static_cast<int>(kSlotBelowChipUnits + std::clamp<std::int64_t>(units, 2, 6));
  return '$' + FormatMoney(game.BetAmount[chip]) + " Units";
}

void StepHandleUnits(Game& game, int option) {
  MoneyAmount& units = game.HandleUnits[Cell(option)];
  units = MoneyAmount(units.Raw() == 0 ? 1 : 0);
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
