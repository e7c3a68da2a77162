#include <gmock/gmock.h>

#include <QAction>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QUrl>
#include <fstream>
#include <set>
#include <variant>

#include "autobet/hot_keys.h"
#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "automation/hyper_drive.h"
#include "base/number_format.h"
#include "desktop/at_the_table.h"
#include "engine/chip_list.h"
#include "files/game_file.h"
#include "game/bets.h"
#include "stats/roll_statistics.h"
#include "table/key_walk.h"

namespace feltmaster {

namespace {

using testing::ElementsAre;

constexpr Pixel kFiveChip = {10, 320};
constexpr Pixel kTwentyFiveChip = {10, 295};
constexpr Pixel kRailAboveGrid = {300, 20};

Pixel On(int bet) {
  return kBetPlace[static_cast<std::size_t>(bet)];
}
constexpr MoneyAmount Dollars(int whole) {
  return MoneyAmount::FromWhole(whole);
}

class ThePlayer : public AtTheTable {
 protected:
  MoneyAmount On_(int bet) const { return game_->BetAmount[bet]; }
  void WriteScript(const char* text) {
    auto lines = ComposeScript(text);
    ASSERT_TRUE(std::holds_alternative<std::vector<ScriptLine>>(lines));
    game_->ScriptLines = std::get<std::vector<ScriptLine>>(lines);
    game_->ScriptActive = 1;
    game_->ScriptNeedsInit = true;
    ScriptLinesChanged(*game_);
  }
  // Something that happens while the logic lets events through.
  void Meanwhile(std::function<void()> what, int after = 30) {
    QTimer::singleShot(after, window_.get(), std::move(what));
  }
  std::string File(const char* name) const { return (folder_ / name).string(); }
};

TEST_F(ThePlayer, SpendsAnEveningAndSavesIt) {
  game_->HandleWinningBets = 1;
  Press(kFiveChip);
  Press(On(kPassLine));
  Press(On(kPassLine));
  EXPECT_EQ(On_(kPassLine), Dollars(10));
  EXPECT_EQ(game_->ChipList.size(), 2u);
  Roll(2, 4);
  EXPECT_EQ(game_->Point, 6);
  Press(On(kPassOdds));
  Press(On(kComeBox));
  EXPECT_EQ(On_(kPassOdds), Dollars(5));
  Roll(4, 5);
  EXPECT_EQ(On_(kComeBox), Dollars(0));
  EXPECT_EQ(On_(kComePoint + 6), Dollars(5)) << "the Come bet travels to the nine";
  const MoneyAmount before = On_(kBankroll);
  Roll(3, 3);
  EXPECT_EQ(game_->Point, 0);
  EXPECT_EQ(On_(kBankroll) - before, Dollars(16)) << "10 on the line and 6 of the odds";
  Roll(4, 4);
  Roll(3, 4);
  EXPECT_EQ(game_->Point, 0);
  EXPECT_EQ(On_(kComePoint + 6), Dollars(0));
  NothingExpected();

  ExpectPress("cmdButton1");  // the game is to be saved
  Expect([](QWidget& dialog) {
    Find<QLineEdit>(dialog, "txtFileName")->setText("evening");
    Find<QPushButton>(dialog, "cmdOK")->click();
  });
  EXPECT_TRUE(window_->close());
  NothingExpected();
  EXPECT_THAT(Titles, ElementsAre("Save Game?", "Save Game File As"));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "evening.crp"));
  EXPECT_TRUE(std::filesystem::exists(folder_ / "default.crp"));
}

TEST_F(ThePlayer, TakesOffTakesDownAndDrags) {
  Press(kTwentyFiveChip);
  for (int i = 0; i < 3; ++i) Press(On(kField));
  Press(On(kField), Qt::LeftButton, Qt::ControlModifier);
  EXPECT_EQ(On_(kField), Dollars(50));
  TableCanvas& canvas = window_->Canvas();
  const auto at = [&](int bet) {
    const Pixel pixel = On(bet);
    return canvas.ToWidget(QPointF(pixel.x, pixel.y)).toPoint();
  };
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::MiddleButton}) {
    const int from = button == Qt::LeftButton ? kField : kBig8;
    const int to = button == Qt::LeftButton ? kBig8 : kField;
    QTest::mousePress(&canvas, button, button == Qt::LeftButton ? Qt::AltModifier : Qt::NoModifier,
                      at(from));
    EXPECT_EQ(On_(from), Dollars(0));
    QTest::mouseMove(&canvas, at(to));
    QTest::mouseRelease(&canvas, button, Qt::NoModifier, at(to));
    EXPECT_EQ(On_(to), Dollars(50));
  }
  Press(On(kField), Qt::LeftButton, Qt::ShiftModifier);
  EXPECT_EQ(On_(kField), Dollars(0));
  NothingExpected();
}

// The picture keeps its shape, and a press finds its bet at every size.
TEST_F(ThePlayer, FindsEveryBetAtEverySize) {
  for (const QSize size : {QSize(700, 480), QSize(1200, 500), QSize(500, 900)}) {
    window_->resize(size);
    QTest::qWait(200);
    for (const int bet : {kPassLine, kLay, kPlace + 9, kTwelve, kCAndE}) {
      const Pixel pixel = On(bet);
      const QPointF place = window_->Canvas().ToWidget(QPointF(pixel.x + 0.5, pixel.y + 0.5));
      EXPECT_EQ(window_->Canvas().ToPixel(place), pixel);
      EXPECT_TRUE(window_->Canvas().rect().contains(place.toPoint()));
    }
  }
}

TEST_F(ThePlayer, WalksTheWholeTableWithTheArrowKeys) {
  Choose("mnuKeyInBetAmounts");
  auto* box = Find<QLineEdit>(*window_, "txtEnterBet");
  ASSERT_TRUE(box->isVisible());
  constexpr std::array kArrows = {
      std::pair{Qt::Key_Left, Arrow::kLeft}, std::pair{Qt::Key_Right, Arrow::kRight},
      std::pair{Qt::Key_Up, Arrow::kUp}, std::pair{Qt::Key_Down, Arrow::kDown}};
  const auto elsewhere = std::make_unique<Game>();
  std::set<int> reached;
  for (const bool hops : {false, true}) {
    if (game_->ShowHopBets != hops) Choose("mnuDisplayHopBets");
    // From every bet that was reached, one step in each direction.
    std::set<int> to_visit = {game_->EntryBoxBet};
    std::set<int> visited;
    while (!to_visit.empty()) {
      const int bet = *to_visit.begin();
      to_visit.erase(to_visit.begin());
      visited.insert(bet);
      for (const auto& [key, arrow] : kArrows) {
        game_->EntryBoxBet = bet;
        elsewhere->ShowHopBets = game_->ShowHopBets;
        elsewhere->LastStackBet = game_->LastStackBet;
        elsewhere->LastPanelBet = game_->LastPanelBet;
        elsewhere->LastGridColumn = game_->LastGridColumn;
        elsewhere->LastGridRow = game_->LastGridRow;
        const int expected = WalkFrom(*elsewhere, bet, arrow);
        Type(key);
        EXPECT_EQ(game_->EntryBoxBet, expected) << bet;
        const Pixel place = *PlaceOf(*game_, expected);
        const QPoint corner =
            window_->Canvas().ToWidget(QPointF(place.x - 11, place.y - 11)).toPoint();
        EXPECT_LT((box->pos() - corner).manhattanLength(), 4) << expected;
        if (!visited.contains(expected)) to_visit.insert(expected);
      }
    }
    reached.merge(visited);
  }
  for (int bet = 1; bet <= kBetCount; ++bet) {
    if (IsBuy(bet)) continue;  // walked as its Place bet
    EXPECT_TRUE(reached.contains(bet)) << bet;
  }
}

TEST_F(ThePlayer, KeysInAmounts) {
  Choose("mnuKeyInBetAmounts");
  game_->EntryBoxBet = kPassLine;
  auto* box = Find<QLineEdit>(*window_, "txtEnterBet");
  QTest::keyClicks(box, "1x2.5");
  EXPECT_EQ(box->text(), "12.5");
  Type(Qt::Key_Return);
  EXPECT_EQ(On_(kPassLine), Dollars(13)) << "in whole units";
  QTest::keyClicks(box, "7");
  Type(Qt::Key_Escape);
  EXPECT_EQ(box->text(), "13") << "what was typed is taken back";
  ExpectPress("cmdButton0");  // more than the placard allows
  QTest::keyClicks(box, "5000");
  Type(Qt::Key_Down);
  EXPECT_EQ(game_->EntryBoxBet, kPassLine) << "a refusal keeps the box where it is";
  Press(kRailAboveGrid, Qt::RightButton);
  EXPECT_EQ(RollCounts(*game_, 0), 1);
  NothingExpected();
}

TEST_F(ThePlayer, IsAskedBeforeHyperDriveIsDisturbed) {
  surface_->Settings().SetUnlimited(true);
  game_->NumAutoRolls = 0;
  game_->AutoRollsRemaining = 0;
  const std::vector<std::function<void()>> disturbances = {
      [this] { Press(On(kPassLine)); },
      [this] { Press(kRailAboveGrid, Qt::RightButton); },
      [this] { Type(Qt::Key_Left); },
      [this] { Choose("mnuConfigure"); },
      [this] { Find<QMenu>(*window_, "mnuAction")->aboutToShow(); },
      [this] { window_->close(); },
  };
  for (const auto& disturb : disturbances) {
    Titles.clear();
    ExpectPress("cmdButton2");  // no: it goes on
    ExpectPress("cmdButton1");
    Meanwhile(disturb);
    Meanwhile(
        [this, disturb] {
          EXPECT_TRUE(game_->HyperDriveActive);
          disturb();
        },
        200);
    SetRollCounts(*game_, 0, 0);  // far from the limit of a game
    ToggleHyperDrive(*game_);
    game_->GameChanged = false;
    EXPECT_FALSE(game_->HyperDriveActive);
    EXPECT_THAT(Titles, ElementsAre("Hyper-Drive Active", "Hyper-Drive Active"));
    QTest::qWait(60);
  }
  EXPECT_FALSE(window_->isVisible()) << "told to close, it closes when the last roll is done";
  NothingExpected();
}

TEST_F(ThePlayer, StopsAnAutoRollThatDoesNotPause) {
  game_->AutoRollDice = true;
  game_->AutoRollDelay = 0;
  game_->NumAutoRolls = 100;
  Meanwhile([this] { Press(kRailAboveGrid, Qt::RightButton); }, 700);
  Press(kRailAboveGrid, Qt::RightButton);
  EXPECT_GE(RollCounts(*game_, 0), 1);
  EXPECT_LT(RollCounts(*game_, 0), 10);
}

TEST_F(ThePlayer, IsAskedBeforeAScriptIsDisturbed) {
  WriteScript("Do this . . .\n again\n  Go to \"again\"\n");
  ExpectPress("cmdButton2");
  ExpectPress("cmdButton1");
  Meanwhile([this] { Press(On(kPassLine)); }, 700);
  Meanwhile([this] { Type(Qt::Key_Left); }, 1000);
  Roll(1, 2);
  EXPECT_THAT(Titles, ElementsAre("Auto-Bet Active", "Auto-Bet Active"));
  EXPECT_FALSE(game_->AutoBetRunning);
  EXPECT_EQ(On_(kPassLine), Dollars(0));
  NothingExpected();
}

TEST_F(ThePlayer, OpensAGameThatIsDroppedOnTheWindow) {
  game_->BetAmount.Set(kField, Dollars(5));
  const std::string file = File("dropped.crp");
  ASSERT_TRUE(SaveGame(*game_, file));
  game_->BetAmount.Set(kField, Dollars(0));
  game_->GameChanged = false;
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile(QString::fromStdString(file))});
  QDragEnterEvent enter(QPoint(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(QPointF(100, 100), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(window_.get(), &drop);
  QTest::qWait(100);
  EXPECT_EQ(On_(kField), Dollars(5));
  EXPECT_EQ(window_->windowTitle(), "Feltmaster (dropped.crp)");
}

// The game is not taken from under the chain that is told to end.
TEST_F(ThePlayer, StartsANewGameWhenTheChainHasEnded) {
  surface_->Settings().SetUnlimited(true);
  game_->NumAutoRolls = 0;
  game_->AutoRollsRemaining = 0;
  ExpectPress("cmdButton1");  // stop
  bool waited = false;
  Meanwhile([this, &waited] {
    Choose("mnuNew");
    waited = RollCounts(*game_, 0) > 0;
  });
  ToggleHyperDrive(*game_);
  EXPECT_TRUE(waited);
  ExpectPress("cmdButton2");  // the old game is not saved
  QTest::qWait(200);
  EXPECT_THAT(Titles, ElementsAre("Hyper-Drive Active", "Save Game?"));
  EXPECT_EQ(RollCounts(*game_, 0), 0);
  NothingExpected();
}

TEST_F(ThePlayer, PlaysOnMinimisedAndIsToldWhyItStopped) {
  surface_->Settings().SetUnlimited(true);
  game_->AutoRollsRemaining = 5000;
  window_->showMinimized();
  QApplication::processEvents();
  ToggleHyperDrive(*game_);
  EXPECT_EQ(RollCounts(*game_, 0), 5000);
  EXPECT_EQ(window_->windowTitle(), "Hyper-Drive Stopped");
  EXPECT_TRUE(Titles.empty());
  ExpectPress("cmdButton0");
  window_->showNormal();
  QTest::qWait(100);
  EXPECT_THAT(Titles, ElementsAre("Hyper-Drive Stopped"));
  EXPECT_EQ(window_->windowTitle(), "Feltmaster");
  NothingExpected();
}

TEST_F(ThePlayer, AnswersAScriptAndRunsHotKeys) {
  WriteScript(
      "When . . .\n  Initializing Auto-Bet\nthen . . .\n  Yes/No question: \"Press it?\"\n");
  ExpectPress("cmdButton1");
  Roll(1, 2);
  NothingExpected();
  EXPECT_EQ(RollCounts(*game_, 0), 1);

  const std::string file = File("ask.bet");
  ASSERT_TRUE(SaveScript(*game_, file));
  ASSERT_TRUE(AddHotKey(*game_, '7', file, "asks"));
  PlaceHotKey(*game_, 1);
  ExpectPress("cmdButton2");
  Type(Qt::Key_7, Qt::ControlModifier);
  NothingExpected();
  EXPECT_EQ(RollCounts(*game_, 0), 1);
}

// Every entry of the menus does something that can be seen: a check that follows the game, a
// window, or a dialog.
TEST_F(ThePlayer, ReachesEveryMenuEntry) {
  const std::set<WindowCommand> modal = {WindowCommand::kConfigure, WindowCommand::kAutoBet,
                                         WindowCommand::kHotKeys, WindowCommand::kAbout};
  for (const MenuCommand& command : MenuCommands()) {
    SCOPED_TRACE(command.name);
    auto* action = window_->findChild<QAction*>(QString::fromUtf8(command.name.data()));
    ASSERT_NE(action, nullptr);
    EXPECT_EQ(action->text().toStdString(), command.caption);
    EXPECT_EQ(action->shortcut().toString().toStdString(), command.shortcut);
    if (command.checked != nullptr) {
      const bool before = command.checked(*game_);
      action->trigger();
      EXPECT_NE(command.checked(*game_), before);
      EXPECT_EQ(action->isChecked(), !before);
      action->trigger();
      EXPECT_EQ(command.checked(*game_), before);
    } else if (modal.contains(command.window)) {
      Expect([](QWidget& screen) { screen.close(); });
      action->trigger();
      NothingExpected();
    } else if (command.window != WindowCommand::kNone &&
               command.window != WindowCommand::kCloseTable) {
      action->trigger();
      const WindowCommand shown = command.window == WindowCommand::kHelpSearch
                                      ? WindowCommand::kHelpContents
                                      : command.window;
      ASSERT_NE(window_->AllScreens().Find(shown), nullptr);
      EXPECT_TRUE(window_->AllScreens().Find(shown)->isVisible());
      window_->AllScreens().Close(shown);
    }
  }
  game_->GameChanged = false;
  ExpectPress("cmdButton0");
  Choose("mnuShowPath");
  EXPECT_EQ(Titles.back(), "Path");
  for (const char* file_command : {"mnuOpen", "mnuSave", "mnuSaveAs"}) {
    Expect([](QWidget& dialog) { Find<QAbstractButton>(dialog, "cmdCancel")->click(); });
    Choose(file_command);
    EXPECT_THAT(Titles.back(), testing::HasSubstr("Game File")) << file_command;
  }
  Choose("mnuRollDice");
  EXPECT_EQ(RollCounts(*game_, 0), 1);
  game_->GameChanged = false;
  Choose("mnuExit");
  EXPECT_FALSE(window_->isVisible());
  NothingExpected();
}

}  // namespace

}  // namespace feltmaster
