#include "desktop/frm_dice_roll_files.h"

#include <QApplication>
#include <QBoxLayout>
#include <QButtonGroup>
#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QPixmap>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QToolButton>
#include <algorithm>
#include <string>

#include "desktop/amount_field.h"
#include "desktop/dialog_tools.h"
#include "desktop/die_picture.h"
#include "desktop/paint_tools.h"
#include "desktop/picture_export.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "files/roll_commands.h"
#include "files/roll_recorder.h"
#include "reports/print_commands.h"
#include "view/roll_list.h"

namespace feltmaster {

namespace {

constexpr int kFaces = 6;
constexpr int kSmallestPrint = 3;  // points
constexpr int kLargestPrint = 20;
constexpr int kUsualPrint = 6;
constexpr std::int64_t kBeyondAllRolls = std::int64_t{1} << 40;

// Two dice side by side, in the colours of the table.
QIcon DiceIcon(const Game& game, Dice dice, int side, double pixel_ratio) {
  const int gap = std::max(2, side / 6);
  QPixmap picture(QSizeF((2 * side + gap) * pixel_ratio, side * pixel_ratio).toSize());
  picture.setDevicePixelRatio(pixel_ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  const DieColors colors = {ColorOf(game.TableColors[6]), ColorOf(game.TableColors[7])};
  PaintPrintedDie(painter, {0, 0}, side, colors, dice.Die1);
  PaintPrintedDie(painter, QPointF(side + gap, 0), side, colors, dice.Die2);
  return QIcon(picture);
}

struct PrintBox {
  const char* name;
  const char* caption;
  std::int32_t Game::*setting;
};
constexpr PrintBox kPrintBoxes[] = {
    {"chkDieNums", " Include individual die #'s", &Game::PrintDieNumbers},
    {"chkRollNums", " Include roll #'s", &Game::PrintRollNumbers},
    {"chkNumbersCalled", " Include numbers called", &Game::PrintNumbersCalled},
    {"chkPrintSelectedRolls", " Include selected rolls only", &Game::PrintSelectedRolls}};

}  // namespace

DiceRollFilesScreen::DiceRollFilesScreen(Screens& screens)
    : ScreenWindow(screens, kTraits),
      list_(this, "picDiceRolls", "VScroll1",
            {{ToQt(RollListHeaders()[0]), 14, Qt::AlignRight},
             {ToQt(RollListHeaders()[1]), 9, Qt::AlignHCenter},
             {ToQt(RollListHeaders()[2]), 9, Qt::AlignHCenter},
             {ToQt(RollListHeaders()[3]), 17, Qt::AlignHCenter}}) {
  BuildMenus();
  auto* const body = new QWidget(this);
  setCentralWidget(body);
  auto* const row = new QHBoxLayout(body);
  list_.setAccessibleName("Rolls of the file");
  row->addWidget(&list_, 1);
  auto* const column = new QVBoxLayout;
  column->addWidget(CounterGroup());
  column->addWidget(RecorderGroup());
  column->addWidget(EntryGroup());
  column->addWidget(PrintGroup());
  column->addStretch(1);
  row->addLayout(column);
  ConnectList();
  followed_ = TheGame().DiceRollNext;
}

void DiceRollFilesScreen::Do(const std::function<bool(Game&)>& command) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  command(TheGame());
  QApplication::restoreOverrideCursor();
  Refresh();
}

// ---- Menus --------------------------------------------------------------------------------------

void DiceRollFilesScreen::BuildMenus() {
  Game& game = TheGame();
  const auto asking = [this](bool (*command)(Game&)) {
    return [this, command] {
      command(TheGame());
      Refresh();
    };
  };
  QMenu* const file =
      AddMenu(*this, "mnuFile", "&File",
              {{"mnuNewOpen", "&New / Open ...", asking(OpenRollFileCommand), "Ctrl+O"},
               {"mnuClose", "&Close",
                [this] {
                  CloseDiceRollFile(TheGame());
                  Refresh();
                }},
               {}});
  AddShareEntries(
      *file, game, [this] { return RowsInView(); }, list_);
  file->addSeparator();
  AddEntry(*file, {"mnuExit", "E&xit", [this] { close(); }, "Ctrl+W"});
  QMenu* const edit = AddEditMenu(
      *this, [this](TextCommand command) { Edit(command); }, true);
  edit->addSeparator();
  QMenu* const copy_to =
      AddMenu(*edit, "mnuCopyTo", "C&opy to",
              {{"mnuCopyToRollFile", "&Roll File ...", asking(CopyToRollFileCommand)},
               {"mnuCopyToTextFile", "&Text File ...", asking(CopyRollsToTextCommand)}});
  QMenu* const paste_from =
      AddMenu(*edit, "mnuPasteFrom", "P&aste From",
              {{"mnuPasteFromRollFile", "&Roll File ...", asking(PasteFromRollFileCommand)},
               {"mnuPasteFromTextFile", "&Text File ...", asking(PasteFromTextCommand)}});
  for (const char* const name : {"mnuCut", "mnuCopy", "mnuDelete"}) {
    usable_.emplace_back(findChild<QAction*>(name), &RollCommands::on_selection);
  }
  usable_.emplace_back(copy_to->menuAction(), &RollCommands::on_selection);
  usable_.emplace_back(findChild<QAction*>("mnuPaste"), &RollCommands::paste);
  usable_.emplace_back(paste_from->menuAction(), &RollCommands::paste_from);
  usable_.emplace_back(findChild<QAction*>("mnuSelectAll"), &RollCommands::select_all);
  BuildHighlightMenu();
  AddHelpMenu(*this, game);
}

// The field of the next roll has its own text to edit.
void DiceRollFilesScreen::Edit(TextCommand command) {
  if (EditFocusedText(*this, command)) return;
  constexpr auto kSelectAll = [](Game& game) {
    SelectAllRolls(game);
    return true;
  };
  constexpr std::array<bool (*)(Game&), 5> kCommands = {CutRolls, CopyRolls, PasteRolls,
                                                        DeleteRolls, kSelectAll};
  Do(kCommands[static_cast<std::size_t>(command)]);
}

Rows DiceRollFilesScreen::RowsInView() {
  Rows rows = {RollListHeaders()};
  for (const RollLine& line : RollLines(TheGame())) rows.push_back(line.Cells);
  return rows;
}

void DiceRollFilesScreen::BuildHighlightMenu() {
  QMenu* const menu = AddMenu(*this, "mnuHighlight", "H&ighlight");
  const auto add = [this](QMenu& to, const std::string& name, const std::string& caption,
                          std::function<void()> toggle, std::function<bool()> is_set) {
    QAction* const action = AddEntry(to, {name.c_str(), caption.c_str(), [this, toggle] {
                                            toggle();
                                            TheGame().GameChanged = true;
                                            Refresh();
                                          }});
    action->setCheckable(true);
    shows_.push_back([action, is_set] { action->setChecked(is_set()); });
  };
  // The menu of a face of the first die has an entry for each face of the second.
  for (int die1 = 1; die1 <= kFaces; ++die1) {
    const std::string name = "mnuPip" + std::to_string(die1);
    const std::string face = std::to_string(die1);
    QMenu* const faces = AddMenu(*menu, name.c_str(), ("Die 1 is &" + face).c_str());
    for (int die2 = 1; die2 <= kFaces; ++die2) {
      const Dice dice = {die1, die2};
      add(
          *faces, name + '_' + std::to_string(die2), face + " - &" + std::to_string(die2),
          [this, dice] { ToggleHighlight(TheGame(), dice); },
          [this, dice] {
            return TheGame().RollHighlight[static_cast<std::size_t>(dice.Die2)]
                                          [static_cast<std::size_t>(dice.Die1)];
          });
    }
  }
  QMenu* const totals = AddMenu(*menu, "mnuCombos", "&Combos totaling");
  for (int total = 2; total <= 2 * kFaces; ++total) {
    const std::string number = std::to_string(total);
    add(
        *totals, "mnuAll" + number, (total < 10 ? "&" : "") + number,
        [this, total] { ToggleHighlightOfTotal(TheGame(), total); },
        [this, total] { return TotalIsHighlighted(TheGame(), total); });
  }
  menu->addSeparator();
  AddEntry(*menu, {"mnuClearAll", "Clear &All", [this] {
                     ClearHighlights(TheGame());
                     TheGame().GameChanged = true;
                     Refresh();
                   }});
}

// ---- The controls -------------------------------------------------------------------------------

QWidget* DiceRollFilesScreen::CounterGroup() {
  auto* const group = new QGroupBox("Rolls");
  auto* const grid = new QGridLayout(group);
  const auto label = [&](const char* name) {
    auto* const shown = new QLabel;
    shown->setObjectName(name);
    shown->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    shown->setMinimumWidth(Letters(*shown, 12));
    return shown;
  };
  next_ = new AmountField(group, 0, false);
  next_->setObjectName("txtNextRollNum");
  next_->setFixedWidth(Letters(*next_, 14));
  connect(next_, &QLineEdit::returnPressed, this, [this] {
    GoToRoll(TheGame(), next_->text().toLongLong());
    next_->setModified(false);
    Refresh();
    next_->selectAll();
  });
  int line = 0;
  const auto add = [&](const char* caption, QWidget* shown) {
    auto* const text = new QLabel(caption);
    text->setBuddy(shown);
    shown->setAccessibleName(QString(caption).remove('&'));
    grid->addWidget(text, line, 0);
    grid->addWidget(shown, line++, 1);
  };
  add("Total #:", total_ = label("lblTotalNumRolls"));
  add("Selected:", selected_ = label("lblNumRollsSelected"));
  add("Last roll was roll #:", last_ = label("lblLastRollNum"));
  add("Next roll is roll #:", next_);
  grid->setColumnStretch(0, 1);
  return group;
}

// A row of options under one name and their index.
QWidget* DiceRollFilesScreen::OptionRow(const char* name,
                                        std::initializer_list<const char*> captions,
                                        QButtonGroup*& group) {
  auto* const options = new QWidget;
  auto* const row = new QHBoxLayout(options);
  row->setContentsMargins(0, 0, 0, 0);
  group = new QButtonGroup(this);
  for (const char* const caption : captions) {
    auto* const option = new QRadioButton(caption);
    const auto index = static_cast<int>(group->buttons().size());
    option->setObjectName(name + QString::number(index));
    group->addButton(option, index);
    row->addWidget(option);
  }
  row->addStretch(1);
  return options;
}

QWidget* DiceRollFilesScreen::RecorderGroup() {
  auto* const group = new QGroupBox("Recorder");
  auto* const column = new QVBoxLayout(group);
  column->addWidget(OptionRow("optRecorderStatus", {" &Off", " &Record", " Play&back"}, recorder_));
  connect(recorder_, &QButtonGroup::idClicked, this, [this](int mode) {
    SetDiceRollMode(TheGame(), static_cast<DiceRollMode>(mode));
    Refresh();
  });
  return group;
}

QWidget* DiceRollFilesScreen::EntryGroup() {
  auto* const group = new QGroupBox("Enter rolls");
  auto* const column = new QVBoxLayout(group);
  column->addWidget(OptionRow("optInsertRolls", {" Insert", " Type over"}, insert_));
  connect(insert_, &QButtonGroup::idClicked, this, [this](int mode) {
    TheGame().InsertRolls = mode;
    TheGame().GameChanged = true;
  });
  auto* const grid = new QGridLayout;
  grid->setSpacing(2);
  const int side = fontMetrics().height() + 2;
  for (int button = 0; button < kRollButtons; ++button) {
    const Dice dice = DiceOfButton(button);
    auto* const key = new QToolButton;
    key->setObjectName("cmdRollNumbers" + QString::number(button));
    key->setAccessibleName(QString("%1 - %2").arg(dice.Die1).arg(dice.Die2));
    key->setToolTip(QString("%1 - %2: %3").arg(dice.Die1).arg(dice.Die2).arg(dice.Total()));
    key->setIcon(DiceIcon(TheGame(), dice, side, devicePixelRatioF()));
    key->setIconSize(QSize(2 * side + std::max(2, side / 6), side));
    key->setFocusPolicy(Qt::StrongFocus);
    connect(key, &QToolButton::clicked, this,
            [this, dice] { Do([dice](Game& game) { return EnterRoll(game, dice); }); });
    grid->addWidget(key, button / kFaces, button % kFaces);
  }
  column->addLayout(grid);
  auto* const random = new QPushButton("Ra&ndom");
  random->setObjectName("cmdRandomNum");
  connect(random, &QPushButton::clicked, this, [this] { Do(EnterRandomRoll); });
  column->addWidget(random);
  return group;
}

QWidget* DiceRollFilesScreen::PrintGroup() {
  auto* const group = new QGroupBox("Print Options");
  auto* const grid = new QGridLayout(group);
  int line = 0;
  for (const PrintBox& kind : kPrintBoxes) {
    auto* const box = new QCheckBox(kind.caption);
    box->setObjectName(kind.name);
    grid->addWidget(box, line++, 0, 1, 3);
    connect(box, &QCheckBox::clicked, this, [this, &kind](bool on) {
      TheGame().*kind.setting = on ? 1 : 0;
      TheGame().GameChanged = true;
    });
    shows_.push_back([this, box, &kind] { box->setChecked(TheGame().*kind.setting != 0); });
  }
  font_size_ = new QSpinBox;
  font_size_->setObjectName("txtFontSize");
  font_size_->setRange(kSmallestPrint, kLargestPrint);
  const std::int32_t stored = TheGame().RollPrintFontSize;
  font_size_->setValue(stored < 1 || stored > kLargestPrint ? kUsualPrint : stored);
  connect(font_size_, &QSpinBox::valueChanged, this, [this](int points) {
    TheGame().RollPrintFontSize = points;
    TheGame().GameChanged = true;
  });
  auto* const caption = new QLabel("Font si&ze:");
  caption->setBuddy(font_size_);
  font_size_->setAccessibleName("Font size");
  auto* const print = new QPushButton("&Print");
  print->setObjectName("cmdPrint");
  connect(print, &QPushButton::clicked, this,
          [this] { FindPrintCommand("rolls")->print(TheGame(), Confirm::kAsk); });
  grid->addWidget(caption, line, 0);
  grid->addWidget(font_size_, line, 1);
  grid->addWidget(print, line, 2);
  grid->setColumnStretch(2, 1);
  return group;
}

// ---- The list -----------------------------------------------------------------------------------

void DiceRollFilesScreen::ConnectList() {
  list_.Resized = [this] { Refresh(); };
  list_.StepBy = [this](int rows) {
    Game& game = TheGame();
    const std::int64_t last = std::max(DiceRollTotal(game), 1);
    game.DiceRollTopLine = static_cast<std::int32_t>(
        std::clamp<std::int64_t>(std::int64_t{game.DiceRollTopLine} + rows, 1, last));
    Refresh();
  };
  list_.GoTo = [this](int place) {
    ScrollRolls(TheGame(), place);
    Refresh();
  };
  list_.Pressed = [this](const ListPlace& place, QMouseEvent& event) {
    const bool extends = event.button() == Qt::RightButton ||
                         (event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier)) != 0;
    PressRoll(TheGame(), std::int64_t{TheGame().DiceRollTopLine} + place.row, extends);
    Refresh();
  };
  // A press that goes on along the list takes the rolls on its way.
  list_.Dragged = [this](const ListPlace& place) {
    Game& game = TheGame();
    const std::int64_t roll = std::int64_t{game.DiceRollTopLine} + place.row;
    if (roll == game.DiceRollNext) return;
    MoveInRolls(game, roll - game.DiceRollNext, true);
    Refresh();
  };
  list_.KeyPressed = [this](QKeyEvent& key) { return ListKey(key); };
}

bool DiceRollFilesScreen::ListKey(QKeyEvent& key) {
  const int page = std::max(list_.RowsShown(), 1);
  const std::pair<int, std::int64_t> moves[] = {
      {Qt::Key_Up, -1},
      {Qt::Key_Down, 1},
      {Qt::Key_PageUp, -page},
      {Qt::Key_PageDown, page},
      {Qt::Key_Home, -kBeyondAllRolls},
      {Qt::Key_End, kBeyondAllRolls},
  };
  for (const auto& [name, rolls] : moves) {
    if (key.key() != name) continue;
    MoveInRolls(TheGame(), rolls, key.modifiers().testFlag(Qt::ShiftModifier));
    Refresh();
    return true;
  }
  return false;
}

// ---- What is shown ------------------------------------------------------------------------------

void DiceRollFilesScreen::Refresh() {
  Game& game = TheGame();
  game.DiceRollPageLines = std::max(list_.RowsShown(), 1);
  if (game.DiceRollNext != followed_) {
    followed_ = game.DiceRollNext;
    ShowDiceRollPosition(game);
  }
  setWindowTitle(ToQt(RollFileCaption(game)));
  ShowRows();
  const RollCounters counters = CountersOfRolls(game);
  total_->setText(ToQt(counters.Total));
  selected_->setText(ToQt(counters.Selected));
  last_->setText(ToQt(counters.Last));
  if (!(next_->hasFocus() && next_->isModified())) next_->setText(ToQt(counters.Next));
  recorder_->button(game.DiceRollFileMode)->setChecked(true);
  insert_->button(game.InsertRolls == kInsert ? kInsert : kTypeOver)->setChecked(true);
  for (const auto& show : shows_) show();
  ShowCommands();
}

void DiceRollFilesScreen::ShowRows() {
  Game& game = TheGame();
  std::vector<ListRow> rows;
  const QColor red = MoneyColor(-1, palette());
  for (const RollLine& line : RollLines(game)) {
    ListRow row;
    for (const std::string& text : line.Cells) {
      row.cells.push_back({ToQt(text), line.IsHighlighted ? red : QColor()});
    }
    row.ground = line.IsNext       ? ListRow::Ground::kCurrent
                 : line.IsSelected ? ListRow::Ground::kSelected
                                   : ListRow::Ground::kPlain;
    rows.push_back(std::move(row));
  }
  list_.Show(std::move(rows));
  list_.ShowScroll(0, kRollScrollSteps, RollScrollValue(game));
}

void DiceRollFilesScreen::ShowCommands() {
  const RollCommands commands = UsableRollCommands(TheGame());
  for (const auto& [action, can] : usable_) action->setEnabled(commands.*can);
}

}  // namespace feltmaster
