#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/console_program.h"

namespace feltmaster {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

// Sees to it that every command was understood, and gives the values of the `get`s.
std::vector<json> Values(const std::vector<std::string>& commands) {
  const auto answers = Play(commands);
  EXPECT_EQ(answers.size(), commands.size());
  std::vector<json> values;
  for (std::size_t i = 0; i < answers.size(); ++i) {
    EXPECT_EQ(answers[i]["ok"], true) << commands[i] << ": " << answers[i];
    if (answers[i].contains("value")) values.push_back(answers[i]["value"]);
  }
  return values;
}

TEST(ConsolePress, ChipsGoWhereTheyArePut) {
  EXPECT_EQ(Values({"atm withdraw 500", "press left 16 320",  // $5 chips
                    "press left 354 297", "get BetAmount(54)", "press left 300 290 ctrl",
                    "get BetAmount(54)", "press left 400 270", "press left 300 360",
                    "press left 16 295", "press left 300 360", "get ChipList",
                    "press left 300 360 shift", "get BetAmount(51)", "get HitBet", "show status"}),
            json::parse(R"([5, 0, [[54,2,400,270],[51,2,300,360],[51,3,300,360]], 0, 51,
                [["You're even:  ","0"],["Bankroll:  ","500"],
                 ["Total bets:  ","5","  Available:  ","495"]]])"));
}

TEST(ConsolePress, ARightPressRollsAsTheRollCommandDoes) {
  const auto pressed = Values({"atm withdraw 500", "bet 51 5", "press right 300 100",
                               "get RollCounts(0)", "get Die1", "get Die2", "get BetAmount(0)"});
  const auto rolled = Play({"atm withdraw 500", "bet 51 5", "roll"});
  EXPECT_EQ(pressed[1], 1);
  EXPECT_EQ(json({pressed[2], pressed[3]}), rolled[2]["value"]["dice"]);
  EXPECT_EQ(pressed[4], rolled[2]["value"]["bankroll"]);
}

TEST(ConsolePress, KeysWalkAndFillTheEntryBox) {
  EXPECT_EQ(Values({"atm withdraw 500",
                    "key right",
                    "get EntryBoxBet",
                    "set KeyInBetAmounts true",
                    "press left 110 165",
                    "key 1",
                    "key 2",
                    "key right",
                    "get EntryBoxBet",
                    "get BetAmount(31)",
                    "key 7",
                    "get EntryBoxText",
                    "key esc",
                    "get EntryBoxText",
                    "key 8",
                    "key enter",
                    "key down",
                    "get BetAmount(32)",
                    "get EntryBoxBet",
                    "key up",
                    "get EntryBoxBet",
                    "enter 54 10",
                    "get KeyInBetAmounts"}),
            json::parse(R"([1, 32, 12, "7", "0", 8, 53, 32, 10, true])"));
}

TEST(ConsolePress, GuardsAndWrongWords) {
  const auto answers = Play({
      "set AutoBetRunning true",     // 0
      "answer no yes yes",           // 1
      "press left 354 297",          // 2
      "key left",                    // 3
      "set HyperDriveActive true",   // 4
      "press right 300 30",          // 5
      "set HyperDriveActive false",  // 6
      "get BetAmount(54)",           // 7
      "press middle 1 1",            // 8
      "press left 640 1",            // 9
      "press left 1",                // 10
      "press left 1 1 meta",         // 11
      "key tab",                     // 12
      "key",                         // 13
      "key z ctrl",                  // 14
  });
  EXPECT_EQ(answers[2]["messages"][0]["title"], "Auto-Bet Active");
  EXPECT_EQ(answers[2]["messages"][0]["answer"], 7);
  EXPECT_EQ(answers[3]["messages"][0]["answer"], 6);
  EXPECT_EQ(answers[5]["messages"][0]["title"], "Hyper-Drive Active");
  EXPECT_EQ(answers[7]["value"], 0);
  const std::pair<std::size_t, std::string> faults[] = {{8, "BUTTON"}, {9, "X"},    {10, "Y"},
                                                        {11, "meta"},  {12, "KEY"}, {13, "KEY"}};
  for (const auto& [i, named] : faults) {
    EXPECT_EQ(answers[i]["ok"], false) << i;
    EXPECT_THAT(std::string(answers[i]["error"]), HasSubstr(named));
  }
  EXPECT_EQ(answers[14]["ok"], true);
  EXPECT_TRUE(answers[14]["messages"].empty());
}

}  // namespace
}  // namespace feltmaster
