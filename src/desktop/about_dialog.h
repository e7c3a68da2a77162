#pragma once

#include <QWidget>

#include "game/game.h"

namespace feltmaster {

// Tells what the program is and which version of it runs.
void ShowAbout(QWidget* parent, Game& game);

}  // namespace feltmaster
