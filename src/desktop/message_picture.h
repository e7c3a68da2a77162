#pragma once

#include <QPainter>
#include <QRectF>
#include <QWidget>
#include <cstdint>

namespace feltmaster {

// The signs beside a message: the program's own two dice, the puck for good news, a stop sign and a
// question mark.
enum class MessagePicture : std::uint8_t { kProgram, kOk, kStop, kQuestion };

// The picture of a bit set of MessageOption.
MessagePicture PictureOf(std::int32_t options);

void PaintMessagePicture(QPainter& painter, const QRectF& box, MessagePicture picture);

// A sign that grows with the system's text.
class PictureWidget : public QWidget {
 public:
  PictureWidget(QWidget* parent, MessagePicture picture);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  MessagePicture picture_;
};

}  // namespace feltmaster
