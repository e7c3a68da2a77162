#pragma once

#include <QColor>
#include <QDialog>
#include <QObject>
#include <QPalette>
#include <QString>
#include <QWidget>
#include <string>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// What the dialogs have in common: texts, places and the pointer.

// A text of the program, whose lines are parted by '\n', as the toolkit shows it.
QString TextOf(std::string_view text);
std::string BytesOf(const QString& text);
// The same for the names of files.
QString NameOf(std::string_view path);
std::string PathOf(const QString& name);

// A length in letters of the widget's font, so that windows grow with the text of the system.
int Letters(const QWidget& widget, double count);

// Blue above 0, red below, the colour of text at 0; light enough for a dark palette.
QColor MoneyColor(int sign, const QPalette& palette);

// The window that a dialog belongs to: that of the dialog which is open already, or else `parent`.
QWidget* OwnerOf(QWidget* parent);
// Moves a window, and makes it smaller if it must be, until it is seen whole.
void KeepOnScreen(QWidget& window);
// Puts it over the middle of `parent`.
void CentreOver(QWidget& window, const QWidget* parent);

// A dialog of the game. While the panel of dice floats above all windows, so does the dialog; F1
// and a Help button open its topic.
class GameDialog : public QDialog {
 public:
  GameDialog(QWidget* parent, Game& game, std::string_view name, std::int32_t help);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void OpenHelp();
  // The button takes the pointer to its middle when it gets the focus, where the player wants that.
  void SnapTo(QWidget& button);
  bool eventFilter(QObject* watched, QEvent* event) override;

  Game& game_;
  std::int32_t help_;
};

}  // namespace feltmaster
