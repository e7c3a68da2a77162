#include "desktop/log_button.h"

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>

#include "desktop/line_list.h"

namespace feltmaster {

LogButton::LogButton(const char* name, const char* caption, QWidget* parent)
    : QPushButton(QString::fromLatin1(caption), parent) {
  setObjectName(QString::fromLatin1(name));
  setToolTip("Compose the line; then click the row that it goes in front of, or drag it there");
  setAutoDefault(false);
  connect(this, &QPushButton::clicked, this, [this] { compose(); });
}

void LogButton::mousePressEvent(QMouseEvent* event) {
  pressed_at_ = event->position().toPoint();
  QPushButton::mousePressEvent(event);
}

void LogButton::mouseMoveEvent(QMouseEvent* event) {
  const bool drags = event->buttons().testFlag(Qt::LeftButton) &&
                     (event->position().toPoint() - pressed_at_).manhattanLength() >=
                         QApplication::startDragDistance();
  if (!drags || !isDown()) {
    QPushButton::mouseMoveEvent(event);
    return;
  }
  setDown(false);
  if (!compose()) return;
  auto* const mime = new QMimeData;
  mime->setData(kPendingLineFormat, QByteArray());
  auto* const drag = new QDrag(this);
  drag->setMimeData(mime);
  drag->exec(Qt::CopyAction);
}

}  // namespace feltmaster
