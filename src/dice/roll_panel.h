#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "game/dice.h"
#include "game/game.h"

namespace feltmaster {

// The panel "Dice Rolls", on which the player picks the next roll instead of drawing it. All places
// and sizes are pixels of the panel.

enum class PanelDisplay : std::uint8_t {
  kTotals,    // the totals 2 to 12
  kTriangle,  // the ordered combinations, by total
  kBox,       // six by six, first die by second die
  kFaces,     // six faces for each die
};
inline constexpr std::array<std::string_view, 4> kPanelDisplayCaptions = {
    "&11 Standard Numbers", "&36 Combos (triangle)", "&36 Combos (box)", "&Individual Dice Faces"};
inline constexpr std::array<std::string_view, 3> kPanelColorCaptions = {"&Multi-color",
                                                                        "&Red and Cyan", "&Gray"};

struct RollPanel {
  PanelDisplay Display = PanelDisplay::kBox;
  bool RollCounter = false;
  bool HyperDriveButton = false;
  bool RandomButton = false;
  // Picked so far where each die is picked by itself; 0 for none.
  std::int32_t FirstFaceChosen = 0;
  std::int32_t SecondFaceChosen = 0;
};
// RyonPanelState, the word in which a game keeps the display and the options: 1, 2, 4 and 8 are the
// displays, 16 the Hyper-Drive button, 32 the Random button. The Roll Counter is 8, or 64 with the
// fourth display. A word without a display opens the triangle without any option.
RollPanel RollPanelOf(std::int32_t state);
std::int32_t StateOf(const RollPanel& panel);

struct PanelSize {
  std::int32_t Width = 0;  // of the window with its frame
  std::int32_t Height = 0;
  std::int32_t InnerWidth = 0;
  std::int32_t InnerHeight = 0;
};

enum class PanelShape : std::uint8_t { kWide, kTall, kBlock };

// What stands where, from the top: Roll Counter, Hyper-Drive button, Random button, cells.
struct PanelLayout {
  PanelShape Shape = PanelShape::kBlock;
  std::int32_t RyonTopMargin = 0;  // height of what stands above the cells
  std::int32_t RyonCellWidth = 1;
  std::int32_t RyonCellHeight = 1;
  // Each button has the whole inner width and the height of a cell.
  std::optional<std::int32_t> HyperDriveTop;
  std::optional<std::int32_t> RandomTop;
};
PanelLayout LayOutPanel(const RollPanel& panel, const PanelSize& size);

// A press of the left or middle button. True when it has made Die1 and Die2; the panel is then to
// be painted, and RollPickedDice plays them.
bool PickOnPanel(Game& game, RollPanel& panel, const PanelLayout& layout, std::int32_t x,
                 std::int32_t y);
// While something rolls already, the dice are those of its next roll.
void RollPickedDice(Game& game);
// The Random button: a roll of the generator, or the question whether to stop what runs.
void PressRandomRoll(Game& game);
std::string_view HyperDriveCaption(const Game& game);

// A cell as it is painted: the fill, its label in the middle, and a border two pixels wide when it
// shows the last roll or a face chosen.
struct RollCell {
  std::int32_t Left = 0;
  std::int32_t Top = 0;
  std::int32_t Width = 0;
  std::int32_t Height = 0;
  std::string Label;
  std::int32_t Color = 0;  // 0xBBGGRR
  bool IsMarked = false;
};
std::vector<RollCell> RollCells(const Game& game, const RollPanel& panel,
                                const PanelLayout& layout);
// The label by which the size of the font is found: it starts at the cell's height less 6, is at
// least 4, and falls until this is narrower than the cell's width less 6.
std::string_view WidestPanelLabel(PanelDisplay display);
// The Roll Counter's text: white, size 9, on a strip 14 high and 99 wide at the top left.
std::string RollCounterText(const Game& game);

// Hides the panel.
void ClosePanel(Game& game);

}  // namespace feltmaster
