#include "autobet/conditions.h"

#include "autobet/values.h"
#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

template <typename Number>
bool Holds(Relation relation, Number value, Number other) {
  switch (relation) {
    case Relation::kEqual:
      return value == other;
    case Relation::kNotEqual:
      return value != other;
    case Relation::kGreater:
      return value > other;
    case Relation::kNotGreater:
      return value <= other;
    case Relation::kLess:
      return value < other;
    case Relation::kNotLess:
      return value >= other;
  }
  return false;
}

// Counts compare with an amount in its own unit, exactly.
std::int64_t InAmountUnits(std::int64_t count) {
  return count * MoneyAmount::kScale;
}

bool JustRolled(const Game& game, int number) {
  return RollsSinceLast(game, number) == 0;
}
bool CrapsJustRolled(const Game& game) {
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
  const double rolls = RollCounts(game, 0);
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
  const std::int64_t count = InAmountUnits(matches);
  const std::int64_t other = line.amount.Raw();
  return {line.code == kNumberIs     ? count == other
          : line.code == kNumberMore ? count > other
                                     : count < other,
          false};
}

ConditionAnswer AskRollEvent(const Game& game, const CompiledLine& line) {
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
  if (now && RollCounts(game, 0) == 0) is_new = true;
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

// Standing bets below slot 128 are known as a set, so a range over the layout with an amount other
// than 0, to which empty slots do not count, need not be walked slot by slot.
ConditionAnswer CompareStanding(const Game& game, const CompiledLine& line,
                                const SlotRange& range) {
  const bool all = line.subject.form == SelectionForm::kAll;
  bool any_holds = false;
  bool all_hold = true;
  game.BetAmount.Standing().ForEach([&](int slot) {
    if (!range.Has(slot)) return;
    const bool holds = Holds(line.relation, game.BetAmount[slot], line.amount);
    any_holds |= holds;
    all_hold &= holds;
  });
  if (!any_holds || (all && !all_hold)) return {};

  bool any_held = false;
  bool all_held = true;
  for (int slot = range.first; slot <= range.last; ++slot) {
    const MoneyAmount amount = AmountAtEnd(game, slot);
    if (amount == MoneyAmount()) continue;
    const bool held = Holds(line.relation, amount, line.amount);
    any_held |= held;
    all_held &= held;
  }
  const bool was_true = any_held && (!all || all_held);
  return {true, !was_true || RollCounts(game, 0) == 0};
}

ConditionAnswer CompareAmounts(Game& game, const CompiledLine& line) {
  if (line.subject.form == SelectionForm::kAverage) {
    const auto holds = [&](bool now) {
      return Holds(line.relation, AverageBankroll(game, now, line.subject.average_rolls),
                   line.amount);
    };
    if (!holds(true)) return {};
    return {true, !holds(false) || RollCounts(game, 0) == 0};
  }
  const bool over_range = line.subject.form != SelectionForm::kOne;
  const bool only_standing = over_range && line.amount != MoneyAmount();
  if (only_standing && line.subject.range.last <= kBetCount)
    return CompareStanding(game, line, line.subject.range);
  return JoinSlots(game, line, [&](int slot) {
    const auto holds = [&](MoneyAmount amount) {
      return Holds(line.relation, amount, line.amount) &&
             !(only_standing && amount == MoneyAmount());
    };
    SlotAnswer answer;
    answer.now = holds(game.BetAmount[slot]);
    answer.before = holds(AmountAtEnd(game, slot));
    return answer;
  });
}

ConditionAnswer CompareStackNames(const Game& game, const CompiledLine& line) {
  return JoinSlots(game, line, [&](int slot) {
    const std::string& name = game.ChipStackName[static_cast<std::size_t>(slot - kFirstStack)];
    SlotAnswer answer;  // a name has no memory of the roll before
    answer.now = (name == line.text) == (line.code == kIsNamed);
    return answer;
  });
}

// A value now and at the end of the last roll. Sums of Chip-Stacks can pass the range of money.
struct Pair {
  __int128 now = 0;
  __int128 before = 0;
};

Pair AmountsOf(const Game& game, int slot) {
  return {game.BetAmount[slot].Raw(), AmountAtEnd(game, slot).Raw()};
}

Pair AveragesOf(const Game& game, const Selection& selection) {
  return {AverageBankroll(game, true, selection.average_rolls).Raw(),
          AverageBankroll(game, false, selection.average_rolls).Raw()};
}

Pair SumsOf(const Game& game, const SlotRange& range) {
  Pair sums;
  range.ForEach([&](int slot) {
    const Pair amounts = AmountsOf(game, slot);
    sums.now += amounts.now;
    sums.before += amounts.before;
  });
  return sums;
}

// The slots that the left side of a comparison stands on; none for averages and totals.
struct LeftSide {
  Pair value;
  int slot = -1;
  SlotRange range;
};

SlotAnswer CompareWithTarget(const Game& game, const CompiledLine& line, const LeftSide& left,
                             std::int32_t block_kind) {
  const auto compare = [&](const Pair& other) {
    SlotAnswer answer;
    answer.now = Holds(line.relation, left.value.now, other.now);
    answer.before = Holds(line.relation, left.value.before, other.before);
    return answer;
  };
  const SelectionForm form = line.target.form;
  if (form == SelectionForm::kAverage) {
    const auto holds = [&](__int128 value, bool now) {
      const MoneyAmount average = AverageBankroll(game, now, line.target.average_rolls);
      return Holds<__int128>(line.relation, value, average.Raw());
    };
    SlotAnswer answer;
    answer.now = holds(left.value.now, true);
    // Averages are dear. Of one slot the answer before matters only where the one now is true.
    if (answer.now || line.subject.form != SelectionForm::kOne) {
      answer.before = holds(left.value.before, false);
    }
    return answer;
  }
  if (form == SelectionForm::kNothing) return {};
  const SlotRange range = SlotsOf(game, line.target);
  if (form == SelectionForm::kTotal) return compare(SumsOf(game, range));

  SlotAnswer answer;
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
      if (!hit.before && ((left.value.before > 0 && other.before > 0) || with_bankroll)) {
        answer.before = false;
        break;
      }
    } else if (answer.now && (OpensWhile(block_kind) || (answer.before && OpensWhen(block_kind)))) {
      break;
    }
  }
  return answer;
}

ConditionAnswer CompareThings(const Game& game, const CompiledLine& line, std::int32_t block_kind) {
  if (line.subject.form == SelectionForm::kAverage) {
    LeftSide left;
    left.value = AveragesOf(game, line.subject);
    const SlotAnswer answer = CompareWithTarget(game, line, left, block_kind);
    return {answer.now, answer.now && (!answer.before || RollCounts(game, 0) == 0)};
  }
  const SlotRange range = SlotsOf(game, line.subject);
  return JoinSlots(game, line, [&](int slot) {
    return CompareWithTarget(game, line, {AmountsOf(game, slot), slot, range}, block_kind);
  });
}

struct RunSums {
  std::int64_t wins = 0;
  std::int64_t losses = 0;  // 0 or less
  bool changed = false;
};

RunSums SumRuns(const Game& game, const SlotRange& range) {
  RunSums sums;
  range.ForEach([&](int slot) {
    if (slot > kBetCount) return;
    const int run = game.BetStreak.Now(slot);
    (run > 0 ? sums.wins : sums.losses) += run;
    sums.changed |= run != game.BetStreak.Before(slot);
  });
  return sums;
}

ConditionAnswer CompareCounts(const Game& game, const CompiledLine& line, const SlotRange& range) {
  std::int64_t now = 0;
  std::int64_t before = 0;
  range.ForEach([&](int slot) {
    const Pair amounts = AmountsOf(game, slot);
    now += amounts.now > 0 ? 1 : 0;
    before += amounts.before > 0 ? 1 : 0;
  });
  const auto holds = [&](std::int64_t count) {
    const std::int64_t raw = InAmountUnits(count);
    return line.code == kNumberIs     ? raw == line.amount.Raw()
           : line.code == kNumberMore ? raw > line.amount.Raw()
                                      : raw < line.amount.Raw();
  };
  return {holds(now), holds(now) && !holds(before)};
}

ConditionAnswer CompareTotal(const Game& game, const CompiledLine& line, std::int32_t block_kind) {
  const SlotRange range = line.subject.range;
  const std::int64_t amount = line.amount.Raw();
  switch (line.code) {
    case kHasWon:
    case kHasWonMore:
    case kHasLost:
    case kHasLostMore: {
      const RunSums sums = SumRuns(game, range);
      const std::int64_t wins = InAmountUnits(sums.wins);
      const std::int64_t losses = InAmountUnits(-sums.losses);
      const bool now = line.code == kHasWon       ? wins == amount
                       : line.code == kHasWonMore ? wins > amount
                       : line.code == kHasLost    ? losses == amount || amount == 0
                                                  : losses > amount;
      return {now, now && sums.changed};
    }
    case kNumberIs:
    case kNumberMore:
    case kNumberLess:
      return CompareCounts(game, line, range);
    default:
      break;
  }
  LeftSide left;
  left.value = SumsOf(game, range);
  if (line.by_target) {
    const SlotAnswer answer = CompareWithTarget(game, line, left, block_kind);
    return {answer.now, answer.now && !answer.before};
  }
  if (line.code < kEqualAmount || line.code > kNotLessAmount) return {};
  const bool now = Holds<__int128>(line.relation, left.value.now, amount);
  return {now, now && !Holds<__int128>(line.relation, left.value.before, amount)};
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
      return both(game.RollsSeenByScript != RollCounts(game, 0));
    case ConditionTest::kNextIsComeOut:
      return {game.Point == 0, RollCounts(game, 0) == 0 || game.PrevPoint > 0};
    case ConditionTest::kNextIsNotComeOut:
      return {game.Point != 0, game.PrevPoint == 0};
    case ConditionTest::kLastWasComeOut:
      return {RollCounts(game, 0) > 0 && game.PrevPoint == 0, game.PrevPrevPoint > 0};
    case ConditionTest::kLastWasNotComeOut:
      return {game.PrevPoint != 0, game.PrevPrevPoint == 0};
    case ConditionTest::kAnswer:
      return both(game.MsgAnswer == line.counter);
    case ConditionTest::kEachPass:
      return both(game.Point == 0 && !CrapsJustRolled(game) &&
                  !(JustRolled(game, 7) && game.PrevPoint != 0));
    case ConditionTest::kEachMiss:
      return both(RollCounts(game, 0) > 0 && game.Point == 0 &&
                  (CrapsJustRolled(game) || (JustRolled(game, 7) && game.PrevPoint > 0)));
    case ConditionTest::kGameRolls:
      return CompareCounter(game, line, RollCounts(game, 0));
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
    case ConditionTest::kThing:
      return CompareThings(game, line, block_kind);
    case ConditionTest::kStackName:
      return CompareStackNames(game, line);
    case ConditionTest::kTotal:
      return CompareTotal(game, line, block_kind);
  }
  return {};
}

}  // namespace feltmaster
