#include "autobet/compiled_script.h"

#include <algorithm>
#include <string>
#include <unordered_map>

#include "base/text.h"

namespace feltmaster {
namespace {

constexpr std::string_view kAllNumbersText = "all the numbers";
// Where the name of the target begins in the text of an input line.
constexpr std::size_t kInputTargetColumn = 34;

SlotRange Slots(int first, int last) {
  return {static_cast<std::int16_t>(first), static_cast<std::int16_t>(last)};
}

Selection Fixed(SelectionForm form, SlotRange range) {
  Selection selection;
  selection.form = form;
  selection.range = range;
  if (range.last <= kBetCount) range.ForEach([&](int bet) { selection.bets.Add(bet); });
  return selection;
}

Selection OneSlot(int slot) {
  return Fixed(SelectionForm::kOne, Slots(slot, slot));
}

// The Chip-Stack, Chip-Stack reference and shooter's point rows, which every list has.
Selection CommonSelection(std::int32_t code, std::int32_t stack) {
  const bool is_stack = code == kStackSubject || code == kStackReference;
  if (is_stack && stack >= 0 && stack < kStackCount) {
    Selection selection = OneSlot(kFirstStack + stack);
    if (code == kStackReference) selection.place = SelectionPlace::kStackReference;
    return selection;
  }
  if (const int family = FamilyOnPoint(code); family != 0) {
    Selection selection = OneSlot(family);
    selection.place = SelectionPlace::kOnPoint;
    return selection;
  }
  return {};
}

SlotRange RangeOfSubject(std::int32_t range) {
  switch (range) {
    case kRangeBets:
      return Slots(1, kBetCount);
    case kRangeLay:
      return Slots(kLay, kLay + kSlotCount - 1);
    case kRangeCome:
      return Slots(kComePoint, kComePoint + kSlotCount - 1);
    case kRangeComeOdds:
      return Slots(kComeOdds, kComeOdds + kSlotCount - 1);
    case kRangePlace:
      return Slots(kPlace, kPlace + kSlotCount - 1);
    case kRangeBuy:
      return Slots(kBuy, kBuy + kSlotCount - 1);
    case kRangeStacks:
      return Slots(kFirstStack, kLastStack);
    default:
      return {};
  }
}

// What a condition names: its subject, or what it is compared with.
Selection ConditionSelection(std::int32_t code, std::int32_t stack) {
  if (IsLayoutBet(code)) return OneSlot(code);
  if (code == kBankrollSubject) return OneSlot(kBankroll);
  if (code == kAverageBankroll) {
    Selection selection;
    selection.form = SelectionForm::kAverage;
    selection.average_rolls = stack;
    return selection;
  }
  if (code >= kAnyFirst && code <= kTotalLast) {
    constexpr std::array<SelectionForm, 3> kForms = {SelectionForm::kAny, SelectionForm::kAll,
                                                     SelectionForm::kTotal};
    const SlotRange range = RangeOfSubject((code - kAnyFirst) % 100);
    if (range.Empty()) return {};
    return Fixed(kForms[static_cast<std::size_t>((code - kAnyFirst) / 100)], range);
  }
  return CommonSelection(code, stack);
}

Selection ActionTarget(const ScriptLine& line) {
  const std::int32_t code = line.LineTarget;
  if (line.LineCode == kActionResetRolls) {
    constexpr int kNumbersAndGroups = kRollEventFirst + 17;
    const bool widened =
        code == kNumbersAndGroups && line.LineText.find(kAllNumbersText) != std::string::npos;
    if (code == kAllTheNumbers || widened) return Fixed(SelectionForm::kAll, Slots(2, 89));
    if (code >= kRollEventFirst + 2 && code <= kRollEventFirst + 89)
      return OneSlot(code - kRollEventFirst);
    return {};
  }
  if (IsLayoutBet(code)) return OneSlot(code);
  if (code == kAllStacksTarget)
    return Fixed(SelectionForm::kAll, Slots(kFirstStack, kAmountSlots - 1));
  if (const SlotRange range = RangeOfList(code); !range.Empty())
    return Fixed(SelectionForm::kAll, range);
  return CommonSelection(code, line.LineTargetStack);
}

constexpr std::uint16_t Points(std::initializer_list<int> numbers) {
  unsigned set = 0;
  for (const int number : numbers) set |= 1U << static_cast<unsigned>(number);
  return static_cast<std::uint16_t>(set);
}

struct PointRow {
  std::int32_t code;
  std::uint16_t set;
};
// The list of numbers. Three of its codes stand for two rows each; the larger sets have them.
constexpr std::array<PointRow, 17> kPointRows = {{
    {31, Points({2, 3, 4, 5, 6, 8, 9, 10, 11, 12})},
    {32, Points({2})},
    {33, Points({3})},
    {34, Points({4})},
    {35, Points({5})},
    {36, Points({6})},
    {38, Points({8})},
    {39, Points({9})},
    {40, Points({10})},
    {41, Points({5, 6, 8, 9})},
    {42, Points({4, 5, 9, 10})},
    {43, Points({4, 6, 8, 10})},
    {44, Points({4, 5, 6})},
    {45, Points({8, 9, 10})},
    {46, Points({4, 10})},
    {47, Points({5, 9})},
    {48, Points({6, 8})},
}};

struct CounterRow {
  std::int32_t subject;
  GameCounter counter;
  CounterNews news;
};
constexpr std::array<CounterRow, 8> kCounterRows = {{
    {kShooterRolls, kRollsThisHand, CounterNews::kOnCrossing},
    {kLastShooterRolls, kLastHandRolls, CounterNews::kOnNewShooter},
    {kGamePasses, kTotalPasses, CounterNews::kOnCrossingAtComeOut},
    {kShooterPasses, kPassesThisHand, CounterNews::kOnCrossingAtComeOut},
    {kLastShooterPasses, kLastHandPasses, CounterNews::kOnNewShooter},
    {kGameMisses, kTotalMisses, CounterNews::kOnCrossingAtComeOut},
    {kShooterMisses, kMissesThisHand, CounterNews::kOnCrossingAtComeOut},
    {kLastShooterMisses, kLastHandMisses, CounterNews::kOnNewShooter},
}};

struct SimpleRow {
  std::int32_t subject;
  ConditionTest test;
};
// Conditions without a comparison.
constexpr std::array<SimpleRow, 9> kSimpleRows = {{
    {kInitializing, ConditionTest::kInitializing},
    {kOnEachRoll, ConditionTest::kEachRoll},
    {kNextIsComeOut, ConditionTest::kNextIsComeOut},
    {kNextIsNotComeOut, ConditionTest::kNextIsNotComeOut},
    {kLastWasComeOut, ConditionTest::kLastWasComeOut},
    {kLastWasNotComeOut, ConditionTest::kLastWasNotComeOut},
    {kOnEachPass, ConditionTest::kEachPass},
    {kOnEachMiss, ConditionTest::kEachMiss},
    {kAnyFlag, ConditionTest::kAnyFlag},
}};
// Conditions on the point, by the list of numbers.
constexpr std::array<SimpleRow, 5> kPointTests = {{
    {kPointEstablished, ConditionTest::kPointOn},
    {kPointNotEstablished, ConditionTest::kPointNotOn},
    {kPointDecidedFor, ConditionTest::kPointFor},
    {kPointDecidedAgainst, ConditionTest::kPointAgainst},
    {kPointDecided, ConditionTest::kPointDecided},
}};
// Values that no slot holds, by a comparison.
constexpr std::array<SimpleRow, 3> kValueTests = {{
    {kGameRolls, ConditionTest::kGameRolls},
    {kSimulatedHours, ConditionTest::kHours},
    {kAvailableBankroll, ConditionTest::kAvailable},
}};

template <typename Rows>
auto FindSubject(const Rows& rows, std::int32_t subject) {
  return std::find_if(rows.begin(), rows.end(),
                      [subject](const auto& row) { return row.subject == subject; });
}

bool IsAmountComparison(std::int32_t code) {
  return code >= kEqualAmount && code <= kNotLessAmount;
}
bool IsThingComparison(std::int32_t code) {
  return code >= kEqualThing && code <= kNotLessThing;
}
bool IsComparison(std::int32_t code) {
  return IsAmountComparison(code) || IsThingComparison(code);
}
bool IsCount(std::int32_t code) {
  return code >= kNumberIs && code <= kNumberLess;
}
bool IsStreakCode(std::int32_t code) {
  return (code >= kHasWon && code <= kHasLostMore) || (code >= kHasNotWon && code <= kHasLostLess);
}

// Codes 11 to 16 and 17 to 22; the counts 23 to 25.
Relation RelationOf(std::int32_t code) {
  constexpr std::array<Relation, 6> kCompared = {Relation::kEqual,   Relation::kNotEqual,
                                                 Relation::kGreater, Relation::kNotGreater,
                                                 Relation::kLess,    Relation::kNotLess};
  constexpr std::array<Relation, 3> kCounted = {Relation::kEqual, Relation::kGreater,
                                                Relation::kLess};
  if (IsComparison(code)) return kCompared[static_cast<std::size_t>(code - kEqualAmount) % 6];
  if (IsCount(code)) return kCounted[static_cast<std::size_t>(code - kNumberIs)];
  return Relation::kNone;
}

ConditionTest TestOfSlots(const CompiledLine& line) {
  const SelectionForm form = line.subject.form;
  const bool total = form == SelectionForm::kTotal;
  const bool average = form == SelectionForm::kAverage;
  if (form == SelectionForm::kNothing) return ConditionTest::kNever;
  if (IsThingComparison(line.code)) return ConditionTest::kThing;
  if (IsAmountComparison(line.code)) {
    const bool one_value = total || average || form == SelectionForm::kOne;
    return one_value ? ConditionTest::kValue : ConditionTest::kAmount;
  }
  if (IsStreakCode(line.code) && !average) {
    if (!total) return ConditionTest::kStreak;
    return line.code <= kHasLostMore ? ConditionTest::kRuns : ConditionTest::kNever;
  }
  if (IsCount(line.code) && total) return ConditionTest::kCount;
  if (line.code == kIsNamed || line.code == kIsNotNamed) {
    const bool stacks = !total && !average && line.subject.range.first >= kFirstStack;
    return stacks ? ConditionTest::kStackName : ConditionTest::kNever;
  }
  return ConditionTest::kNever;
}

void CompileCondition(const ScriptLine& source, CompiledLine& line) {
  const std::int32_t subject = source.LineSubject;
  line.text = Trim(source.LineName);
  line.by_target = IsThingComparison(line.code);
  line.relation = RelationOf(line.code);

  if (const auto row = FindSubject(kSimpleRows, subject); row != kSimpleRows.end()) {
    line.test = row->test;
  } else if (subject == kAnswerWasYes || subject == kAnswerWasNo) {
    line.test = ConditionTest::kAnswer;
    line.counter = static_cast<std::uint8_t>(subject == kAnswerWasYes ? kAnswerYes : kAnswerNo);
  } else if (const auto point = FindSubject(kPointTests, subject); point != kPointTests.end()) {
    const auto set = std::find_if(kPointRows.begin(), kPointRows.end(),
                                  [&line](const PointRow& r) { return r.code == line.code; });
    if (set == kPointRows.end()) return;
    line.test = point->test;
    line.point_set = set->set;
  } else if (const auto counter = FindSubject(kCounterRows, subject);
             counter != kCounterRows.end()) {
    if (!IsComparison(line.code)) return;
    line.test = ConditionTest::kCounter;
    line.counter = static_cast<std::uint8_t>(counter->counter);
    line.news = counter->news;
  } else if (const auto value = FindSubject(kValueTests, subject); value != kValueTests.end()) {
    if (IsComparison(line.code)) line.test = value->test;
  } else if (subject == kFlagSubject) {
    line.test = ConditionTest::kFlag;
  } else if (subject == kAllFlags) {
    line.test = ConditionTest::kAllFlags;
  } else if (subject == kTrueFlags || subject == kFalseFlags) {
    if (IsCount(line.code)) line.test = ConditionTest::kFlagCount;
  } else if (subject >= kRollEventFirst && subject < kRollEventFirst + kRollCategories) {
    if (line.code < kHasRolled || line.code > kHasNotRolledInLast) return;
    line.test = ConditionTest::kRollEvent;
    line.counter = static_cast<std::uint8_t>(subject - kRollEventFirst);
  } else {
    line.subject = ConditionSelection(subject, source.LineSubjectStack);
    if (line.by_target) {
      // The bankroll as it stands is what can be compared slot by slot.
      const std::int32_t target =
          source.LineTarget == kAvailableBankroll ? kBankrollSubject : source.LineTarget;
      line.target = ConditionSelection(target, source.LineTargetStack);
    }
    line.test = TestOfSlots(line);
  }
}

bool IsAction(const ScriptLine& line, std::initializer_list<std::int32_t> codes) {
  return line.LineKind == kActionLine &&
         std::find(codes.begin(), codes.end(), line.LineCode) != codes.end();
}

bool ContinuesGroup(const ScriptLine& line, const ScriptLine& before) {
  return before.LineKind == kActionLine && before.LineCode == line.LineCode &&
         before.LineTarget == line.LineTarget && before.LineTargetStack == line.LineTargetStack;
}

bool IsQuestion(std::int32_t code) {
  return code == kActionQuestion || code == kActionQuestionValue;
}
// Whether the line adds to the text that a line of that code goes on with.
bool AddsText(const ScriptLine& line, std::int32_t code) {
  return IsQuestion(code) ? IsAction(line, {kActionQuestion, kActionQuestionValue})
                          : IsAction(line, {kActionMessage, kActionMessageValue});
}
// Whether the line shows, in its own turn, the text of a line of that code.
bool TakesText(const ScriptLine& line, std::int32_t code) {
  return AddsText(line, code) || (!IsQuestion(code) && IsAction(line, {kActionInput}));
}

std::string ActionText(const ScriptLine& source) {
  switch (source.LineCode) {
    case kActionMessage:
    case kActionQuestion:
    case kActionOutputMessage:
      return std::string(TrimRight(source.LineName));
    case kActionNameStack:
    case kActionNameStackReference:
      return source.LineName;
    case kActionInput:
      return source.LineText.size() > kInputTargetColumn
                 ? source.LineText.substr(kInputTargetColumn)
                 : std::string();
    default:
      return std::string(Trim(source.LineName));
  }
}

bool IsVerb(std::int32_t code) {
  return code >= kFirstVerbCode && code <= kLastVerbCode && code % 10 <= kFormAverageOfLast;
}
bool WorksOnTarget(std::int32_t code) {
  return (code >= kActionBuyPlace && code <= kActionResetRolls) || code == kActionInput ||
         code == kActionRound;
}

using LabelLines = std::unordered_map<std::string, std::int32_t>;

std::string LabelKey(const ScriptLine& line) {
  return Lower(Trim(line.LineName));
}

void CompileAction(const std::vector<ScriptLine>& sources, std::size_t at, const LabelLines& labels,
                   CompiledLine& line) {
  const ScriptLine& source = sources[at];
  const ScriptLine* before = at == 0 ? nullptr : &sources[at - 1];
  const ScriptLine* after = at + 1 == sources.size() ? nullptr : &sources[at + 1];
  if (IsVerb(line.code)) {
    line.verb = static_cast<std::uint8_t>(line.code / 10);
    line.form = static_cast<std::uint8_t>(line.code % 10);
  }
  line.works_on_target = line.verb != 0 || WorksOnTarget(line.code);
  line.text = ActionText(source);
  line.target = ActionTarget(source);
  line.spares_places = source.LineTarget >= kListPlace && source.LineTarget <= kListOutsidePlace;
  if (line.verb == kBet && line.form == kFormAmount && !line.spares_places &&
      line.target.place == SelectionPlace::kFixed && line.target.range.IsOneSlot()) {
    line.bet_slot = line.target.range.first;
  }
  line.continues_group = before == nullptr || ContinuesGroup(source, *before);
  line.starts_text = before == nullptr || !AddsText(*before, line.code);
  line.ends_text = after == nullptr || !TakesText(*after, line.code);
  if (line.code == kActionGoTo || line.code == kActionGosub) {
    const std::string key = LabelKey(source);
    const auto label = labels.find(key);
    if (!key.empty()) {
      line.jump =
          label == labels.end() ? static_cast<std::int32_t>(sources.size()) + 1 : label->second;
    }
  }
}

void FindFlag(const std::vector<ScriptFlag>& flags, CompiledLine& line) {
  const auto has_name = [&line](const ScriptFlag& flag) { return flag.FlagName == line.text; };
  const auto first = std::find_if(flags.begin(), flags.end(), has_name);
  if (first == flags.end()) return;
  line.flag = static_cast<std::int32_t>(first - flags.begin());
  line.flag_is_only_one = std::find_if(first + 1, flags.end(), has_name) == flags.end();
}

}  // namespace

SlotRange RangeOfList(std::int32_t code) {
  switch (code) {
    case kListBets:
      return Slots(1, kBetCount);
    case kListLay:
      return Slots(kLay, kLay + kSlotCount - 1);
    case kListCome:
      return Slots(kComePoint, kComePoint + kSlotCount - 1);
    case kListComeOdds:
      return Slots(kComeOdds, kComeOdds + kSlotCount - 1);
    case kListPlace:
      return Slots(kPlace, kPlace + kSlotCount - 1);
    case kListInsidePlace:
      return Slots(BetOnNumber(kPlace, 5), BetOnNumber(kPlace, 9));
    case kListOutsidePlace: {
      SlotRange range = Slots(kPlace, kPlace + kSlotCount - 1);
      range.hole_first = static_cast<std::int16_t>(BetOnNumber(kPlace, 6));
      range.hole_last = static_cast<std::int16_t>(BetOnNumber(kPlace, 8));
      return range;
    }
    case kListBuy:
      return Slots(kBuy, kBuy + kSlotCount - 1);
    default:
      return {};
  }
}

int FamilyOnPoint(std::int32_t code) {
  switch (code) {
    case kLayOnPoint:
      return kLay;
    case kComeOnPoint:
      return kComePoint;
    case kComeOddsOnPoint:
      return kComeOdds;
    case kPlaceOnPoint:
      return kPlace;
    case kBuyOnPoint:
      return kBuy;
    default:
      return 0;
  }
}

int SlotOnPoint(int family, std::int32_t point) {
  return point >= 2 && point <= 12 && point != 7 ? BetOnNumber(family, point) : -1;
}

int ReferredStack(MoneyAmount amount) {
  const std::int64_t whole = amount.FloorWhole();
  return whole >= 0 && whole < kStackCount ? static_cast<int>(whole) : -1;
}

SlotRange SlotsReferredTo(const Game& game, const Selection& selection) {
  int slot = -1;
  switch (selection.place) {
    case SelectionPlace::kFixed:
      return selection.range;
    case SelectionPlace::kStackReference:
      slot = ReferredStack(game.BetAmount[selection.range.first]);
      if (slot >= 0) slot += kFirstStack;
      break;
    case SelectionPlace::kOnPoint:
      slot = SlotOnPoint(selection.range.first, game.Point);
      break;
  }
  return slot < 0 ? SlotRange{} : Slots(slot, slot);
}

std::shared_ptr<const CompiledScript> Compile(const ScriptState& script) {
  const std::vector<ScriptLine>& sources = script.ScriptLines;
  LabelLines labels;
  for (std::size_t at = 0; at < sources.size(); ++at) {
    if (sources[at].LineKind == kLabelLine)
      labels.emplace(LabelKey(sources[at]), static_cast<std::int32_t>(at) + 1);
  }

  auto compiled = std::make_shared<CompiledScript>();
  compiled->flags = script.ScriptFlags.size();
  compiled->lines.resize(sources.size());
  for (std::size_t at = 0; at < sources.size(); ++at) {
    const ScriptLine& source = sources[at];
    CompiledLine& line = compiled->lines[at];
    line.kind = source.LineKind;
    line.code = source.LineCode;
    line.amount = source.LineAmount;
    line.subject_code = source.LineSubject;
    line.subject_stack = source.LineSubjectStack;
    line.target_code = source.LineTarget;
    line.target_stack = source.LineTargetStack;
    if (line.kind == kConditionLine) CompileCondition(source, line);
    if (line.kind == kActionLine) CompileAction(sources, at, labels, line);
    if (line.test == ConditionTest::kFlag || line.code == kActionSetFlag)
      FindFlag(script.ScriptFlags, line);
  }
  // Comments stand where they like.
  for (std::size_t at = sources.size(); at-- > 0;) {
    CompiledLine& line = compiled->lines[at];
    line.pass_to = static_cast<std::int32_t>(at) + 2;
    const bool opens_actions = line.kind == kThen || line.kind == kElse;
    const std::int32_t kind = opens_actions ? std::int32_t{kActionLine} : line.kind;
    while (line.pass_to <= static_cast<std::int32_t>(sources.size())) {
      const CompiledLine& next = compiled->lines[static_cast<std::size_t>(line.pass_to) - 1];
      if (next.kind != kind && next.kind != kCommentLine) break;
      line.pass_to = next.pass_to;
    }
  }
  return compiled;
}

}  // namespace feltmaster
