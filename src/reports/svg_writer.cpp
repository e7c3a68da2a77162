#include "reports/svg_writer.h"

#include <string_view>

#include "base/number_format.h"
#include "base/text.h"
#include "reports/page_layout.h"
#include "view/palette.h"

namespace feltmaster {

namespace {

std::string Number(double value) {
  std::string text = FormatNumber(value, "0.##");
  if (text.ends_with('.')) text.pop_back();
  return text;
}

std::string Color(int ink) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const Rgb rgb = PaletteRgb(ink);
  std::string color = "#";
  for (const int part : {int{rgb.red}, int{rgb.green}, int{rgb.blue}}) {
    color += kDigits[static_cast<std::size_t>(part / 16)];
    color += kDigits[static_cast<std::size_t>(part % 16)];
  }
  return color;
}

// name="value" for each.
std::string Attribute(std::string_view name, double value) {
  return ' ' + std::string(name) + "=\"" + Number(value) + '"';
}

std::string Element(const PrintedBox& box) {
  return "<rect" + Attribute("x", box.x) + Attribute("y", box.y) + Attribute("width", box.width) +
         Attribute("height", box.height) + " fill=\"" + Color(box.ink) + "\"/>\n";
}
std::string Element(const Stroke& stroke) {
  return "<line" + Attribute("x1", stroke.x1) + Attribute("y1", stroke.y1) +
         Attribute("x2", stroke.x2) + Attribute("y2", stroke.y2) + " stroke=\"" +
         Color(stroke.ink) + '"' + Attribute("stroke-width", stroke.weight) + "/>\n";
}
std::string Element(const PlacedText& text) {
  return "<text" + Attribute("x", text.x) + Attribute("y", text.y) +
         Attribute("font-size", text.size) + (text.bold ? " font-weight=\"bold\"" : "") +
         (text.ink == 0 ? "" : " fill=\"" + Color(text.ink) + '"') +
         Attribute("textLength", text.width) + '>' + XmlText(text.text) + "</text>\n";
}

}  // namespace

std::string SvgOf(const Document& document, std::size_t page) {
  const std::string size = Number(kPageWidth) + ' ' + Number(kPageHeight);
  std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + Number(kPageWidth) +
                    "pt\" height=\"" + Number(kPageHeight) + "pt\" viewBox=\"0 0 " + size +
                    "\" font-family=\"Arial, 'Liberation Sans', Helvetica, sans-serif\" "
                    "stroke-linecap=\"square\">\n<title>" +
                    XmlText(document.title) +
                    "</title>\n<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n";
  const PlacedPage placed = LayOut(document.pages[page]);
  for (const PrintedBox& box : placed.boxes) svg += Element(box);
  for (const Stroke& stroke : placed.strokes) svg += Element(stroke);
  svg += "<g xml:space=\"preserve\">\n";
  for (const PlacedText& text : placed.texts) svg += Element(text);
  return svg + "</g>\n</svg>\n";
}

}  // namespace feltmaster
