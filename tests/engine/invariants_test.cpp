// What holds on any table after any command: long random sessions under random rules.
#include <gtest/gtest.h>

#include <memory>

#include "engine/amounts.h"
#include "engine/bet_limits.h"
#include "reference/session.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {
namespace {

using reference::Command;
using reference::Verb;

MoneyAmount MoneyOfDecisions(const Game& game) {
  MoneyAmount net;
  for (std::int32_t i = 0; i < game.Decisions.count; ++i) {
    net += game.Decisions.list[static_cast<std::size_t>(i)].net;
  }
  return net;
}

// Bets and the vig charged up front.
MoneyAmount MoneyOnTable(Game& game) {
  MoneyAmount sum;
  for (int bet = 1; bet <= kBetCount; ++bet) {
    sum += game.BetAmount[bet];
    if (ChargesVigUpFront(game, bet)) sum += StandingVig(game, bet);
  }
  return sum;
}

void ExpectSoundBets(Game& game) {
  const MoneyAmount unit = BettingUnit(game);
  ASSERT_EQ(game.TotalOnTable, MoneyOnTable(game));
  for (int bet = 1; bet <= kBetCount; ++bet) {
    const MoneyAmount amount = game.BetAmount[bet];
    if (amount == MoneyAmount(0)) continue;
    ASSERT_GT(amount, MoneyAmount(0)) << bet;
    ASSERT_TRUE(IsMultipleOf(amount, unit)) << bet << " holds " << amount.Raw();
    if (IsLay(bet) || IsBuy(bet)) {
      ASSERT_TRUE(IsMultipleOf(StandingVig(game, bet), unit)) << bet;
    }
  }
}

// A bet that has just been raised obeys its maximum. Where the house's minimum is above it (odds on
// a small flat bet), the minimum rules.
void ExpectWithinMaximum(Game& game, int bet) {
  ComputeMinBet(game, bet);
  const MoneyAmount minimum = game.MinBetHere;
  ComputeMaxBet(game, bet);
  if (minimum > game.MaxBetHere) return;
  ASSERT_LE(game.BetAmount[bet], game.MaxBetHere) << bet;
}

void ExpectSoundCounts(Game& game) {
  // The events of the 36 ordered combinations of the dice.
  std::int64_t rolls = 0;
  for (const int event : {2,  12, 13, 14, 15, 16, 22, 23, 24, 25, 27, 28, 29, 30, 33, 34, 35, 36,
                          39, 40, 41, 42, 43, 44, 48, 49, 50, 51, 54, 55, 56, 57, 60, 61, 63, 64}) {
    rolls += RollCounts(game, event);
  }
  ASSERT_EQ(rolls, RollCounts(game, 0));

  for (int event = 2; event < kRollCategories; ++event) {
    const auto& gaps = GapsOf(game, event);
    std::int64_t hits = 0;
    std::int64_t length = gaps[0];  // of the gaps longer than 200
    for (int gap = 1; gap <= 200; ++gap) {
      hits += gaps[static_cast<std::size_t>(gap)];
      if (gap < 200) length += std::int64_t{gap} * gaps[static_cast<std::size_t>(gap)];
    }
    ASSERT_EQ(hits, RollCounts(game, event)) << event;
    // What is left are gaps of exactly 200.
    const std::int64_t rest = rolls - RollsSinceLast(game, event) - length;
    ASSERT_EQ(rest % 200, 0) << event;
    ASSERT_GE(rest, 0) << event;
    ASSERT_LE(rest, 200 * gaps[200]) << event;
  }

  for (const int series : {kPhantom, kActual}) {
    MoneyAmount net;
    for (int bet = 1; bet <= kBetCount; ++bet) {
      const auto cell = [&](ResultKind kind, int row) {
        return ResultCell(game, kind, series, bet, row);
      };
      ASSERT_EQ(cell(ResultKind::kWins, kResultCount) + cell(ResultKind::kLosses, kResultCount),
                cell(ResultKind::kWagers, kResultCount))
          << bet << " series " << series;
      for (const ResultKind kind : {ResultKind::kWagers, ResultKind::kWins, ResultKind::kLosses}) {
        ASSERT_LE(cell(kind, kResultLow), cell(kind, kResultHigh)) << bet;
        ASSERT_LE(cell(kind, kResultHigh), cell(kind, kResultTotal)) << bet;
      }
      net += cell(ResultKind::kWins, kResultTotal) - cell(ResultKind::kLosses, kResultTotal);
    }
    // The bankroll is what was brought and what the bets of the player made of it.
    if (series == kActual) {
      ASSERT_EQ(game.BetAmount[kBankroll], game.AmountInvested + net);
    }
  }
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kSessions = 40;
#else
constexpr int kSessions = 400;
#endif

void PlaySession(std::uint64_t seed) {
  NullSurface surface;
  const auto owned = std::make_unique<Game>();
  Game& game = *owned;
  reference::MakeReady(game, surface);
  // Ratios with cents can ask for bets between two units; they are left out.
  for (const Command& command :
       reference::RandomSession(seed, {.rolls = 800, .fractions = false})) {
    SCOPED_TRACE(reference::Describe(command));
    const MoneyAmount bankroll = game.BetAmount[kBankroll];
    const MoneyAmount invested = game.AmountInvested;
    const bool done = reference::Perform(command, game);
    ASSERT_EQ(game.LastErrorText, "");
    if (command.verb == Verb::kRoll && done) {
      ASSERT_EQ(game.BetAmount[kBankroll], bankroll + MoneyOfDecisions(game));
    }
    if (command.verb != Verb::kRoll) {
      ASSERT_EQ(game.BetAmount[kBankroll] - bankroll, game.AmountInvested - invested);
    }
    ExpectSoundBets(game);
    if (command.verb == Verb::kPlaceChips && game.BetChange > MoneyAmount(0) &&
        IsLayoutBet(command.a)) {
      ExpectWithinMaximum(game, command.a);
    }
    if (command.verb == Verb::kSettle) ExpectSoundCounts(game);
    if (::testing::Test::HasFatalFailure()) return;
  }
}

TEST(Invariants, HoldAfterEveryCommand) {
  for (std::uint64_t seed = 1; seed <= kSessions; ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    PlaySession(seed);
    if (HasFatalFailure()) return;
  }
}

}  // namespace
}  // namespace feltmaster
