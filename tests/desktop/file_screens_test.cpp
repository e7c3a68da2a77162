#include <QCheckBox>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <filesystem>
#include <fstream>
#include <utility>

#include "desktop/at_the_table.h"
#include "desktop/frm_games.h"
#include "desktop/games_histogram.h"
#include "desktop/painted_list.h"
#include "desktop/qt_text.h"
#include "files/games_log.h"
#include "files/roll_recorder.h"
#include "view/games_screen.h"
#include "view/roll_list.h"

namespace feltmaster {

namespace {

class FileScreens : public AtTheTable {
 protected:
  template <typename Window = ScreenWindow>
  Window& Open(WindowCommand which) {
    window_->AllScreens().Open(which);
    QApplication::processEvents();
    return static_cast<Window&>(*window_->AllScreens().Find(which));
  }
  static void ChooseIn(QWidget& screen, const char* entry) {
    auto* const action = screen.findChild<QAction*>(entry);
    ASSERT_NE(action, nullptr) << entry;
    EXPECT_TRUE(action->isEnabled()) << entry;
    action->trigger();
  }
  static void Click(QWidget& screen, const std::string& button) {
    if (auto* const found = Find<QAbstractButton>(screen, button.c_str())) found->click();
  }
  static std::string Text(QWidget& screen, const std::string& label) {
    auto* const found = Find<QLabel>(screen, label.c_str());
    return found == nullptr ? "" : found->text().toStdString();
  }
  // Answers a question with its fields.
  void ExpectNumbers(const char* first, const char* second) {
    Expect([first, second](QWidget& dialog) {
      Find<QLineEdit>(dialog, "txtInput0")->setText(first);
      if (*second != '\0') Find<QLineEdit>(dialog, "txtInput1")->setText(second);
      Click(dialog, "cmdButton0");
    });
  }
  std::string Path(const char* name) const { return (folder_ / name).string(); }
  std::string Bytes(const char* name) const {
    std::ifstream file(Path(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
};

// ---- Games Log ----------------------------------------------------------------------------------

class GamesScreens : public FileScreens {
 protected:
  // Games with these net results.
  void Log(const char* name, const std::vector<int>& nets) {
    GamesLogAppender log;
    ASSERT_FALSE(log.Open(Path(name)));
    std::string games;
    for (const int net : nets) {
      Record record;
      record.SetMoney(kNetValue * sizeof(std::int64_t), MoneyAmount(net));
      record.SetMoney(kHandleValue * sizeof(std::int64_t), MoneyAmount(1000));
      games += record.Bytes();
    }
    ASSERT_FALSE(log.Add(games));
    ASSERT_FALSE(log.Finish(false));
  }
  GamesScreen& OpenLog(const std::vector<int>& nets) {
    Log("default.glg", nets);
    game_->GamesDisplayChoice = kNetValue;
    return Open<GamesScreen>(WindowCommand::kGamesLog);
  }
  // Every figure is that of its model.
  void ExpectModel(GamesScreen& screen) {
    Game& game = *game_;
    const std::optional<GamesAnalysis> analysis = AnalyzeGames(game, kNetValue);
    ASSERT_TRUE(analysis);
    const Figures figures = GamesFigures(*analysis);
    for (std::size_t i = 0; i < figures.size(); ++i) {
      EXPECT_EQ(Text(screen, "lblCurrent" + std::to_string(i)), figures[i].text);
      EXPECT_EQ(Text(screen, "lblCaption" + std::to_string(i)), figures[i].caption);
    }
    const auto outcomes = OutcomeFigures(game, *analysis);
    for (std::size_t i = 0; i < outcomes.size(); ++i) {
      EXPECT_EQ(Text(screen, "lblGames" + std::to_string(i)), outcomes[i].games);
      EXPECT_EQ(Text(screen, "lblGamesPct" + std::to_string(i)), outcomes[i].percent);
      if (i < kGameOutcomes) {
        EXPECT_EQ(Text(screen, "Label1" + std::to_string(i)), outcomes[i].caption);
      }
    }
    EXPECT_EQ(Text(screen, "lblCurrent15"), GamesInRange(*analysis).games);
    EXPECT_EQ(Text(screen, "lblCurrent16"), GamesInRange(*analysis).percent);
    EXPECT_EQ(Text(screen, "lblHighGames"), PaintGamesHistogram(game, *analysis).highest);
  }
};

TEST_F(GamesScreens, ShowsTheAnalysisOfWhatIsChosen) {
  game_->GamesViewChoice = 7 | 8;
  GamesScreen& screen = OpenLog({500, -200, 0, 300, -200, 1500});
  ExpectModel(screen);
  EXPECT_EQ(Text(screen, "lblCurrent0"), "1,900.0");
  Click(screen, "chkInclude2");  // those that lost
  ExpectModel(screen);
  EXPECT_EQ(Text(screen, "lblCurrent6"), "0");
  EXPECT_EQ(game_->GamesViewChoice, 3 | 8);

  // The range: typed, as standard deviations, and with the pointers.
  auto* const low = Find<QLineEdit>(screen, "txtValueCount0");
  auto* const deviations = Find<QLineEdit>(screen, "txtSDCount0");
  low->selectAll();
  QTest::keyClicks(low, "400");
  EXPECT_EQ(deviations->text(), "");
  EXPECT_EQ(Text(screen, "lblCurrent15"), "");
  QTest::keyClick(low, Qt::Key_Return);
  EXPECT_EQ(Text(screen, "lblCurrent15"), "2 games");
  EXPECT_NE(deviations->text(), "");
  deviations->selectAll();
  QTest::keyClicks(deviations, "0");
  QTest::keyClick(deviations, Qt::Key_Return);
  EXPECT_EQ(low->text(), "575");
  auto* const picture = Find<GamesHistogramView>(screen, "picHistogram");
  picture->setFocus();
  QTest::mousePress(picture, Qt::LeftButton, {}, picture->PlaceOf(2).toPoint());
  EXPECT_EQ(low->text(), "0");
  QTest::mouseRelease(picture, Qt::LeftButton);
  QTest::mouseClick(picture, Qt::RightButton, {}, picture->PlaceOf(105).toPoint());
  EXPECT_EQ(Find<QLineEdit>(screen, "txtValueCount1")->text(), "300");
  EXPECT_EQ(Text(screen, "lblCurrent15"), "2 games");
  QTest::keyClick(picture, Qt::Key_Left, Qt::ShiftModifier);
  EXPECT_EQ(Text(screen, "lblCurrent15"), "1 game");

  ChooseIn(screen, "mnuBarWidth3");
  EXPECT_EQ(game_->GamesBarWidth, 105);
  auto* const variables = Find<QComboBox>(screen, "cmbView");
  ASSERT_EQ(variables->count(), kGameValues);
  QTest::keyClick(variables, Qt::Key_Home);
  EXPECT_EQ(game_->GamesDisplayChoice, 0);
  EXPECT_EQ(Text(screen, "lblCurrent4"), "0");
}

TEST_F(GamesScreens, TheDataListAndWhatIsFoundAndDeleted) {
  std::vector<int> nets;
  for (int i = 1; i <= 60; ++i) nets.push_back(i % 2 == 0 ? -i : i);
  GamesScreen& screen = OpenLog(nets);
  Click(screen, "optDisplay0");
  auto* const data = Find<PaintedList>(screen, "picData");
  ASSERT_TRUE(data->isVisible());
  QTest::keyClick(data, Qt::Key_Down);
  EXPECT_EQ(game_->GamesTopLine, 2);
  QTest::keyClick(data, Qt::Key_PageDown);
  EXPECT_EQ(game_->GamesTopLine, 2 + data->RowsShown());
  QTest::keyClick(data, Qt::Key_End);
  EXPECT_EQ(game_->GamesTopLine, 60);
  QTest::keyClick(data, Qt::Key_Home);
  EXPECT_EQ(game_->GamesTopLine, 1);

  Click(screen, "optDisplay1");
  ExpectNumbers("-40", "");
  ChooseIn(screen, "mnuFind");
  EXPECT_EQ(game_->GamesTopLine, 40);
  EXPECT_TRUE(data->isVisible());
  ExpectPress("cmdButton0");  // the search goes round and ends where it began
  game_->GamesFindText = "41.5";
  ChooseIn(screen, "mnuFindNext");
  game_->GamesFindText = "39";
  ChooseIn(screen, "mnuFindPrevious");
  EXPECT_EQ(game_->GamesTopLine, 39);

  ExpectNumbers("2", "3");
  ChooseIn(screen, "mnuDelete");
  EXPECT_EQ(Text(screen, "lblGames3"), "58");
  ExpectNumbers("10", "-10");
  ChooseIn(screen, "mnuSetBreakPoint");
  EXPECT_EQ(Text(screen, "Label11"), "-10 - 10");
  ExpectModel(screen);
  NothingExpected();
}

TEST_F(GamesScreens, LogsAreOpenedSavedMergedAndBegun) {
  GamesScreen& screen = OpenLog({1, 2, 3});
  ExpectFile("kept");
  ChooseIn(screen, "mnuSaveAs");
  EXPECT_EQ(screen.windowTitle(), "Games Log (kept.glg)");
  Log("other.glg", {10, 20});
  ExpectFile("other.glg");
  ChooseIn(screen, "mnuMerge");
  EXPECT_EQ(Text(screen, "lblGames3"), "5");
  ChooseIn(screen, "mnuNew");
  EXPECT_EQ(screen.windowTitle(), "Games Log");
  EXPECT_EQ(Text(screen, "lblGames3"), "0");
  EXPECT_EQ(Text(screen, "lblGamesPct3"), "0");
  ExpectFile("other.glg");
  ChooseIn(screen, "mnuOpen");
  EXPECT_EQ(screen.windowTitle(), "Games Log (other.glg)");
  EXPECT_EQ(Text(screen, "lblCurrent0"), "30.0");
  // A game that the table finishes meanwhile is there once the screen has rested.
  Log("other.glg", {60});
  screen.Refresh();
  EXPECT_TRUE(QTest::qWaitFor([&] { return Text(screen, "lblCurrent0") == "90.0"; }));
  NothingExpected();
}

TEST_F(GamesScreens, ALongLogCanBeGivenUpAndScrolls) {
  std::vector<int> nets;
  for (int i = 0; i < 100'000; ++i) nets.push_back((i * 7919) % 2001 - 1000);
  Log("default.glg", nets);
  GamesScreen& screen = *[this] {
    window_->AllScreens().Open(WindowCommand::kGamesLog);
    return static_cast<GamesScreen*>(window_->AllScreens().Find(WindowCommand::kGamesLog));
  }();
  // Presses of the player while it runs: the one that gives up is heard, others are not.
  auto* const bar = Find<QProgressBar>(screen, "barProgress");
  int seen = -1;
  const auto while_it_runs = [&](const std::function<void()>& act) {
    QTimer::singleShot(0, &screen, [&, act] {
      if (bar->isVisible()) seen = bar->value();
      act();
    });
    screen.Analyze();
  };
  while_it_runs([&] { QTest::keyClick(&screen, Qt::Key_Escape); });
  EXPECT_GE(seen, 0);
  EXPECT_EQ(Text(screen, "lblGames3"), "");
  while_it_runs([&] { screen.close(); });
  EXPECT_TRUE(screen.isVisible());
  EXPECT_EQ(Text(screen, "lblGames3"), "100,000");
  // While another log is read, the figures of the one before are gone.
  const std::string before = std::exchange(game_->GamesLogFile, (folder_ / "other.glg").string());
  std::filesystem::copy_file(before, game_->GamesLogFile);
  while_it_runs([&] { EXPECT_EQ(Text(screen, "lblGames3"), ""); });
  EXPECT_EQ(Text(screen, "lblGames3"), "100,000");

  game_->GamesDisplayChoice = kNetValue;
  Click(screen, "optDisplay0");
  auto* const data = Find<PaintedList>(screen, "picData");
  QElapsedTimer clock;
  clock.start();
  constexpr int kSteps = 200;
  for (int i = 0; i < kSteps; ++i) {
    data->GoTo(30'000 - i * 100);
    data->repaint();
  }
  const double each = static_cast<double>(clock.elapsed()) / kSteps;
  RecordProperty("milliseconds_per_step", std::to_string(each));
  EXPECT_LT(each, 16) << "a step of the list is longer than a frame";
}

// ---- Dice Roll Files ----------------------------------------------------------------------------

class RollScreens : public FileScreens {
 protected:
  ScreenWindow& screen_ = Open(WindowCommand::kDiceRollFiles);
  PaintedList* list_ = Find<PaintedList>(screen_, "picDiceRolls");

  void NewFile(const char* name) {
    ExpectFile(name);
    ChooseIn(screen_, "mnuNewOpen");
  }
  void Enter(std::initializer_list<int> buttons) {
    for (const int button : buttons) Click(screen_, "cmdRollNumbers" + std::to_string(button));
  }
  std::string Counters() {
    return Text(screen_, "lblTotalNumRolls") + ' ' + Text(screen_, "lblNumRollsSelected") + ' ' +
           Text(screen_, "lblLastRollNum") + ' ' +
           Find<QLineEdit>(screen_, "txtNextRollNum")->text().toStdString();
  }
  // Of the file that is open.
  std::string Rolls() { return Bytes("rolls.rol"); }
};

TEST_F(RollScreens, NothingWithoutAFile) {
  for (const char* const button :
       {"cmdRollNumbers0", "cmdRandomNum", "optRecorderStatus1", "optRecorderStatus2"}) {
    ExpectPress("cmdButton0");
    Click(screen_, button);
  }
  EXPECT_EQ(Titles, (std::vector<std::string>{"Record Dice Rolls", "Record Dice Rolls",
                                              "Record Dice Rolls During Game Play",
                                              "Playback Dice Rolls During Game Play"}));
  EXPECT_TRUE(Find<QAbstractButton>(screen_, "optRecorderStatus0")->isChecked());
  for (const char* const entry : {"mnuCut", "mnuCopy", "mnuPaste", "mnuDelete", "mnuSelectAll"}) {
    EXPECT_FALSE(screen_.findChild<QAction*>(entry)->isEnabled()) << entry;
  }
  NothingExpected();
}

TEST_F(RollScreens, RollsAreEnteredMovedAndFiled) {
  NewFile("rolls");
  EXPECT_EQ(screen_.windowTitle(), "Dice Roll Files (rolls.rol)");
  std::string all;
  for (int button = 0; button < 36; ++button) {
    Enter({button});
    all += static_cast<char>((button % 6 + 1) * 32 + (button / 6 + 1) * 4);
  }
  EXPECT_EQ(Rolls(), all);
  EXPECT_EQ(Counters(), "36 0 0 37");

  auto* const next = Find<QLineEdit>(screen_, "txtNextRollNum");
  next->setText("2");
  QTest::keyClick(next, Qt::Key_Return);
  EXPECT_EQ(Counters(), "36 1 0 2");
  Enter({35});  // over the second
  Click(screen_, "optInsertRolls0");
  Enter({35});  // before the third
  EXPECT_EQ(Rolls(), all.substr(0, 1) + "\xD8\xD8" + all.substr(2));
  QTest::mouseClick(list_, Qt::LeftButton, {}, list_->CellRect({0, 0}).center());
  list_->setFocus();
  QTest::keyClick(list_, Qt::Key_Home);
  QTest::keyClick(list_, Qt::Key_Down);
  QTest::keyClick(list_, Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Counters(), "37 2 0 3");
  ChooseIn(screen_, "mnuCopy");
  ChooseIn(screen_, "mnuDelete");
  ChooseIn(screen_, "mnuSelectAll");
  EXPECT_EQ(Counters(), "35 35 0 35");
  QTest::mouseClick(list_, Qt::LeftButton, {}, list_->CellRect({0, 0}).center());
  QTest::keyClick(list_, Qt::Key_Home);
  QTest::mouseClick(list_, Qt::RightButton, {}, list_->CellRect({1, 0}).center());
  EXPECT_EQ(Counters(), "35 2 0 2");
  ChooseIn(screen_, "mnuCut");
  ChooseIn(screen_, "mnuPaste");
  EXPECT_EQ(Rolls().size(), 35u);

  ChooseIn(screen_, "mnuSelectAll");
  ExpectFile("copy");
  ChooseIn(screen_, "mnuCopyToRollFile");
  EXPECT_EQ(Bytes("copy.rol"), Rolls());
  ExpectFile("copy");
  ChooseIn(screen_, "mnuCopyToTextFile");
  EXPECT_EQ(Bytes("copy.txt").substr(0, 12), "1 (1-4) 5\n2 ");
  ExpectFile("copy");
  ChooseIn(screen_, "mnuPasteFromRollFile");
  EXPECT_EQ(Rolls().size(), 70u);
  std::ofstream(Path("dice.txt")) << "3 4, 5";
  ExpectFile("dice.txt");
  ChooseIn(screen_, "mnuPasteFromTextFile");
  EXPECT_EQ(Rolls().size(), 71u);
  Click(screen_, "cmdRandomNum");
  EXPECT_EQ(Rolls().size(), 72u);
  ChooseIn(screen_, "mnuClose");
  EXPECT_EQ(Counters(), "0 0 0 0");
  EXPECT_EQ(screen_.windowTitle(), "Dice Roll Files");
  NothingExpected();
}

TEST_F(RollScreens, TheRecorderFollowsTheTable) {
  game_->AllowNegBankroll = true;
  NewFile("rolls");
  for (int i = 0; i < 60; ++i) Enter({i % 36});
  list_->GoTo(0);
  Click(screen_, "optRecorderStatus1");
  EXPECT_EQ(game_->DiceRollFileMode, kRecording);
  for (int i = 0; i < 2; ++i) Roll(3, 4);
  screen_.Refresh();
  EXPECT_EQ(Counters(), "62 0 62 63");
  EXPECT_EQ(game_->DiceRollTopLine, 63 - list_->RowsShown() / 2);
  Click(screen_, "optRecorderStatus0");
  EXPECT_EQ(game_->DiceRollFileMode, kRecorderOff);
}

TEST_F(RollScreens, HighlightsAndPrintOptions) {
  NewFile("rolls");
  ChooseIn(screen_, "mnuPip3_4");
  EXPECT_TRUE(game_->RollHighlight[4][3]);
  ChooseIn(screen_, "mnuAll7");
  for (int die = 1; die <= 6; ++die) {
    EXPECT_TRUE(
        game_->RollHighlight[static_cast<std::size_t>(die)][static_cast<std::size_t>(7 - die)]);
  }
  EXPECT_TRUE(screen_.findChild<QAction*>("mnuPip6_1")->isChecked());
  ChooseIn(screen_, "mnuPip6_1");
  EXPECT_FALSE(screen_.findChild<QAction*>("mnuAll7")->isChecked());
  ChooseIn(screen_, "mnuClearAll");
  EXPECT_EQ(game_->RollHighlight, decltype(game_->RollHighlight){});

  for (const auto& [name, setting] :
       {std::pair{"chkDieNums", &game_->PrintDieNumbers},
        std::pair{"chkRollNums", &game_->PrintRollNumbers},
        std::pair{"chkNumbersCalled", &game_->PrintNumbersCalled},
        std::pair{"chkPrintSelectedRolls", &game_->PrintSelectedRolls}}) {
    const std::int32_t before = *setting;
    Click(screen_, name);
    EXPECT_EQ(*setting, 1 - before) << name;
  }
  ExpectPress("cmdButton0");  // no rolls
  Click(screen_, "cmdPrint");
  NothingExpected();
}

// A file far longer than what is in memory: the list reads what it shows.
TEST_F(RollScreens, ALongFile) {
  std::ofstream(Path("rolls.rol")) << '\x24';
  std::filesystem::resize_file(Path("rolls.rol"), 200'000'000);
  NewFile("rolls");
  list_->setFocus();
  QElapsedTimer clock;
  clock.start();
  constexpr int kSteps = 200;
  for (int i = 0; i < kSteps; ++i) {
    list_->GoTo(i * 150);
    list_->repaint();
  }
  const double each = static_cast<double>(clock.elapsed()) / kSteps;
  RecordProperty("milliseconds_per_step", std::to_string(each));
  EXPECT_LT(each, 16);
  QTest::keyClick(list_, Qt::Key_End);
  EXPECT_EQ(game_->DiceRollNext, 200'000'001);
}

}  // namespace

}  // namespace feltmaster
