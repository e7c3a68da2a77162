#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

#include "console/simulation.h"

namespace feltmaster {

// How far a run has come.
struct ProgressState {
  double fraction = 0;  // 0 to 1
  std::uint64_t rolls = 0;
  double seconds = 0;
};
// One line of at most `width` characters: bar, percentage, rolls per second, time left.
std::string ProgressLine(const ProgressState& state, std::size_t width);

// Draws the line on standard error five times a second while it lives, if that is a terminal, and
// wipes it away at the end.
class ProgressBar {
 public:
  // rolls_per_game is the number that each game has for certain, 0 when its end is open.
  ProgressBar(const SimulationProgress& progress, std::int64_t games, std::int32_t rolls_per_game);
  ~ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;

 private:
  void Draw();

  const SimulationProgress& progress_;
  double all_games_;
  double all_rolls_;
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::mutex mutex_;
  std::condition_variable ended_;
  bool end_ = false;
  std::thread thread_;
};

// The same line for work that tells by itself how far it has come.
class WorkBar {
 public:
  WorkBar() = default;
  ~WorkBar();
  WorkBar(const WorkBar&) = delete;
  WorkBar& operator=(const WorkBar&) = delete;

  // 0 to 1; drawn when it is time for it.
  void Show(double done);
  // Show, for as long as the bar lives.
  std::function<void(double)> Showing() {
    return [this](double done) { Show(done); };
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point drawn_ = start_;
};

}  // namespace feltmaster
