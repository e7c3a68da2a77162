#pragma once

#include <string>

#include "view/rows.h"

namespace feltmaster {

// Rows in columns, for a person to read: the first column begins at the left, the others end at the
// right, and so does the last one unless it is said to hold bars. Rows that follow one another with
// the same number of cells share their widths.
std::string TextTable(const Rows& rows, bool bars_last = false);

// A bar for a share of the full width, 0 to 1.
std::string TextBar(double share, int width);

}  // namespace feltmaster
