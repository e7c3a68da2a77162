#pragma once

#include <optional>

#include "game/bet_places.h"
#include "game/game.h"

namespace feltmaster {

// Applies BetRequest to a bet or Chip-Stack under the house rules; BetChange tells what was
// allowed.
void PlaceBet(Game& game, int bet);
// PlaceBet with chips, sound, and the odds that follow their flat bet. `pointer` is where the
// player put down a chip; the stack is laid anew without it.
void PlaceChips(Game& game, int bet, std::optional<Pixel> pointer = std::nullopt);

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

// Bets an amount in place of what stands. A Pass Line or Come bet is changed by the difference,
// since the house guards what is established; any other bet is taken off first and the whole amount
// is bet anew.
void BetAnew(Game& game, int slot, MoneyAmount amount);

// Takes an amount off the table without any check, as the keyed-in amounts and the scripts do
// before they bet anew: TotalOnTable follows, with the vig charged up front. Gives the vig that
// stood (0 when it is not charged up front); the vig standing is cleared then.
MoneyAmount LiftBet(Game& game, int slot);

// Commits what was typed into the entry box. False when that raised a message, which stops a roll
// that was to follow.
bool CommitEnteredBet(Game& game);

enum class Atm { kWithdraw = 0, kDeposit = 1 };
void ATMTransaction(Game& game, Atm direction, MoneyAmount amount, bool from_configure = false);

// A drag of a whole bet or stack. Lifting takes it down; DragAmount is what the house gave back, 0
// for nothing to drag. Dropped on anything but a bet or Chip-Stack the money stays off the table.
void LiftForDrag(Game& game, int from);
void DropDragged(Game& game, int to);

}  // namespace feltmaster
