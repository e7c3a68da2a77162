#pragma once

#include <QString>
#include <functional>

#include "game/game.h"
#include "view/rows.h"

class QMenu;
class QWidget;

namespace feltmaster {

// Adds "Copy as Text" and "Save Picture ..." to a screen's menu. `rows` gives the table as it is
// copied, and `picture` is what is saved; both are used as long as the menu lives.
void AddShareEntries(QMenu& menu, Game& game, std::function<Rows()> rows, QWidget& picture);

// A line for each row, its cells parted by tabs, as spreadsheets take them.
std::string TabbedText(const Rows& rows);

// Saves a widget as it would be seen now: drawn anew as shapes and letters when the name ends in
// .svg, and else as a PNG of twice its size. False when the file could not be written.
bool SavePicture(QWidget& picture, const QString& path);

}  // namespace feltmaster
