#include "desktop/print_document.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QPageLayout>
#include <QPdfWriter>
#include <QPrinterInfo>
#include <algorithm>
#include <cerrno>

#include "desktop/qt_text.h"
#include "reports/page_layout.h"
#include "view/palette.h"

namespace feltmaster {

namespace {

constexpr int kLetterSize = 100;  // pixels in which letters are measured, before they are scaled
constexpr int kPdfResolution = 1200;

QColor Ink(int ink) {
  const Rgb rgb = PaletteRgb(ink);
  return QColor(rgb.red, rgb.green, rgb.blue);
}

void Paint(QPainter& painter, const PlacedText& text) {
  QFont font(QStringLiteral("Arial"));
  font.setPixelSize(kLetterSize);
  font.setBold(text.bold);
  font.setHintingPreference(QFont::PreferNoHinting);
  const QString letters = ToQt(text.text);
  const double scale = text.size / kLetterSize;
  const double width = QFontMetricsF(font).horizontalAdvance(letters) * scale;
  // A font of other measures is narrowed, so that columns never run into one another.
  const double narrowed = width > text.width ? text.width / width : 1;
  painter.save();
  painter.translate(text.x, text.y);
  painter.scale(scale * narrowed, scale);
  painter.setFont(font);
  painter.setPen(Ink(text.ink));
  painter.drawText(QPointF(0, 0), letters);
  painter.restore();
}

// The paper in dots: a page of ours as large as it allows, in its middle.
void FitToPaper(QPainter& painter, const QSizeF& paper) {
  const double scale = std::min(paper.width() / kPageWidth, paper.height() / kPageHeight);
  painter.translate((paper.width() - kPageWidth * scale) / 2,
                    (paper.height() - kPageHeight * scale) / 2);
  painter.scale(scale, scale);
}

// The pages from `first` to `last`, counted from 1. False when the device fails.
template <typename Device>
bool PaintOn(Device& device, const QSizeF& paper, const Document& document, std::size_t first,
             std::size_t last) {
  QPainter painter;
  if (!painter.begin(&device)) return false;
  for (std::size_t page = first; page <= last; ++page) {
    if (page > first && !device.newPage()) return false;
    painter.save();
    FitToPaper(painter, paper);
    PaintPage(painter, document.pages[page - 1]);
    painter.restore();
  }
  return painter.end();
}

}  // namespace

void PaintPage(QPainter& painter, const Page& page) {
  const PlacedPage placed = LayOut(page);
  for (const PrintedBox& box : placed.boxes)
    painter.fillRect(QRectF(box.x, box.y, box.width, box.height), Ink(box.ink));
  for (const Stroke& stroke : placed.strokes) {
    painter.setPen(QPen(Ink(stroke.ink), stroke.weight, Qt::SolidLine, Qt::SquareCap));
    painter.drawLine(QPointF(stroke.x1, stroke.y1), QPointF(stroke.x2, stroke.y2));
  }
  for (const PlacedText& text : placed.texts) Paint(painter, text);
}

std::optional<FileError> WritePdf(const Document& document, const std::string& path) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  {
    QPdfWriter writer(&buffer);
    writer.setTitle(ToQt(document.title));
    writer.setCreator(QStringLiteral("Feltmaster"));
    writer.setResolution(kPdfResolution);
    writer.setPageLayout(
        {QPageSize(QPageSize::Letter), QPageLayout::Portrait, QMarginsF(), QPageLayout::Point});
    const QSizeF paper(writer.width(), writer.height());
    if (!PaintOn(writer, paper, document, 1, document.pages.size()))
      return FileError{ENOMEM, "The pages could not be drawn"};
  }
  return WriteFileAtomically(path, bytes.toStdString());
}

bool ThereIsAPrinter() {
  return !QPrinterInfo::availablePrinterNames().isEmpty();
}

std::optional<FileError> SendTo(QPrinter& printer, const Document& document) {
  printer.setDocName(ToQt(document.title));
  printer.setCreator(QStringLiteral("Feltmaster"));
  printer.setFullPage(true);
  const std::size_t count = document.pages.size();
  const auto page_or = [count](int page, std::size_t otherwise) {
    return page == 0 ? otherwise
                     : std::clamp<std::size_t>(static_cast<std::size_t>(page), 1, count);
  };
  const bool sent = PaintOn(printer, printer.paperRect(QPrinter::DevicePixel).size(), document,
                            page_or(printer.fromPage(), 1), page_or(printer.toPage(), count));
  if (sent && printer.printerState() != QPrinter::Error) return {};
  const std::string name = FromQt(printer.printerName());
  return FileError{EIO, name.empty() ? "The printer does not take the report"
                                     : "The printer " + name + " does not take the report"};
}

}  // namespace feltmaster
