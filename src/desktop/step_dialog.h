#pragma once

#include <QWidget>
#include <functional>

#include "game/game.h"
#include "surface/surface.h"
#include "table/table_commands.h"

namespace feltmaster {
bool ShowStepDialog(QWidget* parent, Game& game, const StepRequest& request,
                    const std::function<void(WindowCommand)>& open_screen);
}  // namespace feltmaster
