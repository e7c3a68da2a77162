#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// The Chip-Stacks as their screen shows and edits them. A number entered here passes no limit of
// the table.

inline constexpr std::size_t kStackNameSize = 80;

// A cell of the list, on which the entry box can stand.
struct StackCell {
  int stack = 0;  // 0 to 99
  bool name = false;

  bool operator==(const StackCell&) const = default;
};

// What the entry box opens with; an amount of 0 is blank unless zeros are shown.
std::string StackCellText(const Game& game, const StackCell& cell);
// Enter in the box: an amount as typed, or a name, of which 80 bytes are kept.
void EnterStackCell(Game& game, const StackCell& cell, std::string_view text);

// The keys that move the box, over a list of which so many rows are seen; the list scrolls along.
enum class StackKey { kLeft, kRight, kUp, kDown, kPageUp, kPageDown };
StackCell MoveStackCell(Game& game, StackCell cell, StackKey key, int rows_shown);

// The three commands that clear; each asks first. True when it was done.
enum class StackClearing { kValuesAndNames, kAllValues, kAllNames };
bool ClearStacks(Game& game, StackClearing what);

// Sets which four Chip-Stacks lie on the table, from the bottom up, by their numbers, 0 to 99.
// Gives 0, or the box, 1 to 4, that repeats another; the player has been told and nothing changed.
int SetVisibleStacks(Game& game, const std::array<int, 4>& numbers);

void SetStackDisplayZero(Game& game, bool on);

}  // namespace feltmaster
