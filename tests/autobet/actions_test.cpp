#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "autobet/message.h"
#include "autobet/output_file.h"
#include "autobet/script_table.h"
#include "autobet/values.h"
#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;

class Actions : public ScriptTable {
 protected:
  Actions() { SetRolls(10); }

  void Do(const std::string& lines) {
    Script("Do this . . .\n" + lines);
    Run();
  }
  // Puts a bet on the table as if it had been placed.
  void Stand(int bet, double amount) {
    SetAmount(bet, amount);
    game.TotalOnTable += MoneyAmount::FromDouble(amount);
  }
  void SetAtRollStart(int slot, double amount) {
    game.BetAmountAtRollStart[static_cast<std::size_t>(slot)] = MoneyAmount::FromDouble(amount);
  }
  double Value(std::int32_t code, std::int32_t stack = 0) {
    return ValueOf(game, code, stack).ToDouble();
  }
  double LastValue(std::int32_t code, std::int32_t stack = 0) {
    return LastValueOf(game, code, stack).ToDouble();
  }
};

// --- Values --------------------------------------------------------------------------------------

TEST_F(Actions, ValuesOfBetsAndTotals) {
  for (int slot = 1; slot <= kBetCount; ++slot) {
    SetAmount(slot, slot);
    SetAtRollStart(slot, 2.0 * slot);
  }
  const struct {
    std::int32_t code;
    double sum;
  } totals[] = {{kListBets, 3916},
                {kListLay, 55},
                {kListCome, 155},
                {kListComeOdds, 255},
                {kListPlace, 355},
                {kListInsidePlace, 142},
                {kListOutsidePlace, 284},
                {kListBuy, 455},
                {kListDontCome, 0},
                {kListDontComeOdds, 0},
                {kAllStacksTarget, 0},
                {kPassLine, 51},
                {-1, 0},
                {1500, 0},
                {89, 0}};
  for (const auto& total : totals) {
    EXPECT_EQ(Value(total.code), total.sum) << total.code;
    EXPECT_EQ(LastValue(total.code), 2 * total.sum) << total.code;
  }
  game.Point = 12;
  game.PrevPoint = 2;
  EXPECT_EQ(Value(kPlaceOnPoint), 40);
  EXPECT_EQ(LastValue(kPlaceOnPoint), 62);
  game.Point = 0;
  EXPECT_EQ(Value(kLayOnPoint), 0);
  EXPECT_EQ(Value(kCurrentWagersCount), 88);
}

TEST_F(Actions, ValuesOfTheGame) {
  game.BankrollHigh = MoneyAmount(900);
  game.BankrollLow = MoneyAmount(1100);
  SetAtRollStart(kBankroll, 950);
  game.TotalOnTable = MoneyAmount(30);
  game.GameCounters[kRollsThisHand] = 3;
  game.GameCounters[kLastHandRolls] = 8;
  game.BetWagers[kActual][kPassLine][kResultCount] = MoneyAmount(4);
  game.BetWagers[kActual][kField][kResultTotal] = MoneyAmount(70);
  EXPECT_EQ(Value(kBankrollSubject), 1000);
  EXPECT_EQ(LastValue(kBankrollSubject), 950);
  EXPECT_EQ(Value(kHighestBankroll), 1000);
  EXPECT_EQ(LastValue(kHighestBankroll), 900);
  EXPECT_EQ(Value(kLowestBankroll), 1000);
  EXPECT_EQ(Value(kAvailableBankroll), 970);
  EXPECT_EQ(Value(kGameRolls), 10);
  EXPECT_EQ(Value(kShooterRolls), 3);
  EXPECT_EQ(LastValue(kShooterRolls), 8);
  EXPECT_EQ(Value(kDecidedWagersCount), 4);
  EXPECT_EQ(Value(kDecidedWagersAmount), 70);
  EXPECT_EQ(Value(kCurrentWagersAmount), 30);
}

TEST_F(Actions, ValuesOfChipStacks) {
  SetStack(3, 42.9);
  SetStack(42, 7);
  SetAtRollStart(kFirstStack + 3, 5);
  SetAtRollStart(kFirstStack + 5, 11);
  EXPECT_EQ(Value(kStackSubject, 42), 7);
  EXPECT_EQ(Value(kStackReference, 3), 7);
  EXPECT_EQ(LastValue(kStackReference, 3), 11);
  SetStack(3, -0.1);
  EXPECT_EQ(Value(kStackReference, 3), 0);
  SetStack(3, 99.99);
  SetStack(99, 6);
  EXPECT_EQ(Value(kStackReference, 3), 6);
  for (const int stack : {-1, -100, 100, 2'000'000'000}) EXPECT_EQ(Value(kStackSubject, stack), 0);
}

// --- Verbs ---------------------------------------------------------------------------------------

TEST_F(Actions, BetReplacesWhatStands) {
  Stand(35, 24);
  Do("Bet $ 12 on Place 6");
  EXPECT_EQ(Amount(35), 12);
  EXPECT_EQ(game.TotalOnTable, MoneyAmount(12));
  // The Pass Line is changed by the difference, which a point forbids.
  Stand(kPassLine, 25);
  game.EstablishedAmount[kPassLine] = MoneyAmount(25);
  game.Point = 6;
  Do("Bet $ 10 on Pass Line");
  EXPECT_EQ(Amount(kPassLine), 25);
  game.Point = 0;
  Do("Bet $ 10 on Pass Line");
  EXPECT_EQ(Amount(kPassLine), 10);
}

TEST_F(Actions, VigOfAReplacedBetStaysRight) {
  Do("Bet $ 40 on Lay 4");
  const MoneyAmount total = game.TotalOnTable;
  EXPECT_EQ(game.LayVigPaid[2], MoneyAmount(1));
  Do("Bet $ 40 on Lay 4");
  EXPECT_EQ(game.TotalOnTable, total);
  Do("Bet $ 80 on Lay 4");
  EXPECT_EQ(game.LayVigPaid[2], MoneyAmount(2));
  EXPECT_EQ(game.TotalOnTable, MoneyAmount(82));
  EXPECT_EQ(game.VigCarried, MoneyAmount());
}

TEST_F(Actions, ArithmeticOnAChipStack) {
  SetStack(2, 50);
  SetAtRollStart(kFirstStack + 2, 200);
  const struct {
    const char* line;
    double result;
  } cases[] = {
      {"Add $ 2.5 to Chip-Stack # 1", 27.5},
      {"Subtract $ 40 from Chip-Stack # 1", -15},
      {"Multiply by 0.5 on Chip-Stack # 1", 12.5},
      {"Divide by 8 on Chip-Stack # 1", 3.125},
      {"Divide by 3 on Chip-Stack # 1", 8.3333},
      {"Divide by 0 on Chip-Stack # 1", 25},
      {"Bet $ 7 on Chip-Stack # 1", 7},
      {"Add % of 10 % of Chip-Stack # 2 to Chip-Stack # 1", 30},
      {"Add % of the last 10 % of Chip-Stack # 2 to Chip-Stack # 1", 45},
      {"Multiply by % of 10 % of Chip-Stack # 2 on Chip-Stack # 1", 125},
      {"Divide by % of 10 % of Chip-Stack # 2 on Chip-Stack # 1", 5},
      {"Divide by % of 10 % of Chip-Stack # 8 on Chip-Stack # 1", 25},
      {"Divide by % of -10 % of Chip-Stack # 2 on Chip-Stack # 1", 20},
      {"Multiply by the highest of: Chip-Stack # 2 on Chip-Stack # 1", 1250},
      {"Divide by the highest of: Chip-Stack # 2 on Chip-Stack # 1", 0},
      {"Subtract the lowest of the last: Chip-Stack # 2 from Chip-Stack # 1", -175},
  };
  for (const auto& c : cases) {
    SetStack(1, 25);
    Do(c.line);
    EXPECT_EQ(Amount(kFirstStack + 1), c.result) << c.line;
  }
  EXPECT_TRUE(surface.messages.empty());
}

TEST_F(Actions, TheHighestOfAGroup) {
  SetStack(11, 5);
  SetStack(12, 8);
  SetStack(13, 3);
  Do("Bet the highest of: Chip-Stack # 11 on Chip-Stack # 1\n"
     "Bet the highest of: Chip-Stack # 12 on Chip-Stack # 1\n"
     "Bet the highest of: Chip-Stack # 13 on Chip-Stack # 1");
  EXPECT_EQ(Stack(1), 8);
  SetStack(1, 10);
  Do("Add the highest of: Chip-Stack # 11 to Chip-Stack # 1\n"
     "Add the highest of: Chip-Stack # 12 to Chip-Stack # 1\n"
     "Add the highest of: Chip-Stack # 13 to Chip-Stack # 1");
  EXPECT_EQ(Stack(1), 18);
  // Another target, or a comment between, starts a new group.
  SetStack(1, 10);
  SetStack(2, 10);
  Do("Add the highest of: Chip-Stack # 12 to Chip-Stack # 1\n"
     "Add the highest of: Chip-Stack # 11 to Chip-Stack # 2\n"
     "'\n"
     "Add the highest of: Chip-Stack # 13 to Chip-Stack # 2");
  EXPECT_EQ(Stack(1), 18);
  EXPECT_EQ(Stack(2), 18);
}

TEST_F(Actions, TheLowestOfAGroupPassesOverZero) {
  SetStack(11, 0);
  SetStack(12, 5);
  SetStack(13, 9);
  Do("Bet the lowest of: Chip-Stack # 11 on Chip-Stack # 1\n"
     "Bet the lowest of: Chip-Stack # 12 on Chip-Stack # 1\n"
     "Bet the lowest of: Chip-Stack # 13 on Chip-Stack # 1");
  EXPECT_EQ(Stack(1), 5);
  SetStack(1, 20);
  Do("Subtract the lowest of: Chip-Stack # 13 from Chip-Stack # 1\n"
     "Subtract the lowest of: Chip-Stack # 12 from Chip-Stack # 1");
  EXPECT_EQ(Stack(1), 15);
  // The bets of the layout keep TotalOnTable with them.
  Stand(kField, 20);
  Do("Subtract the lowest of: Chip-Stack # 13 from Field\n"
     "Subtract the lowest of: Chip-Stack # 12 from Field");
  EXPECT_EQ(Amount(kField), 15);
  EXPECT_EQ(game.TotalOnTable, MoneyAmount(15));
}

TEST_F(Actions, TheAverageOfAGroupIsWhole) {
  SetStack(11, 5);
  SetStack(12, 8);
  Do("Bet the average of: Chip-Stack # 11 on Chip-Stack # 1\n"
     "Bet the average of: Chip-Stack # 12 on Chip-Stack # 1\n"
     "Bet the average of: Chip-Stack # 13 on Chip-Stack # 1");
  EXPECT_EQ(Stack(1), 6);
  SetStack(1, 100);
  Do("Divide by the average of: Chip-Stack # 11 on Chip-Stack # 1\n"
     "Divide by the average of: Chip-Stack # 12 on Chip-Stack # 1");
  EXPECT_EQ(Amount(kFirstStack + 1), 16);
  SetStack(11, 0.4);
  Do("Divide by the lowest of: Chip-Stack # 11 on Chip-Stack # 1");
  ASSERT_EQ(surface.messages.size(), 1u);
  EXPECT_THAT(surface.messages[0].text, ::testing::HasSubstr("Division by zero, Error #11"));
}

TEST_F(Actions, ArithmeticThatOverflowsAborts) {
  SetStack(1, 9e13);
  Do("Multiply by 9999999999999 on Chip-Stack # 1\nAdd $ 1 to Chip-Stack # 2");
  ASSERT_EQ(surface.messages.size(), 1u);
  EXPECT_THAT(surface.messages[0].text, ::testing::HasSubstr("line #2:\n\nOverflow, Error #6\n"));
  EXPECT_EQ(Stack(2), 0);
}

TEST_F(Actions, TargetsOfManySlots) {
  game.NotifyFlags = 0;
  Do("Bet $ 5 on all Place bets");
  for (int bet = 31; bet <= 40; ++bet) EXPECT_GT(Amount(bet), 0) << bet;
  Do("Bet $ 0 on all Place bets\nBet $ 6 on all outside Place bets");
  EXPECT_EQ(Amount(35), 0);
  EXPECT_EQ(Amount(36), 0);
  EXPECT_GT(Amount(34), 0);
  EXPECT_GT(Amount(37), 0);
  Do("Bet $ 1 on all Chip-Stacks");
  for (int slot = 100; slot <= 200; ++slot) EXPECT_EQ(Amount(slot), 1) << slot;
  SetStack(4, 17.5);
  Do("Bet $ 9 on Chip-Stack ref # 4");
  EXPECT_EQ(Stack(17), 9);
  SetStack(4, 100);
  Do("Bet $ 7 on Chip-Stack ref # 4");
  EXPECT_EQ(Amount(200), 1);
  Do("Bet $ 10 on Place (shooter's point)");
  game.Point = 4;
  Do("Bet $ 10 on Buy (shooter's point)");
  EXPECT_EQ(Amount(43), 10);
}

TEST_F(Actions, CoveredPlaceBetsAreSpared) {
  game.NotifyFlags = 0;
  game.AutoRemovePlaceBets = true;
  game.Point = 6;
  Stand(kPassLine, 5);
  SetAmount(13, 5);  // Come 4
  Do("Bet $ 10 on all Place bets");
  EXPECT_EQ(Amount(33), 0);
  EXPECT_EQ(Amount(35), 0);
  EXPECT_GT(Amount(34), 0);
  Do("Bet $ 12 on Place 6");  // one bet by name is not spared
  EXPECT_EQ(Amount(35), 12);
  SetAmount(kPassLine, 0);
  Do("Bet $ 10 on all Place bets");
  EXPECT_GT(Amount(33), 0);
}

TEST_F(Actions, Round) {
  const struct {
    double amount;
    const char* line;
    double result;
  } cases[] = {
      {12, "Round Chip-Stack # 1 to the nearest $ 5", 10},
      {12.5, "Round Chip-Stack # 1 to the nearest $ 5", 15},
      {11, "Round Chip-Stack # 1 up to the nearest $ 5", 15},
      {14, "Round Chip-Stack # 1 down to the nearest $ 5", 10},
      {-12, "Round Chip-Stack # 1 down to the nearest $ 5", -15},
      {15, "Round Chip-Stack # 1 up to the nearest $ 5", 15},
      {0.3, "Round Chip-Stack # 1 up to the nearest $ 0.25", 0.5},
  };
  for (const auto& c : cases) {
    SetStack(1, c.amount);
    Do(c.line);
    EXPECT_EQ(Amount(kFirstStack + 1), c.result) << c.line;
  }
  EXPECT_TRUE(surface.messages.empty());
  Do("Round Chip-Stack # 1 up to the nearest $ 0");
  EXPECT_EQ(surface.messages.size(), 1u);
}

// --- Other actions -------------------------------------------------------------------------------

TEST_F(Actions, BetsAreBoughtAndCalled) {
  Stand(33, 20);
  Do("Call OFF Place 4");
  EXPECT_EQ(game.BetState[33], kCalledOff);
  Do("Buy the Place Bet on Place 4");
  EXPECT_EQ(Amount(33), 0);
  EXPECT_EQ(Amount(43), 20);
  Do("Call ON Buy 4");
  EXPECT_NE(game.BetState[43], kCalledOff);
}

TEST_F(Actions, ResetsOfStreaksAndRolls) {
  game.BetStreak.SetNow(35, 4);
  game.BetStreak.SetBefore(35, 3);
  game.BetStreak.SetNow(41, 4);
  Do("Reset wins / losses on all Place bets");
  EXPECT_EQ(game.BetStreak.Now(35), 0);
  EXPECT_EQ(game.BetStreak.Before(35), 0);
  EXPECT_EQ(game.BetStreak.Now(41), 4);
  Do("Reset wins / losses on all Chip-Stacks");

  for (const int event : {0, 2, 17, 89}) SetScriptRollCounts(game, event, 5);
  Do("Reset rolls on number group 4,5,6,8,9,10");
  EXPECT_EQ(ScriptRollCounts(game, 17), 0);
  EXPECT_EQ(ScriptRollCounts(game, 2), 5);
  Do("Reset rolls on all the numbers");
  EXPECT_EQ(ScriptRollCounts(game, 2), 0);
  EXPECT_EQ(ScriptRollCounts(game, 89), 0);
  EXPECT_EQ(ScriptRollCounts(game, 0), 5);

  // An old row of the list has the code of a group and the text of all numbers.
  SetScriptRollCounts(game, 2, 5);
  ScriptLine line = Line(kActionLine, kActionResetRolls);
  line.LineTarget = 2017;
  line.LineText = "          Reset rolls on all the numbers";
  SetLines({line});
  Run();
  EXPECT_EQ(ScriptRollCounts(game, 2), 0);
}

TEST_F(Actions, FlagsTellWhetherTheyChanged) {
  Do("Set flag \"a\" to True\nSet flag \"b\" to False");
  EXPECT_TRUE(game.ScriptFlags[0].FlagValue);
  EXPECT_TRUE(game.ScriptFlags[0].FlagChanged);
  EXPECT_FALSE(game.ScriptFlags[1].FlagChanged);
  EXPECT_TRUE(game.AnyFlagChanged);
  game.ScriptFlags.push_back({"b"});
  Do("Set flag \"b\" to True");  // every flag of the name
  EXPECT_TRUE(game.ScriptFlags[1].FlagValue);
  EXPECT_TRUE(game.ScriptFlags[2].FlagValue);
  Do("Set all flags to False");
  for (const ScriptFlag& flag : game.ScriptFlags) EXPECT_FALSE(flag.FlagValue);
}

TEST_F(Actions, SettingsOfThePlay) {
  game.KeepRolling = true;
  Do("Set Auto-Handle Winning Bets to Press Double\n"
     "Set Auto-Handle Losing Bets to Double Bet\n"
     "Set Auto-Take Full Odds to True\n"
     "ATM - withdraw $ 200 from the ATM\n"
     "ATM - deposit % of 50 % of bankroll in the ATM");
  EXPECT_EQ(game.HandleWinningBets, 4);
  EXPECT_EQ(game.HandleLosingBets, 5);
  EXPECT_TRUE(game.AutoTakeFullOdds);
  EXPECT_EQ(Amount(kBankroll), 600);
  EXPECT_TRUE(game.KeepRolling);
  Do("Stop Auto-Rolling / Hyper-Drive");
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_EQ(game.HyperDriveStopText, "");
  game.HyperDriveActive = true;
  Do("Stop Auto-Rolling / Hyper-Drive");
  EXPECT_EQ(game.HyperDriveStopText, "Stopped by Auto-Bet command.");

  ScriptLine line = Line(kActionLine, kActionSetWinRule);
  line.LineTarget = 77;
  SetLines({line});
  Run();
  EXPECT_EQ(game.HandleWinningBets, 4);
}

TEST_F(Actions, NamesOfChipStacks) {
  SetStack(2, 30.5);
  Do("Name Chip-Stack # 1 as \"Level\"\nName Chip-Stack ref # 2 as \"Depth\"");
  EXPECT_EQ(game.ChipStackName[1], "Level");
  EXPECT_EQ(game.ChipStackName[30], "Depth");
  SetStack(2, 100);
  Do("Name Chip-Stack ref # 2 as \"Nowhere\"");
  Do("Clear all Chip-Stack names");
  EXPECT_EQ(game.ChipStackName[1], "");
}

TEST_F(Actions, Generators) {
  SetStack(1, 3.9);
  Do("Select RNG # as value of Chip-Stack # 1");
  EXPECT_EQ(game.RngSelected, 2);
  Do("Select RNG # 6");
  EXPECT_EQ(game.RngSelected, 2);
  Do("Seed RNG with # 1234");
  EXPECT_EQ(game.LastSeed, 1234);
  Do("Seed RNG with # 0");
  EXPECT_EQ(game.LastSeed, 1234);
  surface.SetClock(5678);
  Do("Seed RNG with date/time");
  EXPECT_EQ(game.LastSeed, 57);  // RNG #3 takes the clock in tenths of a second
  Do("Seed RNG with value of game rolls");
  EXPECT_EQ(game.LastSeed, 10);
}

TEST_F(Actions, SoundsEndThePacing) {
  Do("Play sound: \"ding.wav\"");
  EXPECT_THAT(surface.sounds, ElementsAre(RecordingSurface::Sound{"ding.wav", true}));
  EXPECT_TRUE(surface.waits.empty());
  game.AutoBetSoundOff = true;
  Do("Play sound: \"ding.wav\"");
  EXPECT_EQ(surface.sounds.size(), 1u);
  EXPECT_TRUE(surface.waits.empty());
}

TEST_F(Actions, ResetTableEndsTheGameInProgress) {
  SetStack(5, 3);
  Stand(kPassLine, 10);
  Do("Reset table (preserve Chip-Stacks)");
  EXPECT_EQ(RollCounts(game, 0), 0);
  EXPECT_EQ(Amount(kPassLine), 0);
  EXPECT_EQ(Stack(5), 3);
  Do("Reset table\nAdd $ 1 to Chip-Stack # 6");
  EXPECT_EQ(Stack(5), 0);
  EXPECT_EQ(Stack(6), 1);  // the run goes on
}

TEST_F(Actions, LinesThatNoListOffersDoNothing) {
  game.KeepRolling = true;
  for (std::int32_t code = -1; code <= 1000; ++code) {
    if (code == 998 || code == 999) continue;
    for (const std::int32_t target : {-7, 0, 89, 1002, 1500, 1801, 2000, 2090, 30000}) {
      if (code == 90 || code == 110 || code >= 59) continue;
      ScriptLine line = Line(kActionLine, code);
      line.LineAmount = MoneyAmount(10);
      line.LineTarget = target;
      SetLines({line});
      Run();
    }
  }
  EXPECT_EQ(Amount(kBankroll), 1000);
  EXPECT_EQ(game.TotalOnTable, MoneyAmount());
  for (const std::int32_t code : {9, 19, 29, 49, 59, 60, 69, 92, 115, 116, 118, 997, 1000}) {
    ScriptLine line = Line(kActionLine, code);
    line.LineAmount = MoneyAmount(10);
    line.LineTarget = kPassLine;
    SetLines({line});
    Run();
    EXPECT_EQ(Amount(kPassLine), 0) << code;
  }
  EXPECT_TRUE(surface.messages.empty());
  EXPECT_TRUE(game.KeepRolling);
}

// --- Messages, questions, input ------------------------------------------------------------------

TEST_F(Actions, ConsecutiveLinesBuildOneMessage) {
  SetStack(1, 1234.5);
  Do("Show message: \"One\"\nShow message: \"Two: \";\nShow message: Value of Chip-Stack # 1\n"
     "Show message: \"end\"\nAdd $ 1 to Chip-Stack # 9\nShow message: \"Three\";");
  ASSERT_EQ(surface.messages.size(), 2u);
  EXPECT_EQ(surface.messages[0].text, "One\nTwo: 1,234.50 end");
  EXPECT_EQ(surface.messages[0].title, "Auto-Bet");
  EXPECT_EQ(surface.messages[0].help, 550);
  EXPECT_EQ(surface.messages[0].options, kButtonOk | kHideScript);
  EXPECT_EQ(surface.messages[1].text, "Three");
}

TEST_F(Actions, ConsecutiveValuesAddUp) {
  SetStack(1, 5);
  SetStack(2, 7);
  Do("Show message: Value of Chip-Stack # 1\nShow message: Value of Chip-Stack # 2");
  ASSERT_EQ(surface.messages.size(), 1u);
  EXPECT_EQ(surface.messages[0].text, "5 12 ");
}

TEST_F(Actions, MessagesStopHyperDrive) {
  game.HyperDriveActive = true;
  game.KeepRolling = true;
  game.NotifyFlags = 0;
  Do("Show message: \"One\"");
  EXPECT_TRUE(game.KeepRolling);
  game.NotifyFlags = kNoticeScript;
  Do("Show message: \"One\"");
  EXPECT_EQ(surface.messages.size(), 1u);
  EXPECT_FALSE(game.KeepRolling);
}

TEST_F(Actions, QuestionsAreAnsweredInTheSameRun) {
  MessageReply yes;
  yes.answer = kAnswerYes;
  surface.answers = {yes};
  const std::string script =
      "Do this . . .\nYes/No question: \"Bankroll \";\nYes/No question: Value of bankroll\n"
      "While . . .\nLast answer was \"Yes\"\nthen . . .\nAdd $ 1 to Chip-Stack # 1\n";
  Script(script);
  Run();
  EXPECT_EQ(surface.messages[0].text, "Bankroll 1,000 ");
  EXPECT_EQ(surface.messages[0].options, kButtonYes | kButtonNo | kPictureQuestion);
  EXPECT_EQ(Stack(1), 1);
  Script("While . . .\nLast answer was \"Yes\"\nthen . . .\nAdd $ 1 to Chip-Stack # 1\n");
  Run();
  EXPECT_EQ(Stack(1), 1);
}

TEST_F(Actions, InputIsBetOnEverySlot) {
  MessageReply typed;
  typed.input1 = "12";
  surface.answers = {typed, typed};
  game.NotifyFlags = kNoticeScript;
  Do("Show message: \"How much?\"\nGet input and bet it on all inside Place bets");
  ASSERT_EQ(surface.messages.size(), 1u);
  EXPECT_EQ(surface.messages[0].text, "How much?");
  EXPECT_EQ(surface.messages[0].options, kButtonOk | kOneInput);
  EXPECT_EQ(Amount(35), 12);
  EXPECT_EQ(Amount(36), 12);
  Do("Get input and bet it on Field");
  EXPECT_EQ(surface.messages[1].text, "Please enter a value to bet on:  Field");
  EXPECT_EQ(Amount(kField), 12);
}

// --- The output file -----------------------------------------------------------------------------

class ScriptOutput : public Actions {
 protected:
  ScriptOutput()
      : folder_(std::filesystem::path(testing::TempDir()) /
                ("script_output_" + std::to_string(::getpid()))) {
    std::filesystem::create_directories(folder_);
  }
  ~ScriptOutput() override {
    game.ScriptOutput.reset();
    std::filesystem::remove_all(folder_);
  }

  std::string Name(const char* file = "o.txt") const { return (folder_ / file).string(); }
  std::string Content() const {
    std::ifstream file(Name(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  void DoFile(const char* action) {
    ScriptLine line =
        Line(kActionLine, std::string_view(action) == "clear"    ? kActionOpenClear
                          : std::string_view(action) == "append" ? kActionOpenAppend
                                                                 : kActionActivateProbability);
    line.LineName = " " + Name() + " ";
    SetLines({line});
    Run();
  }

 private:
  std::filesystem::path folder_;
};

TEST_F(ScriptOutput, ColumnsArePartedByTabs) {
  DoFile("clear");
  EXPECT_EQ(game.ScriptOutputFile, Name());
  SetStack(1, 1234.5);
  Do("Output to file. Message: \"Roll\"\nOutput to file. Message: \"no tab\";\n"
     "Output to file. New line.\nOutput to file. Value of Chip-Stack # 1\n"
     "Output to file. Value of the last Chip-Stack # 1\nOutput to file. New line.");
  EXPECT_EQ(Content(), "Roll\tno tab\n1234.5\t0\t\n");  // it can be read between two runs
  EXPECT_EQ(game.BetRequest, MoneyAmount());
  Do("Output to file. Message: \"more\"\nClose file");
  EXPECT_EQ(Content(), "Roll\tno tab\n1234.5\t0\t\nmore\t");
  DoFile("append");
  Do("Output to file. Message: \"!\";");
  EXPECT_EQ(Content(), "Roll\tno tab\n1234.5\t0\t\nmore\t!");
  DoFile("clear");
  EXPECT_EQ(Content(), "");
}

TEST_F(ScriptOutput, HyperDriveWritesWhenItEnds) {
  DoFile("clear");
  game.HyperDriveActive = true;
  game.KeepRolling = true;
  Do("Output to file. Message: \"x\";");
  EXPECT_EQ(Content(), "");
  EXPECT_FALSE(FlushScriptOutput(game));
  EXPECT_EQ(Content(), "x");
}

TEST_F(ScriptOutput, FileErrorsAbort) {
  Do("Close file");
  EXPECT_TRUE(surface.messages.empty());
  Do("Output to file. Message: \"x\"");
  EXPECT_THAT(surface.messages.back().text, ::testing::HasSubstr(", Error #52\n"));
  Do("Open/clear file for output: \"/nowhere/at/all\"");
  EXPECT_THAT(surface.messages.back().text,
              ::testing::HasSubstr("line #2:\n\nNo such file or directory, Error #53\n"));
  Do("Open/append file for output: \"/\"");
  EXPECT_THAT(surface.messages.back().text, ::testing::HasSubstr("Is a directory, Error #75"));
}

TEST_F(ScriptOutput, ProbabilityFiles) {
  DoFile("probability");
  EXPECT_THAT(surface.messages.back().text, ::testing::HasSubstr("Error #53"));
  EXPECT_FALSE(game.UseSkewedProbability);
  std::ofstream(Name()) << "no such thing";
  DoFile("probability");
  EXPECT_EQ(surface.messages.back().title, "Unable to Open Probability File");
  EXPECT_FALSE(game.UseSkewedProbability);
  game.UseSkewedProbability = true;
  Do("Deactivate Probability File");
  EXPECT_FALSE(game.UseSkewedProbability);
}

}  // namespace
}  // namespace feltmaster
