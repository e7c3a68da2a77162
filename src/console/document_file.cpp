#include "console/document_file.h"

#include <cairo-pdf.h>

#include <cerrno>
#include <iostream>
#include <memory>

#include "base/text.h"
#include "reports/page_layout.h"
#include "reports/svg_writer.h"
#include "reports/text_writer.h"
#include "view/palette.h"

namespace feltmaster {

namespace {

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using Pen = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

cairo_status_t AddBytes(void* bytes, const unsigned char* data, unsigned int length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

void SetInk(cairo_t* pen, int ink) {
  const Rgb rgb = PaletteRgb(ink);
  cairo_set_source_rgb(pen, rgb.red / 255.0, rgb.green / 255.0, rgb.blue / 255.0);
}

void Paint(cairo_t* pen, const PrintedBox& box) {
  SetInk(pen, box.ink);
  cairo_rectangle(pen, box.x, box.y, box.width, box.height);
  cairo_fill(pen);
}

void Paint(cairo_t* pen, const Stroke& stroke) {
  SetInk(pen, stroke.ink);
  cairo_set_line_width(pen, stroke.weight);
  cairo_move_to(pen, stroke.x1, stroke.y1);
  cairo_line_to(pen, stroke.x2, stroke.y2);
  cairo_stroke(pen);
}

void Paint(cairo_t* pen, const PlacedText& text) {
  SetInk(pen, text.ink);
  cairo_select_font_face(pen, "Arial", CAIRO_FONT_SLANT_NORMAL,
                         text.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(pen, text.size);
  cairo_text_extents_t extents;
  cairo_text_extents(pen, text.text.c_str(), &extents);
  // A font of other measures is narrowed, so that columns never run into one another.
  cairo_matrix_t matrix;
  const double narrowed = extents.x_advance > text.width ? text.width / extents.x_advance : 1;
  cairo_matrix_init_scale(&matrix, text.size * narrowed, text.size);
  cairo_set_font_matrix(pen, &matrix);
  cairo_move_to(pen, text.x, text.y);
  cairo_show_text(pen, text.text.c_str());
}

// "name-2.svg", by the number of the page, from 1.
std::string PathOfPage(const std::string& path, std::size_t page) {
  if (page == 1) return path;
  const std::size_t dot = path.rfind('.');
  return path.substr(0, dot) + '-' + std::to_string(page) + path.substr(dot);
}

std::optional<FileError> WriteSvg(const Document& document, const std::string& path) {
  for (std::size_t page = 0; page < document.pages.size(); ++page) {
    const auto error = WriteFileAtomically(PathOfPage(path, page + 1), SvgOf(document, page));
    if (error) return error;
  }
  return {};
}

}  // namespace

std::optional<DocumentFormat> DocumentFormatOf(std::string_view path) {
  const std::string name = Lower(path);
  if (name.ends_with(".pdf")) return DocumentFormat::kPdf;
  if (name.ends_with(".svg")) return DocumentFormat::kSvg;
  if (name.ends_with(".txt")) return DocumentFormat::kText;
  return std::nullopt;
}

std::string PdfOf(const Document& document) {
  std::string bytes;
  const Surface paper(
      cairo_pdf_surface_create_for_stream(AddBytes, &bytes, kPageWidth, kPageHeight),
      cairo_surface_destroy);
  cairo_pdf_surface_set_metadata(paper.get(), CAIRO_PDF_METADATA_TITLE,
                                 AsUtf8(document.title).c_str());
  cairo_pdf_surface_set_metadata(paper.get(), CAIRO_PDF_METADATA_CREATOR, "Feltmaster");
  cairo_pdf_surface_set_metadata(paper.get(), CAIRO_PDF_METADATA_CREATE_DATE,
                                 IsoTime(document.made).c_str());
  const Pen pen(cairo_create(paper.get()), cairo_destroy);
  cairo_set_line_cap(pen.get(), CAIRO_LINE_CAP_SQUARE);
  for (const Page& page : document.pages) {
    const PlacedPage placed = LayOut(page);
    for (const PrintedBox& box : placed.boxes) Paint(pen.get(), box);
    for (const Stroke& stroke : placed.strokes) Paint(pen.get(), stroke);
    for (const PlacedText& text : placed.texts) Paint(pen.get(), text);
    cairo_show_page(pen.get());
  }
  cairo_surface_finish(paper.get());
  const bool drawn = cairo_status(pen.get()) == CAIRO_STATUS_SUCCESS &&
                     cairo_surface_status(paper.get()) == CAIRO_STATUS_SUCCESS;
  return drawn ? bytes : std::string();
}

std::optional<FileError> WriteDocument(const Document& document, const std::string& path) {
  if (path == kStandardOutput) {
    std::cout << TextOf(document) << std::flush;
    return std::cout ? std::nullopt : std::optional(SystemError(EIO));
  }
  switch (DocumentFormatOf(path).value_or(DocumentFormat::kPdf)) {
    case DocumentFormat::kSvg:
      return WriteSvg(document, path);
    case DocumentFormat::kText:
      return WriteFileAtomically(path, TextOf(document));
    default:
      break;
  }
  const std::string bytes = PdfOf(document);
  return bytes.empty() ? SystemError(ENOMEM) : WriteFileAtomically(path, bytes);
}

}  // namespace feltmaster
