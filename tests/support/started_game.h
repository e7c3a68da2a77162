#pragma once

#include <memory>

#include "engine/start_up.h"
#include "support/recording_surface.h"
#include "support/scratch_folder.h"

namespace feltmaster {

// A game that has just started up, with a scratch folder for its data.
template <typename Seat = RecordingSurface>
class StartedGame : public InScratchFolder {
 protected:
  StartedGame() {
    game_->surface = &surface_;
    StartUp(*game_, {.data_dir = Path(""), .seed = 1});
    surface_.messages.clear();
  }

  Seat surface_;
  std::unique_ptr<Game> game_ = std::make_unique<Game>();
};

}  // namespace feltmaster
