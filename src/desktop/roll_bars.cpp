#include "desktop/roll_bars.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>

#include "desktop/ink.h"
#include "desktop/paint_tools.h"
#include "desktop/qt_text.h"
#include "view/figure.h"

namespace feltmaster {

namespace {

constexpr std::size_t kProbableRow = 3;
constexpr int kCellLetters = 7;    // the least width of a column
constexpr double kLeastGraph = 8;  // its least height, in lines of text
constexpr double kUsualGraph = 16;
constexpr double kGroupShare = 0.74;  // of a column, for its two bars

}  // namespace

// Where things stand, in pixels of the widget.
struct RollBars::Places {
  double line = 0;      // height of a line of the table
  double captions = 0;  // width of the captions
  double column = 0;    // width of a column
  QRectF graph;         // of the bars
};

RollBars::RollBars(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("picRollTotals"));
  setAccessibleName(QStringLiteral("Roll totals"));
}

void RollBars::Show(Game& game, const RollTotals& totals) {
  const QSize least = minimumSizeHint();
  totals_ = totals;
  rows_ = RollTotalRows(game);
  rows_.erase(rows_.begin());  // the total, which stands above
  colors_.clear();
  for (std::size_t bar = 0; bar < totals.bars.size(); ++bar) {
    colors_.push_back(RollTotalsColorsOf(game, bar));
  }
  background_ = game.RollTotalsBackColor;
  if (minimumSizeHint() != least) updateGeometry();
  update();
}

RollBars::Places RollBars::PlacesNow() const {
  const QFontMetricsF metrics(font());
  Places at;
  at.line = metrics.height() * 1.25;
  for (const Row& row : rows_) {
    at.captions = std::max(at.captions, metrics.horizontalAdvance(ToQt(row[0])));
  }
  at.captions += metrics.averageCharWidth() * 2;
  const auto bars = static_cast<double>(std::max<std::size_t>(totals_.bars.size(), 1));
  at.column = (width() - at.captions) / bars;
  const double top = at.line * (static_cast<double>(rows_.size()) + 0.6);
  at.graph = QRectF(at.captions, top, width() - at.captions, height() - top - at.line * 0.8);
  return at;
}

QSize RollBars::minimumSizeHint() const {
  const QFontMetricsF metrics(font());
  double cell = metrics.averageCharWidth() * kCellLetters;
  double captions = 0;
  for (const Row& row : rows_) {
    captions = std::max(captions, metrics.horizontalAdvance(ToQt(row[0])));
    for (std::size_t i = 1; i < row.size(); ++i) {
      cell = std::max(cell, metrics.horizontalAdvance(ToQt(row[i])) + metrics.averageCharWidth());
    }
  }
  const double lines = static_cast<double>(rows_.size()) + kLeastGraph;
  return QSizeF(captions + cell * static_cast<double>(totals_.bars.size()),
                metrics.height() * 1.25 * lines)
      .toSize();
}

QSize RollBars::sizeHint() const {
  const double more = (kUsualGraph - kLeastGraph) * QFontMetricsF(font()).height() * 1.25;
  return minimumSizeHint() + QSize(0, static_cast<int>(more));
}

void RollBars::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(rect(), palette().base());
  if (rows_.empty()) return;
  const Places at = PlacesNow();
  PaintBars(painter, at);

  const auto cell = [&](std::size_t row, double left, double width) {
    return QRectF(left, static_cast<double>(row) * at.line, width, at.line);
  };
  painter.setPen(palette().color(QPalette::Text));
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    const QRectF line = cell(row, 0, width());
    if (row % 2 == 1) painter.fillRect(line, palette().alternateBase());
    for (std::size_t i = 1; i < rows_[row].size(); ++i) {
      painter.drawText(cell(row, at.captions + at.column * static_cast<double>(i - 1), at.column),
                       Qt::AlignCenter, ToQt(rows_[row][i]));
    }
  }
  // A picture of the whole begins further left than what is in sight.
  PaintAxis(painter, at, std::min(std::max(-x(), 0), event->rect().left()));
}

void RollBars::PaintBars(QPainter& painter, const Places& at) const {
  const QColor background = InkColor(background_);
  painter.fillRect(at.graph, background);
  const QColor ink = background.lightness() < 140 ? Qt::white : Qt::black;
  painter.setPen(QPen(WithAlpha(ink, 60), 1));
  for (std::size_t i = 1; i + 1 < totals_.axis.size(); ++i) {
    const double y = at.graph.bottom() - at.graph.height() * static_cast<double>(i) / 4;
    painter.drawLine(QPointF(at.graph.left(), y), QPointF(at.graph.right(), y));
  }
  const double width = at.column * kGroupShare / 2;
  for (std::size_t i = 0; i < totals_.bars.size(); ++i) {
    const double middle = at.graph.left() + at.column * (static_cast<double>(i) + 0.5);
    const auto bar = [&](double left, double share, const QBrush& brush) {
      const double high = at.graph.height() * share;
      painter.setBrush(brush);
      painter.drawRect(QRectF(left, at.graph.bottom() - high, width, high));
    };
    painter.setPen(QPen(ink, 1));
    bar(middle - width, totals_.bars[i].probable_height, ProbableColor(i));
    bar(middle, totals_.bars[i].actual_height, InkColor(colors_[i].actual));
  }
}

// A tint where both bars have the same colour.
QColor RollBars::ProbableColor(std::size_t bar) const {
  const QColor color = InkColor(colors_[bar].probable);
  if (colors_[bar].probable != colors_[bar].actual) return color;
  return Mix(color, InkColor(background_), 0.65);
}

// The captions and the scale.
void RollBars::PaintAxis(QPainter& painter, const Places& at, double left) const {
  painter.fillRect(QRectF(left, 0, at.captions, height()), palette().base());
  painter.setPen(palette().color(QPalette::Text));
  const double gap = QFontMetricsF(font()).averageCharWidth();
  const QRectF line(left + gap / 2, 0, at.captions - gap, at.line);
  for (std::size_t row = 0; row < rows_.size(); ++row) {
    const QRectF box = line.translated(0, static_cast<double>(row) * at.line);
    if (row % 2 == 1) {
      painter.fillRect(QRectF(left, box.top(), at.captions, at.line), palette().alternateBase());
    }
    painter.drawText(box, Qt::AlignLeft | Qt::AlignVCenter, ToQt(rows_[row][0]));
  }
  // The captions of the percentages tell the bars apart.
  const auto swatch = [&](std::size_t row, const QColor& color) {
    const QPointF middle(line.right() - at.line / 2, (static_cast<double>(row) + 0.5) * at.line);
    painter.fillRect(SquareAround(middle, at.line * 0.28), painter.pen().color());
    painter.fillRect(SquareAround(middle, at.line * 0.28 - 1), color);
  };
  swatch(kProbableRow, ProbableColor(0));
  swatch(kProbableRow + 1, InkColor(colors_[0].actual));
  for (std::size_t i = 0; i < totals_.axis.size(); ++i) {
    const double y = at.graph.bottom() - at.graph.height() * static_cast<double>(i) / 4;
    painter.drawText(line.translated(0, y - at.line / 2), Qt::AlignRight | Qt::AlignVCenter,
                     QString::number(totals_.axis[i]) + QStringLiteral(" %"));
  }
}

}  // namespace feltmaster
