#include "reports/page_layout.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <numeric>

#include "base/text.h"

namespace feltmaster {

namespace {

// Widths of the characters 32 to 126 in thousandths of the size.
using Widths = std::array<std::uint16_t, 95>;
// clang-format off
constexpr Widths kPlainWidths = {
    278, 278, 355, 556, 556, 889, 667, 191, 333, 333, 389, 584, 278, 333, 278, 278,
    556, 556, 556, 556, 556, 556, 556, 556, 556, 556, 278, 278, 584, 584, 584, 556,
    1015, 667, 667, 722, 722, 667, 611, 778, 722, 278, 500, 667, 556, 833, 722, 778,
    667, 778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 278, 278, 278, 469, 556,
    333, 556, 556, 500, 556, 556, 278, 556, 556, 222, 222, 500, 222, 833, 556, 556,
    556, 556, 333, 500, 278, 556, 500, 722, 500, 500, 500, 334, 260, 334, 584};
constexpr Widths kBoldWidths = {
    278, 333, 474, 556, 556, 889, 722, 238, 333, 333, 389, 584, 278, 333, 278, 278,
    556, 556, 556, 556, 556, 556, 556, 556, 556, 556, 333, 333, 584, 584, 584, 611,
    975, 722, 722, 722, 722, 667, 611, 778, 722, 278, 556, 722, 611, 833, 722, 778,
    667, 778, 722, 667, 611, 722, 667, 944, 667, 667, 611, 333, 278, 333, 584, 556,
    333, 556, 611, 556, 611, 556, 333, 611, 611, 278, 278, 556, 278, 889, 611, 611,
    611, 611, 389, 556, 333, 611, 556, 778, 556, 556, 500, 389, 280, 389, 584};
// clang-format on
constexpr int kOtherWidth = 600;  // of accented and foreign letters
constexpr int kWideWidth = 1000;  // of what is written in squares

constexpr double kAscent = 0.905;  // of the font, by its size
constexpr double kRuleHeight = 4;
constexpr double kHeadGap = 3;  // for the rule below the head of a table
constexpr double kRuleWeight = 0.6;
constexpr double kWidestGap = 36;  // between stacks that stand next to one another

using Stack = std::vector<Block>;

double WidthOf(const Runs& runs, double size) {
  double width = 0;
  for (const Run& run : runs) width += TextWidth(run.text, size, run.bold);
  return width;
}

double TableWidth(const Table& table, const std::vector<double>& columns) {
  const double gaps = columns.empty() ? 0 : table.gap * static_cast<double>(columns.size() - 1);
  return std::accumulate(columns.begin(), columns.end(), gaps);
}

// How much smaller something must be to fit.
double ScaleToFit(double wanted, double available) {
  return wanted > available && wanted > 0 ? available / wanted : 1;
}

double NaturalWidth(const Stack& stack);
struct NaturalWidthOf {
  double operator()(const TextLine& line) const { return WidthOf(line.runs, line.size); }
  double operator()(const Rule&) const { return 0; }
  double operator()(const Gap&) const { return 0; }
  double operator()(const Table& table) const { return TableWidth(table, ColumnWidths(table)); }
  double operator()(const Picture& picture) const { return picture.width; }
  double operator()(const SideBySide& side) const {
    double width = 0;
    for (const Stack& stack : side.stacks) width += NaturalWidth(stack) + kTextSize;
    return width;
  }
};
double NaturalWidth(const Stack& stack) {
  double width = 0;
  for (const Block& block : stack) {
    width = std::max(width, feltmaster::NaturalWidth(block));
  }
  return width;
}

struct Place {
  double x = 0;
  double width = 0;
};
// The room is shared out by what each stack needs; room to spare goes between them.
std::vector<Place> PlacesOf(const SideBySide& side, double x, double width) {
  std::vector<double> needs;
  for (const Stack& stack : side.stacks) needs.push_back(NaturalWidth(stack));
  const auto gaps = static_cast<double>(needs.empty() ? 0 : needs.size() - 1);
  const double sum = std::accumulate(needs.begin(), needs.end(), 0.0);
  const double scale = ScaleToFit(sum, std::max(width - gaps * kTextSize, 1.0));
  const double gap = gaps == 0 ? 0 : std::min((width - sum * scale) / gaps, kWidestGap);
  std::vector<Place> places;
  for (const double need : needs) {
    places.push_back({x, need * scale});
    x += need * scale + gap;
  }
  return places;
}

class PageMaker {
 public:
  double PutStack(const Stack& stack, double x, double y, double width) {
    for (const Block& block : stack) {
      y = std::visit([&](const auto& kind) { return Put(kind, x, y, width); }, block.Kind());
    }
    return y;
  }

  PlacedPage page;

 private:
  // Each gives the y below the block.
  double Put(const TextLine& line, double x, double y, double width) {
    const double size = line.size * ScaleToFit(WidthOf(line.runs, line.size), width);
    double left = x + Indent(line.align, width, WidthOf(line.runs, size));
    for (const Run& run : line.runs) {
      left += PutText(run, left, y + line.size * kAscent, size);
    }
    return y + LineHeight(line.size);
  }
  double Put(const Rule&, double x, double y, double width) {
    const double middle = y + kRuleHeight / 2;
    page.strokes.push_back({x, middle, x + width, middle, 0, kRuleWeight});
    return y + kRuleHeight;
  }
  double Put(const Gap& gap, double, double y, double) { return y + gap.height; }

  double Put(const Table& table, double x, double y, double width) {
    std::vector<double> columns = ColumnWidths(table);
    const double scale = ScaleToFit(TableWidth(table, columns), width);
    const double size = table.size * scale;
    for (double& column : columns) column *= scale;
    const auto put_rows = [&](const std::vector<Runs>& rows) {
      for (const Runs& row : rows) {
        double left = x;
        for (std::size_t i = 0; i < std::min(row.size(), columns.size()); ++i) {
          const double wide = TextWidth(row[i].text, size, row[i].bold);
          PutText(row[i], left + Indent(table.columns[i], columns[i], wide),
                  y + table.size * kAscent, size);
          left += columns[i] + table.gap * scale;
        }
        y += LineHeight(table.size);
      }
    };
    put_rows(table.head);
    if (!table.head.empty()) {
      const double line = y + kHeadGap / 2;
      const double end = x + TableWidth(table, ColumnWidths(table)) * scale;
      page.strokes.push_back({x, line, end, line, 0, kRuleWeight});
      y += kHeadGap;
    }
    put_rows(table.rows);
    return y;
  }

  double Put(const Picture& picture, double x, double y, double) {
    for (PrintedBox box : picture.boxes) {
      box.x += x;
      box.y += y;
      page.boxes.push_back(box);
    }
    for (const Stroke& stroke : picture.strokes) {
      page.strokes.push_back(
          {stroke.x1 + x, stroke.y1 + y, stroke.x2 + x, stroke.y2 + y, stroke.ink, stroke.weight});
    }
    for (const Label& label : picture.labels) {
      const double wide = TextWidth(label.run.text, label.size, label.run.bold);
      PutText(label.run, x + label.x + Indent(label.align, 0, wide), y + label.y, label.size);
    }
    return y + picture.height;
  }

  double Put(const SideBySide& side, double x, double y, double width) {
    const std::vector<Place> places = PlacesOf(side, x, width);
    double bottom = y;
    for (std::size_t i = 0; i < places.size(); ++i) {
      bottom = std::max(bottom, PutStack(side.stacks[i], places[i].x, y, places[i].width));
    }
    return bottom;
  }

  static double Indent(Align align, double available, double wide) {
    if (align == Align::kLeft) return 0;
    return align == Align::kRight ? available - wide : (available - wide) / 2;
  }

  // Gives the width of the text. Blanks leave no mark.
  double PutText(const Run& run, double x, double y, double size) {
    const double width = TextWidth(run.text, size, run.bold);
    if (!Trim(run.text).empty()) {
      page.texts.push_back({x, y, width, size, run.ink, run.bold, AsUtf8(run.text)});
    }
    return width;
  }
};

}  // namespace

std::vector<double> ColumnWidths(const Table& table) {
  std::vector<double> widths(table.columns.size());
  const auto widen = [&](const std::vector<Runs>& rows) {
    for (const Runs& row : rows) {
      for (std::size_t i = 0; i < std::min(row.size(), widths.size()); ++i) {
        widths[i] = std::max(widths[i], TextWidth(row[i].text, table.size, row[i].bold));
      }
    }
  };
  widen(table.head);
  widen(table.rows);
  for (std::size_t i = 0; i < std::min(widths.size(), table.least_widths.size()); ++i) {
    widths[i] = std::max(widths[i], table.least_widths[i]);
  }
  return widths;
}

double TextWidth(std::string_view text, double size, bool bold) {
  constexpr char32_t kFirstWide = 0x1100;
  const Widths& widths = bold ? kBoldWidths : kPlainWidths;
  int thousandths = 0;
  while (!text.empty()) {
    const char32_t character = TakeCharacter(text);
    if (character < 127) {
      thousandths += widths[character < 32 ? 0 : character - 32];
    } else {
      thousandths += character < kFirstWide ? kOtherWidth : kWideWidth;
    }
  }
  return thousandths * size / 1000;
}

double NaturalWidth(const Block& block) {
  return std::visit(NaturalWidthOf(), block.Kind());
}

double LineHeight(double size) {
  return size * 1.2;
}

double HeightOf(const std::vector<Block>& stack, double width) {
  return PageMaker().PutStack(stack, 0, 0, width);
}
double HeightOf(const Block& block, double width) {
  return HeightOf(std::vector<Block>{block}, width);
}

PlacedPage LayOut(const Page& page) {
  PageMaker maker;
  maker.PutStack(page, kPageMargin, kPageMargin, kPrintWidth);
  return std::move(maker.page);
}

}  // namespace feltmaster
