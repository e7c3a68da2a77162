#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "autobet/script_table.h"

namespace feltmaster {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Blocks are built of conditions with known answers: a true one that is new, a true one that is
// old, and a false one.
class InterpreterBlocks : public ScriptTable {
 protected:
  InterpreterBlocks() {
    SetRolls(10);
    SetStack(11, 1);  // the end of the last roll did not see it
    SetStack(12, 1);
    SetAmountBefore(kFirstStack + 12, 1);
  }

  static std::string Condition(char answer) {
    return std::string("Chip-Stack # ") +
           (answer == 'N'   ? "11"
            : answer == 'O' ? "12"
                            : "13") +
           " is equal to $ 1\n";
  }
  // A statement written as start lines and answers: "when N, and while O". Gives 'T' when the
  // actions under "then" ran, 'E' when those under "else" did.
  std::string Outcome(const std::string& statement) {
    std::string script;
    for (std::size_t at = 0; at < statement.size();) {
      const std::size_t end = std::min(statement.find(", ", at), statement.size());
      const std::string part = statement.substr(at, end - at);
      const std::size_t blank = part.find_last_of(' ');
      std::string start = part.substr(0, blank);
      if (at == 0) start[0] = start[0] == 'w' ? 'W' : start[0];
      script += start + " . . .\n";
      for (const char answer : part.substr(blank + 1)) script += Condition(answer);
      at = end + 2;
    }
    script += "then . . .\nAdd $ 1 to Chip-Stack # 1\nelse . . .\nAdd $ 1 to Chip-Stack # 2\n";
    Script(script);
    SetStack(1, 0);
    SetStack(2, 0);
    Run();
    return std::string(static_cast<std::size_t>(Stack(1)), 'T') +
           std::string(static_cast<std::size_t>(Stack(2)), 'E');
  }
};

// "When" needs a new occurrence, of one line at least, and "while" does not. "And" continues the
// block under another rule; its last line decides whether it closes. "Or" takes either block, "xor"
// exactly one of two; a chain of "xor" compares neighbours, and may be settled by the second block.
// "And when" inside an xor-while block leaves it to a rule that knows only xor-when.
TEST_F(InterpreterBlocks, WhichActionsAStatementTakes) {
  const struct {
    const char* statement;
    const char* outcome;
  } cases[] = {
      {"when N", "T"},
      {"while O", "T"},
      {"when ON", "T"},
      {"when NO", "T"},
      {"when N, and while O", "T"},
      {"while O, and when N", "T"},
      {"when NO, and while O", "T"},
      {"when N, or when O", "T"},
      {"when O, or when N", "T"},
      {"when O, or while O", "T"},
      {"while F, or when O, or while O", "T"},
      {"while O, xor while F", "T"},
      {"while F, xor while O", "T"},
      {"when N, xor when O", "T"},
      {"when N, xor when F", "T"},
      {"when O, xor when N", "T"},
      {"when F, xor when N", "T"},
      {"while O, xor when O", "T"},
      {"while F, xor while O, xor while O", "T"},
      {"while O, xor while O, xor while O", "T"},
      {"while F, xor while F, or while O", "T"},
      {"when O", "E"},
      {"while F", "E"},
      {"when NF", "E"},
      {"when FN", "E"},
      {"when N, and while F", "E"},
      {"when O, and while O", "E"},
      {"when F, and while O", "E"},
      {"while O, and when O", "E"},
      {"while F, and when N", "E"},
      {"when N, and when O", "E"},
      {"while F, or while F", "E"},
      {"while F, or when O", "E"},
      {"while O, xor while O", "E"},
      {"while F, xor while F", "E"},
      {"when N, xor when N", "E"},
      {"when O, xor when O", "E"},
      {"while F, xor when O", "E"},
      {"while O, xor while O, xor while F", "E"},
      {"while O, xor while O, and when O", "E"},
  };
  for (const auto& c : cases) EXPECT_EQ(Outcome(c.statement), c.outcome) << c.statement;
}

TEST_F(InterpreterBlocks, LinesOutsideAnyBlock) {
  EXPECT_EQ(Count("Add $ 1 to Chip-Stack # 1"), 1);
  EXPECT_EQ(Count("Chip-Stack # 11 is equal to $ 1\nAdd $ 1 to Chip-Stack # 1"), 1);
  EXPECT_EQ(Count("Chip-Stack # 11 is equal to $ 1\nthen . . .\nAdd $ 1 to Chip-Stack # 1"), 0);
  EXPECT_EQ(
      Count("Do this . . .\nAdd $ 1 to Chip-Stack # 1\nelse . . .\nAdd $ 1 to Chip-Stack # 1"), 2);
  EXPECT_EQ(Count(""), 0);
  EXPECT_FALSE(game.AutoBetRunning);
  EXPECT_EQ(surface.banners.size(), 8u);  // the empty script has not run at all
}

TEST_F(InterpreterBlocks, StatementsDoNotLeakIntoTheNext) {
  EXPECT_EQ(Count("While . . .\n" + Condition('O') +
                  "then . . .\nAdd $ 1 to Chip-Stack # 1\n"
                  "While . . .\n" +
                  Condition('F') +
                  "then . . .\nAdd $ 10 to Chip-Stack # 1\n"
                  "else . . .\nAdd $ 100 to Chip-Stack # 1\n"
                  "Do this . . .\nAdd $ 1000 to Chip-Stack # 1\n"),
            1101);
}

TEST_F(InterpreterBlocks, UnknownKindsOfLinesDoNothing) {
  std::vector<ScriptLine> lines;
  for (const std::int32_t kind : {0, -1, 10, 14, 19, 21, 91, 1000}) lines.push_back(Line(kind));
  ScriptLine add = Line(kActionLine, 20);
  add.LineAmount = MoneyAmount(1);
  add.LineTarget = kStackSubject;
  add.LineTargetStack = 1;
  lines.push_back(add);
  SetLines(lines);
  Run();
  EXPECT_EQ(Stack(1), 1);
}

TEST_F(InterpreterBlocks, JumpsGoToTheFirstLabelOfTheName) {
  EXPECT_EQ(Count("Go to \"There\"\nAdd $ 1 to Chip-Stack # 1\nThere\nAdd $ 10 to Chip-Stack # 1\n"
                  "there\nAdd $ 100 to Chip-Stack # 1"),
            110);
  EXPECT_EQ(Count("Go to \"nowhere\"\nAdd $ 1 to Chip-Stack # 1"), 0);
  EXPECT_EQ(game.CurrentLine, 3);  // it passed over the whole script and ended
  // Under a label lines run whatever section the jump stood in.
  EXPECT_EQ(Count("While . . .\n" + Condition('F') +
                  "then . . .\nAdd $ 1 to Chip-Stack # 1\nelse . . .\nGo to \"end\"\n"
                  "While . . .\n" +
                  Condition('O') +
                  "then . . .\nAdd $ 10 to Chip-Stack # 1\nend\nAdd $ 100 to Chip-Stack # 1"),
            100);
}

TEST_F(InterpreterBlocks, GosubsReturnLatestFirst) {
  EXPECT_EQ(Count("Gosub \"a\"\nAdd $ 1 to Chip-Stack # 1\nGo to \"end\"\n"
                  "a\nGosub \"b\"\nMultiply by 10 on Chip-Stack # 1\nReturn\n'a comment\nAdd $ 999 "
                  "to Chip-Stack # 1\n"
                  "b\nAdd $ 2 to Chip-Stack # 1\nReturn\nAdd $ 999 to Chip-Stack # 1\n"
                  "end"),
            21);
  // A Go to inside a subroutine keeps the way back.
  EXPECT_EQ(Count("Gosub \"a\"\nAdd $ 1 to Chip-Stack # 1\nGo to \"end\"\n"
                  "a\nGo to \"b\"\nb\nAdd $ 2 to Chip-Stack # 1\nReturn\nend"),
            3);
  // Actions under the same "then" go on after the return.
  EXPECT_EQ(Count("While . . .\n" + Condition('O') +
                  "then . . .\nGosub \"a\"\nAdd $ 1 to Chip-Stack # 1\nGo to \"end\"\n"
                  "a\nWhile . . .\n" +
                  Condition('F') +
                  "then . . .\nAdd $ 5 to Chip-Stack # 1\n"
                  "Do this . . .\nReturn\nend"),
            1);
}

TEST_F(InterpreterBlocks, ReturnsThatLeadNowhere) {
  EXPECT_EQ(Count("Return\nAdd $ 1 to Chip-Stack # 1"), 1);
  // The pending return is dropped with the run.
  EXPECT_EQ(Count("Gosub \"a\"\nAdd $ 1 to Chip-Stack # 1\na\nReturn"), 0);
  EXPECT_EQ(Count("Add $ 1 to Chip-Stack # 1\nReturn\nAdd $ 1 to Chip-Stack # 1"), 2);
}

TEST_F(InterpreterBlocks, EndlessScriptsCanBeInterrupted) {
  game.KeepRolling = true;
  surface.on_pump = [this] {
    if (surface.pumps == 3) game.AutoBetRunning = false;
  };
  EXPECT_EQ(Count("again\nAdd $ 1 to Chip-Stack # 1\nGo to \"again\""), 500);
  EXPECT_EQ(surface.pumps, 3);
  EXPECT_FALSE(game.AutoBetRunning);
}

TEST_F(InterpreterBlocks, EndlessRecursionFailsTheScript) {
  Script("again\nGosub \"again\"");
  Run();
  ASSERT_EQ(surface.messages.size(), 1u);
  EXPECT_EQ(surface.messages[0].title, "Auto-Bet Abort");
}

TEST_F(InterpreterBlocks, FiveHundredLinesLetEventsThrough) {
  std::string script;
  for (int line = 0; line < 1100; ++line) script += "'nothing\n";
  Script(script);
  Run();
  EXPECT_EQ(surface.pumps, 2);
}

TEST_F(InterpreterBlocks, AFailureAbortsTheRun) {
  game.KeepRolling = true;
  EXPECT_EQ(
      Count("Add $ 1 to Chip-Stack # 1\nOutput to file. New line.\nAdd $ 1 to Chip-Stack # 1"), 1);
  ASSERT_EQ(surface.messages.size(), 1u);
  const auto& shown = surface.messages[0];
  EXPECT_EQ(shown.title, "Auto-Bet Abort");
  EXPECT_EQ(shown.options, kButtonOk | kButtonHelp);
  EXPECT_EQ(shown.text,
            "The following error has caused Auto-Betting to abort at line #2:\n\n"
            "Bad file descriptor, Error #52\n\nPress help for more information.");
  EXPECT_EQ(game.LastErrorText, "Bad file descriptor, Error #52 occurred, at: Run Auto-Bet");
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_FALSE(game.AutoBetRunning);
  EXPECT_EQ(game.HyperDriveStopText, "");

  game.HyperDriveActive = true;
  Run();
  EXPECT_EQ(game.HyperDriveStopText, "Auto-Bet error.");
}

TEST_F(InterpreterBlocks, RunsArePacedUnlessADialogTookTheTime) {
  Script("Add $ 1 to Chip-Stack # 1");
  Run();
  EXPECT_THAT(surface.waits, ElementsAre(::testing::DoubleNear(0.3, 1e-9)));
  EXPECT_TRUE(game.RefreshBetAmounts);
  EXPECT_THAT(surface.banners, ElementsAre("Auto-Betting", ""));

  surface.waits.clear();
  Script("Show message: \"hello\"");
  Run();
  EXPECT_TRUE(surface.waits.empty());

  surface.banners.clear();
  game.HyperDriveActive = true;
  Script("Add $ 1 to Chip-Stack # 1");
  Run();
  EXPECT_TRUE(surface.waits.empty());
  EXPECT_TRUE(surface.banners.empty());
}

TEST_F(InterpreterBlocks, InitialisationIsTrueForOneRun) {
  Script("While . . .\nInitializing Auto-Bet\nthen . . .\nAdd $ 1 to Chip-Stack # 1");
  Run();
  EXPECT_EQ(Stack(1), 0);
  RunInitialisationCycle(game);
  EXPECT_EQ(Stack(1), 1);
  EXPECT_FALSE(game.ScriptNeedsInit);
  Run();
  EXPECT_EQ(Stack(1), 1);
}

TEST_F(InterpreterBlocks, AnEditedScriptRunsAsEdited) {
  EXPECT_EQ(Count("Add $ 1 to Chip-Stack # 1"), 1);
  game.ScriptLines[0].LineAmount = MoneyAmount(5);
  ScriptLinesChanged(game);
  Run();
  EXPECT_EQ(Stack(1), 6);
  // A line appended by whoever forgot to say so.
  game.ScriptLines.push_back(game.ScriptLines[0]);
  Run();
  EXPECT_EQ(Stack(1), 16);
}

TEST_F(InterpreterBlocks, StepsTellWhatHappens) {
  game.ShowSteps = true;
  Script("When . . .\n" + Condition('N') + "and while . . .\n" + Condition('O') +
         "then . . .\nGosub \"sub\"\nReturn\nelse . . .\nReturn\nGo to \"end\"\nsub\nReturn\nend");
  Run();
  const std::string new_block =
      "Status: This block of conditions will be true if each line is true and at least one has "
      "just "
      "occurred.";
  EXPECT_THAT(
      surface.steps,
      ElementsAre(
          "1 " + new_block, "2 Status: Condition is true (just now occurred). ",
          "3 Status: This block of conditions will be true if each line is true.",
          "4 Status: Condition is true (not a new occurrance). ",
          "5 Status: All the conditions in the block were true. ",
          "5 Status: Since the overall conditions were true, the next actions will be taken. ",
          "6 Status: Action taken.",
          "11 Status: \"Go to\" or \"GoSub\" statement has caused a jump to this label. ",
          "12 Status: Action taken.",
          "6 Status: A \"Return\" statement has caused a jump back to this \"GoSub\" statement.  "
          "Processing will resume with the next line in order.",
          "7 Status: This statement will be ignored since it was not encountered as a result of a "
          "\"GoSub\" statement.  Processing will resume with the next line in order.",
          "8 Status: Since the previous actions were taken, the next actions will be skipped. ",
          "11 Status: This label was encountered normally.",
          "13 Status: This label was encountered normally."));
  EXPECT_EQ(surface.banners.size(), 1u);  // only taken away
}

TEST_F(InterpreterBlocks, StepsTellHowBlocksEnd) {
  game.ShowSteps = true;
  Outcome("when O, xor when N");
  EXPECT_THAT(surface.steps,
              ::testing::Contains(
                  "3 Status: All the conditions in the block were true, but none have just now "
                  "occurred - so the block is false. "));
  EXPECT_THAT(surface.steps, ::testing::Contains(
                                 "5 Status: All the conditions in the block were true. And since "
                                 "the previous block was false, the xor condition is also true. "));
  surface.steps.clear();
  Outcome("while O, xor while F");
  EXPECT_THAT(surface.steps,
              ::testing::Contains(
                  "5 Status: At least one condition was false, so the block is false. However, the "
                  "previous block was true, therefore the xor condition is true. "));
}

TEST_F(InterpreterBlocks, CancelledStepsLetTheRunGoOn) {
  game.ShowSteps = true;
  surface.cancel_at_step = 2;
  EXPECT_EQ(Count("Do this . . .\nAdd $ 1 to Chip-Stack # 1\nAdd $ 1 to Chip-Stack # 1"), 2);
  EXPECT_EQ(surface.steps.size(), 2u);
  EXPECT_FALSE(game.ShowSteps);
  EXPECT_TRUE(surface.waits.empty());

  game.ShowSteps = true;
  game.HyperDriveActive = true;
  Run();
  EXPECT_EQ(surface.steps.size(), 2u);
}

}  // namespace
}  // namespace feltmaster
