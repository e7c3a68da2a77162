#include "desktop/bankroll_canvas.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/ink.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"

namespace feltmaster {

namespace {

constexpr int kScaleStep = 50;  // points of height between two labels of the scale
constexpr int kGridAlpha = 150;
constexpr double kLineWidth = 1.4;
constexpr const char* kWidestScale = "-99,999,999";

// From a place of the graph to one of the widget.
struct Scaling {
  QRectF place;

  double Column() const { return place.width() / kGraphRolls; }
  double X(double x) const { return place.left() + (x + 0.5) * Column(); }
  double Y(double y) const { return place.top() + y * place.height() / kGraphHeight; }
};

}  // namespace

BankrollCanvas::BankrollCanvas(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picGraph"));
  setAccessibleName(QStringLiteral("Bankroll graph"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void BankrollCanvas::Show(BankrollGraph graph) {
  graph_ = std::move(graph);
  update();
}

QRectF BankrollCanvas::GraphPlace() const {
  const QFontMetricsF metrics(font());
  const double side = metrics.horizontalAdvance(QString::fromLatin1(kWidestScale));
  const double line = metrics.height();
  const double right = graph_.reference_lines.empty() ? metrics.averageCharWidth() : side;
  return QRectF(rect()).adjusted(side, line * 1.3, -right, -line * 1.4);
}

QSize BankrollCanvas::sizeHint() const {
  const QFontMetrics metrics(font());
  const int sides = 2 * metrics.horizontalAdvance(QString::fromLatin1(kWidestScale));
  return {kGraphRolls + sides, kGraphHeight + 3 * metrics.height()};
}

QSize BankrollCanvas::minimumSizeHint() const {
  return sizeHint() / 2;
}

void BankrollCanvas::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().window());
  const QRectF place = GraphPlace();
  painter.save();
  painter.setClipRect(place);
  PaintGraph(painter, place);
  painter.restore();
  painter.setPen(palette().color(QPalette::Mid));
  painter.drawRect(place);
  PaintScale(painter, place);
  PaintReferenceLabels(painter, place);
}

void BankrollCanvas::PaintGraph(QPainter& painter, const QRectF& place) const {
  const Scaling to{place};
  painter.fillRect(place, InkColor(graph_.background));
  const auto draw = [&](const GraphStroke& stroke, int alpha = 255) {
    painter.setPen(QPen(WithAlpha(InkColor(stroke.color), alpha), 1));
    painter.drawLine(QPointF(to.X(stroke.x1), to.Y(stroke.y1)),
                     QPointF(to.X(stroke.x2), to.Y(stroke.y2)));
  };
  for (const GraphStroke& line : graph_.grid) draw(line, kGridAlpha);

  // A fill is as broad as its roll, at least a pixel, so that solid is solid in every size.
  const double broad = std::max(to.Column(), 1.0);
  for (const GraphColumn& column : graph_.columns) {
    if (!column.fill) continue;
    const auto [top, bottom] = std::minmax(column.fill->y1, column.fill->y2);
    const double high = std::max(to.Y(bottom) - to.Y(top), 1.0);
    painter.fillRect(QRectF(to.X(column.fill->x1) - broad / 2, to.Y(top), broad, high),
                     InkColor(column.fill->color));
  }

  QPolygonF line;
  for (const GraphColumn& column : graph_.columns) {
    if (line.isEmpty()) line << QPointF(to.X(column.line.x1), to.Y(column.line.y1));
    line << QPointF(to.X(column.line.x2), to.Y(column.line.y2));
  }
  if (!line.isEmpty()) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(InkColor(graph_.columns.front().line.color), kLineWidth, Qt::SolidLine,
                        Qt::RoundCap, Qt::BevelJoin));
    painter.drawPolyline(line);
    painter.setRenderHint(QPainter::Antialiasing, false);
  }
  for (const GraphStroke& stroke : graph_.reference_lines) draw(stroke);
}

void BankrollCanvas::PaintScale(QPainter& painter, const QRectF& place) const {
  const Scaling to{place};
  const double line = QFontMetricsF(font()).height();
  const double gap = QFontMetricsF(font()).averageCharWidth();
  painter.setPen(palette().color(QPalette::WindowText));
  for (std::size_t i = 0; i < graph_.scale_labels.size(); ++i) {
    const double y = to.Y(static_cast<double>(i) * kScaleStep);
    painter.drawText(QRectF(0, y - line / 2, place.left() - gap, line),
                     Qt::AlignRight | Qt::AlignVCenter, ToQt(graph_.scale_labels[i]));
  }
  const QRectF below(place.left(), place.bottom() + line * 0.2, place.width(), line);
  painter.drawText(below, Qt::AlignLeft, ToQt(graph_.rolls_left));
  painter.drawText(below, Qt::AlignRight, ToQt(graph_.rolls_right));
  QString middle = QStringLiteral("ROLLS");
  if (!graph_.average_caption.empty()) middle += " - " + ToQt(graph_.average_caption);
  painter.drawText(below, Qt::AlignHCenter, middle);
}

void BankrollCanvas::PaintReferenceLabels(QPainter& painter, const QRectF& place) const {
  const Scaling to{place};
  const QFontMetricsF metrics(font());
  const double gap = metrics.averageCharWidth() / 2;
  double last = -metrics.height();  // where the label before stands
  std::size_t stroke = 0;
  for (const ReferenceLabel& label : graph_.reference_labels) {
    if (label.roll.empty()) continue;
    const GraphStroke& upright = graph_.reference_lines[stroke++];
    const QString roll = ToQt(label.roll);
    const double width = metrics.horizontalAdvance(roll);
    const double x = std::clamp(to.X(upright.x1) - width / 2, 0.0, this->width() - width);
    painter.drawText(QPointF(x, place.top() - gap), roll);
    const bool has_level = stroke < graph_.reference_lines.size() &&
                           graph_.reference_lines[stroke].y1 == graph_.reference_lines[stroke].y2;
    if (!has_level) continue;
    double y = to.Y(graph_.reference_lines[stroke++].y1) + metrics.ascent() / 2;
    if (std::fabs(y - last) < metrics.height()) {
      y = last + (y < last ? -metrics.height() : metrics.height());
    }
    painter.drawText(QPointF(place.right() + gap, y), ToQt(label.amount));
    last = y;
  }
}

// ---- The reference lines ----------------------------------------------------------------------

void BankrollCanvas::PlaceLine(const QMouseEvent& event) {
  const bool left = event.buttons() & Qt::LeftButton;
  const bool right = event.buttons() & Qt::RightButton;
  if (!Placed || left == right) return;
  const QRectF place = GraphPlace();
  const double x = (event.position().x() - place.left()) * kGraphRolls / place.width();
  Placed(left ? 1 : 2, std::clamp(static_cast<int>(std::floor(x)), 0, kGraphRolls - 1),
         event.modifiers());
}

void BankrollCanvas::mousePressEvent(QMouseEvent* event) {
  PlaceLine(*event);
}

void BankrollCanvas::mouseMoveEvent(QMouseEvent* event) {
  PlaceLine(*event);
}

}  // namespace feltmaster
