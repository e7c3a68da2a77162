#pragma once

#include <string>
#include <vector>

namespace feltmaster {

// What a screen shows, as texts: the windows, the console and the printed reports read the same.
using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

// The same rows in columns of `lines`, one beside the other.
Rows InColumns(const Rows& rows, std::size_t lines);

}  // namespace feltmaster
