#include "dice/roll_panel.h"

#include <algorithm>
#include <cstdlib>

#include "automation/table_guards.h"
#include "base/number_format.h"
#include "engine/roll_cycle.h"
#include "stats/roll_statistics.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kRollCounterHeight = 14;
constexpr std::int32_t kFaces = 6;

enum StateBit : std::int32_t {
  kFacesBit = 8,
  kRollCounterBit = 8,  // with any display but that of the faces
  kHyperDriveBit = 16,
  kRandomBit = 32,
  kRollCounterOfFacesBit = 64,
};
constexpr std::int32_t BitOf(PanelDisplay display) {
  return 1 << static_cast<int>(display);
}
static_assert(BitOf(PanelDisplay::kFaces) == kFacesBit);

struct Grid {
  std::int32_t rows;
  std::int32_t columns;
};
// By display and shape: wide, tall, block.
constexpr Grid kGrids[4][3] = {{{1, 11}, {11, 1}, {3, 5}},
                               {{6, 11}, {11, 6}, {11, 6}},
                               {{6, 6}, {6, 6}, {6, 6}},
                               {{2, 6}, {6, 2}, {6, 2}}};

constexpr Grid GridOf(PanelDisplay display, PanelShape shape) {
  return kGrids[static_cast<std::size_t>(display)][static_cast<std::size_t>(shape)];
}

PanelShape ShapeOf(PanelDisplay display, const PanelSize& size) {
  const bool wide = std::int64_t{2} * size.Height < size.Width;
  const bool tall = std::int64_t{2} * size.Width < size.Height;
  switch (display) {
    case PanelDisplay::kTotals:
      if (wide) return PanelShape::kWide;
      return tall ? PanelShape::kTall : PanelShape::kBlock;
    case PanelDisplay::kTriangle:
      return wide ? PanelShape::kWide : PanelShape::kTall;
    case PanelDisplay::kBox:
      return PanelShape::kBlock;
    case PanelDisplay::kFaces:
      break;
  }
  return size.Width > size.Height ? PanelShape::kWide : PanelShape::kTall;
}

// What a cell stands for: a total, two dice, or a face of one die. Nothing is 0.
struct Meaning {
  std::int32_t total = 0;
  Dice dice;
  std::int32_t die = 0;  // 1 the first, 2 the second
  std::int32_t face = 0;
};

// Along the long side of a single line of totals only the place in the line counts.
std::int32_t TotalOfCell(PanelShape shape, std::int32_t row, std::int32_t column) {
  constexpr std::int32_t kTotals = 11;
  if (shape == PanelShape::kWide) return column <= kTotals ? column + 1 : 0;
  if (shape == PanelShape::kTall) return row <= kTotals ? row + 1 : 0;
  if (row > 3 || column > 5) return 0;
  if (row == 2) return 7;
  return row == 1 ? column + 1 : column + 7;
}

// A line of the triangle holds the combinations of one total.
Dice DiceOfTriangle(std::int32_t line, std::int32_t place) {
  const Dice dice =
      line <= kFaces ? Dice{line - place + 1, place} : Dice{7 - place, place + line - kFaces};
  return dice.AreGood() ? dice : Dice{};
}

Meaning MeaningOf(PanelDisplay display, PanelShape shape, std::int32_t row, std::int32_t column) {
  Meaning meaning;
  const bool wide = shape == PanelShape::kWide;
  switch (display) {
    case PanelDisplay::kTotals:
      meaning.total = TotalOfCell(shape, row, column);
      break;
    case PanelDisplay::kTriangle:
      meaning.dice = wide ? DiceOfTriangle(column, row) : DiceOfTriangle(row, column);
      break;
    case PanelDisplay::kBox:
      if (row <= kFaces && column <= kFaces) meaning.dice = {row, column};
      break;
    case PanelDisplay::kFaces: {
      const std::int32_t die = wide ? row : column;
      const std::int32_t face = wide ? column : row;
      if (die <= 2 && face <= kFaces) {
        meaning.die = die;
        meaning.face = face;
      }
    }
  }
  return meaning;
}

// Each combination of the total has the same chance. Not the game's generator: a seed of that does
// not depend on what the player picks.
Dice DrawTotal(Surface& surface, std::int32_t total) {
  const std::int32_t combinations = kFaces - std::abs(7 - total);
  const std::int32_t lowest = std::max(1, total - kFaces);
  const std::int32_t above =
      combinations == 1 ? 0 : static_cast<std::int32_t>(combinations * surface.PlainUniform());
  return {lowest + above, total - lowest - above};
}

Dice ChooseFace(RollPanel& panel, std::int32_t die, std::int32_t face) {
  (die == 1 ? panel.FirstFaceChosen : panel.SecondFaceChosen) = face;
  if (panel.FirstFaceChosen == 0 || panel.SecondFaceChosen == 0) return {};
  const Dice dice = {panel.FirstFaceChosen, panel.SecondFaceChosen};
  panel.FirstFaceChosen = panel.SecondFaceChosen = 0;
  return dice;
}

constexpr std::int32_t kLightGray = 0xC0C0C0;
// By colour scheme and by the distance of the total from 7.
constexpr std::int32_t kTotalColors[3][6] = {
    {0xFFFF00, 0x0000FF, 0xFF4040, 0x00FFFF, 0xFF00FF, 0x00FF00},
    {0x0000FF, 0xFFFF00, 0x0000FF, 0xFFFF00, 0x0000FF, 0xFFFF00},
    {kLightGray, kLightGray, kLightGray, kLightGray, kLightGray, kLightGray}};
constexpr std::int32_t kFaceColors[6] = {0x00FF00, 0xFF00FF, 0x00FFFF,
                                         0xFF4040, 0xFFFF00, 0x0000FF};
constexpr std::int32_t kDieColors[2] = {0xFFFF00, 0x0000FF};

std::int32_t ColorOf(const Game& game, const Meaning& meaning) {
  const bool known = game.RyonButtonColor >= 0 && game.RyonButtonColor < 3;
  const auto scheme = static_cast<std::size_t>(known ? game.RyonButtonColor : 0);
  if (meaning.face == 0) {
    const std::int32_t total = meaning.total != 0 ? meaning.total : meaning.dice.Total();
    return kTotalColors[scheme][std::abs(7 - total)];
  }
  if (scheme == 0) return kFaceColors[meaning.face - 1];
  return scheme == 1 ? kDieColors[meaning.die - 1] : kLightGray;
}

std::string LabelOf(const Meaning& meaning) {
  if (meaning.total != 0) return std::to_string(meaning.total);
  if (meaning.face != 0) return std::to_string(meaning.face);
  return std::to_string(meaning.dice.Die1) + '-' + std::to_string(meaning.dice.Die2);
}

bool IsMarked(const Game& game, const RollPanel& panel, const Meaning& meaning) {
  if (meaning.total != 0) return meaning.total == game.Die1 + game.Die2;
  if (meaning.face == 0) {
    return meaning.dice.Die1 == game.Die1 && meaning.dice.Die2 == game.Die2;
  }
  return meaning.die == 1 ? meaning.face == game.Die1 || meaning.face == panel.FirstFaceChosen
                          : meaning.face == game.Die2 || meaning.face == panel.SecondFaceChosen;
}

}  // namespace

RollPanel RollPanelOf(std::int32_t state) {
  RollPanel panel;
  for (std::size_t i = 0; i < kPanelDisplayCaptions.size(); ++i) {
    const auto display = static_cast<PanelDisplay>(i);
    if ((state & BitOf(display)) == 0) continue;
    panel.Display = display;
    const bool faces = display == PanelDisplay::kFaces;
    panel.RollCounter = (state & (faces ? kRollCounterOfFacesBit : kRollCounterBit)) != 0;
    panel.HyperDriveButton = (state & kHyperDriveBit) != 0;
    panel.RandomButton = (state & kRandomBit) != 0;
    return panel;
  }
  panel.Display = PanelDisplay::kTriangle;
  return panel;
}

std::int32_t StateOf(const RollPanel& panel) {
  const bool faces = panel.Display == PanelDisplay::kFaces;
  std::int32_t state = BitOf(panel.Display);
  if (panel.RollCounter) state += faces ? kRollCounterOfFacesBit : kRollCounterBit;
  if (panel.HyperDriveButton) state += kHyperDriveBit;
  if (panel.RandomButton) state += kRandomBit;
  return state;
}

PanelLayout LayOutPanel(const RollPanel& panel, const PanelSize& size) {
  PanelLayout layout;
  layout.Shape = ShapeOf(panel.Display, size);
  const Grid grid = GridOf(panel.Display, layout.Shape);
  const std::int32_t rows =
      grid.rows + (panel.HyperDriveButton ? 1 : 0) + (panel.RandomButton ? 1 : 0);
  std::int32_t& margin = layout.RyonTopMargin;
  if (panel.RollCounter) margin = kRollCounterHeight;
  layout.RyonCellWidth = std::max(size.InnerWidth / grid.columns, 1);
  layout.RyonCellHeight = std::max((size.InnerHeight - margin) / rows, 1);
  if (panel.HyperDriveButton) {
    layout.HyperDriveTop = margin;
    margin += layout.RyonCellHeight;
  }
  if (panel.RandomButton) {
    layout.RandomTop = margin;
    margin += layout.RyonCellHeight;
  }
  return layout;
}

bool PickOnPanel(Game& game, RollPanel& panel, const PanelLayout& layout, std::int32_t x,
                 std::int32_t y) {
  if (x < 0 || y < layout.RyonTopMargin) return false;
  const std::int32_t row = (y - layout.RyonTopMargin) / layout.RyonCellHeight + 1;
  const std::int32_t column = x / layout.RyonCellWidth + 1;
  const Meaning meaning = MeaningOf(panel.Display, layout.Shape, row, column);
  Dice dice = meaning.dice;
  if (meaning.total != 0) dice = DrawTotal(*game.surface, meaning.total);
  if (meaning.face != 0) dice = ChooseFace(panel, meaning.die, meaning.face);
  if (!dice.AreGood()) return false;
  game.Die1 = dice.Die1;
  game.Die2 = dice.Die2;
  return true;
}

void RollPickedDice(Game& game) {
  game.DiceAlreadySet = true;
  RollCycle(game);
}

void PressRandomRoll(Game& game) {
  if (TableListens(game)) RollCycle(game);
}

std::string_view HyperDriveCaption(const Game& game) {
  return game.HyperDriveActive ? "Stop Hyper-&Drive" : "Start Hyper-&Drive";
}

std::vector<RollCell> RollCells(const Game& game, const RollPanel& panel,
                                const PanelLayout& layout) {
  constexpr std::int32_t kInsetBefore = 2;
  constexpr std::int32_t kInsetBehind = 3;
  std::vector<RollCell> cells;
  const Grid grid = GridOf(panel.Display, layout.Shape);
  for (std::int32_t row = 1; row <= grid.rows; ++row) {
    for (std::int32_t column = 1; column <= grid.columns; ++column) {
      const Meaning meaning = MeaningOf(panel.Display, layout.Shape, row, column);
      if (meaning.total == 0 && meaning.face == 0 && !meaning.dice.AreGood()) continue;
      // The 7 of the block of totals has a row of its own.
      const bool whole_row = meaning.total == 7 && layout.Shape == PanelShape::kBlock;
      RollCell cell;
      cell.Left = (column - 1) * layout.RyonCellWidth + kInsetBefore;
      cell.Top = layout.RyonTopMargin + (row - 1) * layout.RyonCellHeight + kInsetBefore;
      cell.Width =
          layout.RyonCellWidth * (whole_row ? grid.columns : 1) - kInsetBefore - kInsetBehind;
      cell.Height = layout.RyonCellHeight - kInsetBefore - kInsetBehind;
      cell.Label = LabelOf(meaning);
      cell.Color = ColorOf(game, meaning);
      cell.IsMarked = IsMarked(game, panel, meaning);
      cells.push_back(std::move(cell));
      if (whole_row) break;
    }
  }
  return cells;
}

std::string_view WidestPanelLabel(PanelDisplay display) {
  switch (display) {
    case PanelDisplay::kTotals:
      return "12";
    case PanelDisplay::kFaces:
      return "6";
    default:
      return "6-6";
  }
}

std::string RollCounterText(const Game& game) {
  return FormatNumber(std::int64_t{RollCounts(game, 0)}, "#,#0");
}

void ClosePanel(Game& game) {
  game.RollYourOwnNumbers = false;
  game.PlacementOf(kRyonScreen).open = false;
  game.GameChanged = true;
}

}  // namespace feltmaster
