#pragma once

#include <string>

#include "game/script.h"

namespace feltmaster {

// What a line asks or does when the script runs, in a sentence or two for the player.
std::string MeaningOf(const ScriptLine& line);

}  // namespace feltmaster
