#include "stats/bet_results.h"

#include <array>
#include <exception>

#include "engine/payoff.h"
#include "engine/roll_table.h"
#include "stats/roll_events.h"

namespace feltmaster {
namespace {

using Rows = std::array<MoneyAmount, kResultRows>;

Rows& RowsOf(ResultTable& table, int series, int bet) {
  return table[static_cast<std::size_t>(series)][static_cast<std::size_t>(bet)];
}

// `count` decisions of the same amount, which is above 0 in all but odd rules.
void AddAmounts(Rows& rows, std::uint32_t count, MoneyAmount amount) {
  rows[kResultCount] += MoneyAmount::FromWhole(count);
  rows[kResultTotal] += amount.Times(count);
  if (amount > rows[kResultHigh]) rows[kResultHigh] = amount;
  if (amount.Raw() > 0 && (rows[kResultLow].Raw() == 0 || amount < rows[kResultLow])) {
    rows[kResultLow] = amount;
  }
}

void MarkLastRoll(Rows& rows, MoneyAmount amount) {
  rows[kResultLastRollCount] = MoneyAmount(1);
  rows[kResultLastRollAmount] = amount;
}

void ForgetLastRoll(BetResults& results, int series, int bet) {
  for (ResultTable* table : {&results.BetWagers, &results.BetWins, &results.BetLosses}) {
    Rows& rows = RowsOf(*table, series, bet);
    rows[kResultLastRollCount] = MoneyAmount();
    rows[kResultLastRollAmount] = MoneyAmount();
  }
}

// The ledger keeps its Come flags as bits by number slot.
std::uint16_t& ComeFlags(PhantomLedger& ledger, int bet) {
  return bet < kComeOdds ? ledger.come_on : ledger.come_odds_on;
}
constexpr std::uint16_t SlotBit(int slot) {
  return static_cast<std::uint16_t>(1u << slot);
}
bool HasComeFlag(int bet) {
  return bet >= kComePoint && bet < kComeOdds + kSlotCount;
}
constexpr std::uint16_t kAllSlots = (1u << kSlotCount) - 1u;

void Count(DecisionTally& tally, std::uint32_t serial) {
  ++tally.count;
  tally.last = serial;
}

// The working sets that the ledger knows; a set it has no room for settles what was counted.
void SelectWorkingSet(Game& game) {
  PhantomLedger& ledger = game.Ledger;
  const BetSet& working = game.BetState.Working();
  const auto is = [&](std::int32_t set) {
    return ledger.working_sets[static_cast<std::size_t>(set)] == working;
  };
  if (ledger.current_set >= 0 && is(ledger.current_set)) [[likely]]
    return;
  for (std::int32_t set = 0; set < ledger.set_count; ++set) {
    if (is(set)) {
      ledger.current_set = set;
      return;
    }
  }
  if (ledger.set_count == PhantomLedger::kWorkingSets) SettlePhantoms(game);
  ledger.current_set = ledger.set_count++;
  ledger.working_sets[static_cast<std::size_t>(ledger.current_set)] = working;
}

void CountComeBets(Game& game, int total) {
  PhantomLedger& ledger = game.Ledger;
  const BetSet& working = game.BetState.Working();
  const std::uint32_t serial = game.RollSerial;
  const auto decided = [&](int family, std::uint16_t flags) {
    const std::uint32_t standing = game.AllowPutBets ? kAllSlots : flags;
    return standing & working.Slice(family, kSlotCount);
  };
  const std::uint32_t come = decided(kComePoint, ledger.come_on);
  const std::uint32_t odds = decided(kComeOdds, ledger.come_odds_on);
  if (total != 7) {
    const auto slot = static_cast<std::size_t>(SlotOfNumber(total));
    if ((come >> slot & 1) != 0) Count(ledger.come[0][slot][1], serial);
    if ((odds >> slot & 1) != 0) Count(ledger.come[1][slot][1], serial);
    return;
  }
  for (std::size_t slot = 0; slot < kSlotCount; ++slot) {
    if ((come >> slot & 1) != 0) Count(ledger.come[0][slot][0], serial);
    if ((odds >> slot & 1) != 0) Count(ledger.come[1][slot][0], serial);
  }
}

void CountLine(Game& game, int total) {
  PhantomLedger& ledger = game.Ledger;
  const PointState state = PointStateOf(game.PrevPoint, total);
  const bool won = total == 7 ? state == kComeOutRoll : state == kPointRolled;
  if (!won && total != 7) return;
  const int slot = state == kComeOutRoll ? kSlotCount : SlotOfNumber(game.PrevPoint);
  if (game.BetState.Works(kPassLine)) {
    Count(ledger.pass_line[static_cast<std::size_t>(slot)][won], game.RollSerial);
  }
  if (state != kComeOutRoll && game.BetState.Works(kPassOdds)) {
    Count(ledger.pass_odds[static_cast<std::size_t>(slot)][won], game.RollSerial);
  }
}

// The bets that the ledger counts by dice and working set: all but the Come bets and the line.
constexpr BetSet kCountedByDice = [] {
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
    AddAmounts(rows, tally.count, amount);
    std::uint32_t& latest = latest_[kind][static_cast<std::size_t>(bet)];
    if (tally.last < latest) return;
    latest = tally.last;
    rows[kResultLast] = amount;
    if (tally.last == game_.RollSerial) {
      MarkLastRoll(rows, amount);
      game_.PhantomLastRoll.Add(bet);
    }
  }

  Game& game_;
  std::array<std::array<std::uint32_t, kBetCount + 1>, 3> latest_{};
};

void SettleByDice(Settlement& settlement, const PhantomLedger& ledger) {
  for (std::int32_t set = 0; set < ledger.set_count; ++set) {
    const auto& rolls = ledger.rolls[static_cast<std::size_t>(set)];
    const BetSet bets = ledger.working_sets[static_cast<std::size_t>(set)] & kCountedByDice;
    for (int pair = 0; pair < kDicePairs; ++pair) {
      const DecisionTally& tally = rolls[static_cast<std::size_t>(pair)];
      if (tally.count == 0) continue;
      // The state of the point decides the line alone, which is not counted here.
      const RollDecisionList& decisions = kRollTable[kComeOutRoll][static_cast<std::size_t>(pair)];
      (decisions.bets & bets).ForEach([&](int bet) {
        const int mode = decisions.ModeOf(bet);
        if (mode != kTravels) settlement.Add({pair, 0}, bet, mode, tally);
      });
    }
  }
}

void SettleComeAndLine(Settlement& settlement, const PhantomLedger& ledger) {
  constexpr int kSevenPair = PairOfDice(3, 4);
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const auto s = static_cast<std::size_t>(slot);
    const Judgement judgement = {kSevenPair, NumberOfSlot(slot)};
    const auto add = [&](const std::array<DecisionTally, 2>& tallies, int bet, int mode) {
      settlement.Add(judgement, bet, -mode, tallies[0]);
      settlement.Add(judgement, bet, mode, tallies[1]);
    };
    add(ledger.come[0][s], kComePoint + slot, kWins);
    add(ledger.come[1][s], kComeOdds + slot, kOddsWin);
    add(ledger.pass_line[s], kPassLine, kWins);
    add(ledger.pass_odds[s], kPassOdds, kOddsWin);
  }
  settlement.Add({kSevenPair, 0}, kPassLine, kWins, ledger.pass_line[kSlotCount][1]);
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

void BeginRollResults(Game& game) {
  ++game.RollSerial;
  game.DecidedLastRoll.ForEach([&](int bet) { ForgetLastRoll(game, kActual, bet); });
  game.DecidedLastRoll.Clear();
  if (!game.PhantomLastRoll.Empty()) {
    game.PhantomLastRoll.ForEach([&](int bet) { ForgetLastRoll(game, kPhantom, bet); });
    game.PhantomLastRoll.Clear();
  }

  PhantomLedger& ledger = game.Ledger;
  if (game.DiceTotal == 7) {
    ledger.come_on = 0;
    ledger.come_odds_on = 0;
    return;
  }
  const std::uint16_t bit = SlotBit(SlotOfNumber(game.DiceTotal));
  for (std::uint16_t* flags : {&ledger.come_on, &ledger.come_odds_on}) {
    *flags = static_cast<std::uint16_t>(game.PrevPoint > 0 ? *flags | bit : *flags & ~bit);
  }
}

void RecordPhantomDecisions(Game& game) {
  const int pair = PairOfDice(game.Die1, game.Die2);
  const int total = TotalOf(pair);
  SelectWorkingSet(game);
  PhantomLedger& ledger = game.Ledger;
  Count(ledger.rolls[static_cast<std::size_t>(ledger.current_set)][static_cast<std::size_t>(pair)],
        game.RollSerial);
  ledger.any = true;
  CountComeBets(game, total);
  CountLine(game, total);
}

void SettlePhantoms(Game& game) {
  PhantomLedger& ledger = game.Ledger;
  if (!ledger.any) return;
  Settlement settlement(game);
  SettleByDice(settlement, ledger);
  SettleComeAndLine(settlement, ledger);
  const std::uint16_t come_on = ledger.come_on;
  const std::uint16_t come_odds_on = ledger.come_odds_on;
  ledger = PhantomLedger();
  ledger.come_on = come_on;
  ledger.come_odds_on = come_odds_on;
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
    AddAmounts(rows, 1, value);
    rows[kResultLast] = value;
    MarkLastRoll(rows, value);
  };
  record(game.BetWagers, wager);
  if (won) {
    record(game.BetWins, result);
  } else {
    record(game.BetLosses, -result);
  }
  game.DecidedLastRoll.Add(bet);
}

MoneyAmount ResultCell(Game& game, ResultKind kind, int series, int bet, int row) {
  if (series == kPhantom) SettlePhantoms(game);
  if (IsComeFlagCell(kind, series, bet, row)) {
    const int slot = (bet - kComePoint) % kSlotCount;
    return MoneyAmount((ComeFlags(game.Ledger, bet) & SlotBit(slot)) != 0 ? 1 : 0);
  }
  return RowsOf(TableOf(game, kind), series, bet)[static_cast<std::size_t>(row)];
}

void SetResultCell(Game& game, ResultKind kind, int series, int bet, int row, MoneyAmount value) {
  if (series == kPhantom) SettlePhantoms(game);
  if (IsComeFlagCell(kind, series, bet, row)) {
    std::uint16_t& flags = ComeFlags(game.Ledger, bet);
    const std::uint16_t bit = SlotBit((bet - kComePoint) % kSlotCount);
    flags = static_cast<std::uint16_t>(value.Raw() != 0 ? flags | bit : flags & ~bit);
    return;
  }
  RowsOf(TableOf(game, kind), series, bet)[static_cast<std::size_t>(row)] = value;
  if (IsLayoutBet(bet) && (row == kResultLastRollCount || row == kResultLastRollAmount)) {
    (series == kPhantom ? game.PhantomLastRoll : game.DecidedLastRoll).Add(bet);
  }
}

void TotalBetResults(Game& game, int first_bet, int last_bet, bool clear_first) {
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
