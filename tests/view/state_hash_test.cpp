#include "view/state_hash.h"

#include <gtest/gtest.h>

#include <memory>
#include <set>

#include "automation/hyper_drive.h"
#include "console/simulation.h"
#include "engine/start_up.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "surface/null_surface.h"

namespace feltmaster {
namespace {

std::unique_ptr<Game> PlayedGame(NullSurface& surface, std::int32_t rolls) {
  auto game = std::make_unique<Game>();
  game->surface = &surface;
  StartUp(*game, {.data_dir = "", .seed = 99});
  SetUpPassLineWithOdds(*game);
  BetPassLine(*game);
  game->AutoRollsRemaining = rolls;
  ToggleHyperDrive(*game);
  return game;
}

// Each of these is a change of the game that play could make.
TEST(StateHash, ChangesWithEveryPartOfTheGame) {
  NullSurface surface;
  const auto game = PlayedGame(surface, 700);
  using Change = void (*)(Game&);
  const Change changes[] = {
      [](Game& g) { g.BetAmount.Set(kBankroll, g.BetAmount[kBankroll] + MoneyAmount(1)); },
      [](Game& g) { g.BetAmount.Set(kLastStack, MoneyAmount(1)); },
      [](Game& g) { g.BetAmountAtRollStart[88] = MoneyAmount(1); },
      [](Game& g) { g.EstablishedAmount[51] += MoneyAmount(1); },
      [](Game& g) { g.LayVigPaid[9] = MoneyAmount(1); },
      [](Game& g) { g.BetState.Set(60, kCalledOff); },
      [](Game& g) { g.BetStreak.SetBefore(88, 3); },
      [](Game& g) { g.PrevPrevPoint += 1; },
      [](Game& g) { g.PayTable[88].PayNumerator = MoneyAmount(2); },
      [](Game& g) { g.FieldPayTable[21].PayIsTo = false; },
      [](Game& g) { g.OddsAllowed[4] = MoneyAmount(3); },
      [](Game& g) { g.WorkOnComeOut.Put(31, true); },
      [](Game& g) { g.Genrand.word[623] ^= 1; },
      [](Game& g) { g.RandomMt.index += 1; },
      [](Game& g) { g.Ran1State.R[97] += 1; },
      [](Game& g) { g.Ran2State.Iy += 1; },
      [](Game& g) { g.DiceProbability[1][7][11] += 1; },
      [](Game& g) { SetRollCounts(g, 90, 1); },
      [](Game& g) { SetRollsSinceLast(g, 7, 1000); },
      [](Game& g) { SetScriptRollsSinceSeen(g, 7, 1000); },
      [](Game& g) { GapCell(g, 2, 200) += 1; },
      [](Game& g) { g.GameCounters[kLastHandMisses] += 1; },
      [](Game& g) { SetResultCell(g, ResultKind::kLosses, kPhantom, 88, 5, MoneyAmount(77)); },
      [](Game& g) { SetResultCell(g, ResultKind::kWagers, kActual, 1, 1, MoneyAmount(77)); },
      [](Game& g) { g.BankrollHistory[1050] += MoneyAmount(1); },
      [](Game& g) { g.GraphTop += MoneyAmount(50); },
      [](Game& g) {
        g.ScriptFlags.push_back({"flag", false, false});
      },
      [](Game& g) { g.ChipStackName[99] = "x"; },
      [](Game& g) { g.Decisions.count += 1; },
  };
  std::set<std::uint64_t> seen = {StateHash(*game)};
  for (std::size_t i = 0; i < std::size(changes); ++i) {
    const auto changed = std::make_unique<Game>(*game);
    changes[i](*changed);
    EXPECT_TRUE(seen.insert(StateHash(*changed)).second) << "change " << i;
  }
}

// Deriving what was lazily kept is no change, and two equal games have one signature.
TEST(StateHash, IsOfTheMeaningNotOfTheForm) {
  NullSurface surface;
  const auto game = PlayedGame(surface, 700);
  const auto settled = std::make_unique<Game>(*game);
  SettlePhantoms(*settled);
  SettleAverages(*settled);
  EXPECT_EQ(StateHash(*settled), StateHash(*game));
  EXPECT_EQ(StateHash(*PlayedGame(surface, 700)), StateHash(*game));
  EXPECT_NE(StateHash(*PlayedGame(surface, 701)), StateHash(*game));
}

}  // namespace
}  // namespace feltmaster
