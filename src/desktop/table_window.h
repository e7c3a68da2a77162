#pragma once

#include <QMainWindow>
#include <deque>

#include "desktop/screens.h"
#include "desktop/table_canvas.h"

class QAction;

namespace feltmaster {

class DesktopSurface;

// The window of the table: the picture, and the menus over it. Commands that would pull the game
// from under a roll in progress are kept until the chain of rolls has ended.
class TableWindow : public QMainWindow {
 public:
  // game.surface is the surface until the window goes.
  TableWindow(Game& game, DesktopSurface& surface);
  ~TableWindow() override;

  TableCanvas& Canvas() { return canvas_; }
  Screens& AllScreens() { return screens_; }

  // Where the table was when it was left; the screens that were open then come up with it.
  void ShowInPlace();
  // As if the player had chosen it.
  void CarryOut(const MenuCommand& command);
  void OpenGameFile(const QString& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void BuildMenus();
  void ShowChecks();
  void KeepPlace();
  void OpenWindow(WindowCommand which);
  // Does it now, or when the chain of rolls or the script has ended, which the player is asked to
  // agree to.
  void AtRest(std::function<void()> work);
  void DoWhatWaits();

  Game& game_;
  DesktopSurface& surface_;
  TableCanvas canvas_;
  Screens screens_;
  std::vector<std::pair<QAction*, const MenuCommand*>> entries_;
  std::deque<std::function<void()>> waiting_;
  QTimer look_;  // whether the chain has ended
  bool restoring_ = false;
};

}  // namespace feltmaster
