#pragma once

#include <array>
#include <functional>
#include <utility>
#include <vector>

#include "desktop/menu_table.h"
#include "desktop/painted_list.h"
#include "desktop/screen_window.h"
#include "files/roll_editor.h"
#include "view/rows.h"

class QAction;
class QButtonGroup;
class QLabel;
class QSpinBox;

namespace feltmaster {

class AmountField;

// The editor of the Dice Roll File in use, and the switch of the recorder. It reads the rolls in
// view and nothing else of the file.
class DiceRollFilesScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmDiceRollFiles", "Dice Roll Files", 210,
                                           kDiceRollFilesScreen};
  explicit DiceRollFilesScreen(Screens& screens);

  void Refresh() override;

 private:
  void BuildMenus();
  void BuildHighlightMenu();
  QWidget* RecorderGroup();
  QWidget* CounterGroup();
  QWidget* EntryGroup();
  QWidget* PrintGroup();
  QWidget* OptionRow(const char* name, std::initializer_list<const char*> captions,
                     QButtonGroup*& group);
  void ConnectList();

  // Carries out a command, which may take its time over a long file, and shows what it has done.
  void Do(const std::function<bool(Game&)>& command);
  void Edit(TextCommand command);
  Rows RowsInView();
  bool ListKey(QKeyEvent& key);
  void ShowRows();
  void ShowCommands();

  PaintedList list_;
  std::int32_t followed_ = 0;  // the position when the list was last brought to it
  QButtonGroup* recorder_ = nullptr;
  QButtonGroup* insert_ = nullptr;
  QLabel* total_ = nullptr;
  QLabel* selected_ = nullptr;
  QLabel* last_ = nullptr;
  AmountField* next_ = nullptr;
  QSpinBox* font_size_ = nullptr;
  std::vector<std::function<void()>> shows_;
  std::vector<std::pair<QAction*, bool RollCommands::*>> usable_;
};

}  // namespace feltmaster
