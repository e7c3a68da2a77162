#include <QAbstractItemView>
#include <QCompleter>
#include <QDropEvent>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMimeData>
#include <QWindow>
#include <fstream>

#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "desktop/at_the_table.h"
#include "desktop/frm_autobet.h"

namespace feltmaster {

namespace {

class TheScriptEditor : public AtTheTable {
 protected:
  TheScriptEditor() : screen_(new AutoBetScreen(window_->AllScreens())) {
    screen_->ShowInPlace();
    QApplication::processEvents();
    list_ = dynamic_cast<LineList*>(Find(*screen_, "picLoggedBets"));
  }
  ~TheScriptEditor() override { delete screen_; }

  void Load(std::string_view text) {
    auto script = ComposeScript(text);
    ASSERT_TRUE(std::holds_alternative<std::vector<ScriptLine>>(script));
    SetScript(*game_, std::get<std::vector<ScriptLine>>(std::move(script)), "");
    screen_->Refresh();
  }
  void PickRow(const char* list, int row) { Find<QListWidget>(*screen_, list)->setCurrentRow(row); }
  void PickText(const char* list, const char* text) {
    auto* const box = Find<QListWidget>(*screen_, list);
    const auto found = box->findItems(text, Qt::MatchExactly);
    ASSERT_FALSE(found.isEmpty()) << text;
    box->setCurrentItem(found.front());
  }
  void Fill(const char* field, const char* text) {
    auto* const box = Find<QLineEdit>(*screen_, field);
    box->selectAll();
    QTest::keyClicks(box, text);
  }
  void PressButton(const char* name) { Find<QAbstractButton>(*screen_, name)->click(); }
  void ClickLine(int row, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::mouseClick(list_->viewport(), Qt::LeftButton, held, list_->PlaceOf(row).center());
  }
  void Drop(const char* format, const char* data, int row) {
    QMimeData mime;
    mime.setData(format, data);
    const QPoint at = list_->PlaceOf(row).center();
    QDragEnterEvent enter(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list_->viewport(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(at, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(list_->viewport(), &drop);
  }
  void ChooseEntry(const char* name) {
    auto* const action = Find<QAction>(*screen_, name);
    ASSERT_TRUE(action->isEnabled()) << name;
    action->trigger();
  }
  std::string Script() const {
    std::string text;
    for (const ScriptLine& line : game_->ScriptLines) text += line.LineText + '\n';
    return text;
  }
  bool Waits() const { return screen_->cursor().shape() == Qt::UpArrowCursor; }

  QPointer<AutoBetScreen> screen_;
  LineList* list_ = nullptr;
};

TEST_F(TheScriptEditor, ComposesEveryRowOfItsListsAsTheTextDoes) {
  const auto log_each = [&](const char* list, const char* button, const char* flag_field) {
    const int rows = Find<QListWidget>(*screen_, list)->count();
    for (int row = 0; row < rows; ++row) {
      PickRow(list, row);
      auto* const flag = Find<QLineEdit>(*screen_, flag_field);
      if (flag->isVisible()) QTest::keyClicks(flag, "Low");
      const std::size_t before = game_->ScriptLines.size();
      PressButton(button);
      Type(Qt::Key_Return);
      EXPECT_EQ(game_->ScriptLines.size(), before + 1) << row;
      const auto composed = ComposeLine(game_->ScriptLines.front().LineText);
      const auto* line = std::get_if<ScriptLine>(&composed);
      EXPECT_TRUE(line != nullptr && SameLine(*line, game_->ScriptLines.front()))
          << game_->ScriptLines.front().LineText;
    }
    return rows;
  };
  AddLabel(*game_, "again");
  game_->ScriptCursorLine = 1;
  EXPECT_EQ(log_each("listStartCondition", "cmdStartCondition", "txtConditionFlag"), 8);
  EXPECT_EQ(log_each("listStartAction", "cmdStartAction", "txtActionFlag"), 3);
  EXPECT_EQ(log_each("listCondition", "cmdLogCondition", "txtConditionFlag"),
            static_cast<int>(kConditions.size()));
  EXPECT_EQ(log_each("listAction", "cmdLogAction", "txtActionFlag"),
            static_cast<int>(kActions.size()));
}

TEST_F(TheScriptEditor, PlacesALineByClickKeysAndDrag) {
  PressButton("cmdStartCondition");
  EXPECT_TRUE(Waits());
  ClickLine(1);
  EXPECT_FALSE(Waits());
  PickText("listCondition", "Pass Line");
  PickText("listWhat", "has won more than");
  Fill("txtConditionAmount", "2");
  EXPECT_EQ(Find<QLabel>(*screen_, "lblDescribeTxtNumTimes")->text(), "times");
  PressButton("cmdLogCondition");
  ClickLine(2);
  PickRow("listStartAction", 0);
  PressButton("cmdStartAction");
  Type(Qt::Key_Down);
  Type(Qt::Key_Space);
  PickText("listAction", "Bet $");
  PickText("listTo", "Pass Line");
  Fill("txtActionAmount", "12.50");
  PressButton("cmdLogAction");
  Drop(kPendingLineFormat, "", 4);
  EXPECT_EQ(Script(),
            " When . . .\n          Pass Line has won more than 2 times\n then . . .\n"
            "          Bet $ 12.5 on Pass Line\n");

  // A press elsewhere drops what waits; a refused line never waits.
  PressButton("cmdStartAction");
  QTest::mousePress(Find(*screen_, "txtLabel"), Qt::LeftButton);
  EXPECT_FALSE(Waits());
  PickText("listAction", "Gosub");
  ExpectPress("cmdButton0");
  PressButton("cmdLogAction");
  EXPECT_EQ(Titles.back(), "Log Action");
  EXPECT_FALSE(Waits());
  Fill("txtLabel", " start");
  PressButton("cmdLogLabel");
  ClickLine(1);
  EXPECT_EQ(Find<QLabel>(*screen_, "lblLabel")->text(), "\"start\"");
  EXPECT_EQ(Find<QLabel>(*screen_, "lblNumAutoBetLines")->text(), "5 lines");

  // A double press takes a line back into the fields.
  QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, list_->PlaceOf(3).center());
  EXPECT_EQ(Find<QLabel>(*screen_, "lblWhat")->text(), "has won more than");
  QTest::mouseDClick(list_->viewport(), Qt::LeftButton, {}, list_->PlaceOf(5).center());
  EXPECT_EQ(Find<QLineEdit>(*screen_, "txtActionAmount")->text(), "12.5");

  // The selected line moves where it is dropped.
  ClickLine(1);
  Drop(kSelectedLinesFormat, "1", 5);
  EXPECT_EQ(game_->ScriptLines[4].LineText, " start");
  ChooseEntry("mnuUndo");
  EXPECT_EQ(Find<QLabel>(*screen_, "lblNumLinesSelected")->text(), "1 selected");
  NothingExpected();
}

TEST_F(TheScriptEditor, CarriesOutTheEntriesOfItsMenus) {
  Load("When . . .\nOn each roll\nthen . . .\nBet $ 5 on Field\n'end\n");
  ClickLine(4);
  ClickLine(2, Qt::ShiftModifier);
  EXPECT_EQ(Find<QLabel>(*screen_, "lblNumLinesSelected")->text(), "3 selected");
  const std::string whole = Script();
  ChooseEntry("mnuCut");
  EXPECT_EQ(game_->ScriptLines.size(), 2U);
  ChooseEntry("mnuPaste");
  EXPECT_EQ(Script(), whole);
  ChooseEntry("mnuSelectAll");
  ChooseEntry("mnuCopy");
  EXPECT_EQ(surface_->Clipboard(), whole);
  ChooseEntry("mnuDelete");
  EXPECT_EQ(Script(), "");
  ChooseEntry("mnuUndo");
  EXPECT_EQ(Script(), whole);
  ChooseEntry("mnuRedo");
  EXPECT_EQ(Script(), "");
  ChooseEntry("mnuPasteText");
  EXPECT_EQ(Script(), whole);

  // With the focus in a field the same entries work there.
  auto* const label = Find<QLineEdit>(*screen_, "txtLabel");
  label->setFocus();
  label->setText("abc");
  ChooseEntry("mnuSelectAll");
  ChooseEntry("mnuCut");
  EXPECT_EQ(label->text(), "");
  EXPECT_EQ(Script(), whole);
  list_->setFocus();

  Expect([](QWidget& dialog) {
    auto& ask = dynamic_cast<QInputDialog&>(dialog);
    ask.setTextValue("BET $");
    ask.accept();
  });
  ChooseEntry("mnuFind");
  EXPECT_EQ(game_->ScriptCursorLine, 4);
  EXPECT_EQ(list_->RowAt(0), 4);
  ChooseEntry("mnuFindPrevious");
  EXPECT_EQ(game_->ScriptCursorLine, 4);

  const std::pair<const char*, std::function<bool()>> switches[] = {
      {"mnuShowSteps", [&] { return game_->ShowSteps; }},
      {"mnuShowLoggedMessagesNormal", [&] { return (game_->NotifyFlags & 8) != 0; }},
      {"mnuShowLoggedMessagesHyper", [&] { return (game_->NotifyFlags & 16) != 0; }},
      {"mnuShowLineNumbers", [&] { return game_->ShowLineNumbers; }},
  };
  for (const auto& [entry, is_on] : switches) {
    const bool before = is_on();
    ChooseEntry(entry);
    EXPECT_NE(is_on(), before) << entry;
    EXPECT_EQ(Find<QAction>(*screen_, entry)->isChecked(), is_on()) << entry;
  }
  PressButton("chkAutoBetsActivated");
  EXPECT_EQ(game_->ScriptActive, 1);

  ExpectPress("cmdButton0");
  ChooseEntry("mnuCheckBets");
  EXPECT_EQ(Titles.back(), "Auto-Bet");
  game_->ScriptFileName = (folder_ / "mine.bet").string();
  ChooseEntry("mnuSave");
  EXPECT_EQ(screen_->windowTitle(), "Auto-Bet (mine.bet)");
  ChooseEntry("mnuUndo");
  EXPECT_EQ(Find<QLabel>(*screen_, "lblUnsaved")->text(), "Not saved");
  ExpectPress("cmdButton2");
  ChooseEntry("mnuNew");
  EXPECT_EQ(Titles.back(), "Save Auto-Bets?");
  EXPECT_EQ(screen_->windowTitle(), "Auto-Bet");
  EXPECT_FALSE(Find<QAction>(*screen_, "mnuUndo")->isEnabled());
  ExpectPress("cmdButton0");
  ChooseEntry("mnuCheckBets");  // empty
  NothingExpected();
}

// Each step is a command, the dialogs that it brings up and what they are answered, and what holds
// then.
TEST_F(TheScriptEditor, KeepsScriptsInFiles) {
  constexpr const char* kWhole = "When . . .\nOn each roll\nthen . . .\nBet $ 5 on Field\n";
  constexpr const char* kYes = "cmdButton1";
  constexpr const char* kNo = "cmdButton2";
  constexpr const char* kCancel = "cmdButton3";
  const auto choose = [&](const char* entry, const std::vector<std::string>& answers) {
    Titles.clear();
    ExpectAnswers(answers);
    ChooseEntry(entry);
    NothingExpected();
    return Titles;
  };
  const auto bytes = [&](const char* name) {
    std::ifstream file(folder_ / name, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
  };
  using Dialogs = std::vector<std::string>;
  const std::string save_as = "Save Auto-Bet File As";

  Load(kWhole);
  const std::string whole = Script();
  EXPECT_EQ(choose("mnuSave", {"cmdCancel"}), Dialogs{save_as});
  EXPECT_EQ(game_->ScriptFileName, "");
  EXPECT_EQ(choose("mnuSaveAs", {"one.log", "cmdButton0", "one"}),
            (Dialogs{save_as, "Error", save_as}));
  EXPECT_EQ(screen_->windowTitle(), "Auto-Bet (one.bet)");
  const std::string saved = bytes("one.bet");
  ClickLine(4);
  EXPECT_EQ(choose("mnuCopyToAutoBetFile", {"part"}), Dialogs{"Copy To Auto-Bet File"});
  EXPECT_EQ(choose("mnuCopyToTextFile", {"part"}), Dialogs{"Copy To Text File"});
  EXPECT_EQ(bytes("part.txt"), "          Bet $ 5 on Field\r\r\n");
  EXPECT_EQ(choose("mnuCopyToTextFile", {"part", kNo, "/no/such/folder/part", "cmdButton0"}),
            (Dialogs{"Copy To Text File", "Copy To Text File", "Copy To Text File",
                     "Unable to Save Text File"}));
  EXPECT_EQ(game_->LastErrorText,
            "No such file or directory, Error #2 occurred, at: Form Auto-Bet Menu Copy To Text "
            "File");
  EXPECT_EQ(choose("mnuPasteFrom", {"part"}), Dialogs{"Paste From Auto-Bet File"});
  EXPECT_EQ(game_->ScriptLines.size(), 5U);
  EXPECT_EQ(game_->ScriptFileName, (folder_ / "one.bet").string());
  ChooseEntry("mnuUndo");
  EXPECT_EQ(Script(), whole);

  // What is not saved is asked about.
  ClickLine(4);
  ChooseEntry("mnuDelete");
  EXPECT_EQ(choose("mnuOpen", {kCancel}), Dialogs{"Save Auto-Bets?"});
  EXPECT_EQ(choose("mnuOpen", {kNo, "cmdCancel"}),
            (Dialogs{"Save Auto-Bets?", "Open Auto-Bet File"}));
  EXPECT_EQ(game_->ScriptLines.size(), 3U);
  EXPECT_EQ(bytes("one.bet"), saved);
  EXPECT_EQ(choose("mnuOpen", {kYes, "part"}), (Dialogs{"Save Auto-Bets?", "Open Auto-Bet File"}));
  EXPECT_NE(bytes("one.bet"), saved);
  EXPECT_EQ(Script(), "          Bet $ 5 on Field\n");
  EXPECT_FALSE(Find<QAction>(*screen_, "mnuUndo")->isEnabled());
  std::ofstream(folder_ / "broken.bet") << "Feltmaster AutoBets";
  EXPECT_EQ(choose("mnuOpen", {"broken", "cmdButton0", "cmdCancel"}).size(), 3U);
  EXPECT_EQ(screen_->windowTitle(), "Auto-Bet (part.bet)");
  EXPECT_EQ(Script(), "          Bet $ 5 on Field\n");
  ClickLine(1);
  ChooseEntry("mnuCopy");
  ChooseEntry("mnuPaste");
  EXPECT_EQ(choose("mnuNew", {kCancel}), Dialogs{"Save Auto-Bets?"});
  EXPECT_EQ(game_->ScriptLines.size(), 2U);
  game_->ScriptFileName.clear();
  EXPECT_EQ(choose("mnuNew", {kYes, "cmdCancel"}), (Dialogs{"Save Auto-Bets?", save_as}));
  EXPECT_EQ(game_->ScriptLines.size(), 2U);
  EXPECT_EQ(choose("mnuNew", {kYes, "two"}), (Dialogs{"Save Auto-Bets?", save_as}));
  EXPECT_EQ(screen_->windowTitle(), "Auto-Bet");
  EXPECT_EQ(Script(), "");
  EXPECT_EQ(choose("mnuOpen", {"two"}), Dialogs{"Open Auto-Bet File"});
  EXPECT_EQ(game_->ScriptLines.size(), 2U);
}

TEST_F(TheScriptEditor, TakesTypedLines) {
  auto* const typed = Find<QLineEdit>(*screen_, "txtTypedLine");
  typed->setFocus();
  for (const char* line : {"when . . .", "on each roll", "then . . .", "bet $ 5 on field"}) {
    QTest::keyClicks(typed, line);
    QTest::keyClick(typed, Qt::Key_Return);
  }
  EXPECT_EQ(Script(),
            " When . . .\n          On each roll\n then . . .\n          Bet $ 5 on Field\n");
  QTest::keyClicks(typed, "bet $ 5 on felt");
  QTest::keyClick(typed, Qt::Key_Return);
  EXPECT_TRUE(Find<QLabel>(*screen_, "lblTypedFault")->text().startsWith("Expected "));
  EXPECT_EQ(typed->cursorPosition(), 11);
  typed->clear();
  game_->ScriptCursorLine = 4;
  ChooseEntry("mnuEditAsText");
  EXPECT_EQ(typed->text(), "Bet $ 5 on Field");
  typed->setText("Bet $ 6 on Place 6");
  QTest::keyClick(typed, Qt::Key_Return);
  EXPECT_EQ(game_->ScriptLines.size(), 4U);
  EXPECT_EQ(game_->ScriptLines[3].LineText, "          Bet $ 6 on Place 6");
}

TEST_F(TheScriptEditor, ARowThatIsOfferedIsTakenIntoTheLineFirst) {
  auto* const typed = Find<QLineEdit>(*screen_, "txtTypedLine");
  typed->setFocus();
  QTest::keyClicks(typed, "bet $ 5 on fiel");
  QWidget* const list = typed->completer()->popup();
  ASSERT_TRUE(list->isVisible());
  QTest::keyClick(list, Qt::Key_Down);
  QTest::keyClick(list, Qt::Key_Return);
  QApplication::processEvents();
  EXPECT_EQ(typed->text(), "bet $ 5 on Field");
  EXPECT_TRUE(game_->ScriptLines.empty());
  QTest::keyClick(typed, Qt::Key_Return);
  EXPECT_EQ(game_->ScriptLines.size(), 1U);
  EXPECT_EQ(typed->text(), "");
}

TEST_F(TheScriptEditor, AsksBeforeItLeavesABrokenScript) {
  Load("When . . .\nOn each roll\n");
  game_->ScriptActive = 1;
  ExpectPress("cmdButton2");
  EXPECT_FALSE(screen_->close());
  EXPECT_EQ(Titles.back(), "Missing Action Lines");
  ExpectPress("cmdButton1");
  EXPECT_TRUE(screen_->close());
  EXPECT_EQ(game_->ScriptActive, 0);
  EXPECT_TRUE(std::filesystem::exists(folder_ / "active.tmp"));
  NothingExpected();
}

TEST_F(TheScriptEditor, IsModalOverTheTable) {
  screen_->close();
  Screens& screens = window_->AllScreens();
  Expect([&](QWidget& editor) {
    EXPECT_EQ(editor.objectName(), "frmAutoBet");
    Find<QAction>(editor, "mnuSummary")->trigger();
    // It would be blocked by the editor if it did not belong to it.
    EXPECT_EQ(screens.Find(WindowCommand::kSummary)->windowHandle()->transientParent(),
              editor.windowHandle());
    editor.close();
  });
  Choose("mnuAutoBet");
  EXPECT_EQ(screens.Find(WindowCommand::kSummary)->windowHandle()->transientParent(),
            window_->windowHandle());
  NothingExpected();
}

}  // namespace

}  // namespace feltmaster
