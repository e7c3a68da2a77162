#include "desktop/table_shot.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>

#include "desktop/table_picture.h"

namespace feltmaster {

std::string TableShot(const Game& game, double scale) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  // What the toolkit has to say about the desktop it does not find is of no use here.
  qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
  char name[] = "feltmaster";
  char* arguments[] = {name, nullptr};
  int count = 1;
  const QGuiApplication application(count, arguments);

  FeltStore felts;
  TablePicture picture(felts);
  picture.SetScale(scale);
  TableView view;
  view.dice = DiceAtRest(game);
  picture.Update(game, view);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!picture.Image().save(&buffer, "PNG")) return {};
  return bytes.toStdString();
}

}  // namespace feltmaster
