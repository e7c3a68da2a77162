// The commands of a session on each of the two tables.
#include <cstddef>

#include "config/configure.h"
#include "config/payoffs.h"
#include "engine/bet_states.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "engine/start_up.h"
#include "reference/session.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace reference {
namespace {

using feltmaster::Game;
using feltmaster::MoneyAmount;

constexpr Raw kBankLimit = 9'999'999 * kOne;

constexpr Raw kChipSets[5][5] = {
    {10'000, 50'000, 250'000, 1'000'000, 5'000'000},
    {2'500, 10'000, 50'000, 250'000, 1'000'000},
    {50'000, 250'000, 1'000'000, 5'000'000, 10'000'000},
    {10'000, 10'000, 50'000, 250'000, 1'000'000},
    {15'000, 30'000, 45'000, 60'000, 75'000},
};

MoneyAmount Money(Raw raw) {
  return MoneyAmount::FromRaw(raw);
}

std::size_t At(int index) {
  return static_cast<std::size_t>(index);
}

// A Pass Line or Come bet takes a keyed-in amount as a change, any other bet is made anew.
bool KeyedAsChange(int bet) {
  return bet == 51 || (bet >= 11 && bet <= 20);
}

bool MayForbidNegative(Raw bankroll, Raw total_on_table) {
  return bankroll >= 0 && bankroll >= total_on_table;
}

bool MayDeposit(Raw bankroll, Raw total_on_table, bool allow_negative) {
  return allow_negative ? bankroll >= -kBankLimit : bankroll >= total_on_table;
}

bool RollEngine(Game& game, int die1, int die2) {
  const int before[2] = {game.Die1, game.Die2};
  const std::int32_t rolls = feltmaster::RollCounts(game, 0);
  game.Die1 = die1;
  game.Die2 = die2;
  game.DiceAlreadySet = true;
  game.KeepRolling = false;
  feltmaster::RollCycle(game);
  if (feltmaster::RollCounts(game, 0) != rolls) return true;
  game.Die1 = before[0];
  game.Die2 = before[1];
  game.DiceAlreadySet = false;
  return false;
}

void SetEngine(Game& game, Setting setting, int cell, Raw value) {
  const auto whole = static_cast<std::int32_t>(value);
  const bool on = value != 0;
  switch (setting) {
    case Setting::kMinPlacardBet:
      game.MinPlacardBet = Money(value);
      break;
    case Setting::kMaxPlacardBet:
      game.MaxPlacardBet = Money(value);
      break;
    case Setting::kMaxOddsBet:
      game.MaxOddsBet = Money(value);
      break;
    case Setting::kOddsAllowed:
      game.OddsAllowed[At(cell)] = Money(value);
      break;
    case Setting::kOddsCalcMethod:
      game.OddsCalcMethod = whole;
      break;
    case Setting::kAllowPutBets:
      feltmaster::SettlePhantoms(game);
      game.AllowPutBets = on;
      break;
    case Setting::kLayVigPct:
      feltmaster::SettlePhantoms(game);
      game.LayVigPct = Money(value);
      break;
    case Setting::kBuyVigPct:
      feltmaster::SettlePhantoms(game);
      game.BuyVigPct = Money(value);
      break;
    case Setting::kAllowNegBankroll:
      if (on || MayForbidNegative(game.BetAmount[0].Raw(), game.TotalOnTable.Raw())) {
        game.AllowNegBankroll = on;
      }
      break;
    case Setting::kHandleWinningBets:
      game.HandleWinningBets = whole;
      break;
    case Setting::kHandleLosingBets:
      game.HandleLosingBets = whole;
      break;
    case Setting::kHandleChoiceTag:
      game.HandleChoiceTag[At(cell)] = whole;
      break;
    case Setting::kHandleAmount:
      game.HandleAmount[At(cell)] = Money(value);
      break;
    case Setting::kHandleUnits:
      game.HandleUnits[At(cell)] = MoneyAmount(whole);
      break;
    case Setting::kAutoAdjust:
      game.AutoAdjustBetAmounts = whole;
      break;
    case Setting::kLayBias:
      game.LayBias = whole;
      break;
    case Setting::kPlaceBias:
      game.PlaceBias = whole;
      break;
    case Setting::kDoBias:
      game.DoBias = whole;
      break;
    case Setting::kAutoTakeFullOdds:
      game.AutoTakeFullOdds = on;
      break;
    case Setting::kAutoRemovePlaceBets:
      game.AutoRemovePlaceBets = on;
      break;
    case Setting::kAutoRolls:
      game.NumAutoRolls = whole;
      game.AutoRollsRemaining = whole;
      break;
    case Setting::kGraphShowAverage:
      feltmaster::SettleAverages(game);
      game.GraphShowAverage = on;
      break;
    case Setting::kGraphAverageRolls:
      feltmaster::SettleAverages(game);
      game.GraphAverageRolls = whole;
      break;
    case Setting::kGraphAdjustType:
      game.GraphAdjustType = whole;
      break;
    case Setting::kGraphManualScale:
      game.GraphManualScale = Money(value);
      game.GraphScale = Money(value);
      break;
    case Setting::kGraphRefLines:
      game.GraphRefLines = on;
      break;
    case Setting::kRefLineRoll:
      game.RefLineRoll[At(cell)] = whole;
      break;
    case Setting::kCount:
      break;
  }
}

void SetReference(ReferenceTable& table, Setting setting, int cell, Raw value) {
  const auto whole = static_cast<int>(value);
  const bool on = value != 0;
  switch (setting) {
    case Setting::kMinPlacardBet:
      table.min_placard_bet = value;
      break;
    case Setting::kMaxPlacardBet:
      table.max_placard_bet = value;
      break;
    case Setting::kMaxOddsBet:
      table.max_odds_bet = value;
      break;
    case Setting::kOddsAllowed:
      table.odds_allowed[At(cell)] = value;
      break;
    case Setting::kOddsCalcMethod:
      table.odds_calc_method = whole;
      break;
    case Setting::kAllowPutBets:
      table.allow_put_bets = on;
      break;
    case Setting::kLayVigPct:
      table.lay_vig_pct = value;
      break;
    case Setting::kBuyVigPct:
      table.buy_vig_pct = value;
      break;
    case Setting::kAllowNegBankroll:
      if (on || MayForbidNegative(table.bet_amount[0], table.total_on_table)) {
        table.allow_neg_bankroll = on;
      }
      break;
    case Setting::kHandleWinningBets:
      table.handle_winning_bets = whole;
      break;
    case Setting::kHandleLosingBets:
      table.handle_losing_bets = whole;
      break;
    case Setting::kHandleChoiceTag:
      table.handle_choice_tag[At(cell)] = whole;
      break;
    case Setting::kHandleAmount:
      table.handle_amount[At(cell)] = value;
      break;
    case Setting::kHandleUnits:
      table.handle_units[At(cell)] = whole;
      break;
    case Setting::kAutoAdjust:
      table.auto_adjust = whole;
      break;
    case Setting::kLayBias:
      table.lay_bias = whole;
      break;
    case Setting::kPlaceBias:
      table.place_bias = whole;
      break;
    case Setting::kDoBias:
      table.do_bias = whole;
      break;
    case Setting::kAutoTakeFullOdds:
      table.auto_take_full_odds = on;
      break;
    case Setting::kAutoRemovePlaceBets:
      table.auto_remove_place_bets = on;
      break;
    case Setting::kAutoRolls:
      table.num_auto_rolls = whole;
      table.auto_rolls_remaining = whole;
      break;
    case Setting::kGraphShowAverage:
      table.graph_show_average = on;
      break;
    case Setting::kGraphAverageRolls:
      table.graph_average_rolls = whole;
      break;
    case Setting::kGraphAdjustType:
      table.graph_adjust_type = whole;
      break;
    case Setting::kGraphManualScale:
      table.graph_manual_scale = value;
      table.graph_scale = value;
      break;
    case Setting::kGraphRefLines:
      table.graph_ref_lines = on;
      break;
    case Setting::kRefLineRoll:
      table.ref_line_roll[At(cell)] = whole;
      break;
    case Setting::kCount:
      break;
  }
}

bool PerformSilently(const Command& c, Game& game) {
  const int on_off = c.b != 0 ? feltmaster::kCallOn : feltmaster::kCallOff;
  switch (c.verb) {
    case Verb::kRoll:
      return RollEngine(game, c.a, c.b);
    case Verb::kPlaceChips:
      game.BetRequest = Money(c.x);
      feltmaster::PlaceChips(game, c.a);
      break;
    case Verb::kPlaceBet:
      game.BetRequest = Money(c.x);
      feltmaster::PlaceBet(game, c.a);
      break;
    case Verb::kTakeFullOdds:
      feltmaster::TakeFullOdds(game, c.a);
      break;
    case Verb::kTakeAllOdds:
      feltmaster::TakeAllFullOdds(game);
      break;
    case Verb::kTakeDown:
      feltmaster::TakeDownBetQuietly(game, c.a);
      break;
    case Verb::kMoveCome:
      feltmaster::MoveComeBet(game, 53, 11 + c.a);
      break;
    case Verb::kBuyPlace:
      feltmaster::BuyPlaceBet(game, c.a);
      break;
    case Verb::kCall:
      feltmaster::CallBet(game, c.a, on_off);
      break;
    case Verb::kCallAll:
      feltmaster::CallAllBets(game, on_off);
      break;
    case Verb::kRemoveAll:
      feltmaster::RemoveAllBets(game);
      break;
    case Verb::kAdjustAll:
      feltmaster::AdjustAllBets(game);
      break;
    case Verb::kKeyIn: {
      const MoneyAmount amount = game.BetAmount[c.a];
      if (amount == Money(c.x)) break;
      if (!KeyedAsChange(c.a)) feltmaster::LiftBet(game, c.a);
      game.BetRequest = KeyedAsChange(c.a) ? Money(c.x) - amount : Money(c.x);
      feltmaster::PlaceChips(game, c.a);
      break;
    }
    case Verb::kWithdraw:
      if (game.BetAmount[0].Raw() > kBankLimit) break;
      feltmaster::ATMTransaction(game, feltmaster::Atm::kWithdraw, Money(c.x));
      break;
    case Verb::kDeposit:
      if (!MayDeposit(game.BetAmount[0].Raw(), game.TotalOnTable.Raw(), game.AllowNegBankroll)) {
        break;
      }
      feltmaster::ATMTransaction(game, feltmaster::Atm::kDeposit, Money(c.x));
      break;
    case Verb::kWorkOnComeOut:
      game.WorkOnComeOut.Put(c.a, c.b != 0);
      feltmaster::UpdateBetStates(game);
      break;
    case Verb::kSet:
      SetEngine(game, static_cast<Setting>(c.a), c.b, c.x);
      break;
    case Verb::kChangeVig: {
      using feltmaster::VigSetting;
      static constexpr VigSetting kSettings[] = {VigSetting::kBuyRounding, VigSetting::kLayRounding,
                                                 VigSetting::kBuyAllBets, VigSetting::kLayAllBets};
      feltmaster::ChangeVigSetting(game, kSettings[c.a], static_cast<std::int32_t>(c.x));
      break;
    }
    case Verb::kPayRow:
      feltmaster::SettlePhantoms(game);
      game.PayTable[At(c.a)] = {Money(c.x), c.b != 0, Money(c.y)};
      break;
    case Verb::kFieldRow:
      feltmaster::SettlePhantoms(game);
      game.FieldPayTable[At(c.a)] = {Money(c.x), c.b != 0, Money(c.y)};
      feltmaster::SetFieldCommonDenominator(game);
      break;
    case Verb::kFieldPreset:
      feltmaster::SettlePhantoms(game);
      feltmaster::SetFieldPayoffs(game, static_cast<feltmaster::FieldPreset>(c.a));
      feltmaster::SetFieldCommonDenominator(game);
      break;
    case Verb::kDefaultPayoffs:
      feltmaster::SettlePhantoms(game);
      feltmaster::DefaultPayoffs(game);
      break;
    case Verb::kDenominations:
      for (int i = 0; i < 5; ++i) game.BetAmount.Set(95 + i, Money(kChipSets[c.a][i]));
      break;
    case Verb::kBankroll:
      game.BetAmount.Set(0, Money(c.x));
      game.AmountInvested = Money(c.x);
      feltmaster::RestartGraph(game);
      break;
    case Verb::kResetCounters:
      feltmaster::ResetScriptCounters(game, c.a);
      break;
    case Verb::kRescanGraph:
      feltmaster::RescanGraphRange(game);
      break;
    case Verb::kRebuildAverages:
      feltmaster::RebuildAverages(game);
      break;
    case Verb::kDrawGraph:
      feltmaster::DrawGraph(game, c.b != 0);
      break;
    case Verb::kSettle:
      break;
  }
  return true;
}

}  // namespace

void MakeReady(Game& game, feltmaster::Surface& surface) {
  game.surface = &surface;
  feltmaster::StartUp(game, {.data_dir = "", .seed = 1});
  feltmaster::RestartGraph(game);
}

bool Perform(const Command& command, Game& game) {
  // Nobody hears the messages: they stay away in Hyper-Drive.
  game.HyperDriveActive = true;
  const bool done = PerformSilently(command, game);
  game.HyperDriveActive = false;
  return done;
}

bool Perform(const Command& c, ReferenceTable& table) {
  switch (c.verb) {
    case Verb::kRoll:
      return table.Roll(c.a, c.b);
    case Verb::kPlaceChips:
      table.PlaceChips(c.a, c.x);
      break;
    case Verb::kPlaceBet:
      table.PlaceBet(c.a, c.x);
      break;
    case Verb::kTakeFullOdds:
      table.TakeFullOdds(c.a);
      break;
    case Verb::kTakeAllOdds:
      table.TakeAllFullOdds();
      break;
    case Verb::kTakeDown:
      table.TakeDownBetQuietly(c.a);
      break;
    case Verb::kMoveCome:
      table.MoveComeBet(53, 11 + c.a);
      break;
    case Verb::kBuyPlace:
      table.BuyPlaceBet(c.a);
      break;
    case Verb::kCall:
      table.CallBet(c.a, c.b != 0);
      break;
    case Verb::kCallAll:
      table.CallAllBets(c.b != 0);
      break;
    case Verb::kRemoveAll:
      table.RemoveAllBets();
      break;
    case Verb::kAdjustAll:
      table.AdjustAllBets();
      break;
    case Verb::kKeyIn:
      table.KeyInBet(c.a, c.x);
      break;
    case Verb::kWithdraw:
      if (table.bet_amount[0] <= kBankLimit) table.Withdraw(c.x);
      break;
    case Verb::kDeposit:
      if (MayDeposit(table.bet_amount[0], table.total_on_table, table.allow_neg_bankroll)) {
        table.Deposit(c.x);
      }
      break;
    case Verb::kWorkOnComeOut:
      table.SetWorkOnComeOut(c.a, c.b != 0);
      break;
    case Verb::kSet:
      SetReference(table, static_cast<Setting>(c.a), c.b, c.x);
      break;
    case Verb::kChangeVig:
      table.ChangeVig(static_cast<Vig>(c.a), static_cast<int>(c.x));
      break;
    case Verb::kPayRow:
      table.pay_table[At(c.a)] = {c.x, c.b != 0, c.y};
      break;
    case Verb::kFieldRow:
      table.field_pay_table[At(c.a)] = {c.x, c.b != 0, c.y};
      table.SetFieldCommonDenominator();
      break;
    case Verb::kFieldPreset:
      table.SetFieldPreset(c.a);
      table.SetFieldCommonDenominator();
      break;
    case Verb::kDefaultPayoffs:
      table.DefaultPayoffs();
      break;
    case Verb::kDenominations:
      for (int i = 0; i < 5; ++i) table.bet_amount[At(95 + i)] = kChipSets[c.a][i];
      break;
    case Verb::kBankroll:
      table.bet_amount[0] = c.x;
      table.amount_invested = c.x;
      table.RestartGraph();
      break;
    case Verb::kResetCounters:
      table.ResetScriptCounters(c.a);
      break;
    case Verb::kRescanGraph:
      table.RescanGraphRange();
      break;
    case Verb::kRebuildAverages:
      table.RebuildAverages();
      break;
    case Verb::kDrawGraph:
      table.DrawGraph(c.b != 0);
      break;
    case Verb::kSettle:
      break;
  }
  return true;
}

}  // namespace reference
