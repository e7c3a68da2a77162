#pragma once

#include "game/game.h"

namespace feltmaster {

// The rows that the settle dialog shows for the bet in CurrentBet.
void FillWonDisplay(Game& game);
void FillLostDisplay(Game& game);
void FillOddsReturnedDisplay(Game& game);

}  // namespace feltmaster
