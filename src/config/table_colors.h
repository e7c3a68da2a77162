#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "game/game.h"

namespace feltmaster {

// The places of TableColors, in the order of the Configure screen.
enum TableColor : int {
  kColorFelt,
  kColorLines,
  kColorLineText,   // Passline, Come, C
  kColorPlaceText,  // Place
  kColorPropText,   // Big 6/8, props, E
  kColorFieldText,
  kColorDice,
  kColorPips,
  kTableColorCount,
};
static_assert(kTableColorCount == std::tuple_size_v<decltype(Preferences::TableColors)>);

// The presets of the menu, in its order. Colours are 0xBBGGRR.
struct TablePreset {
  std::string_view name;  // as it is typed
  std::string_view caption;
  std::array<std::int32_t, kTableColorCount> colors;
  std::int32_t texture;
};
inline constexpr auto kTablePresets = std::to_array<TablePreset>({
    {"green",
     "Set traditional &green table",
     {0x4A781B, 0xFFFFFF, 0x77BBFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0x0000FF, 0xFFFFFF},
     8},
    {"black-light",
     "Set &black-light table",
     {0x000000, 0xFF00FF, 0x8600FF, 0x3F0077, 0x6B00CC, 0xFF0000, 0x0000FF, 0x000000},
     6},
    {"night-lights",
     "Set &night lights table",
     {0x000000, 0x11FFFF, 0xFFFF55, 0xFF1111, 0x0000FF, 0x00FF00, 0x0000FF, 0xFFFFFF},
     0},
    {"woodgrain",
     "Set &woodgrain table",
     {0x66B3FF, 0x001A33, 0x000077, 0x000000, 0x11FFFF, 0x0055AA, 0x3B3B3B, 0xFFFFFF},
     6},
    {"orange-fizz",
     "Set &orange fizz table",
     {0x1188FF, 0x1111FF, 0x8600FF, 0x77BBFF, 0x77BBFF, 0x00FFFF, 0x0000FF, 0xFFFFFF},
     0},
    {"blue-velvet",
     "Set blue &velvet table",
     {0xBB6700, 0x000000, 0x0000DD, 0xEEEE00, 0xEEEE00, 0x00E8EE, 0x0000FF, 0xFFFFFF},
     8},
});

inline void SetTablePreset(Game& game, const TablePreset& preset) {
  game.TableColors = preset.colors;
  game.TextureRow = preset.texture;
  game.RedrawTable = true;
}

}  // namespace feltmaster
