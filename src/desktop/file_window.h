#pragma once

#include <QWidget>
#include <string>

#include "game/game.h"
#include "surface/surface.h"

namespace feltmaster {

// Asks for a file: the name as it stands in the name box, to be completed by the rules of
// files/file_dialog.h; empty when the player gave up. FileDialogPath and FileDialogName take the
// folder and the name at the end, whatever it was.
std::string AskFileName(QWidget* parent, Game& game, const FileRequest& request);

}  // namespace feltmaster
