#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "base/money.h"
#include "game/bet_sets.h"

namespace feltmaster {

inline constexpr int kRollCategories = 91;  // RollCategory 0 to 90
inline constexpr int kGaps = 201;           // lengths 0 to 200
// Every pair of dice files the same number of events, so that no roll depends on how many there
// are; those that are none go to a row behind the last category, which nobody reads.
inline constexpr int kNoEvent = kRollCategories;
inline constexpr int kFiledRows = kRollCategories + 1;
inline constexpr std::size_t kMostEvents = 11;  // of one pair of dice

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

// Rolls whose events are not filed yet, by their dice. A roll is noted in no time; the events of
// many rolls are filed together, when somebody reads them or there is no more room.
struct RollNotes {
  static constexpr std::uint32_t kRoom = 1024;
  std::array<std::uint8_t, kRoom> pairs{};
  std::uint32_t count = 0;
};

// What is filed of each event: the clock at its last hit, and behind it how often it came after so
// many rolls. "Rolls since" is not counted up on every roll: it is the difference between the clock
// of the rolls and that mark. Differences are taken modulo 2^32, so any value that a file may bring
// is kept exactly. A short game of a batch ends before anything is filed, and the next one then
// begins without copying a table of zeroes.
class EventFile {
 public:
  static constexpr std::size_t kRowCells = 1 + std::size_t{kGaps};
  static constexpr std::size_t RowOf(int category) {
    return static_cast<std::size_t>(category) * kRowCells;
  }
  static constexpr std::size_t GapsBegin(int category) { return RowOf(category) + 1; }

  EventFile() = default;
  EventFile(const EventFile&) = default;
  EventFile& operator=(const EventFile& other) {
    if (written_ || other.written_) cells_ = other.cells_;
    written_ = other.written_;
    return *this;
  }

  std::uint32_t Hit(int category) const {
    return static_cast<std::uint32_t>(cells_[RowOf(category)]);
  }
  std::span<const std::int32_t, kGaps> Gaps(int category) const {
    return std::span<const std::int32_t, kGaps>(&cells_[GapsBegin(category)], kGaps);
  }
  // The rows, to write.
  std::int32_t* Cells() {
    written_ = true;
    return cells_.data();
  }

 private:
  std::array<std::int32_t, kFiledRows * kRowCells> cells_{};
  bool written_ = false;  // some cell may not be 0
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

// Read the arrays that players know (RollsSinceLast, RollGapTable, ScriptRollsSince, ...) through
// stats/roll_statistics.h, which files the rolls noted so far.
struct RollStatistics {
  std::uint32_t RollClock = 0;                              // rolls counted in this game's events
  std::uint32_t RollClockAtStart = 0;                       // RollClock when the present roll began
  std::array<std::int32_t, kRollCategories> EventCounts{};  // RollCounts less those by PairRolls
  RollNotes Unfiled;
  EventFile Filed;
  std::array<ScriptEvent, kRollCategories> ScriptEvents{};
  std::int32_t RollsSeenByScript = 0;  // RollsSinceLast(0)
  std::int32_t LastCountedRoll = -1;   // the dice of the last counted roll, 6 * (d1 - 1) + d2 - 1
  // The marks of its events as they were before it, once it is filed; in the order of filing.
  std::array<std::uint32_t, kMostEvents> HitsBefore{};
  std::array<std::int32_t, 36> PairRolls{};  // rolls counted, by their dice
  BitSet<128> ScriptResets;                  // events that a script has reset since the roll began
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

using ResultRows = std::array<MoneyAmount, kResultRows>;
using ResultTable = std::array<std::array<ResultRows, 101>, 2>;  // by series and bet

// The tables with the bets that they hold anything of, by series. A new game takes over only the
// rows of those bets and of those that the game before it has written.
struct ResultTables {
  ResultTable BetWagers{};
  ResultTable BetWins{};
  ResultTable BetLosses{};
  std::array<BetSet, 2> LastRoll;  // bets with rows 6 and 7 set
  std::array<BetSet, 2> Earlier;   // bets that may have other rows

  BetSet Written(std::size_t series) const { return LastRoll[series] | Earlier[series]; }

  ResultTables() = default;
  ResultTables(const ResultTables&) = default;
  ResultTables& operator=(const ResultTables& other) {
    for (std::size_t series = 0; series < LastRoll.size(); ++series) {
      (Written(series) | other.Written(series)).ForEach([&](int bet) {
        const auto cell = static_cast<std::size_t>(bet);
        BetWagers[series][cell] = other.BetWagers[series][cell];
        BetWins[series][cell] = other.BetWins[series][cell];
        BetLosses[series][cell] = other.BetLosses[series][cell];
      });
    }
    LastRoll = other.LastRoll;
    Earlier = other.Earlier;
    return *this;
  }
};

// How often a phantom decision fell, and in which roll it last did.
struct DecisionTally {
  std::uint32_t count = 0;
  std::uint32_t last = 0;  // serial of the roll
};

// Rolls by the bets that worked in them, the point and the dice. Sets that are not used yet have
// empty tallies, which are not copied from one game to the next.
struct WorkingSetTallies {
  static constexpr std::size_t kMost = 8;
  using Tallies = std::array<std::array<DecisionTally, 36>, 13>;  // [point, 0 for none][pair]

  std::array<BetSet, kMost> sets{};
  std::array<Tallies, kMost> tallies{};
  std::size_t count = 0;

  WorkingSetTallies() = default;
  WorkingSetTallies(const WorkingSetTallies&) = default;
  WorkingSetTallies& operator=(const WorkingSetTallies& other) {
    std::copy_n(other.tallies.begin(), std::max(count, other.count), tallies.begin());
    sets = other.sets;
    count = other.count;
    return *this;
  }
  void Clear() {
    std::fill_n(tallies.begin(), count, Tallies{});
    count = 0;
  }
};

// The phantom one-dollar wagers that have not been written into the tables yet. While the payoffs
// stand, what a roll does to a phantom bet depends only on the dice, the point and the set of
// working bets, so it is enough to count rolls by those three. Come bets, which stand or not, are
// tallied by themselves.
struct PhantomLedger {
  WorkingSetTallies rolls;
  // The set of the last roll on the come-out, and of the last one with a point, where rolls.count
  // is above it.
  std::array<std::size_t, 2> last_set{};
  // The rolls of each number that won the Come bet on it (1), its odds (2), both (3), or none.
  std::array<std::array<DecisionTally, 4>, kSlotCount> come_won{};
  // The sevens that took each of them, from kComePoint on: how many, and the serial of the last.
  std::array<std::uint32_t, 2 * kSlotCount> come_lost{};
  std::array<std::uint32_t, 2 * kSlotCount> come_lost_last{};
  std::uint32_t come_on = 0;  // PhantomComeOn, a bit a bet from kComePoint on
};

// Read the phantom series through stats/bet_results.h, which settles the ledger first.
struct BetResults : ResultTables {
  PhantomLedger Ledger;
  std::uint32_t RollSerial = 0;  // counts every start of a roll, also of one that is not completed
};

}  // namespace feltmaster
