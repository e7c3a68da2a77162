#pragma once

#include "game/game.h"

namespace feltmaster {

// Printing of the bankroll graph. Graphs are collected on a page, which goes to the printer when it
// is full or when the player wants it to.

// Puts the graph on the page; without a printer nothing happens.
void PrintGraph(Game& game);
// The commands of the Bankroll screen, which during Hyper-Drive ask whether to stop it instead:
// the graph as it stands, and whether every page of it is printed when it is full.
void PrintGraphNow(Game& game);
void SetGraphAutoPrint(Game& game, bool on);

// Sends the page that is open, if there is one. False when it could not be printed.
bool SendGraphPage(Game& game);

// With Auto-Print on, where play comes to a stop: asks about the last graph and the open page.
void FinishGraphPrint(Game& game);
// At the end of the program, which leaves no graph behind.
void PrintLastGraphs(Game& game);

}  // namespace feltmaster
