// The bytes of a game file against its layout, written and read without the program's own table.
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <random>

#include "engine/start_up.h"
#include "files/game_file.h"
#include "files/game_layout.h"
#include "support/scratch_folder.h"
#include "surface/null_surface.h"
#include "view/state_record.h"

namespace feltmaster {
namespace {

using game_layout::Element;
using game_layout::Form;
using game_layout::NumberAt;
using game_layout::PutNumber;

constexpr std::size_t kGameSize = 571 * 256;

std::string Padded(std::string text, std::size_t width) {
  text.resize(width, ' ');
  return text;
}

// A value that the file keeps as it is, never the same for two neighbours for long.
std::int64_t AnyStored(const Element& element, std::mt19937_64& random) {
  const auto span = static_cast<std::uint64_t>(element.high - element.low) + 1;
  const std::int64_t number = element.low + static_cast<std::int64_t>(random() % span);
  if (element.form == Form::kWhole) return number * 10'000;
  if (element.form == Form::kSwitch) return number * -10'000;
  return element.form == Form::kMark ? -number : number;
}
std::string AnyName(std::mt19937_64& random) {
  std::string name(random() % 81, 'x');
  for (char& c : name) c = static_cast<char>('!' + random() % 90);
  return name;
}

class GameFileLayout : public InScratchFolder {
 protected:
  std::unique_ptr<Game> NewTable() {
    auto game = std::make_unique<Game>();
    game->surface = &surface_;
    StartUp(*game, {.data_dir = Path(""), .seed = 1});
    return game;
  }

  NullSurface surface_;
  std::unique_ptr<Game> game_ = NewTable();
  std::unique_ptr<Game> other_ = NewTable();
  std::mt19937_64 random_{20};
};

TEST_F(GameFileLayout, EveryVariableIsWrittenInItsPlace) {
  for (int round = 0; round < 3; ++round) {
    for (const Element& element : game_layout::Elements()) {
      const StateName* name = FindStateName(element.name);
      ASSERT_NE(name, nullptr) << element.name;
      const StateValue value = element.form == Form::kText
                                   ? StateValue(AnyName(random_))
                                   : Meaning(element.form, name->type, AnyStored(element, random_));
      ASSERT_TRUE(name->write(*game_, element.index, value)) << element.name;
    }
    ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
    const std::string bytes = Bytes("a.crp");
    ASSERT_EQ(bytes.size(), kGameSize);
    for (const Element& element : game_layout::Elements()) {
      const StateValue value = FindStateName(element.name)->read(*game_, element.index);
      SCOPED_TRACE(element.name + "(" + std::to_string(element.index[0]) + "," +
                   std::to_string(element.index[1]) + ")");
      if (element.form == Form::kText) {
        ASSERT_EQ(bytes.substr(element.offset, 80), Padded(std::get<std::string>(value), 80));
      } else {
        ASSERT_EQ(NumberAt(bytes, element.offset, SizeOf(element.form)),
                  Stored(element.form, value));
      }
    }
  }
}

// What opening does not take from the file, or works out.
bool IsTaken(const Element& element) {
  const bool copy = element.name.starts_with("BetAmountAtRoll");
  if (copy && element.index[0] >= 89 && element.index[0] <= 99) return false;
  if (element.name == "RollsSinceLast" && element.index[0] == 0) return false;
  return element.name != "DiceRollFileMode";
}

TEST_F(GameFileLayout, EveryVariableIsReadFromItsPlace) {
  ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  for (int round = 0; round < 3; ++round) {
    std::string bytes = Bytes("a.crp");
    // What no variable stands in may hold anything.
    for (std::size_t i = 7 * 256; i < bytes.size(); ++i) bytes[i] = static_cast<char>(random_());
    PutNumber(bytes, 11 * 256 + 6 * 8, 8, 0);  // no chips follow
    for (const Element& element : game_layout::Elements()) {
      if (element.form == Form::kText) {
        bytes.replace(element.offset, 80, Padded(AnyName(random_), 80));
      } else {
        PutNumber(bytes, element.offset, SizeOf(element.form), AnyStored(element, random_));
      }
    }
    Write("b.crp", bytes);
    ASSERT_TRUE(OpenGame(*other_, Path("b.crp"), false));
    for (const Element& element : game_layout::Elements()) {
      if (!IsTaken(element)) continue;
      const StateName* name = FindStateName(element.name);
      const StateValue value = name->read(*other_, element.index);
      SCOPED_TRACE(element.name + "(" + std::to_string(element.index[0]) + "," +
                   std::to_string(element.index[1]) + ")");
      if (element.form == Form::kText) {
        ASSERT_EQ(Padded(std::get<std::string>(value), 80), bytes.substr(element.offset, 80));
      } else {
        const std::int64_t stored = NumberAt(bytes, element.offset, SizeOf(element.form));
        ASSERT_EQ(Stored(element.form, value), stored);
      }
    }
    EXPECT_EQ(other_->DiceTotal, other_->Die1 + other_->Die2);
  }
}

TEST_F(GameFileLayout, RoundsWholeNumbersAndMinds32Bits) {
  ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  std::string bytes = Bytes("a.crp");
  const auto slot = [](int record, int n) {
    return static_cast<std::size_t>((record - 1) * 256 + n * 8);
  };
  PutNumber(bytes, slot(9, 15), 8, 24'999);  // ProbabilityDisplay 2.4999
  PutNumber(bytes, slot(9, 8), 8, 15'000);   // LayVigRounding 1.5, to the even
  PutNumber(bytes, slot(9, 9), 8, 10'000);   // any number but 0 is true
  PutNumber(bytes, slot(9, 12), 8, 4'999);   // which rounds to 0
  PutNumber(bytes, slot(10, 8), 8, INT64_MAX);
  PutNumber(bytes, slot(11, 4), 8, -70'000);  // HandleAmount(0) without its sign,
  PutNumber(bytes, slot(11, 5), 8, -70'000);  // no other below 0
  PutNumber(bytes, slot(11, 12), 8, 70'000);
  PutNumber(bytes, slot(12, 4), 8, 1'050'000);
  PutNumber(bytes, slot(12, 7), 8, 70'000);  // 7 is no point
  PutNumber(bytes, slot(14, 11), 8, 2'000'000);
  PutNumber(bytes, slot(14, 12), 8, 1'570'000);
  Write("b.crp", bytes);
  ASSERT_TRUE(OpenGame(*game_, Path("b.crp"), false));
  EXPECT_EQ(game_->ProbabilityDisplay, 2);
  EXPECT_EQ(game_->LayVigRounding, 2);
  EXPECT_TRUE(game_->LayVigAllBets);
  EXPECT_FALSE(game_->BuyVigAllBets);
  EXPECT_EQ(game_->NumAutoRolls, 0);
  EXPECT_EQ(game_->HandleAmount[0], MoneyAmount(7));
  EXPECT_EQ(game_->HandleAmount[1], MoneyAmount(0));
  EXPECT_EQ(game_->HandleUnits[0], MoneyAmount(0));
  EXPECT_EQ(game_->EntryBoxBet, 1);
  EXPECT_EQ(game_->Point, 0);
  EXPECT_EQ(game_->StackSlots[2], 102);
  EXPECT_EQ(game_->StackPileName[2], "Chip-Stack # 2");
  EXPECT_EQ(game_->StackSlots[3], 157);
  EXPECT_EQ(game_->StackPileName[3], "Chip-Stack #57");
}

TEST_F(GameFileLayout, HeadersAndScreens) {
  game_->TablePlacement = {false, 41, -7, 800, 600};
  game_->TableWindowState = 2;
  game_->PlacementOf(kRollTotalsScreen) = {true, 11, 12, 13, 14};
  game_->PlacementOf(kFileScreen) = {false, 21, 22, 23, 24};
  game_->PlacementOf(kRyonScreen) = {true, 31, 32, 33, 34};
  game_->ScriptOutputFile = Path("out.txt");
  ASSERT_TRUE(SaveGame(*game_, Path("default.crp")));
  const std::string bytes = Bytes("default.crp");
  for (int record = 1; record <= 5; ++record) {
    const std::size_t at = static_cast<std::size_t>(record - 1) * 256;
    EXPECT_EQ(bytes.substr(at, 92), Padded("Feltmaster Game File, Data Format 5.0", 92));
    EXPECT_EQ(NumberAt(bytes, at + 92, 4), -7);
    EXPECT_EQ(NumberAt(bytes, at + 96, 4), 41);
    const std::string path = record == 4 ? Path("out.txt") : record == 5 ? Path("default.glg") : "";
    EXPECT_EQ(bytes.substr(at + 100, 100), Padded(path, 100));
    EXPECT_EQ(bytes.substr(at + 208, 40), Padded("", 40));
  }
  const auto single = [&](int record, int position) {
    float value = 0;
    std::memcpy(&value, bytes.data() + (record - 1) * 256 + position * 4, sizeof value);
    return value;
  };
  const float table[] = {2, 41, -7, 600, 800};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(single(6, i), table[i]);
  const float totals[] = {1, 11, 12, 13, 14};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(single(7, 10 + i), totals[i]);
  for (int i = 0; i < 4; ++i) EXPECT_EQ(single(7, 55 + i), 21 + static_cast<float>(i));
  const float ryon[] = {1, 31, 32, 33, 34};
  for (int i = 0; i < 5; ++i) EXPECT_EQ(single(7, 59 + i), ryon[i]);

  ASSERT_TRUE(OpenGame(*other_, Path("default.crp"), false));
  EXPECT_EQ(other_->TablePlacement.width, 800);
  EXPECT_EQ(other_->TableWindowState, 2);
  EXPECT_TRUE(other_->PlacementOf(kRyonScreen).open);
  EXPECT_EQ(other_->PlacementOf(kFileScreen).height, 24);

  // Only the default game moves the screens, and no place is beyond reason.
  std::string wild = bytes;
  for (int position = 0; position < 128; ++position) {
    const float numbers[] = {NAN, INFINITY, -INFINITY, 1e30f};
    std::memcpy(wild.data() + 5 * 256 + position * 4, &numbers[position % 4], 4);
  }
  Write("wild.crp", wild);
  ASSERT_TRUE(OpenGame(*other_, Path("wild.crp"), false));
  EXPECT_EQ(other_->TablePlacement.width, 800);
  Write("default.crp", wild);
  ASSERT_TRUE(OpenGame(*other_, Path("default.crp"), false));
  EXPECT_EQ(other_->TableWindowState, 0);
  ASSERT_TRUE(SaveGame(*other_, Path("default.crp")));
  const std::string again = Bytes("default.crp");
  ASSERT_TRUE(OpenGame(*other_, Path("default.crp"), false));
  ASSERT_TRUE(SaveGame(*other_, Path("default.crp")));
  EXPECT_EQ(Bytes("default.crp"), again);
}

TEST_F(GameFileLayout, ChipsAndFlagsFollow) {
  for (int i = 0; i < 33; ++i) game_->ChipList.push_back({i, i % 6 + 1, 100 + i, -i});
  ASSERT_TRUE(SaveGame(*game_, Path("chips.crp")));
  EXPECT_EQ(Bytes("chips.crp").size(), kGameSize + 2 * 256);
  for (int i = 0; i < 130; ++i) {
    game_->ScriptFlags.push_back({"flag " + std::to_string(i), i % 3 == 0, true});
  }
  ASSERT_TRUE(SaveGame(*game_, Path("a.crp")));
  const std::string bytes = Bytes("a.crp");
  ASSERT_EQ(bytes.size(), kGameSize + 2 * 256 + 2 * 256);
  const auto integer = [&](std::size_t record, std::size_t position) {
    return NumberAt(bytes, (record - 1) * 256 + position * 2, 2);
  };
  EXPECT_EQ(NumberAt(bytes, 11 * 256 + 6 * 8, 8), 330'000);
  for (std::size_t i = 0; i < 33; ++i) {
    const std::size_t record = 572 + i / 32;
    EXPECT_EQ(integer(record, i % 32 * 4), static_cast<int>(i));
    EXPECT_EQ(integer(record, i % 32 * 4 + 1), static_cast<int>(i) % 6 + 1);
    EXPECT_EQ(integer(record, i % 32 * 4 + 2), 100 + static_cast<int>(i));
    EXPECT_EQ(integer(record, i % 32 * 4 + 3), -static_cast<int>(i));
  }
  for (std::size_t i = 0; i < 130; ++i) {
    EXPECT_EQ(integer(574 + i / 128, i % 128), i % 3 == 0 ? -1 : 0);
  }

  ASSERT_TRUE(OpenGame(*other_, Path("chips.crp"), false));
  ASSERT_EQ(other_->ChipList.size(), 33u);
  EXPECT_EQ(other_->ChipList[32].bet, 32);
  EXPECT_EQ(other_->ChipList[32].y, -32);
}

}  // namespace
}  // namespace feltmaster
