#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "console/console_program.h"
#include "files/glg_file.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr std::int64_t kDollar = 10'000;

class LogVerbTest : public InScratchFolder {
 protected:
  ProgramRun Simulate(const std::string& options, const std::string& log) {
    return RunProgram("simulate --seed 5 " + options + " --log " + Path(log));
  }
};

TEST_F(LogVerbTest, ALogIsTheSameForEveryNumberOfJobsAndForItsParts) {
  const std::string games = "--rolls 60 --bankroll 300 ";
  const ProgramRun one = Simulate(games + "--games 200 --jobs 1 --csv " + Path("all.csv"), "1.glg");
  ASSERT_EQ(one.exit_code, 0) << one.complaints;
  ASSERT_EQ(Simulate(games + "--games 200 --jobs 3", "3.glg").exit_code, 0);
  const std::string whole = Bytes(Path("1.glg"));
  EXPECT_EQ(Bytes(Path("3.glg")), whole);

  const GlgLog log = ReadGlg(whole);
  ASSERT_EQ(log.count, 200);
  ASSERT_EQ(log.games.size(), 200u);
  std::ifstream csv(Path("all.csv"));
  std::string line;
  std::getline(csv, line);
  const auto column = [&](const std::string& name) {
    std::istringstream head(line);
    std::string cell;
    for (int i = 0; std::getline(head, cell, ','); ++i) {
      if (cell == name) return i;
    }
    ADD_FAILURE() << name << " is no column of " << line;
    return 0;
  };
  const int rolls = column("rolls");
  const int handle = column("handle");
  for (const GlgGame& game : log.games) {
    std::getline(csv, line);
    std::vector<std::string> cells;
    std::istringstream row(line);
    for (std::string cell; std::getline(row, cell, ',');) cells.push_back(cell);
    ASSERT_EQ(game[0], std::stoll(cells[static_cast<std::size_t>(rolls)]) * kDollar);
    ASSERT_NEAR(static_cast<double>(game[5]) / kDollar,
                std::stod(cells[static_cast<std::size_t>(handle)]), 0.00005);
    ASSERT_EQ(game[10], 300 * kDollar);
  }

  ASSERT_EQ(Simulate(games + "--games 120", "a.glg").exit_code, 0);
  ASSERT_EQ(Simulate(games + "--games 80 --first-game 121", "b.glg").exit_code, 0);
  const ProgramRun merged = RunProgram("log merge " + Path("a.glg") + " " + Path("b.glg") +
                                       " --into " + Path("whole.glg") + " --json");
  EXPECT_EQ(merged.exit_code, 0) << merged.complaints;
  EXPECT_EQ(json::parse(merged.output)["games"], 200);
  EXPECT_EQ(Bytes(Path("whole.glg")), whole);
  // A part that is played again replaces what was there.
  ASSERT_EQ(Simulate(games + "--games 120", "a.glg").exit_code, 0);
  EXPECT_EQ(ReadGlg(Bytes(Path("a.glg"))).count, 120);
}

TEST_F(LogVerbTest, EveryGameThatAScriptEndsIsLogged) {
  Write(Path("reset.txt"),
        "When . . .\n"
        "  The # of rolls in the game are equal to 7\n"
        "then . . .\n"
        "  Reset table\n");
  ASSERT_EQ(Simulate(Path("reset.txt") + " --rolls 200 --games 40 --jobs 1", "1.glg").exit_code, 0);
  ASSERT_EQ(Simulate(Path("reset.txt") + " --rolls 200 --games 40 --jobs 4", "4.glg").exit_code, 0);
  EXPECT_EQ(Bytes(Path("1.glg")), Bytes(Path("4.glg")));
  const GlgLog log = ReadGlg(Bytes(Path("1.glg")));
  EXPECT_EQ(log.count, 40 * 29);  // 28 of 7 rolls each and one of 4
  std::int64_t rolls = 0;
  for (const GlgGame& game : log.games) rolls += game[0] / kDollar;
  EXPECT_EQ(rolls, 40 * 200);
}

TEST_F(LogVerbTest, ShowsExportsAndDraws) {
  std::vector<GlgGame> games;
  for (const std::int64_t net : {-30, -10, 0, 10, 20, 40}) {
    GlgGame game{};
    game[0] = 100 * kDollar;
    game[5] = 60 * kDollar;
    game[8] = net * kDollar;
    game[31] = 12345;
    games.push_back(game);
  }
  Write(Path("six.glg"), GlgBytes(games));
  const std::string show = "log show " + Path("six.glg");
  const json all = json::parse(RunProgram(show + " --json").output);
  EXPECT_EQ(all["value"], "net");
  EXPECT_EQ(all["games"], 6);
  EXPECT_EQ(all["outcomes"], json::parse(R"({"won":3,"even":1,"lost":2})"));
  EXPECT_EQ(all["mean"], 5);
  EXPECT_EQ(all["median"], 5);
  EXPECT_EQ(all["median_is_average"], true);
  EXPECT_EQ(all["advantage"], 0.0833);
  EXPECT_EQ(all["in_range"], 6);
  const json some = json::parse(
      RunProgram(show + " --value stack19 --only won,even --breaks=-5:5 --from 2 --to 1 --json")
          .output);
  EXPECT_EQ(some["included"], 4);
  EXPECT_EQ(some["sum"], 4.938);
  EXPECT_EQ(some["breaks"], json::parse("[-5,5]"));
  EXPECT_EQ(some["in_range"], 0);

  const ProgramRun text = RunProgram(show + " --chart " + Path("six.svg"));
  EXPECT_THAT(text.output, StartsWith(Path("six.glg") + ": $ Bets Won/Lost (Net)\n\nWon "));
  EXPECT_THAT(text.output, HasSubstr("\n6 games (100.0%) from -30 to 40\n"));
  EXPECT_THAT(text.output, HasSubstr("########"));
  const std::string svg = Bytes(Path("six.svg"));
  EXPECT_THAT(svg, HasSubstr("class=\"lost\""));
  EXPECT_THAT(svg, HasSubstr("mean 5.00"));

  const ProgramRun csv = RunProgram("log export " + Path("six.glg"));
  ASSERT_EQ(csv.Lines().size(), 7u);
  EXPECT_THAT(csv.Lines()[0], StartsWith("game,rolls,decided,won,lost,net_count,handle,"));
  EXPECT_THAT(csv.Lines()[1], StartsWith("1,100,0,0,0,0,60,0,0,-30,"));
  EXPECT_THAT(csv.Lines()[1], ::testing::EndsWith(",1.2345"));
  const json list = json::parse(RunProgram("log export " + Path("six.glg") + " --json -").output);
  ASSERT_EQ(list.size(), 6u);
  EXPECT_EQ(list[5]["net"], 40);
  EXPECT_EQ(list[5]["stack19"], 1.2345);

  Write(Path("none.glg"), GlgHeader(0));
  EXPECT_EQ(json::parse(RunProgram("log show " + Path("none.glg") + " --json").output)["games"], 0);
  EXPECT_EQ(RunProgram("log export " + Path("none.glg") + " --json -").output, "[\n]\n");
}

TEST_F(LogVerbTest, RefusesInOneSentenceAndChangesNothing) {
  Write(Path("no.glg"), std::string(600, 'x'));
  Write(Path("one.glg"), GlgBytes({GlgGame{}}));
  const std::string refusal =
      "is either from an older version, has been corrupted, or is not a true Feltmaster Games "
      "File.\n";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"log show " + Path("no.glg"), "feltmaster log: " + Path("no.glg") + " " + refusal},
      {"log show " + Path("gone.glg"), "there is no such file"},
      {"log show " + Path("one.glg") + " --value luck", "none of rolls, decided"},
      {"log show " + Path("one.glg") + " --only some", "none of won, even, lost"},
      {"log show " + Path("one.glg") + " --bar-width 7", "1, 5, 25 or 105"},
      {"log show " + Path("one.glg") + " --from x", "not an amount"},
      {"log show " + Path("one.glg") + " --chart /nowhere/x.svg", "cannot write"},
      {"log merge " + Path("one.glg") + " " + Path("no.glg") + " --into " + Path("new.glg"),
       refusal},
      {"log merge " + Path("one.glg") + " --into " + Path("one.glg"), "into itself"},
      {"log merge " + Path("one.glg") + " --into " + Path("no.glg"), refusal},
      {"log export " + folder_.string(), "Is a directory"},
      {"simulate --rolls 10 --log " + Path("no.glg"), refusal},
      {"simulate --rolls 10 --log /nowhere/x.glg", "cannot write"},
      {"simulate --rolls 10 --log -", "the name of a file"},
  };
  for (const auto& [command, sentence] : cases) {
    const ProgramRun run = RunProgram(command);
    EXPECT_EQ(run.exit_code, 2) << command;
    EXPECT_THAT(run.complaints, HasSubstr(sentence)) << command;
    EXPECT_EQ(run.Lines().size(), 0u) << command;
  }
  EXPECT_FALSE(fs::exists(Path("new.glg")));
  EXPECT_EQ(Bytes(Path("one.glg")), GlgBytes({GlgGame{}}));
  EXPECT_EQ(Bytes(Path("no.glg")), std::string(600, 'x'));
}

}  // namespace
}  // namespace feltmaster
