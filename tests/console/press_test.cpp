#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "console/console_program.h"

namespace feltmaster {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;

TEST(ConsolePress, ChipsGoWhereTheyArePut) {
  PlaySteps({{"atm withdraw 500"},
             {"press left 16 320"},  // $5 chips
             {"press left 354 297"},
             {"get BetAmount(54)", 5},
             {"press left 300 290 ctrl"},
             {"get BetAmount(54)", 0},
             {"press left 400 270"},
             {"press left 300 360"},
             {"press left 16 295"},
             {"press left 300 360"},
             {"get ChipList", json::parse("[[54,2,400,270],[51,2,300,360],[51,3,300,360]]")},
             {"press left 300 360 shift"},
             {"get BetAmount(51)", 0},
             {"get HitBet", 51},
             {"show status", json::parse(R"([["You're even:  ","0"],["Bankroll:  ","500"],
                 ["Total bets:  ","5","  Available:  ","495"]])")}});
}

TEST(ConsolePress, KeysWalkAndFillTheEntryBox) {
  PlaySteps({{"atm withdraw 500"},
             {"key right"},
             {"get EntryBoxBet", 1},
             {"set KeyInBetAmounts true"},
             {"press left 110 165"},
             {"key 1"},
             {"key 2"},
             {"key right"},
             {"get EntryBoxBet", 32},
             {"get BetAmount(31)", 12},
             {"key 7"},
             {"get EntryBoxText", "7"},
             {"key esc"},
             {"get EntryBoxText", "0"},
             {"key 8"},
             {"key enter"},
             {"key down"},
             {"get BetAmount(32)", 8},
             {"get EntryBoxBet", 53},
             {"key up"},
             {"get EntryBoxBet", 32},
             {"enter 54 10", 10},
             {"get KeyInBetAmounts", true}});
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
