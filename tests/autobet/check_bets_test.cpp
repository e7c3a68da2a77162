#include "autobet/check_bets.h"

#include <gtest/gtest.h>

#include "game/script.h"

namespace feltmaster {
namespace {

constexpr std::int32_t kUnwrittenKind = 9;

struct Row {
  std::int32_t kind;
  const char* name = "";
  std::int32_t code = 0;
};

std::vector<ScriptLine> Script(std::initializer_list<Row> rows) {
  std::vector<ScriptLine> script;
  for (const Row& row : rows) {
    ScriptLine line;
    line.LineKind = row.kind;
    line.LineName = row.name;
    line.LineCode = row.code;
    script.push_back(line);
  }
  return script;
}

constexpr Row kTest = {kConditionLine};
constexpr Row kDo = {kActionLine};
constexpr Row kNote = {kCommentLine, "' note"};
constexpr Row kLabel = {kLabelLine, "label"};

TEST(CheckBets, SoundScripts) {
  const std::vector<ScriptLine> scripts[] = {
      Script({}),
      Script({kNote, kLabel}),
      Script({{kDoThis}, kDo, {kDoThis}, kDo, kDo}),
      Script({{kWhen},
              kTest,
              kNote,
              kTest,
              {kAndWhile},
              kTest,
              {kXorWhen},
              kTest,
              {kThen},
              kDo,
              kLabel,
              {kElse},
              kDo,
              {kWhile},
              kTest,
              {kThen},
              kDo,
              {kDoThis},
              kDo}),
      // Behind no action block yet, a plain block may cut a condition short.
      Script({{kWhen}, kTest, {kDoThis}, kDo}),
      Script({{kDoThis}, {kActionLine, " LABEL ", 117}, kLabel}),
  };
  for (const std::vector<ScriptLine>& script : scripts) {
    const auto fault = FindStructureFault(script);
    EXPECT_FALSE(fault) << fault->text;
  }
}

TEST(CheckBets, Faults) {
  const struct {
    std::vector<ScriptLine> script;
    const char* title;
    const char* words;
    std::size_t line;
    std::size_t shown;
    int help;
  } faults[] = {
      {Script({kLabel, kNote, kLabel}), "Duplicate Label", "more than once", 3, 3, 554},
      {Script({{kLabelLine, "a"}, {kLabelLine, "A"}, {kActionLine, "b", 76}}), "Missing Label",
       "The \"Go to\" statement shown at the top of the screen references a Label", 3, 3, 554},
      {Script({{kWhen}, kTest, kLabel, kTest, {kThen}}), "Label Position", "between Condition", 3,
       3, 554},
      {Script({{kWhen}, kTest, kLabel, {kUnwrittenKind}}), "Label Position", "between", 3, 3, 554},
      {Script({kTest}), "Missing Start Condition", "not associated with a Start Condition", 1, 1,
       556},
      {Script({kNote, kDo}), "Missing Start Action", "not associated with a Start Action", 2, 2,
       556},
      {Script({{kWhen}, kTest, kDo}), "Missing Start Action", "Start Action", 3, 3, 556},
      {Script({{kDoThis}, kDo, {kWhen}, {kThen}}), "Missing Condition Lines",
       "is not followed by a Condition line", 3, 1, 556},
      {Script({{kWhen}, kDo}), "Missing Condition Lines", "is not followed by a Condition", 1, 1,
       556},
      {Script({{kWhen}}), "Missing Condition Lines", "is not followed by a Condition", 1, 1, 556},
      {Script({{kWhen}, kTest, {kThen}, {kElse}}), "Missing Action Lines",
       "is not followed by an Action line", 3, 3, 556},
      {Script({{kWhen}, kTest, {kThen}, kTest}), "Missing Action Lines",
       "is not followed by an Action line", 3, 3, 556},
      {Script({{kDoThis}, kTest}), "Missing Start Condition", "Start Condition", 2, 2, 556},
      {Script({{kDoThis}}), "Missing Action Lines", "is not followed by an Action", 1, 1, 556},
      {Script({{kDoThis}, kDo, {kWhen}, kTest, {kWhile}}), "Missing Action Lines",
       "has no Action block", 3, 1, 556},
      {Script({{kDoThis}, kDo, {kWhen}, kTest}), "Missing Action Lines", "has no Action block", 3,
       1, 556},
      {Script({kNote, {kDoThis}, kDo, {kWhen}, kTest, {kDoThis}, kDo}), "Missing Action Lines",
       "has no Action block", 4, 2, 556},
      {Script({{kDoThis}, kDo, {kOrWhile}, kTest}), "Missing Condition Lines",
       "is not preceded by a Condition line", 3, 1, 556},
      {Script({{kDoThis}, kDo, {kThen}, kDo}), "Missing Condition Lines",
       "is not immediately preceded by a Condition block", 3, 3, 556},
      {Script({{kDoThis}, kDo, {kElse}, kDo}), "Missing Action Lines",
       "The \"else\" Start Action line shown at the top of the screen must be immediately preceded "
       "by a \"then\" block of action lines.",
       3, 3, 556},
  };
  for (const auto& expected : faults) {
    Game game;
    game.ScriptLines = expected.script;
    const auto fault = FindStructureFault(game.ScriptLines);
    ASSERT_TRUE(fault) << expected.words;
    EXPECT_EQ(fault->line, expected.line) << fault->text;
    EXPECT_EQ(CheckBets(game), static_cast<int>(expected.shown)) << fault->text;
    EXPECT_EQ(game.MsgTitle, expected.title);
    EXPECT_EQ(game.MsgHelpId, expected.help);
    EXPECT_NE(game.MsgText.find(expected.words), std::string::npos) << game.MsgText;
    EXPECT_TRUE(game.MsgText.ends_with(
        "\n\nThis is not allowed and must be resolved before you can run this auto-betting "
        "script."));
    EXPECT_TRUE(game.ScriptLines[expected.shown - 1].LineSelected);
    game.ScriptLines.clear();
    EXPECT_EQ(CheckBets(game), 0);
    EXPECT_EQ(game.MsgText, "");
  }
}

}  // namespace
}  // namespace feltmaster
