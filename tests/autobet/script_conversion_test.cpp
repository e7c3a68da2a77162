#include "autobet/script_conversion.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <limits>
#include <map>

#include "autobet/script_file.h"
#include "game/game.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"

namespace feltmaster {
namespace {

// A file of the sibling, put together byte by byte.
class SiblingBytes {
 public:
  SiblingBytes(const std::string& version, double count) : old_(version == "3.9") {
    bytes_.assign(256, '\0');
    Text(0, 0, 128, "Feltking AutoBets, Data Format " + version);
    if (old_) {
      Put<float>(0, 214, static_cast<float>(count));
    } else {
      Put<std::int64_t>(0, 214, static_cast<std::int64_t>(count * 10'000));
    }
  }

  SiblingBytes& Line(float subject, float target, double amount = 0) {
    const std::size_t number = bytes_.size() / 256;
    const std::size_t behind = old_ ? 218 : 222;
    bytes_.append(256, '\0');
    Text(number, 0, 128, "   line " + std::to_string(number));
    Put<std::int16_t>(number, 128, 20);
    Put<std::int32_t>(number, 130, 7);  // a code of a bet that is lost, in a field that is no bet
    Text(number, 134, 80, "name " + std::to_string(number));
    if (old_) {
      Put<float>(number, 214, static_cast<float>(amount));
    } else {
      Put<std::int64_t>(number, 214, static_cast<std::int64_t>(amount * 10'000));
    }
    Put<float>(number, behind, subject);
    Put<std::int16_t>(number, behind + 4, 8);
    Put<std::int16_t>(number, behind + 6, 1);
    Put<float>(number, behind + 8, target);
    Put<std::int16_t>(number, behind + 12, 47);
    Put<std::int16_t>(number, behind + 14, 2);
    return *this;
  }
  const std::string& Bytes() const { return bytes_; }

 private:
  template <typename Number>
  void Put(std::size_t record, std::size_t offset, Number value) {
    std::memcpy(&bytes_[record * 256 + offset], &value, sizeof value);
  }
  void Text(std::size_t record, std::size_t offset, std::size_t width, std::string text) {
    text.resize(width, ' ');
    bytes_.replace(record * 256 + offset, width, text);
  }

  bool old_;
  std::string bytes_;
};

class ScriptConversion : public InScratchFolder {
 protected:
  ScriptConversion() { game_.surface = &surface_; }

  RecordingSurface surface_;
  Game game_;
};

TEST_F(ScriptConversion, BetsMoveToTheirPlacesHere) {
  // The sibling's numbers in the order of this program's slots: six numbers, 4 to 10, a kind.
  std::map<int, int> expected;
  const auto block = [&](int theirs, int ours, int size) {
    for (int i = 0; i < size; ++i) expected[theirs + i] = ours + i;
  };
  block(1, 3, 6);     // Lay
  block(19, 13, 6);   // Come
  block(25, 23, 6);   // Come odds
  block(31, 33, 6);   // Place
  block(37, 43, 6);   // Buy
  block(43, 51, 3);   // Pass Line, its odds, Come
  block(49, 54, 35);  // the rest, up to 88
  for (int code = -3; code <= 2100; ++code) {
    const bool lost = (code >= 7 && code <= 18) || (code >= 46 && code <= 48);
    const auto converted = ConvertedCode(code);
    EXPECT_EQ(converted.has_value(), !lost) << code;
    if (lost) continue;
    EXPECT_EQ(*converted, expected.contains(code) ? expected[code] : code) << code;
  }
}

TEST_F(ScriptConversion, BothLayoutsMakeTheSameFile) {
  for (const char* version : {"3.9", "4.6"}) {
    SiblingBytes theirs(version, 8);
    theirs.Line(31, 1500, 12.5).Line(7, 0).Line(0, 18).Line(46, 48).Line(1400, 83, -0.25);
    theirs.Line(49, 0).Line(84, 1).Line(0, 2017, 99);
    ConversionCount count;
    const std::string source = Write("a.bet", theirs.Bytes());
    ASSERT_FALSE(ConvertScriptFile(source, Path("b.bet"), count)) << version;
    EXPECT_EQ(count.kept, 5);
    EXPECT_EQ(count.dropped, 3);
    const std::string bytes = Bytes("b.bet");
    ASSERT_EQ(bytes.size(), 6U * 256);
    EXPECT_EQ(bytes.substr(0, 40), "Feltmaster AutoBets, Data Format 5.0    ");
    EXPECT_EQ(bytes.substr(214, 8), std::string("\x50\xc3\0\0\0\0\0\0", 8));  // 50,000
    const std::string first = bytes.substr(256, 256);
    EXPECT_EQ(first.substr(0, 12), "   line 1   ");
    EXPECT_EQ(first.substr(128, 6), std::string("\x14\0\x07\0\0\0", 6));
    EXPECT_EQ(first.substr(134, 10), "name 1    ");
    EXPECT_EQ(first.substr(214, 8), std::string("\x48\xe8\x01\0\0\0\0\0", 8));      // 125,000
    EXPECT_EQ(first.substr(222, 8), std::string("\0\0\x04\x42\x08\0\x01\0", 8));    // 33
    EXPECT_EQ(first.substr(230, 8), std::string("\0\x80\xbb\x44\x2f\0\x02\0", 8));  // 1500
    const std::string second = bytes.substr(512, 256);
    EXPECT_EQ(second.substr(0, 9), "   line 5");
    EXPECT_EQ(second.substr(214, 8), "\x3c\xf6\xff\xff\xff\xff\xff\xff");  // -2,500
    EXPECT_EQ(second.substr(230, 4), std::string("\0\0\xb0\x42", 4));      // 88
    EXPECT_EQ(Bytes("a.bet"), theirs.Bytes());
    std::filesystem::remove(Path("b.bet"));
  }
}

TEST_F(ScriptConversion, LoadOffersAsksAndLoads) {
  const SiblingBytes theirs = SiblingBytes("4.6", 2).Line(31, 0).Line(8, 0);
  const std::string source = Write("mine.bet", theirs.Bytes());
  constexpr auto kTitle = "Convert Feltking to Feltmaster Auto-Bet File";
  game_.ScriptFileName = "old.bet";

  surface_.Answer(kAnswerNo);
  EXPECT_FALSE(LoadScript(game_, source));
  ASSERT_EQ(surface_.messages.size(), 1U);
  EXPECT_EQ(surface_.messages[0].title, kTitle);
  EXPECT_EQ(surface_.messages[0].text.find(source + "\nwas created using Feltking ("), 0U);
  EXPECT_TRUE(surface_.messages[0].text.ends_with(
      "\n\nWould you like to convert this file to Feltmaster format now?"));
  EXPECT_EQ(surface_.messages[0].options, 2 + 4 + 512 + 4096);
  EXPECT_EQ(game_.ScriptFileName, "old.bet");
  EXPECT_FALSE(std::filesystem::exists(Path("mine[fm].bet")));

  surface_.Answer(kAnswerYes);
  EXPECT_TRUE(LoadScript(game_, source));
  EXPECT_EQ(surface_.messages.size(), 2U);
  EXPECT_EQ(game_.ScriptFileName, Path("mine[fm].bet"));
  ASSERT_EQ(game_.ScriptLines.size(), 1U);
  EXPECT_EQ(game_.ScriptLines[0].LineSubject, 33);
  EXPECT_EQ(game_.ScriptLines[0].LineSubjectStack, 8);

  // Again: asked before the overwrite.
  surface_.Answer(kAnswerYes);
  surface_.Answer(kAnswerNo);
  EXPECT_FALSE(LoadScript(game_, source));
  ASSERT_EQ(surface_.messages.size(), 4U);
  EXPECT_EQ(surface_.messages[3].text,
            Path("mine[fm].bet") + "\nis already on file.\n\nDo you want to overwrite it?");
  EXPECT_EQ(surface_.messages[3].options, 2 + 4 + 1024 + 8192);

  // A shorter script over a longer file: the count tells where it ends. A name without ".bet" loses
  // its last four characters all the same.
  Write("it[fm].bet", std::string(5 * 256, 'x'));
  surface_.Answer(kAnswerYes);
  surface_.Answer(kAnswerYes);
  EXPECT_TRUE(LoadScript(game_, Write("itabcd", theirs.Bytes())));
  EXPECT_EQ(game_.ScriptLines.size(), 1U);
  EXPECT_EQ(Bytes("it[fm].bet").substr(512), std::string(3 * 256, 'x'));
}

TEST_F(ScriptConversion, StrangeFilesDoNoHarm) {
  const float nan = std::numeric_limits<float>::quiet_NaN();
  const float infinite = std::numeric_limits<float>::infinity();
  ConversionCount count;
  // Wild counts end at the end of the file, wild codes pass.
  for (const double lines : {9e14, 2e9, -5.0}) {
    for (const char* version : {"3.9", "5.0"}) {
      const std::string bytes = SiblingBytes(version, lines).Line(nan, infinite).Bytes();
      ASSERT_FALSE(ConvertScriptFile(Write("a.bet", bytes + "short"), Path("wild.bet"), count));
      EXPECT_EQ(count.kept, lines > 0 ? 1 : 0) << lines;
    }
  }
  ASSERT_FALSE(ConvertScriptFile(Write("a.bet", SiblingBytes("3.9", nan).Line(1, 1).Bytes()),
                                 Path("wild.bet"), count));
  EXPECT_EQ(count.kept, 0);

  // An amount that is none, an unwritable target, a target that is the source: nothing is made.
  for (const double amount : {static_cast<double>(nan), static_cast<double>(infinite), 1e30}) {
    const std::string bytes = SiblingBytes("3.9", 1).Line(1, 1, amount).Bytes();
    surface_.Answer(kAnswerYes);
    EXPECT_FALSE(LoadScript(game_, Write("amount.bet", bytes)));
    EXPECT_FALSE(std::filesystem::exists(Path("amount[fm].bet")));
    EXPECT_EQ(game_.LastErrorText, "");
  }
  const std::string good = Write("good.bet", SiblingBytes("3.9", 1).Line(1, 1).Bytes());
  EXPECT_TRUE(ConvertScriptFile(good, Path("no/folder.bet"), count));
  EXPECT_TRUE(ConvertScriptFile(good, "/dev/full", count));
  EXPECT_TRUE(ConvertScriptFile(Path("none.bet"), Path("b.bet"), count));
  EXPECT_TRUE(ConvertScriptFile(Write("text.bet", "Feltking AutoBets"), Path("b.bet"), count));
  EXPECT_FALSE(std::filesystem::exists(Path("b.bet")));
  std::filesystem::create_symlink("good.bet", Path("link.bet"));
  EXPECT_TRUE(ConvertScriptFile(good, Path("link.bet"), count));
  EXPECT_TRUE(Bytes("good.bet").starts_with("Feltking"));
}

}  // namespace
}  // namespace feltmaster
