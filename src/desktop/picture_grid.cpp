#include "desktop/picture_grid.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QStylePainter>
#include <algorithm>
#include <optional>
#include <utility>

namespace feltmaster {

namespace {

constexpr int kFrame = 4;

bool ClosesList(int key) {
  return key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Space ||
         key == Qt::Key_Escape;
}

}  // namespace

PictureGrid::PictureGrid(PictureGridTraits traits, QWidget* parent)
    : QWidget(parent), traits_(std::move(traits)) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(sizeHint() / 2);
}

QSize PictureGrid::sizeHint() const {
  return {traits_.columns * traits_.cell.width() + 2, traits_.rows * traits_.cell.height() + 2};
}

QRectF PictureGrid::CellRect(int cell) const {
  const double cell_width = (width() - 2.0) / traits_.columns;
  const double cell_height = (height() - 2.0) / traits_.rows;
  return {1 + cell % traits_.columns * cell_width, 1 + cell / traits_.columns * cell_height,
          cell_width, cell_height};
}

void PictureGrid::SetChosen(int cell) {
  if (chosen_ == cell) return;
  chosen_ = cell;
  update();
}

void PictureGrid::Choose(int cell) {
  if (cell == chosen_) return;
  SetChosen(cell);
  if (OnChosen) OnChosen(cell);
}

void PictureGrid::ChooseAt(QPointF place) {
  const QRectF first = CellRect(0);
  const int column = static_cast<int>((place.x() - 1) / first.width());
  const int row = static_cast<int>((place.y() - 1) / first.height());
  Choose(std::clamp(row, 0, traits_.rows - 1) * traits_.columns +
         std::clamp(column, 0, traits_.columns - 1));
}

void PictureGrid::mousePressEvent(QMouseEvent* event) {
  ChooseAt(event->position());
}
void PictureGrid::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons().testFlag(Qt::LeftButton)) ChooseAt(event->position());
}
void PictureGrid::mouseReleaseEvent(QMouseEvent*) {
  if (OnDone) OnDone();
}

void PictureGrid::keyPressEvent(QKeyEvent* event) {
  const auto step = [&]() -> std::optional<int> {
    switch (event->key()) {
      case Qt::Key_Left:
        return -1;
      case Qt::Key_Right:
        return 1;
      case Qt::Key_Up:
        return -traits_.columns;
      case Qt::Key_Down:
        return traits_.columns;
      default:
        return {};
    }
  }();
  if (step) {
    const int cells = traits_.columns * traits_.rows;
    Choose(chosen_ < 0 ? 0 : (chosen_ + *step + cells) % cells);
  } else if (OnDone && ClosesList(event->key())) {
    OnDone();
  } else {
    QWidget::keyPressEvent(event);
  }
}

void PictureGrid::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (windowType() == Qt::Popup) {
    painter.fillRect(rect(), palette().base());
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
  }
  for (int cell = 0; cell < traits_.columns * traits_.rows; ++cell) {
    painter.save();
    traits_.paint(painter, CellRect(cell), cell);
    painter.restore();
  }
  if (chosen_ < 0) return;
  const QRectF frame = CellRect(chosen_).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(palette().color(QPalette::Base), 4));
  painter.drawRect(frame);
  painter.setPen(
      QPen(palette().color(QPalette::Highlight), 2, hasFocus() ? Qt::SolidLine : Qt::DotLine));
  painter.drawRect(frame);
}

DesignPicker::DesignPicker(PictureGridTraits designs, const char* list_name)
    : designs_(designs), list_(std::move(designs), this) {
  setFocusPolicy(Qt::StrongFocus);
  list_.setWindowFlag(Qt::Popup);
  list_.setObjectName(QString::fromLatin1(list_name));
  list_.OnChosen = [this](int design) {
    update();
    if (OnChosen) OnChosen(design);
  };
  list_.OnDone = [this] {
    list_.hide();
    setFocus();
  };
}

void DesignPicker::SetDesign(int design) {
  list_.SetChosen(design);
  list_.setAccessibleName(accessibleName());
  update();
}

QSize DesignPicker::sizeHint() const {
  QStyleOptionComboBox option;
  option.initFrom(this);
  return style()
      ->sizeFromContents(QStyle::CT_ComboBox, &option, designs_.cell, this)
      .expandedTo(designs_.cell + QSize(2 * kFrame, 2 * kFrame));
}

void DesignPicker::DropDown() {
  list_.resize(list_.sizeHint());
  list_.move(mapToGlobal(QPoint(0, height())));
  list_.show();
  list_.setFocus();
}

void DesignPicker::mousePressEvent(QMouseEvent*) {
  setFocus();
  DropDown();
}

void DesignPicker::keyPressEvent(QKeyEvent* event) {
  const int designs = designs_.columns * designs_.rows;
  const int step = event->key() == Qt::Key_Down ? 1 : event->key() == Qt::Key_Up ? designs - 1 : 0;
  if (step != 0) {
    const int next = (list_.Chosen() + step) % designs;
    SetDesign(next);
    if (OnChosen) OnChosen(next);
  } else if (event->key() != Qt::Key_Escape && ClosesList(event->key())) {
    DropDown();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

void DesignPicker::paintEvent(QPaintEvent*) {
  QStylePainter painter(this);
  QStyleOptionComboBox option;
  option.initFrom(this);
  option.subControls = QStyle::SC_ComboBoxFrame | QStyle::SC_ComboBoxArrow;
  painter.drawComplexControl(QStyle::CC_ComboBox, option);
  const QRect room =
      style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
  painter.setRenderHint(QPainter::Antialiasing);
  designs_.paint(painter, room, std::max(list_.Chosen(), 0));
  if (!hasFocus()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(this);
  focus.rect = room;
  painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
}

}  // namespace feltmaster
