#pragma once

#include <array>
#include <cstdint>
#include <optional>
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

// A whole dress of the table; colours are 0xBBGGRR.
struct TablePreset {
  std::string_view name;     // as it is typed
  std::string_view entry;    // "mnuSetWoodgrainTable"
  std::string_view caption;  // of the menu, with its access key
  std::array<std::int32_t, kTableColorCount> colors;
  std::int32_t texture;
};
extern const std::array<TablePreset, 6> kTablePresets;

void SetTableColor(Game& game, int element, std::int32_t color);
void SetTablePreset(Game& game, const TablePreset& preset);

inline constexpr int kFelts = 9;
// The felt sample, 0 to 8, under a point of the picture on the Colors tab.
std::optional<std::int32_t> FeltSampleAt(int x, int y);
void SetFelt(Game& game, std::int32_t texture);

}  // namespace feltmaster
