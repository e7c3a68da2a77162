#include "stats/roll_statistics.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "stats/roll_events.h"

namespace feltmaster {
namespace {

constexpr std::size_t kGapLimit = kGaps - 1;  // gaps of so many rolls and more share a cell

// Where the gaps of the events of each pair of dice begin, in the order of kPairEvents.
using EventRows = std::array<std::uint16_t, kMostEvents>;
constexpr std::array<EventRows, kDicePairs> kEventRows = [] {
  static_assert(EventFile::GapsBegin(kNoEvent) <= 0xFFFF);
  std::array<EventRows, kDicePairs> rows{};
  for (std::size_t pair = 0; pair < kDicePairs; ++pair) {
    for (std::size_t i = 0; i < kMostEvents; ++i) {
      rows[pair][i] = static_cast<std::uint16_t>(EventFile::GapsBegin(kPairEvents[pair].event[i]));
    }
  }
  return rows;
}();

// One event of a roll. The mark of its last hit stands before its gaps.
void FileEvent(std::int32_t* gaps, std::uint32_t clock) {
  std::int32_t& mark = *(gaps - 1);
  const std::uint32_t gap = clock - static_cast<std::uint32_t>(mark);
  mark = static_cast<std::int32_t>(clock);
  if (gap <= kGapLimit) [[likely]] {
    Grow(gaps[gap]);
  } else {
    Grow(gaps[kGapLimit]);
    Grow(gaps[0], static_cast<std::int32_t>(gap));
  }
}

void FileRolls(RollStatistics& statistics) {
  if (statistics.Unfiled.count != 0) FileNotes(statistics);
}

void KeepLarger(std::int32_t& record, std::int32_t value) {
  if (value > record) record = value;
}

// The weights of the probability grid, in thousandths of a percent. A total t stands in row 1 of
// column t - 1, the faces of the dice in columns 12 and 13, and an ordered pair in the column of
// its total.
std::int32_t Weight(const Game& game, int row, int column) {
  return game.DiceProbability[1][static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
}
std::int32_t WeightOfTotal(const Game& game, int total) {
  return Weight(game, 1, total - 1);
}
std::int32_t WeightOfPair(const Game& game, int die1, int die2) {
  const int total = die1 + die2;
  return Weight(game, total <= 7 ? die1 + 1 : 8 - die2, total - 1);
}

std::int32_t WeightOfEvent(const Game& game, int category) {
  if (category > kDie2Events) return Weight(game, category - kDie2Events + 1, 13);
  if (category > kDie1Events) return Weight(game, category - kDie1Events + 1, 12);
  if (category >= 2 && category <= 12) return WeightOfTotal(game, category);
  std::int32_t sum = 0;
  for (const NumberGroup& group : kNumberGroups) {
    if (group.event != category) continue;
    for (int total = 2; total <= 12; ++total) {
      if ((group.totals >> total & 1) != 0) sum += WeightOfTotal(game, total);
    }
    return sum;
  }
  for (int pair = 0; pair < kDicePairs; ++pair) {
    const auto row = static_cast<std::size_t>(FirstDie(pair) - 1);
    const auto column = static_cast<std::size_t>(SecondDie(pair) - 1);
    if (kPairEvent[row][column] == category || kEitherWayEvent[row][column] == category) {
      sum += WeightOfPair(game, FirstDie(pair), SecondDie(pair));
    }
  }
  return sum;
}

// --- The counters of scripts -------------------------------------------------------------------
//
// They follow the counters of the events as far as no script has reset them. Categories 0 and 1 are
// no events of the dice: they count every roll, and their "rolls since" are plain numbers.

constexpr int kLastPlainCategory = 1;

ScriptEvent& ScriptPart(Game& game, int category) {
  return game.ScriptEvents[static_cast<std::size_t>(category)];
}
const ScriptEvent& ScriptPart(const Game& game, int category) {
  return game.ScriptEvents[static_cast<std::size_t>(category)];
}

std::int32_t Less(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) - static_cast<std::uint32_t>(b));
}

std::int32_t CountFollowed(const Game& game, int category) {
  return category == 1 ? static_cast<std::int32_t>(game.RollClock) : RollCounts(game, category);
}

// Whether an event of dice is one of the last counted roll.
bool HitByLastRoll(const Game& game, int category) {
  return game.LastCountedRoll >= 0 &&
         (kPairsOfEvent[static_cast<std::size_t>(category)] >> game.LastCountedRoll & 1) != 0;
}
bool HitByThisRoll(const Game& game, int category) {
  if (game.RollClock == game.RollClockAtStart) return false;
  return category <= kLastPlainCategory || HitByLastRoll(game, category);
}

std::uint32_t HitOf(Game& game, int category) {
  FileRolls(game);
  return game.Filed.Hit(category);
}
// Of an event of the last counted roll: the clock at the hit before it.
std::uint32_t HitBeforeLastRoll(Game& game, int category) {
  FileRolls(game);
  const PairEvents& events = kPairEvents[static_cast<std::size_t>(game.LastCountedRoll)];
  const auto* const place = std::find(events.event.begin(), events.event.end(), category);
  return game.HitsBefore[static_cast<std::size_t>(place - events.event.begin())];
}

// The clock at the last hit of an event that has counted so many; `hit` tells the event's own.
template <typename Hit>
std::uint32_t HitForScript(const Game& game, int category, std::int32_t count, Hit hit) {
  const ScriptEvent& script = ScriptPart(game, category);
  return category <= kLastPlainCategory || count == script.mark_count ? script.mark : hit();
}
std::uint32_t ScriptHit(Game& game, int category) {
  return HitForScript(game, category, CountFollowed(game, category),
                      [&] { return HitOf(game, category); });
}
std::uint32_t ScriptHitSeen(Game& game, int category) {
  if (game.ScriptResets.Has(category)) return ScriptPart(game, category).hit_seen;
  if (!HitByThisRoll(game, category)) return ScriptHit(game, category);
  return HitForScript(game, category, Less(CountFollowed(game, category), 1),
                      [&] { return HitBeforeLastRoll(game, category); });
}

std::uint32_t ClockOf(const Game& game, int category) {
  return category == 0 ? 0 : game.RollClock;
}
std::uint32_t ClockAtStartOf(const Game& game, int category) {
  return category == 0 ? 0 : game.RollClockAtStart;
}

// The counters of a script no longer follow what they have followed so far; one of them is to
// change.
ScriptEvent& HoldScriptCounters(Game& game, int category) {
  ScriptEvent& script = ScriptPart(game, category);
  script.count_seen = ScriptRollCountsSeen(game, category);
  script.hit_seen = ScriptHitSeen(game, category);
  script.mark = ScriptHit(game, category);
  script.mark_count = CountFollowed(game, category);
  game.ScriptResets.Add(category);
  return script;
}

}  // namespace

void FileNotes(RollStatistics& statistics) {
  const std::uint32_t last = std::exchange(statistics.Unfiled.count, 0) - 1;
  std::int32_t* const cells = statistics.Filed.Cells();
  std::uint32_t clock = statistics.RollClock - last;
  for (std::uint32_t roll = 0; roll < last; ++roll, ++clock) {
#pragma GCC unroll 11
    for (const std::uint16_t row : kEventRows[statistics.Unfiled.pairs[roll]]) {
      FileEvent(cells + row, clock);
    }
  }
  const EventRows& rows = kEventRows[statistics.Unfiled.pairs[last]];
  for (std::size_t i = 0; i < kMostEvents; ++i) {
    statistics.HitsBefore[i] = static_cast<std::uint32_t>(cells[rows[i] - 1]);
    FileEvent(cells + rows[i], clock);
  }
}

void ResetRollStatistics(Game& game) {
  static_cast<RollStatistics&>(game) = RollStatistics();
}

void HandPassed(Game& game) {
  game.Point = 0;
  Grow(CounterOf(game, kPassesThisHand));
  Grow(CounterOf(game, kTotalPasses));
  Grow(CounterOf(game, game.PrevPoint > 0 ? kPassesOnPoint : kPassesOnComeOut));
}

void HandMissed(Game& game) {
  game.Point = 0;
  Grow(CounterOf(game, kMissesThisHand));
  Grow(CounterOf(game, kTotalMisses));
  Grow(CounterOf(game, kSevenOuts));
  Grow(CounterOf(game, kHandsCompleted));
  KeepLarger(CounterOf(game, kLongestHandRolls), CounterOf(game, kRollsThisHand));
  KeepLarger(CounterOf(game, kMostPassesInHand), CounterOf(game, kPassesThisHand));
  Grow(CounterOf(game, kTotalHandRolls), CounterOf(game, kRollsThisHand));
  Grow(CounterOf(game, kTotalHandPasses), CounterOf(game, kPassesThisHand));
  KeepLarger(CounterOf(game, kMostMissesInHand), CounterOf(game, kMissesThisHand));
  CounterOf(game, kLastHandRolls) = std::exchange(CounterOf(game, kRollsThisHand), 0);
  CounterOf(game, kLastHandPasses) = std::exchange(CounterOf(game, kPassesThisHand), 0);
  CounterOf(game, kLastHandMisses) = std::exchange(CounterOf(game, kMissesThisHand), 0);
}

void ResetScriptCounters(Game& game, int category) {
  SetScriptRollCounts(game, category, 0);
  SetScriptRollCountsSeen(game, category, 0);
  SetScriptRollsSince(game, category, 0);
  SetScriptRollsSinceSeen(game, category, 0);
}

std::int32_t RollCounts(const Game& game, int category) {
  std::int32_t count = game.EventCounts[static_cast<std::size_t>(category)];
  std::uint64_t pairs = kPairsOfEvent[static_cast<std::size_t>(category)];
  for (; pairs != 0; pairs &= pairs - 1) {
    Grow(count, game.PairRolls[static_cast<std::size_t>(std::countr_zero(pairs))]);
  }
  return count;
}

std::int32_t RollsSinceLast(Game& game, int category) {
  if (category == 0) return game.RollsSeenByScript;
  return static_cast<std::int32_t>(game.RollClock - HitOf(game, category));
}

bool JustRolled(Game& game, int category) {
  if (category > kLastPlainCategory && game.Unfiled.count != 0) {
    // The last roll is still noted, and tells without filing. Only a file may bring a mark that
    // lies ahead of the clock.
    if (HitByLastRoll(game, category)) return true;
    if (game.Filed.Hit(category) != game.RollClock) return false;
  }
  return RollsSinceLast(game, category) == 0;
}

std::int32_t ScriptRollCounts(const Game& game, int category) {
  return Less(CountFollowed(game, category), ScriptPart(game, category).count_base);
}

std::int32_t ScriptRollCountsSeen(const Game& game, int category) {
  if (game.ScriptResets.Has(category)) return ScriptPart(game, category).count_seen;
  return Less(ScriptRollCounts(game, category), HitByThisRoll(game, category) ? 1 : 0);
}

std::int32_t ScriptRollsSince(Game& game, int category) {
  return static_cast<std::int32_t>(ClockOf(game, category) - ScriptHit(game, category));
}

std::int32_t ScriptRollsSinceSeen(Game& game, int category) {
  return static_cast<std::int32_t>(ClockAtStartOf(game, category) - ScriptHitSeen(game, category));
}

void SetRollCounts(Game& game, int category, std::int32_t value) {
  ScriptEvent& script = HoldScriptCounters(game, category);
  const std::int32_t before = CountFollowed(game, category);
  Grow(game.EventCounts[static_cast<std::size_t>(category)],
       Less(value, RollCounts(game, category)));
  const std::int32_t rise = Less(CountFollowed(game, category), before);
  Grow(script.count_base, rise);
  Grow(script.mark_count, rise);
}

void SetRollsSinceLast(Game& game, int category, std::int32_t value) {
  if (category == 0) {
    game.RollsSeenByScript = value;
    return;
  }
  HoldScriptCounters(game, category);
  FileRolls(game);
  game.Filed.Cells()[EventFile::RowOf(category)] =
      Less(static_cast<std::int32_t>(game.RollClock), value);
}

void SetScriptRollCounts(Game& game, int category, std::int32_t value) {
  HoldScriptCounters(game, category).count_base = Less(CountFollowed(game, category), value);
}

void SetScriptRollCountsSeen(Game& game, int category, std::int32_t value) {
  HoldScriptCounters(game, category).count_seen = value;
}

void SetScriptRollsSince(Game& game, int category, std::int32_t value) {
  HoldScriptCounters(game, category).mark =
      ClockOf(game, category) - static_cast<std::uint32_t>(value);
}

void SetScriptRollsSinceSeen(Game& game, int category, std::int32_t value) {
  HoldScriptCounters(game, category).hit_seen =
      ClockAtStartOf(game, category) - static_cast<std::uint32_t>(value);
}

std::span<const std::int32_t, kGaps> GapsOf(Game& game, int category) {
  FileRolls(game);
  return game.Filed.Gaps(category);
}
std::int32_t& GapCell(Game& game, int category, int gap) {
  FileRolls(game);
  return game.Filed.Cells()[EventFile::GapsBegin(category) + static_cast<std::size_t>(gap)];
}

float ProbablePercent(const Game& game, int category, bool skewed) {
  if (category < 2 || category > kDie2Events + 6) return 0;
  const int ways = kEventWays[static_cast<std::size_t>(category)];
  if (!skewed) return static_cast<float>((ways * 100 * 100 + 18) / 36) / 100.0f;
  return static_cast<float>(WeightOfEvent(game, category)) / 1000.0f;
}

}  // namespace feltmaster
