#pragma once

#include <cstdint>
#include <span>

#include "game/game.h"

namespace feltmaster {

// Counts the roll on the table: the point's own counter, the events of the dice, the gaps.
void RecordRollStatistics(Game& game);
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

void HandPassed(Game& game);
void HandMissed(Game& game);

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
