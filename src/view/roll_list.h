#pragma once

#include <string>
#include <vector>

#include "game/game.h"
#include "view/rows.h"

namespace feltmaster {

// The screen of the Dice Roll File in use.

// "Dice Roll Files", with the name of the file if there is one.
std::string RollFileCaption(const Game& game);

// The headers over the list.
Row RollListHeaders();

struct RollLine {
  Row Cells;                   // roll number, the two dice, their sum
  bool IsNext = false;         // white on blue
  bool IsSelected = false;     // on cyan
  bool IsHighlighted = false;  // in red, also on the next roll's line
};
// The visible lines from DiceRollTopLine on. The position behind the last roll has a line with its
// number alone.
std::vector<RollLine> RollLines(Game& game);

// The figures beside the list.
struct RollCounters {
  std::string Total;
  std::string Selected;
  std::string Last;
  std::string Next;
};
RollCounters CountersOfRolls(Game& game);

}  // namespace feltmaster
