#include "stats/roll_statistics.h"

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

void HitRollCategory(Game& game, int category) {
  RollEvent& event = Event(game, category);
  Grow(event.count);
  Grow(event.script_count);
  auto& gaps = game.RollGapTable[static_cast<std::size_t>(category)];
  const std::uint32_t gap = game.RollClock - event.hit;
  if (gap <= kGapLimit) [[likely]] {
    Grow(gaps[gap]);
  } else {
    Grow(gaps[kGapLimit]);
    Grow(gaps[0], static_cast<std::int32_t>(gap));
  }
  event.hit = game.RollClock;
  event.script_hit = game.RollClock;
}

void SeeScriptCounters(RollEvent& event) {
  event.script_count_seen = event.script_count;
  event.script_hit_seen = event.script_hit;
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

}  // namespace

void BeginRollStatistics(Game& game) {
  game.RollClockAtStart = game.RollClock;
  SeeScriptCounters(Event(game, 0));
  SeeScriptCounters(Event(game, 1));
  if (game.LastCountedRoll >= 0) {
    const PairEvents& last = kPairEvents[static_cast<std::size_t>(game.LastCountedRoll)];
    for (std::size_t i = 0; i < last.count; ++i) SeeScriptCounters(Event(game, last.event[i]));
  }
  if (!game.ScriptResets.Empty()) {
    game.ScriptResets.ForEach([&](int category) { SeeScriptCounters(Event(game, category)); });
    game.ScriptResets.Clear();
  }
}

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
  Grow(Event(game, 0).script_count);
  Grow(Event(game, 1).script_count);
  ++game.RollClock;

  const int pair = PairOfDice(game.Die1, game.Die2);
  const PairEvents& events = kPairEvents[static_cast<std::size_t>(pair)];
  for (std::size_t i = 0; i < events.count; ++i) HitRollCategory(game, events.event[i]);
  game.LastCountedRoll = pair;
}

void FinishRollStatistics(Game& game) {
  game.RollsSeenByScript = Event(game, 0).count;
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
  RollEvent& event = Event(game, category);
  event.script_count = 0;
  event.script_count_seen = 0;
  SetScriptRollsSince(game, category, 0);
  SetScriptRollsSinceSeen(game, category, 0);
}

// Category 0 has no "rolls since" that runs: its cells are plain numbers.

std::int32_t RollCounts(const Game& game, int category) {
  return Event(game, category).count;
}

std::int32_t RollsSinceLast(const Game& game, int category) {
  if (category == 0) return game.RollsSeenByScript;
  return static_cast<std::int32_t>(game.RollClock - Event(game, category).hit);
}

std::int32_t ScriptRollCounts(const Game& game, int category) {
  return Event(game, category).script_count;
}

std::int32_t ScriptRollCountsSeen(const Game& game, int category) {
  return Event(game, category).script_count_seen;
}

std::int32_t ScriptRollsSince(const Game& game, int category) {
  const std::uint32_t clock = category == 0 ? 0 : game.RollClock;
  return static_cast<std::int32_t>(clock - Event(game, category).script_hit);
}

std::int32_t ScriptRollsSinceSeen(const Game& game, int category) {
  const std::uint32_t clock = category == 0 ? 0 : game.RollClockAtStart;
  return static_cast<std::int32_t>(clock - Event(game, category).script_hit_seen);
}

void SetRollCounts(Game& game, int category, std::int32_t value) {
  Event(game, category).count = value;
}

void SetRollsSinceLast(Game& game, int category, std::int32_t value) {
  if (category == 0) {
    game.RollsSeenByScript = value;
  } else {
    Event(game, category).hit = game.RollClock - static_cast<std::uint32_t>(value);
  }
}

void SetScriptRollCounts(Game& game, int category, std::int32_t value) {
  Event(game, category).script_count = value;
  game.ScriptResets.Add(category);
}

void SetScriptRollCountsSeen(Game& game, int category, std::int32_t value) {
  Event(game, category).script_count_seen = value;
  game.ScriptResets.Add(category);
}

void SetScriptRollsSince(Game& game, int category, std::int32_t value) {
  const std::uint32_t clock = category == 0 ? 0 : game.RollClock;
  Event(game, category).script_hit = clock - static_cast<std::uint32_t>(value);
  game.ScriptResets.Add(category);
}

void SetScriptRollsSinceSeen(Game& game, int category, std::int32_t value) {
  const std::uint32_t clock = category == 0 ? 0 : game.RollClockAtStart;
  Event(game, category).script_hit_seen = clock - static_cast<std::uint32_t>(value);
  game.ScriptResets.Add(category);
}

float ProbablePercent(const Game& game, int category, bool skewed) {
  if (category < 2 || category > kDie2Events + 6) return 0;
  const int ways = kEventWays[static_cast<std::size_t>(category)];
  if (!skewed) return static_cast<float>((ways * 100 * 100 + 18) / 36) / 100.0f;
  return static_cast<float>(WeightOfEvent(game, category)) / 1000.0f;
}

}  // namespace feltmaster
