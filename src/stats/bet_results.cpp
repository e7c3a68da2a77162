#include "stats/bet_results.h"

#include <array>
#include <bit>
#include <exception>

#include "engine/payoff.h"
#include "engine/roll_table.h"
#include "stats/roll_events.h"

namespace feltmaster {
namespace {

using Rows = ResultRows;

Rows& RowsOf(ResultTable& table, int series, int bet) {
  return table[static_cast<std::size_t>(series)][static_cast<std::size_t>(bet)];
}

// Decisions of the same amount, which is above 0 in all but odd rules: how many, and their sum.
void AddAmounts(Rows& rows, MoneyAmount count, MoneyAmount total, MoneyAmount amount) {
  rows[kResultCount] += count;
  rows[kResultTotal] += total;
  if (amount > rows[kResultHigh]) rows[kResultHigh] = amount;
  if (amount.Raw() > 0 && (rows[kResultLow].Raw() == 0 || amount < rows[kResultLow])) {
    rows[kResultLow] = amount;
  }
}

void MarkLastRoll(Rows& rows, MoneyAmount amount) {
  rows[kResultLastRollCount] = MoneyAmount(1);
  rows[kResultLastRollAmount] = amount;
}

void ForgetLastRollOf(ResultTables& results, ResultSeries series) {
  results.Earlier[series] = results.Written(series);
  results.LastRoll[series].ForEach([&](int bet) {
    for (ResultTable* table : {&results.BetWagers, &results.BetWins, &results.BetLosses}) {
      Rows& rows = RowsOf(*table, series, bet);
      rows[kResultLastRollCount] = MoneyAmount();
      rows[kResultLastRollAmount] = MoneyAmount();
    }
  });
  results.LastRoll[series].Clear();
}

constexpr std::array<std::uint32_t, kComeBets> kComeBits = [] {
  std::array<std::uint32_t, kComeBets> bits{};
  for (int bet = 0; bet < kComeBets; ++bet) {
    bits[static_cast<std::size_t>(bet)] = ComeBit(kComePoint + bet);
  }
  return bits;
}();
bool HasComeFlag(int bet) {
  return bet >= kComePoint && bet < kComePoint + kComeBets;
}

// The bets that rolls are counted for: the line, which depends on the point, and all others but the
// Come bets on their numbers.
constexpr BetSet kLineBets = [] {
  BetSet bets;
  bets.AddRange(kPassLine, kPassOdds);
  return bets;
}();
constexpr BetSet kPointlessBets = [] {
  BetSet bets;
  bets.AddRange(kLay, kLay + kSlotCount - 1);
  bets.AddRange(kPlace, kBuy + kSlotCount - 1);
  bets.AddRange(kComeBox, kBetCount);
  return bets;
}();

// Writes tallies into the tables. Of two tallies of one bet the later gives the last amount, in
// whatever order they come.
class Settlement {
 public:
  explicit Settlement(Game& game) : game_(game) {}

  void Add(Judgement roll, int bet, int mode, const DecisionTally& tally) {
    if (tally.count == 0) return;
    try {
      const MoneyAmount result = PhantomPayoff(game_, roll, bet, mode).exact;
      if (result.Raw() == 0) return;
      Put(game_.BetWagers, 0, bet, PhantomWagerWithVig(game_, bet, result), tally);
      if (result.Raw() > 0) {
        Put(game_.BetWins, 1, bet, result, tally);
      } else {
        Put(game_.BetLosses, 2, bet, -result, tally);
      }
    } catch (const std::exception&) {
      // A payoff that cannot be figured (a denominator of 0 from a strange file) counts for
      // nothing.
    }
  }

 private:
  void Put(ResultTable& table, std::size_t kind, int bet, MoneyAmount amount,
           const DecisionTally& tally) {
    Rows& rows = RowsOf(table, kPhantom, bet);
    game_.Earlier[kPhantom].Add(bet);
    AddAmounts(rows, MoneyAmount::FromWhole(tally.count), amount.Times(tally.count), amount);
    std::uint32_t& latest = latest_[kind][static_cast<std::size_t>(bet)];
    if (tally.last < latest) return;
    latest = tally.last;
    rows[kResultLast] = amount;
    if (tally.last == game_.RollSerial) {
      MarkLastRoll(rows, amount);
      game_.LastRoll[kPhantom].Add(bet);
    }
  }

  Game& game_;
  std::array<std::array<std::uint32_t, kBetCount + 1>, 3> latest_{};
};

// What rolls of one kind have done to those bets.
void SettleRolls(Settlement& settlement, Judgement roll, const BetSet& bets,
                 const DecisionTally& tally) {
  const PointState state = PointStateOf(roll.prev_point, TotalOf(roll.pair));
  const RollDecisionList& decisions = kRollTable[state][static_cast<std::size_t>(roll.pair)];
  (decisions.bets & bets).ForEach([&](int bet) {
    const int mode = decisions.ModeOf(bet);
    if (mode != kTravels) settlement.Add(roll, bet, mode, tally);
  });
}

void SettleByDice(Settlement& settlement, const PhantomLedger& ledger) {
  for (std::size_t set = 0; set < ledger.rolls.count; ++set) {
    const BetSet& working = ledger.rolls.sets[set];
    for (int pair = 0; pair < kDicePairs; ++pair) {
      DecisionTally all;  // whatever the point was
      for (int point = 0; point <= 12; ++point) {
        const DecisionTally& tally =
            ledger.rolls
                .tallies[set][static_cast<std::size_t>(point)][static_cast<std::size_t>(pair)];
        if (tally.count == 0) continue;
        SettleRolls(settlement, {pair, point}, working & kLineBets, tally);
        all.count += tally.count;
        all.last = std::max(all.last, tally.last);
      }
      if (all.count != 0) SettleRolls(settlement, {pair, 0}, working & kPointlessBets, all);
    }
  }
}

constexpr int kSevenPair = PairOfDice(3, 4);  // the numbers themselves are not looked at

void SettleComeBets(Settlement& settlement, const PhantomLedger& ledger) {
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const auto& won = ledger.come_won[static_cast<std::size_t>(slot)];
    const DecisionTally both = won[3];
    const auto settle = [&](int bet, int mode, const DecisionTally& alone) {
      const auto place = static_cast<std::size_t>(bet - kComePoint);
      const Judgement roll = {kSevenPair, NumberOfSlot(slot)};
      settlement.Add(roll, bet, -mode, {ledger.come_lost[place], ledger.come_lost_last[place]});
      settlement.Add(roll, bet, mode, alone);
      settlement.Add(roll, bet, mode, both);
    };
    settle(kComePoint + slot, kWins, won[1]);
    settle(kComeOdds + slot, kOddsWin, won[2]);
  }
}

ResultTable& TableOf(Game& game, ResultKind kind) {
  switch (kind) {
    case ResultKind::kWins:
      return game.BetWins;
    case ResultKind::kLosses:
      return game.BetLosses;
    default:
      return game.BetWagers;
  }
}

bool IsComeFlagCell(ResultKind kind, int series, int bet, int row) {
  return kind == ResultKind::kWagers && series == kPhantom && row == kPhantomComeOn &&
         HasComeFlag(bet);
}

}  // namespace

void ForgetLastRoll(Game& game) {
  ForgetLastRollOf(game, kActual);
  ForgetLastRollOf(game, kPhantom);
}

std::size_t NumberOfWorkingSet(Game& game, const BetSet& working) {
  WorkingSetTallies& rolls = game.Ledger.rolls;
  for (std::size_t set = 0; set < rolls.count; ++set) {
    if (rolls.sets[set] == working) return set;
  }
  if (rolls.count == WorkingSetTallies::kMost) SettlePhantoms(game);
  rolls.sets[rolls.count] = working;
  return rolls.count++;
}

void CountComeBetsLost(Game& game, std::uint32_t bets) {
  PhantomLedger& ledger = game.Ledger;
  const std::uint32_t serial = game.RollSerial;
  // All twenty at once, without a branch, so that the compiler can do several in a vector.
  for (std::size_t bet = 0; bet < kComeBets; ++bet) {
    const std::uint32_t lost = (bets & kComeBits[bet]) != 0 ? ~0u : 0u;
    ledger.come_lost[bet] -= lost;
    ledger.come_lost_last[bet] = (ledger.come_lost_last[bet] & ~lost) | (serial & lost);
  }
}

void SettlePhantoms(Game& game) {
  PhantomLedger& ledger = game.Ledger;
  if (ledger.rolls.count == 0) return;
  Settlement settlement(game);
  SettleByDice(settlement, ledger);
  SettleComeBets(settlement, ledger);
  ledger.rolls.Clear();
  ledger.come_won = {};
  ledger.come_lost = {};
  ledger.come_lost_last = {};
}

void RecordBetResult(Game& game, int bet, MoneyAmount amount, MoneyAmount result) {
  if (result.Raw() == 0) return;
  const bool won = result.Raw() > 0;
  MoneyAmount wager = amount;
  if (IsLay(bet) && (won || game.LayVigAllBets)) {
    wager += game.LayVigPaid[static_cast<std::size_t>(bet - kLay)];
  } else if (IsBuy(bet) && (won || game.BuyVigAllBets)) {
    wager += game.BuyVigPaid[static_cast<std::size_t>(bet - kBuy)];
  }
  const auto record = [&](ResultTable& table, MoneyAmount value) {
    Rows& rows = RowsOf(table, kActual, bet);
    AddAmounts(rows, MoneyAmount(1), value, value);
    rows[kResultLast] = value;
    MarkLastRoll(rows, value);
  };
  record(game.BetWagers, wager);
  if (won) {
    record(game.BetWins, result);
  } else {
    record(game.BetLosses, -result);
  }
  game.LastRoll[kActual].Add(bet);
}

MoneyAmount ResultCell(Game& game, ResultKind kind, int series, int bet, int row) {
  if (series == kPhantom) SettlePhantoms(game);
  if (IsComeFlagCell(kind, series, bet, row)) {
    return MoneyAmount((game.Ledger.come_on & ComeBit(bet)) != 0 ? 1 : 0);
  }
  return RowsOf(TableOf(game, kind), series, bet)[static_cast<std::size_t>(row)];
}

void SetResultCell(Game& game, ResultKind kind, int series, int bet, int row, MoneyAmount value) {
  if (series == kPhantom) SettlePhantoms(game);
  if (IsComeFlagCell(kind, series, bet, row)) {
    std::uint32_t& come_on = game.Ledger.come_on;
    come_on = value.Raw() != 0 ? come_on | ComeBit(bet) : come_on & ~ComeBit(bet);
    return;
  }
  RowsOf(TableOf(game, kind), series, bet)[static_cast<std::size_t>(row)] = value;
  const bool of_last_roll = row == kResultLastRollCount || row == kResultLastRollAmount;
  std::array<BetSet, 2>& bets = IsLayoutBet(bet) && of_last_roll ? game.LastRoll : game.Earlier;
  bets[static_cast<std::size_t>(series)].Add(bet);
}

void TotalBetResults(Game& game, int first_bet, int last_bet, bool clear_first) {
  game.Earlier[kActual].Add(0);
  for (ResultTable* table : {&game.BetWagers, &game.BetWins, &game.BetLosses}) {
    Rows& total = RowsOf(*table, kActual, 0);
    for (std::size_t row = kResultCount; row < kResultRows; ++row) {
      if (clear_first) total[row] = MoneyAmount();
      for (int bet = first_bet; bet <= last_bet; ++bet) {
        total[row] += RowsOf(*table, kActual, bet)[row];
      }
    }
  }
}

void ResetBetResults(Game& game) {
  const std::uint32_t serial = game.RollSerial;
  static_cast<BetResults&>(game) = BetResults();
  game.RollSerial = serial;
}

}  // namespace feltmaster
