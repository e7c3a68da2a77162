#include "desktop/paint_tools.h"

#include <QFontMetricsF>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <numbers>

namespace feltmaster {

namespace {

// Letters are taken at this size and scaled, so that hinting for a small size never bends them.
constexpr int kMasterSize = 128;

QFont Face(const QStringList& families, QFont::Weight weight, double size) {
  QFont font;
  font.setFamilies(families);
  font.setWeight(weight);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setPointSizeF(size);  // read back by TextShape alone, as pixels of the picture
  return font;
}

double Radians(double degrees) {
  return degrees * std::numbers::pi / 180;
}

struct Letters {
  QFont master;
  QFontMetricsF metrics;
  double scale;

  explicit Letters(const QFont& font)
      : master(AtMasterSize(font)), metrics(master), scale(font.pointSizeF() / kMasterSize) {}

  double Advance(QChar letter) const { return metrics.horizontalAdvance(letter) * scale; }
  QPainterPath Shape(QChar letter) const {
    QPainterPath shape;
    shape.addText(0, 0, master, letter);
    return QTransform::fromScale(scale, scale).map(shape);
  }

 private:
  static QFont AtMasterSize(QFont font) {
    font.setPixelSize(kMasterSize);
    return font;
  }
};

}  // namespace

QColor ColorOf(std::int32_t blue_green_red) {
  return QColor(blue_green_red & 0xFF, blue_green_red >> 8 & 0xFF, blue_green_red >> 16 & 0xFF);
}

QColor Mix(const QColor& from, const QColor& to, double part) {
  const auto mixed = [part](int a, int b) {
    return std::clamp(static_cast<int>(std::lround(a + (b - a) * part)), 0, 255);
  };
  return QColor(mixed(from.red(), to.red()), mixed(from.green(), to.green()),
                mixed(from.blue(), to.blue()), mixed(from.alpha(), to.alpha()));
}

QColor WithAlpha(QColor color, int alpha) {
  color.setAlpha(alpha);
  return color;
}

double Contrast(const QColor& a, const QColor& b) {
  const auto light = [](const QColor& color) {
    const auto linear = [](double channel) {
      return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) +
           0.0722 * linear(color.blueF()) + 0.05;
  };
  const double first = light(a);
  const double second = light(b);
  return std::max(first, second) / std::min(first, second);
}

QRectF SquareAround(QPointF middle, double half) {
  return QRectF(middle.x() - half, middle.y() - half, 2 * half, 2 * half);
}

QFont Lettering(double size) {
  return Face({"TeX Gyre Bonum", "DejaVu Serif Condensed", "serif"}, QFont::Bold, size);
}

QFont SmallPrint(double size) {
  return Face({"Roboto Condensed", "DejaVu Sans Condensed", "sans-serif"}, QFont::Bold, size);
}

QPainterPath TextShape(const QFont& font, const QString& text, double spacing) {
  const Letters letters(font);
  QPainterPath shape;
  if (spacing == 0) {
    shape.addText(0, 0, letters.master, text);
    return QTransform::fromScale(letters.scale, letters.scale).map(shape);
  }
  double x = 0;
  for (const QChar letter : text) {
    shape.addPath(letters.Shape(letter).translated(x, 0));
    x += letters.Advance(letter) + spacing;
  }
  return shape;
}

CutText TextWithin(const QFont& font, const QString& text, double room) {
  const Letters letters(font);
  QString fitting;
  double width = 0;
  for (const QChar letter : text) {
    const double advance = letters.Advance(letter);
    if (width + advance > room) break;
    width += advance;
    fitting += letter;
  }
  QPainterPath shape;
  shape.addText(0, 0, letters.master, fitting);
  return {QTransform::fromScale(letters.scale, letters.scale).map(shape), width};
}

QPainterPath Centred(const QPainterPath& shape, QPointF middle) {
  return shape.translated(middle - shape.boundingRect().center());
}

QPainterPath Fitted(const QPainterPath& shape, const QRectF& box) {
  const QRectF bounds = shape.boundingRect();
  if (bounds.isEmpty()) return shape;
  const double scale =
      std::min({1.0, box.width() / bounds.width(), box.height() / bounds.height()});
  return Centred(scale < 1 ? QTransform::fromScale(scale, scale).map(shape) : shape, box.center());
}

QPainterPath Turned(const QPainterPath& shape, double degrees) {
  return QTransform().rotate(degrees).map(shape);
}

QPainterPath TextOnArc(const QFont& font, const QString& text, QPointF centre, double radius,
                       double angle, double spacing, bool inside) {
  const Letters letters(font);
  double length = -spacing;
  for (const QChar letter : text) length += letters.Advance(letter) + spacing;

  const double direction = inside ? -1 : 1;
  QPainterPath shape;
  double along = -length / 2;
  for (const QChar letter : text) {
    const double advance = letters.Advance(letter);
    const double turn = angle + direction * (along + advance / 2) / radius * 180 / std::numbers::pi;
    const QPointF foot =
        centre + radius * QPointF(std::sin(Radians(turn)), -std::cos(Radians(turn)));
    QTransform place;
    place.translate(foot.x(), foot.y());
    place.rotate(inside ? turn + 180 : turn);
    place.translate(-advance / 2, 0);
    shape.addPath(place.map(letters.Shape(letter)));
    along += advance + spacing;
  }
  return shape;
}

void PaintText(QPainter& painter, const QRectF& box, const QFont& font, const QString& text,
               const QColor& color, double spacing) {
  painter.fillPath(Fitted(TextShape(font, text, spacing), box), color);
}

QPainterPath SuitShape(Suit suit) {
  QPainterPath shape;
  shape.setFillRule(Qt::WindingFill);
  const auto stem = [&shape] {
    shape.moveTo(0, 0.2);
    shape.cubicTo(0.02, 0.62, -0.12, 0.88, -0.42, 1);
    shape.lineTo(0.42, 1);
    shape.cubicTo(0.12, 0.88, -0.02, 0.62, 0, 0.2);
  };
  switch (suit) {
    case Suit::kSpade:
      shape.moveTo(0, -1);
      shape.cubicTo(0.2, -0.6, 0.95, -0.2, 0.92, 0.3);
      shape.cubicTo(0.9, 0.75, 0.3, 0.8, 0, 0.38);
      shape.cubicTo(-0.3, 0.8, -0.9, 0.75, -0.92, 0.3);
      shape.cubicTo(-0.95, -0.2, -0.2, -0.6, 0, -1);
      stem();
      break;
    case Suit::kHeart:
      shape.moveTo(0, 1);
      shape.cubicTo(-0.25, 0.5, -1, 0.1, -0.98, -0.42);
      shape.cubicTo(-0.95, -1, -0.2, -1.02, 0, -0.45);
      shape.cubicTo(0.2, -1.02, 0.95, -1, 0.98, -0.42);
      shape.cubicTo(1, 0.1, 0.25, 0.5, 0, 1);
      break;
    case Suit::kDiamond:
      shape.moveTo(0, -1);
      shape.quadTo(0.3, -0.4, 0.76, 0);
      shape.quadTo(0.3, 0.4, 0, 1);
      shape.quadTo(-0.3, 0.4, -0.76, 0);
      shape.quadTo(-0.3, -0.4, 0, -1);
      break;
    case Suit::kClub:
      shape.addEllipse(QPointF(0, -0.52), 0.46, 0.46);
      shape.addEllipse(QPointF(-0.5, 0.2), 0.46, 0.46);
      shape.addEllipse(QPointF(0.5, 0.2), 0.46, 0.46);
      shape.addEllipse(QPointF(0, 0), 0.3, 0.3);
      stem();
      break;
  }
  return shape;
}

QPainterPath StarShape(QPointF centre, int points, double outer, double inner) {
  QPainterPath shape;
  for (int i = 0; i < 2 * points; ++i) {
    const double turn = std::numbers::pi * i / points;
    const double radius = i % 2 == 0 ? outer : inner;
    const QPointF tip = centre + radius * QPointF(std::sin(turn), -std::cos(turn));
    if (i == 0) {
      shape.moveTo(tip);
    } else {
      shape.lineTo(tip);
    }
  }
  shape.closeSubpath();
  return shape;
}

}  // namespace feltmaster
