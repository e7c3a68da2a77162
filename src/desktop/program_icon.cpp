#include "desktop/program_icon.h"

#include <QByteArray>
#include <QPainter>
#include <QSvgRenderer>

#include "desktop/icon_drawing.h"

namespace feltmaster {

QPixmap ProgramPicture(int size) {
  QPixmap picture(size, size);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  QSvgRenderer drawing(
      QByteArray::fromRawData(kIconDrawing.data(), static_cast<qsizetype>(kIconDrawing.size())));
  drawing.render(&painter);
  return picture;
}

QIcon ProgramIcon() {
  QIcon icon;
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) icon.addPixmap(ProgramPicture(size));
  return icon;
}

}  // namespace feltmaster
