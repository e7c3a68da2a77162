#include "desktop/dice_panel.h"

#include <QContextMenuEvent>
#include <QFontMetricsF>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <algorithm>
#include <limits>

#include "automation/hyper_drive.h"
#include "desktop/dialog_tools.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

const QColor kGround(0x17, 0x2A, 0x20);
constexpr double kRound = 3;  // of a cell's corners

QRectF RectOf(const RollCell& cell) {
  return QRectF(cell.Left, cell.Top, cell.Width, cell.Height);
}

QColor InkOn(const QColor& color) {
  const QColor dark(0x10, 0x10, 0x12);
  return Contrast(color, dark) >= Contrast(color, Qt::white) ? dark : QColor(Qt::white);
}

}  // namespace

DicePanel::DicePanel(QWidget* parent, Game& game) : QWidget(parent), game_(game), menu_(this) {
  setObjectName("picCells");
  setAccessibleName("Next roll");
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_OpaquePaintEvent);
  hyper_drive_ = AddButton("cmdHyperDrive", HyperDriveCaption(game), ToggleHyperDrive);
  random_roll_ = AddButton("cmdRandomRoll", "&Random Roll", PressRandomRoll);
  BuildMenu();
  panel_ = RollPanelOf(game.RyonPanelState);
  StateChanged();
}

QPushButton* DicePanel::AddButton(const char* name, std::string_view caption,
                                  void (*press)(Game&)) {
  auto* const button = new QPushButton(ToQt(caption), this);
  button->setObjectName(name);
  button->setAccessibleName(ToQt(caption).remove('&'));
  connect(button, &QPushButton::clicked, this, [this, press] {
    const QPointer<DicePanel> panel(this);
    press(game_);
    if (panel) Refresh();
  });
  return button;
}

void DicePanel::BuildMenu() {
  menu_.setObjectName("mnuDisplay");
  menu_.setTitle("&Display");
  const auto add = [](QMenu& menu, const QString& name, std::string_view caption) {
    QAction* const action = menu.addAction(ToQt(caption));
    action->setObjectName(name);
    return action;
  };
  connect(add(menu_, "mnuHide", "Hide"), &QAction::triggered, this, [this] {
    if (Hide) Hide();
  });
  menu_.addSeparator();
  for (std::size_t i = 0; i < displays_.size(); ++i) {
    displays_[i] = add(menu_, "mnuDisplayRYON" + QString::number(i), kPanelDisplayCaptions[i]);
    displays_[i]->setCheckable(true);
    connect(displays_[i], &QAction::triggered, this, [this, i] {
      panel_.Display = static_cast<PanelDisplay>(i);
      cell_ = 0;
      StateChanged();
    });
  }
  menu_.addSeparator();
  AddSwitch("mnuRollCounter", "Roll &Counter", &RollPanel::RollCounter);
  AddSwitch("mnuHyperDriveButton", "&Hyper-Drive Button", &RollPanel::HyperDriveButton);
  AddSwitch("mnuRandomButton", "&Random Button", &RollPanel::RandomButton);
  menu_.addSeparator();
  QMenu* const colors = menu_.addMenu("Set &Button Color");
  colors->setObjectName("mnuSetColor");
  for (std::size_t i = 0; i < colors_.size(); ++i) {
    colors_[i] = add(*colors, "mnuColor" + QString::number(i), kPanelColorCaptions[i]);
    colors_[i]->setCheckable(true);
    connect(colors_[i], &QAction::triggered, this, [this, i] {
      game_.RyonButtonColor = static_cast<std::int32_t>(i);
      StateChanged();
    });
  }
}

void DicePanel::AddSwitch(const char* name, const char* caption, bool RollPanel::*option) {
  QAction* const action = menu_.addAction(caption);
  action->setObjectName(name);
  action->setCheckable(true);
  switches_.push_back({action, option});
  connect(action, &QAction::triggered, this, [this, option](bool on) {
    panel_.*option = on;
    StateChanged();
  });
}

// What the panel shows has been chosen anew; the game keeps it.
void DicePanel::StateChanged() {
  game_.RyonPanelState = StateOf(panel_);
  if (game_.RyonButtonColor < 0 || game_.RyonButtonColor >= static_cast<int>(colors_.size())) {
    game_.RyonButtonColor = 0;
  }
  for (std::size_t i = 0; i < displays_.size(); ++i) {
    displays_[i]->setChecked(panel_.Display == static_cast<PanelDisplay>(i));
  }
  for (std::size_t i = 0; i < colors_.size(); ++i) {
    colors_[i]->setChecked(game_.RyonButtonColor == static_cast<std::int32_t>(i));
  }
  for (const Switch& entry : switches_) entry.action->setChecked(panel_.*entry.option);
  Refresh();
}

void DicePanel::Refresh() {
  if (game_.RyonPanelState != StateOf(panel_)) {  // another game
    panel_ = RollPanelOf(game_.RyonPanelState);
    return StateChanged();
  }
  const QString caption = ToQt(HyperDriveCaption(game_));
  if (hyper_drive_->text() != caption) {
    hyper_drive_->setText(caption);
    hyper_drive_->setAccessibleName(QString(caption).remove('&'));
  }
  LayOut();
}

void DicePanel::LayOut() {
  const QRect frame = window()->frameGeometry();
  layout_ = LayOutPanel(panel_, {.Width = frame.width(),
                                 .Height = frame.height(),
                                 .InnerWidth = width(),
                                 .InnerHeight = height()});
  const auto place = [this](QPushButton& button, const std::optional<std::int32_t>& top) {
    button.setVisible(top.has_value());
    if (top) button.setGeometry(0, *top, width(), layout_.RyonCellHeight);
  };
  place(*hyper_drive_, layout_.HyperDriveTop);
  place(*random_roll_, layout_.RandomTop);
  cells_ = RollCells(game_, panel_, layout_);
  cell_ = std::min(cell_, cells_.size() - 1);
  TellCell();
  update();
}

void DicePanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  LayOut();
}

// --- Painting ------------------------------------------------------------------------------------

QFont DicePanel::CellFont() const {
  constexpr int kSmallest = 4;
  constexpr int kMargin = 6;
  const QString widest = ToQt(WidestPanelLabel(panel_.Display));
  QFont font = this->font();
  int size = std::max(layout_.RyonCellHeight - kMargin, kSmallest);
  for (; size > kSmallest; --size) {
    font.setPixelSize(size);
    if (QFontMetricsF(font).horizontalAdvance(widest) < layout_.RyonCellWidth - kMargin) break;
  }
  font.setPixelSize(size);
  return font;
}

void DicePanel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), kGround);
  painter.setRenderHint(QPainter::Antialiasing);
  if (panel_.RollCounter) {
    const QRectF strip(0, 0, 99, 14);
    constexpr int kCounterSize = 12;  // 9 points
    QFont font = this->font();
    font.setPixelSize(kCounterSize);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(strip.adjusted(4, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter,
                     ToQt(RollCounterText(game_)));
  }
  PaintCells(painter);
}

void DicePanel::PaintCells(QPainter& painter) const {
  painter.setFont(CellFont());
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const RollCell& cell = cells_[i];
    const QColor color = ColorOf(cell.Color);
    const QRectF box = RectOf(cell);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(box, kRound, kRound);
    painter.setBrush(Qt::NoBrush);
    if (cell.IsMarked) {
      // Light outside and dark inside, so that it is seen on every colour.
      painter.setPen(QPen(Qt::black, 1));
      painter.drawRoundedRect(box.adjusted(2.5, 2.5, -2.5, -2.5), kRound - 1, kRound - 1);
      painter.setPen(QPen(Qt::white, 2));
      painter.drawRoundedRect(box.adjusted(1, 1, -1, -1), kRound, kRound);
    }
    if (hasFocus() && i == cell_) {
      painter.setPen(QPen(InkOn(color), 1, Qt::DotLine));
      painter.drawRect(box.adjusted(4.5, 4.5, -4.5, -4.5));
    }
    painter.setPen(InkOn(color));
    painter.drawText(box, Qt::AlignCenter, ToQt(cell.Label));
  }
}

// --- Picking -------------------------------------------------------------------------------------

void DicePanel::Pick(QPoint at) {
  const bool picked = PickOnPanel(game_, panel_, layout_, at.x(), at.y());
  LayOut();
  if (!picked) return;
  repaint();                              // the new dice are marked before they roll
  const QPointer<DicePanel> panel(this);  // the player may close it while the dice roll
  RollPickedDice(game_);
  if (panel) Refresh();
}

void DicePanel::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton) return;  // opens the menu
  const QPoint at = event->position().toPoint();
  const auto under = std::find_if(cells_.begin(), cells_.end(),
                                  [&](const RollCell& cell) { return RectOf(cell).contains(at); });
  if (under != cells_.end()) cell_ = static_cast<std::size_t>(under - cells_.begin());
  Pick(at);
}

void DicePanel::contextMenuEvent(QContextMenuEvent* event) {
  menu_.popup(event->globalPos());
}

void DicePanel::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Up:
    case Qt::Key_Down:
      return Walk(event->key());
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return Pick(RectOf(cells_[cell_]).center().toPoint());
    default:
      QWidget::keyPressEvent(event);
  }
}

// To the nearest cell on that side; what lies straight ahead is nearer than what lies aslant.
void DicePanel::Walk(int key) {
  const bool sideways = key == Qt::Key_Left || key == Qt::Key_Right;
  const int sign = key == Qt::Key_Left || key == Qt::Key_Up ? -1 : 1;
  const QPointF from = RectOf(cells_[cell_]).center();
  double nearest = std::numeric_limits<double>::max();
  std::size_t next = cell_;
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const QPointF way = RectOf(cells_[i]).center() - from;
    const double ahead = sign * (sideways ? way.x() : way.y());
    const double aslant = std::abs(sideways ? way.y() : way.x());
    if (ahead <= 1 || ahead + 3 * aslant >= nearest) continue;
    nearest = ahead + 3 * aslant;
    next = i;
  }
  cell_ = next;
  TellCell();
  update();
}

void DicePanel::TellCell() {
  setAccessibleDescription(ToQt(cells_[cell_].Label));
}

}  // namespace feltmaster
