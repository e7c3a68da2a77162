#include "desktop/picture_export.h"

#include <QAction>
#include <QFile>
#include <QImage>
#include <QMenu>
#include <QPainter>
#include <QSvgGenerator>
#include <QWidget>

#include "autobet/message.h"
#include "desktop/qt_text.h"
#include "files/file_dialog.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

constexpr int kPngScale = 2;
constexpr const char* kSaveCaption = "Save Picture As";

void AskAndSave(Game& game, QWidget& picture) {
  const std::optional<std::string> path = ShowFileDialog(game, kSaveCaption);
  if (!path || SavePicture(picture, ToQt(*path))) return;
  Tell(game, kSaveCaption, *path + "\ncould not be written.", kButtonOk | kPictureStop);
}

bool SaveSvg(QWidget& picture, const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return false;
  QSvgGenerator svg;
  svg.setOutputDevice(&file);
  svg.setTitle(picture.window()->windowTitle());
  svg.setSize(picture.size());
  svg.setViewBox(picture.rect());
  svg.setResolution(picture.logicalDpiX());
  QPainter painter(&svg);
  painter.fillRect(picture.rect(), picture.palette().window());
  picture.render(&painter, QPoint(), QRegion(), QWidget::DrawChildren);
  return painter.end() && file.flush();
}

}  // namespace

bool SavePicture(QWidget& picture, const QString& path) {
  if (path.endsWith(QStringLiteral(".svg"), Qt::CaseInsensitive)) return SaveSvg(picture, path);
  QImage image(picture.size() * kPngScale, QImage::Format_RGB32);
  image.setDevicePixelRatio(kPngScale);
  image.fill(picture.palette().color(QPalette::Window));
  picture.render(&image);
  return image.save(path, "PNG");
}

std::string TabbedText(const Rows& rows) {
  std::string text;
  for (const Row& row : rows) {
    for (std::size_t cell = 0; cell < row.size(); ++cell) {
      if (cell > 0) text += '\t';
      text += row[cell];
    }
    text += '\n';
  }
  return text;
}

void AddShareEntries(QMenu& menu, Game& game, std::function<Rows()> rows, QWidget& picture) {
  QAction* copy = menu.addAction(QStringLiteral("Copy as &Text"));
  copy->setObjectName(QStringLiteral("mnuCopyAsText"));
  copy->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_C));
  QObject::connect(copy, &QAction::triggered, &menu, [&game, rows = std::move(rows)] {
    game.surface->SetClipboard(TabbedText(rows()));
  });
  QAction* save = menu.addAction(QStringLiteral("Save &Picture ..."));
  save->setObjectName(QStringLiteral("mnuSavePicture"));
  save->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
  QObject::connect(save, &QAction::triggered, &menu,
                   [&game, &picture] { AskAndSave(game, picture); });
}

}  // namespace feltmaster
