#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "game/game.h"
#include "reference/reference_table.h"
#include "surface/null_surface.h"

namespace reference {

// What can happen at a table. A session is a list of these, fixed before it is played, so that one
// that goes wrong can be cut down to the few commands that matter.
enum class Verb {
  kRoll,           // a, b the dice
  kPlaceChips,     // bet a, request x
  kPlaceBet,       // bet a, request x
  kTakeFullOdds,   // odds bet a
  kTakeAllOdds,    //
  kTakeDown,       // bet a
  kMoveCome,       // Come bet to slot a
  kBuyPlace,       // bet a
  kCall,           // bet a, b on or off
  kCallAll,        // b on or off
  kRemoveAll,      //
  kAdjustAll,      //
  kKeyIn,          // bet a, amount x
  kWithdraw,       // x
  kDeposit,        // x
  kWorkOnComeOut,  // bet a, b works
  kSet,            // setting a, cell b, value x
  kChangeVig,      // setting a, value x
  kPayRow,         // row a, b is a "to" ratio, x : y
  kFieldRow,       // row a, b is a "to" ratio, x : y
  kFieldPreset,    // preset a
  kDefaultPayoffs,
  kDenominations,  // set a; before the first bet
  kBankroll,       // x; before the first roll
  kResetCounters,  // roll event a
  kRescanGraph,
  kRebuildAverages,
  kDrawGraph,  // b rescale
  kSettle,     // compares everything, and writes out what the engine puts off
};

enum class Setting {
  kMinPlacardBet,
  kMaxPlacardBet,
  kMaxOddsBet,
  kOddsAllowed,
  kOddsCalcMethod,
  kAllowPutBets,
  kLayVigPct,
  kBuyVigPct,
  kAllowNegBankroll,
  kHandleWinningBets,
  kHandleLosingBets,
  kHandleChoiceTag,
  kHandleAmount,
  kHandleUnits,
  kAutoAdjust,
  kLayBias,
  kPlaceBias,
  kDoBias,
  kAutoTakeFullOdds,
  kAutoRemovePlaceBets,
  kAutoRolls,
  kGraphShowAverage,
  kGraphAverageRolls,
  kGraphAdjustType,
  kGraphManualScale,
  kGraphRefLines,
  kRefLineRoll,
  kCount,
};

struct Command {
  Verb verb = Verb::kRoll;
  int a = 0;
  int b = 0;
  Raw x = 0;
  Raw y = 0;
};
std::string Describe(const Command& command);

// Does a command on one table alone; what the rules of the house would refuse at the control itself
// (a deposit without cover, a bankroll box) is left undone. False for a roll that did not take
// place.
bool Perform(const Command& command, feltmaster::Game& game);
bool Perform(const Command& command, ReferenceTable& table);

// A game without files at its defaults, and the same for every caller.
void MakeReady(feltmaster::Game& game, feltmaster::Surface& surface);

// The engine's table and the reference side by side.
class Tables {
 public:
  Tables();
  // Does the command on both tables and compares them, after a roll in every array of the state
  // record; the first difference in words, or nothing.
  std::string Do(const Command& command);

 private:
  std::string CompareTable(bool rolled);
  std::string CompareArrays(feltmaster::Game& game);

  feltmaster::NullSurface surface_;
  feltmaster::Game game_;
  feltmaster::Game read_;  // a copy to read from: reading settles what the engine puts off
  ReferenceTable table_;
};

// A random session of that many rolls. What the engine puts off is settled at every step, or
// seldom, so that it piles up. Ratios may have denominators with cents where fractions are wanted.
struct SessionKind {
  int rolls = 1000;
  bool settles = false;
  bool fractions = true;
};
std::vector<Command> RandomSession(std::uint64_t seed, const SessionKind& kind);

}  // namespace reference
