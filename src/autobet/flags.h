#pragma once

#include <cstddef>
#include <span>

#include "game/game.h"

namespace feltmaster {

// Sets a flag as a script does: FlagChanged becomes True when the value differs. index counts
// from 0.
void SetFlag(Game& game, std::size_t index, bool value);

// The buttons of the flags screen, for the selected rows. FlagChanged stays, so that what is set by
// hand is no new occurrence for the script.
enum class FlagButton { kTrue, kFalse, kReverse };
void PressFlagButton(Game& game, std::span<const std::size_t> rows, FlagButton button);

}  // namespace feltmaster
