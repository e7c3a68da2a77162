#include "base/text.h"

#include <gtest/gtest.h>

namespace feltmaster {
namespace {

TEST(Text, TrimsBlanksAlone) {
  EXPECT_EQ(Trim("  a b \t "), "a b \t");
  EXPECT_EQ(TrimRight("  a "), "  a");
  EXPECT_EQ(Trim("   "), "");
  EXPECT_EQ(TrimRight(""), "");
}

TEST(Text, FoldsAsciiCaseOnly) {
  EXPECT_EQ(Lower("Pass LINE \xC3\x84"), "pass line \xC3\x84");
  EXPECT_TRUE(EqualIgnoringCase("Hop 1-3", "hOP 1-3"));
  EXPECT_FALSE(EqualIgnoringCase("Hop 1-3", "Hop 1-33"));
  EXPECT_FALSE(EqualIgnoringCase("\xC3\x84", "\xC3\xA4"));
  EXPECT_TRUE(ContainsIgnoringCase("Select Wave File", "wave"));
  EXPECT_TRUE(ContainsIgnoringCase("", ""));
  EXPECT_FALSE(ContainsIgnoringCase("wav", "wave"));
}

TEST(Text, NeverSplitsACharacter) {
  const struct {
    std::string_view text;
    std::size_t width;
    std::string_view cut;
  } kCases[] = {
      {"abc", 3, "abc"},
      {"abcd", 3, "abc"},
      {"ab\xC3\xA9", 3, "ab"},
      {"ab\xC3\xA9", 4, "ab\xC3\xA9"},
      {"a\xE2\x82\xAC!", 2, "a"},
      {"a\xE2\x82\xAC!", 3, "a"},
      {"a\xE2\x82\xAC!", 4, "a\xE2\x82\xAC"},
      {"\xF0\x9F\x8E\xB2", 3, ""},
      // Not UTF-8: every byte is a character of its own.
      {"\xA9\xA9\xA9\xA9", 2, "\xA9\xA9"},
      {"ab\xC3z", 3, "ab\xC3"},
      {"ab\xE2\x82", 3, "ab\xE2"},
      {"\xE2\x82\xACz", 0, ""},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(CutAtCharacter(c.text, c.width), c.cut) << c.text << " at " << c.width;
    EXPECT_EQ(PadRight(c.text, c.width).size(), c.width);
  }
  EXPECT_EQ(PadRight("ab\xC3\xA9", 3), "ab ");
  EXPECT_EQ(PadRight("a", 3), "a  ");
}

}  // namespace
}  // namespace feltmaster
