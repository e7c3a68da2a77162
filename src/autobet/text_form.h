#pragma once

#include <cstddef>
#include <string_view>

namespace feltmaster {

// What the fields of a script line look like in its text: their longest numbers and fixed words.
inline constexpr std::size_t kWholeDigits = 13;  // of an amount, in front of the point
inline constexpr std::size_t kDecimals = 4;
inline constexpr std::size_t kStackDigits = 2;
inline constexpr std::size_t kAverageDigits = 3;
inline constexpr std::string_view kAverageWords = "roll average )";
inline constexpr std::string_view kAllRolls = "all";
inline constexpr std::string_view kEachTime = "each";

}  // namespace feltmaster
