#include "autobet/conditions.h"

#include <algorithm>

#include "autobet/values.h"
#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

template <typename Number>
bool Holds(Relation relation, Number value, Number other) {
  const unsigned order = (value == other ? 1U : 0U) + (value > other ? 2U : 0U);
  return ((static_cast<unsigned>(relation) >> order) & 1U) != 0;
}

// Counts compare with an amount in its own unit, exactly.
std::int64_t InAmountUnits(std::int64_t count) {
  return count * MoneyAmount::kScale;
}

bool CrapsJustRolled(Game& game) {
  return JustRolled(game, 2) || JustRolled(game, 3) || JustRolled(game, 12);
}

bool IsInSet(std::uint16_t set, std::int32_t point) {
  return point > 0 && point <= 12 && ((set >> point) & 1) != 0;
}

// What a value that no slot holds is compared with.
MoneyAmount Operand(Game& game, const CompiledLine& line) {
  return line.by_target ? ValueOf(game, line.target_code, line.target_stack) : line.amount;
}

ConditionAnswer CompareCounter(Game& game, const CompiledLine& line, std::int64_t counter) {
  const std::int64_t other = Operand(game, line).Raw();
  ConditionAnswer answer;
  answer.is_true = Holds(line.relation, InAmountUnits(counter), other);
  if (line.news == CounterNews::kOnNewShooter) {
    answer.is_new =
        game.GameCounters[kRollsThisHand] == 0 && game.GameCounters[kHandsCompleted] > 0;
  } else {
    answer.is_new = !Holds(line.relation, InAmountUnits(counter - 1), other) &&
                    (line.news == CounterNews::kOnCrossing || game.Point == 0);
  }
  return answer;
}

ConditionAnswer CompareHours(Game& game, const CompiledLine& line) {
  const double rate = game.RollsPerHour.ToDouble();
  const double rolls = RollsMade(game);
  const double other = Operand(game, line).ToDouble();
  return {Holds(line.relation, rolls / rate, other),
          !Holds(line.relation, (rolls - 1) / rate, other)};
}

ConditionAnswer CompareAvailable(Game& game, const CompiledLine& line) {
  // More than any amount can be, in ten-thousandths: it does not fit one.
  constexpr __int128 kUnlimited = static_cast<__int128>(999'999'999'999'999) * MoneyAmount::kScale;
  const __int128 other = Operand(game, line).Raw();
  const __int128 available =
      game.AllowNegBankroll
          ? kUnlimited
          : static_cast<__int128>(game.BetAmount[kBankroll].Raw()) - game.TotalOnTable.Raw();
  return {Holds(line.relation, available, other), true};
}

ConditionAnswer AskPoint(const Game& game, const CompiledLine& line) {
  const bool seven = game.DiceTotal == 7;
  const bool decided = game.Point == 0 && IsInSet(line.point_set, game.PrevPoint);
  const bool just_decided = game.Point == 0 && game.PrevPoint > 0;
  switch (line.test) {
    case ConditionTest::kPointOn:
      return {IsInSet(line.point_set, game.Point), game.PrevPoint == 0};
    case ConditionTest::kPointNotOn:
      return {!IsInSet(line.point_set, game.Point), IsInSet(line.point_set, game.PrevPoint)};
    case ConditionTest::kPointFor:
      return {!seven && decided, !seven && just_decided};
    case ConditionTest::kPointAgainst:
      return {seven && decided, seven && just_decided};
    default:
      return {decided, just_decided};
  }
}

bool FlagIs(const ScriptFlag& flag, MoneyAmount value) {
  return MoneyAmount(flag.FlagValue ? -1 : 0) == value;
}

// The index found when the script was compiled holds as long as the name still stands there.
const ScriptFlag* FindFlag(const Game& game, const CompiledLine& line) {
  const std::vector<ScriptFlag>& flags = game.ScriptFlags;
  const auto index = static_cast<std::size_t>(line.flag);
  if (line.flag >= 0 && index < flags.size() && flags[index].FlagName == line.text)
    return &flags[index];
  for (const ScriptFlag& flag : flags) {
    if (flag.FlagName == line.text) return &flag;
  }
  return nullptr;
}

ConditionAnswer AskFlag(const Game& game, const CompiledLine& line) {
  const ScriptFlag* flag = FindFlag(game, line);
  if (flag == nullptr) return {};
  return {FlagIs(*flag, line.amount), flag->FlagChanged};
}

ConditionAnswer AskFlags(const Game& game, const CompiledLine& line) {
  std::int64_t matches = 0;
  const MoneyAmount wanted = line.test == ConditionTest::kFlagCount
                                 ? MoneyAmount(line.subject_code == kTrueFlags ? -1 : 0)
                                 : line.amount;
  for (const ScriptFlag& flag : game.ScriptFlags) matches += FlagIs(flag, wanted) ? 1 : 0;
  switch (line.test) {
    case ConditionTest::kAnyFlag:
      return {matches > 0, false};
    case ConditionTest::kAllFlags:
      return {matches > 0 && static_cast<std::size_t>(matches) == game.ScriptFlags.size(), false};
    default:
      break;
  }
  return {Holds(line.relation, InAmountUnits(matches), line.amount.Raw()), false};
}

ConditionAnswer AskRollEvent(Game& game, const CompiledLine& line) {
  const int event = line.counter;
  const std::int64_t amount = line.amount.Raw();
  const bool each = amount == 0;
  const auto count = [&] { return InAmountUnits(ScriptRollCounts(game, event)); };
  const auto count_seen = [&] { return InAmountUnits(ScriptRollCountsSeen(game, event)); };
  const auto since = [&] { return InAmountUnits(ScriptRollsSince(game, event)); };
  const auto rolls = [&] { return InAmountUnits(ScriptRollCounts(game, 0)); };
  switch (line.code) {
    case kHasRolled:
      if (each) {
        const bool rolled = count() > count_seen();
        return {rolled, rolled};
      }
      return {count() == amount, !(count_seen() == amount && rolls() != 0)};
    case kHasRolledMore:
      return {count() > amount, !(count_seen() > amount && rolls() != 0)};
    case kHasNotRolled:
      if (each) {
        const bool missed = count() == count_seen();
        return {missed, missed};
      }
      return {count() != amount, !(count_seen() != amount && rolls() != 0)};
    case kHasRolledLess:
      return {count() < amount, !(count_seen() < amount && rolls() != 0)};
    case kHasRolledInLast:
      return {since() < amount && count() > 0,
              !(InAmountUnits(ScriptRollsSinceSeen(game, event)) < amount && count_seen() != 0)};
    default:
      return {since() >= amount && rolls() >= amount, since() == amount};
  }
}

MoneyAmount AmountAtEnd(const Game& game, int slot) {
  return game.BetAmountAtRollEnd[static_cast<std::size_t>(slot)];
}

// What one slot of a range says.
struct SlotAnswer {
  bool now = false;
  bool before = false;  // it was so at the end of the last roll
  bool is_new = false;
  bool with_itself = false;  // the slot was set against its own range
};

// Joins the answers of the slots of an "Any" or "All" range, or of a single slot. An empty slot
// does not spoil "All". Nothing true is old before the first roll.
template <typename Ask>
ConditionAnswer JoinSlots(const Game& game, const CompiledLine& line, Ask ask) {
  const bool all = line.subject.form == SelectionForm::kAll;
  const SlotRange range = SlotsOf(game, line.subject);
  bool now = false;
  bool before = false;
  bool is_new = false;
  bool all_held_before = true;
  for (int slot = range.first; slot <= range.last; ++slot) {
    const SlotAnswer answer = ask(slot);
    now |= answer.now;
    before |= answer.before;
    is_new |= answer.is_new;
    if (all && !answer.with_itself) {
      if (!answer.now && game.BetAmount[slot] != MoneyAmount()) return {false, is_new};
      if (!answer.before && AmountAtEnd(game, slot) != MoneyAmount()) all_held_before = false;
    }
  }
  const bool by_streak = line.test == ConditionTest::kStreak;
  if (now && !by_streak && !(before && all_held_before)) is_new = true;
  if (now && RollsMade(game) == 0) is_new = true;
  return {now, is_new};
}

// A run of losses is a run of wins with the sign turned, and so are its rules.
SlotAnswer AskStreak(const Game& game, const CompiledLine& line, int slot) {
  constexpr int kLastStreak = 100;
  if (slot > kLastStreak) return {};
  const bool losses = line.code == kHasLost || line.code == kHasLostMore ||
                      line.code == kHasNotLost || line.code == kHasLostLess;
  const std::int64_t sign = losses ? -1 : 1;
  const std::int64_t run = InAmountUnits(sign * game.BetStreak.Now(slot));
  const std::int64_t run_before = InAmountUnits(sign * game.BetStreak.Before(slot));
  const std::int64_t amount = line.amount.Raw();
  const auto answer = [](bool now, bool before) {
    SlotAnswer result;
    result.now = now;
    result.is_new = now && !before;
    return result;
  };
  switch (line.code) {
    case kHasWon:
    case kHasLost:
      if (amount == 0) return answer(run > 0 && run > run_before, false);
      return answer(run == amount, run_before == amount);
    case kHasNotWon:
    case kHasNotLost:
      if (amount == 0) return answer(run <= run_before, false);
      return answer(run != amount, run_before != amount);
    case kHasWonMore:
    case kHasLostMore:
      return answer(run > amount, run_before > amount);
    default:
      return answer(run < amount, run_before < amount);
  }
}

// The slots that hold anything are known as sets, and so are those that differ from what they were
// at the end of the last roll. So a range need not be walked slot by slot.
template <typename Function>
void ForEachFilled(const Game& game, const Selection& selection, Function function) {
  const BetAmounts& amounts = game.BetAmount;
  if (!selection.bets.Empty()) return (amounts.Standing() & selection.bets).ForEach(function);
  amounts.Stacked().ForEach([&](int stack) {
    if (selection.range.Has(kFirstStack + stack)) function(kFirstStack + stack);
  });
}
template <typename Function>
void ForEachChanged(Game& game, const SlotRange& range, Function function) {
  game.BetAmount.ChangedSinceEnd().ForEach([&](int slot) {
    if (range.Has(slot)) function(slot);
  });
}

// Empty slots count only against an amount of 0, and never spoil "All".
ConditionAnswer CompareAmounts(Game& game, const CompiledLine& line) {
  const SlotRange& range = line.subject.range;
  const bool all = line.subject.form == SelectionForm::kAll;
  const int slots = range.last - range.first + 1;
  const std::int64_t amount = line.amount.Raw();
  const bool empty_holds = amount == 0 && Holds(line.relation, amount, amount);
  // What the filled slots say together.
  struct Look {
    int filled = 0;
    bool any = false;
    bool all = true;
  };
  const auto look_at = [&](Look& look, MoneyAmount value) {
    const bool holds = Holds(line.relation, value.Raw(), amount);
    ++look.filled;
    look.any |= holds;
    look.all &= holds;
  };
  const auto is_true = [&](const Look& look) {
    return (look.any || (empty_holds && look.filled < slots)) && (look.all || !all);
  };

  Look now;
  ForEachFilled(game, line.subject, [&](int slot) { look_at(now, game.BetAmount[slot]); });
  if (!is_true(now)) return {};
  Look before;
  const auto look_back = [&](int slot) {
    if (AmountAtEnd(game, slot) != MoneyAmount()) look_at(before, AmountAtEnd(game, slot));
  };
  ForEachFilled(game, line.subject, look_back);
  ForEachChanged(game, range, [&](int slot) {
    if (game.BetAmount[slot] == MoneyAmount()) look_back(slot);
  });
  return {true, !is_true(before) || RollsMade(game) == 0};
}

ConditionAnswer CompareStackNames(const Game& game, const CompiledLine& line) {
  return JoinSlots(game, line, [&](int slot) {
    const std::string& name = game.ChipStackName[static_cast<std::size_t>(slot - kFirstStack)];
    SlotAnswer answer;  // a name has no memory of the roll before
    answer.now = (name == line.text) == (line.code == kIsNamed);
    return answer;
  });
}

// Sums of Chip-Stacks can pass the range of money.
using Sum = __int128;

Sum SumNow(const Game& game, const Selection& selection) {
  Sum sum = 0;
  ForEachFilled(game, selection, [&](int slot) { sum += game.BetAmount[slot].Raw(); });
  return sum;
}

Sum SumBefore(Game& game, const Selection& selection) {
  Sum sum = SumNow(game, selection);
  ForEachChanged(game, selection.range, [&](int slot) {
    sum += Sum{AmountAtEnd(game, slot).Raw()} - game.BetAmount[slot].Raw();
  });
  return sum;
}

// A bet, Chip-Stack, total or average: what has one value, now and at the end of the last roll.
// `slot` is that of a bet or Chip-Stack.
bool HasOneValue(const Selection& selection) {
  return selection.form == SelectionForm::kOne || selection.form == SelectionForm::kTotal ||
         selection.form == SelectionForm::kAverage;
}
Sum ValueNow(const Game& game, const Selection& selection, int slot) {
  if (selection.form == SelectionForm::kOne) return game.BetAmount[slot].Raw();
  if (selection.form == SelectionForm::kTotal) return SumNow(game, selection);
  return AverageBankroll(game, true, selection.average_rolls).Raw();
}
Sum ValueBefore(Game& game, const Selection& selection, int slot) {
  if (selection.form == SelectionForm::kOne) return AmountAtEnd(game, slot).Raw();
  if (selection.form == SelectionForm::kTotal) return SumBefore(game, selection);
  return AverageBankroll(game, false, selection.average_rolls).Raw();
}

// A value on either side, or an amount on the right. What was before is asked for only where it
// matters: averages and sums are dear.
ConditionAnswer CompareValues(Game& game, const CompiledLine& line) {
  const Selection& left = line.subject;
  const Selection& right = line.target;
  const SlotRange left_slots = SlotsOf(game, left);
  const SlotRange right_slots = SlotsOf(game, right);
  const bool left_is_slot = left.form == SelectionForm::kOne;
  const bool right_is_slot = line.by_target && right.form == SelectionForm::kOne;
  if (left_is_slot && left_slots.Empty()) return {};
  if (right_is_slot && right_slots.Empty()) return {};
  if (left_is_slot && right_is_slot && left_slots.first == right_slots.first) return {};

  const Sum amount = line.amount.Raw();
  const Sum other = line.by_target ? ValueNow(game, right, right_slots.first) : amount;
  if (!Holds(line.relation, ValueNow(game, left, left_slots.first), other)) return {};
  if (left.form != SelectionForm::kTotal && RollsMade(game) == 0) return {true, true};
  const Sum before = line.by_target ? ValueBefore(game, right, right_slots.first) : amount;
  return {true, !Holds(line.relation, ValueBefore(game, left, left_slots.first), before)};
}

// Values now and at the end of the last roll.
struct Pair {
  Sum now = 0;
  Sum before = 0;
};
Pair ValuesOf(Game& game, const Selection& selection, int slot) {
  return {ValueNow(game, selection, slot), ValueBefore(game, selection, slot)};
}
Pair AmountsOf(const Game& game, int slot) {
  return {game.BetAmount[slot].Raw(), AmountAtEnd(game, slot).Raw()};
}

// One value of the left side of a comparison with a range, and the slots that the side stands on;
// none for averages and totals.
struct LeftSide {
  Pair value;
  int slot = -1;
  SlotRange range;
};
// The right side: the slots of a range, or the one value of a total or average.
struct RightSide {
  SlotRange range;
  Pair value;
};

SlotAnswer CompareWithTarget(const CompiledLine& line, const Game& game, const LeftSide& left,
                             const RightSide& right, std::int32_t block_kind) {
  const auto compare = [&](const Pair& other) {
    SlotAnswer answer;
    answer.now = Holds(line.relation, left.value.now, other.now);
    answer.before = Holds(line.relation, left.value.before, other.before);
    return answer;
  };
  const SelectionForm form = line.target.form;
  const SlotRange& range = right.range;
  if (form == SelectionForm::kTotal || form == SelectionForm::kAverage) return compare(right.value);

  SlotAnswer answer;
  bool before_lost = false;
  for (int slot = range.first; slot <= range.last; ++slot) {
    if (left.range.Has(slot) && range.Has(left.slot)) {
      answer.with_itself = true;
      continue;
    }
    const Pair other = AmountsOf(game, slot);
    const SlotAnswer hit = compare(other);
    answer.now |= hit.now;
    answer.before |= hit.before;
    if (form == SelectionForm::kAll) {
      const bool with_bankroll = left.slot == kBankroll || slot == kBankroll;
      if (!hit.now && ((left.value.now > 0 && other.now > 0) || with_bankroll)) {
        answer.now = false;
        break;
      }
      before_lost |= !hit.before && ((left.value.before > 0 && other.before > 0) || with_bankroll);
    } else if (answer.now && (OpensWhile(block_kind) || (answer.before && OpensWhen(block_kind)))) {
      break;
    }
  }
  answer.before &= !before_lost;
  return answer;
}

ConditionAnswer CompareThings(Game& game, const CompiledLine& line, std::int32_t block_kind) {
  if (line.target.form == SelectionForm::kNothing) return {};
  if (HasOneValue(line.subject) && HasOneValue(line.target)) return CompareValues(game, line);

  RightSide right;
  right.range = SlotsOf(game, line.target);
  if (line.target.form == SelectionForm::kTotal || line.target.form == SelectionForm::kAverage) {
    right.value = ValuesOf(game, line.target, -1);
  }
  if (line.subject.form == SelectionForm::kTotal || line.subject.form == SelectionForm::kAverage) {
    LeftSide left;
    left.value = ValuesOf(game, line.subject, -1);
    const SlotAnswer answer = CompareWithTarget(line, game, left, right, block_kind);
    const bool first_look = line.subject.form == SelectionForm::kAverage && RollsMade(game) == 0;
    return {answer.now, answer.now && (!answer.before || first_look)};
  }
  const SlotRange range = SlotsOf(game, line.subject);
  return JoinSlots(game, line, [&](int slot) {
    return CompareWithTarget(line, game, {AmountsOf(game, slot), slot, range}, right, block_kind);
  });
}

struct RunSums {
  std::int64_t wins = 0;
  std::int64_t losses = 0;  // 0 or less
  bool changed = false;
};

RunSums SumRuns(const Game& game, const BetSet& bets) {
  const BetStreaks& streaks = game.BetStreak;
  RunSums sums;
  (streaks.Running() & bets).ForEach([&](int bet) {
    sums.wins += std::max(streaks.Now(bet), 0);
    sums.losses += std::min(streaks.Now(bet), 0);
  });
  (streaks.Changed() & bets).ForEach([&](int bet) {
    sums.changed |= streaks.Now(bet) != streaks.Before(bet);
  });
  return sums;
}

ConditionAnswer CompareRuns(const Game& game, const CompiledLine& line) {
  const RunSums sums = SumRuns(game, line.subject.bets);
  const std::int64_t amount = line.amount.Raw();
  const std::int64_t wins = InAmountUnits(sums.wins);
  const std::int64_t losses = InAmountUnits(-sums.losses);
  const bool now = line.code == kHasWon       ? wins == amount
                   : line.code == kHasWonMore ? wins > amount
                   : line.code == kHasLost    ? losses == amount || amount == 0
                                              : losses > amount;
  return {now, now && sums.changed};
}

ConditionAnswer CompareCounts(Game& game, const CompiledLine& line) {
  const auto filled = [](MoneyAmount amount) { return amount > MoneyAmount() ? 1 : 0; };
  std::int64_t count = 0;
  ForEachFilled(game, line.subject, [&](int slot) { count += filled(game.BetAmount[slot]); });
  const auto holds = [&] { return Holds(line.relation, InAmountUnits(count), line.amount.Raw()); };
  if (!holds()) return {};
  ForEachChanged(game, line.subject.range, [&](int slot) {
    count += filled(AmountAtEnd(game, slot)) - filled(game.BetAmount[slot]);
  });
  return {true, !holds()};
}

}  // namespace

ConditionAnswer EvaluateCondition(Game& game, const CompiledLine& line, std::int32_t block_kind) {
  const auto both = [](bool answer) { return ConditionAnswer{answer, answer}; };
  switch (line.test) {
    case ConditionTest::kNever:
      return {};
    case ConditionTest::kInitializing:
      return both(game.ScriptNeedsInit || game.HotKeyRunning);
    case ConditionTest::kEachRoll:
      return both(game.RollsSeenByScript != RollsMade(game));
    case ConditionTest::kNextIsComeOut:
      return {game.Point == 0, RollsMade(game) == 0 || game.PrevPoint > 0};
    case ConditionTest::kNextIsNotComeOut:
      return {game.Point != 0, game.PrevPoint == 0};
    case ConditionTest::kLastWasComeOut:
      return {RollsMade(game) > 0 && game.PrevPoint == 0, game.PrevPrevPoint > 0};
    case ConditionTest::kLastWasNotComeOut:
      return {game.PrevPoint != 0, game.PrevPrevPoint == 0};
    case ConditionTest::kAnswer:
      return both(game.MsgAnswer == line.counter);
    case ConditionTest::kEachPass:
      return both(game.Point == 0 && !CrapsJustRolled(game) &&
                  !(JustRolled(game, 7) && game.PrevPoint != 0));
    case ConditionTest::kEachMiss:
      return both(RollsMade(game) > 0 && game.Point == 0 &&
                  (CrapsJustRolled(game) || (JustRolled(game, 7) && game.PrevPoint > 0)));
    case ConditionTest::kGameRolls:
      return CompareCounter(game, line, RollsMade(game));
    case ConditionTest::kCounter:
      return CompareCounter(game, line, game.GameCounters[line.counter]);
    case ConditionTest::kHours:
      return CompareHours(game, line);
    case ConditionTest::kAvailable:
      return CompareAvailable(game, line);
    case ConditionTest::kPointOn:
    case ConditionTest::kPointNotOn:
    case ConditionTest::kPointFor:
    case ConditionTest::kPointAgainst:
    case ConditionTest::kPointDecided:
      return AskPoint(game, line);
    case ConditionTest::kFlag:
      return AskFlag(game, line);
    case ConditionTest::kAnyFlag:
    case ConditionTest::kAllFlags:
    case ConditionTest::kFlagCount:
      return AskFlags(game, line);
    case ConditionTest::kRollEvent:
      return AskRollEvent(game, line);
    case ConditionTest::kStreak:
      return JoinSlots(game, line, [&](int slot) { return AskStreak(game, line, slot); });
    case ConditionTest::kAmount:
      return CompareAmounts(game, line);
    case ConditionTest::kValue:
      return CompareValues(game, line);
    case ConditionTest::kThing:
      return CompareThings(game, line, block_kind);
    case ConditionTest::kStackName:
      return CompareStackNames(game, line);
    case ConditionTest::kRuns:
      return CompareRuns(game, line);
    case ConditionTest::kCount:
      return CompareCounts(game, line);
  }
  return {};
}

}  // namespace feltmaster
