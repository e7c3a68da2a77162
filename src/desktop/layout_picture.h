#pragma once

#include <QImage>
#include <array>
#include <cstdint>
#include <string>

#include "game/game.h"
#include "table/printed_rules.h"

namespace feltmaster {

// Everything on which the picture of the empty table depends.
struct LayoutLook {
  std::array<std::int32_t, 8> colors{};
  std::int32_t texture = 0;
  bool hop_bets = false;
  PrintedRules rules;
  std::int32_t chip_design = 1;  // of the chips in the rack
  std::array<std::string, kChipCount> chip_texts;

  bool operator==(const LayoutLook&) const = default;
};
LayoutLook LookOf(const Game& game);

// The cloths that a layout needs, kept from one painting to the next.
class FeltStore {
 public:
  const QImage& Light(int texture);

 private:
  std::array<QImage, 9> lights_;
};

// The table without what stands on it: rail, felt, lines, lettering and the house rules. The image
// has Format_RGB32; `scale` is its device pixels for each pixel of the picture.
QImage PaintLayout(const LayoutLook& look, double scale, FeltStore& felts);

}  // namespace feltmaster
