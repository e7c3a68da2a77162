#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

void ClearScript(Game& game);
// Reads a .bet file into ScriptLines. False when it was refused (a message has told why) or could
// not be read (LastErrorText); the script in memory stays then.
bool LoadScript(Game& game, const std::string& path);
// Writes a .bet file, whole or not at all. False with LastErrorText when it could not be written.
bool SaveScript(Game& game, const std::string& path);

}  // namespace feltmaster
