#include "desktop/table_picture.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

#include "config/payoffs.h"
#include "config/table_colors.h"
#include "desktop/chip_picture.h"
#include "desktop/felt.h"
#include "desktop/lammer_picture.h"
#include "desktop/offscreen.h"
#include "engine/chip_list.h"
#include "engine/start_up.h"
#include "surface/null_surface.h"

namespace feltmaster {
namespace {

class TablePictureTest : public testing::Test {
 protected:
  TablePictureTest() {
    StartOffscreen();
    game->surface = &surface;
    StartUp(*game, {.data_dir = "", .seed = 1});
    view.dice = DiceAtRest(*game);
  }

  // A picture that knows nothing of what was painted before.
  QImage Fresh(double scale = 1) {
    TablePicture picture(Felts());
    picture.SetScale(scale);
    picture.Update(*game, view);
    return picture.Image();
  }
  void Bet(int bet, MoneyAmount amount) {
    game->BetAmount.Set(bet, amount);
    RebuildChips(*game, bet);
  }

  // Cloths take long to weave; all tests share them.
  static FeltStore& Felts() {
    static FeltStore felts;
    return felts;
  }

  NullSurface surface;
  std::unique_ptr<Game> game = std::make_unique<Game>();
  TableView view;
};

// The least difference between any two of the pictures.
double LeastDifference(const std::vector<QImage>& pictures) {
  double least = 255;
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      least = std::min(least, Difference(pictures[i], pictures[j]));
    }
  }
  return least;
}

TEST_F(TablePictureTest, PresetsAndFeltsDiffer) {
  std::vector<QImage> presets;
  for (const TablePreset& preset : kTablePresets) {
    SetTablePreset(*game, preset);
    presets.push_back(Fresh());
  }
  EXPECT_GT(LeastDifference(presets), 8);

  SetTablePreset(*game, kTablePresets.front());
  std::vector<QImage> felts;
  for (game->TextureRow = 0; game->TextureRow < kFeltCount; ++game->TextureRow) {
    felts.push_back(Fresh());
  }
  EXPECT_GT(LeastDifference(felts), 1.5);
}

// Each of the eight colours is seen, and only where it belongs: another felt changes most pixels,
// the pips only few.
TEST_F(TablePictureTest, EveryColourIsUsed) {
  const QImage plain = Fresh();
  for (int color = 0; color < kTableColorCount; ++color) {
    auto& value = game->TableColors[static_cast<std::size_t>(color)];
    const std::int32_t kept = value;
    value = 0x804020;
    const double difference = Difference(plain, Fresh());
    EXPECT_GT(difference, color == kColorFelt ? 15 : 0.03) << color;
    EXPECT_LT(difference, color == kColorFelt ? 255 : 12) << color;
    value = kept;
  }
}

QImage Painted(int side, const std::function<void(QPainter&, QPointF)>& paint) {
  QImage image(side * 4, side * 4, QImage::Format_RGB32);
  image.fill(QColor(27, 120, 74));
  QPainter painter(&image);
  painter.scale(4, 4);
  paint(painter, QPointF(side, side) / 2);
  return image;
}

TEST_F(TablePictureTest, DesignsOfChipsDiceAndMarksDiffer) {
  for (int chip = 1; chip <= kMarkerChip; ++chip) {
    std::vector<QImage> designs;
    for (int design = 1; design <= kChipDesigns; ++design) {
      designs.push_back(Painted(26, [&](QPainter& painter, QPointF middle) {
        PaintChip(painter, middle, design, chip, "25");
      }));
    }
    EXPECT_GT(LeastDifference(designs), 2) << chip;
  }
  std::vector<QImage> denominations;
  for (int chip = 1; chip <= kMarkerChip; ++chip) {
    denominations.push_back(Painted(
        26, [&](QPainter& painter, QPointF middle) { PaintChip(painter, middle, 1, chip, ""); }));
  }
  EXPECT_GT(LeastDifference(denominations), 3);

  for (int face = 1; face <= 6; ++face) {
    std::vector<QImage> designs;
    for (int design = 1; design <= kDieDesigns; ++design) {
      designs.push_back(Painted(40, [&](QPainter& painter, QPointF middle) {
        PaintDie(painter, middle, design, {Qt::red, Qt::white}, {face});
      }));
    }
    EXPECT_GT(LeastDifference(designs), 3) << face;
  }
  for (int design = 1; design <= kDieDesigns; ++design) {
    std::vector<QImage> faces;
    for (int face = 1; face <= 6; ++face) {
      faces.push_back(Painted(40, [&](QPainter& painter, QPointF middle) {
        PaintDie(painter, middle, design, {Qt::red, Qt::white}, {face});
      }));
    }
    EXPECT_GT(LeastDifference(faces), 0.8) << design;
  }

  std::vector<QImage> lammers;
  for (const Lammer lammer : {Lammer::kPuckOn, Lammer::kPuckOff, Lammer::kMarkOn, Lammer::kMarkOff,
                              Lammer::kMarkBuy, Lammer::kMarkLay}) {
    lammers.push_back(Painted(
        40, [&](QPainter& painter, QPointF middle) { PaintLammer(painter, middle, 18, lammer); }));
  }
  EXPECT_GT(LeastDifference(lammers), 0.5);
}

TEST_F(TablePictureTest, ChipTexts) {
  const auto raw = [](std::int64_t ten_thousandths) {
    return MoneyAmount::FromRaw(ten_thousandths);
  };
  EXPECT_EQ(ChipText(MoneyAmount(1), true), "1");
  EXPECT_EQ(ChipText(MoneyAmount(10'000), true), "10000");
  EXPECT_EQ(ChipText(raw(25'000), true), "2.5");
  EXPECT_EQ(ChipText(raw(2'500), true), "25¢");
  EXPECT_EQ(ChipText(raw(500), true), "5¢");
  EXPECT_EQ(ChipText(raw(5'000), false), "0.50");
  EXPECT_EQ(ChipText(raw(1'250), false), "0.13");
}

// A bet shows a chip at its place and nowhere else but in the status lines.
TEST_F(TablePictureTest, EveryBetShowsItsChipAtItsPlace) {
  for (const bool hop_bets : {false, true}) {
    game->ShowHopBets = hop_bets;
    const QImage bare = Fresh();
    TablePicture picture(Felts());
    picture.Update(*game, view);
    for (int slot = 1; slot < kFirstStack + 5; ++slot) {
      if (slot == kBetCount + 1) slot = kFirstStack + 1;
      Bet(slot, MoneyAmount(5));
      QRegion changed = picture.Update(*game, view);
      const QImage image = picture.Image();
      const Pixel place = *PlaceOf(*game, slot);
      const bool hidden = IsLayoutBet(slot) && NotShown(*game, slot);
      EXPECT_EQ(Difference(image.copy(place.x - 8, place.y - 8, 16, 16),
                           bare.copy(place.x - 8, place.y - 8, 16, 16)) > 20,
                !hidden)
          << slot;
      // The rest of the layout is as it was; a Lay or Buy bet has its mark beside it.
      QImage rest = image;
      {
        QPainter painter(&rest);
        const QRect around(place.x - 14, place.y - 14, 40, 28);
        painter.drawImage(around.topLeft(), bare, around);
        const QRect status(0, kStatusBox.top - 2, kTableWidth, 34);
        painter.drawImage(status.topLeft(), bare, status);
      }
      EXPECT_EQ(rest, bare) << slot;
      Bet(slot, MoneyAmount());
      picture.Update(*game, view);
    }
  }
}

// Repainting only what Update names gives the same picture, pixel for pixel, as painting all.
TEST_F(TablePictureTest, PartsPaintedAloneAreTheSameAsTheWhole) {
  std::mt19937 random(7);
  const auto any = [&random](int low, int high) {
    return std::uniform_int_distribution(low, high)(random);
  };
  game->BetAmount.Set(kBankroll, MoneyAmount(5000));
  for (const double scale : {1.0, 1.37, 2.5}) {
    TablePicture picture(Felts());
    picture.SetScale(scale);
    QImage kept(picture.Size(), QImage::Format_RGB32);
    for (int step = 0; step < 60; ++step) {
      switch (any(0, 9)) {
        case 0:
          game->Point = std::vector{0, 2, 4, 8, 12}[static_cast<std::size_t>(any(0, 4))];
          break;
        case 1:
          for (DieOnTable& die : view.dice) {
            die = {{any(0, 600), any(0, 400)}, any(1, 6), any(0, 89), any(0, 100)};
          }
          break;
        case 2:
          game->CallBetMode = any(0, 4);
          break;
        case 3:
          game->DisplayBetAmounts = !game->DisplayBetAmounts;
          break;
        case 4:
          game->BetState.Set(any(1, kBetCount), any(-1, 2));
          break;
        case 5:
          game->KeyInBetAmounts = !game->KeyInBetAmounts;
          game->EntryBoxBet = any(1, kBetCount);
          break;
        case 6:
          game->ChipColor = any(1, 5);
          game->HitBet = any(1, kBetCount);
          break;
        case 7:
          Bet(kFirstStack + any(1, 4), MoneyAmount(any(-500, 500)));
          break;
        default:
          Bet(any(1, kBetCount), MoneyAmount(any(0, 600)));
      }
      const QRegion changed = picture.Update(*game, view);
      QPainter painter(&kept);
      for (const QRect& part : changed) picture.Paint(painter, part);
      painter.end();
      if (step % 6 == 5) {
        const QImage fresh = Fresh(scale);
        QRegion differing;
        for (int y = 0; y < fresh.height(); ++y) {
          for (int x = 0; x < fresh.width(); ++x) {
            if (kept.pixel(x, y) != fresh.pixel(x, y)) differing += QRect(x, y, 1, 1);
          }
        }
        const QRect box = differing.boundingRect();
        ASSERT_TRUE(differing.isEmpty())
            << scale << " after step " << step << ": " << box.x() << ' ' << box.y() << ' '
            << box.width() << " by " << box.height();
      }
    }
    view.dice = DiceAtRest(*game);
  }
}

// A chip put down costs a small part of the picture; nothing new costs nothing.
TEST_F(TablePictureTest, AChipDoesNotRedrawTheTable) {
  TablePicture picture(Felts());
  picture.SetScale(2);
  EXPECT_EQ(picture.Update(*game, view), QRegion(QRect(QPoint(0, 0), picture.Size())));
  EXPECT_TRUE(picture.Update(*game, view).isEmpty());
  game->ChipList.push_back({kPassLine, 2, 354, 360});
  const QRegion changed = picture.Update(*game, view);
  EXPECT_TRUE(changed.contains(QPoint(708, 720)));
  EXPECT_LT(changed.boundingRect().width(), 80);
  EXPECT_LT(changed.boundingRect().height(), 80);
}

// A new payoff is printed; so is a limit, and the other panel.
TEST_F(TablePictureTest, TheLayoutShowsTheRulesInForce) {
  const QImage house = Fresh();
  game->PayTable[kPlace].PayNumerator = MoneyAmount(99);
  const QRect place(kGridLeft, 152, kGridColumnWidth, 25);
  const QImage changed = Fresh();
  EXPECT_NE(changed.copy(place), house.copy(place));
  EXPECT_EQ(changed.copy(132, 0, 508, 440), house.copy(132, 0, 508, 440));

  game->MaxPlacardBet = MoneyAmount(123);
  EXPECT_NE(Fresh().copy(511, 5, 125, 95), changed.copy(511, 5, 125, 95));
  SetFieldPayoffs(*game, FieldPreset::kAsHorn);
  EXPECT_NE(Fresh().copy(200, 250, 300, 60), changed.copy(200, 250, 300, 60));
}

}  // namespace
}  // namespace feltmaster
