#include "desktop/frm_stack_values.h"

#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <algorithm>
#include <map>
#include <string>

#include "desktop/dialog_tools.h"
#include "desktop/qt_text.h"
#include "desktop/screen_menus.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

enum Column { kNumber, kValue, kName };
constexpr int kDecimals = 4;
constexpr int kFirstRows = 25;     // that a window without a kept place shows
constexpr int kNumberLetters = 2;  // of a Chip-Stack's number, 0 to 99

constexpr std::array<const char*, 4> kVisibleCaptions = {
    "Set Bottom Chip-Stack to #", "Set 2nd Chip-Stack to #", "Set 3rd Chip-Stack to #",
    "Set Top Chip-Stack to #"};

const std::map<int, StackKey> kMoves = {
    {Qt::Key_Left, StackKey::kLeft},     {Qt::Key_Right, StackKey::kRight},
    {Qt::Key_Up, StackKey::kUp},         {Qt::Key_Down, StackKey::kDown},
    {Qt::Key_PageUp, StackKey::kPageUp}, {Qt::Key_PageDown, StackKey::kPageDown}};

}  // namespace

StackValuesScreen::StackValuesScreen(Screens& screens)
    : ScreenWindow(screens, kTraits),
      list_(this, "picStacks", "VScroll1",
            {{"#", 5, Qt::AlignRight}, {"Value", 20, Qt::AlignRight}, {"Name", 0}}),
      box_(&list_, kDecimals, true),
      amounts_(box_.validator()),
      panel_(this) {
  list_.setAccessibleName("Chip-Stacks");
  setCentralWidget(&list_);
  box_.setObjectName("txtChipStackInput");
  box_.hide();
  box_.installEventFilter(this);
  BuildMenus();
  BuildPanel();

  list_.StepBy = [this](int rows) { ScrollTo(TheGame().StackListScroll + rows); };
  list_.GoTo = [this](int place) { ScrollTo(place); };
  list_.Resized = [this] { Refresh(); };
  list_.Pressed = [this](const ListPlace& place, QMouseEvent&) {
    const int stack = TheGame().StackListScroll + place.row;
    if (stack < kStackCount) OpenBox({stack, place.column == kName});
  };
  list_.KeyPressed = [this](QKeyEvent& key) {
    if (!kMoves.contains(key.key()) && key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter &&
        key.key() != Qt::Key_F2) {
      return false;
    }
    cell_.stack = std::max(cell_.stack, TheGame().StackListScroll);
    OpenBox(cell_);
    return true;
  };
}

QSize StackValuesScreen::PreferredSize() const {
  return {list_.sizeHint().width(), list_.HeightFor(kFirstRows) + menuBar()->sizeHint().height()};
}

void StackValuesScreen::BuildMenus() {
  Game& game = TheGame();
  AddFileMenu(
      *this, game,
      {.report = "stacks", .rows = [&game] { return ChipStackRows(game); }, .picture = &list_});
  QMenu* const edit = AddEditMenu(
      *this, [this](TextCommand command) { EditFocusedText(*this, command); }, false);
  const auto clear = [this](StackClearing what) {
    return [this, what] {
      if (ClearStacks(TheGame(), what)) ShowCell();
    };
  };
  for (const ScreenCommand& command :
       {ScreenCommand{"mnuDeleteAll", "Delete &All", clear(StackClearing::kValuesAndNames)},
        ScreenCommand{"mnuDeleteAllValues", "Delete All Val&ues", clear(StackClearing::kAllValues)},
        ScreenCommand{"mnuDeleteAllNames", "Delete All &Names", clear(StackClearing::kAllNames)}}) {
    AddEntry(*edit, command);
  }
  QMenu* const options =
      AddMenu(*this, "mnuOptions", "&Options",
              {{"mnuSetStacks", "&Set Visible Chip-Stacks ...", [this] { OpenPanel(); }}});
  AddMenuSwitch(*options, {"mnuDisplayZero", "Display &Zero Amounts",
                           [&game] { return game.StackDisplayZero; },
                           [this](bool on) {
                             SetStackDisplayZero(TheGame(), on);
                             ShowCell();
                             Refresh();
                           }});
  AddHelpMenu(*this, game);
}

void StackValuesScreen::Refresh() {
  Game& game = TheGame();
  const int shown = std::max(list_.RowsShown(), 1);
  const int last = std::max(0, kStackCount - shown);
  game.StackListScroll = std::clamp(game.StackListScroll, 0, last);
  std::vector<ListRow> rows;
  const Rows stacks = ChipStackRows(game);
  for (int stack = game.StackListScroll;
       stack < std::min(game.StackListScroll + shown, kStackCount); ++stack) {
    const Row& cells = stacks[static_cast<std::size_t>(stack)];
    const std::int64_t amount = game.BetAmount[kFirstStack + stack].Raw();
    const QColor ink = MoneyColor(amount > 0 ? 1 : amount < 0 ? -1 : 0, palette());
    rows.push_back(
        {.cells = {{ToQt(cells[kNumber])}, {ToQt(cells[kValue]), ink}, {ToQt(cells[kName])}},
         .framed = stack == cell_.stack && list_.hasFocus()});
  }
  list_.Show(std::move(rows));
  list_.ShowScroll(0, last, game.StackListScroll);
  PlaceBox();
  if (!box_.isModified()) ShowCell();
}

void StackValuesScreen::ScrollTo(int stack) {
  TheGame().StackListScroll = stack;
  Refresh();
}

// ---- The entry box ------------------------------------------------------------------------------

void StackValuesScreen::OpenBox(const StackCell& cell) {
  CommitBox();
  cell_ = cell;
  box_.setProperty("tag", cell.stack);
  box_.setAccessibleName((cell.name ? "Name of Chip-Stack " : "Value of Chip-Stack ") +
                         QString::number(cell.stack));
  box_.setValidator(cell.name ? nullptr : amounts_);
  box_.setAlignment(cell.name ? Qt::AlignLeft : Qt::AlignRight);
  box_.setModified(false);
  box_.setVisible(true);
  ShowCell();
  Refresh();
  box_.setFocus();
  box_.selectAll();
}

void StackValuesScreen::ShowCell() {
  if (box_.isHidden()) return;
  const QString text = ToQt(StackCellText(TheGame(), cell_));
  if (box_.text() != text) box_.setText(text);
  box_.setModified(false);
}

void StackValuesScreen::CommitBox() {
  if (box_.isHidden() || !box_.isModified()) return;
  box_.setModified(false);
  EnterStackCell(TheGame(), cell_, FromQt(box_.text()));
  ShowCell();
  Refresh();
}

void StackValuesScreen::CloseBox() {
  box_.setModified(false);
  box_.hide();
  list_.setFocus();
  Refresh();
}

void StackValuesScreen::PlaceBox() {
  const int row = cell_.stack - TheGame().StackListScroll;
  const bool in_view = row >= 0 && row < list_.RowsShown();
  const ListPlace place = {in_view ? row : -100, cell_.name ? kName : kValue};
  box_.setGeometry(list_.CellRect(place).adjusted(0, -1, 0, 1));
}

// The arrows move the cursor in what is being edited, and the box from its ends.
bool StackValuesScreen::MovesBox(int key) const {
  if (!kMoves.contains(key)) return false;
  if (box_.selectedText() == box_.text()) return true;
  if (key == Qt::Key_Left) return box_.cursorPosition() == 0;
  if (key == Qt::Key_Right) return box_.cursorPosition() == static_cast<int>(box_.text().size());
  return true;
}

void StackValuesScreen::MoveBox(int key) {
  CommitBox();
  OpenBox(MoveStackCell(TheGame(), cell_, kMoves.at(key), list_.RowsShown()));
}

bool StackValuesScreen::eventFilter(QObject* watched, QEvent* event) {
  if (watched != &box_) return ScreenWindow::eventFilter(watched, event);
  if (event->type() == QEvent::FocusOut) {
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    // A menu or another window only covers it.
    if (reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason) CommitBox();
    return false;
  }
  if (event->type() != QEvent::KeyPress) return false;
  const auto* const key = static_cast<QKeyEvent*>(event);
  if (key->key() == Qt::Key_Escape) {
    CloseBox();
    return true;
  }
  if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter) {
    CommitBox();
    box_.selectAll();
    return true;
  }
  if (key->modifiers() != Qt::NoModifier && key->modifiers() != Qt::KeypadModifier) return false;
  if (!MovesBox(key->key())) return false;
  MoveBox(key->key());
  return true;
}

bool StackValuesScreen::MayClose() {
  CommitBox();
  return true;
}

// ---- The Chip-Stacks on the table ---------------------------------------------------------------

void StackValuesScreen::BuildPanel() {
  panel_.setObjectName("picSetStacks");
  panel_.setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Raised));
  panel_.setAutoFillBackground(true);
  panel_.setAccessibleName("Set Visible Chip-Stacks");
  auto* const column = new QVBoxLayout(&panel_);
  const int margin = Letters(panel_, 2);
  column->setContentsMargins(margin, margin, margin, margin);
  auto* const heading =
      new QLabel("The Chip-Stack #'s entered here will appear on the main game table.", &panel_);
  heading->setWordWrap(true);
  column->addWidget(heading);
  auto* const form = new QFormLayout;
  // The top one stands above the others, as on the table.
  for (std::size_t i = visible_.size(); i-- > 0;) {
    visible_[i] = new AmountField(&panel_, 0, false, kNumberLetters);
    visible_[i]->setObjectName("txtStackNum" + QString::number(i + 1));
    visible_[i]->setAccessibleName(kVisibleCaptions[i]);
    visible_[i]->setFixedWidth(Letters(*visible_[i], 8));
    form->addRow(kVisibleCaptions[i], visible_[i]);
  }
  column->addLayout(form);
  auto* const buttons = new QHBoxLayout;
  buttons->addStretch(1);
  AddButton(*buttons, {"cmdAccept", "&Accept", [this] { AcceptPanel(); }});
  AddButton(*buttons, {"cmdCancel", "&Cancel", [this] { ClosePanel(); }});
  column->addLayout(buttons);
  panel_.hide();
}

void StackValuesScreen::OpenPanel() {
  CommitBox();
  for (std::size_t i = 0; i < visible_.size(); ++i) {
    visible_[i]->setText(QString::number(TheGame().StackSlots[i + 1] - kFirstStack));
  }
  list_.setEnabled(false);
  menuBar()->setEnabled(false);
  panel_.show();
  PlacePanel();
  panel_.raise();
  visible_[0]->setFocus();
}

void StackValuesScreen::AcceptPanel() {
  std::array<int, 4> numbers{};
  for (std::size_t i = 0; i < numbers.size(); ++i) numbers[i] = visible_[i]->text().toInt();
  const int repeated = SetVisibleStacks(TheGame(), numbers);
  if (repeated == 0) return ClosePanel();
  visible_[static_cast<std::size_t>(repeated - 1)]->setFocus();
}

void StackValuesScreen::ClosePanel() {
  panel_.hide();
  list_.setEnabled(true);
  menuBar()->setEnabled(true);
  list_.setFocus();
}

void StackValuesScreen::PlacePanel() {
  const int width = std::min(this->width(), Letters(panel_, 52));
  panel_.resize(width, panel_.layout()->hasHeightForWidth()
                           ? panel_.layout()->totalHeightForWidth(width)
                           : panel_.sizeHint().height());
  panel_.move(rect().center() - panel_.rect().center());
}

void StackValuesScreen::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (panel_.isVisible() && (enter || event->key() == Qt::Key_Escape)) {
    auto* const button = qobject_cast<QPushButton*>(focusWidget());
    if (enter && button != nullptr) return button->click();
    return enter ? AcceptPanel() : ClosePanel();
  }
  ScreenWindow::keyPressEvent(event);
}

void StackValuesScreen::resizeEvent(QResizeEvent* event) {
  ScreenWindow::resizeEvent(event);
  PlacePanel();
}

}  // namespace feltmaster
