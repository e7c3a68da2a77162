#include "console/progress_bar.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "base/number_format.h"

namespace feltmaster {

namespace {

constexpr auto kInterval = std::chrono::milliseconds(200);
constexpr std::size_t kUsualWidth = 80;

// "12 s", "3:05", "2:03:05".
std::string TimeText(double seconds) {
  const auto whole = static_cast<long long>(std::ceil(std::min(seconds, 359'999.0)));
  char text[32];
  if (whole < 60) {
    std::snprintf(text, sizeof text, "%lld s", whole);
  } else if (whole < 3600) {
    std::snprintf(text, sizeof text, "%lld:%02lld", whole / 60, whole % 60);
  } else {
    std::snprintf(text, sizeof text, "%lld:%02lld:%02lld", whole / 3600, whole / 60 % 60,
                  whole % 60);
  }
  return text;
}

std::size_t TerminalWidth() {
  winsize size{};
  const bool known = ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
  return known ? size.ws_col : kUsualWidth;
}

void WipeLine() {
  std::fputs("\r\033[K", stderr);
}
void DrawLine(const ProgressState& state) {
  WipeLine();
  std::fputs(ProgressLine(state, TerminalWidth() - 1).c_str(), stderr);
  std::fflush(stderr);
}

}  // namespace

std::string ProgressLine(const ProgressState& state, std::size_t width) {
  const double fraction = std::clamp(state.fraction, 0.0, 1.0);
  std::string figures = " " + FormatNumber(std::floor(100 * fraction), "0") + "%";
  if (state.seconds > 0 && state.rolls > 0) {
    figures += "  " +
               FormatNumber(std::round(static_cast<double>(state.rolls) / state.seconds), "#,##0") +
               " rolls/s";
  }
  if (fraction > 0 && fraction < 1) {
    figures += "  " + TimeText(state.seconds * (1 - fraction) / fraction) + " left";
  }
  constexpr std::size_t kFrame = 2;
  constexpr std::size_t kLeastBar = 10;
  if (width < figures.size() + kFrame + kLeastBar) return figures.substr(0, width);
  const std::size_t bar = std::min<std::size_t>(width - figures.size() - kFrame, 40);
  const auto done = static_cast<std::size_t>(fraction * static_cast<double>(bar));
  return "[" + std::string(done, '=') + std::string(bar - done, ' ') + "]" + figures;
}

ProgressBar::ProgressBar(const SimulationProgress& progress, std::int64_t games,
                         std::int32_t rolls_per_game)
    : progress_(progress),
      all_games_(static_cast<double>(games)),
      all_rolls_(all_games_ * rolls_per_game) {
  if (isatty(STDERR_FILENO) == 0) return;
  thread_ = std::thread([this] {
    std::unique_lock lock(mutex_);
    while (!ended_.wait_for(lock, kInterval, [this] { return end_; })) Draw();
  });
}

ProgressBar::~ProgressBar() {
  if (!thread_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    end_ = true;
  }
  ended_.notify_one();
  thread_.join();
  WipeLine();
}

void ProgressBar::Draw() {
  const auto now = std::chrono::steady_clock::now();
  ProgressState state;
  state.rolls = progress_.rolls.load(std::memory_order_relaxed);
  state.seconds = std::chrono::duration<double>(now - start_).count();
  state.fraction =
      all_rolls_ > 0
          ? static_cast<double>(state.rolls) / all_rolls_
          : static_cast<double>(progress_.games.load(std::memory_order_relaxed)) / all_games_;
  DrawLine(state);
}

WorkBar::~WorkBar() {
  if (drawn_ != start_) WipeLine();
}

void WorkBar::Show(double done) {
  const auto now = std::chrono::steady_clock::now();
  if (now - drawn_ < kInterval || isatty(STDERR_FILENO) == 0) return;
  drawn_ = now;
  DrawLine({done, 0, std::chrono::duration<double>(now - start_).count()});
}

}  // namespace feltmaster
