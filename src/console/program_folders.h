#pragma once

#include <filesystem>
#include <string>

namespace feltmaster {

// The folder in which the player's games, settings and logs lie: $FELTMASTER_HOME, else the
// program's own folder among the user's data ($XDG_DATA_HOME, or ~/.local/share).
std::filesystem::path DataFolder();

// A folder of what comes with the program, with its final separator: beside the installed program,
// or in the source tree of one that was just built. Empty when it is in neither.
std::string ShippedFolder(const std::string& name);
// The user's guide, which lies elsewhere in the source tree.
std::string GuideFolder();

}  // namespace feltmaster
