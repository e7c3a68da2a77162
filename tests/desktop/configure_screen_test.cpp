#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTabWidget>
#include <QWindow>
#include <map>
#include <memory>
#include <set>

#include "config/comps.h"
#include "config/payoffs.h"
#include "config/table_colors.h"
#include "desktop/at_the_table.h"
#include "desktop/cell_picture.h"
#include "desktop/frm_configure.h"
#include "desktop/picture_grid.h"
#include "desktop/qt_text.h"
#include "dice/probability.h"
#include "engine/amounts.h"
#include "view/probability_grid.h"
#include "view/rules_rows.h"
#include "view/settings_rows.h"
#include "view/summary.h"

namespace feltmaster {

namespace {

enum Tab {
  kChecksTab,
  kSoundTab,
  kCompsTab,
  kColorsTab,
  kMiscTab,
  kBankrollTab,
  kBetsTab,
  kPayoffsTab,
  kProbabilityTab,
  kAdvantageTab,
  kTabs
};

class TheConfigureScreen : public AtTheTable {
 protected:
  TheConfigureScreen() {
    game_->AllSoundOff = false;
    game_->StickPersonList = {"Casey", "Robin"};
    game_->DiceSoundList = game_->ChipSoundList = game_->WinSoundList = {"soft", "loud"};
    screen_ = new ConfigureScreen(window_->AllScreens());
    screen_->ShowInPlace();
  }
  ~TheConfigureScreen() override { delete screen_.data(); }

  template <typename T = QWidget>
  T& The(std::string_view name) {
    return *Find<T>(*screen_, std::string(name).c_str());
  }
  void ToTab(int tab) { The<QTabWidget>("tabConfigure").setCurrentIndex(tab); }
  int TabShown() { return The<QTabWidget>("tabConfigure").currentIndex(); }
  void Enter(std::string_view field, const char* text) {
    auto& edit = The<QLineEdit>(field);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, QString::fromLatin1(text));
  }
  void Key(std::string_view name, int key) {
    QTest::keyClick(&The(name), static_cast<Qt::Key>(key));
  }
  void Press(std::string_view button) { The<QAbstractButton>(button).click(); }
  void Menu(std::string_view entry) { The<QAction>(entry).trigger(); }
  std::string Text(const char* label) { return FromQt(The<QLabel>(label).text()); }
  // Closing is refused under this title.
  void StaysOpen(const std::string& title) {
    Titles.clear();
    ExpectPress("cmdButton0");
    screen_->close();
    QApplication::processEvents();
    ASSERT_FALSE(screen_.isNull());
    EXPECT_TRUE(screen_->isVisible());
    EXPECT_EQ(Titles, std::vector<std::string>{title});
  }

  // Changes a setting in every way that its control knows; false for one that is only shown.
  bool Work(const SettingControl& control);

  QPointer<ConfigureScreen> screen_;
};

bool TheConfigureScreen::Work(const SettingControl& control) {
  const std::string_view kind = control.control.substr(0, 3);
  const std::string name(control.control);
  const auto chosen = [&] { return static_cast<int>(ChosenValue(*game_, control)); };
  if (kind == "chk") {
    for (const int on : {1 - chosen(), chosen()}) {
      Press(name);
      EXPECT_EQ(chosen(), on) << name;
      EXPECT_EQ(The<QCheckBox>(name).isChecked(), on == 1) << name;
    }
  } else if (name.starts_with("optTableColors")) {
    Press(name);
    Key("picColorpal", Qt::Key_Down);
    auto& palette = The<PictureGrid>("picColorpal");
    const std::int32_t before = game_->TableColors[static_cast<std::size_t>(control.index)];
    QTest::mouseClick(&palette, Qt::LeftButton, {}, palette.CellRect(40).center().toPoint());
    EXPECT_NE(game_->TableColors[static_cast<std::size_t>(control.index)], before) << name;
    EXPECT_EQ(palette.Chosen(), 40);
  } else if (kind == "opt") {
    for (int i = static_cast<int>(control.choices.size()) - 1; i >= 0; --i) {
      auto& option = The<QRadioButton>(name + std::to_string(i));
      EXPECT_EQ(FromQt(option.text()), control.choices[static_cast<std::size_t>(i)]);
      option.click();
      EXPECT_EQ(chosen(), i) << name;
      EXPECT_TRUE(option.isChecked());
    }
  } else if (kind == "cmb") {
    auto& list = The<QComboBox>(name);
    EXPECT_EQ(list.count(), static_cast<int>(ChoicesOf(*game_, control).size()));
    Key(name, Qt::Key_Home);
    for (int i = 0; i < list.count(); ++i) {
      EXPECT_EQ(chosen(), i) << name;
      EXPECT_EQ(list.currentIndex(), i) << name;
      Key(name, Qt::Key_Down);
    }
  } else if (kind == "txt") {
    for (const char* number : {"8", "17"}) {
      Enter(name, number);
      EXPECT_EQ(FieldText(*game_, control), number) << name;
    }
    QTest::keyClicks(&The(name), "x,$");
    EXPECT_EQ(The<QLineEdit>(name).text(), QStringLiteral("17")) << name;
    const bool negative = NumberRuleOf(NameOfSetting(control)).value().negative;
    Enter(name, "-3");
    EXPECT_EQ(FieldText(*game_, control), negative ? "-3" : "3") << name;
  } else if (kind == "pic") {
    std::set<int> seen;
    for (int i = 0; i < 10; ++i) {
      Key(name, Qt::Key_Down);
      seen.insert(chosen());
    }
    EXPECT_GE(seen.size(), control.name == "DicePicture" ? 5u : 3u) << name;
  } else if (kind == "mnu") {
    for (const int on : {1 - chosen(), chosen()}) {
      Menu(name);
      EXPECT_EQ(chosen(), on) << name;
      EXPECT_EQ(The<QAction>(name).isChecked(), on == 1) << name;
    }
  } else {
    return false;
  }
  return true;
}

TEST_F(TheConfigureScreen, ChangesEverySettingOfTheTenTabs) {
  int worked = 0;
  for (int tab = 0; tab < kTabs; ++tab) {
    ToTab(tab);
    EXPECT_EQ(game_->ConfigureTab, tab);
    for (const SettingControl& control : SettingTabs()[static_cast<std::size_t>(tab)].controls) {
      if (Work(control)) ++worked;
    }
  }
  EXPECT_EQ(worked, 65);
  // Another road to the same settings.
  for (const int tab : {kMiscTab, kBetsTab}) {
    ToTab(tab);
    for (const SettingControl& control : SettingTabs()[static_cast<std::size_t>(tab)].controls) {
      WriteSetting(*game_, control, "1");
      screen_->Refresh();
      if (control.control.starts_with("txt")) {
        EXPECT_EQ(FromQt(The<QLineEdit>(control.control).text()), FieldText(*game_, control));
      } else if (control.control.starts_with("chk")) {
        EXPECT_TRUE(The<QCheckBox>(control.control).isChecked()) << control.control;
      }
    }
  }
  NothingExpected();
}

TEST_F(TheConfigureScreen, HasTheMenusOfItsTab) {
  const std::map<int, std::set<std::string>> kMenusOf = {
      {kChecksTab, {"mnuOptions"}},
      {kColorsTab, {"mnuOptionsColors"}},
      {kPayoffsTab, {"mnuFile", "mnuOptionsPayoffs"}},
      {kProbabilityTab, {"mnuFile", "mnuOptions"}},
      {kAdvantageTab, {"mnuFile", "mnuOptionsAdvantage"}}};
  for (int tab = 0; tab < kTabs; ++tab) {
    ToTab(tab);
    std::set<std::string> seen;
    for (const QAction* menu : screen_->menuBar()->actions()) {
      if (menu->isVisible() && menu->text() != QStringLiteral("&Help"))
        seen.insert(FromQt(menu->menu()->objectName()));
    }
    const auto wanted = kMenusOf.find(tab);
    EXPECT_EQ(seen, wanted == kMenusOf.end() ? std::set<std::string>() : wanted->second) << tab;
  }
  EXPECT_FALSE(The<QAction>("mnuAxes").isVisible());
  ToTab(kColorsTab);
  for (const TablePreset& preset : kTablePresets) {
    Menu(preset.entry);
    EXPECT_EQ(game_->TableColors, preset.colors) << preset.name;
    EXPECT_EQ(The<PictureGrid>("picFelts").Chosen(), preset.texture) << preset.name;
  }
  ToTab(kChecksTab);
  Enter("txtDenomination2", "30");
  ExpectPress("cmdButton1");
  Menu("mnuRestoreDefaultDenoms");
  EXPECT_EQ(The<QLineEdit>("txtDenomination2").text(), QStringLiteral("25"));
  NothingExpected();
}

TEST_F(TheConfigureScreen, StaysOpenUntilItsChecksPass) {
  const struct {
    int tab;
    const char* field;
    const char* wrong;
    const char* right;
    const char* title;
  } kFaults[] = {
      {kBetsTab, "txtMinPlacardBet", "0", "5", "Configuration Limits"},
      {kBetsTab, "txtMaxPlacardBet", "0", "500", "Configuration Limits"},
      {kBetsTab, "txtMaxPlacardBet", "4", "500", "Configuration Limits"},
      {kChecksTab, "txtRollsPerHour", "0", "100", "Simulated Roll Rate"},
      {kChecksTab, "txtRollsPerHour", "4000000", "100", "Simulated Roll Rate"},
      {kChecksTab, "txtDenomination4", "0", "500", "Check Values"},
      {kChecksTab, "txtDenomination2", "3", "25", "Check Values"},
      {kChecksTab, "txtDenomination3", "100.5", "100", "Check Values"},
  };
  for (const auto& fault : kFaults) {
    ToTab(fault.tab);
    Enter(fault.field, fault.wrong);
    ToTab(kSoundTab);
    StaysOpen(fault.title);
    EXPECT_EQ(TabShown(), fault.tab);
    EXPECT_EQ(screen_->focusWidget(), &The(fault.field)) << fault.field;
    Enter(fault.field, fault.right);
  }
  // A row that the grid must scroll to.
  const std::size_t last = static_cast<std::size_t>(kPayoffGrid.back());
  game_->PayTable[last].PayNumerator = MoneyAmount(-2);
  StaysOpen("Payoff ratio error on Hop 5-5");
  EXPECT_EQ(TabShown(), kPayoffsTab);
  EXPECT_EQ(The<QLineEdit>("txtPayoffs").text(), QStringLiteral("-2"));
  Enter("txtPayoffs", "-1");
  screen_->close();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_TRUE(screen_.isNull());
  EXPECT_EQ(game_->PayTable[last].PayNumerator, MoneyAmount(-1));
  EXPECT_EQ(game_->RollsPerHour, MoneyAmount(100));
  NothingExpected();
}

TEST_F(TheConfigureScreen, TakesBackWhatIsRefused) {
  game_->BetAmount.Set(kBankroll, MoneyAmount(100));
  game_->TotalOnTable = MoneyAmount(120);
  ToTab(kBankrollTab);
  ExpectPress("cmdButton0");
  Press("chkAllowNegBankroll");
  EXPECT_TRUE(game_->AllowNegBankroll && The<QCheckBox>("chkAllowNegBankroll").isChecked());

  // Bets of all the money, and a vig that goes on top.
  game_->BetAmount.Set(kBuy + 2, MoneyAmount(100));
  game_->BuyVigAllBets = false;
  game_->AllowNegBankroll = false;
  StandingVig(*game_, kBuy + 2) = MoneyAmount(5);
  ToTab(kBetsTab);
  ExpectPress("cmdButton0");
  Press("optBuyVig1");
  EXPECT_FALSE(game_->BuyVigAllBets);
  EXPECT_TRUE(The<QRadioButton>("optBuyVig0").isChecked());
  EXPECT_EQ(Titles, (std::vector<std::string>{"Bankroll", "Buy Bet Vig"}));

  // A rate that is no rate of its unit keeps the unit.
  ToTab(kChecksTab);
  Enter("txtRollsPerHour", "0");
  ExpectPress("cmdButton0");
  Key("cmbRollsPerTime", Qt::Key_Down);
  EXPECT_EQ(game_->RollsPerTimeUnit, 0);
  EXPECT_EQ(The<QComboBox>("cmbRollsPerTime").currentIndex(), 0);
  Enter("txtRollsPerHour", "90");
  Key("cmbRollsPerTime", Qt::Key_Down);
  EXPECT_EQ(The<QLineEdit>("txtRollsPerHour").text(), QStringLiteral("1.5"));
  NothingExpected();
}

TEST_F(TheConfigureScreen, MovesMoneyAndSeeds) {
  ToTab(kBankrollTab);
  Enter("txtAddSub", "300");
  Press("cmdAddSub0");
  Enter("txtAddSub", "100");
  Press("cmdAddSub1");
  EXPECT_EQ(game_->BetAmount[kBankroll], MoneyAmount(200));
  EXPECT_EQ(Text("lblCurrentBankroll"), "200");
  EXPECT_EQ(Text("lblWonLost"), "Won/Lost:");
  game_->AmountInvested = MoneyAmount(500);
  screen_->Refresh();
  EXPECT_EQ(Text("lblNet"), "-300");
  EXPECT_EQ(Text("lblWonLost"), "Lost:");

  ToTab(kMiscTab);
  Press("optSeedRNG1");
  Expect([](QWidget& dialog) {
    Find<QLineEdit>(dialog, "txtInput0")->setText(QStringLiteral("4711"));
    Find<QAbstractButton>(dialog, "cmdButton0")->click();
  });
  ExpectPress("cmdButton0");
  Press("cmdSeedRNG");
  EXPECT_EQ(game_->LastSeed, 4711);
  EXPECT_EQ(Text("lblLastSeed"), "4711");
  EXPECT_EQ(Titles, (std::vector<std::string>{"RNG Seed", "RNG Seeded"}));
  NothingExpected();
}

// ---- Payoffs and Advantage --------------------------------------------------------------------

TEST_F(TheConfigureScreen, EditsPayoffsWithOneEditorThatMoves) {
  ToTab(kPayoffsTab);
  auto& editor = The<QLineEdit>("txtPayoffs");
  const auto type = [&](const char* keys) { QTest::keyClicks(&editor, QString::fromLatin1(keys)); };
  const auto key = [&](int which) { Key("txtPayoffs", which); };
  const auto shown = [&] { return FromQt(editor.text()); };

  // Down the whole grid, in each of its columns.
  for (int part = 1; part <= 3; ++part) {
    for (int row = 0; row < kPayoffGridRows; ++row) {
      const Row wanted = PayoffRows(*game_)[static_cast<std::size_t>(row)];
      ASSERT_EQ(shown(), wanted[static_cast<std::size_t>(part)]) << wanted[0];
      key(Qt::Key_Down);
    }
    EXPECT_EQ(The<QScrollBar>("vsbPayoffs").value(), 62);
    for (int row = 0; row < kPayoffGridRows; ++row) key(Qt::Key_Up);
    if (part < 3) key(Qt::Key_Right);
  }
  EXPECT_EQ(game_->PayoffsScroll, 1);

  // Place 6 is the 35th row; the editor stands on the denominator.
  for (int row = 1; row < 35; ++row) key(Qt::Key_Down);
  PayRow& place6 = game_->PayTable[static_cast<std::size_t>(kPlace + 4)];
  type("0");
  key(Qt::Key_Return);
  EXPECT_EQ(shown(), "6");
  key(Qt::Key_Left);
  type("f");
  EXPECT_EQ(shown(), "for");
  EXPECT_EQ(place6.PayNumerator, MoneyAmount(1));
  type("fx t ");  // there, nothing, toggles, there, toggles
  EXPECT_EQ(shown(), "for");
  key(Qt::Key_Left);
  EXPECT_EQ(shown(), "7");
  type("13");
  EXPECT_EQ(place6.PayNumerator, MoneyAmount(1));
  key(Qt::Key_Escape);
  EXPECT_EQ(shown(), "7");
  type("13");
  ToTab(kSoundTab);  // leaving commits
  EXPECT_EQ(place6.PayNumerator, MoneyAmount(7));

  // The Field.
  ToTab(kPayoffsTab);
  for (int column = 0; column < 3; ++column) key(Qt::Key_Right);
  auto wanted = std::make_unique<Game>();
  for (std::size_t preset = 0; preset < kFieldPresetMenu.size(); ++preset) {
    Menu(kFieldPresetMenu[preset].name);
    SetFieldPayoffs(*wanted, static_cast<FieldPreset>(preset));
    for (std::size_t row = 1; row < kFieldRows; ++row) {
      EXPECT_EQ(game_->FieldPayTable[row].PayNumerator, wanted->FieldPayTable[row].PayNumerator);
      EXPECT_EQ(game_->FieldPayTable[row].PayIsTo, wanted->FieldPayTable[row].PayIsTo);
    }
    const std::size_t row = kPayoffGridRows + static_cast<std::size_t>(
                                                  The<EditedCells>("picPayoffs").Current().row - 1);
    EXPECT_EQ(shown(), PayoffRows(*game_)[row][1]) << preset;
  }
  ExpectPress("cmdButton1");
  Menu("mnuRestoreDefaultPayoffs");
  EXPECT_EQ(place6.PayNumerator, MoneyAmount(7));
  EXPECT_TRUE(place6.PayIsTo);
  NothingExpected();
}

TEST_F(TheConfigureScreen, AdvantageFollowsEveryChange) {
  ToTab(kAdvantageTab);
  const QImage before = The("picAdvantage").grab().toImage();
  Key("vsbAdvantage", Qt::Key_PageDown);
  EXPECT_EQ(game_->AdvantageScroll, 21);
  EXPECT_NE(The("picAdvantage").grab().toImage(), before);
  Key("vsbAdvantage", Qt::Key_Home);
  EXPECT_EQ(The("picAdvantage").grab().toImage(), before);
  ToTab(kBetsTab);
  Enter("txtLayVigPct", "4");
  ToTab(kAdvantageTab);
  EXPECT_NE(The("picAdvantage").grab().toImage(), before);
}

// ---- Probability --------------------------------------------------------------------------------

TEST_F(TheConfigureScreen, EditsTheGridOfTheDice) {
  ToTab(kProbabilityTab);
  auto& grid = The<EditedCells>("picProbability");
  auto& editor = The<QLineEdit>("txtPercent");
  const auto type = [&](const char* keys) { QTest::keyClicks(&editor, QString::fromLatin1(keys)); };
  // A press on each cell brings the editor there; what it shows is the cell in each display.
  for (int display = 0; display < 4; ++display) {
    Press("optProbability" + std::to_string(display));
    for (const ProbabilityCell& cell : ProbabilityCells(*game_)) {
      QTest::mouseClick(&grid, Qt::LeftButton, {},
                        grid.RectOf({cell.row, cell.column}).topLeft().toPoint() + QPoint(6, 4));
      ASSERT_EQ(grid.Current(), (CellPlace{cell.row, cell.column})) << cell.name;
      EXPECT_NEAR(editor.text().toDouble(), cell.value, 0.0005) << cell.name;
    }
  }
  Press("optProbability0");
  grid.GoTo({kTotalRow, 6});
  type("40");
  Key("txtPercent", Qt::Key_Return);
  EXPECT_NEAR(ProbabilityWeight(*game_, kTotalRow, 6), 40'000, 3);
  EXPECT_TRUE(IsCellLocked(*game_, kTotalRow, 6));
  EXPECT_EQ(Text("lblDiceKind"), "Free Form Dice");
  type("L");
  EXPECT_FALSE(IsCellLocked(*game_, kTotalRow, 6));
  Key("txtPercent", Qt::Key_Right);
  EXPECT_EQ(grid.Current(), (CellPlace{kTotalRow, 7}));
  EXPECT_NEAR(ProbabilityWeight(*game_, kTotalRow, 6), 40'000, 3);
  type("l");
  EXPECT_TRUE(IsCellLocked(*game_, kTotalRow, 7));
  Press("cmdLock");
  EXPECT_FALSE(IsCellLocked(*game_, kTotalRow, 7));

  // New asks about what was edited.
  ExpectPress("cmdButton2");
  Menu("mnuNew");
  EXPECT_EQ(Text("lblDiceKind"), "Percentage Dice");
  EXPECT_EQ(ProbabilityWeight(*game_, kTotalRow, 6), 16'667);

  // The axis screen: given up, and accepted.
  ExpectPress("cmdAxisCancel");
  Menu("mnuAxes");
  EXPECT_FALSE(game_->ProbabilityChanged);
  Expect([](QWidget& axis) {
    auto* first = Find<QLineEdit>(axis, "txtDie1SE");
    first->selectAll();
    QTest::keyClicks(first, "250");
    EXPECT_EQ(first->text(), QStringLiteral("100"));
    Find<QAbstractButton>(axis, "optAxisDie1_2")->click();
    Find<QAbstractButton>(axis, "cmdAxisOK")->click();
  });
  Menu("mnuAxes");
  EXPECT_EQ(ProbabilityWeight(*game_, 3 + 1, kFirstDieColumn), 0);
  EXPECT_EQ(ProbabilityWeight(*game_, 1 + 1, kFirstDieColumn), 25'000);
  EXPECT_NEAR(ProbabilityWeight(*game_, 1 + 1, kSecondDieColumn), 16'667, 1);
  NothingExpected();
}

TEST_F(TheConfigureScreen, KeepsTheDiceInFiles) {
  ToTab(kProbabilityTab);
  const auto choose = [&](const char* entry, const std::vector<std::string>& answers) {
    Titles.clear();
    ExpectAnswers(answers);
    Menu(entry);
    NothingExpected();
    return Titles;
  };
  const auto set_seven = [&](double percent) {
    EXPECT_TRUE(SetProbabilityCell(*game_, kTotalRow, 6, percent, false));
    EXPECT_TRUE(game_->ProbabilityChanged);
  };
  const auto seven = [&] { return ProbabilityWeight(*game_, kTotalRow, 6); };
  constexpr const char* kYes = "cmdButton1";
  constexpr const char* kNo = "cmdButton2";
  constexpr const char* kCancel = "cmdButton3";
  using Dialogs = std::vector<std::string>;
  const std::string ask = "Save Probabilities?";
  const std::string save_as = "Save Probability File As";
  const std::string open = "Open Probability File";
  set_seven(30);
  const std::int32_t thirty = seven();
  EXPECT_EQ(choose("mnuSave", {"cmdCancel"}), Dialogs{save_as});
  EXPECT_TRUE(game_->ProbabilityChanged);
  EXPECT_EQ(choose("mnuSave", {"thirty"}), Dialogs{save_as});
  EXPECT_FALSE(game_->ProbabilityChanged);
  set_seven(20);
  const std::int32_t twenty = seven();
  EXPECT_EQ(choose("mnuSaveAs", {"thirty", kNo, "twenty"}), (Dialogs{save_as, save_as, save_as}));
  EXPECT_EQ(choose("mnuOpen", {"thirty"}), Dialogs{open});
  EXPECT_EQ(seven(), thirty);
  set_seven(40);
  EXPECT_EQ(choose("mnuOpen", {kCancel}), Dialogs{ask});
  EXPECT_EQ(choose("mnuOpen", {kNo, "twenty"}), (Dialogs{ask, open}));
  EXPECT_EQ(seven(), twenty);
  set_seven(30);
  EXPECT_EQ(choose("mnuNew", {kYes}), Dialogs{ask});  // under its name
  EXPECT_EQ(seven(), 16'667);
  EXPECT_EQ(game_->ProbabilityFileName, "");
  EXPECT_EQ(choose("mnuOpen", {"twenty"}), Dialogs{open});
  EXPECT_EQ(seven(), thirty);
}

// Out of a list, too, and round the ends.
TEST_F(TheConfigureScreen, ChangesItsTabByKey) {
  screen_->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(screen_));
  ToTab(kCompsTab);
  auto& list = The<QListWidget>("lstCompBets");
  list.setFocus();
  list.setCurrentRow(3);
  for (int step = 1; step <= kTabs; ++step) {
    QTest::keyClick(screen_->windowHandle(), Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(TabShown(), (kCompsTab + step) % kTabs);
  }
  for (int step = 1; step <= kTabs; ++step) {
    QTest::keyClick(screen_->windowHandle(), Qt::Key_Backtab,
                    Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(TabShown(), (kCompsTab - step + kTabs) % kTabs);
  }
}

// ---- Comps and Sound ----------------------------------------------------------------------------

TEST_F(TheConfigureScreen, FiguresComps) {
  game_->BetAmount.Set(kBankroll, MoneyAmount(1000));
  ToTab(kCompsTab);
  auto& list = The<QListWidget>("lstCompBets");
  const auto counted = [&] {
    const std::vector<std::string> lines = CompBetLines(*game_);
    for (int row = 0; row < list.count(); ++row) {
      EXPECT_EQ(FromQt(list.item(row)->text()), lines[static_cast<std::size_t>(row)]);
    }
    return CompBets(*game_).Count();
  };
  Press("cmdSelectAll");
  Press("cmdNo");
  EXPECT_EQ(counted(), 0);
  Press("cmdDefault");
  EXPECT_EQ(counted(), kBetCount - 11);
  Press("cmdYes");
  EXPECT_EQ(counted(), kBetCount);
  emit list.itemDoubleClicked(list.item(5));
  EXPECT_EQ(counted(), kBetCount - 1);
  EXPECT_FALSE(CompBets(*game_).Has(6));
  const Figures figures = CompFigures(*game_);
  for (std::size_t i = 0; i < figures.size(); ++i) {
    EXPECT_EQ(Text(("lblCompdata" + std::to_string(i)).c_str()), figures[i].text);
  }
}

TEST_F(TheConfigureScreen, SoundsAreTestedUnlessTheyAreOff) {
  ToTab(kSoundTab);
  The<QSlider>("vsbVolume").setValue(35);
  EXPECT_EQ(surface_->Volume(), 35);
  for (const bool off : {true, false}) {
    Press("chkDisableAllSound");
    for (const char* name :
         {"cmbStickPerson", "cmbDiceSound", "cmbChipSound", "cmbWinSound", "chkAutoBetSounds",
          "cmdTestStickPerson", "cmdTestDice", "cmdTestChips", "cmdTestWin"}) {
      EXPECT_EQ(The(name).isEnabled(), !off) << name;
    }
  }
  for (const char* name : {"cmdTestStickPerson", "cmdTestDice", "cmdTestChips", "cmdTestWin"}) {
    Press(name);
  }
}

TEST_F(TheConfigureScreen, ComesUpFromTheMenuOverTheTable) {
  delete screen_.data();
  Expect([](QWidget& screen) {
    EXPECT_EQ(screen.objectName(), QStringLiteral("frmConfigure"));
    EXPECT_TRUE(screen.isModal());
    QTest::keyClick(&screen, Qt::Key_Escape);
  });
  Choose("mnuConfigure");
  NothingExpected();
}

}  // namespace

}  // namespace feltmaster
