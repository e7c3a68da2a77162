#include "engine/new_game.h"

#include <string>

#include "autobet/message.h"
#include "base/number_format.h"
#include "dice/rng.h"
#include "engine/chip_list.h"
#include "engine/table_effects.h"
#include "files/roll_recorder.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

void ClearSlot(Game& game, int slot) {
  const auto cell = static_cast<std::size_t>(slot);
  if (game.BetAmount[slot].Raw() != 0) game.BetAmount.Set(slot, {});
  game.BetAmountAtRollStart[cell] = {};
  game.BetAmountAtRollEnd[cell] = {};
}

void ClearTable(Game& game) {
  for (int slot = kBankroll; slot <= kBetCount; ++slot) ClearSlot(game, slot);
  game.EstablishedAmount.fill({});
  game.LayVigPaid.fill({});
  game.BuyVigPaid.fill({});
  game.BetStreak = {};
  game.BetState = {};
  game.WorkOnComeOut.ForEach([&](int bet) { game.BetState.Set(bet, kWorking); });
  game.Decisions.count = 0;
  game.ChipList.clear();
}

void ClearChipStacks(Game& game) {
  for (int slot = kFirstStack; slot <= kLastStack; ++slot) ClearSlot(game, slot);
  for (std::string& name : game.ChipStackName) name.clear();
}

void AskBankroll(Game& game) {
  // What stands when nobody answers.
  game.BetRequest = game.BankrollInitAmount;
  game.MsgInputDefault = PlainNumber(game.BankrollInitAmount);
  Tell(game, "Set Beginning Bankroll", "Enter your beginning bankroll: ", kButtonOk | kOneInput);
  game.BankrollInitAmount = game.BetRequest;
  game.KeepRolling = false;
}

void SetBankroll(Game& game, MoneyAmount bankroll) {
  game.BetAmount.Set(kBankroll, bankroll);
  game.BetAmountAtRollStart[kBankroll] = bankroll;
  game.BetAmountAtRollEnd[kBankroll] = bankroll;
}

void StartBankroll(Game& game, MoneyAmount carried) {
  const bool carries = game.BankrollInitType >= kCarryBankroll;
  const bool asks = game.BankrollInitType == kPromptForBankroll ||
                    (carries && carried > MoneyAmount::FromWhole(kBankLimit));
  if (asks) AskBankroll(game);
  const MoneyAmount bankroll = carries && !asks ? carried : game.BankrollInitAmount;
  SetBankroll(game, bankroll);
  if (game.BankrollInitType != kCarryBankrollAndNet) game.AmountInvested = bankroll;
  if (bankroll.Raw() < 0) game.AllowNegBankroll = true;
}

void ClearFlags(Game& game) {
  for (ScriptFlag& flag : game.ScriptFlags) flag.FlagValue = flag.FlagChanged = false;
  game.AnyFlagChanged = false;
}

}  // namespace

void ResetGame(Game& game, ResetMode mode) {
  const MoneyAmount carried = game.BetAmount[kBankroll];
  ClearTable(game);
  if (mode == ResetMode::kAll) ClearChipStacks(game);
  ResetRollStatistics(game);
  ResetBetResults(game);
  ClearFlags(game);
  if (game.ReSeedNewGames) SeedRng(game, 0);
  StartBankroll(game, carried);

  RestartGraph(game);
  game.BankrollSum = {};
  game.LastPrintedRoll = 0;
  game.AutoRollsRemaining = game.NumAutoRolls;
  game.HyperDriveStopText.clear();
  game.Point = game.PrevPoint = game.PrevPrevPoint = 0;
  game.TotalOnTable = {};
  game.GameFileName.clear();
  game.GameChanged = false;
  if (game.DiceRollFileMode != kRecorderOff) DiceRollStopped(game);

  RebuildAllChips(game);
  game.RedrawTable = true;
  ShowTableChange(game, kChangedAll);
  game.surface->RefreshOpenScreens();
}

}  // namespace feltmaster
