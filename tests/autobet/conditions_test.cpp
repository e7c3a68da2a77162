#include <gtest/gtest.h>

#include <random>
#include <string>

#include "autobet/script_table.h"
#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

class Conditions : public ScriptTable {
 protected:
  Conditions() { SetRolls(10); }

  void SetRun(int bet, int before, int now) {
    game.BetStreak.SetBefore(bet, before);
    game.BetStreak.SetNow(bet, now);
  }
  void SetCounter(GameCounter counter, int value) {
    game.GameCounters[static_cast<std::size_t>(counter)] = value;
  }
  void SetPoints(int prev_prev, int prev, int now) {
    game.PrevPrevPoint = prev_prev;
    game.PrevPoint = prev;
    game.Point = now;
  }
  void SetEvent(int event, int count, int seen, int since, int since_seen) {
    SetScriptRollCounts(game, event, count);
    SetScriptRollCountsSeen(game, event, seen);
    SetScriptRollsSince(game, event, since);
    SetScriptRollsSinceSeen(game, event, since_seen);
  }
  void SetBefore(int slot, double before, double now) {
    SetAmountBefore(slot, before);
    SetAmount(slot, now);
  }
};

// --- Occasions -----------------------------------------------------------------------------------

TEST_F(Conditions, OccasionsOfTheRoll) {
  EXPECT_EQ(Ask("On each roll"), kNo);
  game.RollsSeenByScript = 9;
  EXPECT_EQ(Ask("On each roll"), kNew);

  game.MsgAnswer = kAnswerYes;
  EXPECT_EQ(Ask("Last answer was \"Yes\""), kNew);
  EXPECT_EQ(Ask("Last answer was \"No\""), kNo);
  game.MsgAnswer = kAnswerNo;
  EXPECT_EQ(Ask("Last answer was \"No\""), kNew);

  EXPECT_EQ(Ask("Initializing Auto-Bet"), kNo);
  game.HotKeyRunning = true;
  EXPECT_EQ(Ask("Initializing Auto-Bet"), kNew);
}

TEST_F(Conditions, ComeOutRolls) {
  const struct {
    int prev_prev, prev, now;
    ConditionAnswer next_is, next_is_not, last_was, last_was_not;
  } cases[] = {
      {0, 0, 0, kOld, kFalseButNew, kOld, kFalseButNew},
      {0, 0, 6, kNo, kNew, kOld, kFalseButNew},
      {0, 6, 6, kFalseButNew, kOld, kNo, kNew},
      {6, 6, 6, kFalseButNew, kOld, kFalseButNew, kOld},
      {6, 6, 0, kNew, kNo, kFalseButNew, kOld},
      {6, 0, 0, kOld, kFalseButNew, kNew, kNo},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::Message() << c.prev_prev << ' ' << c.prev << ' ' << c.now);
    SetPoints(c.prev_prev, c.prev, c.now);
    EXPECT_EQ(Ask("Next roll is a come-out roll"), c.next_is);
    EXPECT_EQ(Ask("Next roll is NOT a come-out roll"), c.next_is_not);
    EXPECT_EQ(Ask("Last roll was a come-out roll"), c.last_was);
    EXPECT_EQ(Ask("Last roll was NOT a come-out roll"), c.last_was_not);
  }
  SetRolls(0);
  SetPoints(0, 0, 0);
  EXPECT_EQ(Ask("Next roll is a come-out roll"), kNew);
  EXPECT_EQ(Ask("Last roll was a come-out roll"), kNo);
}

TEST_F(Conditions, PassesAndMissesOfRealRolls) {
  game.ScriptActive = 1;
  Script(
      "When . . .\nOn each pass\nthen . . .\nAdd $ 1 to Chip-Stack # 1\n"
      "When . . .\nOn each miss\nthen . . .\nAdd $ 1 to Chip-Stack # 2");
  SetRolls(0);
  const struct {
    int die1, die2, passes, misses;
  } rolls[] = {
      {3, 4, 1, 0},                // a natural
      {1, 1, 1, 0},                // the point is 2
      {1, 1, 1, 1},                // made, and yet counted as a miss
      {2, 2, 1, 1},                // the point is 4
      {1, 2, 1, 1},                // 3 while a point is on
      {3, 1, 2, 1},                // made
      {4, 4, 2, 1}, {5, 2, 2, 2},  // a seven-out
  };
  for (const auto& roll : rolls) {
    Roll(roll.die1, roll.die2);
    EXPECT_EQ(Stack(1), roll.passes) << roll.die1 << '-' << roll.die2;
    EXPECT_EQ(Stack(2), roll.misses) << roll.die1 << '-' << roll.die2;
  }
}

// --- Counters ------------------------------------------------------------------------------------

TEST_F(Conditions, CountersAreNewWhenTheyCross) {
  SetRolls(11);
  EXPECT_EQ(Ask("The # of rolls in the game are greater than 10"), kNew);
  EXPECT_EQ(Ask("The # of rolls in the game are greater than 9"), kOld);
  EXPECT_EQ(Ask("The # of rolls in the game are equal to 11"), kNew);
  EXPECT_EQ(Ask("The # of rolls in the game are not equal to 10"), kNew);
  EXPECT_EQ(Ask("The # of rolls in the game are less than 11"), kNo);
  EXPECT_EQ(Ask("The # of rolls in the game are not less than 11.5"), kFalseButNew);
  SetStack(4, 10.5);
  EXPECT_EQ(Ask("The # of rolls in the game are greater than Chip-Stack # 4"), kNew);

  SetCounter(kRollsThisHand, 3);
  EXPECT_EQ(Ask("The # of rolls for this shooter are not less than 3"), kNew);
}

TEST_F(Conditions, PassesAndMissesAreNewAtTheComeOutOnly) {
  for (const auto& [name, counter] : {std::pair{"The # of passes in the game", kTotalPasses},
                                      {"The # of passes for this shooter", kPassesThisHand},
                                      {"The # of misses in the game", kTotalMisses},
                                      {"The # of misses for this shooter", kMissesThisHand}}) {
    SCOPED_TRACE(name);
    const std::string line = std::string(name) + " are equal to 4";
    SetCounter(counter, 4);
    game.Point = 0;
    EXPECT_EQ(Ask(line), kNew);
    game.Point = 6;
    EXPECT_EQ(Ask(line), kOld);
    SetCounter(counter, 5);
    EXPECT_EQ(Ask(line), kNo);
  }
}

TEST_F(Conditions, TheLastShooterIsNewsUntilTheNextOneRolls) {
  for (const auto& [name, counter] :
       {std::pair{"The # of rolls for the last shooter", kLastHandRolls},
        {"The # of passes for the last shooter", kLastHandPasses},
        {"The # of misses for the last shooter", kLastHandMisses}}) {
    SCOPED_TRACE(name);
    const std::string line = std::string(name) + " are greater than 1";
    SetCounter(counter, 2);
    SetCounter(kHandsCompleted, 0);
    SetCounter(kRollsThisHand, 0);
    EXPECT_EQ(Ask(line), kOld);
    SetCounter(kHandsCompleted, 1);
    EXPECT_EQ(Ask(line), kNew);
    SetCounter(kRollsThisHand, 1);
    EXPECT_EQ(Ask(line), kOld);
  }
}

TEST_F(Conditions, SimulatedHoursAreAFraction) {
  game.RollsPerHour = MoneyAmount(120);
  SetRolls(180);
  EXPECT_EQ(Ask("Simulated hours are equal to 1.5"), kNew);
  EXPECT_EQ(Ask("Simulated hours are greater than 1.49"), kOld);
  EXPECT_EQ(Ask("Simulated hours are greater than 1.495"), kNew);
  SetStack(4, 1.5);
  EXPECT_EQ(Ask("Simulated hours are not less than Chip-Stack # 4"), kNew);
}

TEST_F(Conditions, AvailableBankrollIsAlwaysNew) {
  game.TotalOnTable = MoneyAmount(950);
  game.AllowNegBankroll = false;
  EXPECT_EQ(Ask("Available bankroll is less than $ 100"), kNew);
  EXPECT_EQ(Ask("Available bankroll is equal to $ 50"), kNew);
  game.AllowNegBankroll = true;  // as good as unlimited
  EXPECT_EQ(Ask("Available bankroll is less than $ 100"), kFalseButNew);
  EXPECT_EQ(Ask("Available bankroll is greater than $ 9999999999999"), kNew);
}

// --- The point -----------------------------------------------------------------------------------

TEST_F(Conditions, PointsEstablishedAndNot) {
  SetPoints(0, 0, 6);
  EXPECT_EQ(Ask("A point is established on any number"), kNew);
  EXPECT_EQ(Ask("A point is established on the number 6"), kNew);
  EXPECT_EQ(Ask("A point is established on the number 5, 6, 8, or 9"), kNew);
  EXPECT_EQ(Ask("A point is established on the number 8"), kFalseButNew);
  EXPECT_EQ(Ask("A point is NOT established on the number 8"), kOld);
  EXPECT_EQ(Ask("A point is NOT established on any number"), kNo);
  SetPoints(0, 6, 6);
  EXPECT_EQ(Ask("A point is established on the number 6"), kOld);
  SetPoints(6, 6, 0);
  EXPECT_EQ(Ask("A point is NOT established on the number 6"), kNew);
  EXPECT_EQ(Ask("A point is NOT established on any number"), kNew);
  EXPECT_EQ(Ask("A point is NOT established on the number 8"), kOld);
  SetPoints(0, 0, 2);
  EXPECT_EQ(Ask("A point is established on the number 2"), kNew);
  EXPECT_EQ(Ask("A point is established on any number"), kNew);
}

TEST_F(Conditions, PointsDecided) {
  SetPoints(0, 6, 0);
  game.DiceTotal = 6;
  EXPECT_EQ(Ask("A point is decided \"for\" the number 6"), kNew);
  EXPECT_EQ(Ask("A point is decided \"for\" the number 8"), kFalseButNew);
  EXPECT_EQ(Ask("A point is decided \"against\" the number 6"), kNo);
  EXPECT_EQ(Ask("A point is decided \"for\" or \"against\" any number"), kNew);
  game.DiceTotal = 7;
  EXPECT_EQ(Ask("A point is decided \"for\" the number 6"), kNo);
  EXPECT_EQ(Ask("A point is decided \"against\" any number"), kNew);
  SetPoints(0, 0, 0);
  EXPECT_EQ(Ask("A point is decided \"against\" any number"), kNo);
  EXPECT_EQ(Ask("A point is decided \"for\" or \"against\" any number"), kNo);
}

// --- Flags ---------------------------------------------------------------------------------------

TEST_F(Conditions, FlagsAreNewWhenTheirValueChanged) {
  game.ScriptFlags = {{"first", false, false}, {"second", true, true}, {"second", false, false}};
  EXPECT_EQ(Ask("Flag \"first\" is False"), kOld);
  EXPECT_EQ(Ask("Flag \"first\" is True"), kNo);
  EXPECT_EQ(Ask("Flag \"second\" is True"), kNew);  // the first of the name
  EXPECT_EQ(Ask("Flag \"second\" is False"), kFalseButNew);
  EXPECT_EQ(Ask("Any flag is True"), kOld);
  EXPECT_EQ(Ask("All flags are False"), kNo);
  game.ScriptFlags = {};
  EXPECT_EQ(Ask("Any flag is False"), kNo);
  EXPECT_EQ(Ask("All flags are False"), kNo);
}

TEST_F(Conditions, AllFlagsAndTheirNumber) {
  game.ScriptFlags = {{"a", true}, {"b", true}, {"c", true}};
  EXPECT_EQ(Ask("All flags are True"), kOld);
  EXPECT_EQ(Ask("Any flag is False"), kNo);
  game.ScriptFlags[1].FlagValue = false;
  EXPECT_EQ(Ask("Total # of true flags number 2"), kOld);
  EXPECT_EQ(Ask("Total # of true flags number more than 2"), kNo);
  EXPECT_EQ(Ask("Total # of false flags number less than 2"), kOld);
}

TEST_F(Conditions, FlagsAreFoundThoughTheListChanges) {
  Script(
      "Do this . . .\nSet flag \"a\" to True\nWhile . . .\nFlag \"a\" is True\nthen . . .\n"
      "Add $ 1 to Chip-Stack # 1");
  Run();
  EXPECT_EQ(Stack(1), 1);
  game.ScriptFlags.insert(game.ScriptFlags.begin(), ScriptFlag{"other"});
  game.ScriptFlags[1].FlagValue = false;
  Run();
  EXPECT_EQ(Stack(1), 2);
  EXPECT_FALSE(game.ScriptFlags[0].FlagValue);
  game.ScriptFlags.clear();
  Run();
  EXPECT_EQ(Stack(1), 2);
}

// --- Roll events ---------------------------------------------------------------------------------

TEST_F(Conditions, RollEvents) {
  SetEvent(0, 20, 19, 0, 0);
  const struct {
    const char* line;
    int count, seen, since, since_seen;
    ConditionAnswer answer;
  } cases[] = {
      {"has rolled each time", 4, 3, 0, 5, kNew},
      {"has rolled each time", 4, 4, 2, 1, kNo},
      {"has rolled 4 times", 4, 3, 0, 5, kNew},
      {"has rolled 4 times", 4, 4, 1, 0, kOld},
      {"has rolled 4 times", 5, 4, 0, 5, kNo},
      {"has rolled more than 3 times", 4, 3, 0, 5, kNew},
      {"has rolled more than 3 times", 5, 4, 0, 5, kOld},
      {"has not rolled each time", 4, 4, 1, 0, kNew},
      {"has not rolled each time", 4, 3, 0, 5, kNo},
      {"has not rolled 3 times", 4, 3, 0, 5, kNew},
      {"has not rolled 3 times", 4, 4, 1, 0, kOld},
      {"has rolled less than 5 times", 4, 4, 1, 0, kOld},
      {"has rolled less than 4 times", 4, 3, 0, 5, kNo},
      {"has rolled in the last 3 rolls", 4, 3, 0, 5, kNew},
      {"has rolled in the last 3 rolls", 4, 4, 2, 1, kOld},
      {"has rolled in the last 3 rolls", 4, 4, 3, 2, kNo},
      {"has rolled in the last 3 rolls", 0, 0, 1, 0, kFalseButNew},
      {"has not rolled in the last 3 rolls", 4, 4, 3, 2, kNew},
      {"has not rolled in the last 3 rolls", 4, 4, 4, 3, kOld},
      {"has not rolled in the last 3 rolls", 4, 4, 2, 1, kNo},
      {"has not rolled in the last 21 rolls", 0, 0, 30, 29, kNo},
  };
  for (const auto& c : cases) {
    SetEvent(9, c.count, c.seen, c.since, c.since_seen);
    EXPECT_EQ(Ask(std::string("Any 9 ") + c.line), c.answer)
        << c.line << ' ' << c.count << ' ' << c.seen << ' ' << c.since << ' ' << c.since_seen;
  }
  // Nothing has been rolled since a reset of all rolls: what is true is new.
  SetEvent(0, 0, 0, 0, 0);
  SetEvent(9, 2, 2, 1, 1);
  EXPECT_EQ(Ask("Any 9 has rolled 2 times"), kNew);
  EXPECT_EQ(Ask("Any 9 has rolled less than 3 times"), kNew);
}

// --- Streaks -------------------------------------------------------------------------------------

TEST_F(Conditions, StreaksOfOneBet) {
  const struct {
    const char* line;
    int before, now;
    ConditionAnswer answer;
  } cases[] = {
      {"has won each time", 1, 2, kNew},
      {"has won each time", 2, 2, kNo},
      {"has won each time", 2, -1, kNo},
      {"has won 3 times", 2, 3, kNew},
      {"has won 3 times", 3, 3, kOld},
      {"has won 3 times", 3, 4, kNo},
      {"has won more than 2 times", 2, 3, kNew},
      {"has won more than 2 times", 3, 4, kOld},
      {"has not won each time", 2, 2, kNew},
      {"has not won each time", 1, 2, kNo},
      {"has not won 3 times", 3, 4, kNew},
      {"has not won 3 times", 1, 2, kOld},
      {"has won less than 2 times", 3, -1, kNew},
      {"has won less than 2 times", 0, 1, kOld},
      {"has lost each time", -1, -2, kNew},
      {"has lost each time", -2, -2, kNo},
      {"has lost 2 times", -1, -2, kNew},
      {"has lost 2 times", -2, -2, kOld},
      {"has lost 2 times", 1, 2, kNo},
      {"has lost more than 1 time", -1, -2, kNew},
      {"has lost more than 1 time", -3, -4, kOld},
      {"has not lost each time", 0, 0, kNew},
      {"has not lost each time", 0, -1, kNo},
      {"has not lost 2 times", -2, -3, kNew},
      {"has lost less than 2 times", -3, 1, kNew},
      {"has lost less than 2 times", 0, -1, kOld},
  };
  for (const auto& c : cases) {
    SetRun(kPassLine, c.before, c.now);
    EXPECT_EQ(Ask(std::string("Pass Line ") + c.line), c.answer)
        << c.line << ' ' << c.before << ' ' << c.now;
  }
}

TEST_F(Conditions, StreaksOfRanges) {
  SetRun(33, 1, 2);
  EXPECT_EQ(Ask("Any Place bet has won each time"), kNew);
  EXPECT_EQ(Ask("Any Come bet has won each time"), kNo);
  // Only bets that stand can spoil "All".
  EXPECT_EQ(Ask("All Place bets have won 2 times"), kNew);
  SetAmount(34, 5);
  EXPECT_EQ(Ask("All Place bets have won 2 times").is_true, false);
  SetRun(34, 2, 2);
  EXPECT_EQ(Ask("All Place bets have won 2 times"), kNew);
  EXPECT_EQ(Ask("Total Place bets have won 4 times"), kNew);
  EXPECT_EQ(Ask("Total Place bets have won more than 4 times"), kNo);
  SetRun(33, 2, 2);
  EXPECT_EQ(Ask("Total Place bets have won 4 times"), kOld);
  SetRun(35, 0, -3);
  EXPECT_EQ(Ask("Total Place bets have lost more than 2 times"), kNew);
  EXPECT_EQ(Ask("Total Place bets have lost 3 times"), kNew);
  EXPECT_EQ(Ask("Total Place bets have lost 2 times"), kNo);
}

// --- Amounts -------------------------------------------------------------------------------------

TEST_F(Conditions, AmountsAreNewWhenTheyWereNotSoBefore) {
  SetBefore(kPassLine, 5, 10);
  EXPECT_EQ(Ask("Pass Line is equal to $ 10"), kNew);
  EXPECT_EQ(Ask("Pass Line is not equal to $ 5"), kNew);
  EXPECT_EQ(Ask("Pass Line is greater than $ 4"), kOld);
  EXPECT_EQ(Ask("Pass Line is not greater than $ 10"), kOld);
  EXPECT_EQ(Ask("Pass Line is less than $ 10"), kNo);
  EXPECT_EQ(Ask("Pass Line is not less than $ 5.01"), kNew);
  EXPECT_EQ(Ask("Bankroll is equal to $ 1000"), kOld);
  EXPECT_EQ(Ask("Place 6 is equal to $ 0"), kOld);
  SetRolls(0);
  EXPECT_EQ(Ask("Place 6 is equal to $ 0"), kNew);  // nothing is old before the first roll
}

// Ranges are not walked slot by slot; this walk says what they must answer.
TEST_F(Conditions, RangesAgreeWithAWalkOverTheirSlots) {
  std::mt19937 random(5);
  const auto small = [&] { return static_cast<double>(random() % 4); };
  const auto holds = [](int code, double value, double amount) {
    switch (code) {
      case kEqualAmount:
        return value == amount;
      case kNotEqualAmount:
        return value != amount;
      case kGreaterAmount:
        return value > amount;
      case kNotGreaterAmount:
        return value <= amount;
      case kLessAmount:
        return value < amount;
      default:
        return value >= amount;
    }
  };
  for (int trial = 0; trial < 4000; ++trial) {
    const bool stacks = random() % 2 == 0;
    const int first = stacks ? 100 : 31;
    const int last = stacks ? 199 : 40;
    const bool crowded = random() % 2 == 0;
    for (int slot = first; slot <= last; ++slot) {
      const bool empty = !crowded && random() % 4 != 0;
      SetBefore(slot, empty ? 0 : small(), empty && random() % 2 == 0 ? 0 : small());
    }
    const int code = kEqualAmount + static_cast<int>(random() % 6);
    const double amount = small();
    const bool all = random() % 2 == 0;
    bool now = false, before = false, now_spoiled = false, before_spoiled = false;
    for (int slot = first; slot <= last && !now_spoiled; ++slot) {
      const double value = Amount(slot);
      const double old = game.BetAmountAtRollEnd[static_cast<std::size_t>(slot)].ToDouble();
      const bool is = holds(code, value, amount) && !(amount != 0 && value == 0);
      const bool was = holds(code, old, amount) && !(amount != 0 && old == 0);
      now |= is;
      before |= was;
      if (all && !is && value != 0) now_spoiled = true;
      if (all && !now_spoiled && !was && old != 0) before_spoiled = true;
    }
    ScriptLine line = Line(kConditionLine, code);
    line.LineSubject =
        (all ? kAllFirst : kAnyFirst) + std::int32_t{stacks ? kRangeStacks : kRangePlace};
    line.LineAmount = MoneyAmount::FromDouble(amount);
    const bool is_true = now && !now_spoiled;
    ASSERT_EQ(Ask(line), (ConditionAnswer{is_true, is_true && !(before && !before_spoiled)}))
        << "trial " << trial << ", code " << code << ", amount " << amount << ", all " << all;
  }
}

TEST_F(Conditions, TotalsOfAmounts) {
  SetBefore(31, 5, 5);
  SetBefore(40, 0, 5);
  SetAmount(41, 100);
  EXPECT_EQ(Ask("Total Place bets are equal to $ 10"), kNew);
  EXPECT_EQ(Ask("Total Place bets are greater than $ 4"), kOld);
  EXPECT_EQ(Ask("Total Place bets number 2"), kNew);
  EXPECT_EQ(Ask("Total Place bets number less than 3"), kOld);
  EXPECT_EQ(Ask("Total bets number more than 2"), kNew);
  EXPECT_EQ(Ask("Total Place bets number more than 2"), kNo);
}

TEST_F(Conditions, ChipStacks) {
  SetStack(7, -3);
  EXPECT_EQ(Ask("Chip-Stack # 7 is less than $ 0"), kNew);
  EXPECT_EQ(Ask("Any Chip-Stack is less than $ -2"), kNew);
  SetStack(1, 7.9);
  EXPECT_EQ(Ask("Chip-Stack ref # 1 is equal to $ -3"), kNew);
  for (const double reference : {-0.5, -1.0, 100.0, 1e12}) {
    SetStack(1, reference);
    EXPECT_EQ(Ask("Chip-Stack ref # 1 is not equal to $ 7"), kNo) << reference;
  }
  for (int stack = 0; stack < 100; ++stack)
    game.BetAmount.Set(kFirstStack + stack, MoneyAmount::FromRaw(999'999'999'999'999'999));
  EXPECT_EQ(Ask("Total Chip-Stacks are greater than $ 1"), kNew);  // past the range of money
}

TEST_F(Conditions, NamesOfChipStacks) {
  game.ChipStackName[3] = "Level";
  EXPECT_TRUE(Ask("Chip-Stack # 3 is named \"Level\"").is_true);
  EXPECT_FALSE(Ask("Chip-Stack # 3 is named \"level\"").is_true);
  EXPECT_TRUE(Ask("Chip-Stack # 3 is not named \"level\"").is_true);
  EXPECT_TRUE(Ask("Any Chip-Stack is named \"Level\"").is_true);
  SetStack(3, 1);
  EXPECT_TRUE(Ask("All Chip-Stacks are named \"Level\"").is_true);  // empty ones do not count
  SetStack(4, 1);
  EXPECT_FALSE(Ask("All Chip-Stacks are named \"Level\"").is_true);
}

TEST_F(Conditions, BetsOnTheShootersPoint) {
  SetBefore(34, 0, 6);  // Place 5
  SetBefore(37, 0, 9);  // Place 9
  EXPECT_EQ(Ask("Place (shooter's point) is not equal to $ 1"), kNo);
  game.Point = 5;
  EXPECT_EQ(Ask("Place (shooter's point) is equal to $ 6"), kNew);
  game.Point = 9;
  EXPECT_EQ(Ask("Place (shooter's point) is equal to $ 9"), kNew);
}

TEST_F(Conditions, AverageBankroll) {
  game.BankrollHistoryCount = 4;
  for (const int roll : {1, 2, 3, 4})
    game.BankrollHistory[static_cast<std::size_t>(roll)] = MoneyAmount(roll * 100);
  EXPECT_EQ(Ask("Bankroll ( 2 roll average ) is equal to $ 350"), kNew);
  EXPECT_EQ(Ask("Bankroll ( 2 roll average ) is greater than $ 200"), kOld);
  EXPECT_EQ(Ask("Bankroll ( 3 roll average ) is less than bankroll"), kOld);
  SetAmountBefore(kBankroll, 150);
  EXPECT_EQ(Ask("Bankroll ( 2 roll average ) is less than bankroll"), kNew);
  EXPECT_EQ(Ask("Bankroll is greater than bankroll average 2 roll average )"), kNew);
}

// --- Comparison with a target --------------------------------------------------------------------

TEST_F(Conditions, OneBetAgainstAnother) {
  SetBefore(35, 6, 12);
  SetBefore(36, 6, 6);
  EXPECT_EQ(Ask("Place 6 is greater than Place 8"), kNew);
  EXPECT_EQ(Ask("Place 8 is less than Place 6"), kNew);
  EXPECT_EQ(Ask("Place 8 is not greater than Place 6"), kOld);
  EXPECT_EQ(Ask("Place 8 is equal to Place 8"), kNo);  // not compared with itself
  EXPECT_EQ(Ask("Place 8 is less than bankroll"), kOld);
  EXPECT_EQ(Ask("Place 8 is less than bankroll available"), kOld);
  SetStack(5, 12);
  EXPECT_EQ(Ask("Place 6 is equal to Chip-Stack # 5"), kNew);
  SetStack(6, 5);
  EXPECT_EQ(Ask("Place 6 is equal to Chip-Stack ref # 6"), kNew);
  SetStack(6, 500);
  EXPECT_EQ(Ask("Place 6 is not equal to Chip-Stack ref # 6"), kNo);
}

TEST_F(Conditions, BetsAgainstRanges) {
  SetBefore(kPassLine, 10, 10);
  SetBefore(35, 12, 12);
  SetBefore(36, 18, 6);
  EXPECT_EQ(Ask("Pass Line is less than Any Place bet"), kOld);
  EXPECT_EQ(Ask("Pass Line is less than All Place bets"), kNo);
  SetAmount(36, 18);
  EXPECT_EQ(Ask("Pass Line is less than All Place bets"), kOld);
  EXPECT_EQ(Ask("Pass Line is less than Total Place bets"), kOld);
  EXPECT_EQ(Ask("Pass Line is greater than Any Buy bet"), kOld);  // empty slots are worth 0
  // Against a range of its own kind a bet is not compared.
  EXPECT_EQ(Ask("Any Place bet is greater than Any Place bet"), kNo);
  EXPECT_EQ(Ask("Place 6 is less than Any Place bet"), kOld);
  EXPECT_EQ(Ask("Total Place bets are greater than Any Place bet"), kOld);
  EXPECT_EQ(Ask("All Place bets are greater than Pass Line"), kOld);
  SetAmount(31, 10);
  EXPECT_EQ(Ask("All Place bets are greater than Pass Line"), kNo);
  EXPECT_EQ(Ask("Total bets are greater than Total Place bets"), kOld);
}

TEST_F(Conditions, WhatFailedBeforeDoesNotHideWhatHoldsNow) {
  SetBefore(kPassLine, 10, 10);
  SetBefore(41, 5, 0);  // taken down: it stood against the line at the end of the last roll only
  SetBefore(42, 20, 20);
  EXPECT_EQ(Ask("Pass Line is less than All Buy bets"), kNew);
}

TEST_F(Conditions, AWhileBlockIsContentWithTheFirstHit) {
  SetBefore(kPassLine, 10, 10);
  SetBefore(35, 10, 5);
  SetBefore(36, 5, 5);
  const char* line = "Pass Line is greater than Any Place bet";
  for (const int slot : {31, 32, 33, 34, 37, 38, 39, 40}) SetBefore(slot, 20, 20);
  EXPECT_EQ(Ask(line, kWhen), kOld);  // Place 8 was below it already
  EXPECT_EQ(Ask(line, kWhile), kNew);
}

TEST_F(Conditions, CountersReadTargetsAsValues) {
  // The code of "Any Lay bet" as a target is that of no value; that of "Any bet" is the total of
  // the Lay bets.
  SetRolls(10);
  SetAmount(1, 9);
  EXPECT_TRUE(Ask("The # of rolls in the game are greater than Any bet").is_true);
  SetAmount(2, 9);
  EXPECT_FALSE(Ask("The # of rolls in the game are greater than Any bet").is_true);
  EXPECT_TRUE(Ask("The # of rolls in the game are greater than Any Lay bet").is_true);
}

// --- What no list offers -------------------------------------------------------------------------

TEST_F(Conditions, UnknownCodesAreFalse) {
  SetRolls(0);
  for (const std::int32_t subject :
       {-1,   0,    89,   99,   999,  1000, 1003, 1004, 1103, 1204, 1299, 1319, 1321,
        1402, 1403, 1505, 1602, 1700, 1703, 1801, 1802, 1807, 1999, 2091, 9998, 1'000'000}) {
    for (std::int32_t code = -1; code <= 70; ++code) {
      ScriptLine line = Line(kConditionLine, code);
      line.LineSubject = subject;
      ASSERT_EQ(Ask(line), kNo) << subject << ' ' << code;
    }
  }
  for (const std::int32_t subject :
       {51, 1001, 1101, 1201, 1311, 1303, 1306, 1405, 1410, 2005, 1503, 1400, 1401, 1600}) {
    for (const std::int32_t code : {0, 28, 37, 49, 64, 70, -5, 1000}) {
      ScriptLine line = Line(kConditionLine, code);
      line.LineSubject = subject;
      EXPECT_EQ(Ask(line), kNo) << subject << ' ' << code;
    }
  }
}

TEST_F(Conditions, HostileOperandsAreHarmless) {
  for (const std::int32_t stack : {-2'000'000'000, -1, 100, 101, 32767}) {
    for (const std::int32_t code : {1, 11, 12, 18, 20, 26}) {
      for (const std::int32_t subject : {1600, 1601, 1401}) {
        ScriptLine line = Line(kConditionLine, code);
        line.LineSubject = subject;
        line.LineSubjectStack = stack;
        line.LineTarget = subject;
        line.LineTargetStack = stack;
        const ConditionAnswer answer = Ask(line);
        if (subject != kAverageBankroll) {
          EXPECT_EQ(answer, kNo) << subject << ' ' << stack;
        }
      }
    }
  }
  ScriptLine line = Line(kConditionLine, kHasLost);
  line.LineSubject = kPassLine;
  line.LineAmount = MoneyAmount::FromRaw(std::numeric_limits<std::int64_t>::min());
  EXPECT_EQ(Ask(line), kNo);
}

}  // namespace
}  // namespace feltmaster
