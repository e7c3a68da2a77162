#include "engine/amounts.h"

#include <string>

namespace feltmaster {

std::string NameOfBet(const Game& game, int slot) {
  if (IsChipStack(slot)) {
    for (std::size_t pile = 1; pile < game.StackSlots.size(); ++pile) {
      if (game.StackSlots[pile] == slot) return game.StackPileName[pile];
    }
    return "Chip-Stack #" + std::to_string(slot - kFirstStack);
  }
  if (slot < 0 || slot >= kBetNames) return {};
  return std::string(kBetName[static_cast<std::size_t>(slot)]);
}

std::string TitleOfBet(const Game& game, int slot) {
  return NameOfBet(game, slot) + " Bet";
}

}  // namespace feltmaster
