#include "desktop/table_window.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QStyle>
#include <QUrl>
#include <utility>

#include "automation/table_guards.h"
#include "desktop/about_dialog.h"
#include "desktop/desktop_surface.h"
#include "desktop/qt_text.h"
#include "files/file_commands.h"

namespace feltmaster {

namespace {

constexpr int kLookEvery = 30;  // milliseconds
enum TableState : std::int32_t { kNormal = 0, kMinimised = 1, kMaximised = 2 };

// The game that is being dropped, or empty.
QString DroppedGame(const QMimeData& data) {
  for (const QUrl& url : data.urls()) {
    const QString path = url.toLocalFile();
    if (path.endsWith(QStringLiteral(".crp"), Qt::CaseInsensitive)) return path;
  }
  return {};
}

}  // namespace

TableWindow::TableWindow(Game& game, DesktopSurface& surface)
    : game_(game),
      surface_(surface),
      canvas_(game, this),
      screens_(game, this, surface.Settings(), surface.GuideFolder()) {
  setObjectName(QStringLiteral("frmTable"));
  setCentralWidget(&canvas_);
  setAcceptDrops(true);
  BuildMenus();
  surface_.SetWindows(this, &canvas_, &screens_);
  QObject::connect(&look_, &QTimer::timeout, this, [this] { DoWhatWaits(); });
  look_.setInterval(kLookEvery);
  setWindowTitle(ToQt(TableTitle(game_, false)));
}

TableWindow::~TableWindow() {
  surface_.SetWindows(nullptr, nullptr, nullptr);
  takeCentralWidget();  // a member, which the base class would delete
}

// ---- Menus ------------------------------------------------------------------------------------

void TableWindow::BuildMenus() {
  std::map<Menu, QMenu*> menus;
  for (const MenuTitle& title : MenuTitles()) {
    QMenu* menu = menuBar()->addMenu(ToQt(title.caption));
    menu->setObjectName(ToQt(title.name));
    menus[title.menu] = menu;
    QObject::connect(menu, &QMenu::aboutToShow, this, [this, which = title.menu] {
      OpenMenu(game_, which);
      ShowChecks();
    });
  }
  for (const MenuCommand& command : MenuCommands()) {
    QMenu* menu = menus[command.menu];
    if (command.starts_group) menu->addSeparator();
    QAction* action = menu->addAction(ToQt(command.caption));
    action->setObjectName(ToQt(command.name));
    action->setCheckable(command.checked != nullptr);
    if (!command.shortcut.empty()) action->setShortcut(QKeySequence(ToQt(command.shortcut)));
    QObject::connect(action, &QAction::triggered, this, [this, &command] { CarryOut(command); });
    entries_.emplace_back(action, &command);
  }
}

void TableWindow::ShowChecks() {
  for (const auto& [action, command] : entries_) {
    if (command->checked != nullptr) action->setChecked(command->checked(game_));
  }
}

void TableWindow::CarryOut(const MenuCommand& command) {
  const auto choose = [this, &command] {
    OpenWindow(Choose(game_, command));
    ShowChecks();
    canvas_.ShowNow();
  };
  const bool ending = game_.HyperDriveActive && !game_.KeepRolling;
  if (command.ends_chain || (command.interrupts && ending)) {
    AtRest(choose);
  } else {
    choose();
  }
}

void TableWindow::AtRest(std::function<void()> work) {
  if (!surface_.LogicGoesOn()) {
    work();
    return;
  }
  const auto busy = [this] {
    return game_.AutoBetRunning || (game_.HyperDriveActive && game_.KeepRolling);
  };
  if (busy()) TableIsFree(game_);  // asks whether to end it
  if (busy()) return;
  game_.KeepRolling = false;
  waiting_.push_back(std::move(work));
  look_.start();
}

void TableWindow::DoWhatWaits() {
  if (surface_.LogicGoesOn()) return;
  look_.stop();
  while (!waiting_.empty()) {
    const std::function<void()> work = std::move(waiting_.front());
    waiting_.pop_front();
    work();
  }
}

void TableWindow::OpenWindow(WindowCommand which) {
  switch (which) {
    case WindowCommand::kNone:
      break;
    case WindowCommand::kCloseTable:
      close();
      break;
    case WindowCommand::kConfigure:
      screens_.Open(which);
      AfterConfigure(game_);
      break;
    case WindowCommand::kRollYourOwn:
      if (game_.RollYourOwnNumbers) {
        screens_.Open(which);
      } else {
        screens_.Close(which);
      }
      break;
    case WindowCommand::kHelpContents:
      surface_.OpenHelp(0);
      break;
    case WindowCommand::kHelpSearch:
      surface_.SearchHelp();
      break;
    case WindowCommand::kAbout:
      ShowAbout(this, game_, surface_.Settings());
      break;
    default:
      screens_.Open(which);
  }
}

void TableWindow::OpenGameFile(const QString& path) {
  AtRest([this, path] { OpenNamedGame(game_, FromQt(path), true); });
}

// ---- The window -------------------------------------------------------------------------------

void TableWindow::ShowInPlace() {
  const ScreenPlacement& kept = game_.TablePlacement;
  restoring_ = true;
  if (kept.width > 0 && kept.height > 0) {
    setGeometry(OnScreen(QRect(kept.left, kept.top, kept.width, kept.height)));
  } else {
    setGeometry(OnScreen(QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, sizeHint(),
                                             OnScreen(QRect(0, 0, 100'000, 100'000)))));
  }
  if (game_.TableWindowState == kMaximised) {
    showMaximized();
  } else {
    show();
  }
  restoring_ = false;
  screens_.ReopenKept();
  if (game_.RollYourOwnNumbers) screens_.Open(WindowCommand::kRollYourOwn);
  activateWindow();
  canvas_.setFocus();
}

void TableWindow::KeepPlace() {
  if (!isVisible() || restoring_) return;
  game_.TableWindowState = isMaximized() ? kMaximised : kNormal;
  if (isMinimized() || isMaximized()) return;
  game_.TablePlacement = {true, y(), x(), width(), height()};
}

void TableWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  KeepPlace();
}

void TableWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  KeepPlace();
}

void TableWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::WindowStateChange) return;
  setWindowTitle(ToQt(TableTitle(game_, isMinimized())));
  KeepPlace();
  const auto* change = static_cast<QWindowStateChangeEvent*>(event);
  if (!change->oldState().testFlag(Qt::WindowMinimized) || isMinimized()) return;
  canvas_.Change(kChangedAll);
  QTimer::singleShot(0, this, [this] { TableRestored(game_); });
}

void TableWindow::closeEvent(QCloseEvent* event) {
  if (surface_.LogicGoesOn()) {
    event->ignore();
    AtRest([this] { close(); });
    return;
  }
  if (!AskToClose(game_)) {
    event->ignore();
    return;
  }
  screens_.CloseAll();
  EndProgram(game_);
  event->accept();
  QApplication::quit();
}

void TableWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (!DroppedGame(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void TableWindow::dropEvent(QDropEvent* event) {
  const QString path = DroppedGame(*event->mimeData());
  if (path.isEmpty()) return;
  event->acceptProposedAction();
  // Not inside the drop, which the other program waits for.
  QTimer::singleShot(0, this, [this, path] {
    AtRest([this, path] {
      if (AskToSaveAll(game_)) OpenNamedGame(game_, FromQt(path), true);
    });
  });
}

}  // namespace feltmaster
