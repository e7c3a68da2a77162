#pragma once

#include <array>
#include <string>
#include <string_view>

#include "game/game.h"
#include "view/figure.h"

namespace feltmaster {

// What the Bet Results screen shows: either series for any set of bets, combined.
struct BetResultsChoice {
  BetSet bets;
  bool phantom = false;  // the continuous $1 wagers instead of the player's own

  bool operator==(const BetResultsChoice&) const = default;
};

// BetResultsSelection, the screen's memory between two openings: "S" or a blank for each bet, then
// "1" for the phantom series or "0". An empty text is no bet and the player's own.
BetResultsChoice ReadBetResultsSelection(std::string_view text);
std::string BetResultsSelectionOf(const BetResultsChoice& choice);

struct BetResultsLine {
  std::string_view label;
  std::string wagers, wins, losses;  // blank on the line of the expected value
  std::string net;
  std::string net_percent;  // of the wagers
  Tone tone = Tone::kWin;   // of both
};
inline constexpr int kBetResultsLines = 11;

struct BetResultsTable {
  Figures heads;  // how many bets, what stands on them, the length of the game
  std::array<BetResultsLine, kBetResultsLines> lines;
};
BetResultsTable BetResultsOf(Game& game, const BetResultsChoice& choice);

Rows BetResultRows(Game& game, const BetResultsChoice& choice);

}  // namespace feltmaster
