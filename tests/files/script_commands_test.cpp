#include "files/script_commands.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "autobet/script_file.h"
#include "autobet/script_text.h"
#include "engine/start_up.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

class ScriptCommands : public InScratchFolder {
 protected:
  ScriptCommands() {
    game.surface = &desk;
    StartUp(game, {.data_dir = Path(""), .seed = 1});
    desk.messages.clear();
    SetScript(game,
              std::get<std::vector<ScriptLine>>(
                  ComposeScript("When . . .\nOn each roll\nthen . . .\nBet $ 5 on Field\n")),
              "");
    game.ScriptUnsaved = true;
  }
  RecordingSurface desk;
  Game game;
};

TEST_F(ScriptCommands, SaveOpenAndNew) {
  desk.files = {Path("mine.log"), Path("mine.bet")};
  EXPECT_TRUE(SaveScriptCommand(game));  // has no name yet
  EXPECT_EQ(desk.asked[0], "Save Auto-Bet File As *.log;*.bet");
  EXPECT_EQ(desk.messages[0].title, "Error");  // no script ends so
  EXPECT_EQ(game.ScriptFileName, Path("mine.bet"));
  EXPECT_FALSE(game.ScriptUnsaved);

  game.ScriptUnsaved = true;
  desk.Answer(2);
  EXPECT_FALSE(NewScriptCommand(game));
  EXPECT_EQ(desk.messages.back(),
            (RecordingSurface::Message{"Save Auto-Bets?",
                                       "Your current logged bets have not been saved.\n\nDo you "
                                       "want to save them now?",
                                       5134, 600}));
  desk.Answer(6);
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
  EXPECT_EQ(Bytes("two.txt"), "          On each roll\r\r\n          Bet $ 5 on Field\r\r\n");
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
  EXPECT_TRUE(std::filesystem::exists(Path("active.tmp")));
  game.ScriptActive = 1;
  EXPECT_TRUE(LeaveScriptEditor(game));
  EXPECT_TRUE(desk.messages.empty());
  game.ScriptLines.pop_back();
  desk.Answer(7);
  EXPECT_FALSE(LeaveScriptEditor(game));
  EXPECT_EQ(desk.messages.back().options, 8710);
  EXPECT_EQ(game.ScriptActive, 1);
  desk.Answer(6);
  EXPECT_TRUE(LeaveScriptEditor(game));
  EXPECT_EQ(game.ScriptActive, 0);
}

}  // namespace
}  // namespace feltmaster
