#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "engine/sounds.h"
#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {

// What the player sees and hears of a change. Hyper-Drive plays without either.

// what is a set of TableChange.
inline void ShowTableChange(Game& game, std::uint32_t what) {
  if (!game.HyperDriveActive) game.surface->TableChanged(what);
}
inline void ShowBets(Game& game) {
  ShowTableChange(game, kChangedAmounts | kChangedChips | kChangedStatus);
}

inline void ReturnDice(Game& game) {
  if (game.DiceReturned) return;
  game.DiceReturned = true;
  ShowTableChange(game, kChangedDice);
}

// The clip of a sound list that a choice names; choice 0 is none.
inline void PlayChosenClip(Game& game, const std::vector<std::string>& list, std::int32_t choice,
                           bool wait) {
  if (game.HyperDriveActive || game.AllSoundOff || choice < 1) return;
  const auto clip = static_cast<std::size_t>(choice);
  if (clip <= list.size()) game.surface->PlaySound(SoundFile(game, list[clip - 1]), wait);
}

}  // namespace feltmaster
