#pragma once

#include <QMainWindow>
#include <cstdint>
#include <optional>

#include "game/game.h"

namespace feltmaster {

class Screens;

// What is fixed about a screen beside the table.
struct ScreenTraits {
  const char* object_name;  // "frmSummary"
  const char* caption;
  std::int32_t help_topic = 0;       // unless the window's name has one
  std::optional<Screen> place = {};  // under which its place is kept with the game
};

// The base of the screens beside the table: a window over a model. It comes up where it was left,
// never off the screen; Escape and the window's own button close it, F1 opens the guide at its
// topic. A screen that is closed is gone; what it should remember belongs to the game.
class ScreenWindow : public QMainWindow {
 public:
  ScreenWindow(Screens& screens, const ScreenTraits& traits);

  // Shows what the model says now. Called after each roll and whenever something else changed, at
  // most sixty times a second; cheap when nothing has changed for this screen.
  virtual void Refresh() {}

  // While a modal screen is up, one that floats over the others does not.
  virtual void StepAside(bool) {}

  const ScreenTraits& Traits() const { return traits_; }
  // Shows the window at its kept place, or beside the table when it has none.
  void ShowInPlace();

 protected:
  Game& TheGame() const;
  Screens& AllScreens() const { return screens_; }

  // Asked before the window closes; false keeps it open.
  virtual bool MayClose() { return true; }
  // Of a screen that comes up for the first time.
  virtual QSize PreferredSize() const { return sizeHint().expandedTo(size()); }
  // The help topic of what has the focus.
  virtual std::int32_t HelpTopic() const;

  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void moveEvent(QMoveEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void KeepPlace(bool open);
  // Makes the window as large as what it shows asks for, as far as the screen allows.
  void GrowToContent();

  Screens& screens_;
  ScreenTraits traits_;
};

// A rectangle moved, and if need be made smaller, so that it lies on a screen of the desktop.
QRect OnScreen(const QRect& wanted);

}  // namespace feltmaster
