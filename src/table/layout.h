#pragma once

#include <array>
#include <span>

#include "engine/chip_list.h"
#include "game/bet_places.h"
#include "game/bets.h"
#include "game/game.h"

// The geometry of the table picture: where everything stands on its 640 by 440 pixels, and what
// lies under a pixel. Front ends that draw at another size scale the picture as a whole and scale
// the pointer back.
namespace feltmaster {

// The pixels from left to right and from top to bottom, right and bottom not included.
struct Box {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  constexpr int Width() const { return right - left; }
  constexpr int Height() const { return bottom - top; }
  constexpr bool Holds(Pixel at) const {
    return at.x >= left && at.x < right && at.y >= top && at.y < bottom;
  }
  constexpr bool Overlaps(const Box& other) const {
    return left < other.right && other.left < right && top < other.bottom && other.top < bottom;
  }
  constexpr bool operator==(const Box&) const = default;
};

// A square or box of the given size whose middle is at a place.
constexpr Box BoxAround(Pixel middle, int width, int height) {
  const int left = middle.x - width / 2;
  const int top = middle.y - height / 2;
  return {left, top, left + width, top + height};
}

// ---- The layout of the bets -------------------------------------------------------------------

// The felt with all bets; what is outside is the rail, but for the tray.
inline constexpr Box kFeltBox = {33, 5, 636, 405};

// The number grid: ten columns, and a row for each family.
inline constexpr int kGridLeft = 91;
inline constexpr int kGridColumnWidth = 41;
inline constexpr int kGridRight = kGridLeft + kSlotCount * kGridColumnWidth;  // 501
struct GridRow {
  int family;  // its first bet: kLay, kComePoint, kComeOdds or kPlace (which also holds kBuy)
  int top;
  int bottom;
};
inline constexpr std::array<GridRow, 4> kGridRows = {
    {{kLay, 52, 77}, {kComePoint, 77, 139}, {kComeOdds, 139, 152}, {kPlace, 152, 177}}};

inline constexpr Box kComeBoxBox = {kGridLeft, 177, kGridRight, 244};
// The Field is what of this box Big 6 and Big 8 leave.
inline constexpr Box kFieldBox = {136, 244, kGridRight, 348};
inline constexpr Box kCAndEBox = {446, 348, kGridRight, 375};

// The bands that come down on the left, turn round the corner of the table in a quarter circle and
// go on to the right: Pass Line Odds outside, then the Pass Line, then Big 6 and Big 8.
inline constexpr Pixel kCornerCentre = {156, 282};  // of the quarter circles
struct CornerBand {
  int inner;  // radii; the edge at the radius `inner` belongs to the band, that at `outer` does not
  int outer;
  int top;    // where the left part begins
  int right;  // where the lower part ends

  constexpr Box LeftPart() const {
    return {kCornerCentre.x - outer, top, kCornerCentre.x - inner, kCornerCentre.y};
  }
  constexpr Box LowerPart() const {
    return {kCornerCentre.x, kCornerCentre.y + inner, right, kCornerCentre.y + outer};
  }
  bool Holds(Pixel at) const;
};
inline constexpr CornerBand kPassOddsBand = {93, 120, 52, 452};
inline constexpr CornerBand kPassLineBand = {66, 93, 52, kCAndEBox.left};
// Big 6 and Big 8 part on the diagonal from the corner's centre to the lower left.
inline constexpr CornerBand kBigBand = {20, 66, 244, 194};

// The panel on the right: two columns, with the hard ways and props or with the Hop bets.
inline constexpr int kPanelLeft = 511;
inline constexpr int kPanelMiddle = 574;
inline constexpr int kPanelRight = 636;
inline constexpr int kPanelTop = 100;
struct PanelCell {
  int bet;
  Box box;
};
std::span<const PanelCell> PanelCells(bool hop_bets);

// The corner with the stick person, and the tray in which the dice rest: a press there brings in
// the other bets of the panel.
inline constexpr Box kStickCorner = {kPanelLeft, 5, kPanelRight, kPanelTop};
inline constexpr Box kDiceTray = {505, 375, kPanelRight, 436};
inline constexpr int kPanelSwitchBelow = 374;  // a press at a larger y is one on the tray

// A box around the whole region of a bet of the layout: its part in the grid, in the panel on show
// or not, on the felt. The bands of the corner give their left part for Big 6 and the lower part
// for the others.
Box BoxOfBet(int bet);

// ---- The rail: Chip-Stacks and tools ----------------------------------------------------------

// By pile, 1 to 4. The upper part selects the Chip-Stack as a tool.
inline constexpr std::array<Box, kPileCount + 1> kPileBox = {
    {{}, {3, 181, 29, 230}, {3, 130, 29, 179}, {3, 79, 29, 128}, {3, 28, 29, 77}}};

// What a press on a bet does: values of ChipColor.
enum Tool : std::int32_t {
  kNoTool = 0,
  kFirstChipTool = 1,  // 1 to 5 a chip
  kFirstPileTool = 7,  // 7 to 10 the Chip-Stack of pile 1 to 4
  kBuyTool = 89,
  kCallOffTool = 90,
  kCallOnTool = 91,
};
constexpr bool IsChipTool(int tool) {
  return tool >= kFirstChipTool && tool < kFirstChipTool + kChipCount;
}
constexpr bool IsPileTool(int tool) {
  return tool >= kFirstPileTool && tool < kFirstPileTool + kPileCount;
}

struct ToolPlace {
  int tool;
  Box box;
};
inline constexpr std::array<ToolPlace, 12> kToolStrip = {{
    {10, {4, 28, 29, 53}},
    {9, {4, 79, 29, 104}},
    {8, {4, 130, 29, 155}},
    {7, {4, 181, 29, 206}},
    {5, {4, 234, 29, 258}},
    {4, {4, 259, 29, 283}},
    {3, {4, 284, 29, 308}},
    {2, {4, 309, 29, 333}},
    {1, {4, 334, 29, 358}},
    {kBuyTool, {4, 359, 29, 383}},
    {kCallOffTool, {4, 384, 29, 408}},
    {kCallOnTool, {4, 409, 29, 433}},
}};

// The corner in which the selected tool is shown.
inline constexpr Box kSelectedToolBox = {44, 409, 68, 433};

// ---- What lies on the layout ------------------------------------------------------------------

// A chip is drawn with its middle at its place in ChipList (engine/chip_list.h).
inline constexpr int kChipSize = 22;

// Marks are discs; the pixel is the upper left corner of the disc.
inline constexpr int kMarkSize = 17;
Pixel VigMarkPlace(int bet);   // Buy and Lay marks
Pixel CallMarkPlace(int bet);  // ON and OFF marks
// The upper left corner of the figures, when bets are displayed as numbers.
Pixel NumberPlace(int bet);

// The puck, by its upper left corner: OFF with a point of 0.
inline constexpr int kPuckSize = 39;
constexpr Pixel PuckPlace(int point) {
  return point == 0 ? Pixel{58, 10} : Pixel{(point - point / 7) * 41 + 10, 10};
}

// Dice, by their upper left corners: at rest in the tray, and thrown without tumbling.
inline constexpr int kDieSize = 32;
inline constexpr std::array<Pixel, 2> kDiceRest = {{{539, 393}, {579, 393}}};
inline constexpr std::array<Pixel, 2> kDiceThrownInPlace = {{{539, 390}, {579, 390}}};

// The box for keyed-in amounts, when it stands over a place.
inline constexpr int kEntryBoxWidth = 60;
inline constexpr int kEntryBoxHeight = 22;
constexpr Box EntryBoxAt(Pixel place) {
  const int left = place.x - kChipSize / 2;
  const int top = place.y - kChipSize / 2;
  return {left, top, left + kEntryBoxWidth, top + kEntryBoxHeight};
}

// The sign of a Dice Roll File at work.
inline constexpr Box kRecorderBox = {452, 375, 505, 403};

// The prompt of a command that waits for a bet, and the banner of a script or Hyper-Drive at work:
// one line, centred on the layout, its top at y 188. Sizes of letters are in pixels of the picture.
inline constexpr Pixel kPromptTop = {kTableWidth / 2, 188};
inline constexpr int kPromptLetters = 40;

// The two status lines.
inline constexpr Box kStatusBox = {80, 408, 505, 434};
inline constexpr int kStatusLeftColumn = 80;
inline constexpr int kStatusRightColumn = 225;
inline constexpr int kStatusLineHeight = 13;
inline constexpr int kStatusLetters = 11;
inline constexpr int kStackLabelWidth = 292;  // a Chip-Stack's label is cut to this

// ---- What stands where in a game --------------------------------------------------------------

// Whether the panel on show hides a bet: the hard ways and props, or World, Over, Under and Hops.
bool HiddenByPanel(const Game& game, int bet);
// Whether the picture leaves out the chips, marks and figures of a bet: hidden by the panel, or a
// Place bet where a Buy bet stands.
bool NotShown(const Game& game, int bet);

// Values of HitBet beside bets, Chip-Stacks and tools.
enum HitArea : std::int32_t {
  kHitFelt = 0,
  kHitPanelCorner = 92,
  kHitRail = kRail,  // 93
  kHitLabel = 94,
  kHitRecorder = 200,
};

// What lies under a pixel. `bet` is the value of HitBet; `tool` is the tool that a press selects
// there, or kNoTool. The upper part of a Chip-Stack is both.
struct Hit {
  int bet = kHitFelt;
  int tool = kNoTool;
};
Hit HitTest(const Game& game, Pixel at);

}  // namespace feltmaster
