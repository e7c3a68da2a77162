#pragma once

#include <QWidget>

#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {

// Asks what becomes of the decided bet in CurrentBet and waits for the choice. Escape closes
// nothing here, for a bet must be put in order before the game goes on; where the window is closed
// from outside, that is the default choice.
SettleReply ShowSettleDialog(QWidget* parent, Game& game, const SettleRequest& request);

}  // namespace feltmaster
