#include "base/money.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace feltmaster {
namespace {

constexpr std::int64_t kMax = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t kMin = std::numeric_limits<std::int64_t>::min();

MoneyAmount Raw(std::int64_t raw) {
  return MoneyAmount::FromRaw(raw);
}

TEST(Money, RoundsProductsAndQuotientsOnceTiesToEven) {
  EXPECT_EQ(Product(Raw(5), Raw(1'000)).Raw(), 0);   // 0.00005
  EXPECT_EQ(Product(Raw(15), Raw(1'000)).Raw(), 2);  // 0.00015
  EXPECT_EQ(Product(Raw(-15), Raw(1'000)).Raw(), -2);
  EXPECT_EQ(Quotient(Raw(1), Raw(20'000)).Raw(), 0);
  EXPECT_EQ(Quotient(Raw(3), Raw(20'000)).Raw(), 2);
  EXPECT_EQ(Quotient(Raw(10'000), Raw(30'000)).Raw(), 3'333);
  EXPECT_EQ(Quotient(Raw(-20'000), Raw(30'000)).Raw(), -6'667);
  // One rounding where the product by itself is not rounded.
  EXPECT_EQ(Ratio(Raw(1), Raw(5'000), Raw(10'000)).Raw(), 0);
  EXPECT_EQ(Ratio(Raw(kMax), Raw(kMax), Raw(kMax)).Raw(), kMax);
}

// The rounding by a 128-bit computation of another form: floor, then a look at the rest.
TEST(Money, AgreesWithWideArithmetic) {
  std::mt19937_64 random(17);
  for (int i = 0; i < 50'000; ++i) {
    const auto draw = [&] {
      const auto bits = static_cast<std::int64_t>(random());
      return bits >> (random() % 62);
    };
    const std::int64_t a = draw();
    const std::int64_t b = draw();
    std::int64_t c = draw();
    if (c == 0) c = 7;
    __int128 numerator = static_cast<__int128>(a) * b;
    __int128 denominator = c;
    if (denominator < 0) {
      numerator = -numerator;
      denominator = -denominator;
    }
    __int128 floor = numerator / denominator;
    if (numerator % denominator < 0) --floor;
    const __int128 twice = 2 * (numerator - floor * denominator);
    if (twice > denominator || (twice == denominator && floor % 2 != 0)) ++floor;
    if (floor > kMax || floor < kMin) {
      EXPECT_THROW(Ratio(Raw(a), Raw(b), Raw(c)), MoneyOverflow);
    } else {
      EXPECT_EQ(Ratio(Raw(a), Raw(b), Raw(c)).Raw(), static_cast<std::int64_t>(floor))
          << a << " * " << b << " / " << c;
    }
  }
}

TEST(Money, NeverWraps) {
  EXPECT_THROW(Raw(kMax) + Raw(1), MoneyOverflow);
  EXPECT_THROW(Raw(kMin) - Raw(1), MoneyOverflow);
  EXPECT_THROW(-Raw(kMin), MoneyOverflow);
  EXPECT_THROW(Abs(Raw(kMin)), MoneyOverflow);
  EXPECT_THROW(Raw(kMax).Times(2), MoneyOverflow);
  EXPECT_THROW(Product(Raw(kMax), MoneyAmount(2)), MoneyOverflow);
  EXPECT_THROW(MoneyAmount::FromWhole(kMax), MoneyOverflow);
  EXPECT_THROW(Quotient(Raw(1), Raw(0)), MoneyDivisionByZero);
  EXPECT_THROW(Quotient(Raw(kMin), Raw(-1)), MoneyOverflow);
  EXPECT_THROW(IsMultipleOf(Raw(1), Raw(0)), MoneyDivisionByZero);
  EXPECT_TRUE(IsMultipleOf(Raw(kMin), Raw(-1)));
}

TEST(Money, ComesFromDoublesWithinRange) {
  EXPECT_EQ(MoneyAmount::FromDouble(1.0 / 3).Raw(), 3'333);
  EXPECT_EQ(MoneyAmount::FromDouble(-12.5).Raw(), -125'000);
  EXPECT_THROW(MoneyAmount::FromDouble(1e15), MoneyOverflow);
  EXPECT_THROW(MoneyAmount::FromDouble(std::numeric_limits<double>::quiet_NaN()), MoneyOverflow);
  EXPECT_THROW(MoneyAmount::FromDouble(-std::numeric_limits<double>::infinity()), MoneyOverflow);
}

TEST(Money, CountsUnitsTowardMinusInfinity) {
  EXPECT_EQ(UnitsIn(MoneyAmount(-7), MoneyAmount(5)), -2);
  EXPECT_EQ(UnitsIn(MoneyAmount(7), MoneyAmount(-5)), -2);
  EXPECT_EQ(FloorToUnit(Raw(19'999), MoneyAmount(1)), MoneyAmount(1));
  EXPECT_EQ(FloorToUnit(Raw(-11'667), MoneyAmount(1)), MoneyAmount(-2));
  EXPECT_EQ(Raw(-1).FloorWhole(), -1);
  EXPECT_EQ(Raw(25'000).RoundWhole(), 2);
  EXPECT_EQ(Raw(35'000).RoundWhole(), 4);
}

}  // namespace
}  // namespace feltmaster
