#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// Plays one roll, or in a chain (Auto-Roll, Hyper-Drive) roll after roll until KeepRolling is
// cleared. Never starts twice.
void RollCycle(Game& game);

void BankLimitReached(Game& game);

// Sound of the stick person's clip, 1 to 18; silent in Hyper-Drive and without a stick person.
void StickCall(Game& game, int clip);
void ComeOutCall(Game& game);

}  // namespace feltmaster
