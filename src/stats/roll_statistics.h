#pragma once

#include <cstdint>
#include <span>

#include "game/game.h"
#include "stats/roll_events.h"

namespace feltmaster {

// A game ends long before a counter is full, but a file may bring a full one: it then wraps.
inline void Grow(std::int32_t& counter, std::int32_t by = 1) {
  counter = static_cast<std::int32_t>(static_cast<std::uint32_t>(counter) +
                                      static_cast<std::uint32_t>(by));
}
inline std::int32_t& CounterOf(Game& game, GameCounter counter) {
  return game.GameCounters[static_cast<std::size_t>(counter)];
}

// Files the events of the rolls noted so far, of which there must be one at least.
void FileNotes(RollStatistics& statistics);

// Counts the roll on the table, whose dice make `pair`, and notes them.
inline void RecordRollStatistics(Game& game, int pair) {
  Grow(game.EventCounts[0]);
  Grow(CounterOf(game, kRollsThisHand));
  if (game.PrevPoint == 0) Grow(CounterOf(game, kComeOutRolls));
  if (game.Unfiled.count == RollNotes::kRoom) [[unlikely]]
    FileNotes(game);
  game.Unfiled.pairs[game.Unfiled.count++] = static_cast<std::uint8_t>(pair);
  ++game.RollClock;
  Grow(game.PairRolls[static_cast<std::size_t>(pair)]);
  game.LastCountedRoll = pair;
}
// At the start of a roll: the script's counters are seen as they stand.
inline void BeginRollStatistics(Game& game) {
  game.RollClockAtStart = game.RollClock;
  game.ScriptResets.Clear();
}
// At its end.
inline void FinishRollStatistics(Game& game) {
  game.RollsSeenByScript = game.EventCounts[0];
}
void ResetRollStatistics(Game& game);

// The line is decided, or the point is set. The roll has been counted.
void HandPassed(Game& game);
void HandMissed(Game& game);
inline void PointEstablished(Game& game) {
  game.Point = game.DiceTotal;
  Grow(CounterOf(game, kPointsEstablished));
}

// What an Auto-Bet script resets for one event.
void ResetScriptCounters(Game& game, int category);

// The counters by their names. category is 0 to 90. The setters write one cell as it is.
std::int32_t RollCounts(const Game& game, int category);
inline std::int32_t RollsMade(const Game& game) {  // RollCounts(0)
  return game.EventCounts[0];
}
std::int32_t RollsSinceLast(Game& game, int category);
// Whether RollsSinceLast is 0.
bool JustRolled(Game& game, int category);
std::int32_t ScriptRollCounts(const Game& game, int category);
std::int32_t ScriptRollCountsSeen(const Game& game, int category);
std::int32_t ScriptRollsSince(Game& game, int category);
std::int32_t ScriptRollsSinceSeen(Game& game, int category);
void SetRollCounts(Game& game, int category, std::int32_t value);
void SetRollsSinceLast(Game& game, int category, std::int32_t value);
void SetScriptRollCounts(Game& game, int category, std::int32_t value);
void SetScriptRollCountsSeen(Game& game, int category, std::int32_t value);
void SetScriptRollsSince(Game& game, int category, std::int32_t value);
void SetScriptRollsSinceSeen(Game& game, int category, std::int32_t value);

// A row of RollGapTable: how often the event came after so many rolls. Cell 200 counts all gaps of
// 200 rolls and more, cell 0 sums those above.
std::span<const std::int32_t, kGaps> GapsOf(Game& game, int category);
std::int32_t& GapCell(Game& game, int category, int gap);

// The probable percentage of an event: from true dice rounded to two places, or from the weights of
// the probability table.
float ProbablePercent(const Game& game, int category, bool skewed);

}  // namespace feltmaster
