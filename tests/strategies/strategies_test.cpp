// Every strategy that comes with the program is sound, says what it is, and plays as it says.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <set>

#include "autobet/check_bets.h"
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "engine/roll_cycle.h"
#include "engine/start_up.h"
#include "game/game.h"
#include "surface/null_surface.h"

namespace feltmaster {
namespace {

const std::filesystem::path kFolder = std::filesystem::path(FELTMASTER_SOURCE_DIR) / "strategies";
constexpr int kRolls = 20'000;

std::set<int> Family(int first) {
  std::set<int> bets;
  for (int bet = first; bet < first + kSlotCount; ++bet) bets.insert(bet);
  return bets;
}
std::set<int> Join(std::initializer_list<std::set<int>> parts) {
  std::set<int> all;
  for (const std::set<int>& part : parts) all.insert(part.begin(), part.end());
  return all;
}
int Standing(const Game& game, int first) {
  int count = 0;
  for (int bet = first; bet < first + kSlotCount; ++bet) {
    count += game.BetAmount[bet] > MoneyAmount();
  }
  return count;
}
MoneyAmount Sum(const Game& game, int first) {
  MoneyAmount sum;
  for (int bet = first; bet < first + kSlotCount; ++bet) sum += game.BetAmount[bet];
  return sum;
}

struct Expectation {
  std::set<int> bets;                      // decided in the long run, and no others
  std::int64_t most;                       // on one bet
  std::function<bool(const Game&)> holds;  // between any two rolls
};

const int kPlace5 = BetOnNumber(kPlace, 5);
const int kPlace6 = BetOnNumber(kPlace, 6);
const int kPlace8 = BetOnNumber(kPlace, 8);
const int kPlace9 = BetOnNumber(kPlace, 9);
const int kLay4 = BetOnNumber(kLay, 4);
const int kLay10 = BetOnNumber(kLay, 10);

const std::map<std::string, Expectation>& Expectations() {
  static const std::map<std::string, Expectation> expectations = {
      {"pass_line_odds",
       {{kPassLine, kPassOdds},
        20,
        [](const Game& game) {
          const bool odds = game.BetAmount[kPassOdds] == MoneyAmount(20);
          return game.BetAmount[kPassLine] == MoneyAmount(10) && odds == (game.Point != 0);
        }}},
      {"three_point_come",
       {Join({{kPassLine, kPassOdds, kComeBox}, Family(kComePoint), Family(kComeOdds)}), 25,
        [](const Game& game) { return Standing(game, kComePoint) <= 2; }}},
      {"iron_cross",
       {{kPlace5, kPlace6, kPlace8, kField},
        6,
        [](const Game& game) {
          return (game.BetAmount[kField] == MoneyAmount(5)) == (game.Point != 0);
        }}},
      {"inside_place",
       {{kPlace5, kPlace6, kPlace8, kPlace9},
        6,
        [](const Game& game) {
          return game.BetAmount[kFirstStack + 1] < MoneyAmount(3) || Standing(game, kPlace) == 0;
        }}},
      {"across_place",
       {Family(kPlace), 6,
        [](const Game& game) {
          return game.Point == 0 || (Standing(game, kPlace) == kSlotCount - 1 &&
                                     game.BetAmount[BetOnNumber(kPlace, game.Point)].Raw() == 0);
        }}},
      {"press_and_regress",
       {{kPlace6, kPlace8},
        30,
        [](const Game& game) {
          return game.Point == 0 || game.BetAmount[kPlace6] >= MoneyAmount(12);
        }}},
      {"field_progression",
       {{kField},
        50,
        [](const Game& game) {
          return game.BetAmount[kField] == game.BetAmount[kFirstStack + 1] &&
                 game.BetAmount[kField] >= MoneyAmount(5);
        }}},
      {"lay_4_and_10",
       {{kLay4, kLay10},
        40,
        [](const Game& game) { return game.DiceTotal != 7 || Standing(game, kLay) == 2; }}},
      {"lay_the_point",
       {{kLay4, BetOnNumber(kLay, 5), BetOnNumber(kLay, 6), BetOnNumber(kLay, 8),
         BetOnNumber(kLay, 9), kLay10},
        40,
        [](const Game& game) {
          const bool layable = game.Point >= 4 && game.Point <= 10;
          return Standing(game, kLay) == (layable ? 1 : 0);
        }}},
      {"hedged_inside",
       {{kPlace5, kPlace6, kPlace8, kPlace9, kSeven},
        30,
        [](const Game& game) { return game.Point != 0 || game.BetAmount[kSeven].Raw() == 0; }}},
      {"martingale_line",
       {{kPassLine},
        320,
        [](const Game& game) {
          const std::int64_t steps = game.BetAmount[kPassLine].RoundWhole() / 10;
          return steps > 0 && (steps & (steps - 1)) == 0;
        }}},
      {"hot_hand",
       {{kPlace5, kPlace6, kPlace8, kPlace9},
        120,
        [](const Game& game) { return Sum(game, kPlace) < MoneyAmount(212); }}},
      {"long_watch",
       {Join({{kPassLine, kPassOdds, kComeBox, kField, kPlace6, kPlace8, kLay4,
               BetOnNumber(kBuy, 4), BetOnNumber(kBuy, 10)},
              Family(kComePoint),
              Family(kComeOdds)}),
        100, [](const Game& game) { return Sum(game, kPlace) <= MoneyAmount(102); }}},
  };
  return expectations;
}

class Strategy : public testing::TestWithParam<std::string> {};

TEST_P(Strategy, PlaysAsItSays) {
  const std::string path = (kFolder / (GetParam() + ".txt")).string();
  ASSERT_TRUE(Expectations().contains(GetParam())) << path << " is expected to do nothing yet";
  const Expectation& expected = Expectations().at(GetParam());
  NullSurface surface;
  Game game;
  game.surface = &surface;
  StartUp(game, {.data_dir = "", .seed = 7});
  const auto fault = LoadScriptOrText(game, path);
  ASSERT_FALSE(fault) << *fault;
  ASSERT_EQ(CheckBets(game), 0) << game.MsgText;
  EXPECT_EQ(game.ScriptLines[0].LineKind, kCommentLine);
  EXPECT_EQ(game.ScriptLines[1].LineKind, kCommentLine);

  game.BetAmount.Set(kBankroll, MoneyAmount(100'000));
  game.ScriptActive = 1;
  game.NotifyFlags = 0;  // nobody is there to read of charges
  RunInitialisationCycle(game);
  std::set<int> decided;
  int broken = 0;
  for (int roll = 0; roll < kRolls; ++roll) {
    RollCycle(game);
    for (int i = 0; i < game.Decisions.count; ++i) {
      const BetDecision& decision = game.Decisions.list[static_cast<std::size_t>(i)];
      decided.insert(decision.bet);
      EXPECT_LE(decision.amount, MoneyAmount::FromWhole(expected.most)) << decision.bet;
    }
    broken += !expected.holds(game);
  }
  EXPECT_EQ(decided, expected.bets);
  EXPECT_EQ(broken, 0) << "rolls after which the strategy stood otherwise than it says";
  EXPECT_EQ(game.LastErrorText, "");
}

std::vector<std::string> Names() {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(kFolder)) {
    if (entry.path().extension() == ".txt") names.push_back(entry.path().stem().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}
INSTANTIATE_TEST_SUITE_P(All, Strategy, testing::ValuesIn(Names()),
                         [](const auto& strategy) { return strategy.param; });

}  // namespace
}  // namespace feltmaster
