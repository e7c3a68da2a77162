#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/codes.h"
#include "game/game.h"

namespace feltmaster {

// Blocks of these kinds ask for a new occurrence, and those of the others do not.
constexpr bool OpensWhen(std::int32_t kind) {
  return kind == kWhen || kind == kAndWhen || kind == kOrWhen || kind == kXorWhen;
}
constexpr bool OpensWhile(std::int32_t kind) {
  return kind == kWhile || kind == kAndWhile || kind == kOrWhile || kind == kXorWhile;
}

// A run of slots of BetAmount, or of roll events, with or without a hole in it. Empty when last is
// below first.
struct SlotRange {
  std::int16_t first = 0;
  std::int16_t last = -1;
  std::int16_t hole_first = 0;
  std::int16_t hole_last = -1;

  constexpr bool Empty() const { return last < first; }
  constexpr bool IsOneSlot() const { return first == last && Has(first); }
  constexpr bool Has(int slot) const {
    return slot >= first && slot <= last && !(slot >= hole_first && slot <= hole_last);
  }
  template <typename Function>
  constexpr void ForEach(Function&& function) const {
    for (int slot = first; slot <= last; ++slot) {
      if (slot < hole_first || slot > hole_last) function(slot);
    }
  }
};

enum class SelectionForm : std::uint8_t {
  kNothing,  // a code that names no slots
  kOne,
  kAny,
  kAll,
  kTotal,
  kAverage,  // the moving average of the bankroll; no slot
};

enum class SelectionPlace : std::uint8_t {
  kFixed,
  kStackReference,  // the Chip-Stack whose number `range.first` holds
  kOnPoint,         // the bet of the family that begins at `range.first` on the point
};

// What a code of a script line names, as far as it is known before the script runs.
struct Selection {
  SelectionForm form = SelectionForm::kNothing;
  SelectionPlace place = SelectionPlace::kFixed;
  SlotRange range;
  BetSet bets;  // a fixed range of bets as a set; empty for Chip-Stacks
  std::int32_t average_rolls = 0;
};

// The slots meant now; empty for a reference that leads to no Chip-Stack and without a point.
SlotRange SlotsReferredTo(const Game& game, const Selection& selection);
inline SlotRange SlotsOf(const Game& game, const Selection& selection) {
  if (selection.place == SelectionPlace::kFixed) return selection.range;
  return SlotsReferredTo(game, selection);
}

// The slots of a code that values and targets share (1000 to 1009); empty for any other code.
SlotRange RangeOfList(std::int32_t code);
// First slot of the family that a "(shooter's point)" code means, 0 for any other code.
int FamilyOnPoint(std::int32_t code);
// The slot of a family on a point, or -1 when there is no such number.
int SlotOnPoint(int family, std::int32_t point);
// 0 to 99: the Chip-Stack that an amount refers to by its whole part, or -1.
int ReferredStack(MoneyAmount amount);

// How two values compare, as a set of the orders in which they may stand: 1 less, 2 equal,
// 4 greater.
enum class Relation : std::uint8_t {
  kNone = 0,
  kLess = 1,
  kEqual = 2,
  kNotGreater = 3,
  kGreater = 4,
  kNotEqual = 5,
  kNotLess = 6,
};

enum class ConditionTest : std::uint8_t {
  kNever,  // a code that asks for nothing
  kInitializing,
  kEachRoll,
  kNextIsComeOut,
  kNextIsNotComeOut,
  kLastWasComeOut,
  kLastWasNotComeOut,
  kAnswer,
  kEachPass,
  kEachMiss,
  kGameRolls,
  kCounter,
  kHours,
  kAvailable,
  kPointOn,
  kPointNotOn,
  kPointFor,
  kPointAgainst,
  kPointDecided,
  kFlag,
  kAnyFlag,
  kAllFlags,
  kFlagCount,
  kRollEvent,
  kStreak,
  kRuns,    // the streaks of a total
  kAmount,  // of the slots of an "Any" or "All" range
  kValue,   // of what has one value
  kCount,   // of the bets of a total
  kThing,
  kStackName,
};

// When a counter that satisfies its line counts as a new occurrence.
enum class CounterNews : std::uint8_t {
  kOnCrossing,           // the counter less 1 did not satisfy it
  kOnCrossingAtComeOut,  // and the table is at the come-out
  kOnNewShooter,         // the first look after a seven-out
};

// One line without its printable text, its codes resolved as far as the lines alone allow.
struct CompiledLine {
  std::int32_t kind = 0;
  std::int32_t code = 0;
  // The first line behind this one that is not of its kind; behind a "then" or an "else", the first
  // behind its actions.
  std::int32_t pass_to = 0;
  MoneyAmount amount;
  std::int32_t subject_code = 0;
  std::int32_t subject_stack = 0;
  std::int32_t target_code = 0;
  std::int32_t target_stack = 0;

  // Conditions.
  ConditionTest test = ConditionTest::kNever;
  Relation relation = Relation::kNone;
  CounterNews news = CounterNews::kOnCrossing;
  bool by_target = false;       // codes 17 to 22: compares with what the target names
  std::uint8_t counter = 0;     // GameCounter, roll event, or the answer asked for
  std::uint16_t point_set = 0;  // bit n for the point n
  Selection subject;

  // Conditions and actions.
  Selection target;

  // Actions.
  std::uint8_t verb = 0;  // of the verbs, and the form of their operand (autobet/codes.h)
  std::uint8_t form = 0;
  std::int16_t bet_slot = 0;     // of "Bet $ n" on one slot that is always the same: that slot
  bool works_on_target = false;  // it does something to each slot of the target
  bool continues_group = false;  // the line before is an action with the same code and target
  bool starts_text = false;      // of a message or question: the line before adds nothing to it
  bool ends_text = false;        // the line after adds nothing to it
  bool spares_places = false;    // target of Place bets: covered numbers may be passed over
  std::int32_t jump = 0;  // line of the label, one behind the last line if missing, 0 for no name

  std::int32_t flag = -1;         // index of the first flag of that name when compiled
  bool flag_is_only_one = false;  // no other flag has exactly that name
  std::string text;               // flag, message, file or stack name, as the line uses it
};

struct CompiledScript {
  std::vector<CompiledLine> lines;  // line 1 is element 0
  std::size_t flags = 0;            // count of flags when compiled
};

std::shared_ptr<const CompiledScript> Compile(const ScriptState& script);

// Makes sure that game.Compiled is the compiled form of the script in memory, made anew after a
// change. A run takes it away from the game while it lasts (autobet/run_script.cpp).
inline void CompileScript(Game& game) {
  if (game.Compiled && game.Compiled->lines.size() == game.ScriptLines.size()) return;
  game.Compiled = Compile(game);
}

}  // namespace feltmaster
