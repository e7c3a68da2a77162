#pragma once

#include "game/game.h"
#include "stats/phantom_ledger.h"

namespace feltmaster {

// The rows of the last decision go to 0.
void ForgetLastRoll(Game& game);

// At the start of a roll; DiceTotal and PrevPoint still stand as the roll before left them.
inline void BeginRollResults(Game& game) {
  ++game.RollSerial;
  if (!(game.LastRoll[kActual] | game.LastRoll[kPhantom]).Empty()) ForgetLastRoll(game);
  MoveComeFlags(game);
}

// One decision of a real bet: the wager and its signed net result. A push changes nothing.
void RecordBetResult(Game& game, int bet, MoneyAmount amount, MoneyAmount result);

// Writes the phantom wagers counted so far into the tables. Needed before the rules by which they
// are paid change, and before the tables of the phantom series are read.
void SettlePhantoms(Game& game);

// The three tables by series (0 phantom, 1 actual), bet 0 to 100 and row 0 to 7.
enum class ResultKind { kWagers, kWins, kLosses };
MoneyAmount ResultCell(Game& game, ResultKind kind, int series, int bet, int row);
void SetResultCell(Game& game, ResultKind kind, int series, int bet, int row, MoneyAmount value);

void TotalBetResults(Game& game, int first_bet, int last_bet, bool clear_first);
void ResetBetResults(Game& game);

}  // namespace feltmaster
