#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "game/game.h"
#include "stats/roll_events.h"

namespace feltmaster {

// What a roll writes into the ledger of the phantom wagers. It runs on every roll and is therefore
// inline; the rare parts are functions.

// The ledger keeps the Come bets on their numbers and their odds as bits.
inline constexpr int kComeBets = 2 * kSlotCount;
static_assert(kComeOdds == kComePoint + kSlotCount);
inline constexpr std::uint32_t kAllComeBets = (1u << kComeBets) - 1u;
constexpr std::uint32_t ComeBit(int bet) {
  return 1u << (bet - kComePoint);
}
// The Come bets that a total decides: the two on it, or all on a 7.
inline constexpr std::array<std::uint32_t, 13> kComeBetsOfTotal = [] {
  std::array<std::uint32_t, 13> bets{};
  for (int slot = 0; slot < kSlotCount; ++slot) {
    bets[static_cast<std::size_t>(NumberOfSlot(slot))] =
        ComeBit(kComePoint + slot) | ComeBit(kComeOdds + slot);
  }
  bets[7] = kAllComeBets;
  return bets;
}();

// The bets that the last roll decided are gone; with a point on, others have come to its number.
inline void MoveComeFlags(Game& game) {
  const std::uint32_t decided = kComeBetsOfTotal[static_cast<std::size_t>(game.DiceTotal)];
  const auto travelled = static_cast<std::uint32_t>((game.DiceTotal != 7) & (game.PrevPoint > 0));
  std::uint32_t& come_on = game.Ledger.come_on;
  come_on = (come_on & ~decided) | (decided * travelled);
}

inline void CountDecision(DecisionTally& tally, std::uint32_t serial) {
  ++tally.count;
  tally.last = serial;
}

// A seven takes these Come bets.
void CountComeBetsLost(Game& game, std::uint32_t bets);
// The number that the ledger gives to a set of working bets. One that it has no room for settles
// what was counted.
std::size_t NumberOfWorkingSet(Game& game, const BetSet& working);

// The set of bets that worked in this roll. It is most likely that of the last roll like it.
inline std::size_t WorkingSetOfRoll(Game& game) {
  const WorkingSetTallies& rolls = game.Ledger.rolls;
  const BetSet& working = game.BetState.Working();
  std::size_t& set = game.Ledger.last_set[game.PrevPoint != 0];
  if (set >= rolls.count || rolls.sets[set] != working) [[unlikely]] {
    set = NumberOfWorkingSet(game, working);
  }
  return set;
}

// Without a branch on which of them stand, which nobody could guess.
inline void CountComeBets(Game& game) {
  PhantomLedger& ledger = game.Ledger;
  const std::uint32_t standing = game.AllowPutBets ? kAllComeBets : ledger.come_on;
  const std::uint32_t decided = standing & game.BetState.Working().Slice(kComePoint, kComeBets);
  if (game.DiceTotal == 7) {
    CountComeBetsLost(game, decided);
    return;
  }
  const auto slot = static_cast<std::size_t>(SlotOfNumber(game.DiceTotal));
  const std::uint32_t flat = decided >> slot & 1u;
  const std::uint32_t odds = decided >> (slot + kSlotCount) & 1u;
  CountDecision(ledger.come_won[slot][flat + 2 * odds], game.RollSerial);
}

// The phantom dollar on every position that the dice on the table, which make `pair`, decide. Call
// it once a roll, before the bets of the player are resolved.
inline void RecordPhantomDecisions(Game& game, int pair) {
  auto& tallies = game.Ledger.rolls.tallies[WorkingSetOfRoll(game)];
  const auto point = static_cast<std::size_t>(game.PrevPoint);
  CountDecision(tallies[point][static_cast<std::size_t>(pair)], game.RollSerial);
  CountComeBets(game);
}

}  // namespace feltmaster
