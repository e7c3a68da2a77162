#pragma once

#include <array>
#include <optional>

#include "game/bet_places.h"
#include "game/game.h"

namespace feltmaster {

// The chips as they lie on the picture of the table (ChipList). Nothing here does anything in
// Hyper-Drive; when it ends, all chips are laid anew.

inline constexpr int kMostChipsOfStack = 12;
inline constexpr std::int32_t kMarkerChip = 6;
inline constexpr int kChipStep = 3;  // pixels by which each chip of a stack lies to the right
inline constexpr std::size_t kFullChipList = 900;

// The chips that show an amount, largest first, or kMarkerChip alone for one that they cannot show:
// below 0, with a rest smaller than the smallest chip, or of more than twelve chips.
struct ChipsOfStack {
  int count = 0;
  std::array<std::int32_t, kMostChipsOfStack> chip{};
};
ChipsOfStack ChipsFor(const Game& game, MoneyAmount amount);

// The pile, 1 to 4, that shows a Chip-Stack; 0 when none does.
int PileOfStack(const Game& game, int stack);
// Where the chips of a bet or a Chip-Stack lie; nothing for a Chip-Stack that is not on the table.
std::optional<Pixel> PlaceOf(const Game& game, int slot);

// Lays the stack of a bet or Chip-Stack anew, from its amount.
void LayChipsAnew(Game& game, int slot);
inline void RebuildChips(Game& game, int slot) {
  if (!game.HyperDriveActive) LayChipsAnew(game, slot);
}
// The same for all bets and Chip-Stacks.
void RebuildAllChips(Game& game);
// Puts one chip of the selected denomination on a bet, where the pointer is.
void AddChip(Game& game, int bet, Pixel at);
// Drops the entries of removed chips and puts the rest in the order of the bets.
void ArrangeChips(Game& game);

}  // namespace feltmaster
