#include "autobet/script_text.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>

#include "autobet/script_lines.h"
#include "autobet/vocabulary.h"

namespace feltmaster {
namespace {

ScriptLine Compose(std::string_view text) {
  const auto composed = ComposeLine(text);
  if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) {
    ADD_FAILURE() << text << ": column " << fault->column << ", expected " << fault->expected;
    return {};
  }
  return std::get<ScriptLine>(composed);
}

ScriptTextFault Refused(std::string_view text) {
  const auto composed = ComposeLine(text);
  if (std::holds_alternative<ScriptTextFault>(composed)) {
    return std::get<ScriptTextFault>(composed);
  }
  ADD_FAILURE() << text << " was taken as kind " << std::get<ScriptLine>(composed).LineKind;
  return {};
}

// Counts the lines that did not come back, and shows the first of them.
class RoundTrip {
 public:
  ~RoundTrip() {
    EXPECT_EQ(failures_, 0) << "first: " << first_;
    EXPECT_GT(lines_, 0);
  }
  int Lines() const { return lines_; }

  void operator()(ScriptLine line) {
    ++lines_;
    line.LineText = LineTextOf(line);
    const auto composed = ComposeLine(line.LineText);
    const auto* back = std::get_if<ScriptLine>(&composed);
    if (back != nullptr && SameLine(*back, line)) return;
    if (++failures_ == 1) first_ = line.LineText;
  }

 private:
  int lines_ = 0;
  int failures_ = 0;
  std::string first_;
};

// Every way of filling in a field that a player has.
void Fill(Field field, const ScriptLine& line, const std::function<void(const ScriptLine&)>& take) {
  const auto amounts = [&](std::initializer_list<std::int64_t> raws) {
    for (const std::int64_t raw : raws) {
      ScriptLine filled = line;
      filled.LineAmount = MoneyAmount::FromRaw(raw);
      take(filled);
    }
  };
  const auto names = [&](std::initializer_list<const char*> texts) {
    for (const char* text : texts) {
      ScriptLine filled = line;
      filled.LineName = text;
      take(filled);
    }
  };
  const auto picks = [&](std::int32_t ScriptLine::*code, std::int32_t ScriptLine::*stack) {
    for (const PickRow& row : PicksOf(field)) {
      ScriptLine filled = line;
      filled.*code = row.code;
      if (NeedsStack(row.code) || NeedsAverage(row.code)) {
        for (const int number : {0, 7, 99}) {
          filled.*stack = number;
          take(filled);
        }
      } else {
        take(filled);
      }
    }
  };
  switch (field) {
    case Field::kAmount:
      amounts({0, 10'000, 125'000, -2'500, 99'999'999'999'999'999});
      break;
    case Field::kPositiveAmount:
      amounts({0, 50'000, 12'345});
      break;
    case Field::kTimes:
    case Field::kTimesOrEach:
    case Field::kRolls:
      amounts({0, 10'000, 20'000, 125'000, -10'000});
      break;
    case Field::kIsTrue:
    case Field::kAreTrue:
    case Field::kToTrue:
      amounts({0, -10'000});
      break;
    case Field::kFlag:
    case Field::kLabel:
    case Field::kName:
      names({"a", "Two words", "say \"hi\"", "end;", "is True"});
      break;
    case Field::kText:
      names({"", ";", "a", "a;", "a\";", "He said \"no\"", " to True", "\xC3\xA9t\xC3\xA9",
             "01234567890123456789012345678901234567890123456789012345678901234567890123456789"});
      break;
    case Field::kStack:
      for (const int number : {0, 5, 99}) {
        ScriptLine filled = line;
        filled.LineSubjectStack = number;
        take(filled);
      }
      break;
    case Field::kAverage:
      for (const int number : {0, 1, 999}) {
        ScriptLine filled = line;
        filled.LineSubjectStack = number;
        take(filled);
      }
      break;
    case Field::kValue:
    case Field::kRounding:
      picks(&ScriptLine::LineSubject, &ScriptLine::LineSubjectStack);
      break;
    case Field::kComparedWith:
    case Field::kTarget:
    case Field::kPlaceTarget:
    case Field::kRollTarget:
    case Field::kWinRule:
    case Field::kLossRule:
      picks(&ScriptLine::LineTarget, &ScriptLine::LineTargetStack);
      break;
    default:
      take(line);
      break;
  }
}

void FillAll(std::span<const Field> fields, const ScriptLine& line,
             const std::function<void(const ScriptLine&)>& take) {
  if (fields.empty()) return take(line);
  Fill(fields[0], line,
       [&](const ScriptLine& filled) { FillAll(fields.subspan(1), filled, take); });
}

TEST(ScriptText, EveryConditionRoundTrips) {
  RoundTrip round_trip;
  for (const ConditionRow& condition : kConditions) {
    ScriptLine line;
    line.LineKind = kConditionLine;
    line.LineSubject = condition.code;
    FillAll(condition.fields, line, [&](const ScriptLine& filled) {
      if (condition.comparisons[0].empty()) round_trip(filled);
      for (const ComparisonList& list : condition.comparisons) {
        for (const ComparisonRow& comparison : list) {
          ScriptLine compared = filled;
          compared.LineCode = comparison.code;
          Fill(comparison.operand, compared, std::ref(round_trip));
        }
      }
    });
  }
  EXPECT_GT(round_trip.Lines(), 100'000);
}

// All pairs of "of" and "to" run for the verb "Bet". The other verbs differ from it in their
// captions alone and take every seventh pair, another seventh each.
TEST(ScriptText, EveryActionRoundTrips) {
  RoundTrip round_trip;
  for (const ActionRow& action : kActions) {
    ScriptLine line;
    line.LineKind = kActionLine;
    line.LineCode = action.code;
    const bool verb = action.code <= kLastVerbCode;
    const bool group = verb && action.code % 10 >= kFormHighest;
    FillAll(action.fields, line, [&](ScriptLine filled) {
      const std::int32_t pair = filled.LineSubject + filled.LineTarget;
      if (verb && action.code / 10 != kBet && pair % 7 != action.code % 7) return;
      if (verb && !filled.LineAmount.IsWhole() && pair % 7 != 0) return;
      if (group) filled.LineName = FindPick(kValues, filled.LineSubject)->caption;
      if (group && NeedsStack(filled.LineSubject)) {
        filled.LineName += ' ' + std::to_string(filled.LineSubjectStack);
      }
      if (group && NeedsAverage(filled.LineSubject)) {
        filled.LineName +=
            filled.LineSubjectStack == 0 ? " all" : ' ' + std::to_string(filled.LineSubjectStack);
      }
      round_trip(filled);
    });
  }
  EXPECT_GT(round_trip.Lines(), 100'000);
}

TEST(ScriptText, RowsThatShareACodeKeepTheirText) {
  for (const ComparisonRow& row : kPointNumbers) {
    const std::string text = "          A point is established on " + std::string(row.caption);
    const ScriptLine line = Compose(text);
    EXPECT_EQ(line.LineText, text);
    EXPECT_EQ(line.LineCode, row.code);
  }
  EXPECT_EQ(LineTextOf(Compose("A point is established on the number 3 or 11")),
            "          A point is established on the number 4 or 10");
}

// The lists hold no two rows with one caption, or a text would mean two things.
TEST(Vocabulary, CaptionsAreUnique) {
  std::set<std::string_view> lines;
  for (const StartRow& row : kStartRows) EXPECT_TRUE(lines.insert(row.caption).second);
  for (const ConditionRow& row : kConditions) {
    EXPECT_TRUE(lines.insert(row.caption).second) << row.caption;
  }
  for (const ActionRow& row : kActions) EXPECT_TRUE(lines.insert(row.caption).second);
  for (const PickList list :
       {PickList(kComparedThings), PickList(kValues), PickList(kTargets), PickList(kRollTargets)}) {
    std::set<std::string_view> captions;
    std::set<std::int32_t> codes;
    for (const PickRow& row : list) {
      EXPECT_TRUE(captions.insert(row.caption).second) << row.caption;
      EXPECT_TRUE(codes.insert(row.code).second) << row.code;
    }
  }
}

struct Sample {
  const char* text;
  ScriptLine line;
};
ScriptLine Condition(std::int32_t subject, std::int32_t code, MoneyAmount amount = {},
                     std::int32_t subject_stack = 0, std::int32_t target = 0,
                     std::int32_t target_stack = 0) {
  ScriptLine line;
  line.LineKind = kConditionLine;
  line.LineSubject = subject;
  line.LineCode = code;
  line.LineAmount = amount;
  line.LineSubjectStack = subject_stack;
  line.LineTarget = target;
  line.LineTargetStack = target_stack;
  return line;
}
ScriptLine Action(std::int32_t code, MoneyAmount amount, std::int32_t subject, std::int32_t stack,
                  std::int32_t target, std::int32_t target_stack, const char* name = "") {
  ScriptLine line = Condition(subject, code, amount, stack, target, target_stack);
  line.LineKind = kActionLine;
  line.LineName = name;
  return line;
}
ScriptLine Named(ScriptLine line, const char* name) {
  line.LineName = name;
  return line;
}

TEST(ScriptText, LinesAsTheEditorPrintsThem) {
  const MoneyAmount none;
  const Sample samples[] = {
      {"          Pass Line has won each time", Condition(51, 1)},
      {"          Pass Line has lost more than 1 time", Condition(51, 4, MoneyAmount(1))},
      {"          Number 6 ((5-1) has not rolled in the last 18 rolls",
       Condition(2034, 10, MoneyAmount(18))},
      {"          Any Come Odds bet  is greater than $ 12.5",
       Condition(1006, 13, MoneyAmount::FromRaw(125'000))},
      {"          The # of rolls in the game are equal to  10",
       Condition(1311, 11, MoneyAmount(10))},
      {"          The # of rolls in the game are equal to bankroll available",
       Condition(1311, 17, none, 0, 1410)},
      {"          Bankroll ( all roll average ) is less than Chip-Stack ref # 12",
       Condition(1401, 21, none, 0, 1601, 12)},
      {"          Bankroll is greater than bankroll average 50 roll average )",
       Condition(1400, 19, none, 0, 1401, 50)},
      {"          Chip-Stack # 4 is not named \"Dad's; \"box\"\"",
       Named(Condition(1600, 27, none, 4), "Dad's; \"box\"")},
      {"          Flag \"Hot hand\" is True",
       Named(Condition(1500, 0, MoneyAmount(-1)), "Hot hand")},
      {"          Total # of false flags number less than 3", Condition(1504, 25, MoneyAmount(3))},
      {"          A point is decided \"for\" or \"against\" any number", Condition(1322, 31)},
      {"          Bet $ 10 on Pass Line", Action(10, MoneyAmount(10), 0, 0, 51, 0)},
      {"          Add $ 5 to Chip-Stack # 3", Action(20, MoneyAmount(5), 0, 0, 1600, 3)},
      {"          Subtract % of the last 50 % of total $ of decided wagers from Place 6",
       Action(32, MoneyAmount(50), 1701, 0, 35, 0)},
      {"          Multiply by the average of: Chip-Stack # 7 on all Place bets",
       Action(47, none, 1600, 7, 1006, 0, "Chip-Stack # 7")},
      {"          Round Chip-Stack ref # 9 down to the nearest $ 5",
       Action(109, MoneyAmount(5), 1102, 0, 1601, 9)},
      {"          Reset rolls on number 3 (1-2) and (2-1)", Action(74, none, 0, 0, 2003, 0)},
      {"          Set Auto-Handle Losing Bets to No Bet/Take Remainder (if any)",
       Action(110, none, 0, 0, 1, 0)},
      {"          ATM - withdraw % of 20 % of average bankroll 120 from the ATM",
       Action(94, MoneyAmount(20), 1401, 120, 0, 0)},
      {"          Name Chip-Stack ref # 5 as \"Odds\"", Action(89, none, 0, 5, 0, 0, "Odds")},
      {"          Show message: \"Total: \";", Action(79, none, 0, 0, 0, 0, "Total: ;")},
      {"          Go to \"start over\"", Action(117, none, 0, 0, 0, 0, "start over")},
      {"          Set all flags to False", Action(78, none, 0, 0, 0, 0)},
      {"          Invoke \"Show Steps\"", Action(81, none, 0, 0, 0, 0)},
  };
  for (const Sample& sample : samples) {
    const ScriptLine line = Compose(sample.text);
    ScriptLine expected = sample.line;
    expected.LineText = line.LineText;
    EXPECT_TRUE(SameLine(line, expected)) << sample.text;
    EXPECT_EQ(line.LineText, sample.text);
    EXPECT_EQ(LineTextOf(sample.line), sample.text);
  }
  EXPECT_EQ(Compose("and when").LineText, "          and when . . .");
  EXPECT_EQ(Compose("XOR WHILE...").LineText, "     xor while . . .");
  EXPECT_EQ(Compose("  do this . . .").LineText, " Do this . . .");
}

TEST(ScriptText, BlanksAndCaseAreFree) {
  EXPECT_EQ(Compose("\tbet $10   ON  pass line  ").LineText, "          Bet $ 10 on Pass Line");
  EXPECT_EQ(Compose("any come odds BET has won 2 time").LineText,
            "          Any Come Odds bet  has won 2 times");
  EXPECT_EQ(Compose("bankroll(20 roll average) is equal to $0.50").LineText,
            "          Bankroll ( 20 roll average ) is equal to $ 0.5");
  EXPECT_EQ(Compose("the # of rolls in the game are greater than 10").LineText,
            "          The # of rolls in the game are greater than  10");
  EXPECT_EQ(Compose("set FLAG \"Two  Blanks\" to true").LineName, "Two  Blanks");
  EXPECT_EQ(Compose("gosub press up").LineText, "          Gosub \"press up\"");
}

TEST(ScriptText, FaultsSayWhereAndWhat) {
  const struct {
    const char* text;
    std::size_t column;
    const char* expected;
  } faults[] = {
      {"Pass Line hass won each time", 11, "has won"},
      {"Pass Line has won", 18, "each"},
      {"Pass Line has won 3 rolls", 21, "times"},
      {"Pass Line is greater than 10", 27, "compare"},
      {"Bet $ on Pass Line", 7, "amount"},
      {"Bet $ 1.23456 on Pass Line", 7, "decimals"},
      {"Bet $ 12345678901234 on Pass Line", 7, "13 digits"},
      {"Bet $ 1e5 on Pass Line", 7, "amount"},
      {"Bet $ 10 on Pas Line", 13, "Pass Line"},
      {"Bet $ 10", 9, "on"},
      {"Bet $ 10 on Chip-Stack # 100", 26, "0 to 99"},
      {"Bet $ 10 on Pass Line now", 23, "end of the line"},
      {"Bet 10 on Pass Line", 1, "line"},
      {"Round Place 6 to the nearest $ -5", 32, "without a sign"},
      {"Set flag ready to True", 10, "double quotes"},
      {"Set flag \"ready to True", 24, "closing"},
      {"Set flag \"  \" to True", 10, "not blank"},
      {"When Pass Line has won each time", 6, "end of the line"},
      {"Plcae 6 has won each time", 1, "line"},
      {"Buy the Place Bet on Buy 4", 22, "Place"},
      {"Any flag has won", 10, "is True"},
      {"Total Chip-Stacks have won each time", 19, "are equal to $"},
      {"Bet $ 10 on\x01 Field", 12, "printable"},
      {"   ", 1, "line"},
  };
  for (const auto& fault : faults) {
    const ScriptTextFault refused = Refused(fault.text);
    EXPECT_EQ(refused.column, fault.column) << fault.text;
    EXPECT_NE(refused.expected.find(fault.expected), std::string::npos)
        << fault.text << ": " << refused.expected;
  }
  EXPECT_EQ(Refused("'" + std::string(80, 'x')).column, 81U);
  EXPECT_EQ(Refused("Play sound: \"" + std::string(81, 'x') + '"').column, 13U);
}

TEST(ScriptText, LabelsAndComments) {
  const ScriptLine comment = Compose("   'Bet $ 10 on Pass Line");
  EXPECT_EQ(comment.LineKind, kCommentLine);
  EXPECT_EQ(comment.LineText, " 'Bet $ 10 on Pass Line");
  const ScriptLine label = Compose("      Press up the inside  ");
  EXPECT_EQ(label.LineKind, kLabelLine);
  EXPECT_EQ(label.LineName, "Press up the inside");
  EXPECT_EQ(label.LineText, " Press up the inside");
  Refused("Come out");  // begins like a condition on the Come bet
  const ScriptLine jump = Compose("Go to \"COME OUT\"");
  EXPECT_TRUE(std::holds_alternative<ScriptLine>(ComposeLine("Come out", {&jump, 1})));
}

TEST(ScriptText, ScriptSettlesItsLabels) {
  const auto script = ComposeScript(
      "' A script\r\n"
      "\n"
      " Do this . . .\n"
      "  Gosub \"Come out\"\n"
      " Unused label\n"
      "Come out\n"
      "  Return");
  ASSERT_TRUE(std::holds_alternative<std::vector<ScriptLine>>(script))
      << std::get<ScriptTextFault>(script).expected;
  const auto& lines = std::get<std::vector<ScriptLine>>(script);
  ASSERT_EQ(lines.size(), 6U);
  EXPECT_EQ(lines[3].LineKind, kLabelLine);
  EXPECT_EQ(lines[4].LineName, "Come out");

  const auto fault_of = [](std::string_view text) {
    const auto composed = ComposeScript(text);
    EXPECT_TRUE(std::holds_alternative<ScriptTextFault>(composed)) << text;
    return std::holds_alternative<ScriptTextFault>(composed) ? std::get<ScriptTextFault>(composed)
                                                             : ScriptTextFault{};
  };
  // A slip of the pen becomes no label, not even behind one blank.
  EXPECT_EQ(fault_of("While\n\n  On each rolll\nthen\nReturn").line, 3U);
  EXPECT_EQ(fault_of(" Pass Lne has won each time").line, 1U);
  EXPECT_EQ(fault_of("Somewhere").line, 1U);
  EXPECT_EQ(fault_of("Somewhere\n'" + std::string(90, 'x')).line, 1U);
}

}  // namespace
}  // namespace feltmaster
