#include "table/key_walk.h"

#include <algorithm>
#include <array>

#include "table/layout.h"

namespace feltmaster {

namespace {

// Where a step leads: a bet, or one of these.
enum Goal : std::int8_t {
  kStay = 0,
  kChip = -1,     // the Chip-Stack last left; the way back is kept as LastPanelBet
  kChipRow = -2,  // the same, and the way back is kept as LastGridRow
  kLayColumn = -3,
  kPlaceColumn = -4,
  // The end of the row last walked, or this bet when none was.
  kRowEnd10 = -10,
  kRowEnd20 = -20,
  kRowEnd40 = -40,
};

struct Step {
  std::int8_t bet;
  std::array<std::int8_t, 4> goal;  // by Arrow
  std::int8_t hop_right = 0;        // to the right while the Hop bets are on show
};

// The walk outside the grid and the Chip-Stacks, from bet 51 on.
constexpr std::array<Step, kBetCount - kPassLine + 1> kSteps = {{
    {kPassLine, {kChipRow, kCAndE, kField, kPassOdds}},
    {kPassOdds, {kChipRow, kCAndE, kPassLine, kLayColumn}},
    {kComeBox, {kChipRow, kHard10, kPlaceColumn, kField}, kHop36},
    {kField, {kBig8, kThree, kComeBox, kPassLine}, kHop55},
    {kBig6, {kChipRow, kBig8, kComeBox, kBig8}},
    {kBig8, {kBig6, kField, kBig6, kPassLine}},
    {kHard4, {kComeBox, kHard6, kCraps, kHard10}},
    {kHard6, {kHard4, kChip, kCraps, kHard8}},
    {kHard8, {kHard10, kChip, kHard6, kTwo}},
    {kHard10, {kComeBox, kHard8, kHard4, kThree}},
    {kTwo, {kThree, kChip, kHard8, kTwelve}},
    {kThree, {kField, kTwo, kHard10, kEleven}},
    {kSeven, {kRowEnd10, kChip, kHorn, kCraps}},
    {kEleven, {kField, kTwelve, kThree, kHorn}},
    {kTwelve, {kEleven, kChip, kTwo, kHorn}},
    {kCraps, {kRowEnd40, kChip, kSeven, kHard4}},
    {kCAndE, {kPassLine, kHorn, kStay, kStay}, kWorld},
    {kHorn, {kCAndE, kChip, kEleven, kSeven}},
    {kWorld, {kCAndE, kHop35, kHop46, kOver7}},
    {kOver7, {kRowEnd10, kUnder7, kWorld, kHop13}},
    {kUnder7, {kOver7, kChip, kHop35, kHop15}},
    {kHop13, {kRowEnd20, kHop15, kOver7, kHop22}},
    {kHop14, {kComeBox, kHop24, kHop22, kHop23}},
    {kHop15, {kHop13, kChip, kUnder7, kHop33}},
    {kHop16, {kHop23, kChip, kHop24, kHop25}},
    {kHop22, {kRowEnd40, kHop33, kHop13, kHop14}},
    {kHop23, {kComeBox, kHop16, kHop14, kHop36}},
    {kHop24, {kHop14, kChip, kHop33, kHop16}},
    {kHop25, {kHop36, kChip, kHop16, kHop34}},
    {kHop26, {kHop46, kChip, kHop44, kHop35}},
    {kHop33, {kHop22, kChip, kHop15, kHop24}},
    {kHop34, {kHop45, kChip, kHop25, kHop44}},
    {kHop35, {kWorld, kChip, kHop26, kUnder7}},
    {kHop36, {kComeBox, kHop25, kHop23, kHop45}},
    {kHop44, {kHop55, kChip, kHop34, kHop26}},
    {kHop45, {kField, kHop34, kHop36, kHop55}},
    {kHop46, {kField, kHop26, kHop55, kWorld}},
    {kHop55, {kField, kHop44, kHop45, kHop46}},
}};
static_assert([] {
  int bet = kPassLine;
  for (const Step& step : kSteps) {
    if (step.bet != bet++) return false;
  }
  return true;
}());

int FirstOfRow(int bet) {
  return (bet - 1) / kSlotCount * kSlotCount + 1;
}

int PileOnTable(const Game& game) {
  return std::max(PileOfStack(game, game.LastStackBet), 1);
}
// The pile that the walk left last; another one may stand there since.
int StackLastLeft(const Game& game) {
  return game.StackSlots[static_cast<std::size_t>(PileOnTable(game))];
}

int ColumnLastLeft(const Game& game) {
  const int ten = SlotOfNumber(10) + 1;
  return game.LastGridColumn >= 1 && game.LastGridColumn <= kSlotCount ? game.LastGridColumn : ten;
}

int WalkTo(Game& game, int from, int goal) {
  switch (goal) {
    case kStay:
      return from;
    case kChip:
      game.LastPanelBet = from;
      return StackLastLeft(game);
    case kChipRow:
      game.LastGridRow = from;
      return StackLastLeft(game);
    case kLayColumn:
      return kLay - 1 + ColumnLastLeft(game);
    case kPlaceColumn:
      return kPlace - 1 + ColumnLastLeft(game);
    case kRowEnd10:
    case kRowEnd20:
    case kRowEnd40:
      return game.LastGridRow < kPassLine ? game.LastGridRow + kSlotCount - 1 : -goal;
    default:
      return goal;
  }
}

int EnterPanel(const Game& game, int row) {
  if (game.ShowHopBets) return row == kComePoint ? kHop13 : row == kPlace ? kHop22 : kOver7;
  return row == kComePoint || row == kPlace ? kCraps : kSeven;
}

// In the number grid, whose bets are 1 to 40.
int WalkGrid(Game& game, int bet, Arrow arrow) {
  const int row = FirstOfRow(bet);
  const int slot = bet - row;
  switch (arrow) {
    case Arrow::kLeft:
      game.LastGridRow = row;
      return slot == 0 ? StackLastLeft(game) : bet - 1;
    case Arrow::kRight:
      game.LastGridRow = row;
      return slot == kSlotCount - 1 ? EnterPanel(game, row) : bet + 1;
    case Arrow::kUp:
      if (row == kLay) game.LastGridColumn = slot + 1;
      return row == kLay         ? kPassOdds
             : row == kComePoint ? kComeOdds + slot
             : row == kComeOdds  ? kLay + slot
                                 : kComePoint + slot;
    case Arrow::kDown:
      if (row == kPlace) game.LastGridColumn = slot + 1;
      return row == kLay         ? kComeOdds + slot
             : row == kComePoint ? kPlace + slot
             : row == kComeOdds  ? kComePoint + slot
                                 : kComeBox;
  }
  return bet;
}

// The neighbours on the two panels, where the walk comes back to the panel on show.
struct PanelPair {
  int prop;
  int hop;
  int hop_back;  // another Hop bet that leads to the same prop, or 0
};
constexpr std::array<PanelPair, 7> kPanelPairs = {{
    {kSeven, kUnder7, kHop15},
    {kCraps, kHop33, 0},
    {kHard6, kHop16, kHop24},
    {kHard8, kHop25, 0},
    {kTwo, kHop34, kHop44},
    {kTwelve, kHop26, 0},
    {kHorn, kHop35, 0},
}};

int PanelBetLastLeft(const Game& game) {
  const int last = game.LastPanelBet;
  for (const PanelPair& pair : kPanelPairs) {
    if (game.ShowHopBets && last == pair.prop) return pair.hop;
    if (!game.ShowHopBets && (last == pair.hop || last == pair.hop_back)) return pair.prop;
  }
  return last;
}

int WalkStacks(Game& game, int stack, Arrow arrow) {
  const int pile = PileOfStack(game, stack);
  const auto next = [&](int step) {
    const int other = (pile - 1 + step + kPileCount) % kPileCount + 1;
    return game.StackSlots[static_cast<std::size_t>(other)];
  };
  switch (arrow) {
    case Arrow::kUp:
      return next(1);
    case Arrow::kDown:
      return next(-1);
    case Arrow::kLeft:
      game.LastStackBet = stack;
      return PanelBetLastLeft(game);
    case Arrow::kRight:
      game.LastStackBet = stack;
      return game.LastGridRow;
  }
  return stack;
}

}  // namespace

int WalkFrom(Game& game, int slot, Arrow arrow) {
  if (IsBuy(slot)) slot -= kBuy - kPlace;
  int next = slot;
  if (PileOfStack(game, slot) != 0) {
    next = WalkStacks(game, slot, arrow);
  } else if (slot >= kLay && slot < kBuy) {
    next = WalkGrid(game, slot, arrow);
  } else if (slot >= kPassLine && slot <= kBetCount) {
    const Step& step = kSteps[static_cast<std::size_t>(slot - kPassLine)];
    const bool hop = arrow == Arrow::kRight && game.ShowHopBets && step.hop_right != 0;
    next = WalkTo(game, slot, hop ? step.hop_right : step.goal[static_cast<std::size_t>(arrow)]);
  }
  const int buy = next - kPlace + kBuy;
  return IsPlace(next) && game.BetAmount[buy].Raw() != 0 ? buy : next;
}

}  // namespace feltmaster
