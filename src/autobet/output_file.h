#pragma once

#include <string>
#include <string_view>
#include <system_error>

#include "game/game.h"

namespace feltmaster {

// The text file that scripts write to. It stays open from run to run; ScriptOutputFile keeps the
// name of the last one opened. Each procedure gives the system's error, or none.
enum class OutputMode { kClear, kAppend };
std::error_code OpenScriptOutput(Game& game, const std::string& name, OutputMode mode);
// std::errc::bad_file_descriptor when no file is open.
std::error_code WriteScriptOutput(Game& game, std::string_view text);
std::error_code CloseScriptOutput(Game& game);
// What has been written reaches the file. A run of the script does this at its end, but not within
// Hyper-Drive; there it is for whoever ends the chain of rolls.
std::error_code FlushScriptOutput(Game& game);

// Flushes, or closes the file, where no script runs that could be aborted: the player is told of a
// fault.
void SettleScriptOutput(Game& game);
void EndScriptOutput(Game& game);

}  // namespace feltmaster
