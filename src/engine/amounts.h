#pragma once

#include <string>

#include "game/game.h"

namespace feltmaster {

inline MoneyAmount BettingUnit(const Game& game) {
  return game.BetAmount[kFirstChip];
}

// bet is 11 to 51.
inline void SetEstablished(Game& game, int bet, MoneyAmount amount) {
  game.EstablishedAmount[static_cast<std::size_t>(bet)] = amount;
  game.BetAmount.MarkForRollStart(bet);
}
inline MoneyAmount Established(const Game& game, int bet) {
  return game.EstablishedAmount[static_cast<std::size_t>(bet)];
}
inline MoneyAmount AtRollStart(const Game& game, int slot) {
  return game.BetAmountAtRollStart[static_cast<std::size_t>(slot)];
}
inline MoneyAmount AtRollEnd(const Game& game, int slot) {
  return game.BetAmountAtRollEnd[static_cast<std::size_t>(slot)];
}

// The vig standing on a Lay or Buy bet, writable; only for those bets.
inline MoneyAmount& StandingVig(Game& game, int bet) {
  return IsLay(bet) ? game.LayVigPaid[static_cast<std::size_t>(bet - kLay)]
                    : game.BuyVigPaid[static_cast<std::size_t>(bet - kBuy)];
}
inline MoneyAmount VigStanding(const Game& game, int bet) {
  return IsLay(bet) ? game.LayVigPaid[static_cast<std::size_t>(bet - kLay)]
                    : game.BuyVigPaid[static_cast<std::size_t>(bet - kBuy)];
}
// Whether the rules charge the vig of this bet up front; false for bets without vig.
inline bool ChargesVigUpFront(const Game& game, int bet) {
  return HasVig(bet) && (IsLay(bet) ? game.LayVigAllBets : game.BuyVigAllBets);
}

inline bool Notifies(const Game& game, std::int32_t notice) {
  return (game.NotifyFlags & notice) != 0 && !game.HyperDriveActive;
}

// The name of a bet, of the rail, or of a Chip-Stack ("Chip-Stack #57"; the piles on the table have
// names of their own).
std::string NameOfBet(const Game& game, int slot);
// "Place 6 Bet", the usual title of a message about a bet.
std::string TitleOfBet(const Game& game, int slot);

}  // namespace feltmaster
