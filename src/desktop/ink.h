#pragma once

#include <QColor>
#include <array>
#include <cstdint>

namespace feltmaster {

// The 16 colours that stored numbers mean, as charts on the screen have them: somewhat softer than
// the pure ones of the printed reports, which glare on large surfaces.
inline constexpr std::array<std::uint32_t, 16> kChartInks = {
    0x101014, 0x1A2F9E, 0x1E8243, 0x0F8288, 0x8E1B22, 0x8A2387, 0x8A6D1B, 0xC4C8CC,
    0x82878D, 0x2F6BFF, 0x8ADF7E, 0xB2E9F2, 0xE8363B, 0xDD4FD8, 0xFFE569, 0xFFFFFF,
};

inline QColor InkColor(int number) {
  const bool known = number >= 0 && number < static_cast<int>(kChartInks.size());
  return QColor::fromRgb(kChartInks[known ? static_cast<std::size_t>(number) : 0]);
}

}  // namespace feltmaster
