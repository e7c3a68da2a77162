#include "desktop/frm_bankroll.h"

#include <QApplication>
#include <QBoxLayout>
#include <QMenuBar>
#include <QTimer>
#include <QToolButton>

#include "automation/hyper_drive.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "desktop/screens.h"
#include "desktop/user_settings.h"
#include "reports/graph_print.h"
#include "stats/bankroll_history.h"

namespace feltmaster {

namespace {

constexpr auto kHead = std::to_array<FigureNames>({
    {"lblTotalRolls"},
    {"lblRollsPerHour"},
    {"lblHours"},
    {"lblHigh"},
    {"lblLow"},
    {"lblCurrent"},
});

struct StepButton {
  const char* name;
  const char* hint;
  const char* sign;
  int key;  // with Ctrl
  GraphStep step;
};
constexpr auto kStepButtons = std::to_array<StepButton>({
    {"picUpScaleUp", "Scale up", "\u25B2", Qt::Key_Up, GraphStep::kUp},
    {"picDownScaleUp", "Scale down", "\u25BC", Qt::Key_Down, GraphStep::kDown},
    {"picLargerUp", "Larger scale", "+", Qt::Key_Plus, GraphStep::kLarger},
    {"picSmallerUp", "Smaller scale", "\u2212", Qt::Key_Minus, GraphStep::kSmaller},
});

constexpr int kSlowest = 10;
constexpr int kThrottleStride = 2;

}  // namespace

BankrollScreen::BankrollScreen(Screens& screens) : ScreenWindow(screens, kTraits) {
  auto* page = new QWidget(this);
  auto* lines = new QVBoxLayout(page);
  auto* picture = new QWidget(page);
  auto* picture_lines = new QVBoxLayout(picture);
  picture_lines->setContentsMargins(0, 0, 0, 0);
  picture_lines->addWidget(MakeHead());
  canvas_ = new BankrollCanvas(picture);
  canvas_->Placed = [this](int line, int x, Qt::KeyboardModifiers held) {
    if (TheGame().GraphRefLines) MoveLine(line, x, held);
  };
  picture_lines->addWidget(canvas_, 1);

  auto* graph = new QHBoxLayout;
  graph->addWidget(picture, 1);
  graph->addWidget(MakeScaleButtons());
  lines->addLayout(graph, 1);
  lines->addWidget(MakeReferenceBars());
  lines->addWidget(MakeHyperDrive());
  setCentralWidget(page);
  AddFileMenu(*this, TheGame(),
              {"", [this] { return RowsOf(BankrollHeader(TheGame())); }, picture});
  AddMenus();
  AddHelpMenu(*this, TheGame());

  if (TheGame().GraphShowAverage) RebuildAverages(TheGame());
  DrawGraph(TheGame(), false);
}

QWidget* BankrollScreen::MakeHead() {
  auto* row = new QWidget(this);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  head_ = new FigureGrid(kHead, 3, row);
  auto_print_ = new QLabel(QStringLiteral("Auto-Print ON"), row);
  auto_print_->setObjectName(QStringLiteral("lblAutoPrint"));
  line->addWidget(head_, 1);
  line->addWidget(auto_print_);
  return row;
}

QWidget* BankrollScreen::MakeScaleButtons() {
  auto* column = new QWidget(this);
  auto* lines = new QVBoxLayout(column);
  lines->setContentsMargins(0, 0, 0, 0);
  lines->addStretch();
  for (const StepButton& button : kStepButtons) {
    auto* pressed = new QToolButton(column);
    const QKeySequence key(static_cast<int>(Qt::CTRL) | button.key);
    pressed->setObjectName(QString::fromLatin1(button.name));
    pressed->setText(QString::fromUtf8(button.sign));
    pressed->setAccessibleName(QString::fromLatin1(button.hint));
    pressed->setToolTip(pressed->accessibleName() + " (" + key.toString(QKeySequence::NativeText) +
                        ')');
    pressed->setShortcut(key);
    pressed->setFocusPolicy(Qt::StrongFocus);
    const int side = fontMetrics().height() * 2;
    pressed->setFixedSize(side, side);
    lines->addWidget(pressed);
    QObject::connect(pressed, &QToolButton::clicked, this, [this, step = button.step] {
      StepGraph(TheGame(), step);
      Refresh();
    });
  }
  lines->addStretch();
  return column;
}

QWidget* BankrollScreen::MakeReferenceBars() {
  references_ = new QWidget(this);
  auto* line = new QHBoxLayout(references_);
  line->setContentsMargins(0, 0, 0, 0);
  auto* bars = new QVBoxLayout;
  for (int i = 1; i <= 2; ++i) {
    auto* bar = new QScrollBar(Qt::Horizontal, references_);
    bar->setObjectName(QStringLiteral("HScroll%1").arg(i));
    bar->setAccessibleName(QStringLiteral("Reference line %1").arg(i));
    bar->setRange(0, kGraphRolls - 1);
    bar->setPageStep(kGraphRolls / 10);
    bar->setFocusPolicy(Qt::StrongFocus);
    bars->addWidget(bar);
    reference_bars_[static_cast<std::size_t>(i - 1)] = bar;
    QObject::connect(bar, &QScrollBar::valueChanged, this,
                     [this, i](int x) { MoveLine(i, x, QApplication::keyboardModifiers()); });
  }
  line->addLayout(bars, 1);
  between_ = new QLabel(references_);
  between_->setObjectName(QStringLiteral("Picture3"));
  between_->setFrameShape(QFrame::StyledPanel);
  between_->setMinimumWidth(
      fontMetrics().horizontalAdvance(QStringLiteral("Bankroll:  9,999,999.00  ")));
  line->addWidget(between_);
  return references_;
}

QWidget* BankrollScreen::MakeHyperDrive() {
  auto* row = new QWidget(this);
  auto* line = new QHBoxLayout(row);
  line->setContentsMargins(0, 0, 0, 0);
  hyper_drive_ = new QPushButton(row);
  hyper_drive_->setObjectName(QStringLiteral("cmdHyperDriveActive"));
  line->addWidget(hyper_drive_);
  line->addSpacing(fontMetrics().height());

  Game& game = TheGame();
  if (game.ThrottleSetting < 0 || game.ThrottleSetting > kSlowest) game.ThrottleSetting = 0;
  throttle_ = new QScrollBar(Qt::Horizontal, row);
  throttle_->setObjectName(QStringLiteral("hscrThrottle"));
  throttle_->setAccessibleName(QStringLiteral("Throttle, from slow to fast"));
  throttle_->setRange(0, kSlowest);
  throttle_->setPageStep(kThrottleStride);
  throttle_->setInvertedAppearance(true);  // the fastest, 0, is at the right
  throttle_->setInvertedControls(true);
  throttle_->setFocusPolicy(Qt::StrongFocus);
  throttle_->setValue(game.ThrottleSetting);
  line->addWidget(new QLabel(QStringLiteral("Slow"), row));
  line->addWidget(throttle_, 1);
  line->addWidget(new QLabel(QStringLiteral("Fast"), row));

  unlimited_ = new QCheckBox(QStringLiteral("&Unlimited"), row);
  unlimited_->setObjectName(QStringLiteral("chkUnlimited"));
  unlimited_->setToolTip(QStringLiteral("Hyper-Drive as fast as the machine rolls"));
  unlimited_->setChecked(AllScreens().Settings().Unlimited());
  line->addSpacing(fontMetrics().height());
  line->addWidget(unlimited_);

  // From the table's own events, so that this window may be closed during the run.
  QObject::connect(hyper_drive_, &QPushButton::clicked, this, [this, &game] {
    if (game.KeepRolling) {
      ToggleHyperDrive(game);
    } else {
      QTimer::singleShot(0, AllScreens().Table(), [&game] { ToggleHyperDrive(game); });
    }
  });
  QObject::connect(throttle_, &QScrollBar::valueChanged, this,
                   [&game](int setting) { game.ThrottleSetting = setting; });
  QObject::connect(unlimited_, &QCheckBox::toggled, this, [this](bool on) {
    AllScreens().Settings().SetUnlimited(on);
    ShowHyperDrive();
  });
  return row;
}

// ---- Menus ------------------------------------------------------------------------------------

void BankrollScreen::AddMenus() {
  Game& game = TheGame();
  const auto redraw = [this](auto change) {
    return [this, change](auto value) {
      change(TheGame(), value);
      Refresh();
    };
  };
  QMenu* print = menuBar()->addMenu(QStringLiteral("&Print"));
  print->setObjectName(QStringLiteral("mnuPrint"));
  AddMenuEntry(*print, "mnuPrintNow", "Print &Now", [&game] { PrintGraphNow(game); });
  AddMenuSwitch(*print, {"mnuAutoPrint", "&Auto-Print", [&game] { return game.GraphAutoPrint; },
                         redraw([](Game& of, bool on) { SetGraphAutoPrint(of, on); })});

  QMenu* options = menuBar()->addMenu(QStringLiteral("&Graph"));
  options->setObjectName(QStringLiteral("mnuGraph"));
  AddMenuChoice(*options, {"mnuAutoAdjustType",
                           "&Scale",
                           {{"&Manual", 0},
                            {"Automatic with &Expanding Scale", 1},
                            {"Automatic with &Snap-back Scale", 2}},
                           [&game] { return game.GraphAdjustType; },
                           redraw([](Game& of, int type) { SetGraphAdjustType(of, type); })});
  AddMenuChoice(*options, {"mnuGraphType",
                           "&Type",
                           {{"&Plain", 0}, {"S&triped", 1}, {"&Solid", 2}},
                           [&game] { return game.GraphStyle; },
                           redraw([](Game& of, int style) { of.GraphStyle = style; })});
  std::vector<MenuChoice::Entry> schemes;
  for (const GraphColors& colors : kGraphColors) {
    schemes.push_back({colors.caption, static_cast<int>(schemes.size())});
  }
  AddMenuChoice(*options, {"mnuSetColor", "&Color", std::move(schemes),
                           [&game] { return game.GraphColorScheme; },
                           redraw([](Game& of, int scheme) { of.GraphColorScheme = scheme; })});
  options->addSeparator();
  AddMenuSwitch(*options,
                {"mnuDisplayGrid", "Display &Grid Lines", [&game] { return game.GraphGridLines; },
                 redraw([](Game& of, bool on) { of.GraphGridLines = on; })});
  AddMenuSwitch(*options, {"mnuDisplayReference", "Display &Reference Lines",
                           [&game] { return game.GraphRefLines; },
                           redraw([](Game& of, bool on) { of.GraphRefLines = on; })});
  AddMenuSwitch(*options, {"mnuDisplayAverage", "Display &Moving Average",
                           [&game] { return game.GraphShowAverage; }, redraw(ShowGraphAverage)});
  AddMenuEntry(*options, "mnuSetAverage", "Set M&oving Average ...", [this] {
    if (AskGraphAverage(TheGame())) Refresh();
  });
}

// ---- What changes -----------------------------------------------------------------------------

void BankrollScreen::MoveLine(int line, int x, Qt::KeyboardModifiers held) {
  MoveReferenceLine(TheGame(), line, x, held.testFlag(Qt::ControlModifier),
                    held.testFlag(Qt::ShiftModifier));
  Refresh();
}

void BankrollScreen::ShowHyperDrive() {
  const Game& game = TheGame();
  const QString caption = game.HyperDriveActive ? QStringLiteral("Stop Hyper-&Drive")
                                                : QStringLiteral("Start Hyper-&Drive");
  if (hyper_drive_->text() != caption) hyper_drive_->setText(caption);
  const QSignalBlocker quiet(throttle_);
  throttle_->setValue(game.ThrottleSetting);
  throttle_->setEnabled(!unlimited_->isChecked());
}

void BankrollScreen::Refresh() {
  Game& game = TheGame();
  ExtendGraph(game);
  BankrollGraph graph = PaintBankrollGraph(game);
  head_->Show(BankrollHeader(game));
  auto_print_->setVisible(game.GraphAutoPrint);
  references_->setVisible(game.GraphRefLines);
  for (std::size_t line = 1; line <= reference_bars_.size(); ++line) {
    QScrollBar& bar = *reference_bars_[line - 1];
    const QSignalBlocker quiet(bar);
    bar.setValue(game.RefLineRoll[line]);
  }
  if (game.GraphRefLines) {
    const QString between = ToQt(graph.rolls_between + '\n' + graph.bankroll_between);
    if (between_->text() != between) between_->setText(between);
  }
  canvas_->Show(std::move(graph));
  ShowHyperDrive();
}

}  // namespace feltmaster
