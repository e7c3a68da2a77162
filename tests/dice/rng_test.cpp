#include "dice/rng.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

#include "config/answering_surface.h"
#include "dice/probability.h"

namespace feltmaster {
namespace {

enum Rng { kRng1, kRng2, kRng3, kRng4, kRng5, kRng6, kRng7, kRng8 };

struct Table {
  Table() { game.surface = &surface; }
  Table(std::int32_t rng, std::int32_t seed) : Table() { Seed(rng, seed); }
  void Seed(std::int32_t rng, std::int64_t seed) {
    game.RngSelected = rng;
    game.BetRequest = MoneyAmount::FromWhole(seed);
    SeedRng(game, -1);
  }
  // One roll, counted as the game counts it: 10 * first die + second die.
  int Roll() {
    DrawDice(game);
    ++game.EventCounts[0];
    return game.Die1 * 10 + game.Die2;
  }
  std::vector<int> Rolls(int count) {
    std::vector<int> rolls;
    for (int i = 0; i < count; ++i) rolls.push_back(Roll());
    return rolls;
  }

  Game game;
  AnsweringSurface surface;
};

TEST(Genrand, IsThePublishedSequence) {
  MersenneTwister twister;
  InitGenrand(twister, 5489);
  EXPECT_EQ(NextWord(twister), 3499211612u);
  EXPECT_EQ(NextWord(twister), 581869302u);
  EXPECT_EQ(NextWord(twister), 3890346734u);
  for (int i = 4; i < 10'000; ++i) NextWord(twister);
  EXPECT_EQ(NextWord(twister), 4123659995u);

  MersenneTwister never_seeded;
  EXPECT_EQ(NextWord(never_seeded), 3499211612u);
}

// The word whose tempered form is w, so that a draw can be given the word we want.
std::uint32_t Untempered(std::uint32_t w) {
  w ^= w >> 18;
  w ^= (w << 15) & 0xEFC60000u;
  std::uint32_t y = w;
  for (int i = 0; i < 5; ++i) y = w ^ ((y << 7) & 0x9D2C5680u);
  std::uint32_t x = y;
  for (int i = 0; i < 3; ++i) x = y ^ (x >> 11);
  return x;
}

TEST(Genrand, IntegerDrawIsTheFloorOfTheRealOne) {
  MersenneTwister twister;
  InitGenrand(twister, 1);
  for (const std::uint32_t n : {6u, 36u, 100'000u}) {
    for (std::uint32_t k = 0; k <= n; k += n / 6) {
      const auto edge = static_cast<std::uint32_t>((std::uint64_t{k} << 32) / n);
      for (std::uint32_t word = edge - 2; word != edge + 3; ++word) {
        twister.word[0] = Untempered(word);
        twister.index = 0;
        ASSERT_EQ(NextWord(twister), word);
        twister.index = 0;
        EXPECT_EQ(NextBelow(twister, n), std::floor(word / 4294967296.0 * n)) << word << " " << n;
      }
    }
  }
}

TEST(Rng1, TakesTwoWordsARollFirstDieFirst) {
  Table table(kRng1, 5489);
  // 3499211612 and 581869302 out of 2^32, in sixths.
  EXPECT_EQ(table.Roll(), 51);
  MersenneTwister words = table.game.Genrand;
  for (int i = 0; i < 1000; ++i) {
    const int first = static_cast<int>(NextReal(words) * 6) + 1;
    const int second = static_cast<int>(NextReal(words) * 6) + 1;
    ASSERT_EQ(table.Roll(), first * 10 + second);
  }
}

TEST(Rng2, IsAStreamOfItsOwn) {
  for (const std::int32_t seed : {1, 5489, 4357, 2147483647}) {
    Table first(kRng1, seed);
    Table second(kRng2, seed);
    EXPECT_NE(first.Rolls(50), second.Rolls(50));
    EXPECT_NE(Table(kRng2, seed).Rolls(50), Table(kRng2, seed - 1 > 0 ? seed - 1 : 2).Rolls(50));
  }
  Table unseeded_first;
  Table unseeded_second;
  unseeded_second.game.RngSelected = kRng2;
  EXPECT_NE(unseeded_first.Rolls(50), unseeded_second.Rolls(50));
}

TEST(Rng3, StepsOneCongruence) {
  std::int64_t state = 4711;
  const auto step = [&state](std::int64_t n) {
    state = (state * 1366 + 150889) % 714025;
    return 1 + n * state / 714025;  // no state makes a whole sixth
  };
  Table table(kRng3, 4711);
  step(6);  // seeding takes one step
  for (int i = 0; i < 5000; ++i) {
    const auto first = step(6);
    const auto second = step(6);
    ASSERT_EQ(table.Roll(), first * 10 + second) << i;
  }
  EXPECT_EQ(table.game.SeedValue, state);
  EXPECT_EQ(table.game.LastSeed, 4711);
}

TEST(Rng3, TakesTheSeedOfAnotherGenerator) {
  Table table(kRng1, 2147483647);
  table.game.RngSelected = kRng3;
  for (int i = 0; i < 100; ++i) {
    const int roll = table.Roll();
    EXPECT_TRUE(roll / 10 >= 1 && roll / 10 <= 6 && roll % 10 >= 1 && roll % 10 <= 6) << roll;
  }
  table.game.SeedValue = -2147483647;
  EXPECT_GE(QuickLcg(table.game, 6), 1);
}

// RAN2 by its recurrences in 64 bits.
struct Ran2Reference {
  explicit Ran2Reference(std::int64_t seed) {
    std::int64_t x = (150889 + seed) % 714025;
    for (int j = 1; j <= 97; ++j) cells[j] = x = Next(x);
    out = Next(x);
  }
  static std::int64_t Next(std::int64_t x) { return (1366 * x + 150889) % 714025; }
  double Draw(std::int64_t& refill) {
    const auto j = 1 + 97 * out / 714025;
    out = cells[j];
    cells[j] = refill = Next(refill);
    return static_cast<double>(static_cast<float>(static_cast<double>(out) * 1.4005112e-6));
  }
  std::int64_t cells[98] = {};
  std::int64_t out = 0;
};

TEST(Rng4, ShufflesOneCongruence) {
  for (const std::int32_t seed : {1, 999, 2147483647}) {
    Table table(kRng4, seed);
    Ran2Reference reference(seed);
    // The refills of seeding come from the seed, those of play from a word of their own.
    std::int64_t of_seeding = Ran2Reference::Next(0);
    of_seeding = (150889 + std::int64_t{seed}) % 714025;
    for (int j = 0; j < 98; ++j) of_seeding = Ran2Reference::Next(of_seeding);
    reference.Draw(of_seeding);
    std::int64_t of_play = 0;
    for (int i = 0; i < 3000; ++i) {
      const auto first = static_cast<int>(reference.Draw(of_play) * 6) + 1;
      const auto second = static_cast<int>(reference.Draw(of_play) * 6) + 1;
      ASSERT_EQ(table.Roll(), first * 10 + second) << i;
    }
    EXPECT_EQ(table.game.Ran2Idum, of_play);
  }
}

// RAN1 by its recurrences in 64 bits.
struct Ran1Reference {
  explicit Ran1Reference(std::int64_t seed) {
    x1 = (54773 + seed) % 259200;
    Step1();
    x2 = x1 % 134456;
    Step1();
    x3 = x1 % 243000;
    for (int j = 1; j <= 97; ++j) {
      Step1();
      Step2();
      cells[j] = Cell();
    }
    Draw();
  }
  void Step1() { x1 = (x1 * 7141 + 54773) % 259200; }
  void Step2() { x2 = (x2 * 8121 + 28411) % 134456; }
  float Cell() const {
    return static_cast<float>((static_cast<double>(x1) + static_cast<double>(x2) * 7.4373773e-6) *
                              3.8580247e-6);
  }
  double Draw() {
    Step1();
    Step2();
    x3 = (x3 * 4561 + 51349) % 243000;
    float& cell = cells[1 + x3 * 97 / 243000];
    const float result = cell;
    cell = Cell();
    return static_cast<double>(result);
  }
  std::int64_t x1 = 0, x2 = 0, x3 = 0;
  float cells[98] = {};
};

TEST(Rng5, ShufflesThreeCongruences) {
  for (const std::int32_t seed : {1, 31337, 2147483647}) {
    Table table(kRng5, seed);
    Ran1Reference reference(seed);
    for (int i = 0; i < 3000; ++i) {
      const auto first = static_cast<int>(reference.Draw() * 6) + 1;
      const auto second = static_cast<int>(reference.Draw() * 6) + 1;
      ASSERT_EQ(table.Roll(), first * 10 + second) << i;
    }
  }
}

TEST(Rng5, ARealOfExactlyOneIsASix) {
  Table table(kRng5, 1);
  table.game.Ran1State.R.fill(1.0f);
  EXPECT_EQ(table.Roll(), 66);
  DefaultProbabilities(table.game);
  table.game.UseSkewedProbability = true;
  table.game.Ran1State.R.fill(1.0f);
  table.surface.plain = 0;  // 100,001 is drawn again
  EXPECT_EQ(table.Roll(), 11);
}

TEST(Rng6And7, TakeTurnsByTheCountOfRolls) {
  Table mixed(kRng6, 77);
  Table twister(kRng1, 77);
  Table shuffle(kRng5, 77);
  EXPECT_EQ(mixed.Roll(), shuffle.Roll());  // count 0 is even
  EXPECT_EQ(mixed.Roll(), twister.Roll());
  EXPECT_EQ(mixed.Roll(), shuffle.Roll());
  EXPECT_EQ(mixed.Roll(), twister.Roll());

  Table mixed2(kRng7, 78);
  Table twister2(kRng2, 78);
  Table shuffle2(kRng4, 78);
  EXPECT_EQ(mixed2.Roll(), shuffle2.Roll());
  EXPECT_EQ(mixed2.Roll(), twister2.Roll());
  EXPECT_EQ(mixed2.Roll(), shuffle2.Roll());
}

TEST(Rng8, MakesBothDiceOfOneWord) {
  Table table(kRng8, 5489);
  MersenneTwister words = table.game.Genrand;
  for (int i = 0; i < 200; ++i) {
    const int v = static_cast<int>(NextReal(words) * 36);
    ASSERT_EQ(table.Roll(), (v % 6 + 1) * 10 + v / 6 + 1);
  }
  table.game.Genrand.index = 0;
  table.game.Genrand.word[0] = 0;
  EXPECT_EQ(table.Roll(), 11);
  table.game.Genrand.index = 0;
  table.game.Genrand.word[0] = Untempered(0xFFFFFFFFu);
  EXPECT_EQ(table.Roll(), 66);
}

TEST(SkewedDraw, RoundsTheShufflesAndCutsTheOthers) {
  Table table(kRng4, 9);
  DefaultProbabilities(table.game);
  table.game.UseSkewedProbability = true;
  // 2,777.63 of 100,000 rounds to 2,778 and makes the draw 2,779, the first of the second cell.
  for (const auto& [iy, dice] :
       std::array<std::pair<std::int32_t, int>, 2>{{{19'833, 12}, {19'831, 11}}}) {
    table.game.Ran2State.Ir.fill(iy);
    EXPECT_EQ(table.Roll(), dice) << iy;
  }
  // One draw a roll.
  Table skewed(kRng1, 5);
  DefaultProbabilities(skewed.game);
  skewed.game.UseSkewedProbability = true;
  MersenneTwister words = skewed.game.Genrand;
  for (int i = 0; i < 200; ++i) {
    Game mapped;
    DefaultProbabilities(mapped);
    MapSkewedDraw(mapped, static_cast<std::int32_t>(std::floor(NextReal(words) * 100'000)) + 1);
    ASSERT_EQ(skewed.Roll(), mapped.Die1 * 10 + mapped.Die2);
  }
}

// 36 outcomes, 35 degrees of freedom: above 80 less than once in 25,000 fair samples.
TEST(Rng, EveryGeneratorThrowsFairDice) {
  constexpr int kRollsOfTest = 180'000;
  for (std::int32_t rng = kRng1; rng <= kRng8; ++rng) {
    Table table(rng, 20'031);
    if (rng == kRng4 || rng == kRng7) table.game.Ran2Idum = 12'345;
    std::array<int, 67> counts{};
    for (int i = 0; i < kRollsOfTest; ++i) ++counts[static_cast<std::size_t>(table.Roll())];
    double chi_square = 0;
    int seen = 0;
    for (int first = 1; first <= 6; ++first) {
      for (int second = 1; second <= 6; ++second) {
        const int count = counts[static_cast<std::size_t>(first * 10 + second)];
        const double off = count - kRollsOfTest / 36.0;
        chi_square += off * off / (kRollsOfTest / 36.0);
        seen += count;
      }
    }
    EXPECT_EQ(seen, kRollsOfTest);
    EXPECT_LT(chi_square, 80) << "RNG #" << rng + 1;
  }
}

TEST(SeedRng, TakesSeedsWithinTheLimitsOfTheGenerator) {
  const struct {
    std::int32_t rng;
    std::int64_t raw;  // ten-thousandths
    std::int32_t seed;
  } kCases[] = {
      {kRng1, 10'000, 1},
      {kRng1, 0, 0},
      {kRng1, 9'999, 0},
      {kRng1, -10'000, 0},
      {kRng1, 21'474'836'470'000, 2147483647},
      {kRng1, 21'474'836'470'001, 0},
      {kRng1, 10'000'000'000, 1'000'000},
      {kRng3, 9'999'990'000, 999'999},
      {kRng3, 9'999'994'000, 0},
      {kRng3, 10'000'000'000, 0},
      {kRng5, 10'000'000'000, 1'000'000},
      {kRng4, 25'000, 2},  // ties go to the even seed
      {kRng4, 35'000, 4},
  };
  for (const auto& c : kCases) {
    Table table;
    table.game.RngSelected = c.rng;
    table.game.BetRequest = MoneyAmount::FromRaw(c.raw);
    SeedRng(table.game, -1);
    EXPECT_EQ(table.game.LastSeed, c.seed) << c.rng << " " << c.raw;
    EXPECT_EQ(table.game.Genrand.index == 625, c.rng != kRng1 || c.seed == 0);
  }
}

TEST(SeedRng, TakesTheClock) {
  Table table;
  table.surface.SetClock(123'456);
  SeedRng(table.game, 0);
  EXPECT_EQ(table.game.LastSeed, 123'456);
  table.game.RngSelected = kRng3;
  table.surface.SetClock(123'456);  // 1,234.56 goes to 1,235
  SeedRng(table.game, 0);
  EXPECT_EQ(table.game.LastSeed, 1'235);
  for (const std::int32_t clock : {99'999'901, 99, -5}) {  // beyond both limits
    table.surface.SetClock(clock);
    SeedRng(table.game, 0);
    EXPECT_EQ(table.game.LastSeed, 1'235) << clock;
  }
}

TEST(SeedRng, RepeatsAStreamButTheRefillsOfRan2) {
  for (const std::int32_t rng : {kRng1, kRng2, kRng3, kRng5, kRng6, kRng8}) {
    Table table(rng, 4242);
    const std::vector<int> rolls = table.Rolls(300);
    table.Seed(rng, 4242);
    EXPECT_EQ(table.Rolls(300), rolls) << rng;
  }
  Table table(kRng4, 4242);
  const std::vector<int> rolls = table.Rolls(300);
  table.Seed(kRng4, 4242);
  const std::vector<int> again = table.Rolls(300);
  EXPECT_EQ(again.front(), rolls.front());
  EXPECT_NE(again, rolls);
}

TEST(SeedRng, AsksUntilTheSeedIsWithinLimits) {
  Table table;
  table.game.UserSeedMode = true;
  table.game.RngSelected = kRng3;
  table.game.LastSeed = 17;
  table.surface.Type("0");
  table.surface.Type("1000000");
  table.surface.Type("999999");
  SeedRng(table.game, 0);
  EXPECT_EQ(table.game.LastSeed, 999'999);
  ASSERT_EQ(table.surface.dialogs.size(), 3u);
  const std::string question =
      "Please enter a value between 1 and 999,999 to seed the random number generator:\n";
  EXPECT_EQ(table.surface.dialogs[0].title, "RNG Seed");
  EXPECT_EQ(table.surface.dialogs[0].text, question);
  EXPECT_EQ(table.surface.dialogs[0].input_default, "17");
  EXPECT_EQ(table.surface.dialogs[0].input_length, 6);
  EXPECT_EQ(table.surface.dialogs[2].text, "Your seed value is out of limits.\n\n" + question);

  table.game.RngSelected = kRng1;
  SeedRng(table.game, 0);
  EXPECT_EQ(table.surface.dialogs[3].input_length, 10);
  EXPECT_NE(table.surface.dialogs[3].text.find("2,147,483,647"), std::string::npos);
}

TEST(SeedRng, ComesBackFromATableWithoutAnAnswer) {
  Table table;
  table.game.UserSeedMode = true;  // the default answer is LastSeed, 0
  SeedRng(table.game, 0);
  EXPECT_EQ(table.game.LastSeed, 0);
  NullSurface nobody;
  table.game.surface = &nobody;
  SeedRng(table.game, 0);
  EXPECT_EQ(table.game.LastSeed, 0);
}

}  // namespace
}  // namespace feltmaster
