#pragma once

#include <string>
#include <vector>

namespace feltmaster {

// What a screen shows, as texts: the windows, the console and the printed reports read the same.
using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

}  // namespace feltmaster
