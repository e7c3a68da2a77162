#include "engine/start_up.h"

#include <gtest/gtest.h>

#include <bit>

#include "automation/hyper_drive.h"
#include "config/answering_surface.h"
#include "dice/rng.h"
#include "engine/new_game.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "view/state_hash.h"

namespace feltmaster {
namespace {

using namespace money_literals;

struct Table {
  explicit Table(std::optional<std::int32_t> seed = 7) {
    game.surface = &surface;
    StartUp(game, {"", seed});
  }
  std::vector<std::int32_t> Dice(std::int32_t rng) {
    game.RngSelected = rng;
    std::vector<std::int32_t> dice;
    for (int i = 0; i < 40; ++i) {
      DrawDice(game);
      dice.push_back(game.Die1 * 10 + game.Die2);
    }
    return dice;
  }

  Game game;
  AnsweringSurface surface;
};

TEST(StartUp, OpensTheTableOfAFirstStart) {
  Table table;
  const Game& game = table.game;
  EXPECT_EQ(game.BetAmount[kBankroll], 0_usd);
  EXPECT_EQ(game.BetAmount[95], 1_usd);
  EXPECT_EQ(game.BetAmount[99], 500_usd);
  EXPECT_EQ(game.Die1 * 10 + game.Die2, 34);
  EXPECT_EQ(game.RngSelected, 0);
  EXPECT_EQ(game.BankrollHistory[0], 1_usd);
  EXPECT_EQ(game.DiceProbability[1][2][1], 2'778);
  EXPECT_EQ(game.PayTable[kHard8].PayNumerator, 9_usd);
  // Contract bets and one-roll bets work on the come-out, the others wait.
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const bool idle = (bet >= 21 && bet <= 50) || bet == kPassOdds || bet == kComeBox;
    EXPECT_EQ(game.BetState[bet], idle ? kNotWorking : kWorking) << bet;
  }
  int comps = 0;
  for (int word = 1; word <= 3; ++word) {
    comps +=
        std::popcount(static_cast<std::uint32_t>(game.CompBetMask[static_cast<std::size_t>(word)]));
  }
  EXPECT_EQ(comps, 96 - 14);  // 31, 31 and 26 bets and the bits beyond them
  EXPECT_TRUE(table.surface.dialogs.empty());
}

TEST(StartUp, SeedsEveryGenerator) {
  for (std::int32_t rng = 0; rng < kRngCount; ++rng) {
    EXPECT_EQ(Table(7).Dice(rng), Table(7).Dice(rng)) << rng;
    EXPECT_NE(Table(7).Dice(rng), Table(8).Dice(rng)) << rng;
  }
  // A seed that a generator does not take is dropped for it alone.
  EXPECT_EQ(Table(2'000'000).game.LastSeed, 2'000'000);
  EXPECT_NE(Table(2'000'000).Dice(0), Table(2'000'001).Dice(0));
  EXPECT_EQ(Table(0).game.LastSeed, 0);
  // The clock moves on between the seeds.
  EXPECT_EQ(Table(std::nullopt).game.LastSeed, 5);
}

TEST(ResetGame, ClearsTheTableAndKeepsTheRules) {
  Table table;
  Game& game = table.game;
  game.BankrollInitAmount = 300_usd;
  game.MaxPlacardBet = 700_usd;
  game.NumAutoRolls = 40;
  game.AutoRollsRemaining = 3;
  game.BetAmount.Set(kBankroll, 120_usd);
  game.BetAmount.Set(kPlace, 20_usd);
  game.BetAmount.Set(kFirstStack + 7, 50_usd);
  game.ChipStackName[7] = "mine";
  game.BetAmountAtRollStart[kHop13] = 9_usd;
  game.EstablishedAmount[kPassLine] = 9_usd;
  game.BuyVigPaid[3] = 1_usd;
  game.BetState.Set(kPlace, kCalledOff);
  game.BetStreak.SetNow(kField, 4);
  game.Point = 6;
  game.TotalOnTable = 20_usd;
  game.BankrollSum = 77_usd;
  game.EventCounts[0] = 99;
  game.ScriptFlags = {{"a", true, true}};
  game.HyperDriveStopText = "x";
  game.GameFileName = "x.crp";
  game.GameChanged = true;
  RecordBetResult(game, kField, 5_usd, 5_usd);

  // Nothing is left of all this: the table is a fresh one under the same rules.
  Table fresh;
  fresh.game.BankrollInitAmount = 300_usd;
  fresh.game.MaxPlacardBet = 700_usd;
  fresh.game.NumAutoRolls = 40;
  fresh.game.ScriptFlags = {{"a", true, true}};
  for (Game* each : {&game, &fresh.game}) ResetGame(*each, ResetMode::kAll);
  static_cast<RngState&>(fresh.game) = game;
  EXPECT_EQ(StateHash(game), StateHash(fresh.game));
  EXPECT_EQ(game.BetAmount[kBankroll], 300_usd);
  EXPECT_EQ(game.AmountInvested, 300_usd);
  EXPECT_EQ(game.BetAmount[kFirstChip], 1_usd);
  EXPECT_EQ(game.MaxPlacardBet, 700_usd);
  EXPECT_EQ(game.AutoRollsRemaining, 40);
  EXPECT_EQ(game.HyperDriveStopText + game.GameFileName, "");
  EXPECT_FALSE(game.GameChanged);
}

TEST(ResetGame, BankrollFollowsItsRule) {
  const MoneyAmount above_limit = MoneyAmount::FromWhole(kBankLimit) + MoneyAmount::FromRaw(1);
  const struct {
    std::int32_t type;
    MoneyAmount before;
    const char* typed;
    MoneyAmount bankroll;
    MoneyAmount invested;  // 11 before
    bool asked;
  } kCases[] = {
      {kStartBankrollWith, 80_usd, "", 200_usd, 200_usd, false},
      {kPromptForBankroll, 80_usd, "55.5", 55.5_usd, 55.5_usd, true},
      {kCarryBankroll, 80_usd, "", 80_usd, 80_usd, false},
      {kCarryBankroll, MoneyAmount(-80), "", MoneyAmount(-80), MoneyAmount(-80), false},
      {kCarryBankroll, above_limit, "70", 70_usd, 70_usd, true},
      {kCarryBankroll, MoneyAmount::FromWhole(kBankLimit), "", MoneyAmount::FromWhole(kBankLimit),
       MoneyAmount::FromWhole(kBankLimit), false},
      {kCarryBankrollAndNet, 80_usd, "", 80_usd, 11_usd, false},
      {kCarryBankrollAndNet, above_limit, "70", 70_usd, 11_usd, true},
  };
  for (const auto& c : kCases) {
    Table table;
    Game& game = table.game;
    game.BankrollInitType = c.type;
    game.BankrollInitAmount = 200_usd;
    game.AmountInvested = 11_usd;
    game.AllowNegBankroll = false;
    game.KeepRolling = true;
    game.BetAmount.Set(kBankroll, c.before);
    table.surface.Type(c.typed);
    ResetGame(game, ResetMode::kAll);
    EXPECT_EQ(game.BetAmount[kBankroll], c.bankroll) << c.type;
    EXPECT_EQ(game.AmountInvested, c.invested) << c.type;
    EXPECT_EQ(table.surface.dialogs.size(), c.asked ? 1u : 0u) << c.type;
    EXPECT_EQ(game.KeepRolling, !c.asked);
    EXPECT_EQ(game.AllowNegBankroll, c.bankroll.Raw() < 0);
    if (!c.asked) continue;
    EXPECT_EQ(game.BankrollInitAmount, c.bankroll);
    EXPECT_EQ(table.surface.dialogs[0].title, "Set Beginning Bankroll");
    EXPECT_EQ(table.surface.dialogs[0].text, "Enter your beginning bankroll: ");
    EXPECT_EQ(table.surface.dialogs[0].input_default, "200");
  }
}

TEST(ResetGame, TakesTheDefaultWhenNobodyAnswers) {
  NullSurface nobody;
  Game game;
  game.surface = &nobody;
  StartUp(game, {"", 7});
  game.BankrollInitType = kPromptForBankroll;
  game.BankrollInitAmount = 200_usd;
  game.BetRequest = 12345_usd;
  ResetGame(game, ResetMode::kAll);
  EXPECT_EQ(game.BetAmount[kBankroll], 200_usd);
}

TEST(ResetGame, SeedsTheSelectedGeneratorWhenAsked) {
  Table table;
  table.game.ReSeedNewGames = false;
  ResetGame(table.game, ResetMode::kAll);
  EXPECT_EQ(table.game.LastSeed, 7);
  table.game.ReSeedNewGames = true;
  table.surface.SetClock(4711);
  ResetGame(table.game, ResetMode::kAll);
  EXPECT_EQ(table.game.LastSeed, 4711);
}

TEST(HyperDrive, TogglesAndKeepsTheBankLimit) {
  Table table;
  Game& game = table.game;
  game.NumAutoRolls = game.AutoRollsRemaining = 100;
  game.KeepRolling = true;
  ToggleHyperDrive(game);  // stops what rolls
  EXPECT_FALSE(game.KeepRolling);
  EXPECT_EQ(RollCounts(game, 0), 0);

  ToggleHyperDrive(game);
  EXPECT_EQ(RollCounts(game, 0), 100);
  EXPECT_EQ(game.AutoRollsRemaining, 100);
  EXPECT_FALSE(game.HyperDriveActive || game.KeepRolling);

  for (const std::int64_t sign : {1, -1}) {
    game.BetAmount.Set(kBankroll, MoneyAmount::FromWhole(sign * kBankLimit));
    ToggleHyperDrive(game);
    const std::int32_t rolls = RollCounts(game, 0);
    game.BetAmount.Set(kBankroll, MoneyAmount::FromRaw(sign * (kBankLimit * 10'000 + 100)));
    ToggleHyperDrive(game);
    EXPECT_EQ(RollCounts(game, 0), rolls);
    EXPECT_FALSE(game.HyperDriveActive);
  }
  EXPECT_EQ(RollCounts(game, 0), 300);
}

}  // namespace
}  // namespace feltmaster
