// What a saved game and a Probability File hold, as the command line tells it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string>

#include "console/console_program.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;
using Json = nlohmann::json;

class SavedFiles : public InScratchFolder {
 protected:
  static double Percent(const Json& dice, const std::string& name) {
    for (const Json& cell : dice["cells"]) {
      if (cell["name"] == name) return cell["percent"];
    }
    ADD_FAILURE() << name;
    return 0;
  }
};

TEST_F(SavedFiles, AGame) {
  std::ofstream(Path("s.txt"))
      << "When . . .\n  Initializing Auto-Bet\nthen . . .\n  Set flag \"Paid\" to True\n";
  Play({"script load " + Path("s.txt"), "script save " + Path("s.bet"), "script active on",
        "configure MinPlacardBet 5", "atm deposit 300", "roll 3 3", "bet \"Place 8\" 12",
        "bet \"Field\" 5", "bet 104 7", "set ChipStackName(4) lucky", "save " + Path("a.crp")});
  const std::string before = Bytes(Path("a.crp"));
  const ProgramRun run = RunProgram("game show --json " + Path("a.crp"));
  ASSERT_EQ(run.exit_code, 0) << run.complaints;
  const Json game = Json::parse(run.output);
  EXPECT_EQ(game["rolls"], 1);
  EXPECT_EQ(game["point"], 6);
  EXPECT_EQ(game["dice"], Json({3, 3}));
  EXPECT_EQ(game["bets"][0]["name"], "Place 8");
  EXPECT_EQ(game["bets"][0]["amount"], 12);
  ASSERT_EQ(game["script"]["lines"], 4);
  EXPECT_EQ(game["script"]["active"], true);
  EXPECT_EQ(game["script"]["flags"][0]["FlagName"], "Paid");
  EXPECT_EQ(game["files"][0], Json({{"kind", "Auto-Bet file"},
                                    {"path", Path("s.bet")},
                                    {"date", game["files"][0]["date"]},
                                    {"found", "as it was"}}));
  EXPECT_THAT(
      game["settings"],
      testing::Contains(Json({{"name", "MinPlacardBet"}, {"value", "5"}, {"new_table", "1"}})));
  fs::remove(Path("s.bet"));
  const ProgramRun words = RunProgram("game show " + Path("a.crp"));
  EXPECT_THAT(words.output, HasSubstr("not found"));
  EXPECT_THAT(words.output, HasSubstr("Minimum bet"));
  EXPECT_EQ(Bytes(Path("a.crp")), before);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 2) << "Looking makes no files.";
}

// Another run of the program, with a data folder of its own, writes what it has opened.
TEST_F(SavedFiles, SavedAgain) {
  std::ofstream(Path("s.txt")) << "When . . .\n  Initializing Auto-Bet\nthen . . .\n  Set flag "
                                  "\"Paid\" to True\n";
  fs::current_path(folder_);
  Play({"script load s.txt", "script save s.bet", "script active on", "rolls 700", "new",
        "rolls 30", "bet 35 12", "save a.crp"});
  Play({"open a.crp", "save b.crp"}, "");
  EXPECT_EQ(Bytes("a.crp").size(), 573 * 256u) << "one record of chips and one of flags";
  EXPECT_EQ(Bytes("a.crp"), Bytes("b.crp"));
  fs::current_path("/");
}

TEST_F(SavedFiles, AGamePastTheLimitOfTheSystem) {
  const std::string command = "cd " + folder_.string() +
                              " && ulimit -f 100 && echo save a.crp | " FELTMASTER_PROGRAM
                              " console --json --seed 1 > answer";
  EXPECT_NE(std::system(command.c_str()), 0);
  EXPECT_THAT(Bytes(Path("answer")), HasSubstr("could not be saved: File too large."));
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_), {}), 1) << "Half a file is left.";
}

// Where the machine goes down while a script of commands is at the table.
TEST_F(SavedFiles, ATableThatIsToldToEndKeepsItsGame) {
  const std::string command = "cd " + folder_.string() +
                              " && mkfifo lines && exec 3<>lines && echo roll 3 3 >&3 && "
                              "timeout -s TERM 1 " FELTMASTER_PROGRAM
                              " console --json --data-dir data <&3 > answer";
  EXPECT_NE(std::system(command.c_str()), 0);
  EXPECT_FALSE(fs::exists(Path("data/active.tmp")));
  const ProgramRun run = RunProgram("game show --json " + Path("data/default.crp"));
  ASSERT_EQ(run.exit_code, 0) << run.complaints;
  EXPECT_EQ(Json::parse(run.output)["rolls"], 1);
}

TEST_F(SavedFiles, NoGame) {
  std::ofstream(Path("x.crp")) << "no game";
  ProgramRun run = RunProgram("game show " + Path("x.crp"));
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_THAT(run.complaints, HasSubstr("is not a true Feltmaster game file."));
  run = RunProgram("game show " + Path("none.crp"));
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_EQ(run.complaints, "feltmaster game show: " + Path("none.crp") +
                                " cannot be read: No such file or directory.\n");
}

TEST_F(SavedFiles, Dice) {
  const std::string out = Path("a.prb");
  ProgramRun run = RunProgram("dice set --json " + out + " 7=20 lock=7 12=4");
  ASSERT_EQ(run.exit_code, 0) << run.complaints;
  Json dice = Json::parse(run.output);
  EXPECT_EQ(dice["kind"], "Free Form Dice");
  EXPECT_NEAR(Percent(dice, "7"), 20, 0.005);
  EXPECT_EQ(Percent(dice, "12"), 4);
  EXPECT_EQ(fs::file_size(out), 5 * 256u);
  EXPECT_EQ(Json::parse(RunProgram("dice show --json " + out).output), dice);

  run = RunProgram("dice set --json " + out + " first6=0");
  EXPECT_EQ(Percent(Json::parse(run.output), "first 1"), 20);
  run = RunProgram("dice set --json " + out + " axis=3-4@100");
  dice = Json::parse(run.output);
  EXPECT_EQ(dice["kind"], "Percentage Dice");
  EXPECT_EQ(Percent(dice, "3-1"), 0);
  EXPECT_EQ(Percent(dice, "first 1"), 25);
  run = RunProgram("dice set --json --as rolls --out-of 36 " + out + " 8=7");
  EXPECT_NEAR(Percent(Json::parse(run.output), "8"), 700.0 / 36, 0.005);
  EXPECT_THAT(RunProgram("dice show " + out).output, HasSubstr("| true dice"));

  // Edits that cannot be: nothing is written.
  const std::string before = Bytes(out);
  const std::pair<std::string, std::string> faults[] = {
      {"13=5", "is no part of the dice"},
      {"7=many", "is not a number"},
      {"7", "NAME=VALUE"},
      {"axis=1-2@5", "an axis is"},
      {"lock=2,3,4,5,6,7,8,9,10,11,12 7=5", "is free to take the rest"}};
  for (const auto& [edits, complaint] : faults) {
    run = RunProgram("dice set " + out + ' ' + edits);
    EXPECT_EQ(run.exit_code, 2) << edits;
    EXPECT_THAT(run.complaints, HasSubstr(complaint));
    EXPECT_TRUE(Bytes(out) == before);
  }
  run = RunProgram("dice set /dev/full 7=20");
  EXPECT_EQ(run.exit_code, 2);
  EXPECT_THAT(run.complaints, HasSubstr("No space left on device"));
}

}  // namespace
}  // namespace feltmaster
