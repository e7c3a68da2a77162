#include "config/table_colors.h"

#include <algorithm>

#include "engine/table_effects.h"

namespace feltmaster {

// clang-format off
constexpr std::array<TablePreset, 6> kTablePresets = {{
    {"green", "mnuSetTraditionalGreenTable", "Set traditional &green table",
     {0x4A781B, 0xFFFFFF, 0x77BBFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0x0000FF, 0xFFFFFF}, 8},
    {"black-light", "mnuSetBlackLightTable", "Set &black-light table",
     {0x000000, 0xFF00FF, 0x8600FF, 0x3F0077, 0x6B00CC, 0xFF0000, 0x0000FF, 0x000000}, 6},
    {"night-lights", "mnuSetNightLightsTable", "Set &night lights table",
     {0x000000, 0x11FFFF, 0xFFFF55, 0xFF1111, 0x0000FF, 0x00FF00, 0x0000FF, 0xFFFFFF}, 0},
    {"woodgrain", "mnuSetWoodgrainTable", "Set &woodgrain table",
     {0x66B3FF, 0x001A33, 0x000077, 0x000000, 0x11FFFF, 0x0055AA, 0x3B3B3B, 0xFFFFFF}, 6},
    {"orange-fizz", "mnuSetOrangeFizzTable", "Set &orange fizz table",
     {0x1188FF, 0x1111FF, 0x8600FF, 0x77BBFF, 0x77BBFF, 0x00FFFF, 0x0000FF, 0xFFFFFF}, 0},
    {"blue-velvet", "mnuSetBlueVelvetTable", "Set blue &velvet table",
     {0xBB6700, 0x000000, 0x0000DD, 0xEEEE00, 0xEEEE00, 0x00E8EE, 0x0000FF, 0xFFFFFF}, 8},
}};
// clang-format on

namespace {

void DrawAnew(Game& game) {
  game.RedrawTable = true;
  game.GameChanged = true;
  ShowTableChange(game, kChangedAll);
}

}  // namespace

void SetTableColor(Game& game, int element, std::int32_t color) {
  game.TableColors[static_cast<std::size_t>(element)] = color;
  DrawAnew(game);
}

void SetTablePreset(Game& game, const TablePreset& preset) {
  game.TableColors = preset.colors;
  game.TextureRow = preset.texture;
  DrawAnew(game);
}

std::optional<std::int32_t> FeltSampleAt(int x, int y) {
  constexpr int kLeft = 370, kTop = 250, kWidth = 56, kHeight = 20, kRows = 3, kColumns = 3;
  // The last line of pixels on the right and below belongs to the samples as well.
  if (x < kLeft || x > kLeft + kColumns * kWidth || y < kTop || y > kTop + kRows * kHeight) {
    return {};
  }
  const int row = std::min((y - kTop) / kHeight, kRows - 1);
  const int column = std::min((x - kLeft) / kWidth, kColumns - 1);
  return row * kColumns + column;
}

void SetFelt(Game& game, std::int32_t texture) {
  game.TextureRow = texture;
  DrawAnew(game);
}

}  // namespace feltmaster
