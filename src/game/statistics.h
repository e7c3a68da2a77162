#pragma once

#include <array>
#include <cstdint>

#include "base/money.h"
#include "game/bet_sets.h"

namespace feltmaster {

inline constexpr int kRollCategories = 91;  // RollCategory 0 to 90
inline constexpr int kGaps = 201;           // lengths 0 to 200
// Every pair of dice files the same number of events, so that no roll depends on how many there
// are; those that are none go to a row behind the last category, which nobody reads.
inline constexpr int kNoEvent = kRollCategories;
inline constexpr int kFiledRows = kRollCategories + 1;

// The counters of hands, passes and points, by their number in the game file.
enum GameCounter : std::int32_t {
  kRollsThisHand = 0,
  kPassesThisHand = 1,
  kHandsCompleted = 2,
  kLongestHandRolls = 3,
  kMostPassesInHand = 4,
  kTotalHandRolls = 5,
  kTotalHandPasses = 6,
  kPointsEstablished = 7,
  kPassesOnPoint = 8,
  kPassesOnComeOut = 9,
  kTotalPasses = 10,
  kSevenOuts = 11,
  kTotalMisses = 13,
  kComeOutRolls = 14,
  kMissesThisHand = 15,
  kMostMissesInHand = 16,
  kLastHandRolls = 17,
  kLastHandPasses = 18,
  kLastHandMisses = 19,
};
inline constexpr int kGameCounters = 20;

// One roll event. "Rolls since" is not counted up on every roll: it is the difference between the
// clock of the rolls and the mark left by the last hit. Differences are taken modulo 2^32, so any
// value that a file may bring is kept exactly.
struct RollEvent {
  std::uint32_t hit = 0;         // clock at the last hit
  std::int32_t count = 0;        // RollCounts less the rolls of its pairs of dice (PairRolls)
  std::uint32_t hit_before = 0;  // clock at the hit before the last
};

// What a script that resets its counters of an event makes them differ from the event's own. A
// roll writes none of it.
struct ScriptEvent {
  std::int32_t count_base = 0;  // what the event had counted when its script count was 0
  std::int32_t mark_count = 0;  // as long as the event has counted no more than this ...
  std::uint32_t mark = 0;       // ... a script takes this for the clock at the last hit
  std::int32_t count_seen = 0;  // for an event of ScriptResets, as they were when
  std::uint32_t hit_seen = 0;   // the present roll began
};

// Read the glossary's arrays (RollsSinceLast, ScriptRollsSince, ...) through
// stats/roll_statistics.h.
struct RollStatistics {
  std::uint32_t RollClock = 0;         // rolls counted in this game's events
  std::uint32_t RollClockAtStart = 0;  // RollClock when the present roll began
  std::array<RollEvent, kFiledRows> Events{};
  std::array<ScriptEvent, kRollCategories> ScriptEvents{};
  std::int32_t RollsSeenByScript = 0;  // RollsSinceLast(0)
  std::int32_t LastCountedRoll = -1;   // the dice of the last counted roll, 6 * (d1 - 1) + d2 - 1
  std::array<std::int32_t, 36> PairRolls{};  // rolls counted, by their dice
  BitSet<128> ScriptResets;                  // events that a script has reset since the roll began
  std::array<std::array<std::int32_t, kGaps>, kFiledRows> RollGapTable{};
  std::array<std::int32_t, kGameCounters> GameCounters{};
};

enum ResultRow : std::int32_t {
  kPhantomComeOn = 0,  // of the phantom wagers of bets 11 to 30
  kResultCount = 1,
  kResultTotal = 2,
  kResultHigh = 3,
  kResultLow = 4,
  kResultLast = 5,
  kResultLastRollCount = 6,
  kResultLastRollAmount = 7,
};
inline constexpr int kResultRows = 8;
enum ResultSeries : std::int32_t { kPhantom = 0, kActual = 1 };

using ResultTable = std::array<std::array<std::array<MoneyAmount, kResultRows>, 101>, 2>;

// How often a phantom decision fell, and in which roll it last did.
struct DecisionTally {
  std::uint32_t count = 0;
  std::uint32_t last = 0;  // serial of the roll
};

// The phantom one-dollar wagers that have not been written into the tables yet. While the payoffs
// stand, what a roll does to a phantom bet depends only on the dice, the point and the set of
// working bets, so it is enough to count rolls by those three. Come bets, which stand or not, are
// tallied by themselves.
struct PhantomLedger {
  static constexpr int kWorkingSets = 8;
  std::array<BetSet, kWorkingSets> working_sets{};
  // [working set][slot of the point, 10 on the come-out][pair of dice]
  std::array<std::array<std::array<DecisionTally, 36>, kSlotCount + 1>, kWorkingSets> rolls{};
  std::int32_t set_count = 0;
  // The set of the last roll on the come-out, and of the last one with a point; -1 for none.
  std::array<std::int32_t, 2> last_set = {-1, -1};
  // The rolls of each number that won the Come bet on it (1), its odds (2), both (3), or none.
  std::array<std::array<DecisionTally, 4>, kSlotCount> come_won{};
  // The sevens that took each of them, from kComePoint on: how many, and the serial of the last.
  std::array<std::uint32_t, 2 * kSlotCount> come_lost{};
  std::array<std::uint32_t, 2 * kSlotCount> come_lost_last{};
  std::uint32_t come_on = 0;  // PhantomComeOn, a bit a bet from kComePoint on
};

// Read the phantom series through stats/bet_results.h, which settles the ledger first.
struct BetResults {
  ResultTable BetWagers{};
  ResultTable BetWins{};
  ResultTable BetLosses{};
  PhantomLedger Ledger;
  std::uint32_t RollSerial = 0;  // counts every start of a roll, also of one that is not completed
  BetSet DecidedLastRoll;        // bets with rows 6 and 7 of the actual series set
  BetSet PhantomLastRoll;        // the same of the phantom series, as far as settled
};

}  // namespace feltmaster
