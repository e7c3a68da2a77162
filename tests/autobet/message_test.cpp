#include "autobet/message.h"

#include <gtest/gtest.h>

#include "autobet/script_table.h"

namespace feltmaster {
namespace {

class Messages : public ScriptTable {
 protected:
  void Answer(std::int32_t answer, std::string input1 = {}, std::string input2 = {}) {
    MessageReply reply;
    reply.answer = answer;
    reply.input1 = std::move(input1);
    reply.input2 = std::move(input2);
    surface.answers = {reply};
  }
};

TEST_F(Messages, TheAnswerAndTheFields) {
  Answer(kAnswerCancel, "1,234.5", "-1.5");
  game.MsgInputDefault = "77";
  Tell(game, "Title", "Text", kButtonOk | kButtonCancel | kTwoInputs, 9);
  EXPECT_EQ(surface.input_default, "77");
  EXPECT_EQ(surface.messages[0].help, 9);
  EXPECT_EQ(game.MsgAnswer, kAnswerCancel);
  EXPECT_EQ(game.BetRequest, MoneyAmount::FromRaw(12'345'000));
  EXPECT_EQ(game.MsgInput2, MoneyAmount::FromRaw(-15'000));
  EXPECT_EQ(game.MsgInputDefault, "");
}

TEST_F(Messages, ANoticeLeavesTheRequestAlone) {
  game.BetRequest = MoneyAmount(5);
  Tell(game, "Title", "Text");
  EXPECT_EQ(game.BetRequest, MoneyAmount(5));
}

TEST_F(Messages, ClosedWithoutAButton) {
  Answer(0, "5");
  game.MsgAnswer = kAnswerYes;
  game.ScriptStartTime = surface.seconds;
  Tell(game, "Title", "Text", kButtonOk | kOneInput | kHideScript);
  EXPECT_EQ(game.MsgAnswer, kAnswerYes);
  EXPECT_EQ(game.BetRequest, MoneyAmount(5));
  EXPECT_DOUBLE_EQ(game.ScriptStartTime, surface.seconds - 0.6);
  // A question that was not answered is not a Yes.
  Answer(0);
  EXPECT_FALSE(AskYesNo(game, "Title", "Text"));
}

TEST_F(Messages, YesInterruptsARunningScript) {
  const auto ask = [&] {
    Answer(kAnswerYes);
    return AskYesNo(game, "Auto-Bet Active", "Do you want to interrupt Auto-Betting? ");
  };
  game.KeepRolling = true;
  EXPECT_TRUE(ask());
  EXPECT_TRUE(game.KeepRolling);  // nothing ran
  game.AutoBetRunning = true;
  EXPECT_TRUE(ask());
  EXPECT_FALSE(game.AutoBetRunning);
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_EQ(game.HyperDriveStopText, "");
  game.AutoBetRunning = game.HyperDriveActive = true;
  ask();
  EXPECT_EQ(game.HyperDriveStopText, "Auto-Betting interrupted.");
}

TEST_F(Messages, HideClearsTheNoticeOfTheMessage) {
  for (const auto& [option, notice] : {std::pair{kHideActions, kNoticeActions},
                                       {kHideLimits, kNoticeLimits},
                                       {kHideCharges, kNoticeCharges},
                                       {kHideScript, kNoticeScript}}) {
    game.NotifyFlags = 31;
    MessageReply reply;
    reply.hide = true;
    surface.answers = {reply, reply};
    Tell(game, "Title", "Text");
    EXPECT_EQ(game.NotifyFlags, 31);
    Tell(game, "Title", "Text", kButtonOk | option);
    EXPECT_EQ(game.NotifyFlags, 31 & ~notice);
  }
}

TEST_F(Messages, NobodyAnswersAMinimisedTable) {
  surface.minimised = true;
  game.AutoBetRunning = game.KeepRolling = true;
  Tell(game, "Title", "Text");
  EXPECT_TRUE(game.AutoBetRunning);
  EXPECT_TRUE(game.KeepRolling);
  EXPECT_FALSE(AskYesNo(game, "Title", "Text"));
  EXPECT_FALSE(game.AutoBetRunning);
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_TRUE(surface.messages.empty());
}

}  // namespace
}  // namespace feltmaster
