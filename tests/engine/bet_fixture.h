#pragma once

#include <gtest/gtest.h>

#include <string>

#include "base/number_format.h"
#include "config/payoffs.h"
#include "engine/amounts.h"
#include "engine/bet_states.h"
#include "engine/place_bet.h"
#include "game/game.h"
#include "support/recording_surface.h"

namespace feltmaster {

inline void PrintTo(MoneyAmount amount, std::ostream* out) {
  *out << PlainNumber(amount);
}

using namespace money_literals;  // NOLINT: amounts are written 12_usd in every test

// A table with the house's own rules, a thousand dollars in the bankroll and somebody at it.
class BetTable : public testing::Test {
 protected:
  BetTable() {
    game.surface = &surface;
    DefaultPayoffs(game);
    SetChips(1_usd, 5_usd, 25_usd, 100_usd, 500_usd);
    SetBankroll(1000_usd);
    DefaultWorkOnComeOut(game);
    for (int bet = 1; bet <= kBetCount; ++bet) ResetBetState(game, bet);
  }

  void SetBankroll(MoneyAmount amount) { game.BetAmount.Set(kBankroll, amount); }
  void SetChips(MoneyAmount c0, MoneyAmount c1, MoneyAmount c2, MoneyAmount c3, MoneyAmount c4) {
    int slot = kFirstChip;
    for (const MoneyAmount chip : {c0, c1, c2, c3, c4}) game.BetAmount.Set(slot++, chip);
  }
  void SetPoint(int point) {
    game.Point = point;
    game.DiceTotal = point;
    UpdateBetStates(game);
    if (point != 0) CopyPointOddsRow(game);
  }
  void SetRow(int bet, MoneyAmount numerator, MoneyAmount denominator, bool is_to = true) {
    game.PayTable[static_cast<std::size_t>(bet)] = {numerator, is_to, denominator};
  }
  // An amount that stands as it is, with its vig, without any check.
  void Stand(int bet, MoneyAmount amount) {
    LiftBet(game, bet);
    game.BetAmount.Set(bet, amount);
    game.TotalOnTable += amount;
  }
  // The amounts of this moment become those of the roll's start.
  void BeginRoll() {
    for (int slot = 0; slot <= kLastStack; ++slot) {
      game.BetAmountAtRollStart[static_cast<std::size_t>(slot)] = game.BetAmount[slot];
    }
    for (int bet = kComePoint; bet <= kPassLine; ++bet) {
      SetEstablished(game, bet, game.BetAmount[bet]);
    }
  }

  // What is granted of a request.
  MoneyAmount Bet(int bet, MoneyAmount request) {
    game.BetRequest = request;
    PlaceBet(game, bet);
    return game.BetChange;
  }
  MoneyAmount Chips(int bet, MoneyAmount request) {
    game.BetRequest = request;
    PlaceChips(game, bet);
    return game.BetChange;
  }

  // The one message that came up since the last call; empty when none did.
  RecordingSurface::Message TakeMessage() {
    EXPECT_LE(surface.messages.size(), 1u);
    if (surface.messages.empty()) return {};
    RecordingSurface::Message message = surface.messages.back();
    surface.messages.clear();
    return message;
  }

  // What TotalOnTable must be.
  MoneyAmount BetsAndVig() const {
    MoneyAmount total;
    for (int bet = 1; bet <= kBetCount; ++bet) {
      total += game.BetAmount[bet];
      if (ChargesVigUpFront(game, bet)) {
        total += IsLay(bet) ? game.LayVigPaid[static_cast<std::size_t>(bet - kLay)]
                            : game.BuyVigPaid[static_cast<std::size_t>(bet - kBuy)];
      }
    }
    return total;
  }

  RecordingSurface surface;
  Game game;
};

}  // namespace feltmaster
