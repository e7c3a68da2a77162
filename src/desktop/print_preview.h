#pragma once

#include <QWidget>
#include <optional>

#include "base/record_file.h"
#include "game/game.h"
#include "reports/document.h"

namespace feltmaster {

// Shows a report page by page as it will be printed. From there it goes to a printer or, by the
// program's own file dialog, into a PDF; both are up to the player, who may also give it up. The
// error of the one that failed.
std::optional<FileError> ShowPrintPreview(QWidget* parent, Game& game, const Document& document);

}  // namespace feltmaster
