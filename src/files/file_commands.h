#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// The file commands of the Game menu, and the closing of the program. Each gives false when the
// player gave up or it failed, which the player has been told.

// Asks about unsaved Auto-Bets, probabilities and the game, in this order, and saves what the
// player wants saved. False when the player gave up; the command that asked ends then.
bool AskToSaveAll(Game& game);
// The first two of the questions, which also go before the game is saved.
bool AskToSaveParts(Game& game);

// Asks about unsaved work, starts a new game and asks what to keep.
bool NewGame(Game& game);
bool OpenGameCommand(Game& game);
bool SaveGameCommand(Game& game);
bool SaveGameAsCommand(Game& game);
// Open and Save As with a file that is named outright, where there may be nobody to be asked.
bool OpenNamedGame(Game& game, const std::string& path, bool ask);
bool SaveNamedGame(Game& game, const std::string& path, bool ask);
// The message with the paths of all files in use.
void ShowPath(Game& game);

// The questions before the program ends: a script or Hyper-Drive to stop, unsaved work. False when
// the window stays.
bool AskToClose(Game& game);
// The end: default.crp takes the state, the scratch files go, the last graphs are printed.
void EndProgram(Game& game);

}  // namespace feltmaster
