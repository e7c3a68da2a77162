#include "desktop/dialog_tools.h"

#include <QApplication>
#include <QCursor>
#include <QEvent>
#include <QFile>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QScreen>
#include <QTimer>
#include <algorithm>

#include "base/text.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

void MovePointerTo(const QWidget& widget) {
  QCursor::setPos(widget.screen(), widget.mapToGlobal(widget.rect().center()));
}

}  // namespace

QString TextOf(std::string_view text) {
  QString shown;
  for (;;) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    shown += QString::fromStdString(AsUtf8(text.substr(0, end)));
    if (end == text.size()) return shown;
    shown += QChar('\n');
    text.remove_prefix(end + 1);
  }
}

std::string BytesOf(const QString& text) {
  return text.toStdString();
}

QString NameOf(std::string_view path) {
  return QFile::decodeName(QByteArray(path.data(), static_cast<qsizetype>(path.size())));
}

std::string PathOf(const QString& name) {
  return QFile::encodeName(name).toStdString();
}

int Letters(const QWidget& widget, double count) {
  return static_cast<int>(QFontMetricsF(widget.font()).averageCharWidth() * count);
}

QColor MoneyColor(int sign, const QPalette& palette) {
  if (sign == 0) return palette.color(QPalette::Text);
  const bool dark = palette.color(QPalette::Base).lightness() < 128;
  if (sign > 0) return dark ? QColor(0x8AB8FF) : QColor(0x0033CC);
  return dark ? QColor(0xFF8A80) : QColor(0xC00000);
}

QWidget* OwnerOf(QWidget* parent) {
  QWidget* const open = QApplication::activeModalWidget();
  return open != nullptr ? open : parent;
}

void KeepOnScreen(QWidget& window) {
  const QRect room = window.screen()->availableGeometry();
  window.resize(window.size().boundedTo(room.size()));
  const QPoint last = room.bottomRight() - QPoint(window.width(), window.height()) + QPoint(1, 1);
  window.move(std::clamp(window.x(), room.left(), std::max(room.left(), last.x())),
              std::clamp(window.y(), room.top(), std::max(room.top(), last.y())));
}

void CentreOver(QWidget& window, const QWidget* parent) {
  const QRect area = parent != nullptr && parent->isVisible()
                         ? parent->window()->frameGeometry()
                         : window.screen()->availableGeometry();
  window.move(area.center() - window.rect().center());
  KeepOnScreen(window);
}

GameDialog::GameDialog(QWidget* parent, Game& game, std::string_view name, std::int32_t help)
    : QDialog(OwnerOf(parent)), game_(game), help_(help) {
  setObjectName(TextOf(name));
  setWindowFlag(Qt::WindowContextHelpButtonHint, false);
  setWindowFlag(Qt::WindowStaysOnTopHint, game.RollYourOwnNumbers);
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
