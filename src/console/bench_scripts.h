#pragma once

#include <string_view>

namespace feltmaster {

// The scripts of the benchmark, as text; the files themselves are built in.
extern const std::string_view kIronCrossScript;  // strategies/iron_cross.txt
extern const std::string_view kLongScript;       // bench/long.txt

}  // namespace feltmaster
