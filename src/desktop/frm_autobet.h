#pragma once

#include <map>
#include <string>
#include <vector>

#include "autobet/script_editor.h"
#include "desktop/line_composer.h"
#include "desktop/line_list.h"
#include "desktop/screen_window.h"

class QCheckBox;
class QCompleter;
class QLabel;
class QListWidget;
class QStringListModel;

namespace feltmaster {

// The script editor.
class AutoBetScreen : public ScreenWindow {
 public:
  static constexpr ScreenTraits kTraits = {"frmAutoBet", "Auto-Bet", 550, kAutoBetScreen};
  explicit AutoBetScreen(Screens& screens);
  ~AutoBetScreen() override;

  void Refresh() override;

 protected:
  bool MayClose() override;
  QSize PreferredSize() const override;
  std::int32_t HelpTopic() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Command {
    const char* name;
    const char* caption;
    QList<QKeySequence> keys;
    void (AutoBetScreen::*carry_out)() = nullptr;
    bool (*usable)(const AutoBetScreen&) = nullptr;
    bool (*checked)(const AutoBetScreen&) = nullptr;
    bool starts_group = false;
  };
  struct MenuTable {
    const char* name;
    const char* caption;
    std::vector<Command> commands;
  };
  static std::vector<MenuTable> Menus();

  void BuildMenus();
  QWidget* BuildComposers();
  QWidget* BuildStartArea();
  QWidget* BuildStartList(const char* list_name, const char* label_name, bool conditions,
                          LogButton* button);
  QWidget* BuildLabelArea();
  QWidget* BuildScript();
  QWidget* BuildTypedLine();

  // What waits to be placed, and the area whose fields went into it.
  bool Wait(ScriptLine line, QWidget* area);
  bool Refuse(const DraftFault& fault, LineComposer* composer);
  bool LogDraft(LineComposer& composer);
  bool LogLabel();
  void StopWaiting();
  void LoadLine(const ScriptLine& line);
  void ShowAll();
  void ShowCommands();
  void Suggest();
  void TakeTypedLine();
  void ShowFault(const std::string& text);

  // The text field in which the Edit commands work; null when they work on the lines.
  QLineEdit* FocusedField() const;
  void FindInField(bool forward);
  void TellNotFound();

  void New();
  void Open();
  void Save();
  void SaveAs();
  void Print();
  void Undo();
  void Redo();
  void Cut();
  void Copy();
  void Paste();
  void Delete();
  void SelectAll();
  void EditAsText();
  void PasteText();
  void CopyToFile();
  void CopyToText();
  void PasteFrom();
  void Find();
  void FindNext();
  void FindPrevious();
  void SwitchSteps();
  void SwitchMessages();
  void SwitchMessagesHyper();
  void SwitchLineNumbers();
  void Check();
  void SwitchActive();
  void KeepCursorInView();

  Game& game_;
  ScriptEditor editor_;
  LineComposer* condition_ = nullptr;
  LineComposer* action_ = nullptr;
  LineList* list_ = nullptr;
  QLineEdit* label_ = nullptr;
  QCheckBox* active_ = nullptr;
  QLabel* line_count_ = nullptr;
  QLabel* selected_count_ = nullptr;
  QLabel* unsaved_ = nullptr;
  QLineEdit* typed_ = nullptr;
  QLabel* typed_fault_ = nullptr;
  QStringListModel* suggestions_ = nullptr;
  QCompleter* completer_ = nullptr;
  std::int32_t retyped_row_ = 0;  // that the typed line takes the place of; 0 for none
  std::size_t labels_ = 0;        // of the script, when it was last shown
  std::vector<QWidget*> areas_;   // in which the fields of a waiting line are shown
  std::vector<std::pair<QAction*, Command>> commands_;
};

}  // namespace feltmaster
