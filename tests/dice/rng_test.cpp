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

// The streams of the eight generators, from two seeds. They were found to be those of their
// recurrences, worked out in 64 bits, and a seed must go on to mean the same dice.
TEST(Rng, AStreamStaysWhatItIs) {
  const struct {
    std::int32_t rng;
    std::int32_t seed;
    std::vector<int> first;
    std::uint64_t hash;  // of 3,000 rolls and of what the generators without a twister keep
  } streams[] = {
      {kRng1, 5489, {51, 66, 16, 62, 42, 14, 22, 46}, 0xFB56CA3BD5268B34u},
      {kRng1, 2147483647, {36, 44, 15, 66, 42, 54, 15, 61}, 0x9C0F86CA33213779u},
      {kRng2, 5489, {52, 26, 16, 45, 12, 33, 12, 25}, 0xAB43259A10D39384u},
      {kRng2, 2147483647, {66, 62, 11, 16, 13, 24, 53, 45}, 0x67EF7C01FE251C76u},
      {kRng3, 5489, {22, 54, 62, 63, 56, 54, 62, 14}, 0x153DAD0DC69BFA68u},
      {kRng3, 2147483647, {26, 63, 51, 14, 21, 23, 44, 23}, 0x4F24BBAF37FD0873u},
      {kRng4, 5489, {16, 35, 54, 45, 12, 13, 46, 23}, 0x8A48A3457880ACD6u},
      {kRng4, 2147483647, {44, 36, 25, 23, 35, 11, 14, 64}, 0x66CC550D57E6775Fu},
      {kRng5, 5489, {33, 55, 31, 51, 51, 25, 34, 25}, 0x0BF360E88C791159u},
      {kRng5, 2147483647, {23, 34, 61, 25, 63, 66, 65, 34}, 0x04E71DDDB27C44C2u},
      {kRng6, 5489, {33, 51, 55, 66, 31, 16, 51, 62}, 0x7DD3BAF7DA9B40E1u},
      {kRng6, 2147483647, {23, 36, 34, 44, 61, 15, 25, 66}, 0x7C1FD1433F3C3545u},
      {kRng7, 5489, {16, 52, 35, 26, 54, 16, 45, 45}, 0xEAE533D24610544Cu},
      {kRng7, 2147483647, {44, 66, 36, 62, 25, 11, 23, 16}, 0xC22EC90A50820F64u},
      {kRng8, 5489, {65, 51, 36, 16, 51, 56, 36, 22}, 0x14D04DD49D12912Cu},
      {kRng8, 2147483647, {33, 36, 64, 64, 41, 25, 56, 46}, 0xDC91D17688F03809u},
  };
  for (const auto& stream : streams) {
    Table table(stream.rng, stream.seed);
    std::uint64_t hash = 0xCBF29CE484222325u;
    const auto add = [&hash](std::int64_t n) {
      hash = (hash ^ static_cast<std::uint64_t>(n)) * 0x100000001B3u;
    };
    const std::vector<int> rolls = table.Rolls(3000);
    for (const int roll : rolls) add(roll);
    add(table.game.SeedValue);
    add(table.game.Ran2Idum);
    EXPECT_EQ(std::vector<int>(rolls.begin(), rolls.begin() + 8), stream.first) << stream.rng + 1;
    EXPECT_EQ(hash, stream.hash) << "RNG #" << stream.rng + 1 << ", seed " << stream.seed;
  }
  Table first;  // never seeded
  Table second;
  second.game.RngSelected = kRng2;
  EXPECT_NE(first.Rolls(50), second.Rolls(50));
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

TEST(Rng8, TheEndsOfAWordAreTheEndsOfTheDice) {
  Table table(kRng8, 5489);
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
