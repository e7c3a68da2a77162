#pragma once

#include <string_view>

#include "game/game.h"

namespace feltmaster {

// The file commands of the script editor. Each gives false when the player gave up or it failed,
// which the player has been told.
bool NewScriptCommand(Game& game);
bool OpenScriptCommand(Game& game);
// Without a file of the player's own this is Save As. The pattern is that of the file dialog.
inline constexpr std::string_view kScriptsAndLogs = "*.log;*.bet";
bool SaveScriptCommand(Game& game, std::string_view pattern = kScriptsAndLogs);
bool SaveScriptAsCommand(Game& game, std::string_view pattern = kScriptsAndLogs);

// With the selected lines, or at the cursor.
bool CopyToScriptFileCommand(Game& game);
bool CopyToTextFileCommand(Game& game);
bool PasteFromScriptFileCommand(Game& game);

// Before the editor closes: an active script with a fault in its structure is told, and the player
// may deactivate it. False when the editor stays. A script that has changed is then written to its
// copy in the data folder.
bool LeaveScriptEditor(Game& game);

}  // namespace feltmaster
