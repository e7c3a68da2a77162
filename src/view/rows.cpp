#include "view/rows.h"

#include <algorithm>

namespace feltmaster {

Rows InColumns(const Rows& rows, std::size_t lines) {
  Rows columns(std::min(lines, rows.size()));
  for (std::size_t i = 0; i < rows.size(); ++i) {
    Row& line = columns[i % lines];
    line.insert(line.end(), rows[i].begin(), rows[i].end());
  }
  return columns;
}

}  // namespace feltmaster
