#pragma once

#include <QMainWindow>
#include <QMenu>
#include <functional>
#include <vector>

class QBoxLayout;
class QPushButton;

namespace feltmaster {

// A command of a screen under its name and caption: an entry of a menu, or a button. In a menu one
// without a name is a rule.
struct ScreenCommand {
  const char* name = nullptr;
  const char* caption = "";
  std::function<void()> act = {};
  const char* shortcut = "";
};
using ScreenCommands = std::vector<ScreenCommand>;

QAction* AddEntry(QMenu& menu, const ScreenCommand& command);
QMenu* AddMenu(QMenu& parent, const char* name, const char* caption,
               const ScreenCommands& commands = {});
QMenu* AddMenu(QMainWindow& window, const char* name, const char* caption,
               const ScreenCommands& commands = {});
// In front of what the menu holds, with a rule between.
void PutFirst(QMenu& menu, const ScreenCommands& commands);

QPushButton* AddButton(QBoxLayout& layout, const ScreenCommand& command);

// The Edit menu on the text field of a window that has the focus. False when none has it. Delete
// with nothing selected takes the character behind the cursor.
enum class TextCommand { kCut, kCopy, kPaste, kDelete, kSelectAll };
bool EditFocusedText(const QWidget& window, TextCommand command);
// An Edit menu with these commands; the last one is a matter of lists.
QMenu* AddEditMenu(QMainWindow& window, const std::function<void(TextCommand)>& edit,
                   bool select_all);

}  // namespace feltmaster
