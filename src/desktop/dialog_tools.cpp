#include "desktop/dialog_tools.h"

#include <QCursor>
#include <QEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>

#include "desktop/screen_window.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

void MovePointerTo(const QWidget& widget) {
  QCursor::setPos(widget.screen(), widget.mapToGlobal(widget.rect().center()));
}

}  // namespace

int Letters(const QWidget& widget, double count) {
  return static_cast<int>(QFontMetricsF(widget.font()).averageCharWidth() * count);
}

QColor MoneyColor(int sign, const QPalette& palette) {
  if (sign == 0) return palette.color(QPalette::Text);
  const bool dark = palette.color(QPalette::Base).lightness() < 128;
  if (sign > 0) return dark ? QColor(0x8AB8FF) : QColor(0x0033CC);
  return dark ? QColor(0xFF8A80) : QColor(0xC00000);
}

QWidget* TableOf(QWidget* opener) {
  while (opener != nullptr && opener->parentWidget() != nullptr) opener = opener->parentWidget();
  return opener;
}

void CentreOverTable(QWidget& window, QWidget* opener) {
  const QWidget* const table = TableOf(opener);
  QRect place(QPoint(), window.size());
  place.moveCenter(table != nullptr ? table->frameGeometry().center()
                                    : window.screen()->availableGeometry().center());
  window.setGeometry(OnScreen(place));
}

GameDialog::GameDialog(QWidget* parent, Game& game, const char* name, std::int32_t help)
    : QDialog(parent), game_(game), help_(help) {
  setObjectName(name);
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowStaysOnTopHint, game.RollYourOwnNumbers);
}

void GameDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  // A dialog that comes up under a press on the table would not have the keys on every platform.
  QTimer::singleShot(0, this, [this] { activateWindow(); });
}

void GameDialog::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_F1) {
    OpenHelp();
  } else {
    QDialog::keyPressEvent(event);
  }
}

void GameDialog::OpenHelp() {
  game_.surface->OpenHelp(help_);
}

void GameDialog::SnapTo(QWidget& button) {
  if (game_.SnapMouse) button.installEventFilter(this);
}

bool GameDialog::eventFilter(QObject* watched, QEvent* event) {
  // A press of the mouse has the pointer on the button already. The first focus comes before the
  // window has its place.
  if (event->type() == QEvent::FocusIn &&
      static_cast<QFocusEvent*>(event)->reason() != Qt::MouseFocusReason) {
    auto* const button = static_cast<QWidget*>(watched);
    QTimer::singleShot(0, button, [button] {
      if (button->hasFocus()) MovePointerTo(*button);
    });
  }
  return QDialog::eventFilter(watched, event);
}

}  // namespace feltmaster
