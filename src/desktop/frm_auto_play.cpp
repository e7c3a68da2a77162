#include "desktop/frm_auto_play.h"

#include <QApplication>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>
#include <string>
#include <string_view>

#include "automation/auto_play.h"
#include "config/configure.h"
#include "desktop/dialog_tools.h"
#include "desktop/menu_table.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "engine/handle_bet.h"
#include "view/settings_rows.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

constexpr const char* kWorkTag = "WorkOnComeOut";
constexpr std::size_t kPrefix = 3;  // of a control's name, before that of its setting

// The settings that are one of a list.
struct Choice {
  const char* name;
  std::int32_t Game::*member;
};
constexpr Choice kOptions[] = {{"optHandleWinningBets", &Game::HandleWinningBets},
                               {"optHandleLosingBets", &Game::HandleLosingBets},
                               {"optAutoAdjustBetAmounts", &Game::AutoAdjustBetAmounts}};
constexpr Choice kBiases[] = {{"cmbLayBias", &Game::LayBias},
                              {"cmbPlaceBias", &Game::PlaceBias},
                              {"cmbDoBias", &Game::DoBias}};
struct Box {
  const char* name;
  const char* caption;
  bool Game::*member;
};
constexpr Box kBoxes[] = {
    {"chkAutoTakeFullOdds", " Auto-&Take Full Odds", &Game::AutoTakeFullOdds},
    {"chkAutoRemovePlaceBets", " Auto-Remove &Place Bets", &Game::AutoRemovePlaceBets},
    {"chkAutoArrangeChips", " Auto-A&rrange Chips", &Game::AutoArrangeChips},
    {"chkAutoRollDice", "A&uto-Roll Dice", &Game::AutoRollDice}};

std::span<const std::string_view> ChoicesOf(const char* control) {
  return FindAutoPlayControl(control + kPrefix)->choices;
}

}  // namespace

AutoPlayScreen::AutoPlayScreen(Screens& screens)
    : ScreenWindow(screens, kTraits), work_panel_(this) {
  AddHelpMenu(*this, TheGame());
  auto* const body = new QWidget(this);
  setCentralWidget(body);
  auto* const grid = new QGridLayout(body);
  grid->addWidget(HandlingGroup("Winning bets", "optHandleWinningBets", kAutoWonSame, kAutoWonBet),
                  0, 0);
  grid->addWidget(HandlingGroup("Losing bets", "optHandleLosingBets", kAutoLostSame, kAutoLostBet),
                  0, 1);
  grid->addWidget(AmountsGroup(), 1, 0);
  grid->addWidget(ChoicesGroup(), 1, 1);
  grid->addWidget(AutoRollGroup(), 0, 2, 2, 1);
  grid->setRowStretch(1, 1);
  BuildWorkPanel();
}

void AutoPlayScreen::Set(const char* setting, const QString& value) {
  Configure(TheGame(), setting, FromQt(value));
  Refresh();
}

void AutoPlayScreen::Refresh() {
  for (const auto& show : shows_) show();
}

// ---- The controls -------------------------------------------------------------------------------

void AutoPlayScreen::AddChoices(QBoxLayout& column, const char* name) {
  const Choice& choice = *std::ranges::find(kOptions, std::string_view(name), &Choice::name);
  auto* const group = new QButtonGroup(this);
  const std::span<const std::string_view> captions = ChoicesOf(name);
  for (std::size_t i = 0; i < captions.size(); ++i) {
    auto* const option = new QRadioButton(ToQt(captions[i]));
    option->setObjectName(name + QString::number(i));
    group->addButton(option, static_cast<int>(i));
    column.addWidget(option);
  }
  connect(group, &QButtonGroup::idClicked, this,
          [this, name](int index) { Set(name + kPrefix, QString::number(index)); });
  shows_.push_back([this, group, &choice] {
    if (QAbstractButton* const button = group->button(TheGame().*choice.member)) {
      button->setChecked(true);
    }
  });
}

void AutoPlayScreen::AddBox(QBoxLayout& column, const char* name, const char* caption) {
  const Box& kind = *std::ranges::find(kBoxes, std::string_view(name), &Box::name);
  auto* const box = new QCheckBox(caption);
  box->setObjectName(name);
  column.addWidget(box);
  connect(box, &QCheckBox::clicked, this,
          [this, name](bool on) { Set(name + kPrefix, on ? "true" : "false"); });
  shows_.push_back([this, box, &kind] { box->setChecked(TheGame().*kind.member); });
}

// Under the option that it belongs to.
void AutoPlayScreen::AddOption(QBoxLayout& column, int at, int option, bool same_bet) {
  auto* const row = new OptionRow(this, TheGame(), option, {.same_bet = same_bet});
  row->setContentsMargins(Letters(*this, 4), 0, 0, 0);
  column.insertLayout(at, row);
  auto* const units =
      row->parentWidget()->findChild<QWidget*>("cmdUnits" + QString::number(option));
  row->Changed = [this, row, option] {
    StoreOption(TheGame(), option, row->Value());
    TheGame().GameChanged = true;
  };
  shows_.push_back([this, row, units, option, same_bet] {
    const SettleRequest::Option now = LoadOption(TheGame(), option);
    const SettleRequest::Option& there = row->Value();
    if (now.math_operator != there.math_operator || now.amount != there.amount ||
        now.units != there.units) {
      row->Show(now);
    }
    // A plain amount has no unit to choose.
    units->setVisible(same_bet || now.units != 0);
  });
}

QWidget* AutoPlayScreen::HandlingGroup(const char* title, const char* name, int same_option,
                                       int bet_option) {
  auto* const group = new QGroupBox(title);
  auto* const column = new QVBoxLayout(group);
  AddChoices(*column, name);
  AddOption(*column, column->count() - 1, same_option, true);
  AddOption(*column, column->count(), bet_option, false);
  column->addStretch(1);
  return group;
}

QWidget* AutoPlayScreen::AmountsGroup() {
  auto* const group = new QGroupBox("Bet amounts");
  auto* const column = new QVBoxLayout(group);
  AddChoices(*column, "optAutoAdjustBetAmounts");
  for (const Choice& bias : kBiases) {
    auto* const list = new QComboBox;
    list->setObjectName(bias.name);
    list->setAccessibleName(ToQt(FindAutoPlayControl(bias.name + kPrefix)->caption));
    for (const std::string_view item : ChoicesOf(bias.name)) list->addItem(ToQt(item));
    column->addWidget(list);
    connect(list, &QComboBox::activated, this,
            [this, name = bias.name](int index) { Set(name + kPrefix, QString::number(index)); });
    shows_.push_back([this, list, &bias] {
      list->setCurrentIndex(TheGame().*bias.member);
      list->setEnabled(TheGame().AutoAdjustBetAmounts != kAdjustManually);
    });
  }
  column->addStretch(1);
  return group;
}

QWidget* AutoPlayScreen::ChoicesGroup() {
  auto* const group = new QGroupBox("On the table");
  auto* const column = new QVBoxLayout(group);
  for (const Box& box : std::span(kBoxes).first(3)) AddBox(*column, box.name, box.caption);
  work_button_ = new QToolButton;
  work_button_->setObjectName("picWorkOnComeout");
  work_button_->setText("&Work on come-out");
  work_button_->setAccessibleName("Bets that work on the come-out roll");
  work_button_->setArrowType(Qt::DownArrow);
  work_button_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  work_button_->setCheckable(true);
  work_button_->setFocusPolicy(Qt::StrongFocus);
  work_button_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  work_button_->setProperty("tag", kWorkTag);
  column->addStretch(1);
  column->addWidget(work_button_);
  connect(work_button_, &QToolButton::clicked, this, [this](bool down) { ShowWorkPanel(down); });
  return group;
}

AmountField* AutoPlayScreen::AddNumber(const char* name, const char* setting, int decimals,
                                       std::function<int()> value) {
  auto* const field = new AmountField(this, decimals, false);
  field->setObjectName(name);
  field->setMaximumWidth(Letters(*field, 16));
  connect(field, &QLineEdit::textEdited, this, [this, field, setting, value](const QString& text) {
    Set(setting, text.isEmpty() ? "0" : text);
    // What is beyond the limit shows the limit.
    if (text.toDouble() > value() + 1) field->setText(QString::number(value()));
  });
  const auto show = [field, value] {
    const QString text = QString::number(value());
    if (field->text() != text) field->setText(text);
  };
  connect(field, &QLineEdit::editingFinished, this, show);
  shows_.push_back([field, show] {
    if (!field->hasFocus()) show();
  });
  return field;
}

QWidget* AutoPlayScreen::AutoRollGroup() {
  auto* const group = new QGroupBox("Auto-Roll");
  auto* const column = new QVBoxLayout(group);
  AddBox(*column, kBoxes[3].name, kBoxes[3].caption);
  auto* const form = new QGridLayout;
  const auto add = [&](int line, const char* caption, QWidget* control) {
    auto* const label = new QLabel(caption);
    label->setBuddy(control);
    form->addWidget(label, line, 0);
    form->addWidget(control, line, 1);
  };
  add(0, "R&olls:", AddNumber("txtNumAutoRolls", "NumAutoRolls", 0, [this] {
        return TheGame().NumAutoRolls;
      }));
  left_ = new QLabel;
  left_->setObjectName("lblAutoRollsRemaining");
  left_->setAlignment(Qt::AlignRight);
  shows_.push_back([this] { left_->setText(QString::number(TheGame().AutoRollsRemaining)); });
  add(1, "Left:", left_);
  add(2, "&Delay:", AddNumber("txtDelayRoll", "AutoRollDelay", 4, [this] {
        return TheGame().AutoRollDelay;
      }));
  form->addWidget(new QLabel("seconds"), 2, 2);
  form->setColumnStretch(3, 1);
  column->addLayout(form);

  auto* const caption = new QLabel("Auto-&Stop Rolling on:");
  column->addWidget(caption);
  stops_ = new QListWidget;
  stops_->setObjectName("listAutoStop");
  stops_->setAccessibleName("Auto-Stop Rolling on");
  stops_->setSelectionMode(QAbstractItemView::MultiSelection);
  for (const std::string_view text : AutoStopTexts()) stops_->addItem(ToQt(text));
  stops_->setMinimumHeight(stops_->sizeHintForRow(0) * 5);
  caption->setBuddy(stops_);
  column->addWidget(stops_, 1);
  connect(stops_, &QListWidget::itemSelectionChanged, this, [this] { KeepStops(); });
  shows_.push_back([this] {
    const QSignalBlocker quiet(stops_);
    for (int i = 0; i < stops_->count(); ++i) {
      stops_->item(i)->setSelected(TheGame().AutoStopOn[static_cast<std::size_t>(i)]);
    }
  });
  return group;
}

void AutoPlayScreen::KeepStops() {
  for (int i = 0; i < stops_->count(); ++i) {
    TheGame().AutoStopOn[static_cast<std::size_t>(i)] = stops_->item(i)->isSelected();
  }
  TheGame().GameChanged = true;
}

// ---- What works on the come-out -----------------------------------------------------------------

void AutoPlayScreen::BuildWorkPanel() {
  work_panel_.setObjectName("pnlWorkOnComeOut");
  work_panel_.setFrameStyle(static_cast<int>(QFrame::StyledPanel) |
                            static_cast<int>(QFrame::Raised));
  work_panel_.setAutoFillBackground(true);
  auto* const row = new QHBoxLayout(&work_panel_);
  work_ = new QListWidget;
  work_->setObjectName("lstWorkOnComeOut");
  work_->setAccessibleName("Bets that work on the come-out roll");
  work_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  work_->setProperty("tag", kWorkTag);
  row->addWidget(work_, 1);
  auto* const column = new QVBoxLayout;
  const auto mark = [this](BetMark how) { return [this, how] { MarkWork(how); }; };
  for (const ScreenCommand& command :
       {ScreenCommand{"cmdYes", "&Yes", mark(BetMark::kYes)},
        ScreenCommand{"cmdNo", "&No", mark(BetMark::kNo)},
        ScreenCommand{"cmdSelectAll", "Select &All",
                      [this] {
                        work_->selectAll();
                        work_->setFocus();
                      }},
        ScreenCommand{"cmdDefault", "De&fault", mark(BetMark::kDefault)}}) {
    AddButton(*column, command)->setProperty("tag", kWorkTag);
  }
  column->addStretch(1);
  row->addLayout(column);
  connect(work_, &QListWidget::itemDoubleClicked, this, mark(BetMark::kToggle));
  shows_.push_back([this] {
    if (work_panel_.isHidden()) return;
    const Rows rows = WorkOnComeOutRows(TheGame());
    for (int i = 0; i < static_cast<int>(rows.size()); ++i) {
      const QString text = ToQt(rows[static_cast<std::size_t>(i)][0]);
      if (i == work_->count()) work_->addItem(text);
      if (work_->item(i)->text() != text) work_->item(i)->setText(text);
    }
  });
  work_panel_.hide();
  connect(qApp, &QApplication::focusChanged, &work_panel_, [this](QWidget*, QWidget* now) {
    if (now == nullptr || work_panel_.isHidden()) return;
    if (now->property("tag") != kWorkTag) ShowWorkPanel(false);
  });
}

void AutoPlayScreen::ShowWorkPanel(bool show) {
  work_panel_.setVisible(show);
  work_button_->setChecked(show);
  if (!show) return;
  Refresh();
  PlaceWorkPanel();
  work_panel_.raise();
  work_->setFocus();
}

// Under its button, or above it where there is more room.
void AutoPlayScreen::PlaceWorkPanel() {
  const QRect button(work_button_->mapTo(this, QPoint(0, 0)), work_button_->size());
  const QRect room = rect().adjusted(4, 4, -4, -4);
  const int below = room.bottom() - button.bottom();
  const int above = button.top() - room.top();
  const QSize wanted(std::max(button.width(), Letters(*this, 46)), Letters(*this, 50));
  QRect place(button.bottomLeft() + QPoint(0, 1),
              wanted.boundedTo({room.width(), std::max(below, above)}));
  if (above > below) place.moveBottom(button.top() - 1);
  place.moveRight(std::min(place.right(), room.right()));
  work_panel_.setGeometry(place);
}

void AutoPlayScreen::MarkWork(BetMark mark) {
  BetSet selected;
  int row = 0;
  WorkList().ForEach([&](int bet) {
    if (work_->item(row)->isSelected()) selected.Add(bet);
    ++row;
  });
  MarkWorkOnComeOut(TheGame(), selected, mark);
  TheGame().GameChanged = true;
  Refresh();
}

void AutoPlayScreen::resizeEvent(QResizeEvent* event) {
  ScreenWindow::resizeEvent(event);
  if (!work_panel_.isHidden()) PlaceWorkPanel();
}

void AutoPlayScreen::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && !work_panel_.isHidden()) {
    work_button_->setFocus();
    return ShowWorkPanel(false);
  }
  ScreenWindow::keyPressEvent(event);
}

}  // namespace feltmaster
