#pragma once

#include <array>
#include <cstdint>

#include "game/bets.h"

namespace feltmaster {

// A pixel of the table picture, which is 640 wide and 440 high whatever the size of the window.
struct Pixel {
  int x = 0;
  int y = 0;
  constexpr bool operator==(const Pixel&) const = default;
};

inline constexpr int kTableWidth = 640;
inline constexpr int kTableHeight = 440;

namespace bet_places_internal {

constexpr auto MakePlaces() {
  std::array<Pixel, kBetCount + 1> places{};
  const auto put = [&places](int bet, int x, int y) {
    places[static_cast<std::size_t>(bet)] = {x, y};
  };
  for (int slot = 0; slot < kSlotCount; ++slot) {
    const int x = 104 + 41 * slot;
    put(kLay + slot, x, 65);
    put(kComePoint + slot, x, 140);
    put(kComeOdds + slot, x, 131);
    put(kPlace + slot, x, 165);
    put(kBuy + slot, x, 165);
  }
  put(kPassLine, 354, 360);
  put(kPassOdds, 354, 387);
  put(kComeBox, 354, 210);
  put(kField, 354, 297);
  put(kBig6, 104, 287);
  put(kBig8, 130, 328);
  put(kCAndE, 463, 356);

  // The panel on the right has two columns, for the hard ways and props as for the Hop bets.
  constexpr int kLeft = 524;
  constexpr int kRight = 587;
  put(kSeven, kLeft, 126);
  put(kCraps, kLeft, 165);
  put(kHard4, kLeft, 204);
  put(kHard6, kRight, 204);
  put(kHard10, kLeft, 243);
  put(kHard8, kRight, 243);
  put(kThree, kLeft, 282);
  put(kTwo, kRight, 282);
  put(kEleven, kLeft, 321);
  put(kTwelve, kRight, 321);
  put(kHorn, 553, 360);

  put(kOver7, kLeft, 113);
  put(kUnder7, kRight, 113);
  put(kWorld, kLeft, 360);
  constexpr int kHops[9][2] = {
      {kHop13, kHop15}, {kHop22, kHop33}, {kHop14, kHop24}, {kHop23, kHop16}, {kHop36, kHop25},
      {kHop45, kHop34}, {kHop55, kHop44}, {kHop46, kHop26}, {0, kHop35},
  };
  for (int row = 0; row < 9; ++row) {
    const int y = 138 + 25 * row;
    if (kHops[row][0] != 0) put(kHops[row][0], kLeft, y);
    put(kHops[row][1], kRight, y);
  }
  return places;
}

}  // namespace bet_places_internal

// Where the chips of a bet lie: the centre of the first chip of its stack. By bet, 1 to 88.
inline constexpr std::array<Pixel, kBetCount + 1> kBetPlace = bet_places_internal::MakePlaces();

// The same of the four piles of Chip-Stacks; pile 1 is the lowest.
inline constexpr int kPileCount = 4;
inline constexpr std::array<Pixel, kPileCount + 1> kPilePlace = {
    {{0, 0}, {16, 217}, {16, 166}, {16, 115}, {16, 64}}};

static_assert([] {
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const Pixel place = kBetPlace[static_cast<std::size_t>(bet)];
    if (place.x <= 0 || place.x >= kTableWidth || place.y <= 0 || place.y >= kTableHeight) {
      return false;
    }
  }
  return true;
}());

}  // namespace feltmaster
