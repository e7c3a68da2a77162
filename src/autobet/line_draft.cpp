#include "autobet/line_draft.h"

#include <algorithm>
#include <span>

#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "autobet/text_form.h"
#include "base/number_format.h"
#include "base/text.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kHelpOnLabels = 554;
constexpr std::int32_t kHelpOnFlags = 558;

// ---- What the rows need -----------------------------------------------------------------------

std::span<const Field> FieldsOf(const LineDraft& draft) {
  if (draft.condition != nullptr) return draft.condition->fields;
  return draft.action->fields;
}

bool HasField(const LineDraft& draft, auto&& test) {
  return std::ranges::any_of(FieldsOf(draft), test) ||
         (draft.comparison != nullptr && test(draft.comparison->operand));
}

// The field that LineName is typed or picked for, if there is one.
Field NameField(const LineDraft& draft) {
  Field found = Field::kNone;
  HasField(draft, [&](Field field) {
    if (field == Field::kFlag || field == Field::kLabel || field == Field::kName ||
        field == Field::kText) {
      found = field;
    }
    return false;
  });
  return found;
}

bool IsValueList(Field field) {
  return field == Field::kValue || field == Field::kRounding;
}
// The rows of listOf, and those of listTo or listCompare.
PickList ValuesOf(const LineDraft& draft) {
  PickList list;
  HasField(draft, [&](Field field) {
    if (IsValueList(field)) list = PicksOf(field);
    return false;
  });
  return list;
}
PickList TargetsOf(const LineDraft& draft) {
  PickList list;
  HasField(draft, [&](Field field) {
    if (!IsValueList(field) && !PicksOf(field).empty()) list = PicksOf(field);
    return false;
  });
  return list;
}

std::vector<const ComparisonRow*> ComparisonsOf(const LineDraft& draft) {
  std::vector<const ComparisonRow*> rows;
  if (draft.condition == nullptr) return rows;
  for (const ComparisonList& list : draft.condition->comparisons) {
    for (const ComparisonRow& row : list) rows.push_back(&row);
  }
  return rows;
}

std::vector<std::string> LabelsOf(const LineDraft& draft, const Game& game) {
  if (NameField(draft) != Field::kLabel) return {};
  if (game.ScriptLabels.empty()) return {"*** No labels in use ***"};
  return game.ScriptLabels;
}

// The row that takes the place of an old one: the same row, or the one with its code, or the first.
const PickRow* Kept(PickList list, const PickRow* old) {
  if (list.empty()) return nullptr;
  const PickRow* same = old == nullptr ? nullptr : FindPick(list, old->code);
  return same != nullptr ? same : &list.front();
}
const ComparisonRow* Kept(const LineDraft& draft) {
  const std::vector<const ComparisonRow*> rows = ComparisonsOf(draft);
  if (rows.empty()) return nullptr;
  const ComparisonRow* old = draft.comparison;
  if (std::ranges::find(rows, old) != rows.end()) return old;
  const auto same = std::ranges::find_if(rows, [old](const ComparisonRow* row) {
    return old != nullptr && row->code == old->code && row->operand == old->operand;
  });
  return same == rows.end() ? rows.front() : *same;
}

// ---- What the fields hold ---------------------------------------------------------------------

std::string AmountText(Field field, std::string_view text) {
  const MoneyAmount amount = ParseMoney(text);
  if (field == Field::kTimesOrEach && amount == MoneyAmount()) return std::string(kEachTime);
  if (field == Field::kPositiveAmount) return PlainNumber(Abs(amount));
  return PlainNumber(amount);
}
std::int32_t NumberOf(std::string_view digits) {
  return static_cast<std::int32_t>(ParseMoney(digits).RoundWhole());
}
std::string NumberText(bool is_average, std::string_view text) {
  const std::int32_t most = is_average ? 999 : 99;
  const std::int32_t number = std::clamp(NumberOf(text), 0, most);
  return is_average && number == 0 ? std::string(kAllRolls) : std::to_string(number);
}

// Puts the fields in order after a choice.
void Settle(LineDraft& draft) {
  draft.comparison = Kept(draft);
  draft.value = Kept(ValuesOf(draft), draft.value);
  draft.target = Kept(TargetsOf(draft), draft.target);
  for (const ShownPart& shown : PartsOf(draft)) SettleField(draft, shown.part);
}

std::string_view TruthWords(Field field, bool truth) {
  switch (field) {
    case Field::kAreTrue:
      return truth ? "are True" : "are False";
    case Field::kToTrue:
      return truth ? "to True" : "to False";
    default:
      return truth ? "is True" : "is False";
  }
}
std::string_view TimesWords(Field field, std::string_view amount) {
  const bool one = amount == kEachTime || ParseMoney(amount) == MoneyAmount(1);
  if (field == Field::kRolls) return one ? "roll" : "rolls";
  return one ? "time" : "times";
}

std::string Quoted(std::string_view name) {
  std::string text = "\"";
  text += name;
  return text += '"';
}

class Sentence {
 public:
  explicit Sentence(const LineDraft& draft) : draft_(draft) {}

  void Add(DraftPart part, std::string_view text, Field field = Field::kNone) {
    parts.push_back({part, std::string(text), field});
  }
  void AddPick(DraftPart part, const PickRow& row, DraftPart number_part, Field field) {
    Add(part, row.caption, field);
    const std::string& number =
        number_part == DraftPart::kStack ? draft_.stack : draft_.target_stack;
    if (NeedsStack(row.code)) Add(number_part, number, Field::kStack);
    if (NeedsAverage(row.code)) {
      Add(number_part, number, Field::kAverage);
      if (field == Field::kComparedWith) Add(DraftPart::kTimes, kAverageWords);
    }
  }
  void AddField(Field field) {
    switch (field) {
      case Field::kNone:
        break;
      case Field::kAmount:
      case Field::kPositiveAmount:
        Add(DraftPart::kAmount, draft_.amount, field);
        break;
      case Field::kTimes:
      case Field::kTimesOrEach:
      case Field::kRolls:
        Add(DraftPart::kAmount, draft_.amount, field);
        Add(DraftPart::kTimes, TimesWords(field, draft_.amount), field);
        break;
      case Field::kStack:
        Add(DraftPart::kStack, draft_.stack, field);
        break;
      case Field::kAverage:
        Add(DraftPart::kStack, draft_.stack, field);
        Add(DraftPart::kAverageWords, kAverageWords);
        break;
      case Field::kFlag:
        Add(DraftPart::kFlag, draft_.name, field);
        break;
      case Field::kLabel:
        Add(DraftPart::kLabel, draft_.name.empty() ? "" : Quoted(draft_.name), field);
        break;
      case Field::kName:
      case Field::kText:
        Add(DraftPart::kName, draft_.name, field);
        break;
      case Field::kIsTrue:
      case Field::kAreTrue:
      case Field::kToTrue:
        Add(DraftPart::kTruth, TruthWords(field, draft_.truth), field);
        break;
      case Field::kValue:
      case Field::kRounding:
        AddPick(DraftPart::kValue, *draft_.value, DraftPart::kStack, field);
        break;
      case Field::kWordPercentOf:
        Add(DraftPart::kOperator, WordsOf(field));
        break;
      case Field::kWordOn:
      case Field::kWordTo:
      case Field::kWordFrom:
      case Field::kWordAs:
      case Field::kWordFromAtm:
      case Field::kWordInAtm:
        Add(DraftPart::kOn, WordsOf(field));
        break;
      default:
        AddPick(DraftPart::kTarget, *draft_.target, DraftPart::kTargetStack, field);
    }
  }

  std::vector<ShownPart> parts;

 private:
  const LineDraft& draft_;
};

std::optional<ShownPart> Find(const LineDraft& draft, DraftPart part) {
  for (const ShownPart& shown : PartsOf(draft)) {
    if (shown.part == part) return shown;
  }
  return std::nullopt;
}

bool IsDigits(std::string_view text) {
  return text.find_first_not_of("0123456789") == std::string_view::npos;
}

bool IsAmountText(std::string_view text, bool may_be_negative) {
  if (may_be_negative && text.starts_with('-')) text.remove_prefix(1);
  const std::size_t point = std::min(text.find('.'), text.size());
  const std::string_view decimals = text.substr(std::min(point + 1, text.size()));
  return point <= kWholeDigits && IsDigits(text.substr(0, point)) && decimals.size() <= kDecimals &&
         IsDigits(decimals);
}

std::string_view TitleOf(const LineDraft& draft) {
  return draft.condition != nullptr ? "Log Condition" : "Log Action";
}

}  // namespace

// ---- Choosing ---------------------------------------------------------------------------------

LineDraft ConditionDraft(const ConditionRow& row) {
  LineDraft draft{.condition = &row};
  Settle(draft);
  return draft;
}

LineDraft ActionDraft(const ActionRow& row) {
  LineDraft draft{.action = &row};
  Settle(draft);
  return draft;
}

std::vector<std::string> RowsOf(const LineDraft& draft, DraftList list, const Game& game) {
  std::vector<std::string> captions;
  const auto add = [&](const auto& rows) {
    for (const auto& row : rows) captions.emplace_back(row.caption);
  };
  switch (list) {
    case DraftList::kLineRows:
      if (draft.condition != nullptr) {
        add(kConditions);
      } else {
        add(kActions);
      }
      break;
    case DraftList::kComparisonRows:
      for (const ComparisonRow* row : ComparisonsOf(draft)) captions.emplace_back(row->caption);
      break;
    case DraftList::kValueRows:
      add(ValuesOf(draft));
      break;
    case DraftList::kTargetRows:
      add(TargetsOf(draft));
      break;
    case DraftList::kLabelRows:
      return LabelsOf(draft, game);
  }
  return captions;
}

int ChosenRow(const LineDraft& draft, DraftList list, const Game& game) {
  switch (list) {
    case DraftList::kLineRows:
      return static_cast<int>(draft.condition != nullptr ? draft.condition - kConditions.data()
                                                         : draft.action - kActions.data());
    case DraftList::kComparisonRows: {
      const std::vector<const ComparisonRow*> rows = ComparisonsOf(draft);
      const auto chosen = std::ranges::find(rows, draft.comparison);
      return chosen == rows.end() ? -1 : static_cast<int>(chosen - rows.begin());
    }
    case DraftList::kValueRows:
      return draft.value == nullptr ? -1 : static_cast<int>(draft.value - ValuesOf(draft).data());
    case DraftList::kTargetRows:
      return draft.target == nullptr ? -1
                                     : static_cast<int>(draft.target - TargetsOf(draft).data());
    case DraftList::kLabelRows:
      break;
  }
  const auto chosen =
      std::ranges::find(game.ScriptLabels, ScriptNameKey(draft.name),
                        [](const std::string& label) { return ScriptNameKey(label); });
  return chosen == game.ScriptLabels.end() ? -1
                                           : static_cast<int>(chosen - game.ScriptLabels.begin());
}

void ChooseRow(LineDraft& draft, DraftList list, int row, const Game& game) {
  const std::size_t index = static_cast<std::size_t>(row);
  const Field old_name = NameField(draft);
  switch (list) {
    case DraftList::kLineRows:
      if (draft.condition != nullptr) {
        draft.condition = &kConditions[index];
      } else {
        draft.action = &kActions[index];
      }
      break;
    case DraftList::kComparisonRows:
      draft.comparison = ComparisonsOf(draft)[index];
      break;
    case DraftList::kValueRows:
      draft.value = &ValuesOf(draft)[index];
      break;
    case DraftList::kTargetRows:
      draft.target = &TargetsOf(draft)[index];
      break;
    case DraftList::kLabelRows:
      if (index < game.ScriptLabels.size()) draft.name = game.ScriptLabels[index];
      break;
  }
  const Field name = NameField(draft);
  if (name != old_name) draft.name.clear();
  if (name == Field::kLabel && draft.name.empty() && !game.ScriptLabels.empty()) {
    draft.name = game.ScriptLabels.back();
  }
  Settle(draft);
}

std::vector<ShownPart> PartsOf(const LineDraft& draft) {
  Sentence sentence(draft);
  const ConditionRow* condition = draft.condition;
  if (condition != nullptr) {
    sentence.Add(DraftPart::kCaption,
                 condition->shown.empty() ? condition->caption : condition->shown);
  } else {
    sentence.Add(DraftPart::kCaption, draft.action->caption);
  }
  for (const Field field : FieldsOf(draft)) sentence.AddField(field);
  if (draft.comparison != nullptr) {
    sentence.Add(DraftPart::kComparison, draft.comparison->caption);
    sentence.AddField(draft.comparison->operand);
  }
  return std::move(sentence.parts);
}

// ---- Typing -----------------------------------------------------------------------------------

std::string& TextOf(LineDraft& draft, DraftPart part) {
  switch (part) {
    case DraftPart::kStack:
      return draft.stack;
    case DraftPart::kTargetStack:
      return draft.target_stack;
    case DraftPart::kAmount:
      return draft.amount;
    default:
      return draft.name;
  }
}

void SettleField(LineDraft& draft, DraftPart part) {
  const std::optional<ShownPart> shown = Find(draft, part);
  if (!shown) return;
  std::string& text = TextOf(draft, part);
  if (part == DraftPart::kAmount) text = AmountText(shown->field, text);
  if (part == DraftPart::kStack || part == DraftPart::kTargetStack) {
    text = NumberText(shown->field == Field::kAverage, text);
  }
}

bool FieldTakes(const LineDraft& draft, const ShownPart& part, std::string_view text) {
  switch (part.part) {
    case DraftPart::kAmount:
      return (part.field == Field::kTimesOrEach && text == kEachTime) ||
             IsAmountText(text, part.field != Field::kPositiveAmount);
    case DraftPart::kStack:
    case DraftPart::kTargetStack: {
      const bool average = part.field == Field::kAverage;
      return (average && text == kAllRolls) ||
             (IsDigits(text) && text.size() <= (average ? kAverageDigits : kStackDigits));
    }
    default:
      break;
  }
  if (text.size() > kLineNameSize) return false;
  LineDraft longer = draft;
  longer.name = text;
  std::size_t size = kLineIndentation;
  for (const ShownPart& shown : PartsOf(longer)) size += shown.text.size() + 1;
  return size + 1 <= kLineTextSize;  // two quotes, and no blank in front
}

std::string_view FileCaptionOf(const LineDraft& draft) {
  switch (draft.action == nullptr ? 0 : draft.action->code) {
    case kActionPlaySound:
      return "Select Wave File";
    case kActionActivateProbability:
      return "Select Probability File";
    case kActionOpenClear:
    case kActionOpenAppend:
      return "Select File  or  Enter New File Name";
    default:
      return {};
  }
}

// ---- Composing --------------------------------------------------------------------------------

std::optional<DraftFault> FaultOf(const LineDraft& draft, const Game& game) {
  const std::string title(TitleOf(draft));
  const Field name = NameField(draft);
  if (name == Field::kLabel && (game.ScriptLabels.empty() || draft.name.empty())) {
    return DraftFault{"You need to enter a label to go to.", title, kHelpOnLabels, std::nullopt};
  }
  if (name == Field::kFlag && Trim(draft.name).empty()) {
    return DraftFault{"You need to enter a Flag name.", title, kHelpOnFlags, DraftPart::kFlag};
  }
  return std::nullopt;
}

ScriptLine LineOf(const LineDraft& draft) {
  ScriptLine line;
  const bool is_condition = draft.condition != nullptr;
  line.LineKind = is_condition ? kConditionLine : kActionLine;
  if (is_condition) {
    line.LineSubject = draft.condition->code;
    line.LineCode = draft.comparison == nullptr ? 0 : draft.comparison->code;
  } else {
    line.LineCode = draft.action->code;
  }
  for (const ShownPart& shown : PartsOf(draft)) {
    switch (shown.part) {
      case DraftPart::kStack:
        line.LineSubjectStack = NumberOf(draft.stack);
        break;
      case DraftPart::kTargetStack:
        line.LineTargetStack = NumberOf(draft.target_stack);
        break;
      case DraftPart::kAmount:
        line.LineAmount = ParseMoney(AmountText(shown.field, draft.amount));
        break;
      case DraftPart::kTruth:
        line.LineAmount = MoneyAmount(draft.truth ? -1 : 0);
        break;
      case DraftPart::kValue:
        line.LineSubject = draft.value->code;
        break;
      case DraftPart::kTarget:
        line.LineTarget = draft.target->code;
        break;
      case DraftPart::kFlag:
      case DraftPart::kLabel:
        line.LineName = Trim(draft.name);
        break;
      case DraftPart::kName:
        line.LineName = shown.field == Field::kText ? TrimRight(draft.name) : Trim(draft.name);
        break;
      default:
        break;
    }
  }
  FinishLine(line, draft.comparison);
  return line;
}

std::optional<LineDraft> DraftOf(const ScriptLine& line) {
  LineDraft draft;
  if (line.LineKind == kConditionLine) draft.condition = FindCondition(line.LineSubject);
  if (line.LineKind == kActionLine) draft.action = FindAction(line.LineCode);
  if (draft.condition == nullptr && draft.action == nullptr) return std::nullopt;
  for (const ComparisonRow* row : ComparisonsOf(draft)) {
    if (row->code != line.LineCode) continue;
    if (draft.comparison == nullptr) draft.comparison = row;
    if (LineTextOf(line, row) == line.LineText) draft.comparison = row;
  }
  const PickRow value = {line.LineSubject};
  const PickRow target = {line.LineTarget};
  draft.value = &value;
  draft.target = &target;
  draft.amount = PlainNumber(line.LineAmount);
  draft.stack = std::to_string(line.LineSubjectStack);
  draft.target_stack = std::to_string(line.LineTargetStack);
  draft.truth = line.LineAmount != MoneyAmount();
  draft.name = line.LineName;
  Settle(draft);
  if (NameField(draft) == Field::kNone) draft.name.clear();
  return draft;
}

ScriptLine StartLine(const StartRow& row) {
  ScriptLine line;
  line.LineKind = row.kind;
  FinishLine(line);
  return line;
}

std::optional<DraftFault> LabelFault(std::string_view text, const Game& game) {
  const auto fault = [](std::string why) {
    return DraftFault{std::move(why), "Log Label", kHelpOnLabels, std::nullopt};
  };
  const std::string key = ScriptNameKey(text);
  if (key.empty()) return fault("You must enter a label name.");
  if (key.starts_with('\'')) return std::nullopt;
  const bool used = std::ranges::any_of(game.ScriptLines, [&](const ScriptLine& line) {
    return line.LineKind == kLabelLine && ScriptNameKey(line.LineName) == key;
  });
  if (used) return fault("That label name is already in use.");
  return std::nullopt;
}

ScriptLine LabelLine(std::string_view text) {
  ScriptLine line;
  line.LineName = TrimRight(CutAtCharacter(Trim(text), kLineNameSize));
  line.LineKind = line.LineName.starts_with('\'') ? kCommentLine : kLabelLine;
  FinishLine(line);
  return line;
}

}  // namespace feltmaster
