#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// The picture of a table as the bytes of a PNG file, painted without a display; empty when that
// failed. `scale` is its pixels for each pixel of the 640 by 440 grid, 0.25 to 8. Call it before
// any window of the program is made.
std::string TableShot(const Game& game, double scale);

}  // namespace feltmaster
