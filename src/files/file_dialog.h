#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// The file dialog. Its caption alone tells what becomes of the chosen name; the patterns of the
// captions, and what each does, stand in one table. The surface shows the dialog; the rules of its
// OK button and of its Delete key are here.

// Asks for a file until OK went through or the player gave up: the path, or nothing. MsgAnswer is 1
// or 2. The pattern is the caption's own unless one is given.
std::optional<std::string> ShowFileDialog(Game& game, std::string_view caption,
                                          std::string_view pattern = {});

// The OK button with this text in the name box: the path when the dialog closes; nothing when it
// stays open, after a message.
std::optional<std::string> PressFileOk(Game& game, std::string_view caption,
                                       std::string_view pattern, std::string_view typed);

// The name as the dialog completes it: a name without a folder lies in `folder`; one that ends in a
// point, or lacks an extension of the pattern, takes that of the pattern.
std::string CompleteFileName(std::string_view typed, std::string_view folder,
                             std::string_view pattern);

// What the caption does with a path. False when it was refused; the player has been told.
bool CarryOutFileCommand(Game& game, std::string_view caption, const std::string& path);

// The Delete key on a file of the list: asks, deletes, and forgets the file where it is in use.
// True when it is gone.
bool DeleteChosenFile(Game& game, std::string_view caption, const std::string& path);

// The help topic of the dialog's file type; 0 for none of its own.
std::int32_t FileDialogHelp(std::string_view pattern);

}  // namespace feltmaster
