#include <QAction>
#include <QButtonGroup>
#include <QClipboard>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPixmap>
#include <QToolBar>
#include <algorithm>
#include <map>
#include <set>

#include "autobet/hot_keys.h"
#include "desktop/filled_table.h"
#include "files/games_log.h"
#include "files/roll_editor.h"
#include "game/bets.h"
#include "view/roll_list.h"

namespace feltmaster {

namespace {

struct Station {
  const char* name;  // of the test
  WindowCommand which;
  int tab = -1;  // of the Configure screen
};
constexpr Station kStations[] = {
    {"Table", WindowCommand::kCloseTable},
    {"AutoBet", WindowCommand::kAutoBet},
    {"AutoPlay", WindowCommand::kAutoPlay},
    {"Bankroll", WindowCommand::kBankrollGraph},
    {"BetResults", WindowCommand::kBetResults},
    {"BetTrends", WindowCommand::kBetTrends},
    {"ChipStacks", WindowCommand::kChipStacks},
    {"ConfigureChecks", WindowCommand::kConfigure, 0},
    {"ConfigureSound", WindowCommand::kConfigure, 1},
    {"ConfigureComps", WindowCommand::kConfigure, 2},
    {"ConfigureColors", WindowCommand::kConfigure, 3},
    {"ConfigureMisc", WindowCommand::kConfigure, 4},
    {"ConfigureBankroll", WindowCommand::kConfigure, 5},
    {"ConfigureBets", WindowCommand::kConfigure, 6},
    {"ConfigurePayoffs", WindowCommand::kConfigure, 7},
    {"ConfigureProbability", WindowCommand::kConfigure, 8},
    {"ConfigureAdvantage", WindowCommand::kConfigure, 9},
    {"DiceRollFiles", WindowCommand::kDiceRollFiles},
    {"Flags", WindowCommand::kFlags},
    {"GamesLog", WindowCommand::kGamesLog},
    {"Guide", WindowCommand::kHelpContents},
    {"HotKeys", WindowCommand::kHotKeys},
    {"RollFrequencies", WindowCommand::kRollFreqs},
    {"RollTotals", WindowCommand::kRollTotals},
    {"RollYourOwn", WindowCommand::kRollYourOwn},
    {"Summary", WindowCommand::kSummary},
};

// The first dialog of an entry; every other entry does its work without asking.
const std::map<std::string, const char*> kDialogOf = {
    {"frmAutoBet.mnuNew", "Save Auto-Bets?"},
    {"frmAutoBet.mnuOpen", "Save Auto-Bets?"},
    {"frmAutoBet.mnuSave", "Save Auto-Bet File As"},
    {"frmAutoBet.mnuSaveAs", "Save Auto-Bet File As"},
    {"frmAutoBet.mnuCopyToAutoBetFile", "Copy To Auto-Bet File"},
    {"frmAutoBet.mnuCopyToTextFile", "Copy To Text File"},
    {"frmAutoBet.mnuPasteFrom", "Paste From Auto-Bet File"},
    {"frmAutoBet.mnuFind", "Find"},
    {"frmAutoBet.mnuCheckBets", "Auto-Bet"},
    {"frmBankroll.mnuSetAverage", "Set Bankroll Moving Average"},
    {"frmConfigure.mnuNew", "Save Probabilities?"},
    {"frmConfigure.mnuOpen", "Save Probabilities?"},
    {"frmConfigure.mnuSave", "Save Probability File As"},
    {"frmConfigure.mnuSaveAs", "Save Probability File As"},
    {"frmConfigure.mnuAxes", "Percentage dice about an axis"},
    {"frmConfigure.mnuRestoreDefaultDenoms", "Confirm?"},
    {"frmConfigure.mnuRestoreDefaultPayoffs", "Confirm?"},
    {"frmDiceRollFiles.mnuNewOpen", "Open Dice Roll File  or  Enter Name For A New File"},
    {"frmDiceRollFiles.mnuCopyToRollFile", "Copy To Dice Roll File"},
    {"frmDiceRollFiles.mnuCopyToTextFile", "Copy Dice Rolls To Text File"},
    {"frmDiceRollFiles.mnuPasteFromRollFile", "Paste From Dice Roll File"},
    {"frmDiceRollFiles.mnuPasteFromTextFile", "Paste From Ascii/Text File"},
    {"frmGames.mnuNew", "Save Games Log?"},
    {"frmGames.mnuOpen", "Open Games Log"},
    {"frmGames.mnuSaveAs", "Save Games Log As"},
    {"frmGames.mnuMerge", "Merge Games Log"},
    {"frmGames.mnuPrintRawData", "Print Games Log Raw Data"},
    {"frmGames.mnuDelete", "Delete Games"},
    {"frmGames.mnuFind", "Find"},
    {"frmGames.mnuSetBreakPoint", "Set Break-point"},
    {"frmStackValues.mnuDeleteAll", "Delete All Values and Names"},
    {"frmStackValues.mnuDeleteAllValues", "Delete All Values"},
    {"frmStackValues.mnuDeleteAllNames", "Delete All Names"},
    {"*.mnuPrint", "Print"},
    {"*.mnuPrintHistogram", "Print"},
    {"*.mnuPrintAdvPay", "Print"},
    {"*.mnuSavePicture", "Save Picture As"},
};

const char* DialogOf(const std::string& screen, const std::string& entry) {
  for (const std::string& name : {screen + '.' + entry, "*." + entry}) {
    if (const auto found = kDialogOf.find(name); found != kDialogOf.end()) return found->second;
  }
  return nullptr;
}

// The commands of a window, in menus or on a tool bar.
std::vector<QAction*> EntriesOf(QWidget& window) {
  std::vector<QAction*> entries;
  for (QAction* const action : window.findChildren<QAction*>()) {
    if (action->objectName().startsWith("mnu") && action->menu() == nullptr && action->isVisible())
      entries.push_back(action);
  }
  return entries;
}

// One letter, or one combination of keys, does not mean two things.
class UsedKeys {
 public:
  void Add(const QKeySequence& keys, const QString& what) {
    if (keys.isEmpty()) return;
    const auto [used, is_new] = used_.emplace(keys.toString(), what);
    EXPECT_TRUE(is_new) << keys.toString().toStdString() << ": " << what.toStdString() << " and "
                        << used->second.toStdString();
  }
  void AddMnemonic(const QString& text) { Add(QKeySequence::mnemonic(text), text); }

 private:
  std::map<QString, QString> used_;
};

// Without a mouse: keys are clear, and what can be pressed can have the focus.
void ExpectKeyboardAccess(QWidget& window) {
  SCOPED_TRACE(window.objectName().toStdString());
  UsedKeys of_window;
  for (const QAction* const entry : EntriesOf(window)) {
    for (const QKeySequence& keys : entry->shortcuts()) of_window.Add(keys, entry->text());
  }
  for (const QMenu* const menu : window.findChildren<QMenu*>()) {
    UsedKeys of_menu;
    for (const QAction* const action : menu->actions()) {
      const bool shares_its_key = action->objectName() == "mnuDisplayRYON2";  // with the triangle
      if (action->isVisible() && !shares_its_key) of_menu.AddMnemonic(action->text());
    }
  }
  if (const auto* const bar = window.findChild<QMenuBar*>()) {
    for (const QAction* const action : bar->actions()) {
      if (action->isVisible()) of_window.AddMnemonic(action->text());
    }
  }
  for (const QLabel* const label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && label->buddy() != nullptr) of_window.AddMnemonic(label->text());
  }
  for (auto* const button : window.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->objectName().startsWith("qt_")) continue;
    of_window.Add(button->shortcut(), button->text());
    const bool in_bar = qobject_cast<QToolBar*>(button->parentWidget()) != nullptr;
    const bool in_field = qobject_cast<QLineEdit*>(button->parentWidget()) != nullptr;
    if (in_bar || in_field || !button->isEnabled()) continue;
    // Of options that exclude each other Tab comes to one.
    QList<QAbstractButton*> together = {button};
    if (button->group() != nullptr) together = button->group()->buttons();
    EXPECT_TRUE(std::ranges::any_of(
        together, [](const QAbstractButton* one) { return one->focusPolicy() & Qt::TabFocus; }))
        << button->objectName().toStdString() << ' ' << button->text().toStdString();
  }
}

class Menus : public FilledTable, public testing::WithParamInterface<Station> {
 protected:
  Menus() {
    QApplication::setCursorFlashTime(0);  // a cursor that blinks is no effect of a command
    OtherDialogs = [](QWidget& dialog) {
      ExpectKeyboardAccess(dialog);
      QTest::keyClick(&dialog, Qt::Key_Escape);
    };
  }

  ScreenWindow& OpenStation() {
    const Station& station = GetParam();
    if (station.tab >= 0) game_->ConfigureTab = station.tab;
    return Open(station.which);
  }
  // So that this entry has something to do.
  void Prepare(ScreenWindow& screen, const std::string& entry);
  // What a player can notice.
  std::string Look(const QPointer<ScreenWindow>& screen);
};

void FillEditor(ScreenWindow& screen, Game& game) {
  auto* const typed = screen.findChild<QLineEdit*>("txtTypedLine");
  game.ScriptCursorLine = 7;
  typed->setText("Bet $ 1 on Field");
  QTest::keyClick(typed, Qt::Key_Return);
  screen.findChild<QWidget*>("picLoggedBets")->setFocus();
  for (const char* const entry : {"mnuSelectAll", "mnuCopy"}) {
    screen.findChild<QAction*>(entry)->trigger();
  }
  game.ScriptLines[0].LineSelected = false;
  game.ScriptUnsaved = true;
}

void Menus::Prepare(ScreenWindow& screen, const std::string& entry) {
  Game& game = *game_;
  QApplication::clipboard()->setText("7");
  switch (GetParam().which) {
    case WindowCommand::kAutoBet:
      FillEditor(screen, game);
      if (entry == "mnuRedo") Trigger(screen, "mnuUndo");
      QApplication::clipboard()->setText("Bet $ 7 on Field");
      if (entry.starts_with("mnuFind") && entry != "mnuFind") {
        Expect([](QWidget& dialog) {
          auto& ask = dynamic_cast<QInputDialog&>(dialog);
          ask.setTextValue("bet");
          ask.accept();
        });
        Trigger(screen, "mnuFind");
      }
      break;
    case WindowCommand::kConfigure:
      game.ProbabilityChanged = true;
      game.TableColors[0] = 0x123456;
      game.FieldPayTable[0] = game.FieldPayTable[6] = {};
      break;
    case WindowCommand::kGamesLog:
      game.GamesFindText = "41";
      if (entry == "mnuAnalyze") {
        GamesLogAppender log;
        EXPECT_FALSE(log.Open(game.GamesLogFile));
        EXPECT_FALSE(log.Add(Record().Bytes()));
        EXPECT_FALSE(log.Finish(false));
      }
      return;  // it is up to date
    case WindowCommand::kDiceRollFiles:
      PressRoll(game, 1, false);
      PressRoll(game, 3, true);
      ToggleHighlight(game, {1, 1});
      break;
    case WindowCommand::kHotKeys:
      screen.findChild<QWidget*>("picHotKeys")->setFocus();
      PressHotKeyRow(game, 1, Click::kPlain);
      CopyHotKeys(game);
      QApplication::clipboard()->setText("7");
      break;
    case WindowCommand::kChipStacks: {
      auto* const list = screen.findChild<QWidget*>("picStacks");
      list->setFocus();
      QTest::keyClick(list, Qt::Key_F2);
      break;
    }
    case WindowCommand::kHelpContents:
      surface_->OpenHelp(0);
      surface_->OpenHelp(550);
      screen.findChild<QWidget*>("lstContents")->setFocus();
      if (entry == "mnuForward") Trigger(screen, "mnuBack");
      break;
    default:
      break;
  }
  screen.Refresh();
  if (auto* const field = qobject_cast<QLineEdit*>(screen.focusWidget())) field->selectAll();
  // One of several that exclude each other does nothing where it is chosen already.
  const auto* const action = screen.findChild<QAction*>(entry.c_str());
  if (!action->isChecked()) return;
  const std::string stem = entry.substr(0, entry.size() - 1);
  QAction* const other =
      screen.findChild<QAction*>((stem + (entry.back() == '0' ? '1' : '0')).c_str());
  if (other != nullptr) other->trigger();
}

std::string Menus::Look(const QPointer<ScreenWindow>& screen) {
  QApplication::processEvents();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  std::string look = std::to_string(game_->GraphsOnPage);
  const auto add = [&look](const std::string& text) { look += text + '\n'; };
  for (const QWidget* const window : QApplication::topLevelWidgets()) {
    if (window->isVisible()) add((window->objectName() + window->windowTitle()).toStdString());
  }
  add(QApplication::clipboard()->text().toStdString());
  for (const auto& file : std::filesystem::directory_iterator(folder_)) {
    add(file.path().string() + std::to_string(file.file_size()));
  }
  if (!screen) return look;
  for (const QAction* const entry : EntriesOf(*screen)) {
    add(entry->objectName().toStdString() + std::to_string(entry->isChecked()));
  }
  if (screen->focusWidget() != nullptr) add(screen->focusWidget()->objectName().toStdString());
  const QImage picture = screen->grab().toImage();
  look.append(reinterpret_cast<const char*>(picture.constBits()),
              static_cast<std::size_t>(picture.sizeInBytes()));
  return look;
}

TEST_P(Menus, EveryEntryDoesWhatItSays) {
  Fill();
  if (GetParam().which == WindowCommand::kCloseTable) {
    return ExpectKeyboardAccess(*window_);  // its entries have a test of their own
  }
  QPointer<ScreenWindow> screen = &OpenStation();
  ExpectKeyboardAccess(*screen);
  std::vector<std::string> entries;
  for (const QAction* const entry : EntriesOf(*screen)) {
    entries.push_back(entry->objectName().toStdString());
  }
  QTest::keyClick(screen.data(), Qt::Key_Escape);
  ASSERT_FALSE(screen && screen->isVisible());
  for (const std::string& entry : entries) {
    SCOPED_TRACE(entry);
    Fill();
    screen = &OpenStation();
    Prepare(*screen, entry);
    auto* const action = screen->findChild<QAction*>(entry.c_str());
    EXPECT_TRUE(action->isEnabled());
    Titles.clear();
    const std::string name = screen->objectName().toStdString();
    const std::string before = Look(screen);
    action->trigger();
    const bool looks_as_before = before == Look(screen);
    if (const char* const dialog = DialogOf(name, entry)) {
      ASSERT_FALSE(Titles.empty());
      EXPECT_EQ(Titles.front(), dialog);
    } else {
      EXPECT_EQ(Titles, std::vector<std::string>());
      EXPECT_FALSE(looks_as_before) << "it did nothing";
    }
    for (const WindowCommand which : Screens::All()) window_->AllScreens().Close(which);
    if (screen) delete screen.data();
  }
}

// Where there is nothing yet to edit, to paste or to go back to.
class EmptyTable : public FilledTable {};
TEST_F(EmptyTable, OffersAllThatCanBeDone) {
  const std::map<std::string, std::set<std::string>> kOutOfReach = {
      {"AutoBet",
       {"mnuUndo", "mnuRedo", "mnuCut", "mnuCopy", "mnuPaste", "mnuDelete", "mnuCopyToAutoBetFile",
        "mnuCopyToTextFile"}},
      {"DiceRollFiles", {"mnuCut", "mnuCopy", "mnuPaste", "mnuDelete", "mnuSelectAll"}},
      {"Guide", {"mnuBack", "mnuForward"}}};
  for (const Station& station : kStations) {
    if (station.which == WindowCommand::kCloseTable) continue;
    if (station.tab >= 0) game_->ConfigureTab = station.tab;
    std::set<std::string> disabled;
    for (const QAction* const entry : EntriesOf(Open(station.which))) {
      if (!entry->isEnabled()) disabled.insert(entry->objectName().toStdString());
    }
    const auto expected = kOutOfReach.find(station.name);
    EXPECT_EQ(disabled, expected == kOutOfReach.end() ? std::set<std::string>() : expected->second)
        << station.name;
  }
}

INSTANTIATE_TEST_SUITE_P(Screens, Menus, testing::ValuesIn(kStations),
                         [](const auto& station) { return std::string(station.param.name); });

}  // namespace

}  // namespace feltmaster
