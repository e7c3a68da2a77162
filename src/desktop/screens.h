#pragma once

#include <QPointer>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "desktop/screen_window.h"
#include "table/table_commands.h"

namespace feltmaster {

class UserSettings;

// The screens beside the table: what there is, and which are open. Adding a screen is a row of the
// table in screens.cpp.
class Screens {
 public:
  // The table's window is the parent of all; both must outlive this.
  // The guide lies in that folder.
  Screens(Game& game, QWidget* table, UserSettings& settings, std::string guide_folder)
      : game_(game), table_(table), settings_(settings), guide_folder_(std::move(guide_folder)) {}
  ~Screens();
  Screens(const Screens&) = delete;
  Screens& operator=(const Screens&) = delete;

  Game& TheGame() const { return game_; }
  QWidget* Table() const { return table_; }
  UserSettings& Settings() const { return settings_; }
  const std::string& GuideFolder() const { return guide_folder_; }

  // All that there are, in their order.
  static std::vector<WindowCommand> All();

  // Brings up a screen, or to the front if it is open. A modal one has closed when this returns.
  void Open(WindowCommand which);
  // Null when it is not open.
  ScreenWindow* Find(WindowCommand which) const;
  void Close(WindowCommand which);
  int OpenCount() const;

  // The open screens show what the models say now.
  void Refresh();

  // Those that were open when the game was last left.
  void ReopenKept();
  // At the end of the program: all close, and are kept as open.
  void CloseAll();
  bool Closing() const { return closing_; }

 private:
  // While a modal screen is up, those that it opens belong to it; otherwise it would block them.
  void BelongTo(ScreenWindow& window, QWidget& owner);

  Game& game_;
  QWidget* table_;
  UserSettings& settings_;
  std::string guide_folder_;
  std::map<WindowCommand, QPointer<ScreenWindow>> open_;
  QPointer<ScreenWindow> modal_;  // the modal one that is up
  bool closing_ = false;
};

}  // namespace feltmaster
