// feltmaster rolls, run as a user runs it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include "console/console_program.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

class RollsVerb : public InScratchFolder {
 protected:
  static char Byte(int die1, int die2) { return static_cast<char>((die2 << 5) | (die1 << 2)); }
};

TEST_F(RollsVerb, TextInAndOutAgain) {
  const ProgramRun made = RunProgram("rolls import - " + Path("a.rol"), "3-4 6-6\n1-2, 5");
  EXPECT_EQ(made.exit_code, 0);
  EXPECT_EQ(made.output, "3 rolls in " + Path("a.rol") + ".\n");
  EXPECT_THAT(made.complaints, HasSubstr("the last die, a 5, has no second one"));
  EXPECT_EQ(Bytes("a.rol"), (std::string{Byte(3, 4), Byte(6, 6), Byte(1, 2)}));

  EXPECT_EQ(RunProgram("rolls export " + Path("a.rol")).output, "(3-4)\n(6-6)\n(1-2)\n");
  EXPECT_EQ(
      RunProgram("rolls export " + Path("a.rol") + " --roll-numbers --numbers-called --from 2")
          .output,
      "2 (6-6) 12\n3 (1-2) 3\n");
  EXPECT_EQ(RunProgram("rolls export " + Path("a.rol") + " --json").output,
            "[\n[3,4],\n[6,6],\n[1,2]\n]\n");
  RunProgram("rolls export " + Path("a.rol") + " " + Path("a.txt"));
  EXPECT_EQ(RunProgram("rolls import " + Path("a.txt") + " " + Path("b.rol") + " --json").output,
            "{\"file\":\"" + Path("b.rol") + "\",\"rolls\":3}\n");
  EXPECT_EQ(Bytes("b.rol"), Bytes("a.rol"));
}

TEST_F(RollsVerb, ShowCountsWhatTheFileHolds) {
  std::string rolls;
  for (int die1 = 1; die1 <= 6; ++die1) {
    for (int die2 = 1; die2 <= 6; ++die2) {
      rolls += std::string(static_cast<std::size_t>(100 * die1), Byte(die1, die2));
    }
  }
  Write("a.rol", rolls);
  const ProgramRun run = RunProgram("rolls show --json " + Path("a.rol"));
  EXPECT_EQ(run.exit_code, 0);
  const auto shown = nlohmann::json::parse(run.output);
  EXPECT_EQ(shown["rolls"], 12'600);
  EXPECT_EQ(shown["totals"][5]["number"], 7);
  EXPECT_EQ(shown["totals"][5]["rolls"], 2'100);
  EXPECT_DOUBLE_EQ(shown["totals"][5]["probable_percent"].get<double>(), 100.0 / 6);
  EXPECT_EQ(shown["combinations"][33]["dice"], nlohmann::json::parse("[6,4]"));
  EXPECT_EQ(shown["combinations"][33]["rolls"], 600);
  EXPECT_THAT(RunProgram("rolls show " + Path("a.rol")).output, HasSubstr("12,600 rolls"));
  EXPECT_EQ(RunProgram("rolls show --from 100 --count 2 --json " + Path("a.rol")).output,
            "[\n{\"roll\":100,\"dice\":[1,1],\"number\":2},"
            "\n{\"roll\":101,\"dice\":[1,2],\"number\":3}\n]\n");
  EXPECT_EQ(RunProgram("rolls show --from 99999 --json " + Path("a.rol")).output, "[]\n");

  Write("bad.rol", rolls + std::string(1, '\0') + "abc");
  const ProgramRun bad = RunProgram("rolls show --json " + Path("bad.rol"));
  EXPECT_EQ(bad.exit_code, 1);
  EXPECT_EQ(nlohmann::json::parse(bad.output)["first_bad_roll"], 12'601);
  EXPECT_THAT(bad.complaints, HasSubstr("playback stops at roll 12,601"));
}

TEST_F(RollsVerb, WhatCannotBeDoneIsSaid) {
  Write("text", "no rolls at all");
  Write("a.rol", std::string(1, Byte(1, 1)));
  fs::create_directory(folder_ / "folder");
  const std::pair<std::string, std::string> cases[] = {
      {"show " + Path("none.rol"), "cannot read " + Path("none.rol") + ": No such file"},
      {"show " + Path("folder"), "Is a directory"},
      {"show " + Path("text"), "is not a true Feltmaster dice roll file."},
      {"export " + Path("a.rol") + " " + Path("folder"), "Is a directory"},
      {"export " + Path("a.rol") + " --no-dice", "--numbers-called"},
      {"import " + Path("none") + " " + Path("b.rol"), "No such file"},
      {"import " + Path("text") + " " + Path("none/b.rol"), "cannot write"},
      {"export " + Path("a.rol") + " /dev/full", "No space left on device"},
      {"show " + Path("a.rol") + " --from 0", "--from"},
      {"import " + Path("text"), "FILE"},
      {"", "subcommand"},
  };
  for (const auto& [options, words] : cases) {
    const ProgramRun run = RunProgram("rolls " + options);
    EXPECT_EQ(run.exit_code, 2) << options;
    EXPECT_THAT(run.complaints, HasSubstr(words)) << options;
  }
  EXPECT_FALSE(fs::exists(Path("b.rol")));
}

}  // namespace
}  // namespace feltmaster
