#include "table/layout.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "table/key_walk.h"

namespace feltmaster {
namespace {

int BetAt(const Game& game, int x, int y) {
  return HitTest(game, {x, y}).bet;
}

// How many pixels each region has.
std::map<int, int> Regions(const Game& game) {
  std::map<int, int> pixels;
  for (int y = 0; y < kTableHeight; ++y) {
    for (int x = 0; x < kTableWidth; ++x) ++pixels[BetAt(game, x, y)];
  }
  return pixels;
}

TEST(Layout, EveryBetIsReachedOnThePanelThatShowsItAndNowhereElse) {
  Game game;
  for (const bool hop_bets : {false, true}) {
    game.ShowHopBets = hop_bets;
    const std::map<int, int> pixels = Regions(game);
    for (int bet = 1; bet <= kBetCount; ++bet) {
      const int needed = IsBuy(bet) || HiddenByPanel(game, bet) ? 0 : 500;
      const auto found = pixels.find(bet);
      const int count = found == pixels.end() ? 0 : found->second;
      if (needed == 0) {
        EXPECT_EQ(count, 0) << bet;
      } else {
        EXPECT_GE(count, needed) << bet;
        const Box box = BoxOfBet(bet);
        EXPECT_EQ(BetAt(game, (box.left + box.right) / 2, (box.top + box.bottom) / 2), bet);
      }
      // Come and its odds lie on the line between their rows.
      if (needed == 0 || IsComePoint(bet) || IsComeOdds(bet)) continue;
      const Pixel place = kBetPlace[static_cast<std::size_t>(bet)];
      EXPECT_EQ(BetAt(game, place.x, place.y), bet);
    }
  }
}

TEST(Layout, EdgesOfTheGridAndThePanel) {
  Game game;
  const auto expect = [&](int x, int y, int bet) {
    EXPECT_EQ(BetAt(game, x, y), bet) << x << ',' << y;
  };
  for (int slot = 0; slot < kSlotCount; ++slot) {
    for (const int x : {91 + 41 * slot, 131 + 41 * slot}) {
      expect(x, 51, kHitFelt);
      expect(x, 52, kLay + slot);
      expect(x, 76, kLay + slot);
      expect(x, 77, kComePoint + slot);
      expect(x, 138, kComePoint + slot);
      expect(x, 139, kComeOdds + slot);
      expect(x, 151, kComeOdds + slot);
      expect(x, 152, kPlace + slot);
      expect(x, 176, kPlace + slot);
      expect(x, 177, kComeBox);
    }
  }
  expect(90, 100, kHitFelt);
  expect(501, 160, kHitFelt);
  game.BetAmount.Set(kBuy + 3, MoneyAmount(5));
  expect(91 + 41 * 3, 160, kBuy + 3);
  expect(91 + 41 * 4, 160, kPlace + 4);

  game.ShowHopBets = true;
  const int rows[10][2] = {{70, 71}, {72, 74}, {76, 81}, {73, 78}, {77, 75},
                           {84, 79}, {86, 82}, {88, 85}, {87, 80}, {69, 83}};
  for (int row = 0; row < 10; ++row) {
    for (const int y : {100 + 25 * row, 124 + 25 * row}) {
      for (const int x : {511, 573}) expect(x, y, rows[row][0]);
      for (const int x : {574, 635}) expect(x, y, rows[row][1]);
    }
  }
  expect(540, 372, kWorld);
  expect(540, 373, kHitFelt);
  expect(600, 350, kHitFelt);
  expect(510, 110, kHitFelt);
  expect(636, 110, kHitRail);
}

TEST(Layout, RailToolsAndStacks) {
  Game game;
  const auto expect = [&](int x, int y, int bet, int tool) {
    const Hit hit = HitTest(game, {x, y});
    EXPECT_EQ(hit.bet, bet) << x << ',' << y;
    EXPECT_EQ(hit.tool, tool) << x << ',' << y;
  };
  game.StackSlots = {0, 101, 157, 199, 100};
  const int tops[5] = {0, 181, 130, 79, 28};
  for (int pile = 1; pile <= 4; ++pile) {
    const int stack = game.StackSlots[static_cast<std::size_t>(pile)];
    expect(16, tops[pile] - 1, kHitRail, kNoTool);
    expect(4, tops[pile], stack, 6 + pile);
    expect(28, tops[pile] + 24, stack, 6 + pile);
    expect(28, tops[pile] + 25, stack, kNoTool);
    expect(3, tops[pile] + 48, stack, kNoTool);
    expect(29, tops[pile], kHitRail, kNoTool);
  }
  for (int chip = 1; chip <= 5; ++chip) {
    expect(4, 359 - 25 * chip, kHitRail, chip);
    expect(28, 382 - 25 * chip, kHitRail, chip);
  }
  expect(16, 370, kBuyTool, kBuyTool);
  expect(16, 395, kCallOffTool, kCallOffTool);
  expect(16, 420, kCallOnTool, kCallOnTool);
  expect(10, 10, kHitRail, kNoTool);
  expect(0, 0, kHitRail, kNoTool);
  expect(639, 439, kHitRail, kNoTool);
  expect(-1, -1, kHitRail, kNoTool);
  expect(620, 18, kHitPanelCorner, kNoTool);
  expect(560, 375, kHitPanelCorner, kNoTool);
  expect(560, 374, kHitFelt, kNoTool);
  expect(100, 420, kHitLabel, kNoTool);
  expect(480, 390, kHitFelt, kNoTool);
  game.DiceRollFileMode = kRecording;
  expect(452, 375, kHitRecorder, kNoTool);
  expect(504, 402, kHitRecorder, kNoTool);
  expect(505, 402, kHitPanelCorner, kNoTool);
}

TEST(Layout, BandsOfTheCornerFollowEachOtherAllTheWayRound) {
  Game game;
  // Straight down on the left, along the diagonal of the corner, and straight up at the bottom.
  const auto order = [&](Pixel from, int step_x, int step_y) {
    std::vector<int> bets;
    for (Pixel at = from; at.x >= 33 && at.y < 405; at.x += step_x, at.y += step_y) {
      const int bet = BetAt(game, at.x, at.y);
      if (bets.empty() || bets.back() != bet) bets.push_back(bet);
    }
    return bets;
  };
  using List = std::vector<int>;
  EXPECT_EQ(order({120, 260}, -1, 0), (List{kBig6, kPassLine, kPassOdds, kHitFelt}));
  EXPECT_EQ(order({180, 320}, 0, 1), (List{kBig8, kPassLine, kPassOdds, kHitFelt}));
  EXPECT_EQ(order({150, 288}, -1, 1), (List{kField, kBig8, kPassLine, kPassOdds, kHitFelt}));
}

TEST(Layout, MarksPuckAndFigures) {
  EXPECT_EQ(PuckPlace(0), (Pixel{58, 10}));
  EXPECT_EQ(PuckPlace(2), (Pixel{92, 10}));
  EXPECT_EQ(PuckPlace(6), (Pixel{256, 10}));
  EXPECT_EQ(PuckPlace(8), (Pixel{297, 10}));
  EXPECT_EQ(PuckPlace(12), (Pixel{461, 10}));
  EXPECT_EQ(VigMarkPlace(kBuy), (Pixel{109, 159}));
  EXPECT_EQ(CallMarkPlace(kPlace), (Pixel{93, 154}));
  EXPECT_EQ(CallMarkPlace(kComeOdds), (Pixel{93, 125}));
  EXPECT_EQ(NumberPlace(kComePoint), (Pixel{94, 131}));
  EXPECT_EQ(NumberPlace(kComeOdds), (Pixel{94, 118}));
  EXPECT_EQ(NumberPlace(kHop13), (Pixel{514, 140}));
}

TEST(KeyWalk, GridStacksAndTheWayBack) {
  Game game;
  const auto walk = [&](int bet, Arrow arrow) { return WalkFrom(game, bet, arrow); };
  EXPECT_EQ(walk(1, Arrow::kLeft), 101);
  EXPECT_EQ(walk(31, Arrow::kLeft), 101);
  EXPECT_EQ(walk(101, Arrow::kRight), 31);
  EXPECT_EQ(walk(101, Arrow::kUp), 102);
  EXPECT_EQ(walk(104, Arrow::kUp), 101);
  EXPECT_EQ(walk(101, Arrow::kDown), 104);
  EXPECT_EQ(walk(103, Arrow::kLeft), 59);
  EXPECT_EQ(walk(51, Arrow::kLeft), 103);
  EXPECT_EQ(walk(103, Arrow::kRight), 51);
  EXPECT_EQ(walk(8, Arrow::kUp), 52);
  EXPECT_EQ(walk(52, Arrow::kDown), 8);
  EXPECT_EQ(walk(36, Arrow::kDown), 53);
  EXPECT_EQ(walk(53, Arrow::kUp), 36);
  EXPECT_EQ(walk(12, Arrow::kUp), 22);
  EXPECT_EQ(walk(22, Arrow::kUp), 2);
  EXPECT_EQ(walk(2, Arrow::kDown), 22);
  EXPECT_EQ(walk(22, Arrow::kDown), 12);
  EXPECT_EQ(walk(12, Arrow::kDown), 32);
  EXPECT_EQ(walk(32, Arrow::kUp), 12);
  const int ends[4][3] = {{10, 63, 70}, {20, 66, 72}, {30, 63, 70}, {40, 66, 76}};
  for (const auto& [end, props, hops] : ends) {
    game.ShowHopBets = false;
    EXPECT_EQ(walk(end, Arrow::kRight), props);
    EXPECT_EQ(walk(props, Arrow::kLeft), end);
    game.ShowHopBets = true;
    EXPECT_EQ(walk(end, Arrow::kRight), hops);
  }
  const int beside[3][3] = {{53, 60, 84}, {54, 62, 88}, {67, 68, 69}};
  for (const auto& [from, prop, hop] : beside) {
    game.ShowHopBets = false;
    EXPECT_EQ(walk(from, Arrow::kRight), prop);
    game.ShowHopBets = true;
    EXPECT_EQ(walk(from, Arrow::kRight), hop);
  }
  // A Buy bet is walked as its Place bet.
  game.BetAmount.Set(44, MoneyAmount(10));
  EXPECT_EQ(walk(33, Arrow::kRight), 44);
  EXPECT_EQ(walk(44, Arrow::kRight), 35);
  EXPECT_EQ(walk(14, Arrow::kDown), 44);
  // A Chip-Stack that is on the table no more gives way to the lowest pile.
  game.LastStackBet = 150;
  EXPECT_EQ(walk(11, Arrow::kLeft), 101);
  // The panel changes while the box is away.
  const int pairs[7][2] = {{63, 71}, {66, 81}, {58, 75}, {59, 79}, {61, 82}, {65, 80}, {68, 83}};
  for (const auto& [prop, hop] : pairs) {
    game.LastPanelBet = prop;
    game.ShowHopBets = true;
    EXPECT_EQ(walk(101, Arrow::kLeft), hop);
    game.LastPanelBet = hop;
    game.ShowHopBets = false;
    EXPECT_EQ(walk(101, Arrow::kLeft), prop);
  }
  for (const auto& [hop, prop] : {std::pair{74, 63}, {78, 58}, {85, 61}}) {
    game.LastPanelBet = hop;
    EXPECT_EQ(walk(101, Arrow::kLeft), prop);
  }
}

TEST(KeyWalk, VisitsTheWholeTable) {
  for (const bool hop_bets : {false, true}) {
    // Breadth first over bets and memories.
    std::set<int> seen;
    std::set<std::array<int, 5>> states;
    std::vector<Game> open(1);
    open[0].ShowHopBets = hop_bets;
    std::vector<int> at = {51};
    for (std::size_t i = 0; i < open.size() && i < 3000; ++i) {
      for (int arrow = 0; arrow < 4; ++arrow) {
        Game game = open[i];
        const int bet = WalkFrom(game, at[i], static_cast<Arrow>(arrow));
        EXPECT_FALSE(IsLayoutBet(bet) && HiddenByPanel(game, bet)) << at[i] << " to " << bet;
        seen.insert(bet);
        if (!states.insert({bet, game.LastStackBet, 0, 0, game.LastGridRow}).second) continue;
        open.push_back(game);
        at.push_back(bet);
      }
    }
    for (int bet = 1; bet <= kBetCount; ++bet) {
      Game game;
      game.ShowHopBets = hop_bets;
      EXPECT_EQ(seen.contains(bet), !IsBuy(bet) && !HiddenByPanel(game, bet)) << bet;
    }
    for (int stack = 101; stack <= 104; ++stack) EXPECT_TRUE(seen.contains(stack));
  }
}

}  // namespace
}  // namespace feltmaster
