// The files that go with a game: noted when it is saved, found again or missed when it is opened,
// and the questions before unsaved work is given up.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "autobet/output_file.h"
#include "autobet/script_file.h"
#include "dice/probability.h"
#include "engine/start_up.h"
#include "files/file_commands.h"
#include "files/game_file.h"
#include "files/probability_commands.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"
#include "view/state_hash.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class WatchedSurface : public RecordingSurface {
 public:
  MessageReply ShowMessage(const MessageRequest& request) override {
    if (during_message) during_message();
    return RecordingSurface::ShowMessage(request);
  }
  std::vector<std::string> Titles() const {
    std::vector<std::string> titles;
    for (const Message& message : messages) titles.push_back(message.title);
    return titles;
  }

  std::function<void()> during_message;
};

class Companions : public InScratchFolder {
 protected:
  Companions() {
    fs::create_directories(folder_ / "data");
    game_ = NewTable();
  }
  std::unique_ptr<Game> NewTable() {
    auto game = std::make_unique<Game>();
    game->surface = &surface_;
    StartUp(*game, {.data_dir = Path("data/"), .seed = 1});
    surface_.messages.clear();
    return game;
  }
  static void SetLines(Game& game, std::size_t count) {
    ScriptLine remark;
    remark.LineKind = kCommentLine;
    remark.LineText = remark.LineName = "a remark";
    SetScript(game, std::vector<ScriptLine>(count, remark), {});
    game.ScriptUnsaved = true;
  }
  // Its date is another one than before, whatever the clock of the disk can tell apart.
  static void Touch(const std::string& path) {
    fs::last_write_time(path, fs::last_write_time(path) + std::chrono::seconds(2));
  }
  // Script, dice and rolls in files, and a game that used them.
  void SaveWithCompanions(const std::string& folder) {
    fs::create_directories(folder);
    SetLines(*game_, 3);
    ASSERT_TRUE(SaveScript(*game_, folder + "s.bet"));
    SetProbabilityCell(*game_, kTotalRow, 6, 40'000, true);
    ASSERT_TRUE(SaveProbabilityFile(*game_, folder + "d.prb"));
    std::ofstream(folder + "r.rol") << "1234";
    game_->DiceRollFileName = folder + "r.rol";
    game_->DiceRollFileMode = kPlayback;
    game_->DiceRollNext = 2;
    game_->DiceRollLast = 1;
    ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  }
  std::unique_ptr<Game> Opened() {
    std::unique_ptr<Game> game = NewTable();
    EXPECT_TRUE(OpenGame(*game, Path("a.crp"), true));
    return game;
  }

  WatchedSurface surface_;
  std::unique_ptr<Game> game_;
};

TEST_F(Companions, FoundAgainMissingAltered) {
  SaveWithCompanions(Path("in use/"));
  std::unique_ptr<Game> game = Opened();
  EXPECT_THAT(surface_.messages, IsEmpty());
  EXPECT_EQ(game->ScriptFileName, Path("in use/s.bet"));
  EXPECT_EQ(game->ScriptLines.size(), 3u);
  EXPECT_EQ(game->DiceProbability, game_->DiceProbability);
  EXPECT_EQ(game->DiceRollFileMode, kPlayback);
  EXPECT_EQ(game->DiceRollNext, 2);
  EXPECT_TRUE(fs::exists(Path("data/active.tmp")));

  for (const char* name : {"in use/s.bet", "in use/d.prb", "in use/r.rol"}) Touch(Path(name));
  game = Opened();
  ASSERT_THAT(surface_.Titles(), ElementsAre("Altered Auto-Bet File", "Altered Dice Roll File",
                                             "Altered Probability File"));
  EXPECT_EQ(surface_.messages[0].text,
            "The following Auto-Bet file (that was in use when this game was saved) has been "
            "changed:\n\n" +
                Path("in use/s.bet"));
  EXPECT_EQ(surface_.messages[1].text,
            "The Dice Roll file that was open when this game\nwas saved, has been changed.");
  EXPECT_EQ(surface_.messages[2].text,
            "The following Probability file (that was in use when this game was saved) has been "
            "changed:\n\n" +
                Path("in use/d.prb"));
  EXPECT_EQ(game->ScriptLines.size(), 3u);
  EXPECT_EQ(game->DiceRollFileName, Path("in use/r.rol"));
  EXPECT_EQ(game->DiceRollFileMode, kRecorderOff);
  EXPECT_EQ(game->DiceRollNext, 1);
  EXPECT_EQ(game->DiceRollLast, 0);

  fs::remove_all(Path("in use"));
  game = Opened();
  ASSERT_THAT(surface_.Titles(), ElementsAre("Missing Auto-Bet File", "Missing Dice Roll File",
                                             "Missing Probability File"));
  EXPECT_EQ(surface_.messages[0].text,
            "The following Auto-Bet file (that was in use when this game was saved) was not "
            "found:\n\n" +
                Path("in use/s.bet"));
  EXPECT_EQ(surface_.messages[1].text,
            "The Dice Roll file that was open when this game\nwas saved, was not found.");
  EXPECT_THAT(game->ScriptLines, IsEmpty());
  EXPECT_EQ(game->ScriptFileName + game->DiceRollFileName + game->ProbabilityFileName, "");
  EXPECT_EQ(game->DiceRollFileMode, kRecorderOff);
  EXPECT_EQ(ProbabilityWeight(*game, kTotalRow, 6), 16'667);
  EXPECT_FALSE(game->ProbabilityChanged);
}

// A dialog lets a window's events through: whatever looks at the table meanwhile finds a whole
// game.
TEST_F(Companions, TheGameInPlayStaysWholeUntilEverythingIsTold) {
  SaveWithCompanions(Path("in use/"));
  fs::remove_all(Path("in use"));
  SetLines(*game_, 2);
  game_->Point = 8;
  const std::uint64_t before = StateHash(*game_);
  int told = 0;
  surface_.during_message = [&] {
    ++told;
    EXPECT_EQ(StateHash(*game_), before);
    EXPECT_EQ(game_->ScriptLines.size(), 2u);
  };
  EXPECT_TRUE(OpenGame(*game_, Path("a.crp"), true));
  surface_.during_message = {};
  EXPECT_EQ(told, 3);
  EXPECT_EQ(game_->Point, 0);
  EXPECT_THAT(game_->ScriptLines, IsEmpty());
}

TEST_F(Companions, WhatTheyAreNowIsToldWhenTheyAreNone) {
  SaveWithCompanions(Path("in use/"));
  for (const char* name : {"in use/s.bet", "in use/d.prb"}) std::ofstream(Path(name)) << "none";
  const std::unique_ptr<Game> game = Opened();
  EXPECT_THAT(surface_.Titles(), ElementsAre("Unable to Open Auto-Bet File",
                                             "Unable to Open Feltmaster Probability File"));
  EXPECT_THAT(game->ScriptLines, IsEmpty());
  EXPECT_EQ(ProbabilityWeight(*game, kTotalRow, 6), 16'667);
}

// A path that its field cannot hold is kept from the data folder or from the game's own; further
// away it is not kept, and the player hears so.
TEST_F(Companions, LongPaths) {
  const std::string deep = std::string(60, 'd') + '/' + std::string(60, 'e') + '/';
  const std::string near = std::string(80, 'n') + '/';
  SaveWithCompanions(Path("data/" + near));
  EXPECT_EQ(Opened()->ScriptLines.size(), 3u);
  SaveWithCompanions(Path(near));
  EXPECT_THAT(surface_.messages, IsEmpty());
  EXPECT_EQ(Opened()->ScriptLines.size(), 3u);
  EXPECT_THAT(surface_.messages, IsEmpty());

  SaveWithCompanions(Path(deep));
  ASSERT_THAT(surface_.Titles(), ElementsAre("Path Too Long", "Path Too Long", "Path Too Long"));
  EXPECT_EQ(surface_.messages[0].text,
            "The path of the Auto-Bet file is too long to be kept with the game:\n\n" + Path(deep) +
                "s.bet");
  EXPECT_THAT(Opened()->ScriptLines, IsEmpty());
  EXPECT_THAT(surface_.messages, IsEmpty());
}

// Of two files of one name the one that was in use is taken.
TEST_F(Companions, ARelativePathMeansTheFileThatWasNoted) {
  const std::string name = std::string(96, 'n') + ".bet";
  SetLines(*game_, 2);
  ASSERT_TRUE(SaveScript(*game_, Path("data/" + name)));
  SetLines(*game_, 5);
  ASSERT_TRUE(SaveScript(*game_, Path(name)));
  Touch(Path(name));
  ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  EXPECT_EQ(Opened()->ScriptLines.size(), 5u);
  EXPECT_THAT(surface_.messages, IsEmpty());
  Touch(Path(name));
  EXPECT_EQ(Opened()->ScriptLines.size(), 5u);  // beside the game
  EXPECT_THAT(surface_.Titles(), ElementsAre("Altered Auto-Bet File"));
  fs::remove(Path(name));
  EXPECT_EQ(Opened()->ScriptLines.size(), 2u);
}

TEST_F(Companions, WorkWithoutAFileGoesWithTheDefaultGameAlone) {
  SetLines(*game_, 4);
  SetProbabilityCell(*game_, kTotalRow, 6, 40'000, true);
  ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  EXPECT_EQ(TableTitle(*game_), "Feltmaster (a.crp)");
  EXPECT_TRUE(game_->ScriptUnsaved);
  EXPECT_FALSE(fs::exists(Path("data/default.bet")));
  std::unique_ptr<Game> game = Opened();
  EXPECT_THAT(game->ScriptLines, IsEmpty());
  EXPECT_EQ(TableTitle(*game), "Feltmaster (a.crp)");

  game_->GameChanged = true;
  EndProgram(*game_);
  EXPECT_EQ(game_->GameFileName, "");
  EXPECT_FALSE(game_->GameChanged);
  EXPECT_FALSE(fs::exists(Path("data/active.tmp")));
  game = NewTable();  // reads default.crp
  EXPECT_EQ(game->ScriptLines.size(), 4u);
  EXPECT_EQ(game->ScriptFileName, Path("data/default.bet"));
  EXPECT_EQ(game->ProbabilityFileName, Path("data/default.prb"));
  EXPECT_EQ(game->DiceProbability, game_->DiceProbability);
  EXPECT_EQ(TableTitle(*game), "Feltmaster");
  EXPECT_THAT(surface_.messages, IsEmpty());
  // An empty script is none to keep.
  ClearScript(*game);
  game->ScriptUnsaved = true;
  EndProgram(*game);
  EXPECT_THAT(NewTable()->ScriptLines, IsEmpty());
}

TEST_F(Companions, TheOutputFileGoesOnAtItsEnd) {
  ASSERT_FALSE(OpenScriptOutput(*game_, Path("out.txt"), OutputMode::kClear));
  ASSERT_FALSE(WriteScriptOutput(*game_, "one\n"));
  ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  ASSERT_FALSE(CloseScriptOutput(*game_));
  const std::unique_ptr<Game> game = Opened();
  ASSERT_FALSE(WriteScriptOutput(*game, "two\n"));
  ASSERT_FALSE(CloseScriptOutput(*game));
  std::ifstream file(Path("out.txt"));
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), "one\ntwo\n");

  // Not among the games of the log.
  game_->ScriptOutputFile = game_->GamesLogFile = Path("both");
  ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  EXPECT_EQ(Opened()->GamesLogFile, Path("both"));
  EXPECT_FALSE(fs::exists(Path("both")));
  // Nor where one of the two is padded in another way.
  std::string bytes = Bytes("a.crp");
  bytes.replace(4 * 256 + 198, 2, std::string("\0x", 2));
  Write("a.crp", bytes);
  EXPECT_EQ(Opened()->GamesLogFile, Path("both"));
  EXPECT_FALSE(fs::exists(Path("both")));
}

// --- The questions -------------------------------------------------------------------------------

void MakeUnsaved(Game& game) {
  game.ScriptUnsaved = true;
  game.UseSkewedProbability = true;
  game.ProbabilityChanged = true;
  game.GameChanged = true;
}

TEST_F(Companions, QuestionsBeforeTheWorkIsGivenUp) {
  bool (*const commands[])(Game&) = {NewGame, OpenGameCommand, AskToClose};
  for (const auto command : commands) {
    SetLines(*game_, 1);
    MakeUnsaved(*game_);
    // A Cancel at each of them ends the command with everything as it was.
    for (std::size_t cancelled = 1; cancelled <= 3; ++cancelled) {
      surface_.messages.clear();
      for (std::size_t i = 1; i < cancelled; ++i) surface_.Answer(kAnswerNo);
      surface_.Answer(kAnswerCancel);
      EXPECT_FALSE(command(*game_));
      EXPECT_EQ(surface_.messages.size(), cancelled);
      EXPECT_TRUE(game_->ScriptUnsaved && game_->ProbabilityChanged && game_->GameChanged);
      EXPECT_THAT(surface_.asked, IsEmpty());
    }
    const std::vector<RecordingSurface::Message> asked = surface_.messages;
    constexpr std::int32_t kOptions =
        kButtonYes | kButtonNo | kButtonCancel | kPictureQuestion | kDefaultYes;
    using Message = RecordingSurface::Message;
    EXPECT_EQ(asked[0], (Message{"Save Auto-Bets?",
                                 "Your current logged Auto-Bets\nhave not been saved.\n\nDo you "
                                 "want to save them now?",
                                 kOptions, 0}));
    EXPECT_EQ(asked[1],
              (Message{"Save Probabilities?",
                       "Your current probabilities (listed on the\nconfiguration screen) have not "
                       "been saved.\n\nDo you want to save them now?",
                       kOptions, 0}));
    EXPECT_EQ(asked[2], (Message{"Save Game?",
                                 "Your current game has not been saved.\n\nDo you want to save it "
                                 "now?",
                                 kOptions, 0}));
  }
}

TEST_F(Companions, AYesSavesUnderTheNameThatIsAskedFor) {
  SetLines(*game_, 2);
  MakeUnsaved(*game_);
  for (int i = 0; i < 3; ++i) surface_.Answer(kAnswerYes);
  game_->FileDialogPath = Path("");
  surface_.files = {"mine", "mine.", "Mine.CRP"};
  EXPECT_TRUE(AskToSaveAll(*game_));
  EXPECT_THAT(surface_.asked,
              ElementsAre("Save Auto-Bet File As *.bet", "Save Probability File As *.prb",
                          "Save Game File As *.crp"));
  EXPECT_EQ(game_->ScriptFileName, Path("mine.bet"));
  EXPECT_EQ(game_->ProbabilityFileName, Path("mine.prb"));
  EXPECT_EQ(game_->GameFileName, Path("Mine.CRP"));
  EXPECT_FALSE(game_->ScriptUnsaved || game_->ProbabilityChanged || game_->GameChanged);

  // With names of their own nothing is asked for; the default names are none.
  MakeUnsaved(*game_);
  surface_.asked.clear();
  for (int i = 0; i < 3; ++i) surface_.Answer(kAnswerYes);
  EXPECT_TRUE(AskToSaveAll(*game_));
  EXPECT_THAT(surface_.asked, IsEmpty());
  MakeUnsaved(*game_);
  game_->ScriptFileName = Path("data/DEFAULT.bet");
  surface_.Answer(kAnswerYes);
  EXPECT_FALSE(AskToSaveAll(*game_));  // nobody chooses a file
  EXPECT_THAT(surface_.asked, ElementsAre("Save Auto-Bet File As *.bet"));
  ClearScript(*game_);
  game_->ScriptFileName = Path("data/default.bet");
  game_->ScriptUnsaved = true;
  game_->UseSkewedProbability = false;
  surface_.messages.clear();
  surface_.Answer(kAnswerNo);
  EXPECT_TRUE(AskToSaveAll(*game_));  // an empty default script and dice out of use need no saving
  EXPECT_THAT(surface_.Titles(), ElementsAre("Save Game?"));
}

TEST_F(Companions, ProbabilityCommands) {
  SetProbabilityCell(*game_, kTotalRow, 6, 40'000, true);
  surface_.Answer(kAnswerCancel);
  EXPECT_FALSE(NewProbabilitiesCommand(*game_));
  EXPECT_EQ(surface_.messages[0].text,
            "These numbers have not been saved.\n\nDo you want to save them now?");
  EXPECT_TRUE(game_->ProbabilityChanged);
  surface_.Answer(kAnswerYes);
  game_->FileDialogPath = Path("");
  surface_.files = {"kept"};
  EXPECT_TRUE(NewProbabilitiesCommand(*game_));
  EXPECT_TRUE(fs::exists(Path("kept.prb")));
  EXPECT_EQ(game_->ProbabilityFileName, "");
  EXPECT_FALSE(AreFreeFormDice(*game_));
  surface_.files = {"kept"};
  EXPECT_TRUE(OpenProbabilitiesCommand(*game_));
  EXPECT_TRUE(AreFreeFormDice(*game_));
  EXPECT_EQ(ProbabilityWeight(*game_, kTotalRow, 6), 40'002);
  SetProbabilityCell(*game_, kTotalRow, 6, 30'000, true);
  surface_.asked.clear();
  EXPECT_TRUE(SaveProbabilitiesCommand(*game_));
  EXPECT_THAT(surface_.asked, IsEmpty());
  game_->ProbabilityFileName = Path("data/Default.prb");
  EXPECT_FALSE(SaveProbabilitiesCommand(*game_));
  EXPECT_THAT(surface_.asked, ElementsAre("Save Probability File As *.prb"));
}

}  // namespace
}  // namespace feltmaster
