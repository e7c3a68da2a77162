#include "engine/chip_stacks.h"

#include <algorithm>

#include "autobet/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "engine/chip_list.h"
#include "engine/table_effects.h"

namespace feltmaster {

namespace {

// What has changed of one or all of them.
void ShowStacks(Game& game, std::uint32_t what) {
  game.GameChanged = true;
  ShowTableChange(game, what | kChangedStatus);
  game.surface->RefreshOpenScreens();
}

struct ClearingQuestion {
  std::string_view title;
  std::string_view text;
  bool values;
  bool names;
};
// By StackClearing.
constexpr std::array<ClearingQuestion, 3> kClearings = {{
    {"Delete All Values and Names",
     "Are you sure you want to set all Chip-Stack values to zero and delete all names?", true,
     true},
    {"Delete All Values", "Are you sure you want to set all Chip-Stack values to zero?", true,
     false},
    {"Delete All Names", "Are you sure you want to delete all Chip-Stack names?", false, true},
}};

void RebuildPiles(Game& game) {
  for (int pile = 1; pile <= kPileCount; ++pile) {
    RebuildChips(game, game.StackSlots[static_cast<std::size_t>(pile)]);
  }
}

// The second of two boxes with the same number, 0 when all differ.
int RepeatedBox(const std::array<int, 4>& numbers) {
  for (std::size_t first = 0; first < numbers.size(); ++first) {
    for (std::size_t second = first + 1; second < numbers.size(); ++second) {
      if (numbers[first] == numbers[second]) return static_cast<int>(second) + 1;
    }
  }
  return 0;
}

std::string& NameOf(Game& game, int stack) {
  return game.ChipStackName[static_cast<std::size_t>(stack)];
}

}  // namespace

std::string StackCellText(const Game& game, const StackCell& cell) {
  if (cell.name) return game.ChipStackName[static_cast<std::size_t>(cell.stack)];
  const MoneyAmount amount = game.BetAmount[kFirstStack + cell.stack];
  return amount.Raw() == 0 && !game.StackDisplayZero ? std::string() : PlainNumber(amount);
}

void EnterStackCell(Game& game, const StackCell& cell, std::string_view text) {
  if (cell.name) {
    NameOf(game, cell.stack) = CutAtCharacter(text, kStackNameSize);
  } else {
    game.BetAmount.Set(kFirstStack + cell.stack, ParseMoney(text));
    RebuildChips(game, kFirstStack + cell.stack);
  }
  ShowStacks(game, cell.name ? 0 : kChangedAmounts | kChangedChips);
}

StackCell MoveStackCell(Game& game, StackCell cell, StackKey key, int rows_shown) {
  const int page = std::max(rows_shown, 1);
  int rows = 0;
  switch (key) {
    case StackKey::kLeft:
    case StackKey::kRight:
      cell.name = key == StackKey::kRight;
      break;
    case StackKey::kUp:
    case StackKey::kDown:
      rows = key == StackKey::kUp ? -1 : 1;
      break;
    case StackKey::kPageUp:
    case StackKey::kPageDown:
      rows = key == StackKey::kPageUp ? -page : page;
      break;
  }
  cell.stack = std::clamp(cell.stack + rows, 0, kStackCount - 1);
  game.StackListScroll =
      std::clamp(game.StackListScroll, std::max(0, cell.stack - page + 1), cell.stack);
  return cell;
}

bool ClearStacks(Game& game, StackClearing what) {
  const ClearingQuestion& question = kClearings[static_cast<std::size_t>(what)];
  if (!AskYesNo(game, std::string(question.title), std::string(question.text),
                kButtonYes | kButtonNo | kPictureQuestion | kDefaultNo)) {
    return false;
  }
  for (int stack = 0; stack < kStackCount; ++stack) {
    if (question.values) game.BetAmount.Set(kFirstStack + stack, {});
    if (question.names) NameOf(game, stack).clear();
  }
  if (question.values) RebuildPiles(game);
  ShowStacks(game, question.values ? kChangedAmounts | kChangedChips : 0);
  return true;
}

int SetVisibleStacks(Game& game, const std::array<int, 4>& numbers) {
  if (const int box = RepeatedBox(numbers); box != 0) {
    Tell(game, "Set Visible Chip-Stacks", "Each Chip-Stack entry should be a different number.");
    return box;
  }
  std::erase_if(game.ChipList,
                [&](const TableChip& chip) { return PileOfStack(game, chip.bet) != 0; });
  for (std::size_t pile = 1; pile < game.StackSlots.size(); ++pile) {
    const int number = numbers[pile - 1];
    game.StackSlots[pile] = kFirstStack + number;
    game.StackPileName[pile] = "Chip-Stack #" + std::to_string(number);
  }
  RebuildPiles(game);
  game.RedrawTable = true;
  ShowStacks(game, kChangedAll);
  return 0;
}

void SetStackDisplayZero(Game& game, bool on) {
  game.StackDisplayZero = on;
  game.surface->RefreshOpenScreens();
}

}  // namespace feltmaster
