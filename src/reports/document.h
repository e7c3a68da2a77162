#pragma once

#include <string>
#include <variant>
#include <vector>

#include "base/calendar.h"

namespace feltmaster {

// A printed report, for any printer and any file: pages of blocks that stand one under the other.
// Lengths are points, 72 to the inch; x runs to the right and y down. Inks are numbers of the
// 16-colour palette (view/palette.h).

inline constexpr double kPageWidth = 612;  // a US letter; other paper scales it
inline constexpr double kPageHeight = 792;
inline constexpr double kPageMargin = 36;
inline constexpr double kPrintWidth = kPageWidth - 2 * kPageMargin;
inline constexpr double kPrintHeight = kPageHeight - 2 * kPageMargin;
inline constexpr double kTextSize = 9;

enum class Align { kLeft, kCentre, kRight };

// Text in one ink and weight, in UTF-8; bytes of another encoding are taken as Latin-1.
struct Run {
  std::string text;
  int ink = 0;
  bool bold = false;

  bool operator==(const Run&) const = default;
};
using Runs = std::vector<Run>;

// A line of text; one that is too long for its place is printed smaller.
struct TextLine {
  Runs runs;
  double size = kTextSize;
  Align align = Align::kLeft;
};

// A line across the page.
struct Rule {};

struct Gap {
  double height = kTextSize;
};

// Columns as wide as their widest cell; one that is too wide for its place is printed smaller. A
// row may have fewer cells than there are columns.
struct Table {
  std::vector<Align> columns;
  std::vector<Runs> head;  // rows above a rule
  std::vector<Runs> rows;
  double size = kTextSize;
  double gap = kTextSize;                 // between two columns
  std::vector<double> least_widths = {};  // of the first columns
};

struct Stroke {
  double x1 = 0;
  double y1 = 0;
  double x2 = 0;
  double y2 = 0;
  int ink = 0;
  double weight = 0.5;
};
struct PrintedBox {
  double x = 0;
  double y = 0;
  double width = 0;
  double height = 0;
  int ink = 0;
};
struct Label {
  double x = 0;  // of the left end, the middle or the right end, by `align`
  double y = 0;  // of the line on which the letters stand
  Run run;
  double size = 7;
  Align align = Align::kLeft;
};

// A drawing, painted in the order of its lists.
struct Picture {
  double width = kPrintWidth;
  double height = 0;
  std::vector<PrintedBox> boxes;
  std::vector<Stroke> strokes;
  std::vector<Label> labels;
};

struct Block;

// Stacks of blocks next to one another.
struct SideBySide {
  std::vector<std::vector<Block>> stacks;
};

struct Block : std::variant<TextLine, Rule, Gap, Table, Picture, SideBySide> {
  using variant::variant;
  const variant& Kind() const { return *this; }
};

using Page = std::vector<Block>;

struct Document {
  std::string title;
  CalendarTime made;
  bool unattended = false;  // printed on the way: not to be shown to anybody first
  std::vector<Page> pages;
};

}  // namespace feltmaster
