#include "desktop/painted_list.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalBlocker>
#include <QStyleOptionFocusRect>
#include <QStyleOptionHeader>
#include <QToolTip>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "desktop/dialog_tools.h"

namespace feltmaster {

namespace {

constexpr int kUsualRows = 16;
constexpr double kOpenColumn = 50;  // letters, of a column that takes what is left
constexpr int kFewestRows = 4;
constexpr int kScrollEvery = 60;  // milliseconds, while the pointer is held beside the list
constexpr int kNotch = 120;       // of a wheel
constexpr int kRowsPerNotch = 3;

// The colours of the grounds: white on blue, and cyan, on light and dark palettes.
constexpr QRgb kCurrentGround = 0xFF1A4FC4;
constexpr QRgb kSelectedOnLight = 0xFFA9E8F0;
constexpr QRgb kSelectedOnDark = 0xFF0F5A66;

bool IsDark(const QPalette& palette) {
  return palette.color(QPalette::Base).lightness() < 128;
}

}  // namespace

PaintedList::PaintedList(QWidget* parent, const char* name, const char* bar_name,
                         std::vector<ListColumn> columns)
    : QWidget(parent),
      columns_(std::move(columns)),
      lefts_(columns_.size() + 1),
      bar_(Qt::Vertical, this) {
  setObjectName(QString::fromLatin1(name));
  setFocusPolicy(Qt::StrongFocus);
  bar_.setObjectName(QString::fromLatin1(bar_name));
  bar_.setFocusPolicy(Qt::NoFocus);
  bar_.setAccessibleName(tr("Place in the list"));
  bar_.setCursor(Qt::ArrowCursor);
  connect(&bar_, &QScrollBar::actionTriggered, this, [this](int action) {
    const int page = std::max(RowsShown(), 1);
    switch (action) {
      case QAbstractSlider::SliderSingleStepAdd:
        return StepBy(1);
      case QAbstractSlider::SliderSingleStepSub:
        return StepBy(-1);
      case QAbstractSlider::SliderPageStepAdd:
        return StepBy(page);
      case QAbstractSlider::SliderPageStepSub:
        return StepBy(-page);
      default:
        return GoTo(bar_.sliderPosition());
    }
  });
  scroll_along_.setInterval(kScrollEvery);
  connect(&scroll_along_, &QTimer::timeout, this, [this] { ScrollAlong(); });
}

void PaintedList::SetHeader(int column, const QString& header) {
  QString& shown = columns_[static_cast<std::size_t>(column)].header;
  if (shown == header) return;
  shown = header;
  update();
}

void PaintedList::Show(std::vector<ListRow> rows) {
  if (rows == rows_) return;
  rows_ = std::move(rows);
  const auto here = std::ranges::find_if(rows_, [](const ListRow& row) {
    return row.framed || row.ground == ListRow::Ground::kCurrent;
  });
  QString spoken;
  if (here != rows_.end()) {
    for (const ListCell& cell : here->cells) spoken += cell.text + ' ';
  }
  setAccessibleDescription(spoken);
  update();
}

int PaintedList::RowHeight() const {
  return fontMetrics().height() + 4;
}
int PaintedList::HeaderHeight() const {
  return fontMetrics().height() + 8;
}
int PaintedList::HeightFor(int rows) const {
  return HeaderHeight() + rows * RowHeight() + 2;
}
int PaintedList::RowsShown() const {
  return std::max(0, (height() - HeaderHeight() - 1) / RowHeight());
}
QRect PaintedList::ListArea() const {
  return rect().adjusted(0, 0, -bar_.width(), 0);
}

void PaintedList::ShowScroll(int first, int last, int place) {
  const QSignalBlocker quiet(bar_);
  bar_.setRange(first, std::max(first, last));
  bar_.setPageStep(std::max(1, RowsShown()));
  if (!bar_.isSliderDown()) bar_.setSliderPosition(place);
}

void PaintedList::Layout() {
  const int bar = bar_.sizeHint().width();
  bar_.setGeometry(width() - bar, 0, bar, height());
  const int room = ListArea().width();
  int fixed = 0;
  int open = 0;
  for (const ListColumn& column : columns_) {
    fixed += Letters(*this, column.letters);
    if (column.letters <= 0) ++open;
  }
  lefts_ = {0};
  for (const ListColumn& column : columns_) {
    int wide = Letters(*this, column.letters);
    if (open == 0) wide = wide * room / std::max(fixed, 1);
    if (column.letters <= 0) wide = std::max(0, room - fixed) / open;
    lefts_.push_back(lefts_.back() + wide);
  }
  lefts_.back() = room;
}

QRect PaintedList::CellRect(const ListPlace& place) const {
  const auto column = static_cast<std::size_t>(place.column);
  return {lefts_[column], HeaderHeight() + place.row * RowHeight(),
          lefts_[column + 1] - lefts_[column], RowHeight()};
}

QRect PaintedList::TextRect(const ListPlace& place) const {
  const int margin = Letters(*this, 0.8);
  return CellRect(place).adjusted(margin, 0, -margin, 0);
}

ListPlace PaintedList::PlaceAt(const QPoint& point) const {
  ListPlace place;
  const int below = point.y() - HeaderHeight();
  place.row = below >= 0 ? below / RowHeight() : -1;
  const auto last = static_cast<int>(columns_.size()) - 1;
  while (place.column < last && point.x() >= lefts_[static_cast<std::size_t>(place.column) + 1]) {
    ++place.column;
  }
  return place;
}

// ---- Painting -----------------------------------------------------------------------------------

void PaintedList::PaintRow(QPainter& painter, int row) const {
  const ListRow& shown = rows_[static_cast<std::size_t>(row)];
  const bool current = shown.ground == ListRow::Ground::kCurrent;
  const QRect line(0, HeaderHeight() + row * RowHeight(), ListArea().width(), RowHeight());
  if (current) {
    painter.fillRect(line, QColor(kCurrentGround));
  } else if (shown.ground == ListRow::Ground::kSelected) {
    painter.fillRect(line, QColor(IsDark(palette()) ? kSelectedOnDark : kSelectedOnLight));
  }
  for (int column = 0; column < static_cast<int>(shown.cells.size()); ++column) {
    const ListCell& cell = shown.cells[static_cast<std::size_t>(column)];
    QColor ink = current ? QColor(Qt::white) : palette().color(QPalette::Text);
    if (cell.ink.isValid()) ink = current ? cell.ink.lighter(180) : cell.ink;
    const QRect room = TextRect({row, column});
    painter.setPen(ink);
    painter.drawText(room, columns_[static_cast<std::size_t>(column)].align | Qt::AlignVCenter,
                     fontMetrics().elidedText(cell.text, Qt::ElideRight, room.width()));
  }
  if (shown.framed) {
    painter.setPen(QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid), 1,
                        hasFocus() ? Qt::SolidLine : Qt::DotLine));
    painter.drawRect(line.adjusted(0, 0, -1, -1));
  }
}

void PaintedList::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRect area = ListArea();
  painter.fillRect(area, palette().color(QPalette::Base));
  for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
    const ListColumn& shown = columns_[static_cast<std::size_t>(column)];
    QStyleOptionHeader header;
    header.initFrom(this);
    header.state &= ~QStyle::State_HasFocus;
    const QRect cell = CellRect({0, column});
    header.rect = QRect(cell.left(), 0, cell.width(), HeaderHeight());
    header.section = column;
    const QRect room = TextRect({0, column});
    header.text = fontMetrics().elidedText(shown.header, Qt::ElideRight, room.width());
    if (shown.align.testFlag(Qt::AlignRight)) header.text += ' ';
    header.textAlignment = shown.align | Qt::AlignVCenter;
    style()->drawControl(QStyle::CE_Header, &header, &painter, this);
  }
  painter.setClipRect(area.adjusted(0, HeaderHeight(), 0, 0));
  for (int row = 0; row < static_cast<int>(rows_.size()); ++row) PaintRow(painter, row);
  painter.setClipping(false);
  painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
  painter.drawRect(area.adjusted(0, 0, -1, -1));
}

QSize PaintedList::sizeHint() const {
  double letters = 0;
  for (const ListColumn& column : columns_)
    letters += column.letters > 0 ? column.letters : kOpenColumn;
  return {Letters(*this, letters) + bar_.sizeHint().width(), HeightFor(kUsualRows)};
}

QSize PaintedList::minimumSizeHint() const {
  double letters = 0;
  for (const ListColumn& column : columns_) letters += column.letters > 0 ? column.letters : 12;
  return {Letters(*this, letters) + bar_.sizeHint().width(), HeightFor(kFewestRows)};
}

// ---- Events -------------------------------------------------------------------------------------

// A text that is cut is told whole.
bool PaintedList::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* const help = static_cast<QHelpEvent*>(event);
  const ListPlace place = PlaceAt(help->pos());
  QString text;
  if (place.row >= 0 && place.row < static_cast<int>(rows_.size())) {
    const std::vector<ListCell>& cells = rows_[static_cast<std::size_t>(place.row)].cells;
    const auto column = static_cast<std::size_t>(place.column);
    if (column < cells.size() &&
        fontMetrics().horizontalAdvance(cells[column].text) > TextRect(place).width()) {
      text = cells[column].text;
    }
  }
  QToolTip::showText(help->globalPos(), text, this);
  return true;
}

void PaintedList::resizeEvent(QResizeEvent*) {
  Layout();
  Resized();
}

void PaintedList::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::FontChange && event->type() != QEvent::StyleChange) return;
  Layout();
  updateGeometry();
  update();
}

void PaintedList::mousePressEvent(QMouseEvent* event) {
  pointer_ = event->position().toPoint();
  if (PlaceAt(pointer_).row >= 0) Pressed(PlaceAt(pointer_), *event);
}

void PaintedList::mouseDoubleClickEvent(QMouseEvent* event) {
  const ListPlace place = PlaceAt(event->position().toPoint());
  if (place.row >= 0 && event->button() == Qt::LeftButton) DoublePressed(place);
}

void PaintedList::mouseMoveEvent(QMouseEvent* event) {
  pointer_ = event->position().toPoint();
  if (event->buttons() == Qt::NoButton) return;
  const bool beside = pointer_.y() < HeaderHeight() || pointer_.y() >= height();
  if (!beside) {
    scroll_along_.stop();
    Dragged(PlaceAt(pointer_));
  } else if (!scroll_along_.isActive()) {
    scroll_along_.start();
  }
}

void PaintedList::ScrollAlong() {
  const bool up = pointer_.y() < HeaderHeight();
  StepBy(up ? -1 : 1);
  Dragged({up ? 0 : RowsShown() - 1, 0});
}

void PaintedList::mouseReleaseEvent(QMouseEvent* event) {
  scroll_along_.stop();
  Released(PlaceAt(event->position().toPoint()));
}

void PaintedList::wheelEvent(QWheelEvent* event) {
  wheel_ += event->angleDelta().y() * kRowsPerNotch;
  const int rows = wheel_ / kNotch;
  wheel_ -= rows * kNotch;
  if (rows != 0) StepBy(-rows);
  event->accept();
}

void PaintedList::keyPressEvent(QKeyEvent* event) {
  if (KeyPressed(*event)) return;
  const int page = std::max(RowsShown(), 1);
  switch (event->key()) {
    case Qt::Key_Up:
      return StepBy(-1);
    case Qt::Key_Down:
      return StepBy(1);
    case Qt::Key_PageUp:
      return StepBy(-page);
    case Qt::Key_PageDown:
      return StepBy(page);
    case Qt::Key_Home:
      return GoTo(bar_.minimum());
    case Qt::Key_End:
      return GoTo(bar_.maximum());
    default:
      QWidget::keyPressEvent(event);
  }
}

void PaintedList::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void PaintedList::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace feltmaster
