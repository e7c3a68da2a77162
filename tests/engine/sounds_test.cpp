#include "engine/sounds.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "engine/roll_cycle.h"
#include "engine/start_up.h"
#include "engine/table_effects.h"
#include "support/recording_surface.h"

namespace feltmaster {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

namespace fs = std::filesystem;

class SoundsTest : public testing::Test {
 protected:
  SoundsTest() {
    game_.surface = &surface_;
    fs::create_directories(own_);
    fs::create_directories(programs_);
  }
  ~SoundsTest() override { fs::remove_all(root_); }

  void Put(const fs::path& folder, const std::vector<std::string>& files) {
    for (const std::string& file : files) std::ofstream(folder / file) << "RIFF";
  }
  void Start() { StartUp(game_, {(own_ / "").string(), 1, (programs_ / "").string()}); }
  std::vector<std::string> Heard() {
    std::vector<std::string> files;
    for (const auto& sound : surface_.sounds) {
      files.push_back(fs::path(sound.file).lexically_relative(root_).string());
    }
    surface_.sounds.clear();
    return files;
  }

  const fs::path root_ =
      fs::temp_directory_path() / ("feltmaster_sounds_" + std::to_string(getpid()));
  const fs::path own_ = root_ / "own";
  const fs::path programs_ = root_ / "programs";
  RecordingSurface surface_;
  Game game_;
};

TEST_F(SoundsTest, NoClipsNoChoices) {
  Start();
  EXPECT_THAT(game_.StickPersonList, IsEmpty());
  EXPECT_EQ(game_.StickPersonChoice + game_.DiceSoundChoice + game_.WinSoundChoice +
                game_.ChipSoundChoice,
            0);
  EXPECT_THAT(game_.StickCallFiles, testing::Each(""));
  ComeOutCall(game_);
  EXPECT_THAT(Heard(), IsEmpty());
}

TEST_F(SoundsTest, ListsAreMergedAndTheOwnClipsGoFirst) {
  Put(programs_, {"Casey01.stk", "Casey02.stk", "Bo17.stk", "Bo18.STK", "x.stk", "nonumber.stk",
                  "a.dce", "b.dce", "C.DCE", "d.dce", "one.win", "only.chp", "readme.txt"});
  Put(own_, {"B.dce", "casey02.stk", "another.win"});
  fs::create_directory(own_ / "folder.dce");
  Start();
  EXPECT_THAT(game_.StickPersonList, ElementsAre("Bo", "Casey"));
  EXPECT_THAT(game_.DiceSoundList, ElementsAre("a.dce", "B.dce", "C.DCE", "d.dce"));
  EXPECT_THAT(game_.WinSoundList, ElementsAre("another.win", "one.win"));
  EXPECT_THAT(game_.ChipSoundList, ElementsAre("only.chp"));
  EXPECT_EQ(game_.StickPersonChoice, 1);
  EXPECT_EQ(game_.DiceSoundChoice, 4);
  EXPECT_EQ(game_.WinSoundChoice, 2);
  EXPECT_EQ(game_.ChipSoundChoice, 1);
  EXPECT_EQ(SoundFile(game_, "B.dce"), (own_ / "B.dce").string());
  EXPECT_EQ(SoundFile(game_, "a.dce"), (programs_ / "a.dce").string());
  EXPECT_EQ(SoundFile(game_, "CASEY02.stk"), (own_ / "casey02.stk").string());
  EXPECT_EQ(SoundFile(game_, "lost.dce"), (own_ / "lost.dce").string());
  EXPECT_EQ(game_.StickCallFiles[17], (programs_ / "Bo17.stk").string());
  // The come-out call at the start: a new shooter.
  EXPECT_THAT(Heard(), ElementsAre("programs/Bo18.STK", "programs/Bo17.stk"));
}

TEST_F(SoundsTest, TheStickPersonCallsTheRoll) {
  std::vector<std::string> calls;
  for (int clip = 10; clip <= 28; ++clip) calls.push_back("Ann" + std::to_string(clip) + ".stk");
  for (int clip = 1; clip <= 9; ++clip) calls.push_back("Ann0" + std::to_string(clip) + ".stk");
  Put(own_, calls);
  Put(own_, {"1.dce", "2.win", "3.chp"});
  Start();
  game_.HandleWinningBets = 1;
  Heard();
  const auto roll = [&](int die1, int die2) {
    game_.Die1 = die1;
    game_.Die2 = die2;
    game_.DiceAlreadySet = true;
    RollCycle(game_);
    return Heard();
  };
  EXPECT_THAT(roll(4, 4), ElementsAre("own/1.dce", "own/Ann08.stk", "own/Ann16.stk"));
  EXPECT_THAT(roll(1, 1), ElementsAre("own/1.dce", "own/Ann02.stk"));
  EXPECT_THAT(roll(5, 3),
              ElementsAre("own/1.dce", "own/Ann08.stk", "own/Ann13.stk", "own/Ann17.stk"));
  EXPECT_THAT(roll(6, 6), ElementsAre("own/1.dce", "own/Ann12.stk"));
  EXPECT_THAT(roll(3, 4), ElementsAre("own/1.dce", "own/Ann07.stk", "own/Ann14.stk",
                                      "own/Ann18.stk", "own/Ann17.stk"));
  game_.AllSoundOff = true;
  EXPECT_THAT(roll(4, 4), IsEmpty());
}

}  // namespace
}  // namespace feltmaster
