#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "engine/start_up.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"

namespace feltmaster {

// A table with a data folder of its own, and its Dice Roll Files as plain bytes. The bytes are made
// and read here by the layout alone.
class RollFixture : public InScratchFolder {
 protected:
  RollFixture() {
    std::filesystem::create_directories(folder_ / "data");
    game_ = NewTable(surface_, 1);
  }

  std::unique_ptr<Game> NewTable(Surface& surface, std::int32_t seed) {
    auto game = std::make_unique<Game>();
    game->surface = &surface;
    StartUp(*game, {.data_dir = (folder_ / "data" / "").string(), .seed = seed});
    return game;
  }
  static char Byte(int die1, int die2) { return static_cast<char>((die2 << 5) | (die1 << 2)); }
  // The last message, which is taken away.
  RecordingSurface::Message Said() {
    if (surface_.messages.empty()) return {"nothing", "", 0, 0};
    RecordingSurface::Message last = surface_.messages.back();
    surface_.messages.clear();
    return last;
  }

  RecordingSurface surface_;
  std::unique_ptr<Game> game_;
};

}  // namespace feltmaster
