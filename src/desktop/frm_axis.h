#pragma once

#include <QWidget>

#include "game/game.h"

namespace feltmaster {

// Asks how well a shooter keeps either die turning about an axis, and makes the Percentage Dice of
// that shooter. False when the player gave up.
bool ShowAxisScreen(QWidget* parent, Game& game);

}  // namespace feltmaster
