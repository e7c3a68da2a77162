#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "game/game.h"
#include "table/layout.h"
#include "view/status_lines.h"

namespace feltmaster {

// What stands on the layout, as a list of things to paint in their order. A front end that keeps
// the last list knows from a new one which places of the picture have changed.

// A die as it lies on the table or flies over it.
struct DieOnTable {
  Pixel at;  // its upper left corner
  int face = 1;
  int turn = 0;    // degrees
  int height = 0;  // over the cloth, in hundredths of the highest

  bool operator==(const DieOnTable&) const = default;
};

// What the picture shows that is not part of the game.
struct TableView {
  std::string banner;  // of a script or Hyper-Drive at work
  std::array<DieOnTable, 2> dice;
  bool entry_box_is_a_window = false;  // a text field of the window stands for the painted box
};

std::array<DieOnTable, 2> DiceAtRest(const Game& game);

// The words of a command that waits for a press on a bet; empty for none. Of CallBetMode.
std::string_view PromptOf(int call_bet_mode);

enum class SpriteKind {
  kPuck,         // value: the point
  kChip,         // value: 1 to 5, or 6 for the marker
  kFigures,      // an amount on a label; `at` is its upper left corner
  kPileFigures,  // the amount of a Chip-Stack; `at` is the middle of the label
  kMark,         // value: a MarkValue
  kDie,          // value: the face
  kTool,         // value: the selected tool
  kRecorder,     // value: a DiceRollMode
  kPrompt,
  kStatusLine,  // `at` is the upper left corner
  kEntryBox,    // `at` is the place of its bet
};
enum MarkValue : int { kMarkOn, kMarkOff, kMarkBuy, kMarkLay };

struct Sprite {
  SpriteKind kind = SpriteKind::kPuck;
  Pixel at;
  int value = 0;
  int turn = 0;
  int height = 0;
  StatusLine text = {};

  bool operator==(const Sprite&) const = default;
};
using Scene = std::vector<Sprite>;

Scene SceneOf(const Game& game, const TableView& view);

}  // namespace feltmaster
