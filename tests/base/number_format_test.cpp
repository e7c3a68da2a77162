#include "base/number_format.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace feltmaster {
namespace {

TEST(FormatNumber, WritesByThePicture) {
  const struct {
    double value;
    std::string_view picture;
    std::string_view text;
  } kCases[] = {
      {0.5, "#,#.00", ".50"},
      {-0.5, "#,#.00", "-.50"},
      {0, "#,#;-#,#;0", "0"},
      {0, "#", ""},
      {3, "#.##", "3."},
      {1234567, "#,#", "1,234,567"},
      {999, "#,#", "999"},
      {1000, "#,#", "1,000"},
      {7, "000", "007"},
      {7, "0,000", "0,007"},
      {1234567.891, "#,#.00##;-#,#.00##;0.00", "1,234,567.891"},
      {-1234.5, "#,#.00##;-#,#.00##;0.00", "-1,234.50"},
      {1234.5, "$#,0.00;0;0", "$1,234.50"},
      {5, "+#,0.000;-#,0.000;#,0.000", "+5.000"},
      {-5, "+#,0.000;-#,0.000;#,0.000", "-5.000"},
      {0, "+#,0.000;-#,0.000;#,0.000", "0.000"},
      {5.25, "00.0#", "05.25"},
      {5, "00.0#", "05.0"},
      {0.0525, "0.0#%", "5.25%"},
      {-3, "0.0", "-3.0"},
      {-3, "0.0;", "-3.0"},
      {12, "(0);[0]", "(12)"},
      {-12, "(0);[0]", "[12]"},
      {1e21, "#,#", "1,000,000,000,000,000,000,000"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(FormatNumber(c.value, c.picture), c.text) << c.value << " by " << c.picture;
  }
}

TEST(FormatNumber, RoundsHalfAwayFromZero) {
  // As decimals: 1.005 is below its half in binary, and so is 2.675.
  EXPECT_EQ(FormatNumber(1.005, "0.00"), "1.01");
  EXPECT_EQ(FormatNumber(2.675, "0.00"), "2.68");
  EXPECT_EQ(FormatNumber(-0.125, "0.00"), "-0.13");
  EXPECT_EQ(FormatNumber(0.125, "0%"), "13%");
  EXPECT_EQ(FormatNumber(999.995, "#,#.00"), "1,000.00");
  EXPECT_EQ(FormatNumber(9.4999, "0"), "9");
  EXPECT_EQ(FormatNumber(0.4, "#,#;-#,#;0"), "0");
  EXPECT_EQ(FormatNumber(-0.001, "0.00;-0.00;0.00"), "0.00");
  EXPECT_EQ(FormatNumber(0.1 + 0.2, "0.0################"), "0.3");
  EXPECT_EQ(FormatNumber(MoneyAmount::FromRaw(25), "0.000"), "0.003");
}

TEST(FormatNumber, TakesEveryNumber) {
  EXPECT_EQ(FormatNumber(std::numeric_limits<std::int64_t>::min(), "#,#"),
            "-9,223,372,036,854,775,808");
  EXPECT_EQ(FormatNumber(MoneyAmount::FromRaw(std::numeric_limits<std::int64_t>::min()), "0.0000"),
            "-922337203685477.5808");
  EXPECT_EQ(FormatNumber(1e300, "0").size(), 301u);
  EXPECT_EQ(FormatNumber(5e-324, "0.00"), "0.00");
  EXPECT_EQ(FormatNumber(std::nan(""), "0"), "nan");
}

TEST(FormatMoney, ShowsTwoToFourDecimals) {
  const struct {
    std::int64_t raw;
    std::string_view text;
    std::string_view plain;
  } kCases[] = {
      {0, "0", "0"},
      {10'000, "1", "1"},
      {-10'000'000, "-1,000", "-1000"},
      {125'000, "12.50", "12.5"},
      {-2'500, "-.25", "-0.25"},
      {1, ".0001", "0.0001"},
      {12'345'678, "1,234.5678", "1234.5678"},
      {99'999'990'000, "9,999,999", "9999999"},
  };
  for (const auto& c : kCases) {
    EXPECT_EQ(FormatMoney(MoneyAmount::FromRaw(c.raw)), c.text);
    EXPECT_EQ(PlainNumber(MoneyAmount::FromRaw(c.raw)), c.plain);
  }
}

TEST(ParseMoney, ReadsWhatStandsInAField) {
  const struct {
    std::string_view text;
    std::int64_t raw;
  } kCases[] = {
      {"", 0},
      {"0.00", 0},
      {"-1.5", -15'000},
      {"  5", 50'000},
      {"12abc", 120'000},
      {"1,000.5", 10'005'000},
      {".5", 5'000},
      {"-.5", -5'000},
      {"+3", 30'000},
      {"1e2", 1'000'000},
      {"-", 0},
      {".", 0},
      {"$5", 0},
      {"nan", 0},
      {"inf", 0},
      {"1e999", 0},
      {"1e-99999999999999999999", 0},
      {"0,5", 0},  // its numeric prefix is 0
      // Half a ten-thousandth goes to the even side.
      {"0.00005", 0},
      {"0.00015", 2},
      {"0.000050001", 1},
      {"-0.00015", -2},
      {"922337203685477.5807", std::numeric_limits<std::int64_t>::max()},
      {"922337203685477.5808", 0},
      {"-922337203685477.5808", std::numeric_limits<std::int64_t>::min()},
      {"-922337203685477.5809", 0},
      {"922337203685477.58075", 0},
      {"99999999999999999999999999999", 0},
      {"00000000000000000000000000000012", 120'000},
  };
  for (const auto& c : kCases) EXPECT_EQ(ParseMoney(c.text).Raw(), c.raw) << c.text;
}

TEST(ParseMoney, TakesBackWhatIsShown) {
  std::mt19937_64 random(3);
  for (int i = 0; i < 2000; ++i) {
    const auto bits = static_cast<std::int64_t>(random());
    const MoneyAmount amount = MoneyAmount::FromRaw(bits >> (random() % 63));
    EXPECT_EQ(ParseMoney(PlainNumber(amount)), amount);
    EXPECT_EQ(ParseMoney(FormatMoney(amount)), amount);
  }
}

TEST(NumericPrefix, IsTheValueOrZero) {
  EXPECT_EQ(NumericPrefix("12abc"), 12);
  EXPECT_EQ(NumericPrefix(" -2.5e1x"), -25);
  EXPECT_EQ(NumericPrefix("1,000"), 1);
  EXPECT_EQ(NumericPrefix("e5"), 0);
  EXPECT_EQ(NumericPrefix("1e999"), std::numeric_limits<double>::max());
  EXPECT_EQ(NumericPrefix("1e-999"), 0);
  EXPECT_EQ(NumericPrefix("0." + std::string(500, '0') + "1"), 0);
  EXPECT_EQ(NumericPrefix("0.1"), 0.1);
}

TEST(NumericPrefix, SurvivesAnyBytes) {
  constexpr std::string_view kAlphabet = "0123456789.,-+eE \t\xFF(";
  std::mt19937 random(5);
  for (int i = 0; i < 20'000; ++i) {
    std::string text(random() % 24, ' ');
    for (char& c : text) c = kAlphabet[random() % kAlphabet.size()];
    EXPECT_TRUE(std::isfinite(NumericPrefix(text))) << text;
    if (NumericPrefix(text) == 0) {
      EXPECT_EQ(ParseMoney(text).Raw(), 0) << text;
    }
  }
}

}  // namespace
}  // namespace feltmaster
