#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QCursor>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMouseEvent>
#include <QToolButton>
#include <QTreeWidget>
#include <QWindow>
#include <fstream>
#include <string>
#include <vector>

#include "autobet/message.h"
#include "desktop/at_the_table.h"
#include "desktop/message_dialog.h"
#include "desktop/settle_dialog.h"
#include "desktop/step_dialog.h"
#include "files/file_dialog.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

class Dialogs : public AtTheTable {
 protected:
  MessageReply Ask(std::int32_t options, std::int32_t length = 0) {
    return ShowMessageDialog(window_.get(), *game_,
                             {.title = "Title",
                              .text = "Text\nof two lines",
                              .options = options,
                              .input_default = "77",
                              .input2_default = "88",
                              .input_length = length});
  }
  void ExpectKey(int key) {
    Expect([key](QWidget&) {
      QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key));
    });
  }
  // Keys for whatever has the focus; '\t' and '\r' are the keys of these names.
  static void Keys(const std::string& keys) {
    for (const char key : keys) QTest::keyClick(QApplication::focusWidget(), key);
  }
  // The letter behind the '&' of a caption. A button pressed so stays down for a moment.
  static void Mnemonic(QWidget& dialog, Qt::Key key) {
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.isActiveWindow(); }));
    QTest::keyClick(&dialog, key, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }));
  }
  static QString Focus() { return QApplication::focusWidget()->objectName(); }
};

TEST_F(Dialogs, MessagesAnswerByDefaultAndByEscape) {
  struct Case {
    std::int32_t options;
    std::int32_t by_enter;
    std::int32_t by_escape;
  };
  const Case kCases[] = {
      {0 + kButtonOk, kAnswerOk, 0},
      {4614, kAnswerYes, 0},
      {8710, kAnswerNo, 0},
      {5126, kAnswerYes, 0},
      {9222, kAnswerNo, 0},
      {5134, kAnswerYes, kAnswerCancel},
      {1030, kAnswerYes, 0},
      {137, kAnswerOk, kAnswerCancel},
      {kButtonOk | kButtonCancel | kDefaultCancel, kAnswerCancel, kAnswerCancel}};
  for (const Case& each : kCases) {
    SCOPED_TRACE(each.options);
    ExpectKey(Qt::Key_Return);
    EXPECT_EQ(Ask(each.options).answer, each.by_enter);
    ExpectKey(Qt::Key_Escape);
    EXPECT_EQ(Ask(each.options).answer, each.by_escape);
  }
}

TEST_F(Dialogs, AMessageShowsItsButtonsAndHelpLeavesItOpen) {
  Expect([](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "frmMessage");
    EXPECT_EQ(dialog.findChild<QWidget*>("cmdButton0"), nullptr);
    EXPECT_EQ(dialog.findChild<QCheckBox*>("chkHide"), nullptr);
    Find<QPushButton>(dialog, "cmdButton4")->click();
    EXPECT_TRUE(dialog.isVisible());
    Mnemonic(dialog, Qt::Key_N);
  });
  EXPECT_EQ(Ask(kButtonYes | kButtonNo | kButtonHelp | kDefaultYes).answer, kAnswerNo);
}

TEST_F(Dialogs, AHideBoxIsTickedByKeyAndStopsTheNotices) {
  Expect([](QWidget& dialog) {
    Find<QCheckBox>(dialog, "chkHide")->setFocus();
    Keys(" ");
    Find<QPushButton>(dialog, "cmdButton0")->click();
  });
  Tell(*game_, "Title", "Text", kButtonOk | kHideLimits);
  EXPECT_EQ(game_->NotifyFlags & kNoticeLimits, 0);
  EXPECT_NE(game_->NotifyFlags & kNoticeCharges, 0);
}

TEST_F(Dialogs, FieldsTakeAmountsOnly) {
  Expect([](QWidget&) {
    EXPECT_EQ(Focus(), "txtInput0");
    Keys("1a-2.34.567\t");  // over the old text, which is selected
    EXPECT_EQ(Focus(), "txtInput1");
    QApplication::clipboard()->setText("12 chips");
    QTest::keySequence(QApplication::focusWidget(), QKeySequence::Paste);
    Keys("-5\r");
  });
  const MessageReply reply = Ask(kTwoInputs | kButtonOk | kButtonCancel);
  EXPECT_EQ(reply.answer, kAnswerOk);
  EXPECT_EQ(reply.input1, "12.3456");
  EXPECT_EQ(reply.input2, "-5");

  Expect([](QWidget&) { Keys("-12.34567\r"); });
  EXPECT_EQ(Ask(kOneInput | kButtonOk, 6).input1, "123456");
}

TEST_F(Dialogs, ADialogStandsOverTheTableAndDrawsThePointer) {
  game_->SnapMouse = true;
  Expect([this](QWidget& dialog) {
    const QPoint off = dialog.frameGeometry().center() - window_->frameGeometry().center();
    EXPECT_LE(off.manhattanLength(), 4);
    QApplication::processEvents();
    QWidget* yes = Find<QWidget>(dialog, "cmdButton1");
    EXPECT_EQ(QCursor::pos(), yes->mapToGlobal(yes->rect().center()));
    Keys("\r");
  });
  Ask(5126);
}

TEST_F(Dialogs, ANoticeIsReplacedAndTakenAway) {
  const auto shown = [] {
    std::vector<std::string> titles;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
      if (window->objectName() == "frmNotice")
        titles.push_back(window->windowTitle().toStdString());
    }
    return titles;
  };
  ShowNotice(*game_, "One", "text");
  ShowNotice(*game_, "Two", "text");
  EXPECT_EQ(shown(), std::vector<std::string>{"Two"});
  surface_->ShowNotice({}, {});
  EXPECT_TRUE(shown().empty());
}

// --- Decided bets --------------------------------------------------------------------------------

class Settling : public Dialogs {
 protected:
  Settling() {
    game_->AllowNegBankroll = true;
    game_->HandleWinningBets = kHandleManually;
    game_->NotifyFlags = 0;
    game_->Point = 4;
    PlaceSix();
  }
  void PlaceSix() {
    game_->BetAmount.Set(kPlaceSix, MoneyAmount(12));
    game_->BetState.Set(kPlaceSix, 1);
  }
  MoneyAmount Six() const { return game_->BetAmount[kPlaceSix]; }
  static constexpr int kPlaceSix = kPlace + 4;
};

TEST_F(Settling, ByKeyboardAlone) {
  // The mnemonic of a choice.
  Expect([](QWidget& dialog) {
    EXPECT_EQ(dialog.objectName(), "frmSettleBet");
    EXPECT_EQ(Find<QLabel>(dialog, "lblWonBet0")->text(), "$12");
    Mnemonic(dialog, Qt::Key_U);
  });
  Roll(3, 3);
  EXPECT_EQ(Six(), MoneyAmount(18));
  EXPECT_EQ(game_->LastWinChoice, 2);

  // Enter takes the choice of the last time; Escape none.
  Expect([](QWidget& dialog) {
    EXPECT_EQ(Focus(), "cmdHandle2");
    QTest::keyClick(&dialog, Qt::Key_Escape);
    EXPECT_TRUE(dialog.isVisible());
    Keys("\r");
  });
  Roll(3, 3);
  EXPECT_EQ(Six(), MoneyAmount(24));

  // "Same Bet:" less two units of the smallest chip, put together from the keyboard.
  Expect([](QWidget& dialog) {
    while (Focus() != "cmdMathOperator5") Keys("\t");
    Keys(" \t");
    EXPECT_EQ(Find<QToolButton>(dialog, "cmdMathOperator5")->text(), "-");
    EXPECT_EQ(Focus(), "txtModifyAmount5");
    Keys("2\t  ");
    EXPECT_EQ(Find<QToolButton>(dialog, "cmdUnits5")->text(), "$6 Units");
    Keys("\r");
  });
  Roll(3, 3);
  EXPECT_EQ(Six(), MoneyAmount(12));
  EXPECT_EQ(game_->LastWinChoice, 5);
  NothingExpected();
}

TEST_F(Settling, ABetThatMustComeDownOffersThatAlone) {
  SettleRequest request;
  request.title = "* * * Winner * * *";
  request.captions.assign(7, "Choice");
  request.only_take_down = true;
  request.default_button = 3;
  request.options[1].units = 2;
  Expect([](QWidget& dialog) {
    EXPECT_EQ(Focus(), "cmdHandle0");
    for (const char* name : {"cmdHandle1", "cmdHandle6", "txtModifyAmount5", "cmdUnits6"}) {
      EXPECT_FALSE(Find(dialog, name)->isEnabled()) << name;
    }
    QTest::keyClick(&dialog, Qt::Key_F2);
    Keys("\r");
  });
  const SettleReply reply = ShowSettleDialog(window_.get(), *game_, request);
  EXPECT_EQ(reply.button, 0);
  EXPECT_TRUE(reply.stop_rolling);
  EXPECT_EQ(reply.options[1].units, 2);

  // "Bet:" knows no percent.
  request.only_take_down = false;
  request.options[1].units = 0;
  Expect([](QWidget& dialog) {
    EXPECT_EQ(Focus(), "cmdHandle3");
    auto* const units = Find<QToolButton>(dialog, "cmdUnits6");
    for (int i = 0; i < 6; ++i) {
      units->click();
      EXPECT_NE(units->text(), "%");
    }
    EXPECT_EQ(units->text(), "$");
    Keys("\r");
  });
  EXPECT_FALSE(ShowSettleDialog(window_.get(), *game_, request).stop_rolling);
}

// --- Steps ---------------------------------------------------------------------------------------

TEST_F(Dialogs, ScreensCanBeUsedDuringAStep) {
  QWidget screen(window_.get(), Qt::Window);
  QPushButton button("Press", &screen);
  int presses = 0;
  QObject::connect(&button, &QPushButton::clicked, &button, [&] { ++presses; });
  const auto press = [&](QWidget& on) {
    QTest::mouseClick(on.window()->windowHandle(), Qt::LeftButton, {},
                      on.mapTo(on.window(), on.rect().center()));
  };
  WindowCommand opened = WindowCommand::kNone;
  const auto open = [&](WindowCommand which) {
    opened = which;
    screen.show();
  };
  const StepRequest step = {7, "  When: The point is 6", "Status: Condition is false. "};
  Expect([&](QWidget& dialog) {
    EXPECT_EQ(Find<QLabel>(dialog, "lblLineNum")->text(), "Line #7");
    EXPECT_EQ(Find<QLabel>(dialog, "lblAutoBetStep")->text(), "  When: The point is 6");
    Find<QAction>(dialog, "mnuStatistics3")->trigger();
    press(button);
    dialog.move(11, 12);
    Find<QPushButton>(dialog, "cmdNextAutoBet")->click();
  });
  EXPECT_TRUE(ShowStepDialog(window_.get(), *game_, step, open));
  EXPECT_EQ(opened, WindowCommand::kRollFreqs);
  EXPECT_EQ(presses, 1);
  // The next report comes where the player has moved the dialog.
  Expect([&](QWidget& dialog) {
    EXPECT_EQ(dialog.pos(), QPoint(11, 12));
    press(button);
    Find<QAction>(dialog, "mnuCancel")->trigger();
  });
  EXPECT_FALSE(ShowStepDialog(window_.get(), *game_, step, open));
  EXPECT_EQ(presses, 2);
}

// --- Files ---------------------------------------------------------------------------------------

class Files : public Dialogs {
 protected:
  Files() {
    fs::create_directory(folder_ / "old");
    for (const char* name : {"alpha.crp", "beta.crp", "note.txt"}) Write(folder_ / name);
    game_->FileDialogPath = (folder_ / "").string();
  }
  static void Write(const fs::path& path) { std::ofstream(path) << "something"; }
  static std::vector<std::string> Listed(QWidget& dialog) {
    std::vector<std::string> names;
    const auto* const list = Find<QTreeWidget>(dialog, "lstFiles");
    for (int i = 0; i < list->topLevelItemCount(); ++i) {
      names.push_back(list->topLevelItem(i)->text(0).toStdString());
    }
    return names;
  }
};

TEST_F(Files, ANameIsCompletedAndAnOldFileIsNotOverwritten) {
  Expect([](QWidget& dialog) {
    EXPECT_EQ(dialog.windowTitle(), "Save Game File As");
    EXPECT_EQ(Listed(dialog), (std::vector<std::string>{"alpha.crp", "beta.crp"}));
    Keys("beta\r");
  });
  ExpectKey(Qt::Key_Return);  // No is the default
  Expect([](QWidget& dialog) {
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtFileName")->text(), "beta");
    Keys("gamma.\r");
  });
  const auto path = ShowFileDialog(*game_, "Save Game File As");
  EXPECT_EQ(path, (folder_ / "gamma.crp").string());
  EXPECT_EQ(game_->GameFileName, path);
  NothingExpected();
}

TEST_F(Files, FoldersAreWalkedByKeyAndRemembered) {
  Write(folder_ / "old" / "older.crp");
  Expect([](QWidget& dialog) {
    auto* const folders = Find<QListWidget>(dialog, "lstFolders");
    folders->setFocus();
    QTest::keyClick(folders, Qt::Key_Down);
    QTest::keyClick(folders, Qt::Key_Return);
    EXPECT_EQ(Listed(dialog), std::vector<std::string>{"older.crp"});
    auto* const files = Find<QTreeWidget>(dialog, "lstFiles");
    files->setFocus();
    QTest::keyClick(files, Qt::Key_Down);
    EXPECT_EQ(Find<QLineEdit>(dialog, "txtFileName")->text(), "older.crp");
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  EXPECT_EQ(ShowFileDialog(*game_, "Open Game File"), std::nullopt);
  EXPECT_EQ(game_->MsgAnswer, kAnswerCancel);
  EXPECT_EQ(game_->FileDialogPath, (folder_ / "old" / "").string());
  EXPECT_EQ(game_->FileDialogName, "older.crp");
}

TEST_F(Files, DeleteAsksAndAnEmptyNameIsMissing) {
  std::vector<QString> titles;
  // The question comes up while the file dialog stands.
  const auto press_soon = [&](const char* button) {
    QTimer::singleShot(20, [&titles, button] {
      QWidget& question = *QApplication::activeModalWidget();
      titles.push_back(question.windowTitle());
      Find<QPushButton>(question, button)->click();
    });
  };
  Expect([&](QWidget& dialog) {
    auto* const files = Find<QTreeWidget>(dialog, "lstFiles");
    files->setCurrentItem(files->topLevelItem(0));
    press_soon("cmdButton2");
    QTest::keyClick(files, Qt::Key_Delete);
    EXPECT_TRUE(fs::exists(folder_ / "alpha.crp"));
    press_soon("cmdButton1");
    QTest::keyClick(files, Qt::Key_Delete);
    EXPECT_FALSE(fs::exists(folder_ / "alpha.crp"));
    EXPECT_EQ(Listed(dialog), std::vector<std::string>{"beta.crp"});
    Find<QLineEdit>(dialog, "txtFileName")->clear();
    press_soon("cmdButton0");
    Find<QPushButton>(dialog, "cmdOK")->click();
    EXPECT_TRUE(dialog.isVisible());
    Find<QPushButton>(dialog, "cmdCancel")->click();
  });
  ShowFileDialog(*game_, "Save Game File As");
  EXPECT_EQ(titles, (std::vector<QString>{"Delete File", "Delete File", "Missing Filename"}));
}

// --- The panel of dice ---------------------------------------------------------------------------

class ThePanel : public Dialogs {
 protected:
  ThePanel() {
    Choose("mnuRollYourOwnNumbers");
    screen_ = window_->AllScreens().Find(WindowCommand::kRollYourOwn);
    screen_->resize(300, 300);
    QApplication::processEvents();
  }
  QWidget& Cells() { return *Find(*screen_, "picCells"); }
  void Click(int row, int column, int rows, int columns) {
    QTest::mouseClick(&Cells(), Qt::LeftButton, {},
                      {Cells().width() * (2 * column - 1) / (2 * columns),
                       Cells().height() * (2 * row - 1) / (2 * rows)});
  }
  void Display(const char* entry) { Find<QAction>(Cells(), entry)->trigger(); }
  std::pair<int, int> Dice() const { return {game_->Die1, game_->Die2}; }

  ScreenWindow* screen_ = nullptr;
};

TEST_F(ThePanel, PicksRollsInEveryDisplay) {
  Click(2, 5, 6, 6);
  EXPECT_EQ(Dice(), std::pair(2, 5));
  EXPECT_EQ(RollCounts(*game_, 0), 1);

  Display("mnuDisplayRYON3");
  Click(4, 1, 6, 2);
  EXPECT_EQ(RollCounts(*game_, 0), 1);
  Click(3, 2, 6, 2);
  EXPECT_EQ(Dice(), std::pair(4, 3));

  Display("mnuDisplayRYON0");
  Click(3, 5, 3, 5);
  EXPECT_EQ(Dice(), std::pair(6, 6));

  Display("mnuDisplayRYON1");
  Cells().setFocus();
  Keys("\r");  // where the keys have come: the top of the triangle
  EXPECT_EQ(Dice(), std::pair(1, 1));
  QTest::keyClick(&Cells(), Qt::Key_Down);
  QTest::keyClick(&Cells(), Qt::Key_Right);
  Keys(" ");
  EXPECT_EQ(Dice(), std::pair(1, 2));
  EXPECT_EQ(RollCounts(*game_, 0), 5);
}

TEST_F(ThePanel, KeepsItsOptionsAndClosesWithF12) {
  Display("mnuRandomButton");
  Display("mnuRollCounter");
  Display("mnuColor1");
  EXPECT_EQ(game_->RyonPanelState, 4 + 8 + 32);
  EXPECT_EQ(game_->RyonButtonColor, 1);
  EXPECT_FALSE(Find(*screen_, "cmdHyperDrive")->isVisible());
  Find<QPushButton>(*screen_, "cmdRandomRoll")->click();
  EXPECT_EQ(RollCounts(*game_, 0), 1);

  game_->GameChanged = false;
  QTest::keyClick(&Cells(), Qt::Key_F12);
  EXPECT_FALSE(game_->RollYourOwnNumbers);
  EXPECT_TRUE(game_->GameChanged);
  EXPECT_FALSE(game_->PlacementOf(kRyonScreen).open);
}

// The player closes the panel out of the roll that it has started.
TEST_F(ThePanel, IsClosedDuringItsRoll) {
  game_->AutoRollDice = true;
  QTimer::singleShot(100, screen_, [this] {
    EXPECT_TRUE(game_->RollInProgress);
    game_->KeepRolling = false;
    screen_->close();
  });
  const QPoint at(10, 10);
  QApplication::postEvent(&Cells(),
                          new QMouseEvent(QEvent::MouseButtonPress, at, Cells().mapToGlobal(at),
                                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier));
  EXPECT_TRUE(
      QTest::qWaitFor([&] { return !game_->RollYourOwnNumbers && !game_->RollInProgress; }));
  EXPECT_GE(RollCounts(*game_, 0), 1);
}

}  // namespace

}  // namespace feltmaster
