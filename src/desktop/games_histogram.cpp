#include "desktop/games_histogram.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>
#include <cmath>

#include "base/number_format.h"
#include "desktop/ink.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"
#include "view/figure.h"

namespace feltmaster {

namespace {

constexpr double kPointerHeight = 11;
constexpr double kPointerHalf = 6;

}  // namespace

GamesHistogramView::GamesHistogramView(QWidget* parent, Game& game) : QWidget(parent), game_(game) {
  setObjectName("picHistogram");
  setAccessibleName("Histogram of the games");
  setFocusPolicy(Qt::StrongFocus);
  setContextMenuPolicy(Qt::PreventContextMenu);  // the right button drags
}

void GamesHistogramView::Show(GamesAnalysis* analysis, const QString& text) {
  analysis_ = analysis;
  text_ = text;
  setAccessibleDescription(text);
  update();
}

QSize GamesHistogramView::sizeHint() const {
  return {kHistogramColumns + 2, kHistogramHeight + static_cast<int>(kPointerHeight) + 4};
}
QSize GamesHistogramView::minimumSizeHint() const {
  return sizeHint() / 2;
}

QRectF GamesHistogramView::Plot() const {
  return QRectF(rect()).adjusted(1, 1, -1, -kPointerHeight - 3);
}

QPointF GamesHistogramView::PlaceOf(int column) const {
  const QRectF plot = Plot();
  return {plot.left() + (column + 0.5) * plot.width() / kHistogramColumns, plot.center().y()};
}

int GamesHistogramView::ColumnAt(double x) const {
  const QRectF plot = Plot();
  const double column = std::floor((x - plot.left()) * kHistogramColumns / plot.width());
  return static_cast<int>(std::clamp(column, 0.0, kHistogramColumns - 1.0));
}

// ---- Painting -----------------------------------------------------------------------------------

void GamesHistogramView::PaintHistogram(QPainter& painter) const {
  const QRectF plot = Plot();
  const GamesHistogram picture = PaintGamesHistogram(game_, *analysis_);
  const double across = plot.width() / kHistogramColumns;
  const double down = plot.height() / kHistogramHeight;
  // Boxes end on whole pixels, so that neighbours do not shine through.
  const auto scaled = [&](const HistogramBox& box) {
    const double left = std::round(plot.left() + box.left * across);
    const double right = std::round(plot.left() + box.right * across);
    const double top = plot.top() + box.top * down;
    return QRectF(left, top, std::max(1.0, right - left), plot.bottom() - top);
  };
  const QColor ground = ColorOf(kHistogramGround);
  painter.fillRect(plot, ground);
  painter.fillRect(plot, QBrush(Mix(ground, Qt::black, 0.25), Qt::DiagCrossPattern));
  for (const HistogramBox& box : picture.range) painter.fillRect(scaled(box), Qt::black);
  for (const HistogramLine& mark : picture.marks) {
    painter.fillRect(scaled({mark.x, 0, mark.x + 1, kHistogramHeight}), InkColor(mark.color));
  }
  const QColor bar = InkColor(kHistogramBarColor);
  for (const HistogramBox& box : picture.bars) {
    QRectF place = scaled(box);
    if (place.width() >= 6) place.adjust(0, 0, -1, 0);
    // Even one game in a long log is seen.
    if (place.height() < 1) place.setTop(place.bottom() - 1);
    painter.fillRect(place, bar);
  }
  const QString word = "Mean";
  const double width = fontMetrics().horizontalAdvance(word);
  const double left = std::clamp(PlaceOf(picture.mean).x() - width / 2, plot.left() + 2,
                                 std::max(plot.left() + 2, plot.right() - width - 2));
  const QRectF label(left - 3, plot.top() + 1, width + 6, fontMetrics().height());
  painter.fillRect(label, WithAlpha(Qt::black, 150));
  painter.setPen(Qt::white);
  painter.drawText(label, Qt::AlignCenter, word);
}

void GamesHistogramView::PaintPointer(QPainter& painter, int pointer) const {
  const QRectF plot = Plot();
  const double x =
      PlaceOf(static_cast<int>(std::lround(game_.GamesPointers[static_cast<std::size_t>(pointer)])))
          .x();
  const double top = plot.bottom() + 2;
  const QPolygonF shape({QPointF(x, top), QPointF(x + kPointerHalf, top + kPointerHeight),
                         QPointF(x - kPointerHalf, top + kPointerHeight)});
  const bool held = hasFocus() && game_.GamesPointerHeld == pointer;
  painter.setPen(QPen(palette().color(QPalette::WindowText), 1));
  painter.setBrush(held ? palette().color(QPalette::Highlight) : palette().color(QPalette::Button));
  painter.drawPolygon(shape);
  painter.setPen(QPen(held ? QColor(Qt::white) : QColor(0xB0B0B0), 1, Qt::DotLine));
  painter.drawLine(QPointF(x, plot.top()), QPointF(x, plot.bottom() - 1));
}

void GamesHistogramView::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const QRectF plot = Plot();
  if (IsEmpty()) {
    painter.fillRect(plot, Qt::black);
    painter.setPen(QColor(0xC8C8C8));
    painter.drawText(plot.adjusted(8, 8, -8, -8),
                     static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap), text_);
  } else {
    PaintHistogram(painter);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const int pointer : {0, 1}) PaintPointer(painter, pointer);
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
  painter.setBrush(Qt::NoBrush);
  painter.setPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Mid));
  painter.drawRect(plot.adjusted(-1, -1, 0, 0));
}

// ---- Mouse and keys -----------------------------------------------------------------------------

// The bar under the pointer in words.
bool GamesHistogramView::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto* const help = static_cast<QHelpEvent*>(event);
  QString text;
  if (!IsEmpty() && Plot().contains(help->pos())) {
    const GamesBar bar = BarAt(*analysis_, ColumnAt(help->pos().x()), BarWidth(game_));
    if (bar.total.games > 0) {
      const std::string low = FormatMoney(bar.total.lowest);
      const std::string high = FormatMoney(bar.total.highest);
      text = ToQt((low == high ? low : low + " to " + high) + ":  " +
                  CountText(std::int64_t{bar.total.games}) +
                  (bar.total.games == 1 ? " game" : " games"));
    }
  }
  QToolTip::showText(help->globalPos(), text, this);
  return true;
}

void GamesHistogramView::DragPointers(const QMouseEvent& event) {
  if (IsEmpty()) return;
  constexpr Qt::MouseButton kButtonOf[] = {Qt::LeftButton, Qt::RightButton};
  const int column = ColumnAt(event.position().x());
  bool moved = false;
  for (const int pointer : {0, 1}) {
    if (!event.buttons().testFlag(kButtonOf[pointer])) continue;
    MoveGamesPointer(game_, *analysis_, pointer, column);
    moved = true;
  }
  if (!moved) return;
  update();
  RangeMoved();
}

void GamesHistogramView::mousePressEvent(QMouseEvent* event) {
  DragPointers(*event);
}

void GamesHistogramView::mouseMoveEvent(QMouseEvent* event) {
  DragPointers(*event);
}

void GamesHistogramView::keyPressEvent(QKeyEvent* event) {
  const int step = event->key() == Qt::Key_Left ? -1 : event->key() == Qt::Key_Right ? 1 : 0;
  if (step == 0 || IsEmpty()) return QWidget::keyPressEvent(event);
  StepGamesPointer(game_, *analysis_, step, event->modifiers().testFlag(Qt::ShiftModifier));
  update();
  RangeMoved();
}

void GamesHistogramView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  update();
}

void GamesHistogramView::focusOutEvent(QFocusEvent* event) {
  QWidget::focusOutEvent(event);
  update();
}

}  // namespace feltmaster
