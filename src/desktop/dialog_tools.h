#pragma once

#include <QColor>
#include <QDialog>
#include <QPalette>
#include <QWidget>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// What the dialogs have in common.

// A length in letters of the widget's font, so that windows grow with the text of the system.
int Letters(const QWidget& widget, double count);

// Blue above 0, red below, the colour of text at 0; light enough for a dark palette.
QColor MoneyColor(int sign, const QPalette& palette);

// The window from which all others descend.
QWidget* TableOf(QWidget* opener);
// Puts a window over the middle of the table.
void CentreOverTable(QWidget& window, QWidget* opener);

// A dialog of the game. While the panel of dice floats above all windows, so does the dialog; F1
// and a Help button open its topic.
class GameDialog : public QDialog {
 public:
  GameDialog(QWidget* parent, Game& game, const char* name, std::int32_t help);

 protected:
  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void OpenHelp();
  // The button takes the pointer to its middle when it gets the focus, where the player wants that.
  void SnapTo(QWidget& button);
  bool eventFilter(QObject* watched, QEvent* event) override;

  Game& game_;
  std::int32_t help_;
};

}  // namespace feltmaster
