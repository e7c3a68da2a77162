#include "autobet/script_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

#include "autobet/codes.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "base/record_file.h"
#include "game/game.h"
#include "support/scratch_folder.h"
#include "surface/null_surface.h"

namespace feltmaster {
namespace {

constexpr std::string_view kHeader = "Feltmaster AutoBets, Data Format 5.0";

class ScriptFile : public InScratchFolder {
 protected:
  ScriptFile() { game_.surface = &surface_; }
  static Record Header(std::string_view title, MoneyAmount count) {
    Record header;
    header.SetText(0, 128, title);
    header.SetMoney(214, count);
    return header;
  }
  static std::vector<ScriptLine> Lines(std::string_view text) {
    return std::get<std::vector<ScriptLine>>(ComposeScript(text));
  }

  NullSurface surface_;
  Game game_;
};

TEST_F(ScriptFile, BytesOfARecord) {
  SetScript(game_, Lines("While\n Flag \"Hot\" is True\nthen\n Add $ 12.5 to Chip-Stack # 3\n"),
            "");
  ASSERT_TRUE(SaveScript(game_, Path("a.bet")));
  const std::string bytes = Bytes("a.bet");
  ASSERT_EQ(bytes.size(), 5 * kRecordSize);
  EXPECT_EQ(bytes.substr(0, 40), std::string(kHeader) + "    ");
  EXPECT_EQ(bytes.substr(214, 8), std::string("\x40\x9c\0\0\0\0\0\0", 8));  // 40,000

  const std::string flag = bytes.substr(2 * kRecordSize, kRecordSize);
  EXPECT_EQ(flag.substr(0, 30), "          Flag \"Hot\" is True  ");
  EXPECT_EQ(flag.substr(128, 6), std::string("\x14\0\0\0\0\0", 6));
  EXPECT_EQ(flag.substr(134, 80), "Hot" + std::string(77, ' '));
  EXPECT_EQ(flag.substr(214, 8), "\xf0\xd8\xff\xff\xff\xff\xff\xff");  // -10,000
  EXPECT_EQ(flag.substr(222, 4), std::string("\x00\x80\xbb\x44", 4));  // 1500
  EXPECT_EQ(flag.substr(226), std::string(30, '\0'));

  const std::string add = bytes.substr(4 * kRecordSize, kRecordSize);
  EXPECT_EQ(add.substr(128, 6), std::string("\x1e\0\x14\0\0\0", 6));
  EXPECT_EQ(add.substr(214, 8), std::string("\x48\xe8\x01\0\0\0\0\0", 8));    // 125,000
  EXPECT_EQ(add.substr(230, 6), std::string("\x00\x00\xc8\x44\x03\x00", 6));  // 1600, 3
  EXPECT_EQ(game_.ScriptFileName, Path("a.bet"));

  Game other;
  other.surface = &surface_;
  ASSERT_TRUE(LoadScript(other, Path("a.bet")));
  ASSERT_TRUE(SaveScript(other, Path("b.bet")));
  EXPECT_EQ(Bytes("b.bet"), bytes);
  EXPECT_TRUE(other.ScriptNeedsInit);
  ASSERT_EQ(other.ScriptFlags.size(), 1U);
  EXPECT_EQ(other.ScriptFlags[0].FlagName, "Hot");
}

TEST_F(ScriptFile, HeaderDecides) {
  SetScript(game_, Lines("Do this\n Return"), "mine.bet");
  const auto load = [this](std::string_view title, std::string_view body = {}) {
    std::string bytes(Header(title, MoneyAmount(0)).Bytes());
    bytes += body;
    game_.MsgText.clear();
    return LoadScript(game_, Write("x.bet", bytes));
  };
  const std::string corrupted =
      Path("x.bet") + "\nhas either been corrupted or is not a true Feltmaster Auto-Bet file.";
  for (const char* title :
       {"Feltmaster AutoBets, Data Format 4.9", "Feltmaster AutoBets", "", "x",
        "feltmaster autobets, Data Format 5.0", "Feltmaster AutoBets, Data Format nan"}) {
    EXPECT_FALSE(load(title)) << title;
    EXPECT_EQ(game_.MsgText, corrupted) << title;
    EXPECT_EQ(game_.MsgTitle, "Unable to Open Auto-Bet File");
    EXPECT_EQ(game_.MsgOptions, 513);
  }
  EXPECT_FALSE(load("Feltmaster AutoBets, Data Format 5.1"));
  EXPECT_EQ(game_.MsgText, Path("x.bet") + "\nrequires Feltmaster version 5.1 or later to run.");
  EXPECT_FALSE(load("Feltmaster AutoBets, Data Format 12.0"));
  EXPECT_EQ(game_.MsgText, Path("x.bet") + "\nrequires Feltmaster version 12 or later to run.");
  EXPECT_FALSE(LoadScript(game_, Write("empty.bet", "")));
  EXPECT_FALSE(LoadScript(game_, Path("missing.bet")));
  EXPECT_EQ(game_.LastErrorText,
            "No such file or directory, Error #2 occurred, at: Load Auto-Bet File");
  EXPECT_FALSE(LoadScript(game_, folder_.string()));

  // Nothing of all this touched the script in memory.
  EXPECT_EQ(game_.ScriptLines.size(), 2U);
  EXPECT_EQ(game_.ScriptFileName, "mine.bet");

  EXPECT_TRUE(load("Feltmaster AutoBets from anywhere at all 5.0"));
  EXPECT_TRUE(game_.ScriptLines.empty());
  EXPECT_EQ(game_.ScriptFileName, Path("x.bet"));
}

TEST_F(ScriptFile, HostileRecords) {
  Record line;
  line.SetInt16(128, -32768);
  line.SetInt32(130, std::numeric_limits<std::int32_t>::min());
  line.SetMoney(214, MoneyAmount::FromRaw(std::numeric_limits<std::int64_t>::min()));
  line.SetFloat(222, std::numeric_limits<float>::quiet_NaN());
  line.SetFloat(230, std::numeric_limits<float>::infinity());
  Record text = line;
  text.SetText(0, 128, std::string(128, '\xff'));
  text.SetText(134, 80, std::string(80, '"'));
  text.SetFloat(222, -std::numeric_limits<float>::infinity());
  text.SetFloat(230, 1499.5F);
  const Record header =
      Header(kHeader, MoneyAmount::FromRaw(std::numeric_limits<std::int64_t>::max()));
  std::string bytes(header.Bytes());
  bytes += line.Bytes();
  bytes += text.Bytes();
  bytes += text.Bytes().substr(0, 200);  // the file ends inside a record
  ASSERT_TRUE(LoadScript(game_, Write("x.bet", bytes)));
  ASSERT_EQ(game_.ScriptLines.size(), 2U);
  EXPECT_EQ(game_.ScriptLines[0].LineSubject, 0);
  EXPECT_EQ(game_.ScriptLines[0].LineTarget, std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(game_.ScriptLines[0].LineText, "");
  EXPECT_EQ(game_.ScriptLines[1].LineSubject, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(game_.ScriptLines[1].LineTarget, 1500);
  EXPECT_EQ(game_.ScriptLines[1].LineName.size(), 80U);
  for (const ScriptLine& loaded : game_.ScriptLines) EXPECT_NE(LineTextOf(loaded), "");

  std::string negative(Header(kHeader, MoneyAmount(-5)).Bytes());
  negative += text.Bytes();
  ASSERT_TRUE(LoadScript(game_, Write("x.bet", negative)));
  EXPECT_TRUE(game_.ScriptLines.empty());
}

TEST_F(ScriptFile, PastesSelectedAtTheCursor) {
  SetScript(game_, Lines("'1\n'2\n'3\n"), "");
  game_.ScriptLines[0].LineSelected = game_.ScriptLines[2].LineSelected = true;
  game_.ScriptFileMode = true;
  ASSERT_TRUE(SaveScript(game_, Path("part.bet")));
  EXPECT_EQ(Bytes("part.bet").size(), 3 * kRecordSize);
  EXPECT_EQ(game_.ScriptFileName, "");

  game_.ScriptCursorLine = 2;
  ASSERT_TRUE(LoadScript(game_, Path("part.bet")));
  std::string order;
  std::string selected;
  for (const ScriptLine& line : game_.ScriptLines) {
    order += line.LineName;
    selected += line.LineSelected ? '*' : '.';
  }
  EXPECT_EQ(order, "'1'1'3'2'3");
  EXPECT_EQ(selected, ".**..");
  EXPECT_TRUE(game_.ScriptUnsaved);
  EXPECT_EQ(game_.ScriptCursorLine, 2);
}

TEST_F(ScriptFile, HotKeyScriptStandsIn) {
  SetScript(game_, Lines(" top\nDo this\n Set flag \"A\" to True\n"), "mine.bet");
  game_.ScriptFlags[0].FlagValue = true;
  game_.ScriptNeedsInit = false;
  game_.ScriptCursorLine = 3;
  game_.ScriptLines[1].LineSelected = true;
  Game key;
  key.surface = &surface_;
  SetScript(key, Lines("Do this\n Set flag \"a\" to True\n Set flag \"B\" to True\n Return"), "");
  ASSERT_TRUE(SaveScript(key, Path("key.bet")));

  game_.HotKeyRunning = true;
  ASSERT_TRUE(SaveScript(game_, Path("active.tmp")));
  EXPECT_EQ(game_.ScriptFileName, "mine.bet");
  ASSERT_TRUE(LoadScript(game_, Path("key.bet")));
  EXPECT_EQ(game_.ScriptLines.size(), 4U);
  ASSERT_EQ(game_.ScriptFlags.size(), 2U);
  EXPECT_TRUE(game_.ScriptFlags[0].FlagValue);
  EXPECT_EQ(game_.ScriptFlags[1].FlagName, "B");
  EXPECT_EQ(game_.ScriptLabels, std::vector<std::string>{"top"});
  EXPECT_FALSE(game_.ScriptNeedsInit);
  EXPECT_TRUE(game_.ScriptLines[1].LineSelected);
  ASSERT_TRUE(LoadScript(game_, Path("active.tmp")));
  EXPECT_EQ(game_.ScriptLines.size(), 3U);
  EXPECT_EQ(game_.ScriptFileName, "mine.bet");
  EXPECT_EQ(game_.ScriptCursorLine, 3);
}

TEST_F(ScriptFile, FailedSaveLeavesTheOldFile) {
  SetScript(game_, Lines("'a\n'b"), "");
  EXPECT_FALSE(SaveScript(game_, Path("no/such/folder.bet")));
  EXPECT_EQ(game_.LastErrorText,
            "No such file or directory, Error #2 occurred, at: Save Auto-Bet File");
  EXPECT_FALSE(SaveScript(game_, folder_.string()));
  EXPECT_FALSE(SaveScript(game_, "/dev/full"));
  EXPECT_EQ(game_.ScriptFileName, "");
  ASSERT_TRUE(SaveScript(game_, Path("a.bet")));
  std::filesystem::create_symlink("a.bet", Path("link.bet"));
  SetScript(game_, Lines("'a"), "");
  ASSERT_TRUE(SaveScript(game_, Path("link.bet")));
  EXPECT_TRUE(std::filesystem::is_symlink(Path("link.bet")));
  EXPECT_EQ(Bytes("a.bet").size(), 2 * kRecordSize);
  const auto files = std::distance(std::filesystem::directory_iterator(folder_), {});
  EXPECT_EQ(files, 2);  // nothing is left of the writing
}

TEST_F(ScriptFile, EitherFormLoads) {
  ASSERT_EQ(LoadScriptOrText(game_, Write("a.txt",
                                          "\xEF\xBB\xBF"
                                          "Do this\r\n  Bet $ 5 on Field\r\n")),
            std::nullopt);
  EXPECT_EQ(game_.ScriptLines.size(), 2U);
  EXPECT_EQ(game_.ScriptFileName, "");
  ASSERT_TRUE(SaveScript(game_, Path("a.bet")));
  ASSERT_EQ(LoadScriptOrText(game_, Path("a.bet")), std::nullopt);
  EXPECT_EQ(game_.ScriptLines[1].LineCode, kFirstVerbCode);

  const auto refused = [this](const std::string& path) {
    return LoadScriptOrText(game_, path).value_or("loaded");
  };
  EXPECT_EQ(refused(folder_.string()), folder_.string() + " cannot be read: Is a directory.");
  EXPECT_EQ(refused(Path("none")), Path("none") + " cannot be read: No such file or directory.");
  EXPECT_EQ(refused("/dev/zero"), "/dev/zero cannot be read: File too large.");
  EXPECT_EQ(refused(Write("x", "")), Path("x") + " is empty.");
  EXPECT_EQ(refused(Write("x", "\n \n")), Path("x") + " holds no line of a script.");
  EXPECT_EQ(refused(Write("x", std::string_view("\x7f"
                                                "ELF\0\1\2",
                                                7))),
            Path("x") + " is neither an Auto-Bet file nor the text of a script.");
  EXPECT_EQ(refused(Write("x", "Feltmaster AutoBets, Data Format 6.0")).find(Path("x")), 0U);
  EXPECT_EQ(refused(Write("x", "Do this\n\n  Bet $ x on Field\n")),
            Path("x") + ":3:9: expected an amount, such as 10 or 12.5.");
  EXPECT_EQ(game_.ScriptLines.size(), 2U);
}

TEST_F(ScriptFile, InsertedLinesAreRegistered) {
  const auto insert = [this](std::size_t position, const char* text) {
    InsertLine(game_, position, std::get<ScriptLine>(ComposeLine(text)));
  };
  insert(7, "Set flag \"F\" to True");
  insert(1, "Do this");
  insert(1, "Start");
  insert(9, " start ");
  insert(9, "Set flag \"f\" to False");
  EXPECT_EQ(game_.ScriptLines.size(), 5U);
  EXPECT_EQ(game_.ScriptLines[0].LineName, "Start");
  EXPECT_EQ(game_.ScriptCursorLine, 5);
  EXPECT_TRUE(game_.ScriptLines[4].LineSelected);
  EXPECT_FALSE(game_.ScriptLines[0].LineSelected);
  EXPECT_EQ(game_.ScriptFlags.size(), 1U);
  EXPECT_EQ(game_.ScriptLabels.size(), 1U);
}

}  // namespace
}  // namespace feltmaster
