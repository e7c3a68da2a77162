#include "table/layout.h"

#include <algorithm>
#include <cstdlib>

namespace feltmaster {

namespace {

// ---- The panel --------------------------------------------------------------------------------

constexpr Box PanelBox(bool right_column, int top, int bottom) {
  return right_column ? Box{kPanelMiddle, top, kPanelRight, bottom}
                      : Box{kPanelLeft, top, kPanelMiddle, bottom};
}
constexpr Box WidePanelBox(int top, int bottom) {
  return {kPanelLeft, top, kPanelRight, bottom};
}

constexpr int kPanelBottom = 373;

constexpr std::array<PanelCell, 11> kPropCells = {{
    {kSeven, WidePanelBox(kPanelTop, 146)},
    {kCraps, WidePanelBox(146, 185)},
    {kHard4, PanelBox(false, 185, 224)},
    {kHard6, PanelBox(true, 185, 224)},
    {kHard10, PanelBox(false, 224, 263)},
    {kHard8, PanelBox(true, 224, 263)},
    {kThree, PanelBox(false, 263, 302)},
    {kTwo, PanelBox(true, 263, 302)},
    {kEleven, PanelBox(false, 302, 341)},
    {kTwelve, PanelBox(true, 302, 341)},
    {kHorn, WidePanelBox(341, kPanelBottom)},
}};

constexpr int kHopRowHeight = 25;
constexpr auto kHopCells = [] {
  constexpr int kRows[10][2] = {
      {kOver7, kUnder7}, {kHop13, kHop15}, {kHop22, kHop33}, {kHop14, kHop24}, {kHop23, kHop16},
      {kHop36, kHop25},  {kHop45, kHop34}, {kHop55, kHop44}, {kHop46, kHop26}, {kWorld, kHop35},
  };
  std::array<PanelCell, 20> cells{};
  for (int row = 0; row < 10; ++row) {
    const int top = kPanelTop + kHopRowHeight * row;
    for (int column = 0; column < 2; ++column) {
      const int bet = kRows[row][column];
      const int bottom = bet == kWorld ? kPanelBottom : top + kHopRowHeight;
      cells[static_cast<std::size_t>(2 * row + column)] = {bet, PanelBox(column == 1, top, bottom)};
    }
  }
  return cells;
}();

// Every bet's own place lies in its cell, and no two cells of a panel share a pixel.
template <std::size_t N>
constexpr bool CellsAreSound(const std::array<PanelCell, N>& cells) {
  for (std::size_t i = 0; i < N; ++i) {
    if (!cells[i].box.Holds(kBetPlace[static_cast<std::size_t>(cells[i].bet)])) return false;
    for (std::size_t j = 0; j < i; ++j) {
      if (cells[i].box.Overlaps(cells[j].box)) return false;
    }
  }
  return true;
}
static_assert(CellsAreSound(kPropCells) && CellsAreSound(kHopCells));

// ---- The grid ---------------------------------------------------------------------------------

static_assert(kGridRight == 501);
static_assert(kComeBoxBox.top == kGridRows.back().bottom);
static_assert(std::ranges::adjacent_find(kGridRows, [](const GridRow& upper, const GridRow& lower) {
                return upper.bottom != lower.top;
              }) == kGridRows.end());

constexpr const GridRow* RowOf(int bet) {
  for (const GridRow& row : kGridRows) {
    if (IsInFamily(bet, row.family)) return &row;
  }
  return nullptr;
}

constexpr Box GridBox(const GridRow& row, int slot) {
  const int left = kGridLeft + kGridColumnWidth * slot;
  return {left, row.top, left + kGridColumnWidth, row.bottom};
}

int GridBetAt(const Game& game, Pixel at) {
  if (at.x < kGridLeft || at.x >= kGridRight) return kHitFelt;
  const int slot = (at.x - kGridLeft) / kGridColumnWidth;
  for (const GridRow& row : kGridRows) {
    if (at.y < row.top || at.y >= row.bottom) continue;
    const bool bought = row.family == kPlace && game.BetAmount[kBuy + slot].Raw() != 0;
    return (bought ? kBuy : row.family) + slot;
  }
  return kHitFelt;
}

// ---- The rest of the felt ---------------------------------------------------------------------

int PanelBetAt(const Game& game, Pixel at) {
  for (const PanelCell& cell : PanelCells(game.ShowHopBets)) {
    if (cell.box.Holds(at)) return cell.bet;
  }
  return kHitFelt;
}

int CornerBetAt(Pixel at) {
  if (kPassLineBand.Holds(at)) return kPassLine;
  if (kPassOddsBand.Holds(at)) return kPassOdds;
  if (!kBigBand.Holds(at)) return kHitFelt;
  return at.y - kCornerCentre.y < kCornerCentre.x - at.x ? kBig6 : kBig8;
}

int CentreBetAt(Pixel at) {
  if (kComeBoxBox.Holds(at)) return kComeBox;
  if (kCAndEBox.Holds(at)) return kCAndE;
  const int corner_bet = CornerBetAt(at);
  if (corner_bet == kHitFelt && kFieldBox.Holds(at)) return kField;
  return corner_bet;
}

int FeltAt(const Game& game, Pixel at) {
  for (const int bet : {PanelBetAt(game, at), CentreBetAt(at), GridBetAt(game, at)}) {
    if (bet != kHitFelt) return bet;
  }
  return kHitFelt;
}

bool RecorderAtWork(const Game& game) {
  return game.DiceRollFileMode != kRecorderOff;
}

int BetAt(const Game& game, Pixel at) {
  for (int pile = 1; pile <= kPileCount; ++pile) {
    const auto index = static_cast<std::size_t>(pile);
    if (kPileBox[index].Holds(at)) return game.StackSlots[index];
  }
  if (kStickCorner.Holds(at) || kDiceTray.Holds(at)) return kHitPanelCorner;
  if (RecorderAtWork(game) && kRecorderBox.Holds(at)) return kHitRecorder;
  if (kFeltBox.Holds(at)) return FeltAt(game, at);
  return kStatusBox.Holds(at) ? kHitLabel : kHitRail;
}

int ToolAt(Pixel at) {
  for (const ToolPlace& place : kToolStrip) {
    if (place.box.Holds(at)) return place.tool;
  }
  return kNoTool;
}

constexpr Pixel Offset(Pixel place, int right, int down) {
  return {place.x + right, place.y + down};
}
constexpr Pixel PlaceOfBet(int bet) {
  return kBetPlace[static_cast<std::size_t>(bet)];
}

constexpr bool IsHopBet(int bet) {
  return bet >= kHop13 && bet <= kHop55;
}

}  // namespace

std::span<const PanelCell> PanelCells(bool hop_bets) {
  if (hop_bets) return kHopCells;
  return kPropCells;
}

bool CornerBand::Holds(Pixel at) const {
  if (LeftPart().Holds(at) || LowerPart().Holds(at)) return true;
  const int left = kCornerCentre.x - at.x;
  const int down = at.y - kCornerCentre.y;
  if (left <= 0 || down < 0) return false;
  const int square = left * left + down * down;
  return square >= inner * inner && square < outer * outer;
}

Box BoxOfBet(int bet) {
  const int in_grid = IsBuy(bet) ? bet - kBuy + kPlace : bet;
  if (const GridRow* row = RowOf(in_grid)) return GridBox(*row, in_grid - row->family);
  for (const bool hop_bets : {false, true}) {
    for (const PanelCell& cell : PanelCells(hop_bets)) {
      if (cell.bet == bet) return cell.box;
    }
  }
  switch (bet) {
    case kPassLine:
      return kPassLineBand.LowerPart();
    case kPassOdds:
      return kPassOddsBand.LowerPart();
    case kBig6:
      return kBigBand.LeftPart();
    case kBig8:
      return kBigBand.LowerPart();
    case kComeBox:
      return kComeBoxBox;
    case kField:
      return kFieldBox;
    case kCAndE:
      return kCAndEBox;
    default:
      return {};
  }
}

Pixel VigMarkPlace(int bet) {
  return Offset(PlaceOfBet(bet), 5, -6);
}

Pixel CallMarkPlace(int bet) {
  return Offset(PlaceOfBet(bet), -11, IsComeOdds(bet) ? -6 : -11);
}

Pixel NumberPlace(int bet) {
  int lower = -6;
  if (IsComePoint(bet)) lower -= 3;
  if (IsComeOdds(bet)) lower -= 7;  // above those of its Come bet
  if (IsHopBet(bet)) lower += 8;
  return Offset(PlaceOfBet(bet), -10, lower);
}

bool HiddenByPanel(const Game& game, int bet) {
  const bool of_props = bet >= kHard4 && bet <= kHorn && bet != kCAndE;
  const bool of_hops = bet >= kWorld && bet <= kHop55;
  return game.ShowHopBets ? of_props : of_hops;
}

bool NotShown(const Game& game, int bet) {
  const bool bought = IsPlace(bet) && game.BetAmount[bet - kPlace + kBuy].Raw() != 0;
  return bought || HiddenByPanel(game, bet);
}

Hit HitTest(const Game& game, Pixel at) {
  const int tool = ToolAt(at);
  return {tool >= kBuyTool ? tool : BetAt(game, at), tool};
}

}  // namespace feltmaster
