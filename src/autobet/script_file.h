#pragma once

#include <optional>
#include <string>
#include <vector>

#include "game/game.h"

namespace feltmaster {

void ClearScript(Game& game);
// Takes these lines as the whole script, as a plain load does: flags, labels and the cursor start
// afresh, the initialisation cycle is due.
void SetScript(Game& game, std::vector<ScriptLine> lines, const std::string& file_name);

// Reads a .bet file into ScriptLines. With ScriptFileMode set its lines are pasted, selected, at
// the cursor; with HotKeyRunning set they stand in for the script for one run. False when it was
// refused (a message has told why) or could not be read (LastErrorText); the script in memory stays
// then. FileStatus is 1, 0 or -1.
bool LoadScript(Game& game, const std::string& path);
// Writes a .bet file, whole or not at all; with ScriptFileMode set the selected lines alone. False
// with LastErrorText when it could not be written.
bool SaveScript(Game& game, const std::string& path);

// Loads a script in either form, told apart by its first bytes. Nothing when it is loaded; else one
// sentence that names the file and, for a fault in a text, the line and column.
std::optional<std::string> LoadScriptOrText(Game& game, const std::string& path);

}  // namespace feltmaster
