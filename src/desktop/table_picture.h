#pragma once

#include <QImage>
#include <QPainter>
#include <QRegion>
#include <QSize>
#include <map>
#include <tuple>

#include "desktop/die_picture.h"
#include "desktop/layout_picture.h"
#include "table/scene.h"

namespace feltmaster {

// The picture of the table in layers: the layout, which is composed anew only when the rules, the
// colours or the scale change, and over it what stands there. Rectangles are device pixels.
class TablePicture {
 public:
  // The store must outlive the picture; pictures may share it.
  explicit TablePicture(FeltStore& felts) : felts_(felts) {}

  // Device pixels for each pixel of the 640 by 440 picture; held within 0.25 and 8.
  void SetScale(double scale);
  double Scale() const { return scale_; }
  QSize Size() const;

  // Takes the table as it stands now. Gives what of the picture is no longer right.
  QRegion Update(const Game& game, const TableView& view);

  // Paints the part of the picture in `area` as it was last taken. The painter's unit is one device
  // pixel. A part painted alone is the same, pixel for pixel, as the part of the whole.
  void Paint(QPainter& painter, const QRect& area);

  // The whole picture, for who has no window.
  QImage Image();

 private:
  QRect DeviceRect(const QRectF& grid) const;
  QRectF ReachOf(const Sprite& sprite) const;
  void PaintSprite(QPainter& painter, const Sprite& sprite);
  const QImage& Piece(const Sprite& sprite);

  double scale_ = 1;
  LayoutLook look_;
  std::int32_t die_design_ = 1;
  FeltStore& felts_;
  QImage layout_;       // null when it must be composed anew
  bool taken_ = false;  // look_ and scene_ are those of an Update at this scale
  Scene scene_;
  // Chips, marks, dice and the like at the present scale, by kind, value, turn and height. Shaded
  // things are painted whole and copied: a part of a shading, painted alone, may differ by a hair.
  std::map<std::tuple<SpriteKind, int, int, int>, QImage> pieces_;
};

}  // namespace feltmaster
