#include "view/state_hash.h"

#include <bit>
#include <span>

#include "base/hash.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

constexpr int kLastStateBet = 100;  // states and streaks go beyond the layout

void Add(RowHash& hash, MoneyAmount amount) {
  hash.Add(amount.Raw());
}
void Add(RowHash& hash, float value) {
  hash.Add(std::bit_cast<std::uint32_t>(value));
}
void Add(RowHash& hash, const PayRow& row) {
  Add(hash, row.PayNumerator);
  hash.Add(row.PayIsTo);
  Add(hash, row.PayDenominator);
}
template <typename Value>
requires requires(RowHash& hash, Value value) {
  hash.Add(value);
}
void Add(RowHash& hash, const Value& value) {
  hash.Add(value);
}
template <typename Value, std::size_t kSize>
void Add(RowHash& hash, const std::array<Value, kSize>& values) {
  for (const Value& value : values) Add(hash, value);
}
template <typename Value, std::size_t kSize>
void Add(RowHash& hash, std::span<Value, kSize> values) {
  for (const Value& value : values) Add(hash, value);
}
template <typename... Values>
void AddAll(RowHash& hash, const Values&... values) {
  (Add(hash, values), ...);
}

void AddTable(RowHash& hash, const Game& game) {
  for (int slot = 0; slot < kAmountSlots; ++slot) Add(hash, game.BetAmount[slot]);
  AddAll(hash, game.BetAmountAtRollStart, game.BetAmountAtRollEnd, game.EstablishedAmount,
         game.LayVigPaid, game.BuyVigPaid);
  for (int bet = 0; bet <= kLastStateBet; ++bet) {
    AddAll(hash, game.BetState[bet], game.BetStreak.Now(bet), game.BetStreak.Before(bet));
  }
  AddAll(hash, game.Die1, game.Die2, game.DiceTotal, game.Point, game.PrevPoint, game.PrevPrevPoint,
         game.TotalOnTable, game.HyperDriveStopText);
  hash.Add(game.Decisions.count);
  for (std::size_t i = 0; i < static_cast<std::size_t>(game.Decisions.count); ++i) {
    const BetDecision& decision = game.Decisions.list[i];
    AddAll(hash, decision.bet, decision.amount, decision.net);
  }
  AddAll(hash, game.ChipStackName, game.StackSlots);
}

void AddSettings(RowHash& hash, const Game& game) {
  AddAll(hash, game.PayTable, game.FieldPayTable, game.MinPlacardBet, game.MaxPlacardBet,
         game.MaxOddsBet, game.MaxPropBetPayoff, game.OddsAllowed, game.OddsCalcMethod,
         game.AllowPutBets, game.LayVigPct, game.BuyVigPct, game.LayVigAllBets, game.BuyVigAllBets,
         game.LayVigRounding, game.BuyVigRounding, game.BankrollInitType, game.BankrollInitAmount,
         game.AllowNegBankroll, game.ATMAmount, game.RollsPerHour);
  AddAll(hash, game.HandleWinningBets, game.HandleLosingBets, game.HandleChoiceTag,
         game.HandleAmount, game.HandleUnits, game.AutoAdjustBetAmounts, game.LayBias,
         game.PlaceBias, game.DoBias, game.AutoTakeFullOdds, game.AutoRemovePlaceBets,
         game.NumAutoRolls, game.AutoRollsRemaining);
  for (int bet = 0; bet <= kLastStateBet; ++bet) hash.Add(game.WorkOnComeOut.Has(bet));
}

void AddDice(RowHash& hash, const Game& game) {
  AddAll(hash, game.RngSelected, game.SeedValue, game.LastSeed, game.Genrand.word,
         game.Genrand.index, game.RandomMt.word, game.RandomMt.index);
  const Ran1Generator& ran1 = game.Ran1State;
  AddAll(hash, ran1.Ix1, ran1.Ix2, ran1.Ix3, ran1.R, ran1.J, ran1.Ran1Ready);
  const Ran2Generator& ran2 = game.Ran2State;
  AddAll(hash, ran2.Ir, ran2.Iy, ran2.J, ran2.Ran2Ready, game.Ran2Idum);
  AddAll(hash, game.DiceProbability, game.UseSkewedProbability);
}

void AddStatistics(RowHash& hash, Game& game) {
  for (int category = 0; category < kRollCategories; ++category) {
    AddAll(hash, RollCounts(game, category), RollsSinceLast(game, category),
           ScriptRollCounts(game, category), ScriptRollCountsSeen(game, category),
           ScriptRollsSince(game, category), ScriptRollsSinceSeen(game, category));
  }
  for (int category = 0; category < kRollCategories; ++category) {
    Add(hash, GapsOf(game, category));
  }
  Add(hash, game.GameCounters);
  for (const ResultKind kind : {ResultKind::kWagers, ResultKind::kWins, ResultKind::kLosses}) {
    for (const int series : {kPhantom, kActual}) {
      for (int bet = 1; bet <= kLastStateBet; ++bet) {
        for (int row = 0; row < kResultRows; ++row) {
          Add(hash, ResultCell(game, kind, series, bet, row));
        }
      }
    }
  }
}

void AddBankroll(RowHash& hash, Game& game) {
  AddAll(hash, game.BankrollHigh, game.BankrollLow, game.BankrollSum, game.AmountInvested,
         std::span(game.BankrollHistory).first(kHistorySize), game.BankrollHistoryCount,
         game.GraphHigh, game.GraphLow, game.GraphScale, game.GraphTop);
  for (int position = 1; position <= game.BankrollHistoryCount; ++position) {
    Add(hash, BankrollAverage(game, position));
  }
}

void AddScript(RowHash& hash, const Game& game) {
  hash.Add(game.ScriptActive);
  for (const ScriptLine& line : game.ScriptLines) {
    AddAll(hash, line.LineKind, line.LineCode, line.LineName, line.LineAmount, line.LineSubject,
           line.LineSubjectStack, line.LineTarget, line.LineTargetStack);
  }
  for (const ScriptFlag& flag : game.ScriptFlags) {
    AddAll(hash, flag.FlagName, flag.FlagValue, flag.FlagChanged);
  }
}

}  // namespace

std::uint64_t StateHash(Game& game) {
  RowHash hash;
  AddTable(hash, game);
  AddSettings(hash, game);
  AddDice(hash, game);
  AddStatistics(hash, game);
  AddBankroll(hash, game);
  AddScript(hash, game);
  return hash.Value();
}

}  // namespace feltmaster
