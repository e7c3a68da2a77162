#pragma once

#include <string_view>

#include "game/game.h"

namespace feltmaster {

// Applies BetRequest to a bet or Chip-Stack under the house rules; BetChange tells what was
// allowed. x and y are the place of the action in pixels of the layout.
void PlaceBet(Game& game, int bet, float x = 0, float y = 0);
// PlaceBet with chips, sound, and the odds that follow their flat bet.
void PlaceChips(Game& game, int bet, float x = 0, float y = 0);

void TakeFullOdds(Game& game, int bet);
void TakeAllFullOdds(Game& game);
void TakeDownBetQuietly(Game& game, int bet);
void MoveComeBet(Game& game, int from, int to);
void BuyPlaceBet(Game& game, int bet);

inline constexpr int kCallOff = 90;
inline constexpr int kCallOn = 91;
void CallBet(Game& game, int bet, int on_off);
void CallAllBets(Game& game, int on_off);
void RemoveAllBets(Game& game);
void AdjustAllBets(Game& game);

// Takes an amount off the table without any check, as the keyed-in amounts and the scripts do
// before they bet anew: TotalOnTable follows, with the vig charged up front. Gives the vig that
// stood (0 when it is not charged up front); the vig standing is cleared then.
MoneyAmount LiftBet(Game& game, int slot);

// Commits the box for keyed-in amounts (EntryBoxBet, EntryBoxText). False when that raised a
// message, which stops a roll that was to follow.
bool CommitEnteredBet(Game& game);

enum class Atm { kWithdraw = 0, kDeposit = 1 };
void ATMTransaction(Game& game, Atm direction, MoneyAmount amount, bool from_configure = false);

// A drag of a whole bet or stack from one slot to another; anything but a bet or Chip-Stack as the
// goal leaves the money off the table.
void DragBet(Game& game, int from, int to);

}  // namespace feltmaster
