#include "autobet/vocabulary.h"

namespace feltmaster {

namespace {

template <typename Rows>
auto FindCode(const Rows& rows, std::int32_t code) -> decltype(&rows[0]) {
  for (const auto& row : rows) {
    if (row.code == code) return &row;
  }
  return nullptr;
}

}  // namespace

const StartRow* FindStart(std::int32_t kind) {
  for (const StartRow& row : kStartRows) {
    if (row.kind == kind) return &row;
  }
  return nullptr;
}

const ConditionRow* FindCondition(std::int32_t code) {
  return FindCode(kConditions, code);
}

const ComparisonRow* FindComparison(const ConditionRow& condition, std::int32_t code) {
  for (const ComparisonList& list : condition.comparisons) {
    if (const ComparisonRow* row = FindCode(list, code)) return row;
  }
  return nullptr;
}

const ActionRow* FindAction(std::int32_t code) {
  return FindCode(kActions, code);
}

const PickRow* FindPick(PickList list, std::int32_t code) {
  return FindCode(list, code);
}

PickList PicksOf(Field field) {
  switch (field) {
    case Field::kComparedWith:
      return kComparedThings;
    case Field::kValue:
      return kValues;
    case Field::kRounding:
      return kRoundings;
    case Field::kTarget:
      return kTargets;
    case Field::kPlaceTarget:
      return kPlaceTargets;
    case Field::kRollTarget:
      return kRollTargets;
    case Field::kWinRule:
      return kWinRules;
    case Field::kLossRule:
      return kLossRules;
    default:
      return {};
  }
}

std::string_view WordsOf(Field field) {
  switch (field) {
    case Field::kWordPercentOf:
      return "% of";
    case Field::kWordOn:
      return "on";
    case Field::kWordTo:
      return "to";
    case Field::kWordFrom:
      return "from";
    case Field::kWordAs:
      return "as";
    case Field::kWordFromAtm:
      return "from the ATM";
    case Field::kWordInAtm:
      return "in the ATM";
    default:
      return {};
  }
}

}  // namespace feltmaster
