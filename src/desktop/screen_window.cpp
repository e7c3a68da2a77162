#include "desktop/screen_window.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollArea>
#include <QTableView>
#include <QTimer>
#include <algorithm>

#include "desktop/screens.h"
#include "surface/surface.h"
#include "view/user_guide.h"

namespace feltmaster {

namespace {

// What a scrolled page, or a table in its width, has not got room for.
QSize LackOf(const QAbstractScrollArea& area) {
  const QSize room = area.viewport()->size();
  QSize wanted = room;
  if (const auto* scroll = qobject_cast<const QScrollArea*>(&area)) {
    const QWidget* page = scroll->widget();
    if (page != nullptr) wanted = page->sizeHint().expandedTo(page->minimumSizeHint());
  } else if (const auto* table = qobject_cast<const QTableView*>(&area)) {
    wanted.setWidth(table->horizontalHeader()->length());
  }
  return (wanted - room).expandedTo(QSize(0, 0));
}

}  // namespace

ScreenWindow::ScreenWindow(Screens& screens, const ScreenTraits& traits)
    : QMainWindow(screens.Table(), Qt::Window), screens_(screens), traits_(traits) {
  setObjectName(QString::fromLatin1(traits.object_name));
  setWindowTitle(QString::fromUtf8(traits.caption));
  setAttribute(Qt::WA_DeleteOnClose);
}

Game& ScreenWindow::TheGame() const {
  return screens_.TheGame();
}

void ScreenWindow::ShowInPlace() {
  Refresh();
  if (!isVisible()) {
    const ScreenPlacement* kept = traits_.place ? &TheGame().PlacementOf(*traits_.place) : nullptr;
    const QPoint step = QPoint(28, 32) * screens_.OpenCount();
    QRect place(screens_.Table()->geometry().topLeft() + QPoint(24, 24) + step, PreferredSize());
    const bool first = kept == nullptr || kept->width <= 0 || kept->height <= 0;
    if (!first) {
      place = QRect(kept->left, kept->top, kept->width, kept->height);
    }
    setGeometry(OnScreen(place));
    show();
    // What was filled in while the window was hidden is laid out only now.
    if (first) QTimer::singleShot(0, this, [this] { GrowToContent(); });
    KeepPlace(true);
  }
  setWindowState(windowState() & ~Qt::WindowMinimized);
  raise();
  activateWindow();
}

std::int32_t ScreenWindow::HelpTopic() const {
  const std::int32_t own = HelpTopicOf(traits_.object_name);
  return own != 0 ? own : traits_.help_topic;
}

void ScreenWindow::GrowToContent() {
  QSize lacking(0, 0);
  for (const QAbstractScrollArea* area : findChildren<QAbstractScrollArea*>()) {
    lacking = lacking.expandedTo(LackOf(*area));
  }
  if (lacking.isNull()) return;
  setGeometry(OnScreen(QRect(geometry().topLeft(), size() + lacking)));
}

void ScreenWindow::KeepPlace(bool open) {
  if (!traits_.place || !isVisible()) return;
  ScreenPlacement& kept = TheGame().PlacementOf(*traits_.place);
  kept.open = open;
  if (isMinimized() || isMaximized()) return;
  kept.left = x();
  kept.top = y();
  kept.width = width();
  kept.height = height();
}

void ScreenWindow::closeEvent(QCloseEvent* event) {
  if (!MayClose()) {
    event->ignore();
    return;
  }
  KeepPlace(screens_.Closing());
  event->accept();
}

void ScreenWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else if (event->key() == Qt::Key_F1) {
    TheGame().surface->OpenHelp(HelpTopic());
  } else {
    QMainWindow::keyPressEvent(event);
  }
}

void ScreenWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  KeepPlace(true);
}

void ScreenWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  KeepPlace(true);
}

QRect OnScreen(const QRect& wanted) {
  const QScreen* screen = QApplication::screenAt(wanted.center());
  if (screen == nullptr) screen = QApplication::primaryScreen();
  if (screen == nullptr) return wanted;
  const QRect room = screen->availableGeometry();
  QRect place(wanted.topLeft(), wanted.size().boundedTo(room.size()));
  place.moveLeft(std::clamp(place.left(), room.left(), room.right() - place.width() + 1));
  place.moveTop(std::clamp(place.top(), room.top(), room.bottom() - place.height() + 1));
  return place;
}

}  // namespace feltmaster
