#include "reports/text_writer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "base/text.h"

namespace feltmaster {

namespace {

using Lines = std::vector<std::string>;
using Stack = std::vector<Block>;

constexpr std::size_t kLineWidth = 100;  // of rules and of text that is centred
constexpr std::size_t kColumnGap = 2;
constexpr std::size_t kStackGap = 4;
constexpr double kCellWidth = 5.4;  // of a character of a drawing, in points
constexpr double kCellHeight = 10.8;

std::string Padded(const std::string& text, std::size_t width, Align align) {
  const std::size_t length = CharacterCount(text);
  const std::size_t blanks = width - std::min(width, length);
  const std::size_t left = align == Align::kLeft ? 0 : align == Align::kRight ? blanks : blanks / 2;
  return std::string(left, ' ') + text + std::string(blanks - left, ' ');
}

void TrimEnd(std::string& line) {
  line.erase(line.find_last_not_of(' ') + 1);
}

std::size_t WidthOf(const Lines& lines) {
  std::size_t width = 0;
  for (const std::string& line : lines) width = std::max(width, CharacterCount(line));
  return width;
}

// A drawing in a grid of characters.
class Canvas {
 public:
  Canvas(double width, double height)
      : columns_(static_cast<std::ptrdiff_t>(std::ceil(width / kCellWidth)) + 1),
        rows_(static_cast<std::size_t>(std::ceil(height / kCellHeight)) + 1,
              std::u32string(static_cast<std::size_t>(columns_), U' ')) {}

  void Draw(const Stroke& stroke) {
    constexpr double kBold = 0.8;
    const double dx = (stroke.x2 - stroke.x1) / kCellWidth;
    const double dy = (stroke.y2 - stroke.y1) / kCellHeight;
    const char32_t mark = stroke.weight >= kBold          ? U'*'
                          : std::fabs(dx) > std::fabs(dy) ? U'-'
                                                          : U'|';
    const int steps = static_cast<int>(std::ceil(2 * std::max(std::fabs(dx), std::fabs(dy)))) + 1;
    for (int i = 0; i <= steps; ++i) {
      const double share = static_cast<double>(i) / steps;
      Put(stroke.x1 + share * (stroke.x2 - stroke.x1), stroke.y1 + share * (stroke.y2 - stroke.y1),
          mark);
    }
  }
  void Draw(const PrintedBox& box) {
    for (double y = box.y + kCellHeight / 2; y < box.y + box.height; y += kCellHeight) {
      for (double x = box.x + kCellWidth / 2; x < box.x + box.width; x += kCellWidth) {
        Put(x, y, U'#');
      }
    }
  }
  void Draw(const Label& label) {
    const auto length = static_cast<std::ptrdiff_t>(CharacterCount(label.run.text));
    auto column = static_cast<std::ptrdiff_t>(label.x / kCellWidth);
    if (label.align == Align::kRight) column -= length;
    if (label.align == Align::kCentre) column -= length / 2;
    column = std::max<std::ptrdiff_t>(std::min(column, columns_ - length), 0);
    // The letters stand on the line; their middle says which row they belong to.
    const double middle = label.y - label.size / 3;
    const std::string text = AsUtf8(label.run.text);
    std::string_view rest = text;
    for (; !rest.empty(); ++column) {
      Put((static_cast<double>(column) + 0.5) * kCellWidth, middle, TakeCharacter(rest));
    }
  }

  Lines Text() const {
    Lines lines;
    for (const std::u32string& row : rows_) {
      std::string line;
      for (const char32_t c : row) AddCharacter(line, c);
      TrimEnd(line);
      lines.push_back(line);
    }
    while (!lines.empty() && lines.back().empty()) lines.pop_back();
    return lines;
  }

 private:
  void Put(double x, double y, char32_t mark) {
    const auto column = static_cast<std::ptrdiff_t>(std::floor(x / kCellWidth));
    const auto row = static_cast<std::ptrdiff_t>(std::floor(y / kCellHeight));
    if (column < 0 || column >= columns_ || row < 0 || row >= std::ssize(rows_)) return;
    rows_[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)] = mark;
  }

  std::ptrdiff_t columns_;
  std::vector<std::u32string> rows_;
};

void AddStack(const Stack& stack, Lines& lines);

struct AddLines {
  Lines& lines;

  void operator()(const TextLine& line) const {
    std::string text;
    for (const Run& run : line.runs) text += AsUtf8(run.text);
    lines.push_back(Padded(text, line.align == Align::kLeft ? 0 : kLineWidth, line.align));
  }
  void operator()(const Rule&) const { lines.push_back(std::string(kLineWidth, '-')); }
  void operator()(const Gap&) const { lines.emplace_back(); }

  void operator()(const Table& table) const {
    std::vector<std::size_t> widths(table.columns.size());
    const auto widen = [&](const std::vector<Runs>& rows) {
      for (const Runs& row : rows) {
        for (std::size_t i = 0; i < std::min(row.size(), widths.size()); ++i) {
          widths[i] = std::max(widths[i], CharacterCount(row[i].text));
        }
      }
    };
    widen(table.head);
    widen(table.rows);
    const auto add = [&](const std::vector<Runs>& rows) {
      for (const Runs& row : rows) {
        std::string line;
        for (std::size_t i = 0; i < std::min(row.size(), widths.size()); ++i) {
          if (i > 0) line.append(kColumnGap, ' ');
          line += Padded(AsUtf8(row[i].text), widths[i], table.columns[i]);
        }
        lines.push_back(line);
      }
    };
    add(table.head);
    if (!table.head.empty()) {
      std::size_t width = kColumnGap * (widths.empty() ? 0 : widths.size() - 1);
      for (const std::size_t column : widths) width += column;
      lines.push_back(std::string(width, '-'));
    }
    add(table.rows);
  }

  void operator()(const Picture& picture) const {
    Canvas canvas(picture.width, picture.height);
    for (const PrintedBox& box : picture.boxes) canvas.Draw(box);
    for (const Stroke& stroke : picture.strokes) canvas.Draw(stroke);
    for (const Label& label : picture.labels) canvas.Draw(label);
    const Lines drawn = canvas.Text();
    lines.insert(lines.end(), drawn.begin(), drawn.end());
  }

  void operator()(const SideBySide& side) const {
    Lines joined;
    std::size_t left = 0;
    for (const Stack& stack : side.stacks) {
      Lines part;
      AddStack(stack, part);
      joined.resize(std::max(joined.size(), part.size()));
      for (std::size_t i = 0; i < part.size(); ++i) {
        joined[i] = Padded(joined[i], left, Align::kLeft) + part[i];
      }
      left = WidthOf(joined) + kStackGap;
    }
    lines.insert(lines.end(), joined.begin(), joined.end());
  }
};

void AddStack(const Stack& stack, Lines& lines) {
  for (const Block& block : stack) std::visit(AddLines{lines}, block.Kind());
}

}  // namespace

std::string TextOf(const Document& document) {
  std::string text;
  for (const Page& page : document.pages) {
    if (!text.empty()) text += '\f';
    Lines lines;
    AddStack(page, lines);
    for (std::string& line : lines) {
      TrimEnd(line);
      text += line + '\n';
    }
  }
  return text;
}

}  // namespace feltmaster
