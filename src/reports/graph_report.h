#pragma once

#include "game/game.h"
#include "reports/document.h"

namespace feltmaster {

// The page on which graphs of the bankroll are collected, with its heading alone.
Document EmptyGraphPage(Game& game);

// The graph as the Bankroll screen would show it now, with its figures; a third of a page. The
// screen itself stays as it is.
void AddGraph(Game& game, Document& document);

}  // namespace feltmaster
