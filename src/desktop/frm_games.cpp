#include "desktop/frm_games.h"

#include <QApplication>
#include <QBoxLayout>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedWidget>
#include <algorithm>
#include <string>

#include "base/number_format.h"
#include "desktop/amount_field.h"
#include "desktop/dialog_tools.h"
#include "desktop/menu_table.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "files/games_log.h"
#include "reports/print_commands.h"
#include "view/games_screen.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kHistogramShown = 8;  // bit of GamesViewChoice
enum Page { kDataPage = 0, kHistogramPage = 1 };
constexpr int kAmountDecimals = 4;
constexpr int kDeviationDecimals = 8;
// New games wait to be analysed until this many times as long has passed as it takes.
constexpr qint64 kRestFactor = 20;

int SignOf(Tone tone) {
  return tone == Tone::kWin ? 1 : tone == Tone::kLoss ? -1 : 0;
}

// A label that shows a figure; its size does not follow each digit.
QLabel* FigureLabel(const QString& name) {
  auto* const label = new QLabel;
  label->setObjectName(name);
  label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

void ShowFigure(QLabel& label, const QString& text, Tone tone) {
  label.setText(text);
  QPalette colors = label.palette();
  colors.setColor(QPalette::WindowText, MoneyColor(SignOf(tone), label.parentWidget()->palette()));
  label.setPalette(colors);
}

bool IsUserInput(QEvent::Type type) {
  switch (type) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::Close:
    case QEvent::Drop:
      return true;
    default:
      return false;
  }
}

}  // namespace

GamesScreen::GamesScreen(Screens& screens)
    : ScreenWindow(screens, kTraits),
      view_(new QComboBox),
      pages_(new QStackedWidget),
      highest_(FigureLabel("lblHighGames")),
      histogram_(this, TheGame()),
      data_(this, "picData", "vscrRaw",
            {{"Game #", 14, Qt::AlignRight}, {"", 36, Qt::AlignRight}, {"", 0}}),
      range_of_(new QLabel),
      progress_(new QFrame(pages_)),
      bar_(new QProgressBar),
      give_up_(new QPushButton("&Cancel")) {
  BuildMenus();
  auto* const body = new QWidget(this);
  setCentralWidget(body);
  auto* const row = new QHBoxLayout(body);
  row->addWidget(ChoicePanel());
  auto* const column = new QVBoxLayout;
  column->addWidget(PicturePanel(), 1);
  column->addWidget(RangePanel());
  row->addLayout(column, 1);
  BuildProgress();
  follow_.setSingleShot(true);
  connect(&follow_, &QTimer::timeout, this, [this] { FollowLog(); });
  TheGame().GamesValueBox = {};
  TheGame().GamesDeviationBox = {};
  ShowAnalysis();  // blank, so that the window takes the room that it needs
}

void GamesScreen::BuildMenus() {
  Game& game = TheGame();
  const auto analyse_after = [this](bool (*command)(Game&)) {
    return [this, command] {
      if (command(TheGame())) Analyze();
    };
  };
  QMenu* const file = AddFileMenu(
      *this, game, {.report = "", .rows = [this] { return ShownRows(); }, .picture = pages_});
  const auto print = [&game](const char* report) {
    return [&game, report] { FindPrintCommand(report)->print(game, Confirm::kAsk); };
  };
  PutFirst(*file, {{"mnuNew", "&New", analyse_after(NewLogCommand), "Ctrl+N"},
                   {"mnuOpen", "&Open ...", analyse_after(OpenLogCommand), "Ctrl+O"},
                   {"mnuSaveAs", "Save &As ...", analyse_after(SaveLogAsCommand), "Ctrl+S"},
                   {"mnuMerge", "&Merge ...", analyse_after(MergeLogCommand)},
                   {},
                   {"mnuPrintHistogram", "Print &Histogram ...", print("games"), "Ctrl+P"},
                   {"mnuPrintRawData", "Print &Raw Data ...", print("gamesdata")}});
  const auto find = [this](FindDirection direction) {
    return [this, direction] { Find(direction); };
  };
  AddMenu(*this, "mnuEdit", "&Edit",
          {{"mnuDelete", "&Delete ...", analyse_after(DeleteGamesCommand)},
           {},
           {"mnuFind", "&Find ...", find(FindDirection::kAsk), "Ctrl+F"},
           {"mnuFindNext", "Find &Next", find(FindDirection::kNext), "F3"},
           {"mnuFindPrevious", "Find &Previous", find(FindDirection::kPrevious), "Shift+F3"}});
  QMenu* const options =
      AddMenu(*this, "mnuOptions", "&Options",
              {{"mnuSetBreakPoint", "Set &Break-point ...", analyse_after(SetBreakPointCommand)},
               {"mnuAnalyze", "&Analyze Again", [this] { Analyze(); }, "F5"}});
  MenuChoice widths = {.name = "mnuBarWidth",
                       .caption = "Bar &Width",
                       .entries = {},
                       .value = [&game] { return BarWidth(game); },
                       .choose =
                           [this](int width) {
                             TheGame().GamesBarWidth = width;
                             Analyze();
                           }};
  widths.entries = {
      {"&1 Column", 1}, {"&5 Columns", 5}, {"&25 Columns", 25}, {"1&05 Columns", 105}};
  AddMenuChoice(*options, widths);
  AddHelpMenu(*this, game);
}

// ---- The controls -------------------------------------------------------------------------------

QWidget* GamesScreen::ChoicePanel() {
  auto* const panel = new QWidget;
  auto* const column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  view_->setObjectName("cmbView");
  view_->setAccessibleName("Value of the games");
  for (int value = 0; value < kGameValues; ++value) {
    view_->addItem(ToQt(NameOfGameValue(value)), value);
  }
  view_->setMaxVisibleItems(kGameValues);
  connect(view_, &QComboBox::activated, this, [this](int index) {
    Game& game = TheGame();
    game.GamesDisplayChoice = index;
    game.GamesValueBox = {};
    game.GamesDeviationBox = {};
    Analyze();
  });
  column->addWidget(view_);

  auto* const outcomes = new QGroupBox("Games");
  auto* const table = new QGridLayout(outcomes);
  for (int line = 0; line <= kGameOutcomes; ++line) {
    const auto i = static_cast<std::size_t>(line);
    const QString number = QString::number(line);
    if (line < kGameOutcomes) {
      outcome_[i] = new QLabel;
      outcome_[i]->setObjectName("Label1" + number);
      include_[i] = new QCheckBox;
      include_[i]->setObjectName("chkInclude" + number);
      include_[i]->setToolTip("These games are analysed");
      table->addWidget(include_[i], line, 0);
      table->addWidget(outcome_[i], line, 1);
      connect(include_[i], &QCheckBox::clicked, this, [this, line](bool on) {
        std::int32_t& choice = TheGame().GamesViewChoice;
        choice = on ? choice | 1 << line : choice & ~(1 << line);
        Analyze();
      });
    } else {
      table->addWidget(new QLabel("Total"), line, 1);
    }
    games_[i] = FigureLabel("lblGames" + number);
    percent_[i] = FigureLabel("lblGamesPct" + number);
    percent_[i]->setMinimumWidth(Letters(*percent_[i], 7));
    table->addWidget(games_[i], line, 2);
    table->addWidget(percent_[i], line, 3);
    table->addWidget(new QLabel("%"), line, 4);
  }
  table->setColumnStretch(2, 1);
  column->addWidget(outcomes);

  auto* const statistics = new QGroupBox("Statistics");
  auto* const grid = new QGridLayout(statistics);
  for (int line = 0; line < static_cast<int>(caption_.size()); ++line) {
    const auto i = static_cast<std::size_t>(line);
    caption_[i] = new QLabel;
    caption_[i]->setObjectName("lblCaption" + QString::number(line));
    current_[i] = FigureLabel("lblCurrent" + QString::number(line));
    current_[i]->setMinimumWidth(Letters(*current_[i], 20));
    grid->addWidget(caption_[i], line, 0);
    grid->addWidget(current_[i], line, 1);
  }
  grid->setColumnStretch(1, 1);
  grid->setVerticalSpacing(1);
  column->addWidget(statistics);
  column->addStretch(1);
  panel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  return panel;
}

QWidget* GamesScreen::PicturePanel() {
  auto* const panel = new QWidget;
  auto* const column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  auto* const choice = new QHBoxLayout;
  constexpr std::array<const char*, 2> kCaptions = {" Display Data", " Display Histogram"};
  for (const int page : {kHistogramPage, kDataPage}) {
    const auto i = static_cast<std::size_t>(page);
    display_[i] = new QRadioButton(kCaptions[i]);
    display_[i]->setObjectName("optDisplay" + QString::number(page));
    choice->addWidget(display_[i]);
    connect(display_[i], &QRadioButton::clicked, this, [this, page] {
      std::int32_t& view = TheGame().GamesViewChoice;
      view = page == kHistogramPage ? view | kHistogramShown : view & ~kHistogramShown;
      ShowView();
    });
  }
  choice->addStretch(1);
  column->addLayout(choice);

  auto* const picture = new QWidget;
  auto* const grid = new QGridLayout(picture);
  grid->setContentsMargins(0, 0, 0, 0);
  auto* const bottom = new QLabel("0");
  bottom->setAlignment(Qt::AlignRight);
  highest_->setMinimumWidth(Letters(*highest_, 5));
  grid->addWidget(highest_, 0, 0, Qt::AlignTop | Qt::AlignRight);
  grid->addWidget(bottom, 1, 0, Qt::AlignBottom | Qt::AlignRight);
  grid->addWidget(&histogram_, 0, 1, 2, 1);
  grid->setColumnStretch(1, 1);
  pages_->addWidget(&data_);
  pages_->addWidget(picture);
  column->addWidget(pages_, 1);
  histogram_.RangeMoved = [this] {
    ShowRange();
    ShowRangeFigures();
  };

  data_.setAccessibleName("Games");
  data_.Resized = [this] { ShowData(); };
  data_.StepBy = [this](int rows) { ScrollTo(std::int64_t{TheGame().GamesTopLine} + rows); };
  data_.GoTo = [this](int place) { ScrollTo(GameAtScroll(TheGame(), place)); };
  return panel;
}

QWidget* GamesScreen::RangePanel() {
  auto* const group = new QGroupBox("Range");
  auto* const grid = new QGridLayout(group);
  auto* const deviations = new QLabel("Std Devs from the mean");
  grid->addWidget(range_of_, 0, 0);
  grid->addWidget(deviations, 1, 0);
  grid->addWidget(new QLabel("to"), 0, 2);
  grid->addWidget(new QLabel("to"), 1, 2);
  Game& game = TheGame();
  const auto add = [&](const char* name, int line, int decimals,
                       std::array<std::string, 2> GamesLogState::*typed_into,
                       std::array<std::string, 2> GamesLogState::*other,
                       std::array<AmountField*, 2>& fields, std::array<AmountField*, 2>& others) {
    for (std::size_t i = 0; i < fields.size(); ++i) {
      fields[i] = new AmountField(group, decimals, true);
      fields[i]->setObjectName(name + QString::number(i));
      fields[i]->setMinimumWidth(Letters(*fields[i], 14));
      grid->addWidget(fields[i], line, 1 + 2 * static_cast<int>(i));
      connect(fields[i], &QLineEdit::textEdited, this,
              [this, &game, i, typed_into, other, &others](const QString& text) {
                (game.*typed_into)[i] = FromQt(text);
                (game.*other)[i].clear();
                others[i]->clear();
                current_[15]->clear();
                current_[16]->clear();
              });
      connect(fields[i], &QLineEdit::returnPressed, this, [this] { Analyze(); });
    }
  };
  add("txtValueCount", 0, kAmountDecimals, &GamesLogState::GamesValueBox,
      &GamesLogState::GamesDeviationBox, values_, deviations_);
  add("txtSDCount", 1, kDeviationDecimals, &GamesLogState::GamesDeviationBox,
      &GamesLogState::GamesValueBox, deviations_, values_);
  constexpr std::array<const char*, 2> kEnds = {"lower end", "upper end"};
  for (std::size_t i = 0; i < kEnds.size(); ++i) {
    values_[i]->setAccessibleName(QString("Value, %1").arg(kEnds[i]));
    deviations_[i]->setAccessibleName(QString("Standard deviations, %1").arg(kEnds[i]));
    current_[15 + i] = FigureLabel("lblCurrent" + QString::number(15 + i));
    current_[15 + i]->setMinimumWidth(Letters(*group, 14));
    grid->addWidget(current_[15 + i], static_cast<int>(i), 4);
  }
  grid->setColumnStretch(0, 1);
  return group;
}

void GamesScreen::BuildProgress() {
  progress_->setObjectName("picProgress");
  progress_->setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                           static_cast<int>(QFrame::Raised));
  progress_->setAutoFillBackground(true);
  auto* const column = new QVBoxLayout(progress_);
  column->addWidget(new QLabel("Loading data ..."), 0, Qt::AlignCenter);
  bar_->setObjectName("barProgress");
  bar_->setRange(0, 1000);
  bar_->setMinimumWidth(Letters(*bar_, 40));
  column->addWidget(bar_);
  give_up_->setObjectName("cmdCancelAnalysis");
  column->addWidget(give_up_, 0, Qt::AlignCenter);
  connect(give_up_, &QPushButton::clicked, this, [this] { given_up_ = true; });
  progress_->hide();
}

// ---- The analysis -------------------------------------------------------------------------------

int GamesScreen::Value() const {
  const std::int32_t choice = TheGame().GamesDisplayChoice;
  return choice < 0 || choice >= kGameValues ? 0 : choice;
}

void GamesScreen::showEvent(QShowEvent* event) {
  ScreenWindow::showEvent(event);
  if (!event->spontaneous() && !analysis_) QTimer::singleShot(0, this, [this] { Analyze(); });
}

std::optional<GamesAnalysis> GamesScreen::Analysed(const GamesProgress& progress) {
  QElapsedTimer clock;
  clock.start();
  std::optional<GamesAnalysis> made = AnalyzeGames(TheGame(), Value(), progress);
  took_ = clock.elapsed();
  since_analysis_.start();
  analysed_log_ = TheGame().GamesLogFile;
  return made;
}

// While events are let through, only the button that gives up is heard.
void GamesScreen::Analyze() {
  if (analysing_) return;
  if (analysed_log_ != TheGame().GamesLogFile) {  // nothing of the other one stays
    histogram_.Show(nullptr);
    analysis_.reset();
    ShowAnalysis();
  }
  analysing_ = true;
  given_up_ = false;
  qApp->installEventFilter(this);
  std::optional<GamesAnalysis> made =
      Analysed([this](double share) { return ShowProgress(share); });
  qApp->removeEventFilter(this);
  analysing_ = false;
  progress_->hide();
  histogram_.Show(nullptr);
  analysis_ = std::move(made);
  ShowAnalysis();
}

bool GamesScreen::ShowProgress(double share) {
  if (progress_->isHidden()) {
    progress_->adjustSize();
    progress_->show();
    progress_->raise();
    give_up_->setFocus();
  }
  progress_->move(pages_->rect().center() - progress_->rect().center());
  bar_->setValue(static_cast<int>(share * bar_->maximum()));
  QApplication::processEvents();
  return !given_up_;
}

bool GamesScreen::eventFilter(QObject* watched, QEvent* event) {
  if (!analysing_ || !watched->isWidgetType() || !IsUserInput(event->type())) {
    return ScreenWindow::eventFilter(watched, event);
  }
  if (event->type() == QEvent::Close) {
    event->ignore();
    return true;
  }
  if (event->type() == QEvent::KeyPress &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    given_up_ = true;
    return true;
  }
  return watched != give_up_;
}

void GamesScreen::FollowLog() {
  if (analysing_ || !analysis_ || !isVisible()) return;
  Game& game = TheGame();
  const bool other_log = analysed_log_ != game.GamesLogFile;
  if (!other_log) {
    GamesLogReader log;
    if (log.Open(game.GamesLogFile) || log.Count() == analysis_->games) return;
    const qint64 rest = kRestFactor * took_ - since_analysis_.elapsed();
    if (rest > 0) return follow_.start(static_cast<int>(rest));
  }
  // A range from end to end follows the new games.
  const bool whole = game.GamesValueBox[0] == PlainNumber(analysis_->low) &&
                     game.GamesValueBox[1] == PlainNumber(analysis_->high);
  if (whole || other_log) {
    game.GamesValueBox = {};
    game.GamesDeviationBox = {};
  }
  histogram_.Show(nullptr);
  analysis_ = Analysed({});
  ShowAnalysis();
}

void GamesScreen::Refresh() {
  if (!follow_.isActive()) FollowLog();
}

// ---- What is shown ------------------------------------------------------------------------------

void GamesScreen::ShowAnalysis() {
  Game& game = TheGame();
  setWindowTitle(ToQt(GamesCaption(game)));
  const int value = Value();
  const QString name = ToQt(NameOfGameValue(value));
  view_->setCurrentIndex(value);
  view_->setToolTip(name);
  range_of_->setText(name);
  data_.SetHeader(1, name);
  const GamesAnalysis nothing;
  const GamesAnalysis& shown = analysis_ ? *analysis_ : nothing;
  const auto outcomes = OutcomeFigures(game, shown);
  for (std::size_t i = 0; i < outcomes.size(); ++i) {
    if (i < include_.size()) {
      outcome_[i]->setText(ToQt(outcomes[i].caption));
      include_[i]->setAccessibleName(ToQt(outcomes[i].caption));
      include_[i]->setChecked((game.GamesViewChoice >> i & 1) != 0);
    }
    games_[i]->setText(analysis_ ? ToQt(outcomes[i].games) : QString());
    percent_[i]->setText(analysis_ ? ToQt(outcomes[i].percent) : QString());
  }
  const Figures figures = GamesFigures(shown);
  for (std::size_t i = 0; i < caption_.size(); ++i) {
    caption_[i]->setText(ToQt(figures[i].caption));
    ShowFigure(*current_[i], analysis_ ? ToQt(figures[i].text) : QString(), figures[i].tone);
  }
  QString text;
  if (given_up_) text = "The analysis was given up.\nF5 begins it again.";
  if (analysis_ && shown.included == 0) text = "No games of these outcomes.";
  if (analysis_ && shown.games == 0) text = "No games are logged yet.";
  histogram_.Show(analysis_ ? &*analysis_ : nullptr, text);
  highest_->setText(ToQt(PaintGamesHistogram(game, shown).highest));
  ShowRange();
  ShowRangeFigures();
  ShowView();
}

// The boxes of the range, but not one in which the player is typing.
void GamesScreen::ShowRange() {
  const Game& game = TheGame();
  for (std::size_t i = 0; i < values_.size(); ++i) {
    const auto show = [](AmountField& field, const std::string& text) {
      if (field.text() != ToQt(text)) field.setText(ToQt(text));
    };
    show(*values_[i], game.GamesValueBox[i]);
    show(*deviations_[i], game.GamesDeviationBox[i]);
  }
}

void GamesScreen::ShowRangeFigures() {
  const RangeFigures range = analysis_ ? GamesInRange(*analysis_) : RangeFigures{};
  current_[15]->setText(ToQt(range.games));
  current_[16]->setText(ToQt(range.percent));
}

void GamesScreen::ShowView() {
  const bool histogram = (TheGame().GamesViewChoice & kHistogramShown) != 0;
  const int page = histogram ? kHistogramPage : kDataPage;
  display_[static_cast<std::size_t>(page)]->setChecked(true);
  pages_->setCurrentIndex(page);
  ShowData();
}

void GamesScreen::ShowData() {
  Game& game = TheGame();
  if ((game.GamesViewChoice & kHistogramShown) != 0) return;
  std::vector<ListRow> rows;
  if (analysis_) {
    for (const GameLine& line :
         GamesRawData(game, Value(), static_cast<std::size_t>(std::max(data_.RowsShown(), 1)))) {
      rows.push_back({{{ToQt(CountText(std::int64_t{line.number}))},
                       {ToQt(line.value), MoneyColor(SignOf(line.tone), palette())}}});
    }
  }
  data_.Show(std::move(rows));
  data_.ShowScroll(1, 30'000, RawDataScroll(game));
}

void GamesScreen::ScrollTo(std::int64_t game_number) {
  Game& game = TheGame();
  game.GamesTopLine = static_cast<std::int32_t>(
      std::clamp<std::int64_t>(game_number, 1, std::max(game.GamesCount, 1)));
  ShowData();
}

// As it is copied.
Rows GamesScreen::ShownRows() {
  return analysis_ ? GamesRows(TheGame(), *analysis_) : Rows();
}

void GamesScreen::Find(FindDirection direction) {
  if (FindGameCommand(TheGame(), Value(), direction)) ShowView();
}

}  // namespace feltmaster
