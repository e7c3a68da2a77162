#include "console/batch_surface.h"

#include <algorithm>
#include <string_view>

#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kTellEvery = 1024;  // rolls

}  // namespace

std::int64_t NetOf(const Game& game) {
  const __int128 net =
      static_cast<__int128>(game.BetAmount[kBankroll].Raw()) - game.AmountInvested.Raw();
  using Limits = std::numeric_limits<std::int64_t>;
  return static_cast<std::int64_t>(
      std::clamp(net, static_cast<__int128>(Limits::min()), static_cast<__int128>(Limits::max())));
}

BatchSurface::BatchSurface(Game& game, const SessionLimits& limits, std::int32_t seed,
                           BankrollPath* path, SimulationProgress& progress)
    : NullSurface(static_cast<std::uint64_t>(seed)),
      game_(game),
      limits_(limits),
      path_(path),
      progress_(progress) {
  // A script that seeds by the clock still gets another stream in every game.
  SetClock(seed);
}

void BatchSurface::BeginSession() {
  stands_ = game_.TotalOnTable.Raw() != 0;
  idle_hand_ = !stands_;
  if (stands_) least_stake_ = game_.TotalOnTable.Raw();
  looks_in_run_ = 0;
  if (path_ != nullptr) {
    path_->places.reserve(kPathPlaces);
    path_->places.push_back({0, NetOf(game_)});
    next_place_ = 1;
  }
}

void BatchSurface::LetEventsThrough() {
  if (game_.AutoBetRunning) {
    WatchScript();
    return;
  }
  looks_in_run_ = 0;
  CountRolls();
  FollowBets();
  const std::int64_t net = NetOf(game_);
  if (rolls_ >= next_place_) FollowPath(net);
  if (end_ == GameEnd::kNotPlayed) end_ = Verdict(net);
  if (end_ != GameEnd::kNotPlayed) game_.KeepRolling = false;
}

void BatchSurface::WatchScript() {
  constexpr std::int64_t kLinesBetweenLooks = 500;
  const std::int64_t lines = ++looks_in_run_ * kLinesBetweenLooks;
  if (lines >= kLongestRun) {
    script_fault_ = "the script does not come to an end";
  } else if (lines >= kPatience && progress_.stop.load(std::memory_order_relaxed)) {
    end_ = GameEnd::kInterrupted;
  } else {
    return;
  }
  game_.AutoBetRunning = false;
  game_.KeepRolling = false;
}

// A script that resets the table also resets the table's own count.
void BatchSurface::CountRolls() {
  const std::int32_t now = RollCounts(game_, 0);
  if (now < table_rolls_) rolls_before_reset_ += table_rolls_ + 1;
  table_rolls_ = now;
  rolls_ = rolls_before_reset_ + table_rolls_;
  if (rolls_ - rolls_told_ >= kTellEvery) {
    progress_.rolls.fetch_add(static_cast<std::uint64_t>(rolls_ - rolls_told_),
                              std::memory_order_relaxed);
    rolls_told_ = rolls_;
  }
}

void BatchSurface::FollowPath(std::int64_t net) {
  auto& places = path_->places;
  if (places.size() >= kPathPlaces) {
    // Every other place goes, so that a path of any length fits.
    std::size_t kept = 0;
    for (std::size_t i = 0; i < places.size(); i += 2) places[kept++] = places[i];
    places.resize(kept);
    stride_ *= 2;
  }
  if (rolls_ % stride_ == 0) places.push_back({rolls_, net});
  next_place_ = rolls_ - rolls_ % stride_ + stride_;
}

void BatchSurface::FollowBets() {
  const bool stands = game_.TotalOnTable.Raw() != 0;
  if (stands && !stands_) {
    const std::int64_t stake = game_.TotalOnTable.Raw();
    least_stake_ = least_stake_ == 0 ? stake : std::min(least_stake_, stake);
  }
  stands_ = stands;

  const std::int32_t hands = game_.GameCounters[kHandsCompleted];
  idle_whole_hand_ = hands != hands_ && idle_hand_ && !stands;
  if (hands != hands_) idle_hand_ = true;
  if (stands) idle_hand_ = false;
  hands_ = hands;
}

// A player is broke when for a whole shooter no bet stood and none stands now, because the bankroll
// does not carry the smallest bet of the table or of his strategy. A strategy that waits with money
// enough is not broke.
bool BatchSurface::IsBroke() const {
  if (!idle_whole_hand_ || game_.AllowNegBankroll) return false;
  const std::int64_t needed = std::max(game_.MinPlacardBet.Raw(), least_stake_);
  return game_.BetAmount[kBankroll].Raw() < needed;
}

// The goals of the session come before its length, and the player's own stop before both.
GameEnd BatchSurface::Verdict(std::int64_t net) {
  if (net >= limits_.win) return GameEnd::kStopWin;
  if (net <= limits_.loss) return GameEnd::kStopLoss;
  if (!game_.KeepRolling) return GameEnd::kNotPlayed;  // EndSession finds out why
  if (IsBroke()) return GameEnd::kBroke;
  if (hands_ >= limits_.shooters) return GameEnd::kShooters;
  if (rolls_ >= limits_.rolls) return limits_.rolls_end;
  if (progress_.stop.load(std::memory_order_relaxed)) return GameEnd::kInterrupted;
  return GameEnd::kNotPlayed;
}

GameEnd BatchSurface::EndSession() {
  progress_.rolls.fetch_add(static_cast<std::uint64_t>(rolls_ - rolls_told_),
                            std::memory_order_relaxed);
  rolls_told_ = rolls_;
  if (path_ != nullptr && (path_->places.empty() || path_->places.back().roll != rolls_)) {
    path_->places.push_back({rolls_, NetOf(game_)});
  }
  if (!script_fault_.empty()) return GameEnd::kAborted;
  if (end_ != GameEnd::kNotPlayed) return end_;

  const std::string_view why = game_.HyperDriveStopText;
  if (why == kStoppedByScript) return GameEnd::kStrategy;
  if (why == kStoppedByRollCount) return GameEnd::kRollCount;
  if (why == kStoppedByScriptError || (why.empty() && !game_.LastErrorText.empty())) {
    script_fault_ = game_.LastErrorText;
    return GameEnd::kAborted;
  }
  if (Abs(game_.BetAmount[kBankroll]) > MoneyAmount::FromWhole(kBankLimit)) {
    return GameEnd::kHouseLimit;
  }
  return table_rolls_ >= kRollLimit ? GameEnd::kRolls : GameEnd::kQuestion;
}

}  // namespace feltmaster
