#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <tuple>

#include "autobet/hot_keys.h"
#include "desktop/at_the_table.h"
#include "desktop/frm_hot_keys.h"
#include "desktop/painted_list.h"
#include "desktop/qt_text.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

class OtherScreens : public AtTheTable {
 protected:
  ScreenWindow& Open(WindowCommand which) {
    window_->AllScreens().Open(which);
    QApplication::processEvents();
    return *window_->AllScreens().Find(which);
  }
  static void ChooseIn(QWidget& screen, const char* entry) {
    auto* const action = screen.findChild<QAction*>(entry);
    ASSERT_NE(action, nullptr) << entry;
    action->trigger();
  }
  static void Click(QWidget& screen, const char* button) {
    if (auto* const found = Find<QAbstractButton>(screen, button)) found->click();
  }
};

TEST_F(OtherScreens, AScreenThatWasClosedComesUpAnew) {
  for (int i = 0; i < 2; ++i) {
    ScreenWindow& screen = Open(WindowCommand::kFlags);
    screen.close();  // and is deleted when its turn comes
    ScreenWindow& again = Open(WindowCommand::kFlags);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window_->AllScreens().Find(WindowCommand::kFlags), &again);
  }
}

// With the decoration of its windows and a panel, of a desktop of 1366 by 768.
TEST_F(OtherScreens, EveryScreenFitsASmallDesktop) {
  constexpr QSize kRoom(1366 - 20, 768 - 60);
  for (const WindowCommand which : Screens::All()) {
    QTimer::singleShot(0, [&] {  // a modal one returns when it is closed
      ScreenWindow* const screen = window_->AllScreens().Find(which);
      ASSERT_NE(screen, nullptr);
      const QSize least = screen->minimumSizeHint();
      EXPECT_LE(least.width(), kRoom.width()) << screen->objectName().toStdString();
      EXPECT_LE(least.height(), kRoom.height()) << screen->objectName().toStdString();
      screen->close();
    });
    window_->AllScreens().Open(which);
    QApplication::processEvents();
  }
}

// ---- Chip-Stacks --------------------------------------------------------------------------------

class ChipStacks : public OtherScreens {
 protected:
  ChipStacks() : screen_(Open(WindowCommand::kChipStacks)) {
    list_ = Find<PaintedList>(screen_, "picStacks");
    box_ = Find<QLineEdit>(screen_, "txtChipStackInput");
  }
  void PressCell(int row, int column) {
    QTest::mouseClick(list_, Qt::LeftButton, {}, list_->CellRect({row, column}).center());
  }
  MoneyAmount Stack(int number) const { return game_->BetAmount[kFirstStack + number]; }

  ScreenWindow& screen_;
  PaintedList* list_ = nullptr;
  QLineEdit* box_ = nullptr;
};

TEST_F(ChipStacks, TheBoxEditsCells) {
  PressCell(3, 1);
  QTest::keyClicks(box_, "-12.50x");  // a letter is no part of an amount
  PressCell(3, 2);                    // what is open is kept
  EXPECT_EQ(Stack(3), -MoneyAmount::FromRaw(125'000));
  QTest::keyClicks(box_, "Owed & more");
  QTest::keyClick(box_, Qt::Key_Return);
  EXPECT_EQ(game_->ChipStackName[3], "Owed & more");

  // From cell to cell with the arrows; a cell that is left without a touch keeps what a script
  // made of it meanwhile.
  QTest::keyClick(box_, Qt::Key_Left);
  QTest::keyClick(box_, Qt::Key_Down);
  EXPECT_EQ(box_->property("tag"), 4);
  game_->BetAmount.Set(kFirstStack + 4, MoneyAmount(7));
  surface_->RefreshOpenScreens();
  screen_.Refresh();
  EXPECT_EQ(box_->text(), "7");
  QTest::keyClick(box_, Qt::Key_PageDown);
  EXPECT_EQ(Stack(4), MoneyAmount(7));
  EXPECT_EQ(box_->property("tag"), 4 + list_->RowsShown());
  EXPECT_GT(game_->StackListScroll, 0);
  QTest::keyClicks(box_, "99");
  QTest::keyClick(box_, Qt::Key_Escape);  // gives up
  EXPECT_FALSE(box_->isVisible());
  EXPECT_EQ(Stack(4 + list_->RowsShown()), MoneyAmount());

  // The last row is reached, and what is typed is kept when the screen closes.
  for (int i = 0; i < 20; ++i) QTest::keyClick(list_, Qt::Key_PageDown);
  for (int i = 0; i < 20; ++i) QTest::keyClick(box_, Qt::Key_PageDown);
  EXPECT_EQ(box_->property("tag"), 99);
  QTest::keyClicks(box_, "5");
  screen_.close();
  EXPECT_EQ(Stack(99), MoneyAmount(5));
}

TEST_F(ChipStacks, TheEditMenuWorksOnTheBoxAndClearsTheList) {
  PressCell(0, 2);
  QTest::keyClicks(box_, "abcd");
  ChooseIn(screen_, "mnuDelete");  // nothing behind the cursor
  box_->setCursorPosition(1);
  ChooseIn(screen_, "mnuDelete");
  EXPECT_EQ(box_->text(), "acd");
  box_->selectAll();
  ChooseIn(screen_, "mnuCopy");
  ChooseIn(screen_, "mnuCut");
  EXPECT_EQ(box_->text(), "");
  ChooseIn(screen_, "mnuPaste");
  EXPECT_EQ(box_->text(), "acd");
  QTest::keyClick(box_, Qt::Key_Return);

  game_->BetAmount.Set(kFirstStack, MoneyAmount(5));
  ExpectPress("cmdButton2");  // No
  ChooseIn(screen_, "mnuDeleteAll");
  EXPECT_EQ(Stack(0), MoneyAmount(5));
  ExpectPress("cmdButton1");
  ChooseIn(screen_, "mnuDeleteAllNames");
  EXPECT_EQ(box_->text(), "");
  EXPECT_EQ(game_->ChipStackName[0], "");
  EXPECT_EQ(Stack(0), MoneyAmount(5));
  PressCell(0, 1);
  ExpectPress("cmdButton1");
  ChooseIn(screen_, "mnuDeleteAllValues");
  EXPECT_EQ(Stack(0), MoneyAmount());
  EXPECT_EQ(box_->text(), "");
  ChooseIn(screen_, "mnuDisplayZero");
  EXPECT_TRUE(game_->StackDisplayZero);
  EXPECT_EQ(box_->text(), "0");
  NothingExpected();
}

TEST_F(ChipStacks, ThePanelPutsFourOnTheTable) {
  ChooseIn(screen_, "mnuSetStacks");
  auto* const second = Find<QLineEdit>(screen_, "txtStackNum2");
  EXPECT_EQ(second->text(), "2");
  second->setText("4");
  ExpectPress("cmdButton0");
  Click(screen_, "cmdAccept");
  EXPECT_EQ(screen_.focusWidget(), Find(screen_, "txtStackNum4"));  // which repeats the second
  EXPECT_EQ(game_->StackSlots[2], 102);
  second->setText("77");
  Click(screen_, "cmdAccept");
  EXPECT_EQ(game_->StackSlots[2], 177);
  EXPECT_FALSE(Find(screen_, "picSetStacks")->isVisible());
  ChooseIn(screen_, "mnuSetStacks");
  second->setText("78");
  QTest::keyClick(second, Qt::Key_Escape);
  EXPECT_EQ(game_->StackSlots[2], 177);
  EXPECT_TRUE(screen_.isVisible());
  NothingExpected();
}

// ---- Flags --------------------------------------------------------------------------------------

TEST_F(OtherScreens, FlagsAreSetByHand) {
  ScreenWindow& screen = Open(WindowCommand::kFlags);
  auto* const list = Find<QListWidget>(screen, "lstShowflags");
  EXPECT_FALSE(Find(screen, "cmdSetTruth0")->isEnabled());
  for (const char* const name : {"a", "b", "c"}) game_->ScriptFlags.push_back({.FlagName = name});
  screen.Refresh();
  const auto shown = [&] {
    std::string text;
    for (int i = 0; i < list->count(); ++i) text += list->item(i)->text().toStdString() + ' ';
    return text;
  };
  list->item(1)->setSelected(true);
  Click(screen, "cmdSetTruth0");
  EXPECT_EQ(shown(), "a - False b - True c - False ");
  Click(screen, "cmdSelectAll");
  Click(screen, "cmdSetTruth2");
  EXPECT_EQ(shown(), "a - True b - False c - True ");
  EXPECT_FALSE(game_->ScriptFlags[0].FlagChanged);
  EXPECT_TRUE(game_->GameChanged);
  list->clearSelection();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualItemRect(list->item(2)).center());
  QTest::mouseDClick(list->viewport(), Qt::LeftButton, {},
                     list->visualItemRect(list->item(2)).center());
  EXPECT_EQ(shown(), "a - True b - False c - False ");
  list->item(0)->setSelected(true);
  Click(screen, "cmdSetTruth1");
  EXPECT_EQ(shown(), "a - False b - False c - False ");
  // A script changes its flags: the selection stays.
  game_->ScriptFlags[1].FlagValue = true;
  game_->ScriptFlags.pop_back();
  screen.Refresh();
  EXPECT_EQ(shown(), "a - False b - True ");
  EXPECT_TRUE(list->item(0)->isSelected());
}

// ---- Auto-Play ----------------------------------------------------------------------------------

class AutoPlay : public OtherScreens {
 protected:
  ScreenWindow& screen_ = Open(WindowCommand::kAutoPlay);
};

TEST_F(AutoPlay, EachControlWritesItsSettingAndShowsIt) {
  for (const auto& [name, setting, count] :
       {std::tuple{"optHandleWinningBets", &game_->HandleWinningBets, 8},
        std::tuple{"optHandleLosingBets", &game_->HandleLosingBets, 8},
        std::tuple{"optAutoAdjustBetAmounts", &game_->AutoAdjustBetAmounts, 3}}) {
    for (int i = 0; i < count; ++i) {
      const std::string option = name + std::to_string(i);
      Click(screen_, option.c_str());
      EXPECT_EQ(*setting, i) << option;
      *setting = (i + 1) % count;
      screen_.Refresh();
      EXPECT_FALSE(Find<QAbstractButton>(screen_, option.c_str())->isChecked()) << option;
    }
  }
  for (const auto& [name, setting] :
       {std::pair{"cmbLayBias", &game_->LayBias}, std::pair{"cmbPlaceBias", &game_->PlaceBias},
        std::pair{"cmbDoBias", &game_->DoBias}}) {
    auto* const list = Find<QComboBox>(screen_, name);
    EXPECT_EQ(list->count(), 3);
    game_->AutoAdjustBetAmounts = kAdjustManually;
    *setting = kIncrease;
    screen_.Refresh();
    EXPECT_FALSE(list->isEnabled());
    EXPECT_EQ(list->currentIndex(), kIncrease);
    game_->AutoAdjustBetAmounts = kMinorCorrection;
    screen_.Refresh();
    QTest::keyClick(list, Qt::Key_Down);
    EXPECT_EQ(*setting, kDecrease) << name;
  }
  ExpectPress("cmdButton2");  // no odds on the bets that stand
  for (const auto& [name, setting] :
       {std::pair{"chkAutoTakeFullOdds", &game_->AutoTakeFullOdds},
        std::pair{"chkAutoRemovePlaceBets", &game_->AutoRemovePlaceBets},
        std::pair{"chkAutoArrangeChips", &game_->AutoArrangeChips},
        std::pair{"chkAutoRollDice", &game_->AutoRollDice}}) {
    Click(screen_, name);
    EXPECT_TRUE(*setting) << name;
  }
  NothingExpected();
}

TEST_F(AutoPlay, TheRowsOfSameBetAndBet) {
  for (const int option : {9, 10, 11, 12}) {
    const std::string number = std::to_string(option);
    const auto cell = static_cast<std::size_t>(option - kFirstHandleOption);
    auto* const amount = Find<QLineEdit>(screen_, ("txtModifyAmount" + number).c_str());
    amount->selectAll();
    QTest::keyClicks(amount, "-2.5");  // without the sign
    EXPECT_EQ(game_->HandleAmount[cell], MoneyAmount::FromRaw(25'000)) << option;
    if (option > 10) continue;
    Click(screen_, ("cmdMathOperator" + number).c_str());
    EXPECT_EQ(game_->HandleChoiceTag[cell], 1);
    Click(screen_, ("cmdUnits" + number).c_str());
    EXPECT_EQ(game_->HandleUnits[cell], MoneyAmount(1));
  }
  // What the settle dialog left behind.
  game_->HandleUnits[4] = MoneyAmount(3);
  screen_.Refresh();
  EXPECT_EQ(Find<QAbstractButton>(screen_, "cmdUnits9")->text(), "$5 Units");
}

TEST_F(AutoPlay, RollsAreCountedAndStopped) {
  auto* const rolls = Find<QLineEdit>(screen_, "txtNumAutoRolls");
  rolls->setFocus();
  QTest::keyClicks(rolls, "2000000000");
  EXPECT_EQ(game_->NumAutoRolls, 100'000'000);
  EXPECT_EQ(rolls->text(), "100000000");
  rolls->selectAll();
  QTest::keyClicks(rolls, "25");
  EXPECT_EQ(game_->AutoRollsRemaining, 25);
  EXPECT_EQ(Find<QLabel>(screen_, "lblAutoRollsRemaining")->text(), "25");
  rolls->clear();
  QTest::keyClick(rolls, Qt::Key_Return);
  game_->AutoRollsRemaining = 3;
  game_->NumAutoRolls = 9;
  ExpectPress("cmdButton2");  // the count begins anew
  Click(screen_, "chkAutoRollDice");
  EXPECT_EQ(game_->AutoRollsRemaining, 9);

  auto* const delay = Find<QLineEdit>(screen_, "txtDelayRoll");
  delay->setFocus();
  delay->selectAll();
  QTest::keyClicks(delay, "250");
  EXPECT_EQ(game_->AutoRollDelay, 99);
  EXPECT_EQ(delay->text(), "99");
  delay->selectAll();
  QTest::keyClick(delay, Qt::Key_Delete);
  rolls->setFocus();
  EXPECT_EQ(delay->text(), "0");

  auto* const stops = Find<QListWidget>(screen_, "listAutoStop");
  ASSERT_EQ(stops->count(), kAutoStops);
  stops->item(8)->setSelected(true);
  EXPECT_TRUE(game_->AutoStopOn[8]);
  EXPECT_EQ(std::ranges::count(game_->AutoStopOn, true), 1);
  game_->AutoStopOn[3] = true;  // by a script
  screen_.Refresh();
  EXPECT_TRUE(stops->item(3)->isSelected());
  NothingExpected();
}

TEST_F(AutoPlay, TheListOfWhatWorksOnTheComeOut) {
  Click(screen_, "picWorkOnComeout");
  auto* const list = Find<QListWidget>(screen_, "lstWorkOnComeOut");
  ASSERT_TRUE(list->isVisible());
  const auto* const button = Find(screen_, "picWorkOnComeout");
  EXPECT_FALSE(list->parentWidget()->geometry().intersects(
      QRect(button->mapTo(&screen_, QPoint(0, 0)), button->size())));
  const auto equals_model = [&] {
    const Rows rows = WorkOnComeOutRows(*game_);
    if (list->count() != static_cast<int>(rows.size())) return false;
    for (int i = 0; i < list->count(); ++i) {
      if (list->item(i)->text() != ToQt(rows[static_cast<std::size_t>(i)][0])) return false;
    }
    return true;
  };
  EXPECT_EQ(list->count(), 75);
  EXPECT_TRUE(equals_model());
  const BetSet by_default = game_->WorkOnComeOut;
  Click(screen_, "cmdSelectAll");
  Click(screen_, "cmdNo");
  EXPECT_FALSE(game_->WorkOnComeOut.Has(1));
  EXPECT_TRUE(equals_model());
  Click(screen_, "cmdDefault");
  EXPECT_EQ(game_->WorkOnComeOut, by_default);
  list->clearSelection();
  list->item(0)->setSelected(true);
  Click(screen_, "cmdNo");
  EXPECT_FALSE(game_->WorkOnComeOut.Has(1));
  Click(screen_, "cmdYes");
  EXPECT_EQ(game_->WorkOnComeOut, by_default);
  Find(screen_, "txtDelayRoll")->setFocus();  // closes when the focus leaves it
  EXPECT_FALSE(list->isVisible());
}

// ---- Hot-Keys -----------------------------------------------------------------------------------

class HotKeyScreen : public OtherScreens {
 protected:
  void Use(const std::function<void(QWidget&)>& use) {
    auto* const screen = new HotKeysScreen(window_->AllScreens());
    screen->ShowInPlace();
    list_ = Find<PaintedList>(*screen, "picHotKeys");
    use(*screen);
    screen->close();
    NothingExpected();
  }
  std::string Keys() const {
    std::string keys;
    for (const HotKey& hot_key : game_->HotKeys) keys += hot_key.HotKeyChar;
    return keys;
  }
  void PressRow(int row, Qt::KeyboardModifiers held = {}) {
    QTest::mouseClick(list_, Qt::LeftButton, held, list_->CellRect({row - 1, 1}).center());
  }
  void Add(QWidget& screen, int key, const char* file, const char* description) {
    Find<QComboBox>(screen, "cmbKey")->setCurrentIndex(key);
    Find<QLineEdit>(screen, "txtAutoBetFile")->setText(file);
    Find<QLineEdit>(screen, "txtDescription")->setText(description);
    Click(screen, "cmdAddHotKey");
  }

  PaintedList* list_ = nullptr;
};

TEST_F(HotKeyScreen, ARowIsComposedAndPlaced) {
  Use([this](QWidget& screen) {
    ExpectPress("cmdButton0");  // a file is wanted
    Add(screen, 0, "  ", "");
    EXPECT_FALSE(game_->HotKeyPending);
    Add(screen, 10, "a.bet", "first");
    EXPECT_TRUE(game_->HotKeyPending);
    EXPECT_EQ(screen.cursor().shape(), Qt::UpArrowCursor);
    PressRow(5);  // behind the end means the end
    Add(screen, 11, "b.bet", "");
    QTest::keyClick(list_, Qt::Key_Space);  // before the row of the cursor
    EXPECT_EQ(Keys(), "BA");
    Add(screen, 12, "c.bet", "");
    QTest::mouseClick(Find(screen, "txtDescription"), Qt::LeftButton);
    EXPECT_FALSE(game_->HotKeyPending);
    Add(screen, 12, "c.bet", "");
    QTest::keyClick(list_, Qt::Key_Escape);
    EXPECT_FALSE(game_->HotKeyPending);
    EXPECT_TRUE(screen.isVisible());
    QTest::mouseDClick(list_, Qt::LeftButton, {}, list_->CellRect({1, 1}).center());
    EXPECT_EQ(Find<QLineEdit>(screen, "txtAutoBetFile")->text(), "a.bet");
    EXPECT_EQ(Find<QComboBox>(screen, "cmbKey")->currentText(), " Ctrl A");
    Expect([](QWidget& dialog) {
      Find<QLineEdit>(dialog, "txtFileName")->setText("press");
      Click(dialog, "cmdOK");
    });
    Click(screen, "cmdSelectAutoBetFile");
    EXPECT_EQ(Find<QLineEdit>(screen, "txtAutoBetFile")->text().toStdString(),
              (folder_ / "press.bet").string());
  });
  game_->HotKeys.clear();
  LoadHotKeys(*game_);
  EXPECT_EQ(Keys(), "BA");
}

TEST_F(HotKeyScreen, IsModal) {
  Expect([](QWidget& screen) {
    EXPECT_EQ(screen.objectName(), "frmHotKeys");
    screen.close();
  });
  Choose("mnuHotKeys");
  NothingExpected();
}

TEST_F(HotKeyScreen, RowsAreSelectedCutAndMoved) {
  for (const char key : std::string("ABCDE")) game_->HotKeys.push_back({key, "f.bet", ""});
  Use([this](QWidget& screen) {
    list_->setFocus();
    PressRow(2);
    PressRow(4, Qt::ControlModifier);
    ChooseIn(screen, "mnuCut");
    EXPECT_EQ(Keys(), "ACE");
    EXPECT_EQ(surface_->Clipboard(), "   Ctrl B   f.bet   \r\n   Ctrl D   f.bet   \r\n");
    for (int i = 0; i < 9; ++i) QTest::keyClick(list_, Qt::Key_Up);
    ChooseIn(screen, "mnuPaste");
    EXPECT_EQ(Keys(), "BDACE");
    // Dragged behind the last row.
    const auto at = [this](int row) { return list_->CellRect({row - 1, 1}).center(); };
    QTest::mousePress(list_, Qt::LeftButton, {}, at(1));
    QMouseEvent drag(QEvent::MouseMove, at(6), list_->mapToGlobal(at(6)), Qt::NoButton,
                     Qt::LeftButton, {});
    QApplication::sendEvent(list_, &drag);
    QTest::mouseRelease(list_, Qt::LeftButton, {}, at(6));
    EXPECT_EQ(Keys(), "ACEBD");
    auto* const field = Find<QLineEdit>(screen, "txtDescription");
    field->setText("text");
    field->setFocus();
    ChooseIn(screen, "mnuSelectAll");
    ChooseIn(screen, "mnuCopy");
    EXPECT_EQ(surface_->Clipboard(), "text");
    EXPECT_EQ(Keys(), "ACEBD");
    list_->setFocus();
    ChooseIn(screen, "mnuSelectAll");
    ChooseIn(screen, "mnuDelete");
    EXPECT_EQ(Keys(), "");
  });
}

}  // namespace

}  // namespace feltmaster
