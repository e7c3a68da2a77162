#include "desktop/frm_hot_keys.h"

#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <algorithm>
#include <string>

#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "files/file_dialog.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

std::string AllKeys() {
  std::string keys;
  for (char key = '0'; key <= '9'; ++key) keys += key;
  for (char key = 'A'; key <= 'Z'; ++key) keys += key;
  return keys;
}

Click ClickOf(Qt::KeyboardModifiers held) {
  if (held.testFlag(Qt::ControlModifier)) return Click::kCtrl;
  return held.testFlag(Qt::ShiftModifier) ? Click::kShift : Click::kPlain;
}

}  // namespace

HotKeysScreen::HotKeysScreen(Screens& screens)
    : ScreenWindow(screens, kTraits),
      list_(this, "picHotKeys", "vscrHotKeys",
            {{"Key", 9}, {"Auto-Bet File", 28}, {"Description", 0}}) {
  BuildMenus();
  auto* const body = new QWidget(this);
  setCentralWidget(body);
  auto* const column = new QVBoxLayout(body);
  column->addWidget(Fields());
  list_.setAccessibleName("Hot-Keys");
  list_.setMinimumHeight(list_.HeightFor(kHotKeyRowsShown));
  column->addWidget(&list_, 1);
  ConnectList();
  qApp->installEventFilter(this);
}

void HotKeysScreen::BuildMenus() {
  Game& game = TheGame();
  AddFileMenu(
      *this, game,
      {.report = "hotkeys", .rows = [&game] { return HotKeyRows(game); }, .picture = &list_});
  AddEditMenu(
      *this, [this](TextCommand command) { Edit(command); }, true);
  AddHelpMenu(*this, game);
}

QWidget* HotKeysScreen::Fields() {
  auto* const fields = new QWidget;
  auto* const grid = new QGridLayout(fields);
  grid->setContentsMargins(0, 0, 0, 0);
  key_ = new QComboBox;
  key_->setObjectName("cmbKey");
  for (const char key : AllKeys()) key_->addItem(QString(" Ctrl ") + QChar(key));
  file_ = new QLineEdit;
  file_->setObjectName("txtAutoBetFile");
  file_->setMaxLength(static_cast<int>(kHotKeyTextSize));
  description_ = new QLineEdit;
  description_->setObjectName("txtDescription");
  description_->setMaxLength(static_cast<int>(kHotKeyTextSize));
  int column = 0;
  const auto add = [&](const char* caption, QWidget* field, int stretch) {
    auto* const label = new QLabel(caption);
    label->setBuddy(field);
    field->setAccessibleName(QString(caption).remove('&'));
    grid->addWidget(label, 0, column);
    grid->addWidget(field, 1, column);
    grid->setColumnStretch(column++, stretch);
  };
  add("&Key", key_, 0);
  add("Auto-&Bet File", file_, 3);
  add("Desc&ription", description_, 3);
  auto* const select = new QPushButton("&Select Auto-Bet File");
  select->setObjectName("cmdSelectAutoBetFile");
  connect(select, &QPushButton::clicked, this, [this] { SelectFile(); });
  grid->addWidget(select, 2, 1, Qt::AlignLeft);
  auto* const insert = new QPushButton("&Add");
  insert->setObjectName("cmdAddHotKey");
  connect(insert, &QPushButton::clicked, this, [this] { Add(); });
  grid->addWidget(insert, 2, 2, Qt::AlignRight);
  return fields;
}

void HotKeysScreen::Refresh() {
  Game& game = TheGame();
  const RowList<HotKey> list = HotKeyList(game);
  const int shown = std::max(list_.RowsShown(), 1);
  const int last_top = std::max(1, list.Count() + 2 - shown);
  game.HotKeyTop = std::clamp(game.HotKeyTop, 1, last_top);
  game.HotKeyCursor = list.Clamped(game.HotKeyCursor);
  const Rows texts = HotKeyRows(game);
  std::vector<ListRow> rows;
  for (int row = game.HotKeyTop; row < game.HotKeyTop + shown && row <= list.Count() + 1; ++row) {
    ListRow line;
    line.framed = row == game.HotKeyCursor;
    if (row <= list.Count()) {
      for (const std::string& text : texts[static_cast<std::size_t>(row - 1)]) {
        line.cells.push_back({ToQt(text)});
      }
      if (list.Place(row)->HotKeySelected) line.ground = ListRow::Ground::kSelected;
    }
    rows.push_back(std::move(line));
  }
  list_.Show(std::move(rows));
  list_.ShowScroll(1, last_top, game.HotKeyTop);
  ShowPending();
}

// While a row waits for its place its fields stand out, and the pointer shows that a place is
// wanted.
void HotKeysScreen::ShowPending() {
  const bool pending = TheGame().HotKeyPending.has_value();
  if (pending == shown_pending_) return;
  shown_pending_ = pending;
  for (QWidget* const field : std::initializer_list<QWidget*>{key_, file_, description_}) {
    QPalette colors;
    if (pending) {
      for (const QPalette::ColorRole ground : {QPalette::Base, QPalette::Button}) {
        colors.setColor(ground, QColor(0xC00000));
      }
      for (const QPalette::ColorRole ink : {QPalette::Text, QPalette::ButtonText}) {
        colors.setColor(ink, Qt::white);
      }
    }
    field->setPalette(colors);
  }
  if (pending) {
    setCursor(Qt::UpArrowCursor);
  } else {
    unsetCursor();
  }
}

void HotKeysScreen::Change(const std::function<void()>& change) {
  change();
  Refresh();
}

// ---- The list -----------------------------------------------------------------------------------

int HotKeysScreen::RowAt(const ListPlace& place) const {
  return HotKeyList(TheGame()).Clamped(TheGame().HotKeyTop + place.row);
}

void HotKeysScreen::ConnectList() {
  list_.Resized = [this] { Refresh(); };
  list_.StepBy = [this](int rows) { Change([&] { TheGame().HotKeyTop += rows; }); };
  list_.GoTo = [this](int place) { Change([&] { TheGame().HotKeyTop = place; }); };
  list_.KeyPressed = [this](QKeyEvent& key) { return ListKey(key); };
  list_.Pressed = [this](const ListPlace& place, QMouseEvent& event) {
    Game& game = TheGame();
    const int row = RowAt(place);
    const RowList<HotKey> list = HotKeyList(game);
    const bool plain =
        event.button() == Qt::LeftButton && ClickOf(event.modifiers()) == Click::kPlain;
    dragging_ = false;
    pressed_row_ = 0;
    if (event.button() == Qt::RightButton) {
      const bool selected = row <= list.Count() && list.Place(row)->HotKeySelected;
      if (!game.HotKeyPending && !selected) PressHotKeyRow(game, row, Click::kPlain);
      Refresh();
      findChild<QMenu*>("mnuEdit")->popup(event.globalPosition().toPoint());
    } else if (plain && !game.HotKeyPending && row <= list.Count() &&
               list.Place(row)->HotKeySelected) {
      pressed_row_ = row;  // perhaps the selection is going to be moved
    } else {
      Change([&] { PressHotKeyRow(game, row, ClickOf(event.modifiers())); });
    }
  };
  list_.Dragged = [this](const ListPlace& place) {
    if (pressed_row_ == 0) return;
    dragging_ = dragging_ || RowAt(place) != pressed_row_;
    if (dragging_) Change([&] { TheGame().HotKeyCursor = RowAt(place); });
  };
  list_.Released = [this](const ListPlace& place) {
    const int row = RowAt(place);
    if (dragging_) {
      Change([&] { MoveHotKeys(TheGame(), row); });
    } else if (pressed_row_ != 0) {
      Change([&] { PressHotKeyRow(TheGame(), pressed_row_, Click::kPlain); });
    }
    pressed_row_ = 0;
    dragging_ = false;
  };
  list_.DoublePressed = [this](const ListPlace& place) { LoadIntoFields(RowAt(place)); };
}

bool HotKeysScreen::ListKey(QKeyEvent& key) {
  Game& game = TheGame();
  const int page = std::max(list_.RowsShown(), 1);
  const auto move = [&](int rows) {
    Change([&] { MoveCursor(HotKeyList(game), rows, page); });
    return true;
  };
  switch (key.key()) {
    case Qt::Key_Up:
      return move(-1);
    case Qt::Key_Down:
      return move(1);
    case Qt::Key_PageUp:
      return move(-page);
    case Qt::Key_PageDown:
      return move(page);
    case Qt::Key_Home:
      return move(-HotKeyList(game).Count() - 1);
    case Qt::Key_End:
      return move(HotKeyList(game).Count() + 1);
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
      Change([&] { PressHotKeyRow(game, game.HotKeyCursor, ClickOf(key.modifiers())); });
      return true;
    default:
      return false;
  }
}

void HotKeysScreen::LoadIntoFields(int row) {
  const RowList<HotKey> list = HotKeyList(TheGame());
  if (row > list.Count()) return;
  const HotKey& hot_key = *list.Place(row);
  key_->setCurrentIndex(static_cast<int>(AllKeys().find(hot_key.HotKeyChar)));
  file_->setText(ToQt(hot_key.HotKeyFile));
  description_->setText(ToQt(hot_key.HotKeyDescription));
}

// ---- Commands -----------------------------------------------------------------------------------

void HotKeysScreen::Add() {
  const char key = AllKeys()[static_cast<std::size_t>(key_->currentIndex())];
  const bool waits = AddHotKey(TheGame(), key, FromQt(file_->text()), FromQt(description_->text()));
  if (waits) {
    list_.setFocus();
  } else {
    file_->setFocus();
  }
  Refresh();
}

void HotKeysScreen::SelectFile() {
  if (const auto path = ShowFileDialog(TheGame(), "Select Auto-Bet File for Hot-Key")) {
    file_->setText(ToQt(*path));
  }
}

void HotKeysScreen::Edit(TextCommand command) {
  if (EditFocusedText(*this, command)) return;
  Game& game = TheGame();
  switch (command) {
    case TextCommand::kCut:
      return Change([&] { CutHotKeys(game); });
    case TextCommand::kCopy:
      return CopyHotKeys(game);
    case TextCommand::kPaste:
      return Change([&] { PasteHotKeys(game); });
    case TextCommand::kDelete:
      return Change([&] { DeleteHotKeys(game); });
    case TextCommand::kSelectAll:
      return Change([&] { SelectAllRows(HotKeyList(game)); });
  }
}

// A press beside the list gives up the place that was asked for.
bool HotKeysScreen::eventFilter(QObject* watched, QEvent* event) {
  if (watched == file_ && event->type() == QEvent::MouseButtonDblClick) {
    SelectFile();
    return true;
  }
  if (event->type() == QEvent::MouseButtonPress && TheGame().HotKeyPending &&
      watched->isWidgetType()) {
    const auto* const pressed = static_cast<QWidget*>(watched);
    const bool in_list = pressed == &list_ || list_.isAncestorOf(pressed);
    if (pressed->window() == this && !in_list) Change([&] { CancelHotKey(TheGame()); });
  }
  return ScreenWindow::eventFilter(watched, event);
}

void HotKeysScreen::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && TheGame().HotKeyPending) {
    Change([&] { CancelHotKey(TheGame()); });
  } else {
    ScreenWindow::keyPressEvent(event);
  }
}

bool HotKeysScreen::MayClose() {
  CancelHotKey(TheGame());
  SaveHotKeys(TheGame());
  return true;
}

}  // namespace feltmaster
