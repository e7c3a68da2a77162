#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "reports/document.h"

namespace feltmaster {

// Where everything on a page stands, for whoever paints it.
struct PlacedText {
  double x = 0;      // of the left end
  double y = 0;      // of the line on which the letters stand
  double width = 0;  // that the layout has reckoned with; a wider font is to be narrowed
  double size = 0;
  int ink = 0;
  bool bold = false;
  std::string text;  // UTF-8
};
struct PlacedPage {
  std::vector<PrintedBox> boxes;  // below the strokes, and they below the texts
  std::vector<Stroke> strokes;
  std::vector<PlacedText> texts;
};
PlacedPage LayOut(const Page& page);

// The width of a text in Arial or a font with its measures.
double TextWidth(std::string_view text, double size, bool bold = false);
double LineHeight(double size);
// The widths of a table's columns where there is room.
std::vector<double> ColumnWidths(const Table& table);
// The width that a block takes where there is room.
double NaturalWidth(const Block& block);

// The height of a block on a page that is so wide.
double HeightOf(const Block& block, double width = kPrintWidth);
double HeightOf(const std::vector<Block>& stack, double width = kPrintWidth);

}  // namespace feltmaster
