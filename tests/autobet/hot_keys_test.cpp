#include "autobet/hot_keys.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "autobet/script_file.h"
#include "autobet/script_text.h"
#include "engine/start_up.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"
#include "view/table_rows.h"

namespace feltmaster {
namespace {

namespace fs = std::filesystem;
using namespace money_literals;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ClipboardSurface : public RecordingSurface {
 public:
  void SetClipboard(std::string_view text) override { clipboard = text; }
  void ShowBanner(std::string_view text) override { banners.emplace_back(text); }
  std::string clipboard;
  std::vector<std::string> banners;
};

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}
std::string HeaderBytes(const std::string& count) {
  return '\0' + Padded("Feltmaster Hot-Key File", 100) + Padded(count, 100) + std::string(55, '\0');
}
std::string RowBytes(char key, const std::string& file, const std::string& description) {
  return key + Padded(file, 100) + Padded(description, 100) + std::string(55, '\0');
}

class HotKeysTest : public InScratchFolder {
 protected:
  HotKeysTest() {
    game_.surface = &surface_;
    game_.AppPath = folder_.string() + '/';
  }
  std::string Bytes() const { return InScratchFolder::Bytes("HotKeys.dta"); }
  void WriteScript(const std::string& name, std::string_view text) {
    Game other;
    other.surface = &surface_;
    SetScript(other, std::get<std::vector<ScriptLine>>(ComposeScript(text)), "");
    ASSERT_TRUE(SaveScript(other, Path(name)));
  }
  void Add(char key, std::string_view file, std::string_view description = "") {
    ASSERT_TRUE(AddHotKey(game_, key, file, description));
    PlaceHotKey(game_, 9999);
  }
  std::string Keys() const {
    std::string keys;
    for (const HotKey& row : game_.HotKeys) {
      keys += row.HotKeyChar;
      if (row.HotKeySelected) keys += '*';
    }
    return keys;
  }

  ClipboardSurface surface_;
  Game game_;
};

TEST_F(HotKeysTest, TheFileByteForByte) {
  EXPECT_TRUE(SaveHotKeys(game_));
  EXPECT_EQ(Bytes().substr(1), HeaderBytes(" 0").substr(1));

  const std::string long_name = "/home/" + std::string(94, 'x');
  Add('a', "  /tables/odds.bet ", "full odds, then press  ");
  Add('7', long_name, std::string(99, 'y') + "\xC3\xA4");  // half a character is not kept
  game_.HotKeys[0].HotKeySelected = true;
  EXPECT_TRUE(SaveHotKeys(game_));
  EXPECT_EQ(Bytes().substr(1),
            (HeaderBytes(" 2") + RowBytes('A', "/tables/odds.bet", "full odds, then press") +
             RowBytes('7', long_name, std::string(99, 'y')))
                .substr(1));

  // A shorter list is written over the longer one, whose last record stays and is not read.
  DeleteHotKeys(game_);
  EXPECT_TRUE(SaveHotKeys(game_));
  EXPECT_EQ(Bytes().size(), 3U * 256);
  Game other;
  other.surface = &surface_;
  StartUp(other, {game_.AppPath, 1});
  ASSERT_EQ(other.HotKeys.size(), 1U);
  EXPECT_EQ(other.HotKeys[0].HotKeyChar, '7');
  EXPECT_EQ(other.HotKeys[0].HotKeyFile, long_name);
  EXPECT_EQ(other.HotKeys[0].HotKeyDescription, std::string(99, 'y'));
}

TEST_F(HotKeysTest, AnyFileIsReadAsFarAsItGoes) {
  const std::string row = RowBytes('A', "a.bet", "first");
  struct Case {
    std::string bytes;
    std::size_t rows;
  };
  const std::vector<Case> cases = {
      {"", 0},
      {"short", 0},
      {std::string(256, 'z') + row, 0},  // the count is no number
      {HeaderBytes("1e300") + row + row + "cut off", 2},
      {HeaderBytes(" 99999999999") + row, 1},
      {HeaderBytes("-3") + row, 0},
      {HeaderBytes("nan") + row, 0},
      {HeaderBytes("2") + row + row + row, 2},
      {std::string(101, 'T') + Padded("1", 155) + row, 1},  // the title is not looked at
      {HeaderBytes(" 1") + std::string(256, '\0'), 1},
  };
  for (std::size_t i = 0; i < cases.size(); ++i) {
    Write("HotKeys.dta", cases[i].bytes);
    LoadHotKeys(game_);
    EXPECT_EQ(game_.HotKeys.size(), cases[i].rows) << i;
  }
  EXPECT_EQ(game_.LastErrorText, "");
  fs::remove(Path("HotKeys.dta"));
  LoadHotKeys(game_);
  EXPECT_THAT(game_.HotKeys, IsEmpty());
  EXPECT_EQ(game_.LastErrorText, "");

  // A folder in its place is neither read nor written, and that is told.
  fs::create_directory(Path("HotKeys.dta"));
  LoadHotKeys(game_);
  EXPECT_EQ(game_.LastErrorText, "Is a directory, Error #21 occurred, at: Load Hot-Keys");
  EXPECT_FALSE(SaveHotKeys(game_));
  ASSERT_EQ(surface_.messages.size(), 1U);
  EXPECT_EQ(surface_.messages[0].title, "Unable to Save Hot-Keys");
}

TEST_F(HotKeysTest, RunsOnceAndBringsTheActiveScriptBack) {
  StartUp(game_, {game_.AppPath, 1});
  WriteScript("active.bet", "Do this\n Set flag \"Mine\" to True\n");
  WriteScript("first.bet",
              "When\n Initializing Auto-Bet\nthen\n Set flag \"Mine\" to True\n"
              " Set flag \"Theirs\" to True\n Bet $ 15 on Field\n Finish\n");
  WriteScript("second.bet", "Do this\n Bet $ 99 on Field\n");
  ASSERT_TRUE(LoadScript(game_, Path("active.bet")));
  game_.ScriptLines[1].LineSelected = true;
  game_.ScriptCursorLine = 2;
  game_.ScriptNeedsInit = false;
  Add('B', Path("first.bet"));
  Add('B', Path("second.bet"));
  Add('C', "second.bet");  // lies in the data folder

  EXPECT_FALSE(RunHotKey(game_, 'a'));
  ASSERT_TRUE(RunHotKey(game_, 'b'));
  EXPECT_EQ(game_.BetAmount[kField], 15_usd);
  EXPECT_THAT(surface_.banners, ElementsAre("Hot-Key", ""));
  ASSERT_EQ(game_.ScriptFlags.size(), 2U);
  EXPECT_TRUE(game_.ScriptFlags[0].FlagValue && game_.ScriptFlags[1].FlagValue);
  ASSERT_EQ(game_.ScriptLines.size(), 2U);
  EXPECT_EQ(game_.ScriptLines[1].LineName, "Mine");
  EXPECT_TRUE(game_.ScriptLines[1].LineSelected);
  EXPECT_THAT(game_.ScriptLabels, IsEmpty());
  EXPECT_EQ(game_.ScriptFileName, Path("active.bet"));
  EXPECT_EQ(game_.ScriptCursorLine, 2);
  EXPECT_FALSE(game_.ScriptNeedsInit || game_.HotKeyRunning || game_.AutoBetRunning);

  ASSERT_TRUE(RunHotKey(game_, 'C'));
  EXPECT_EQ(game_.BetAmount[kField], 99_usd);
  EXPECT_THAT(surface_.messages, IsEmpty());

  // Gone, or none of ours: told, and nothing has changed.
  fs::remove(Path("first.bet"));
  Write("second.bet", "no script");
  ASSERT_TRUE(RunHotKey(game_, 'B'));
  ASSERT_TRUE(RunHotKey(game_, 'C'));
  ASSERT_EQ(surface_.messages.size(), 2U);
  EXPECT_EQ(surface_.messages[0],
            (RecordingSurface::Message{
                "Hot-Key",
                "The Auto-Bet file defined for that Hot-Key was not found in the specified "
                "location.\n\nPlease check the filename and/or location and make corrections on "
                "the Hot-Key screen.",
                1, 110}));
  EXPECT_EQ(surface_.messages[1].title, "Unable to Open Auto-Bet File");
  EXPECT_EQ(game_.ScriptLines.size(), 2U);
  EXPECT_FALSE(game_.HotKeyRunning);
}

TEST_F(HotKeysTest, RowsAreAddedWhereTheNextPressPutsThem) {
  EXPECT_FALSE(AddHotKey(game_, 'A', "   ", "nothing"));
  EXPECT_FALSE(AddHotKey(game_, 'A', std::string(101, 'x'), ""));
  ASSERT_EQ(surface_.messages.size(), 2U);
  EXPECT_EQ(surface_.messages[0],
            (RecordingSurface::Message{
                "Hot-Key", "Please enter an Auto-Bet filename to define this Hot-Key.", 1, 110}));

  Add('A', "/x/a.bet", " first ");
  Add('B', "b.bet");
  ClickRow(HotKeyList(game_), 2, Click::kPlain);
  ASSERT_TRUE(AddHotKey(game_, 'C', "c.bet", ""));
  PressHotKeyRow(game_, 2, Click::kCtrl);
  EXPECT_EQ(Keys(), "ACB*");
  ASSERT_TRUE(AddHotKey(game_, 'D', "d.bet", ""));
  CancelHotKey(game_);
  PressHotKeyRow(game_, 99, Click::kPlain);
  EXPECT_EQ(Keys(), "ACB");
  EXPECT_EQ(HotKeyRows(game_)[0], (Row{"Ctrl A", "a.bet", "first"}));
}

TEST_F(HotKeysTest, SelectingAndEditing) {
  for (const char key : {'1', '2', '3', '4', '5'}) Add(key, std::string("/s/") + key, "d");
  const RowList<HotKey> list = HotKeyList(game_);
  game_.HotKeyAnchor = 0;

  ClickRow(list, 2, Click::kShift);
  EXPECT_EQ(Keys(), "12*345");
  ClickRow(list, 5, Click::kCtrl);
  ClickRow(list, 3, Click::kShift);  // from behind the 5th row back to the 3rd
  EXPECT_EQ(Keys(), "12*3*4*5*");
  ClickRow(list, 5, Click::kShift);  // the row last clicked stays as it is
  ClickRow(list, 3, Click::kCtrl);
  EXPECT_EQ(Keys(), "12*34*5*");
  ClickRow(list, 6, Click::kCtrl);
  EXPECT_EQ(Keys(), "12*34*5*");
  ClickRow(list, 4, Click::kPlain);
  ClickRow(list, 6, Click::kShift);
  EXPECT_EQ(Keys(), "1234*5*");

  CutHotKeys(game_);
  EXPECT_EQ(Keys(), "123");
  EXPECT_EQ(game_.HotKeyCursor, 4);
  EXPECT_EQ(surface_.clipboard, "   Ctrl 4   /s/4   d\r\n   Ctrl 5   /s/5   d\r\n");
  SelectAllRows(list);
  game_.HotKeyCursor = 2;
  PasteHotKeys(game_);
  EXPECT_EQ(Keys(), "14*5*23");
  PasteHotKeys(game_);
  EXPECT_EQ(Keys(), "14*5*4523");
  DeleteHotKeys(game_);
  MoveHotKeys(game_, 1);  // nothing is selected
  EXPECT_EQ(Keys(), "14523");
  ClickRow(list, 1, Click::kPlain);
  MoveHotKeys(game_, 4);
  EXPECT_EQ(Keys(), "4521*3");
  EXPECT_EQ(surface_.clipboard, "   Ctrl 1   /s/1   d\r\n");

  MoveCursor(list, -99, kHotKeyRowsShown);
  EXPECT_EQ(game_.HotKeyCursor, 1);
  MoveCursor(list, 99, 3);
  EXPECT_EQ(game_.HotKeyCursor, 6);
  EXPECT_EQ(game_.HotKeyTop, 4);
  MoveCursor(list, -4, 3);
  EXPECT_EQ(game_.HotKeyTop, 2);
}

}  // namespace
}  // namespace feltmaster
