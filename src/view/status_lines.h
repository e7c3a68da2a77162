#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "game/game.h"
#include "view/rows.h"

namespace feltmaster {

// The two status lines under the layout: in the left column how the player stands, in the right one
// the bet under the pointer.

enum class StatusColor : std::uint8_t { kBlack, kBlue, kRed };  // the bright ones
struct StatusText {
  std::string text;
  StatusColor color = StatusColor::kBlack;

  bool operator==(const StatusText&) const = default;
};
using StatusLine = std::vector<StatusText>;
struct StatusDisplay {
  std::array<StatusLine, 2> left;
  std::array<StatusLine, 2> right;
};

inline constexpr int kRecorderIndicator = 200;  // the value of HitBet over it

// The bet that the right column tells of: that of the entry box, else the one under the pointer.
int BetOfStatus(const Game& game);
// A label of a Chip-Stack, the second line of the right column, may be too long for the picture;
// see CutToFit.
StatusDisplay StatusLines(const Game& game, int bet);
// The same as plain rows, without the empty ones.
Rows StatusRows(const Game& game, int bet);

// "(called OFF)", "(not working)", "(working)" or "(called ON)".
std::string WorkingState(const Game& game, int bet);

// What a bet pays, to be shown when the pointer rests on it: a blank and the name, and on a second
// line " Pays " and the ratio. Empty for what is no bet.
std::string QuickStats(const Game& game, int bet);

// The longest beginning of a text, in whole characters, that `fits`.
template <typename Fits>
std::string CutToFit(std::string_view text, Fits&& fits) {
  while (!text.empty() && !fits(text)) text = CutAtCharacter(text, text.size() - 1);
  return std::string(text);
}

}  // namespace feltmaster
