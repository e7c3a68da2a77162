#include "table/scene.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>

#include "config/payoffs.h"
#include "engine/chip_list.h"
#include "engine/start_up.h"
#include "surface/null_surface.h"
#include "table/printed_rules.h"

namespace feltmaster {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SceneTest : public testing::Test {
 protected:
  SceneTest() {
    game->surface = &surface;
    StartUp(*game, {.data_dir = "", .seed = 1});
  }
  void Bet(int slot, MoneyAmount amount) {
    game->BetAmount.Set(slot, amount);
    RebuildChips(*game, slot);
  }
  std::vector<Sprite> Of(SpriteKind kind) const {
    std::vector<Sprite> found;
    for (const Sprite& sprite : SceneOf(*game, view)) {
      if (sprite.kind == kind) found.push_back(sprite);
    }
    return found;
  }
  std::vector<int> Values(SpriteKind kind) const {
    std::vector<int> values;
    for (const Sprite& sprite : Of(kind)) values.push_back(sprite.value);
    return values;
  }
  std::vector<std::string> Texts(SpriteKind kind) const {
    std::vector<std::string> texts;
    for (const Sprite& sprite : Of(kind)) texts.push_back(sprite.text.front().text);
    return texts;
  }

  NullSurface surface;
  std::unique_ptr<Game> game = std::make_unique<Game>();
  TableView view;
};

TEST_F(SceneTest, ThePanelAndABuyBetHideChips) {
  Bet(kHard6, MoneyAmount(1));
  Bet(kCAndE, MoneyAmount(5));
  Bet(kWorld, MoneyAmount(25));
  Bet(kHop13, MoneyAmount(100));
  EXPECT_THAT(Values(SpriteKind::kChip), ElementsAre(1, 2));
  game->ShowHopBets = true;
  EXPECT_THAT(Values(SpriteKind::kChip), ElementsAre(2, 3, 4));

  Bet(kPlace + 4, MoneyAmount(500));
  EXPECT_EQ(Of(SpriteKind::kChip).size(), 4u);
  Bet(kBuy + 4, MoneyAmount(500));
  EXPECT_EQ(Of(SpriteKind::kChip).size(), 4u);
  game->DisplayBetAmounts = true;
  EXPECT_THAT(Of(SpriteKind::kChip), IsEmpty());
  EXPECT_THAT(Texts(SpriteKind::kFigures), ElementsAre("500", "5", "25", "100"));
}

TEST_F(SceneTest, MarksFiguresOfPilesAndTheRest) {
  Bet(kLay + 2, MoneyAmount(40));
  Bet(kBuy + 7, MoneyAmount(25));
  Bet(kHard4, MoneyAmount(1));
  game->BetState.Set(kHard4, kCalledOn);
  game->BetState.Set(kComeOdds, kCalledOff);
  EXPECT_THAT(Values(SpriteKind::kMark), ElementsAre(kMarkLay, kMarkBuy, kMarkOff, kMarkOn));
  game->ShowHopBets = true;
  EXPECT_THAT(Values(SpriteKind::kMark), ElementsAre(kMarkLay, kMarkBuy, kMarkOff));

  game->BetAmount.Set(103, MoneyAmount(-1500));
  game->BetAmount.Set(104, MoneyAmount(70));
  game->BetAmount.Set(150, MoneyAmount(-1));  // not on the table
  EXPECT_THAT(Texts(SpriteKind::kPileFigures), ElementsAre("-1,500"));
  game->DisplayBetAmounts = true;
  EXPECT_THAT(Texts(SpriteKind::kPileFigures), ElementsAre("-1,500", "70"));

  view.banner = "Auto-Betting";
  EXPECT_THAT(Texts(SpriteKind::kPrompt), ElementsAre("Auto-Betting"));
  game->CallBetMode = 2;
  EXPECT_THAT(Texts(SpriteKind::kPrompt), ElementsAre("Click on bet to call OFF"));

  EXPECT_THAT(Of(SpriteKind::kEntryBox), IsEmpty());
  game->KeyInBetAmounts = true;
  game->EntryBoxBet = kLay + 2;
  EXPECT_THAT(Texts(SpriteKind::kEntryBox), ElementsAre("40"));
}

TEST(PrintedRulesTest, RatiosAsTheyArePrinted) {
  const auto game = std::make_unique<Game>();
  DefaultPayoffs(*game);
  PrintedRules printed = PrintRules(*game);
  EXPECT_EQ(printed.ratio[kPlace + 4], "7t6");
  EXPECT_EQ(printed.ratio[kLay + 3], "2t3");
  EXPECT_EQ(printed.lay_vig, "LAY VIG 5% OF EVERY BET");
  std::vector<int> totals;
  std::vector<int> rings;
  for (const FieldNumber& number : printed.field) {
    totals.push_back(number.total);
    if (number.pays_more) rings.push_back(number.total);
  }
  EXPECT_THAT(totals, ElementsAre(2, 3, 4, 9, 10, 11, 12));
  EXPECT_THAT(rings, ElementsAre(2, 12));

  EnterWord(game->PayTable[kHard4], false);
  EnterNumerator(game->PayTable[kHard4], MoneyAmount(8));
  game->BuyVigAllBets = false;
  game->BuyVigPct = MoneyAmount::FromRaw(475);
  SetFieldPayoffs(*game, FieldPreset::kAsHard8);
  printed = PrintRules(*game);
  EXPECT_EQ(printed.ratio[kHard4], "8f1");
  EXPECT_EQ(printed.buy_vig, "BUY VIG 4.75% OF WINS");
  ASSERT_EQ(printed.field.size(), 1u);
  EXPECT_THAT(printed.field[0].marks, ElementsAre("-1t1", "9t1"));

  // A damaged file can hold any number.
  PayRow& row = game->PayTable[kHard6];
  row.PayIsTo = false;
  row.PayNumerator = row.PayDenominator =
      MoneyAmount::FromRaw(std::numeric_limits<std::int64_t>::max());
  EXPECT_EQ(PrintRules(*game).ratio[kHard6], "?");
}

}  // namespace
}  // namespace feltmaster
