#include "desktop/menu_table.h"

#include <QBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

namespace feltmaster {

namespace {

// In front of another entry, or at the end.
QAction* Insert(QMenu& menu, QAction* before, const ScreenCommand& command) {
  if (command.name == nullptr) return menu.insertSeparator(before);
  auto* const action = new QAction(QString::fromUtf8(command.caption), &menu);
  action->setObjectName(QString::fromLatin1(command.name));
  action->setShortcut(QKeySequence(QString::fromLatin1(command.shortcut)));
  QObject::connect(action, &QAction::triggered, action, [act = command.act] { act(); });
  menu.insertAction(before, action);
  return action;
}

QMenu* Filled(QMenu* menu, const char* name, const ScreenCommands& commands) {
  menu->setObjectName(QString::fromLatin1(name));
  for (const ScreenCommand& command : commands) AddEntry(*menu, command);
  return menu;
}

}  // namespace

QAction* AddEntry(QMenu& menu, const ScreenCommand& command) {
  return Insert(menu, nullptr, command);
}

QMenu* AddMenu(QMenu& parent, const char* name, const char* caption,
               const ScreenCommands& commands) {
  return Filled(parent.addMenu(QString::fromUtf8(caption)), name, commands);
}

QMenu* AddMenu(QMainWindow& window, const char* name, const char* caption,
               const ScreenCommands& commands) {
  return Filled(window.menuBar()->addMenu(QString::fromUtf8(caption)), name, commands);
}

void PutFirst(QMenu& menu, const ScreenCommands& commands) {
  QAction* const first = menu.insertSeparator(menu.actions().value(0));
  for (const ScreenCommand& command : commands) Insert(menu, first, command);
}

QPushButton* AddButton(QBoxLayout& layout, const ScreenCommand& command) {
  auto* const button = new QPushButton(QString::fromUtf8(command.caption));
  button->setObjectName(QString::fromLatin1(command.name));
  QObject::connect(button, &QPushButton::clicked, button, [act = command.act] { act(); });
  layout.addWidget(button);
  return button;
}

bool EditFocusedText(const QWidget& window, TextCommand command) {
  auto* const field = qobject_cast<QLineEdit*>(window.focusWidget());
  if (field == nullptr) return false;
  switch (command) {
    case TextCommand::kCut:
      field->cut();
      break;
    case TextCommand::kCopy:
      field->copy();
      break;
    case TextCommand::kPaste:
      field->paste();
      break;
    case TextCommand::kDelete:
      field->del();
      break;
    case TextCommand::kSelectAll:
      field->selectAll();
      break;
  }
  return true;
}

QMenu* AddEditMenu(QMainWindow& window, const std::function<void(TextCommand)>& edit,
                   bool select_all) {
  const auto act = [&](TextCommand command) { return [edit, command] { edit(command); }; };
  QMenu* const menu = AddMenu(window, "mnuEdit", "&Edit",
                              {{"mnuCut", "Cu&t", act(TextCommand::kCut), "Ctrl+X"},
                               {"mnuCopy", "&Copy", act(TextCommand::kCopy), "Ctrl+C"},
                               {"mnuPaste", "&Paste", act(TextCommand::kPaste), "Ctrl+V"},
                               {"mnuDelete", "&Delete", act(TextCommand::kDelete), "Del"},
                               {}});
  if (select_all) {
    AddEntry(*menu, {"mnuSelectAll", "Se&lect All", act(TextCommand::kSelectAll), "Ctrl+A"});
  }
  return menu;
}

}  // namespace feltmaster
