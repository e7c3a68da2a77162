#include "autobet/line_draft.h"

#include <gtest/gtest.h>

#include <functional>

#include "autobet/line_meaning.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"

namespace feltmaster {
namespace {

using Take = std::function<void(const LineDraft&)>;

// Chooses every row of a list, one after the other.
void ChooseEach(const LineDraft& draft, DraftList list, const Game& game, const Take& take) {
  const int rows = static_cast<int>(RowsOf(draft, list, game).size());
  if (rows == 0) take(draft);
  for (int row = 0; row < rows; ++row) {
    LineDraft chosen = draft;
    ChooseRow(chosen, list, row, game);
    EXPECT_EQ(ChosenRow(chosen, list, game), row);
    take(chosen);
  }
}

// Types something into every field that is shown.
LineDraft Filled(LineDraft draft) {
  for (const ShownPart& shown : PartsOf(draft)) {
    for (const char* text : {"12.5", "7", "Some name"}) {
      const bool is_name = shown.part == DraftPart::kFlag || shown.part == DraftPart::kName;
      if (is_name && *text != 'S') continue;
      if (!FieldTakes(draft, shown, text)) continue;
      TextOf(draft, shown.part) = text;
      break;
    }
  }
  return draft;
}

TEST(LineDraft, WhatTheListsComposeIsWhatItsTextComposes) {
  Game game;
  AddLabel(game, "again");
  int lines = 0;
  std::string first_fault;
  const Take compare = [&](const LineDraft& draft) {
    for (const LineDraft& tried : {draft, Filled(draft)}) {
      if (FaultOf(tried, game)) continue;  // a flag without a name
      const ScriptLine line = LineOf(tried);
      const auto composed = ComposeLine(line.LineText);
      const auto* from_text = std::get_if<ScriptLine>(&composed);
      const std::optional<LineDraft> loaded = DraftOf(line);
      const bool same = from_text != nullptr && SameLine(line, *from_text) && loaded &&
                        SameLine(line, LineOf(*loaded)) &&
                        MeaningOf(line).find_first_of("{}") == std::string::npos &&
                        MeaningOf(line).find("no known") == std::string::npos;
      ++lines;
      if (!same && first_fault.empty()) first_fault = line.LineText + ": " + MeaningOf(line);
    }
  };
  const Take with_picks = [&](const LineDraft& draft) {
    ChooseEach(draft, DraftList::kValueRows, game, compare);
    ChooseEach(draft, DraftList::kTargetRows, game, compare);
  };
  const Take with_labels = [&](const LineDraft& draft) {
    ChooseEach(draft, DraftList::kLabelRows, game, with_picks);
  };
  ChooseEach(ConditionDraft(), DraftList::kLineRows, game, [&](const LineDraft& draft) {
    ChooseEach(draft, DraftList::kComparisonRows, game, with_labels);
  });
  ChooseEach(ActionDraft(), DraftList::kLineRows, game, with_labels);
  EXPECT_EQ(first_fault, "");
  EXPECT_GT(lines, 100'000);
}

// What is shown, from left to right; fields in brackets.
std::string Shown(const LineDraft& draft) {
  std::string text;
  for (const ShownPart& part : PartsOf(draft)) {
    const bool is_field = part.part == DraftPart::kStack || part.part == DraftPart::kTargetStack ||
                          part.part == DraftPart::kAmount || part.part == DraftPart::kFlag ||
                          part.part == DraftPart::kName;
    text += is_field ? '[' + part.text + "] " : part.text + ' ';
  }
  return text.substr(0, text.size() - 1);
}

TEST(LineDraft, EachPickOffersTheFieldsThatItNeeds) {
  Game game;
  const struct {
    std::int32_t code;
    std::int32_t comparison;
    const char* shown;
  } conditions[] = {
      {kOnEachRoll, 0, "On each roll"},
      {51, kHasWon, "Pass Line has won [each] time"},
      {51, kHasWonMore, "Pass Line has won more than [0] times"},
      {kAverageBankroll, kEqualAmount, "Bankroll ( [all] roll average ) is equal to $ [0]"},
      {kFlagSubject, 0, "Flag [] is True"},
      {kAllFlags, 0, "All flags are True"},
      {kStackReference, kIsNamed, "Chip-Stack ref # [0] is named []"},
      {2006, kHasRolledInLast, "Any 6 has rolled in the last [0] rolls"},
  };
  for (const auto& sample : conditions) {
    LineDraft draft = ConditionDraft(*FindCondition(sample.code));
    if (sample.comparison != 0) {
      draft.comparison = FindComparison(*draft.condition, sample.comparison);
      draft.amount.clear();
      for (const ShownPart& part : PartsOf(draft)) SettleField(draft, part.part);
    }
    EXPECT_EQ(Shown(draft), sample.shown);
  }
  const std::pair<std::int32_t, const char*> actions[] = {
      {20, "Add $ [0] to Lay 2"},
      {31, "Subtract % of [0] % of Lay 2 from Lay 2"},
      {kActionBuyPlace, "Buy the Place Bet on Place 2"},
      {kActionRound, "Round Lay 2 up to the nearest $ [0]"},
      {kActionNameStack, "Name Chip-Stack # [0] as []"},
      {kActionDepositPercent, "ATM - deposit % of [0] % of Lay 2 in the ATM"},
      {kActionSetLossRule, "Set Auto-Handle Losing Bets to Manual"},
      {kActionStop, "Stop Auto-Rolling / Hyper-Drive"},
  };
  for (const auto& [code, shown] : actions) EXPECT_EQ(Shown(ActionDraft(*FindAction(code))), shown);

  // A comparison with an average needs its rolls.
  LineDraft draft = ConditionDraft(*FindCondition(kBankrollSubject));
  draft.comparison = FindComparison(*draft.condition, kLessThing);
  draft.target = FindPick(kComparedThings, kAverageBankroll);
  draft.target_stack = "0";
  SettleField(draft, DraftPart::kTargetStack);
  EXPECT_EQ(Shown(draft), "Bankroll is less than bankroll average [all] roll average )");
}

TEST(LineDraft, FieldsTakeWhatFits) {
  const auto takes = [](const LineDraft& draft, DraftPart part, const char* text) {
    for (const ShownPart& shown : PartsOf(draft)) {
      if (shown.part == part) return FieldTakes(draft, shown, text);
    }
    return false;
  };
  const LineDraft bet = ActionDraft();
  for (const char* text : {"", "-", "-1.5", "9999999999999.1234", ".5", "12."}) {
    EXPECT_TRUE(takes(bet, DraftPart::kAmount, text)) << text;
  }
  for (const char* text : {"1-", "1..2", "99999999999999", "0.12345", "each", "1,000", "x"}) {
    EXPECT_FALSE(takes(bet, DraftPart::kAmount, text)) << text;
  }
  EXPECT_FALSE(takes(ActionDraft(*FindAction(kActionRound)), DraftPart::kAmount, "-1"));
  const LineDraft average = ConditionDraft(*FindCondition(kAverageBankroll));
  EXPECT_TRUE(takes(average, DraftPart::kStack, "999"));
  EXPECT_TRUE(takes(average, DraftPart::kStack, "all"));
  const LineDraft stack = ConditionDraft(*FindCondition(kStackSubject));
  EXPECT_TRUE(takes(stack, DraftPart::kStack, "99"));
  EXPECT_FALSE(takes(stack, DraftPart::kStack, "100"));
  EXPECT_FALSE(takes(stack, DraftPart::kStack, "all"));
  const LineDraft message = ActionDraft(*FindAction(kActionMessage));
  EXPECT_TRUE(takes(message, DraftPart::kName, std::string(80, 'x').c_str()));
  EXPECT_FALSE(takes(message, DraftPart::kName, std::string(81, 'x').c_str()));
}

TEST(LineDraft, WhatIsMissingIsTold) {
  Game game;
  LineDraft jump = ActionDraft(*FindAction(kActionGosub));
  EXPECT_EQ(FaultOf(jump, game)->text, "You need to enter a label to go to.");
  AddLabel(game, "Here");
  ChooseRow(jump, DraftList::kLabelRows, 0, game);
  EXPECT_FALSE(FaultOf(jump, game));
  EXPECT_EQ(LineOf(jump).LineText, "          Gosub \"Here\"");
  EXPECT_EQ(FaultOf(ConditionDraft(*FindCondition(kFlagSubject)), game)->help, 558);
  EXPECT_EQ(FaultOf(ActionDraft(*FindAction(kActionSetFlag)), game)->title, "Log Action");
  EXPECT_FALSE(FaultOf(ActionDraft(*FindAction(kActionSetAllFlags)), game));

  EXPECT_EQ(LabelFault("  ", game)->text, "You must enter a label name.");
  InsertLine(game, 1, LabelLine(" Here "));
  EXPECT_EQ(LabelFault("hERE ", game)->text, "That label name is already in use.");
  EXPECT_EQ(LabelLine("' note ").LineKind, kCommentLine);
  EXPECT_EQ(LabelLine("' note ").LineText, " ' note");
  EXPECT_FALSE(LabelFault("' note", game));
}

}  // namespace
}  // namespace feltmaster
