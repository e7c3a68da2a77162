#pragma once

#include "game/game.h"
#include "reports/document.h"

namespace feltmaster {

// What every bet is worth, and what it pays.
Document AdvantageReport(Game& game);
// Every setting by its name.
Document SettingsReport(Game& game);

}  // namespace feltmaster
