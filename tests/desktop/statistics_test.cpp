#include <gmock/gmock.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <ctime>

#include "automation/hyper_drive.h"
#include "desktop/at_the_table.h"
#include "desktop/frm_bankroll.h"
#include "desktop/paint_tools.h"
#include "desktop/picture_export.h"
#include "desktop/qt_text.h"
#include "desktop/roll_bars.h"
#include "desktop/rows_table.h"
#include "stats/roll_statistics.h"
#include "surface/null_surface.h"
#include "view/bet_results_table.h"
#include "view/roll_frequencies.h"
#include "view/roll_totals.h"
#include "view/summary.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Statistics : public AtTheTable {
 protected:
  ScreenWindow& Open(WindowCommand which) {
    window_->AllScreens().Open(which);
    ScreenWindow* screen = window_->AllScreens().Find(which);
    EXPECT_NE(screen, nullptr);
    QApplication::processEvents();
    return *screen;
  }
  static void Trigger(ScreenWindow& screen, const char* entry) {
    if (auto* action = Find<QAction>(screen, entry)) action->trigger();
  }
  static std::string Shown(ScreenWindow& screen, const char* label) {
    auto* found = Find<QLabel>(screen, label);
    return found == nullptr ? "" : FromQt(found->text());
  }
  // Rolls by Hyper-Drive, with ten dollars on the line until they are lost.
  void Play(int rolls) {
    game_->AllowNegBankroll = true;
    game_->HandleWinningBets = 1;
    game_->BetAmount.Set(kPassLine, MoneyAmount(10));
    surface_->Settings().SetUnlimited(true);
    game_->AutoRollsRemaining = rolls;
    ExpectPress("cmdButton0");
    ToggleHyperDrive(*game_);
    NothingExpected();
    window_->AllScreens().Refresh();
  }
};

struct OneScreen {
  WindowCommand command;
  const char* name;
  Rows (*rows)(Game&);
};
constexpr auto kScreens = std::to_array<OneScreen>({
    {WindowCommand::kSummary, "frmSummary",
     [](Game& game) { return RowsOf(SummaryFigures(game)); }},
    {WindowCommand::kBankrollGraph, "frmBankroll",
     [](Game& game) { return RowsOf(BankrollHeader(game)); }},
    {WindowCommand::kRollTotals, "frmRollTotals", [](Game& game) { return RollTotalRows(game); }},
    {WindowCommand::kRollFreqs, "frmRollFreqs",
     [](Game& game) {
       Rows rows = FrequencyRows(game, kFrequencyEntry[0], false);
       const Rows gaps = GapRows(game, kFrequencyEntry[0].event);
       rows.insert(rows.end(), gaps.begin(), gaps.end());
       return rows;
     }},
    {WindowCommand::kBetResults, "frmBetResults",
     [](Game& game) {
       return BetResultRows(game, ReadBetResultsSelection(game.BetResultsSelection));
     }},
    {WindowCommand::kBetTrends, "frmBetTrends", [](Game& game) { return TrendRows(game); }},
});

TEST_F(Statistics, CopyTheirTablesSaveTheirPicturesPrintAndClose) {
  game_->BetResultsSelection = std::string(kBetCount, 'S') + "0";
  for (const OneScreen& one : kScreens) Open(one.command);
  Play(300);
  for (const OneScreen& one : kScreens) {
    SCOPED_TRACE(one.name);
    ScreenWindow& screen = Open(one.command);
    EXPECT_EQ(screen.objectName(), one.name);
    Trigger(screen, "mnuCopyAsText");
    EXPECT_EQ(FromQt(QApplication::clipboard()->text()), TabbedText(one.rows(*game_)));

    for (const char* ending : {".png", ".svg"}) {
      const QString name = QString::fromLatin1(one.name) + ending;
      Expect([&](QWidget& dialog) {
        Find<QLineEdit>(dialog, "txtFileName")->setText(name);
        Find<QPushButton>(dialog, "cmdOK")->click();
      });
      Trigger(screen, "mnuSavePicture");
      const QString path = ToQt((folder_ / FromQt(name)).string());
      if (name.endsWith("png")) {
        EXPECT_GT(QImage(path).width(), screen.width());
      } else {
        QFile svg(path);
        ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
        EXPECT_THAT(svg.readAll().toStdString(), HasSubstr("<text"));
      }
    }
    if (one.command != WindowCommand::kBankrollGraph) {  // which has a menu for it
      ExpectPress("cmdButton2");
      Trigger(screen, "mnuPrint");
      EXPECT_EQ(Titles.back(), "Print");
    }
    QTest::keyClick(&screen, Qt::Key_Escape);
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(window_->AllScreens().Find(one.command), nullptr);
  }
}

TEST_F(Statistics, FollowEveryRoll) {
  for (const OneScreen& one : kScreens) Open(one.command);
  ScreenWindow& summary = Open(WindowCommand::kSummary);
  EXPECT_EQ(Shown(summary, "lblNetNum"), "Net win:");
  EXPECT_EQ(Shown(summary, "lblHandAverageRolls"), "0");
  game_->AllowNegBankroll = true;
  game_->BetAmount.Set(kPassLine, MoneyAmount(10));
  Roll(2, 2);
  Roll(3, 4);
  QTest::qWait(50);
  EXPECT_EQ(Shown(summary, "lblTotalRolls"), "2");
  EXPECT_EQ(Shown(summary, "lblHandTotal"), "1");
  EXPECT_EQ(Shown(summary, "lblAmountBetsLost"), "10");
  EXPECT_EQ(Shown(summary, "lblNetAmount"), "Net loss:");
  EXPECT_EQ(Shown(summary, "lblAmountBetsNetPercentage"), "-100.00%");
  const auto figures = SummaryFigures(*game_);
  EXPECT_EQ(Shown(summary, "lblCompValue"), figures[23].text) << figures[23].caption;
  ScreenWindow& trends = Open(WindowCommand::kBetTrends);
  const auto* runs = Find<QTableView>(trends, "lstTrends")->model();
  EXPECT_EQ(runs->index(kPassLine - 31, 3).data().toString(), "-1");
  EXPECT_EQ(runs->index(29, 5).data().toString(), "");
  EXPECT_EQ(runs->index(27, 4).data().toString(), "Hop 5-5");
  EXPECT_EQ(Shown(Open(WindowCommand::kBankrollGraph), "lblTotalRolls"), "2");
  EXPECT_EQ(Shown(Open(WindowCommand::kRollTotals), "lblTotalRolls"), "2");
}

TEST_F(Statistics, FiguresAreLegibleOnLightAndDark) {
  for (const QPalette& palette :
       {QPalette(QColor(239, 239, 239)), QPalette(QColor(53, 53, 57), QColor(43, 43, 46))}) {
    for (const Tone tone : {Tone::kWin, Tone::kLoss, Tone::kVig}) {
      for (const auto ground : {QPalette::Base, QPalette::Window, QPalette::Button}) {
        EXPECT_GE(Contrast(ToneColor(tone, palette), palette.color(ground)), 4.5)
            << static_cast<int>(tone) << " on " << palette.color(ground).name().toStdString();
      }
    }
  }
}

TEST_F(Statistics, RollTotalsOfferTheirDisplaysAndColors) {
  ScreenWindow& screen = Open(WindowCommand::kRollTotals);
  const auto& bars = *Find<RollBars>(screen, "picRollTotals");
  const int narrow = bars.minimumSizeHint().width();
  Trigger(screen, "mnuDisplayTotals2");
  EXPECT_EQ(game_->RollTotalsDisplay, kThirtySixCombinations);
  EXPECT_GT(bars.minimumSizeHint().width(), 2 * narrow);
  Trigger(screen, "mnuBackColor3");
  EXPECT_EQ(game_->RollTotalsBackColor, 8);
  Trigger(screen, "mnuGraphColor9");
  EXPECT_EQ(game_->RollTotalsGraphColor, 9);

  auto* skewed = Find<QRadioButton>(screen, "optShowProb1");
  EXPECT_FALSE(skewed->isVisible());
  game_->UseSkewedProbability = true;
  screen.Refresh();
  EXPECT_TRUE(skewed->isVisible());
  skewed->click();
  EXPECT_TRUE(game_->ShowSkewedPercent);

  // Where it was scrolled to is kept with the game.
  screen.resize(400, 200);
  QApplication::processEvents();
  QScrollBar* along = screen.findChild<QScrollArea*>()->horizontalScrollBar();
  ASSERT_GT(along->maximum(), 100);
  along->triggerAction(QScrollBar::SliderPageStepAdd);
  const int kept = along->value();
  EXPECT_EQ(game_->RollTotalsHScroll, kept);
  screen.close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ScreenWindow& again = Open(WindowCommand::kRollTotals);
  EXPECT_EQ(again.findChild<QScrollArea*>()->horizontalScrollBar()->value(), kept);
}

TEST_F(Statistics, RollFrequenciesShowEveryEvent) {
  ScreenWindow& screen = Open(WindowCommand::kRollFreqs);
  Play(400);
  auto* events = Find<QComboBox>(screen, "cmbFreqNum");
  ASSERT_EQ(events->count(), kFrequencyEntries);
  const auto* gaps = Find<QTableView>(screen, "lstGaps")->model();
  for (int entry = 0; entry < kFrequencyEntries; ++entry) {
    events->setCurrentIndex(entry);
    emit events->activated(entry);
    EXPECT_EQ(game_->RollFreqsListIndex, entry);
    const int event = kFrequencyEntry[static_cast<std::size_t>(entry)].event;
    EXPECT_EQ(Shown(screen, "lblTotalRolls"), std::to_string(RollCounts(*game_, event)));
    const Rows rows = GapRows(*game_, event);
    EXPECT_EQ(FromQt(gaps->index(24, 15).data().toString()), rows[199][1]);
    EXPECT_EQ(FromQt(gaps->index(3, 1).data().toString()), rows[3][1]);
  }
  EXPECT_EQ(gaps->index(24, 14).data().toString(), "200+");
  auto* probable = Find<QPushButton>(screen, "cmdProbable");
  probable->click();
  EXPECT_EQ(probable->text(), "True probable %:");
  game_->UseSkewedProbability = true;
  probable->click();
  EXPECT_EQ(probable->text(), "Skewed probable %:");
  probable->click();
  EXPECT_EQ(probable->text(), "True probable %:");
}

TEST_F(Statistics, BetResultsCombineTheSelectedBets) {
  ScreenWindow& screen = Open(WindowCommand::kBetResults);
  auto* bets = Find<QListWidget>(screen, "lstBets");
  ExpectPress("cmdButton0");
  Trigger(screen, "mnuPrint");
  EXPECT_THAT(Titles, ElementsAre("Print Bet Results"));
  Play(300);
  EXPECT_EQ(Shown(screen, "lblNumBets"), "0");
  bets->item(kPassLine - 1)->setSelected(true);
  const auto* table = Find<QTableView>(screen, "lstResults")->model();
  const auto cell = [&](int row, int column) {
    return FromQt(table->index(row, column).data().toString());
  };
  const auto all_shown = [&] {
    const BetResultsTable results =
        BetResultsOf(*game_, ReadBetResultsSelection(game_->BetResultsSelection));
    for (std::size_t row = 0; row < results.lines.size(); ++row) {
      const int at = static_cast<int>(row);
      EXPECT_EQ(cell(at, 0), results.lines[row].label);
      EXPECT_EQ(cell(at, 1) + ' ' + cell(at, 4) + ' ' + cell(at, 5),
                results.lines[row].wagers + ' ' + results.lines[row].net + ' ' +
                    results.lines[row].net_percent);
    }
  };
  all_shown();
  EXPECT_NE(cell(0, 1), "0");
  Find<QPushButton>(screen, "cmdSelectAll")->click();
  EXPECT_EQ(Shown(screen, "lblNumBets"), "88");
  Find<QRadioButton>(screen, "optDataType0")->click();
  EXPECT_EQ(game_->BetResultsSelection, std::string(kBetCount, 'S') + '1');
  all_shown();
  screen.close();
  QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ScreenWindow& again = Open(WindowCommand::kBetResults);
  EXPECT_EQ(Shown(again, "lblNumBets"), "88");
  EXPECT_TRUE(Find<QRadioButton>(again, "optDataType0")->isChecked());
}

// ---- The bankroll -----------------------------------------------------------------------------

struct MenuEffect {
  const char* entry;
  bool (*done)(const Game&);
};
constexpr auto kGraphMenu = std::to_array<MenuEffect>({
    {"mnuAutoAdjustType0", [](const Game& game) { return game.GraphAdjustType == 0; }},
    {"mnuAutoAdjustType1", [](const Game& game) { return game.GraphAdjustType == 1; }},
    {"mnuAutoAdjustType2", [](const Game& game) { return game.GraphAdjustType == 2; }},
    {"mnuGraphType0", [](const Game& game) { return game.GraphStyle == 0; }},
    {"mnuGraphType2", [](const Game& game) { return game.GraphStyle == 2; }},
    {"mnuSetColor7", [](const Game& game) { return game.GraphColorScheme == 7; }},
    {"mnuDisplayGrid", [](const Game& game) { return !game.GraphGridLines; }},
    {"mnuDisplayReference", [](const Game& game) { return game.GraphRefLines; }},
    {"mnuDisplayAverage", [](const Game& game) { return !game.GraphShowAverage; }},
    {"mnuAutoPrint", [](const Game& game) { return game.GraphAutoPrint; }},
});

TEST_F(Statistics, BankrollGraphObeysItsMenusButtonsAndLines) {
  auto& screen = static_cast<BankrollScreen&>(Open(WindowCommand::kBankrollGraph));
  Play(300);
  for (const MenuEffect& effect : kGraphMenu) {
    Trigger(screen, effect.entry);
    EXPECT_TRUE(effect.done(*game_)) << effect.entry;
  }
  EXPECT_TRUE(Find<QLabel>(screen, "lblAutoPrint")->isVisible());
  game_->GraphAutoPrint = false;

  Expect([](QWidget& dialog) {
    Find<QLineEdit>(dialog, "txtInput0")->setText("900");
    Find<QPushButton>(dialog, "cmdButton0")->click();
  });
  Trigger(screen, "mnuSetAverage");
  EXPECT_THAT(Titles.back(), "Set Bankroll Moving Average");
  EXPECT_EQ(game_->GraphAverageRolls, kGraphRolls);

  Trigger(screen, "mnuAutoAdjustType0");
  const MoneyAmount top = game_->GraphTop;
  const MoneyAmount scale = game_->GraphScale;
  Find<QAbstractButton>(screen, "picUpScaleUp")->click();
  EXPECT_EQ(game_->GraphTop - top, scale.Times(50));
  Find<QAbstractButton>(screen, "picDownScaleUp")->click();
  EXPECT_EQ(game_->GraphTop, top);
  auto* larger = Find<QAbstractButton>(screen, "picLargerUp");
  EXPECT_EQ(larger->shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Plus));
  larger->click();
  EXPECT_GT(game_->GraphScale, scale);
  Find<QAbstractButton>(screen, "picSmallerUp")->click();
  EXPECT_EQ(game_->GraphScale, scale);

  auto& canvas = *Find<BankrollCanvas>(screen, "picGraph");
  EXPECT_EQ(canvas.Shown().columns.size(), 300U);
  const QRectF place = canvas.GraphPlace();
  const auto at = [&](double roll) {
    return QPointF(place.left() + place.width() * (roll + 0.5) / kGraphRolls, place.center().y())
        .toPoint();
  };
  QTest::mouseClick(&canvas, Qt::LeftButton, Qt::ControlModifier, at(40));
  QTest::mouseClick(&canvas, Qt::RightButton, Qt::NoModifier, at(140));
  EXPECT_NEAR(game_->RefLineRoll[1], 40, 1);
  EXPECT_NEAR(game_->RefLineRoll[2], 140, 1);
  EXPECT_TRUE(game_->RefLineOnAverage[1]);
  EXPECT_EQ(Find<QScrollBar>(screen, "HScroll2")->value(), game_->RefLineRoll[2]);
  Find<QScrollBar>(screen, "HScroll1")->setValue(10);
  EXPECT_EQ(game_->RefLineRoll[1], 10);
  EXPECT_THAT(Shown(screen, "Picture3"),
              HasSubstr("Rolls:  " + std::to_string(game_->RefLineRoll[2] - 10)));
  QTest::mouseClick(&canvas, Qt::LeftButton, Qt::ShiftModifier, at(500));
  EXPECT_EQ(game_->RefLineRoll[1], game_->RefLineRoll[2]);
  EXPECT_TRUE(game_->RefLineOnAverage[2]);
}

// However many rolls went by between two looks, a graph that adjusts itself shows all of them.
TEST_F(Statistics, BankrollGraphShowsWhatWasNotLookedAt) {
  Open(WindowCommand::kBankrollGraph);
  const MoneyAmount high = MoneyAmount(5000);
  game_->BankrollHistory[1] = game_->GraphHigh = high;
  game_->BankrollHistory[2] = MoneyAmount(0);
  game_->BankrollHistoryCount = 2;
  window_->AllScreens().Refresh();
  EXPECT_GE(game_->GraphTop, high);
}

TEST_F(Statistics, HyperDriveIsStartedThrottledAndStopped) {
  game_->ThrottleSetting = 77;
  ScreenWindow* screen = &Open(WindowCommand::kBankrollGraph);
  auto* button = Find<QPushButton>(*screen, "cmdHyperDriveActive");
  auto* throttle = Find<QScrollBar>(*screen, "hscrThrottle");
  auto* unlimited = Find<QCheckBox>(*screen, "chkUnlimited");
  EXPECT_EQ(game_->ThrottleSetting, 0);
  EXPECT_TRUE(throttle->invertedAppearance());
  throttle->triggerAction(QScrollBar::SliderPageStepAdd);
  EXPECT_EQ(game_->ThrottleSetting, 2);
  throttle->setValue(0);

  EXPECT_FALSE(unlimited->isChecked());
  unlimited->click();
  EXPECT_TRUE(UserSettings((folder_ / "").string()).Unlimited());

  // Stopped by its button, without a message; the caption tells the state meanwhile.
  QTimer::singleShot(150, screen, [&] {
    EXPECT_EQ(button->text(), "Stop Hyper-&Drive");
    EXPECT_EQ(FromQt(Find<QLabel>(*screen, "lblTotalRolls")->text()).find(' '), std::string::npos);
    button->click();
  });
  button->click();
  QApplication::processEvents();
  EXPECT_FALSE(game_->HyperDriveActive);
  EXPECT_GT(RollCounts(*game_, 0), 1000);
  EXPECT_TRUE(QTest::qWaitFor([&] { return button->text() == "Start Hyper-&Drive"; }));
  EXPECT_TRUE(Titles.empty());

  // The screen may go during the run, which its last roll ends.
  unlimited->click();
  game_->AutoRollsRemaining = 20;
  QTimer::singleShot(50, screen, [screen] { screen->close(); });
  ExpectPress("cmdButton0");
  button->click();
  QApplication::processEvents();
  EXPECT_EQ(window_->AllScreens().Find(WindowCommand::kBankrollGraph), nullptr);
  EXPECT_THAT(Titles, ElementsAre("Hyper-Drive Stopped"));

  // The print menu asks whether to stop it.
  ScreenWindow& again = Open(WindowCommand::kBankrollGraph);
  QTimer::singleShot(50, &again, [&again] { Trigger(again, "mnuPrintNow"); });
  ExpectPress("cmdButton1");
  Find<QPushButton>(again, "cmdHyperDriveActive")->click();
  QApplication::processEvents();
  EXPECT_THAT(Titles, ElementsAre("Hyper-Drive Stopped", "Hyper-Drive Active"));
  EXPECT_FALSE(game_->HyperDriveActive);
  NothingExpected();
}

TEST_F(Statistics, MinimisedHyperDriveTellsItsStateInTheTitle) {
  ScreenWindow& screen = Open(WindowCommand::kBankrollGraph);
  Find<QCheckBox>(screen, "chkUnlimited")->click();
  game_->NumAutoRolls = 0;
  game_->AutoRollsRemaining = 0;
  QString meanwhile;
  QTimer::singleShot(40, window_.get(), [&] {
    window_->showMinimized();
    QApplication::processEvents();
    meanwhile = window_->windowTitle();
    game_->AutoRollsRemaining = 1000;
  });
  Find<QPushButton>(screen, "cmdHyperDriveActive")->click();
  QApplication::processEvents();
  EXPECT_EQ(meanwhile, "Feltmaster Hyper-Drive Active");
  EXPECT_EQ(window_->windowTitle(), "Hyper-Drive Stopped");
  ExpectPress("cmdButton0");
  window_->showNormal();
  QTest::qWait(50);
  NothingExpected();
  EXPECT_THAT(Titles, ElementsAre("Hyper-Drive Stopped"));
}

// Rolls for each second of the processor, the best of three runs: with nobody to look, in the
// window, with open screens.
TEST_F(Statistics, LeaveUnlimitedHyperDriveItsRate) {
  surface_->Settings().SetUnlimited(true);
  QTest::qWait(400);  // until the table is painted
  const auto run = [&] {
    const std::clock_t start = std::clock();
    const std::int32_t before = RollCounts(*game_, 0);
    game_->AutoRollsRemaining = game_->surface == surface_.get() ? 0 : 5'000'000;
    QTimer::singleShot(300, window_.get(), [this] { game_->KeepRolling = false; });
    ToggleHyperDrive(*game_);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    return (RollCounts(*game_, 0) - before) / seconds;
  };
  const auto rate = [&](const char* name) {
    const double best = std::max({run(), run(), run()});
    std::cout << name << ": " << static_cast<std::int64_t>(best) << " rolls a second\n";
    return best;
  };
  NullSurface nobody;
  game_->surface = &nobody;
  const double batch = rate("nobody looks");
  game_->surface = surface_.get();
  const double window = rate("in the window");
  Open(WindowCommand::kBankrollGraph);
  Open(WindowCommand::kRollTotals);
  const double screens = rate("two screens open");
  EXPECT_GT(window, batch / 2);
  EXPECT_GT(screens, window / 2);
}

}  // namespace

}  // namespace feltmaster
