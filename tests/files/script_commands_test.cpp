#include "files/script_commands.h"

#include <gtest/gtest.h>

#include <deque>
#include <filesystem>

#include "autobet/script_file.h"
#include "autobet/script_text.h"
#include "base/record_file.h"
#include "engine/start_up.h"
#include "support/recording_surface.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;

class Desk : public RecordingSurface {
 public:
  std::string AskFile(const FileRequest& request) override {
    asked.push_back(std::string(request.caption) + '|' + std::string(request.pattern));
    if (files.empty()) return {};
    std::string file = files.front();
    files.pop_front();
    return file;
  }
  std::deque<std::string> files;
  std::vector<std::string> asked;
};

class ScriptCommands : public testing::Test {
 protected:
  ScriptCommands() {
    std::string name = (fs::temp_directory_path() / "feltmaster-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
    game.surface = &desk;
    StartUp(game, {.data_dir = (folder_ / "").string(), .seed = 1});
    desk.messages.clear();
    SetScript(game,
              std::get<std::vector<ScriptLine>>(
                  ComposeScript("When . . .\nOn each roll\nthen . . .\nBet $ 5 on Field\n")),
              "");
    game.ScriptUnsaved = true;
  }
  ~ScriptCommands() override { fs::remove_all(folder_); }

  std::string Path(const char* name) const { return (folder_ / name).string(); }

  fs::path folder_;
  Desk desk;
  Game game;
};

TEST_F(ScriptCommands, SaveOpenAndNew) {
  desk.files = {Path("mine.log"), Path("mine.bet")};
  EXPECT_TRUE(SaveScriptCommand(game));  // has no name yet
  EXPECT_EQ(desk.asked[0], "Save Auto-Bet File As|*.log;*.bet");
  EXPECT_EQ(desk.messages[0].title, "Error");  // no script ends so
  EXPECT_EQ(game.ScriptFileName, Path("mine.bet"));
  EXPECT_FALSE(game.ScriptUnsaved);

  game.ScriptUnsaved = true;
  desk.answers = {{.answer = 2}};
  EXPECT_FALSE(NewScriptCommand(game));
  EXPECT_EQ(desk.messages.back(),
            (RecordingSurface::Message{"Save Auto-Bets?",
                                       "Your current logged bets have not been saved.\n\nDo you "
                                       "want to save them now?",
                                       5134, 600}));
  desk.answers = {{.answer = 6}};
  EXPECT_TRUE(NewScriptCommand(game));
  EXPECT_TRUE(game.ScriptLines.empty() && game.ScriptFileName.empty());
  desk.files = {Path("mine.bet")};
  EXPECT_TRUE(OpenScriptCommand(game));
  EXPECT_EQ(game.ScriptLines.size(), 4U);
}

TEST_F(ScriptCommands, CopySelectedLinesAndPasteThem) {
  game.ScriptLines[1].LineSelected = game.ScriptLines[3].LineSelected = true;
  desk.files = {Path("two.txt"), Path("two.bet"), Path("two.bet")};
  EXPECT_TRUE(CopyToTextFileCommand(game));
  std::string text;
  EXPECT_FALSE(ReadWholeFile(Path("two.txt"), 1000, text));
  EXPECT_EQ(text, "          On each roll\r\r\n          Bet $ 5 on Field\r\r\n");
  EXPECT_TRUE(CopyToScriptFileCommand(game));
  EXPECT_TRUE(game.ScriptUnsaved && game.ScriptFileName.empty());
  game.ScriptCursorLine = 1;
  EXPECT_TRUE(PasteFromScriptFileCommand(game));
  EXPECT_EQ(game.ScriptLines.size(), 6U);
  EXPECT_TRUE(game.ScriptLines[0].LineSelected && game.ScriptLines[1].LineSelected);
  EXPECT_FALSE(game.ScriptLines[3].LineSelected);
}

TEST_F(ScriptCommands, AnActiveScriptIsCheckedBeforeTheEditorCloses) {
  EXPECT_TRUE(LeaveScriptEditor(game));
  EXPECT_TRUE(fs::exists(Path("active.tmp")));
  game.ScriptActive = 1;
  EXPECT_TRUE(LeaveScriptEditor(game));
  EXPECT_TRUE(desk.messages.empty());
  game.ScriptLines.pop_back();
  desk.answers = {{.answer = 7}};
  EXPECT_FALSE(LeaveScriptEditor(game));
  EXPECT_EQ(desk.messages.back().options, 8710);
  EXPECT_EQ(game.ScriptActive, 1);
  desk.answers = {{.answer = 6}};
  EXPECT_TRUE(LeaveScriptEditor(game));
  EXPECT_EQ(game.ScriptActive, 0);
}

}  // namespace
}  // namespace feltmaster
