#pragma once

#include <atomic>
#include <cstdint>
#include <limits>
#include <string>

#include "console/simulation.h"
#include "game/game.h"
#include "surface/null_surface.h"

namespace feltmaster {

// When a game is over, as the experiment has it. The nets, in ten-thousandths, at which it is won
// and lost.
struct SessionLimits {
  std::int32_t rolls = kRollLimit;
  GameEnd rolls_end = GameEnd::kRolls;  // whether the rolls were asked for as rolls or as hours
  std::int32_t shooters = std::numeric_limits<std::int32_t>::max();
  std::int64_t win = std::numeric_limits<std::int64_t>::max();
  std::int64_t loss = std::numeric_limits<std::int64_t>::min();
};

// The net result of a game in ten-thousandths, held within 64 bits.
std::int64_t NetOf(const Game& game);

// A minimised table that nobody sits at, which ends the game when the session is over. Hyper-Drive
// comes by once after each roll; a script that runs comes by every 500 lines.
class BatchSurface final : public NullSurface {
 public:
  // A script that goes on for so many lines in one run never ends.
  static constexpr std::int64_t kLongestRun = 10'000'000;
  // An interrupted run may go on for so many, to end its roll in order.
  static constexpr std::int64_t kPatience = 500'000;

  BatchSurface(Game& game, const SessionLimits& limits, std::int32_t seed, BankrollPath* path,
               SimulationProgress& progress);

  // To be called when the table stands ready for the first roll.
  void BeginSession();
  // And when the rolling has ended. Gives how it did.
  GameEnd EndSession();

  void LetEventsThrough() override;

  std::int32_t Rolls() const { return rolls_; }
  // Why the script was cut off; empty when it was not.
  const std::string& ScriptFaultText() const { return script_fault_; }

 private:
  static constexpr std::int32_t kNever = std::numeric_limits<std::int32_t>::max();

  void WatchScript();
  void CountRolls();
  void FollowPath(std::int64_t net);
  void FollowBets();
  bool IsBroke() const;
  GameEnd Verdict(std::int64_t net);

  Game& game_;
  const SessionLimits& limits_;
  BankrollPath* path_;
  SimulationProgress& progress_;

  std::int32_t rolls_ = 0;
  std::int32_t table_rolls_ = 0;  // rolls counted by the table, which a script may have reset
  std::int32_t rolls_before_reset_ = 0;
  std::int32_t rolls_told_ = 0;

  std::int32_t next_place_ = kNever;
  std::int32_t stride_ = 1;

  std::int32_t hands_ = 0;
  std::int64_t least_stake_ = 0;  // least money with which an empty table was bet on; 0 none yet
  bool stands_ = false;           // a bet stood at the last look
  bool idle_hand_ = true;         // no bet has stood in this hand
  bool idle_whole_hand_ = false;  // nor in all of the one that ended with this roll

  std::int64_t looks_in_run_ = 0;
  std::string script_fault_;
  GameEnd end_ = GameEnd::kNotPlayed;
};

}  // namespace feltmaster
