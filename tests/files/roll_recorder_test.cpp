// Recording and playback at the table.
#include "files/roll_recorder.h"

#include <gmock/gmock.h>
#include <signal.h>
#include <sys/resource.h>

#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "automation/hyper_drive.h"
#include "engine/new_game.h"
#include "engine/roll_cycle.h"
#include "files/file_commands.h"
#include "files/game_file.h"
#include "files/roll_fixture.h"
#include "stats/roll_statistics.h"
#include "view/state_hash.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

constexpr std::string_view kOutOfLimits =
    "A dice roll value has been found to be out of limits.  \n\nPlayback of this Dice Roll File "
    "has "
    "ceased so that you can check the file or continue without it.";

// No file grows beyond this while the object lives, as on a full disk.
class FullDisk {
 public:
  explicit FullDisk(rlim_t bytes) {
    signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &old_);
    const rlimit limit = {bytes, old_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &old_); }

 private:
  rlimit old_ = {};
};

class RollRecorder : public RollFixture {
 protected:
  void Use(const std::string& name, DiceRollMode mode) {
    ASSERT_TRUE(OpenDiceRollFile(*game_, Path(name)));
    ASSERT_TRUE(SetDiceRollMode(*game_, mode));
  }
  void Roll(int times = 1) {
    for (int i = 0; i < times; ++i) RollCycle(*game_);
  }
  std::int32_t Rolls() const { return RollCounts(*game_, 0); }
};

TEST_F(RollRecorder, EachRollIsInTheFileAtOnce) {
  Use("a.rol", kRecording);
  std::string expected;
  for (int i = 0; i < 40; ++i) {
    const bool by_hand = i % 3 == 0;
    game_->DiceAlreadySet = by_hand;
    if (by_hand) game_->Die1 = i % 6 + 1, game_->Die2 = i / 7 % 6 + 1;
    Roll();
    expected += Byte(game_->Die1, game_->Die2);
    ASSERT_EQ(Bytes("a.rol"), expected);
    ASSERT_EQ(game_->DiceRollNext, i + 2);
    ASSERT_EQ(game_->DiceRollLast, i + 1);
    ASSERT_EQ(game_->DiceRollSelectEnd, i + 2);
  }
  // Whatever the editor's option says, a recording goes over the old rolls.
  game_->InsertRolls = kInsert;
  game_->DiceRollNext = 5;
  Roll();
  expected[4] = Byte(game_->Die1, game_->Die2);
  EXPECT_EQ(Bytes("a.rol"), expected);
  // A position that came from elsewhere leaves no hole.
  game_->DiceRollNext = 1000;
  Roll();
  EXPECT_EQ(Bytes("a.rol"), expected + Byte(game_->Die1, game_->Die2));
}

TEST_F(RollRecorder, PlaybackMakesTheSameGame) {
  const auto play = [&](DiceRollMode mode, std::int32_t seed) {
    game_ = NewTable(surface_, seed);
    Game& game = *game_;
    ASSERT_EQ(LoadScriptOrText(game, FELTMASTER_SOURCE_DIR "/strategies/three_point_come.txt"),
              std::nullopt);
    game.ScriptActive = 1;
    RunInitialisationCycle(game);
    Use("game.rol", mode);
    game.AutoRollsRemaining = 3000;
    ToggleHyperDrive(game);
    EXPECT_EQ(Rolls(), 3000);
  };
  play(kRecording, 5);
  const auto recorded = std::move(game_);
  EXPECT_EQ(Bytes("game.rol").size(), 3000u);
  play(kPlayback, 6);
  EXPECT_NE(game_->Genrand.word, recorded->Genrand.word);
  static_cast<RngState&>(*game_) = *recorded;
  EXPECT_EQ(StateHash(*game_), StateHash(*recorded));
  EXPECT_NE(game_->BetAmount[kBankroll], MoneyAmount());
}

TEST_F(RollRecorder, TheEndOfTheFile) {
  const std::string question = "Playback stopped.\nRewind for playback?";
  Write("two.rol", std::string{Byte(1, 2), Byte(4, 4)});
  Use("two.rol", kPlayback);
  surface_.messages.clear();
  Roll(2);
  EXPECT_TRUE(surface_.messages.empty());
  surface_.Answer(kAnswerCancel);
  Roll();
  EXPECT_EQ(Rolls(), 2);
  EXPECT_EQ(game_->Die1 * 10 + game_->Die2, 44);  // they lie as they fell
  EXPECT_EQ(Said().text, question);
  EXPECT_EQ(game_->DiceRollFileMode, kPlayback);
  EXPECT_EQ(game_->DiceRollNext, 3);

  // Dice set by hand do not come from the file.
  game_->DiceAlreadySet = true;
  Roll();
  EXPECT_EQ(Rolls(), 3);
  EXPECT_EQ(game_->DiceRollNext, 3);

  surface_.Answer(kAnswerYes);
  Roll();
  EXPECT_EQ(game_->DiceRollNext, 1);
  surface_.messages.clear();
  surface_.Answer(kAnswerOk);  // the stop text of Hyper-Drive comes first
  surface_.Answer(kAnswerNo);
  ToggleHyperDrive(*game_);
  EXPECT_EQ(Rolls(), 5);
  ASSERT_EQ(surface_.messages.size(), 2u);
  EXPECT_EQ(surface_.messages[0].title, "Hyper-Drive Stopped");
  EXPECT_EQ(surface_.messages[0].text, "Stopped due to end of Dice Roll File reached.");
  EXPECT_EQ(surface_.messages[1].text, question);
  EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
  EXPECT_EQ(game_->HyperDriveStopText, "");
  EXPECT_EQ(game_->DiceRollFileName, Path("two.rol"));
}

TEST_F(RollRecorder, BytesThatAreNoDice) {
  std::string rolls(150, Byte(5, 6));
  rolls[120] = static_cast<char>(Byte(2, 3) | 1);  // too far on for the check
  for (const int bad : {0, 7 << 2 | 1 << 5, 1 << 2, 7 << 5 | 6 << 2}) {
    rolls[140] = static_cast<char>(bad);
    Write("bad.rol", rolls);
    Use("bad.rol", kPlayback);
    game_->DiceRollNext = 121;
    Roll();
    EXPECT_EQ(game_->Die1 * 10 + game_->Die2, 23);
    game_->DiceRollNext = 141;
    surface_.messages.clear();
    const std::int32_t rolls_before = Rolls();
    Roll();
    EXPECT_EQ(Rolls(), rolls_before);
    EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
    EXPECT_EQ(game_->DiceRollNext, 141);
    ASSERT_EQ(surface_.messages.size(), 1u);
    EXPECT_EQ(surface_.messages[0].title, "Dice Roll File Error");
    EXPECT_EQ(surface_.messages[0].text, kOutOfLimits);
    surface_.messages.clear();
    ASSERT_TRUE(SetDiceRollMode(*game_, kPlayback));
    ToggleHyperDrive(*game_);
    ASSERT_EQ(surface_.messages.size(), 1u);
    EXPECT_EQ(surface_.messages[0].text, "Stopped due to Dice Roll File value out of limits.");
    EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
  }
}

TEST_F(RollRecorder, FilesThatAreRefused) {
  Use("mine.rol", kRecording);
  for (const int at : {0, 99}) {
    std::string rolls(200, Byte(1, 1));
    rolls[static_cast<std::size_t>(at)] = 'c';
    Write("text.rol", rolls);
    EXPECT_FALSE(OpenDiceRollFile(*game_, Path("text.rol")));
    EXPECT_EQ(game_->FileStatus, 0);
    const auto message = Said();
    EXPECT_EQ(message.title, "Unable to Open Dice Roll File");
    EXPECT_EQ(message.text, Path("text.rol") +
                                "\nis either from an earlier version, has been corrupted, or is "
                                "not a true Feltmaster dice roll file.");
  }
  ASSERT_EQ(mkfifo(Path("pipe.rol").c_str(), 0600), 0);
  Write("huge.rol", "");
  fs::resize_file(Path("huge.rol"), 2'147'483'647u);
  for (const std::string& path : {Path("pipe.rol"), Path("data"), Path("huge.rol"),
                                  Path("mine.rol/x"), std::string("/dev/zero"), std::string()}) {
    EXPECT_FALSE(OpenDiceRollFile(*game_, path)) << path;
    EXPECT_EQ(game_->FileStatus, -1);
  }
  // The file in use stays in use.
  EXPECT_EQ(game_->DiceRollFileName, Path("mine.rol"));
  Roll();
  EXPECT_EQ(Bytes("mine.rol").size(), 1u);
}

TEST_F(RollRecorder, FailuresSwitchTheRecorderOff) {
  const std::string ceased =
      " this Dice Roll File has ceased so that you can check the file or continue without it.";
  Use("a.rol", kRecording);
  surface_.messages.clear();
  {
    const FullDisk full(10);
    Roll(12);
  }
  EXPECT_EQ(Rolls(), 12);  // the roll that could not be written has been made
  EXPECT_EQ(Bytes("a.rol").size(), 10u);
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(Said().text,
            Path("a.rol") + "\ncould not be written: File too large.\n\nRecording in" + ceased);
  EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
  EXPECT_EQ(game_->DiceRollNext, 11);

  ASSERT_TRUE(SetDiceRollMode(*game_, kRecording));
  {
    const FullDisk full(15);
    ToggleHyperDrive(*game_);
  }
  EXPECT_EQ(Rolls(), 18);
  ASSERT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(Said().text, "Stopped due to Dice Roll File error: File too large.");

  // Somebody deletes the file between two rolls, or puts another one in its place.
  for (const DiceRollMode mode : {kRecording, kPlayback}) {
    Use("a.rol", mode);
    Roll();
    fs::remove(Path("a.rol"));
    Roll();
    EXPECT_THAT(Said().text, HasSubstr("No such file or directory"));
    EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
    EXPECT_FALSE(fs::exists(Path("a.rol")));
    EXPECT_FALSE(SetDiceRollMode(*game_, mode));
    Write("a.rol", std::string(9, Byte(3, 3)));
    ASSERT_TRUE(SetDiceRollMode(*game_, mode));
    game_->DiceRollNext = 4;
    Roll();
    EXPECT_EQ(game_->DiceRollNext, 5);
    EXPECT_TRUE(mode == kRecording || game_->DiceTotal == 6);
  }
}

TEST_F(RollRecorder, TheModesAndTheirQuestions) {
  for (const auto& [mode, title] : {std::pair{kRecording, "Record Dice Rolls During Game Play"},
                                    std::pair{kPlayback, "Playback Dice Rolls During Game Play"}}) {
    EXPECT_FALSE(SetDiceRollMode(*game_, mode));
    const auto message = Said();
    EXPECT_EQ(message.title, title);
    EXPECT_EQ(message.text, "You need to open a file first.");
    EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
  }
  EXPECT_TRUE(SetDiceRollMode(*game_, kRecorderOff));

  // A new game asks about a recorder that runs, and then about a file that is left.
  Use("a.rol", kRecording);
  Roll(3);
  surface_.messages.clear();
  surface_.Answer(kAnswerNo);
  ResetGame(*game_, ResetMode::kAll);
  EXPECT_EQ(Said().text, "Recording stopped.\nRewind for playback?");
  EXPECT_EQ(game_->DiceRollNext, 4);
  ASSERT_TRUE(SetDiceRollMode(*game_, kRecording));
  surface_.Answer(kAnswerYes);
  ResetGame(*game_, ResetMode::kAll);
  EXPECT_EQ(game_->DiceRollFileMode, kPlayback);
  EXPECT_EQ(game_->DiceRollNext, 1);
  surface_.messages.clear();
  surface_.Answer(kAnswerNo);
  surface_.Answer(kAnswerNo);
  NewGame(*game_);
  ASSERT_EQ(surface_.messages.size(), 2u);
  EXPECT_EQ(surface_.messages[1].title, "Dice Roll File Present");
  EXPECT_EQ(game_->DiceRollFileName, "");
  EXPECT_EQ(DiceRollFile(*game_), nullptr);

  Use("a.rol", kPlayback);
  CloseDiceRollFile(*game_);
  EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
  EXPECT_EQ(game_->DiceRollNext + game_->DiceRollLast + game_->DiceRollSelectEnd, 0);
}

TEST_F(RollRecorder, AGameFindsItsFileAgain) {
  Write("rolls.rol", std::string(30, Byte(2, 6)));
  Use("rolls.rol", kPlayback);
  Roll(7);
  ASSERT_TRUE(SaveGame(*game_, Path("game.crp")));
  const auto reopen = [&] {
    game_ = NewTable(surface_, 3);
    surface_.messages.clear();
    ASSERT_TRUE(OpenGame(*game_, Path("game.crp"), true));
  };
  reopen();
  EXPECT_TRUE(surface_.messages.empty());
  EXPECT_EQ(game_->DiceRollFileMode, kPlayback);
  EXPECT_EQ(game_->DiceRollNext, 8);
  EXPECT_EQ(game_->DiceRollLast, 7);
  Roll();
  EXPECT_EQ(game_->DiceTotal, 8);
  EXPECT_EQ(game_->DiceRollNext, 9);

  Write("rolls.rol", std::string(5, Byte(1, 1)));
  reopen();
  EXPECT_EQ(surface_.messages.size(), 1u);
  EXPECT_EQ(Said().title, "Altered Dice Roll File");
  EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
  EXPECT_EQ(game_->DiceRollNext, 1);
  EXPECT_EQ(DiceRollTotal(*game_), 5);

  fs::remove(Path("rolls.rol"));
  reopen();
  EXPECT_EQ(Said().title, "Missing Dice Roll File");
  EXPECT_EQ(game_->DiceRollFileName, "");
  EXPECT_FALSE(fs::exists(Path("rolls.rol")));
}

}  // namespace
}  // namespace feltmaster
