#pragma once

#include "game/game.h"

namespace feltmaster {

// Printing of the bankroll graph. Graphs are collected on a page, which goes to the printer when it
// is full or when the player wants it to.

// Puts the graph on the page; without a printer nothing happens.
void PrintGraph(Game& game);
// The same as the command of the Bankroll screen, which during Hyper-Drive asks whether to stop it
// instead.
void PrintGraphNow(Game& game);

// Sends the page that is open, if there is one. False when it could not be printed.
bool SendGraphPage(Game& game);

// With Auto-Print on, where play comes to a stop: asks about the last graph and the open page.
void FinishGraphPrint(Game& game);
// At the end of the program, which leaves no graph behind.
void PrintLastGraphs(Game& game);

}  // namespace feltmaster
