#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "game/game.h"

namespace feltmaster {

struct StartOptions {
  std::string data_dir;              // with its final separator; empty for a game without files
  std::optional<std::int32_t> seed;  // seeds every base generator instead of the clock
  std::string sound_dir = {};        // the program's own clips, beside those of the data folder
};

// Sets every default in its fixed order, seeds the generators, takes the state in which the program
// was left from the data folder, and makes the table ready.
// game.surface must be set.
void StartUp(Game& game, const StartOptions& options);

// Seeds every generator that the selections are made of, by one seed or by the clock. RNG #1 is
// selected then.
void SeedGenerators(Game& game, std::optional<std::int32_t> seed);

}  // namespace feltmaster
