#include "console/text_table.h"

#include <algorithm>
#include <cmath>

namespace feltmaster {

namespace {

constexpr std::size_t kGap = 2;

std::string Line(const Row& row, const std::vector<std::size_t>& widths, bool bars_last) {
  std::string line;
  for (std::size_t i = 0; i < row.size(); ++i) {
    const std::string blanks(widths[i] - std::min(widths[i], row[i].size()), ' ');
    if (i > 0) line.append(kGap, ' ');
    const bool left = i == 0 || (bars_last && i + 1 == row.size());
    line += left ? row[i] + blanks : blanks + row[i];
  }
  line.erase(line.find_last_not_of(' ') + 1);
  return line + '\n';
}

}  // namespace

std::string TextTable(const Rows& rows, bool bars_last) {
  std::string text;
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t end = first;
    std::vector<std::size_t> widths(rows[first].size());
    for (; end < rows.size() && rows[end].size() == widths.size(); ++end) {
      for (std::size_t i = 0; i < widths.size(); ++i) {
        widths[i] = std::max(widths[i], rows[end][i].size());
      }
    }
    for (; first < end; ++first) text += Line(rows[first], widths, bars_last);
  }
  return text;
}

std::string TextBar(double share, int width) {
  const double length = std::round(std::clamp(share, 0.0, 1.0) * width);
  return std::string(static_cast<std::size_t>(length), '#');
}

}  // namespace feltmaster
