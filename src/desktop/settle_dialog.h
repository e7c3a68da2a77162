#pragma once

#include <QWidget>

#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {
SettleReply ShowSettleDialog(QWidget* parent, Game& game, const SettleRequest& request);
}  // namespace feltmaster
