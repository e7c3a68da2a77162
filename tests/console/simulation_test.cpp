#include "console/simulation.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "automation/hyper_drive.h"
#include "console/session_statistics.h"
#include "console/simulation_report.h"
#include "dice/rng.h"
#include "engine/start_up.h"
#include "surface/null_surface.h"

namespace feltmaster {
namespace {

// A script in a file of its own, for as long as it lives.
class ScriptFile {
 public:
  explicit ScriptFile(const std::string& text) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    path_ = testing::TempDir() + test->name() + std::to_string(::getpid()) +
            std::to_string(std::hash<std::string>()(text)) + ".txt";
    std::ofstream(path_) << text;
  }
  ~ScriptFile() { std::filesystem::remove(path_); }
  ScriptFile(const ScriptFile&) = delete;
  ScriptFile& operator=(const ScriptFile&) = delete;

  const std::string& Path() const { return path_; }

 private:
  std::string path_;
};

// Bets on much of the table, and meddles with what the next game must not inherit: generator,
// handling, Chip-Stacks, flags, odds.
constexpr const char* kMeddler = R"(
 While . . .
     On each roll
 then . . .
     Bet $ 5 on Pass Line
     Bet $ 6 on Place 6
     Bet $ 4 on Field
     Add $ 1 to Chip-Stack # 7
     Name Chip-Stack # 7 as "seven"
     Set flag "seen" to True
     Set Auto-Take Full Odds to True
     Set Auto-Handle Winning Bets to Press 1 Unit
     Set Auto-Handle Losing Bets to Double Bet
 When . . .
     The # of rolls in the game are greater than 20
     Flag "seen" is True
 then . . .
     Select RNG # 4
 When . . .
     The # of rolls in the game are greater than 40
 then . . .
     Select RNG # 3
)";

struct Played {
  Experiment experiment;
  std::unique_ptr<Game> table = std::make_unique<Game>();
  SimulationResults results;
  SessionStatistics statistics;

  explicit Played(Experiment wanted, int jobs = 1) : experiment(std::move(wanted)) {
    const std::string fault = PrepareTable(experiment, *table);
    EXPECT_EQ(fault, "");
    SimulationProgress progress;
    results = Simulate(experiment, *table, jobs, progress);
    statistics = StatisticsOf(results, table->RollsPerHour);
  }
  SimulationReport Report() const { return {experiment, *table, results, statistics}; }
  std::string Csv() const {
    std::ostringstream out;
    WriteCsv(Report(), out);
    return out.str();
  }
  std::string Json() const {
    std::ostringstream out;
    WriteJson(Report(), out);
    return out.str();
  }
};

std::vector<GameResult> GamesOf(const Experiment& experiment) {
  return Played(experiment).results.games;
}

Experiment Games(std::int64_t games, std::int32_t rolls, std::uint64_t seed = 3) {
  Experiment experiment;
  experiment.games = games;
  experiment.rolls = rolls;
  experiment.seed = seed;
  return experiment;
}

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

TEST(Simulation, ResultsAreTheSameBytesForEveryNumberOfJobs) {
  const ScriptFile script(kMeddler);
  Experiment experiment = Games(37, 150);
  experiment.script = script.Path();
  experiment.bankroll = MoneyAmount(300);
  experiment.stop_win = MoneyAmount(100);
  const Played one(experiment, 1);
  for (const int jobs : {2, 3, 64}) {
    const Played more(experiment, jobs);
    EXPECT_EQ(more.Csv(), one.Csv()) << jobs << " jobs";
    EXPECT_EQ(more.Json(), one.Json()) << jobs << " jobs";
    EXPECT_EQ(ChartSvg(more.Report()), ChartSvg(one.Report())) << jobs << " jobs";
  }
}

// Also shows that a game finds nothing of the games that were played before it at the same table.
TEST(Simulation, PartsOfAnExperimentJoinToTheWhole) {
  const ScriptFile script(kMeddler);
  Experiment whole = Games(12, 200);
  whole.script = script.Path();
  std::vector<std::string> rows;
  for (const auto& [first, games] : {std::pair{1, 1}, {2, 4}, {6, 7}}) {
    Experiment part = whole;
    part.first_game = first;
    part.games = games;
    const auto lines = Lines(Played(part).Csv());
    rows.insert(rows.end(), lines.begin() + (rows.empty() ? 0 : 1), lines.end());
  }
  EXPECT_EQ(rows, Lines(Played(whole).Csv()));
}

TEST(Simulation, EveryGameHasItsOwnSeed) {
  for (const int rng : {1, 3}) {
    Experiment experiment;
    experiment.rng = rng;
    Game table;
    ASSERT_EQ(PrepareTable(experiment, table), "");
    constexpr int kGames = 20'000;
    std::set<std::int32_t> seeds;
    int same_as_other_experiment = 0;
    for (int number = 1; number <= kGames; ++number) {
      experiment.seed = 5;
      const std::int32_t seed = SeedOfGame(experiment, table, number);
      EXPECT_GE(seed, 1);
      EXPECT_LE(seed, MaxSeed(table));
      seeds.insert(seed);
      experiment.seed = 6;
      same_as_other_experiment += SeedOfGame(experiment, table, number) == seed;
    }
    EXPECT_EQ(seeds.size(), std::size_t{kGames}) << "RNG #" << rng;
    EXPECT_LE(same_as_other_experiment, 3) << "RNG #" << rng;
  }
}

// The seed that a row tells is one that a table of its own can be started with.
TEST(Simulation, GamesCanBePlayedAgainByTheirSeeds) {
  for (const int rng : {1, 2, 3, 4, 5, 6, 7, 8}) {
    Experiment experiment = Games(3, 400);
    experiment.rng = rng;
    const Played run(experiment);
    for (int number = 1; number <= 3; ++number) {
      NullSurface surface;
      const auto game = std::make_unique<Game>();
      game->surface = &surface;
      StartUp(*game, {.data_dir = "", .seed = SeedOfGame(experiment, *run.table, number)});
      game->RngSelected = rng - 1;
      SetUpPassLineWithOdds(*game);
      BetPassLine(*game);
      game->NumAutoRolls = game->AutoRollsRemaining = 400;
      ToggleHyperDrive(*game);
      EXPECT_EQ(game->BetAmount[kBankroll].Raw(),
                run.results.games[static_cast<std::size_t>(number - 1)].net)
          << "RNG #" << rng << ", game " << number;
    }
  }
}

// Place 6 pays 7 to 6 and loses to 7: five ways against six.
TEST(Simulation, ExpectationIsThatOfTheRules) {
  const ScriptFile script(" Do this . . .\n     Bet $ 6 on Place 6\n     Call ON Place 6\n");
  Experiment experiment = Games(1, 200'000);
  experiment.script = script.Path();
  const auto share = [](const Played& run) {
    return static_cast<double>(run.statistics.expected) * 1e-10 / Dollars(run.statistics.handle);
  };
  EXPECT_NEAR(share(Played(experiment)), (5 * 7.0 / 6 - 6) / 11, 1e-6);
  // 9 to 6 turns it into a winner; counting pushes as decisions changes no decided bet.
  experiment.settings = {{"PayTable(35,1)", "9"}, {"IncludeZeroOutcomes", "true"}};
  const Played generous(experiment);
  EXPECT_NEAR(share(generous), (5 * 9.0 / 6 - 6) / 11, 1e-6);
  EXPECT_GT(generous.statistics.net_mean, 0);
}

// --- How games end ---------------------------------------------------------------------------

struct EndCase {
  const char* name;
  const char* script;
  void (*ask)(Experiment&);
  GameEnd end;
};

constexpr const char* kBetSeven = " Do this . . .\n     Bet $ 25 on Seven\n";
constexpr const char* kBetAll = " Do this . . .\n     Bet $ 1000 on Seven\n";
constexpr const char* kPatient = R"(
 When . . .
     The # of passes for this shooter are equal to 9
 then . . .
     Bet $ 5 on Field
)";

const EndCase kEndCases[] = {
    {"rolls", kBetSeven, [](Experiment&) {}, GameEnd::kRolls},
    {"rolls before hours", kBetSeven, [](Experiment& e) { e.hours = MoneyAmount(1000); },
     GameEnd::kRolls},
    {"hours before rolls", kBetSeven, [](Experiment& e) { e.hours = MoneyAmount::FromRaw(12'500); },
     GameEnd::kHours},
    {"shooters", kBetSeven, [](Experiment& e) { e.shooters = 4; }, GameEnd::kShooters},
    {"win", kBetSeven, [](Experiment& e) { e.stop_win = MoneyAmount(60); }, GameEnd::kStopWin},
    {"loss", " Do this . . .\n     Bet $ 100 on Twelve\n",
     [](Experiment& e) { e.stop_loss = MoneyAmount(100); }, GameEnd::kStopLoss},
    {"broke", kBetAll, [](Experiment& e) { e.bankroll = MoneyAmount(2); }, GameEnd::kBroke},
    {"no credit by default", kBetAll, [](Experiment& e) { e.bankroll = MoneyAmount(50); },
     GameEnd::kBroke},
    {"credit if the house gives it", kBetSeven,
     [](Experiment& e) {
       e.bankroll = MoneyAmount(2);
       e.settings = {{"AllowNegBankroll", "true"}};
     },
     GameEnd::kRolls},
    {"too poor for the table", kBetSeven,
     [](Experiment& e) {
       e.bankroll = MoneyAmount(20);
       e.settings = {{"MinPlacardBet", "25"}};
     },
     GameEnd::kBroke},
    {"waiting is not broke", kPatient, [](Experiment& e) { e.bankroll = MoneyAmount(100); },
     GameEnd::kRolls},
    {"stopped by the strategy",
     " When . . .\n     The # of rolls in the game are equal to 17\n then . . .\n"
     "     Stop Auto-Rolling / Hyper-Drive\n",
     [](Experiment&) {}, GameEnd::kStrategy},
    {"question", " Do this . . .\n     Yes/No question: \"Go on?\"\n", [](Experiment&) {},
     GameEnd::kQuestion},
    {"message", " Do this . . .\n     Show message: \"Hello\"\n", [](Experiment&) {},
     GameEnd::kQuestion},
    {"message that nobody wants", " Do this . . .\n     Show message: \"Hello\"\n",
     [](Experiment& e) {
       e.settings = {{"NotifyFlags", "7"}};
     },
     GameEnd::kRolls},
    {"roll count of Auto-Play", kBetSeven,
     [](Experiment& e) {
       e.settings = {{"NumAutoRolls", "5"}};
     },
     GameEnd::kRollCount},
    {"bank limit",
     " Do this . . .\n     ATM - withdraw $ 9000000 from the ATM\n"
     "     Bet $ 9000000 on Pass Line\n     Bet $ 9000000 on Twelve\n",
     [](Experiment& e) {
       e.settings = {{"MaxPlacardBet", "9000000"}, {"AllowPutBets", "true"}};
     },
     GameEnd::kHouseLimit},
    {"aborted", " Do this . . .\n     Output to file. New line.\n", [](Experiment&) {},
     GameEnd::kAborted},
    {"endless", " top\n Do this . . .\n     Go to \"top\"\n", [](Experiment&) {},
     GameEnd::kAborted},
};

TEST(GameEnds, AreToldApart) {
  for (const EndCase& one : kEndCases) {
    SCOPED_TRACE(one.name);
    const ScriptFile script(one.script);
    Experiment experiment = Games(5, 4000);
    experiment.script = script.Path();
    one.ask(experiment);
    const Played run(experiment);
    for (const GameResult& game : run.results.games) {
      EXPECT_STREQ(NameOf(game.end).key, NameOf(one.end).key);
    }
    EXPECT_EQ(run.results.fault.has_value(), one.end == GameEnd::kAborted);
    EXPECT_TRUE(run.results.complete);
  }
}

TEST(GameEnds, ComeWithTheRollThatFulfilsThem) {
  Experiment experiment = Games(40, 100'000);
  experiment.stop_win = MoneyAmount(75);
  experiment.stop_loss = MoneyAmount(50);
  // A Field bet of $5 moves by 5 or 10, so the goals are passed by less than that.
  const ScriptFile field(" Do this . . .\n     Bet $ 5 on Field\n");
  experiment.script = field.Path();
  const Played goals(experiment);
  int won = 0;
  for (const GameResult& game : goals.results.games) {
    won += game.end == GameEnd::kStopWin;
    const double net = Dollars(game.net);
    if (game.end == GameEnd::kStopLoss) {
      EXPECT_EQ(net, -50);
    } else {
      EXPECT_TRUE(net == 75 || net == 80) << net;
    }
  }
  EXPECT_EQ(won, goals.statistics.Ended(GameEnd::kStopWin));
  EXPECT_EQ(40 - won, goals.statistics.Ended(GameEnd::kStopLoss));
  EXPECT_GT(won, 0);
  EXPECT_LT(won, 40);

  experiment = Games(5, 1);
  experiment.rolls.reset();
  experiment.shooters = 7;
  for (const GameResult& game : GamesOf(experiment)) EXPECT_EQ(game.hands, 7);

  // 2.51 hours of 120 rolls are 301.2; the roll that completes the time is played.
  experiment.shooters.reset();
  experiment.hours = MoneyAmount::FromRaw(25'100);
  for (const GameResult& game : GamesOf(experiment)) EXPECT_EQ(game.rolls, 302);
}

TEST(GameEnds, TellTheFirstFault) {
  const ScriptFile script(R"(
 When . . .
     The # of rolls in the game are equal to 3
 then . . .
     Output to file. New line.
)");
  Experiment experiment = Games(9, 50);
  experiment.script = script.Path();
  experiment.first_game = 100;
  const Played run(experiment, 3);
  ASSERT_TRUE(run.results.fault.has_value());
  EXPECT_EQ(run.results.fault->game, 100);
  EXPECT_EQ(run.results.fault->line, 4);
  EXPECT_NE(run.results.fault->reason, "");
  EXPECT_EQ(run.statistics.Ended(GameEnd::kAborted), 9);
  EXPECT_EQ(run.statistics.rolls, 27);
}

TEST(Simulation, PathsBeginAndEndWithTheGame) {
  Experiment experiment = Games(kPaths + 5, 30'001);
  const Played run(experiment);
  ASSERT_EQ(run.results.paths.size(), std::size_t{kPaths});
  for (std::size_t i = 0; i < run.results.paths.size(); ++i) {
    const auto& places = run.results.paths[i].places;
    ASSERT_GE(places.size(), std::size_t{kPathPlaces} / 2);
    EXPECT_LE(places.size(), std::size_t{kPathPlaces} + 1);
    EXPECT_EQ(places.front().roll, 0);
    EXPECT_EQ(places.front().net, 0);
    EXPECT_EQ(places.back().roll, 30'001);
    EXPECT_EQ(places.back().net, run.results.games[i].net);
    const std::int32_t stride = places[1].roll;
    for (std::size_t k = 0; k + 1 < places.size(); ++k) {
      ASSERT_EQ(places[k].roll, stride * static_cast<std::int32_t>(k));
    }
  }
}

TEST(Simulation, InterruptionEndsAfterTheRollsInProgress) {
  Experiment experiment = Games(4, kRollLimit);
  Game table;
  ASSERT_EQ(PrepareTable(experiment, table), "");
  SimulationProgress progress;
  std::thread player([&] {
    while (progress.rolls < 5000) std::this_thread::yield();
    progress.stop = true;
  });
  const SimulationResults results = Simulate(experiment, table, 2, progress);
  player.join();
  EXPECT_FALSE(results.complete);
  const SessionStatistics statistics = StatisticsOf(results, table.RollsPerHour);
  // The second worker may not have begun yet.
  EXPECT_GE(statistics.games, 1);
  EXPECT_LE(statistics.games, 2);
  EXPECT_EQ(statistics.Ended(GameEnd::kInterrupted), statistics.games);
  EXPECT_EQ(static_cast<std::uint64_t>(statistics.rolls), progress.rolls.load());
  WideMoney by_bet = 0;
  for (const BetTotals& bet : results.bets) by_bet += bet.won - bet.lost;
  EXPECT_EQ(by_bet, statistics.net_total);
}

}  // namespace
}  // namespace feltmaster
