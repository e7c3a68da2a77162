#include "stats/roll_statistics.h"

#include <algorithm>
#include <bit>
#include <utility>

#include "stats/roll_events.h"

namespace feltmaster {
namespace {

constexpr int kGapLimit = kGaps - 1;  // gaps of so many rolls and more share a cell

RollEvent& Event(Game& game, int category) {
  return game.Events[static_cast<std::size_t>(category)];
}
const RollEvent& Event(const Game& game, int category) {
  return game.Events[static_cast<std::size_t>(category)];
}

// A game ends long before a counter is full, but a file may bring a full one: it then wraps.
void Grow(std::int32_t& counter, std::int32_t by = 1) {
  counter = static_cast<std::int32_t>(static_cast<std::uint32_t>(counter) +
                                      static_cast<std::uint32_t>(by));
}

void HitRollCategory(Game& game, int category, std::uint32_t clock) {
  RollEvent& event = Event(game, category);
  const std::uint32_t gap = clock - event.hit;
  event.hit_before = event.hit;
  event.hit = clock;
  auto& gaps = game.RollGapTable[static_cast<std::size_t>(category)];
  if (gap <= kGapLimit) [[likely]] {
    Grow(gaps[gap]);
  } else {
    Grow(gaps[kGapLimit]);
    Grow(gaps[0], static_cast<std::int32_t>(gap));
  }
}

std::int32_t& Counter(Game& game, GameCounter counter) {
  return game.GameCounters[static_cast<std::size_t>(counter)];
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

bool HitByThisRoll(const Game& game, int category) {
  if (game.RollClock == game.RollClockAtStart) return false;
  if (category <= kLastPlainCategory) return true;
  if (game.LastCountedRoll < 0) return false;
  const PairEvents& events = kPairEvents[static_cast<std::size_t>(game.LastCountedRoll)];
  const auto* const end = events.event.begin() + events.count;
  return std::find(events.event.begin(), end, category) != end;
}

// The clock at the last hit, when the event had counted so many and was last hit at that time.
std::uint32_t HitForScript(const Game& game, int category, std::int32_t count, std::uint32_t hit) {
  const ScriptEvent& script = ScriptPart(game, category);
  return category <= kLastPlainCategory || count == script.mark_count ? script.mark : hit;
}
std::uint32_t ScriptHit(const Game& game, int category) {
  return HitForScript(game, category, CountFollowed(game, category), Event(game, category).hit);
}
std::uint32_t ScriptHitSeen(const Game& game, int category) {
  if (game.ScriptResets.Has(category)) return ScriptPart(game, category).hit_seen;
  if (!HitByThisRoll(game, category)) return ScriptHit(game, category);
  return HitForScript(game, category, Less(CountFollowed(game, category), 1),
                      Event(game, category).hit_before);
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

void RecordRollStatistics(Game& game) {
  if (game.DiceTotal != 7 && game.Point == 0) {
    game.Point = game.DiceTotal;
    Grow(Counter(game, kPointsEstablished));
  } else if (game.DiceTotal == 7 || game.DiceTotal == game.Point) {
    game.Point = 0;
  }
  Grow(Event(game, 0).count);
  Grow(Counter(game, kRollsThisHand));
  if (game.PrevPoint == 0) Grow(Counter(game, kComeOutRolls));
  const std::uint32_t clock = ++game.RollClock;

  const int pair = PairOfDice(game.Die1, game.Die2);
  const PairEvents& events = kPairEvents[static_cast<std::size_t>(pair)];
#pragma GCC unroll 11
  for (const std::uint8_t category : events.event) HitRollCategory(game, category, clock);
  Grow(game.PairRolls[static_cast<std::size_t>(pair)]);
  game.LastCountedRoll = pair;
}

void ResetRollStatistics(Game& game) {
  static_cast<RollStatistics&>(game) = RollStatistics();
}

void HandPassed(Game& game) {
  Grow(Counter(game, kPassesThisHand));
  Grow(Counter(game, kTotalPasses));
  Grow(Counter(game, game.PrevPoint > 0 ? kPassesOnPoint : kPassesOnComeOut));
}

void HandMissed(Game& game) {
  Grow(Counter(game, kMissesThisHand));
  Grow(Counter(game, kTotalMisses));
  Grow(Counter(game, kSevenOuts));
  Grow(Counter(game, kHandsCompleted));
  KeepLarger(Counter(game, kLongestHandRolls), Counter(game, kRollsThisHand));
  KeepLarger(Counter(game, kMostPassesInHand), Counter(game, kPassesThisHand));
  Grow(Counter(game, kTotalHandRolls), Counter(game, kRollsThisHand));
  Grow(Counter(game, kTotalHandPasses), Counter(game, kPassesThisHand));
  KeepLarger(Counter(game, kMostMissesInHand), Counter(game, kMissesThisHand));
  Counter(game, kLastHandRolls) = std::exchange(Counter(game, kRollsThisHand), 0);
  Counter(game, kLastHandPasses) = std::exchange(Counter(game, kPassesThisHand), 0);
  Counter(game, kLastHandMisses) = std::exchange(Counter(game, kMissesThisHand), 0);
}

void ResetScriptCounters(Game& game, int category) {
  SetScriptRollCounts(game, category, 0);
  SetScriptRollCountsSeen(game, category, 0);
  SetScriptRollsSince(game, category, 0);
  SetScriptRollsSinceSeen(game, category, 0);
}

std::int32_t RollCounts(const Game& game, int category) {
  std::int32_t count = Event(game, category).count;
  std::uint64_t pairs = kPairsOfEvent[static_cast<std::size_t>(category)];
  for (; pairs != 0; pairs &= pairs - 1) {
    Grow(count, game.PairRolls[static_cast<std::size_t>(std::countr_zero(pairs))]);
  }
  return count;
}

std::int32_t RollsSinceLast(const Game& game, int category) {
  if (category == 0) return game.RollsSeenByScript;
  return static_cast<std::int32_t>(game.RollClock - Event(game, category).hit);
}

std::int32_t ScriptRollCounts(const Game& game, int category) {
  return Less(CountFollowed(game, category), ScriptPart(game, category).count_base);
}

std::int32_t ScriptRollCountsSeen(const Game& game, int category) {
  if (game.ScriptResets.Has(category)) return ScriptPart(game, category).count_seen;
  return Less(ScriptRollCounts(game, category), HitByThisRoll(game, category) ? 1 : 0);
}

std::int32_t ScriptRollsSince(const Game& game, int category) {
  return static_cast<std::int32_t>(ClockOf(game, category) - ScriptHit(game, category));
}

std::int32_t ScriptRollsSinceSeen(const Game& game, int category) {
  return static_cast<std::int32_t>(ClockAtStartOf(game, category) - ScriptHitSeen(game, category));
}

void SetRollCounts(Game& game, int category, std::int32_t value) {
  ScriptEvent& script = HoldScriptCounters(game, category);
  const std::int32_t before = CountFollowed(game, category);
  Grow(Event(game, category).count, Less(value, RollCounts(game, category)));
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
  Event(game, category).hit = game.RollClock - static_cast<std::uint32_t>(value);
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

float ProbablePercent(const Game& game, int category, bool skewed) {
  if (category < 2 || category > kDie2Events + 6) return 0;
  const int ways = kEventWays[static_cast<std::size_t>(category)];
  if (!skewed) return static_cast<float>((ways * 100 * 100 + 18) / 36) / 100.0f;
  return static_cast<float>(WeightOfEvent(game, category)) / 1000.0f;
}

}  // namespace feltmaster
