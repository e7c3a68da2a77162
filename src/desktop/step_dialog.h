#pragma once

#include <QWidget>
#include <functional>

#include "game/game.h"
#include "surface/surface.h"
#include "table/table_commands.h"

namespace feltmaster {

// Shows one report of a script run and waits. False when the player wants no more of them. Screens
// can be opened meanwhile. From one report to the next the dialog stays where the player put it.
bool ShowStepDialog(QWidget* parent, Game& game, const StepRequest& request,
                    const std::function<void(WindowCommand)>& open_screen);

}  // namespace feltmaster
