#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

// The commands of the Games Log screen. Each gives true when the log, or what the screen shows of
// it, has changed: the analysis is to be run again then, with the boxes of the range blank where
// the rules want that. What a command refuses, the player has been told.

// Begins default.glg anew; asks first whether games in it are to be saved under another name.
bool NewLogCommand(Game& game);
bool OpenLogCommand(Game& game);
bool SaveLogAsCommand(Game& game);
// The games of a log that the player chooses are appended to the log in use.
bool MergeLogCommand(Game& game);

// Asks for the break-points of the outcomes.
bool SetBreakPointCommand(Game& game);
// Asks for a game or a range of games, and deletes them.
bool DeleteGamesCommand(Game& game);

enum class FindDirection { kAsk, kNext, kPrevious };
// Looks for a game whose value, one of 32, is the one asked for, and puts it at the top of the data
// list. Next and Previous ask only when nothing has been looked for yet.
bool FindGameCommand(Game& game, int value, FindDirection direction);

// The work of the file dialog behind these commands. False with LastErrorText when it failed.
bool SaveGamesLogAs(Game& game, const std::string& path);
// False when it was refused or failed; the player has been told.
bool MergeGamesLog(Game& game, const std::string& path);

}  // namespace feltmaster
