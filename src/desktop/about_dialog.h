#pragma once

#include <QWidget>

#include "desktop/user_settings.h"
#include "game/game.h"

namespace feltmaster {

// Tells what the program is and which version of it runs, and lets the player choose whether it
// tells so at the start.
void ShowAbout(QWidget* parent, Game& game, UserSettings& settings);

}  // namespace feltmaster
