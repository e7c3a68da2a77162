#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace feltmaster {

// The 16 colours that stored colour numbers mean.
enum PaletteColors : int {
  kBlackInk = 0,
  kBrownInk = 6,
  kWhiteInk = 7,
  kGrayInk = 8,
  kBlueInk = 9,
  kGreenInk = 10,
  kCyanInk = 11,
  kRedInk = 12,
  kMagentaInk = 13,
  kYellowInk = 14,
  kBrightWhiteInk = 15,
};

struct Rgb {
  std::uint8_t red;
  std::uint8_t green;
  std::uint8_t blue;
};
inline constexpr std::array<Rgb, 16> kPalette = {{
    {0, 0, 0},
    {0, 0, 128},
    {0, 128, 0},
    {0, 128, 128},
    {128, 0, 0},
    {128, 0, 128},
    {128, 128, 0},
    {192, 192, 192},
    {128, 128, 128},
    {0, 0, 255},
    {0, 255, 0},
    {0, 255, 255},
    {255, 0, 0},
    {255, 0, 255},
    {255, 255, 0},
    {255, 255, 255},
}};

// A number that is none of the palette is black.
constexpr Rgb PaletteRgb(int number) {
  return number >= 0 && number < 16 ? kPalette[static_cast<std::size_t>(number)] : kPalette[0];
}

}  // namespace feltmaster
