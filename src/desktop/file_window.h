#pragma once

#include <QWidget>
#include <string>

#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {
std::string AskFileName(QWidget* parent, Game& game, const FileRequest& request);
}  // namespace feltmaster
