#include "files/games_log.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "console/console_program.h"
#include "files/glg_file.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "support/started_game.h"

namespace feltmaster {
namespace {

using namespace money_literals;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr std::int64_t kDollar = 10'000;

class GamesLogTest : public StartedGame<> {
 protected:
  void HaveRolls(std::int32_t rolls) { game_->EventCounts[0] = rolls; }
  // Games whose every amount tells which one it is.
  static GlgGame NumberedGame(std::int64_t number) {
    GlgGame game;
    for (std::size_t i = 0; i < game.size(); ++i) {
      game[i] = number * kDollar + static_cast<std::int64_t>(i);
    }
    return game;
  }
  static std::vector<GlgGame> NumberedGames(std::int64_t count) {
    std::vector<GlgGame> games;
    for (std::int64_t i = 1; i <= count; ++i) games.push_back(NumberedGame(i));
    return games;
  }
};

TEST_F(GamesLogTest, AFinishedGameIsOneRecordByteForByte) {
  const auto set = [&](ResultKind kind, int bet, int count, MoneyAmount amount) {
    SetResultCell(*game_, kind, kActual, bet, kResultCount, MoneyAmount(count));
    SetResultCell(*game_, kind, kActual, bet, kResultTotal, amount);
  };
  // Lay 2 and Lay 3 do not count.
  for (const ResultKind kind : {ResultKind::kWagers, ResultKind::kWins, ResultKind::kLosses}) {
    set(kind, 1, 100, 1000_usd);
    set(kind, 2, 100, 1000_usd);
  }
  set(ResultKind::kWagers, 3, 7, 300.5_usd);
  set(ResultKind::kWagers, 88, 4, 20_usd);
  set(ResultKind::kWins, 3, 5, 90.25_usd);
  set(ResultKind::kLosses, 88, 6, 100_usd);
  HaveRolls(1234567);
  game_->AmountInvested = 1500_usd;
  game_->BetAmount.Set(kBankroll, -12.3456_usd);
  for (int stack = 0; stack < 25; ++stack) {
    game_->BetAmount.Set(kFirstStack + stack, MoneyAmount(stack) - 3_usd);
  }

  GlgGame expected = {
      1234567 * kDollar, 11 * kDollar, 5 * kDollar, 6 * kDollar, -1 * kDollar, 3205000, 902500,
      100 * kDollar,     -97500,       -30421,  // 100 * -9.75 / 320.50 = -3.04212...
      1500 * kDollar,    -123456};
  for (std::int64_t stack = 0; stack < 20; ++stack) {
    expected[static_cast<std::size_t>(12 + stack)] = (stack - 3) * kDollar;
  }
  ASSERT_TRUE(LogFinishedGame(*game_));
  EXPECT_EQ(Bytes(Path("default.glg")), GlgBytes({expected}));

  ResetBetResults(*game_);
  ASSERT_TRUE(LogFinishedGame(*game_));
  const GlgLog log = ReadGlg(Bytes(Path("default.glg")));
  ASSERT_EQ(log.count, 2);
  EXPECT_EQ(log.games[0], expected);
  EXPECT_EQ(log.games[1][9], 0);  // nothing was bet

  HaveRolls(0);
  EXPECT_FALSE(LogFinishedGame(*game_));
  EXPECT_EQ(ReadGlg(Bytes(Path("default.glg"))).count, 2);
  EXPECT_THAT(surface_.messages, IsEmpty());
}

TEST_F(GamesLogTest, ALogThatWasCutShortGoesOnWithItsCompleteGames) {
  const std::string whole = GlgBytes(NumberedGames(5));
  const std::string path = Path("cut.glg");
  for (std::size_t size = 256; size < whole.size(); size += 100) {
    Write(path, whole.substr(0, size));
    const auto complete = static_cast<std::int32_t>(size / 256 - 1);
    ASSERT_TRUE(OpenGamesLog(*game_, path));
    GamesLogReader log;
    ASSERT_FALSE(log.Open(path));
    ASSERT_EQ(log.Count(), complete) << size;
    HaveRolls(9);
    ASSERT_TRUE(LogFinishedGame(*game_));
    const GlgLog now = ReadGlg(Bytes(path));
    ASSERT_EQ(now.count, complete + 1);
    ASSERT_EQ(now.games.back()[0], 9 * kDollar);
    if (complete > 0) {
      ASSERT_EQ(now.games[0], NumberedGame(1));
    }
  }
  // A game was written and the program ended before its header: it never was.
  Write(path, GlgHeader(1) + GlgRecord(NumberedGame(1)) + GlgRecord(NumberedGame(2)));
  ASSERT_TRUE(UpdateGamesPlayed(*game_, path));
  const GlgLog log = ReadGlg(Bytes(path));
  EXPECT_EQ(log.count, 2);
  ASSERT_EQ(log.games.size(), 2u);
  EXPECT_EQ(log.games[1][0], 9 * kDollar);
}

TEST_F(GamesLogTest, WhatIsNoLogIsRefusedAndStaysAsItIs) {
  const std::string in_use = game_->GamesLogFile;
  const auto with_title = [](const std::string& title) {
    return title + GlgBytes(NumberedGames(2)).substr(title.size());
  };
  const std::vector<std::string> strange = {
      "",
      "Feltking",
      GlgHeader(0).substr(0, 255),
      GlgHeader(-1) + GlgRecord(NumberedGame(1)),
      with_title("Feltmaster Games File, Data Format 5.0"),
      with_title("Feltking Games File, Data Format 5.01"),
      std::string(5000, '\xff'),
  };
  const std::string path = Path("strange.glg");
  HaveRolls(1);
  for (const std::string& bytes : strange) {
    Write(path, bytes);
    surface_.messages.clear();
    EXPECT_FALSE(OpenGamesLog(*game_, path));
    ASSERT_EQ(surface_.messages.size(), 1u);
    EXPECT_EQ(surface_.messages[0].title, "Unable to Open Feltmaster Games File");
    EXPECT_EQ(surface_.messages[0].text,
              path +
                  "\nis either from an older version, has been corrupted, or is not a true "
                  "Feltmaster Games File.");
    EXPECT_EQ(game_->GamesLogFile, in_use);
    if (bytes.empty()) continue;
    EXPECT_FALSE(UpdateGamesPlayed(*game_, path));
    EXPECT_EQ(surface_.messages.size(), 2u);
    EXPECT_EQ(Bytes(path), bytes);
  }
  EXPECT_TRUE((Write(path, with_title("  Feltking Games File, Data Format 5.0")),
               OpenGamesLog(*game_, path)));
  // A count that the file cannot hold costs no memory and reads no further than the file.
  Write(path, GlgHeader(2'147'483'647) + GlgRecord(NumberedGame(1)));
  GamesLogReader log;
  ASSERT_FALSE(log.Open(path));
  EXPECT_EQ(log.Count(), 1);
}

TEST_F(GamesLogTest, CopiesOfTheProgramShareALog) {
  constexpr int kCopies = 4;
  constexpr int kGames = 60;
  const std::string path = Path("shared.glg");
  std::vector<std::thread> copies;
  for (int copy = 0; copy < kCopies; ++copy) {
    copies.emplace_back([&, copy] {
      for (int i = 0; i < kGames; ++i) {
        GamesLogAppender log;
        ASSERT_FALSE(log.Open(path));
        ASSERT_FALSE(log.Add(GlgRecord(NumberedGame(copy * kGames + i + 1))));
        ASSERT_FALSE(log.Finish(false));
        // The file that another copy waits for is replaced by a shorter one.
        if (copy == 0 && i % 10 == 9) {
          ASSERT_FALSE(DeleteFromLog(path, 1, 1));
        }
      }
    });
  }
  for (std::thread& copy : copies) copy.join();
  const GlgLog log = ReadGlg(Bytes(path));
  constexpr int kDeleted = kGames / 10;
  ASSERT_EQ(log.count, kCopies * kGames - kDeleted);
  std::vector<GlgGame> games(log.games.begin(), log.games.begin() + log.count);
  std::sort(games.begin(), games.end());
  EXPECT_EQ(std::unique(games.begin(), games.end()), games.end());
  for (const GlgGame& game : games) EXPECT_EQ(game, NumberedGame(game[0] / kDollar));
}

TEST_F(GamesLogTest, DeletedGamesCloseRanksInAFileOfTheSameLength) {
  const std::string path = Path("five.glg");
  const std::vector<GlgGame> games = NumberedGames(5);
  const std::string tail = "what stood behind the games";
  Write(path, GlgBytes(games) + tail);
  ASSERT_FALSE(DeleteFromLog(path, 2, 2));
  EXPECT_EQ(Bytes(path), GlgHeader(4) + GlgRecord(games[0]) + GlgRecord(games[2]) +
                             GlgRecord(games[3]) + GlgRecord(games[4]) + GlgRecord(games[4]) +
                             tail);
  EXPECT_TRUE(DeleteFromLog(path, 4, 5));
  ASSERT_FALSE(DeleteFromLog(path, 1, 4));
  EXPECT_EQ(ReadGlg(Bytes(path)).count, 0);
  EXPECT_EQ(Bytes(path).size(), 6 * 256 + tail.size());
}

TEST_F(GamesLogTest, TheConsoleLogsTheGamesThatEnd) {
  const std::string log = Path("console.glg");
  const auto answers = PlaySteps({
      {"log " + log, 0},
      {"log add", 0},  // nothing was rolled
      {"new"},
      {"atm withdraw 100"},
      {"bet \"Field\" 10"},
      {"roll 1 1"},  // pays 2 to 1
      {"answer no"},
      {"new"},  // logged with one roll
      {"roll 3 4"},
      {"roll 3 4"},
      {"log add", 2},  // logged, and goes on
      {"script add Reset table"},
      {"script run"},  // logged again
      {"get RollCounts(0)", 0},
      {"log add", 3},
      {"show games"},
  });
  for (const auto& refused : Play({"log " + Path(""), "log " + Path("no/x.glg")})) {
    EXPECT_EQ(refused["ok"], false);
  }
  const GlgLog bytes = ReadGlg(Bytes(log));
  ASSERT_EQ(bytes.count, 3);
  EXPECT_EQ(bytes.games[0][0], 1 * kDollar);
  EXPECT_EQ(bytes.games[0][8], 20 * kDollar);
  EXPECT_EQ(bytes.games[0][10], 100 * kDollar);
  EXPECT_EQ(bytes.games[0][11], 120 * kDollar);
  EXPECT_EQ(bytes.games[1][0], 2 * kDollar);
  EXPECT_EQ(bytes.games[2], bytes.games[1]);
  const auto rows = answers.back()["value"];
  EXPECT_EQ(rows[0], nlohmann::json::parse(R"j(["Games Log (console.glg)"])j"));
  EXPECT_EQ(rows[1], nlohmann::json::parse(R"j(["# Rolls"])j"));
  EXPECT_EQ(rows[2], nlohmann::json::parse(R"j(["Won","1","33.33"])j"));
  EXPECT_EQ(rows[5], nlohmann::json::parse(R"j(["Total","3","100"])j"));
}

}  // namespace
}  // namespace feltmaster
