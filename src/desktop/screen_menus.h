#pragma once

#include <functional>
#include <string_view>
#include <vector>

#include "desktop/screen_window.h"
#include "view/rows.h"

class QAction;
class QMenu;

namespace feltmaster {

// The menus that screens have in common, as tables.

// The File menu: printing, the table as text, the picture, closing.
struct FileMenu {
  std::string_view report;  // one of PrintCommands; empty when the screen adds its own entries
  std::function<Rows()> rows;
  QWidget* picture;
  const char* caption = "&File";
};
QMenu* AddFileMenu(ScreenWindow& screen, Game& game, const FileMenu& parts);

// Help, which opens the topic of the screen.
void AddHelpMenu(ScreenWindow& screen, Game& game);

// A group of entries of which one is checked; entry i means value i unless the table says else.
struct MenuChoice {
  struct Entry {
    std::string_view caption;
    int value;
  };
  const char* name;  // of the menu; its entries are "name0", "name1" ...
  const char* caption;
  std::vector<Entry> entries;
  std::function<int()> value;
  std::function<void(int)> choose;
};
QMenu* AddMenuChoice(QMenu& parent, const MenuChoice& choice);

// An entry that is checked or not.
struct MenuSwitch {
  const char* name;
  const char* caption;
  std::function<bool()> is_on;
  std::function<void(bool)> turn;
};
QAction* AddMenuSwitch(QMenu& parent, const MenuSwitch& entry);

QAction* AddMenuEntry(QMenu& parent, const char* name, const char* caption,
                      std::function<void()> choose);

}  // namespace feltmaster
