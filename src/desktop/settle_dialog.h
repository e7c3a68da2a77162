#pragma once

#include <QWidget>

#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {

// Asks what becomes of the decided bet in CurrentBet and waits for the choice. The dialog closes by
// a choice alone: the bet must be put in order before the game goes on.
SettleReply ShowSettleDialog(QWidget* parent, Game& game, const SettleRequest& request);

}  // namespace feltmaster
