#include "console/batch_log.h"

#include <utility>

#include "base/text.h"

namespace feltmaster {

std::string BatchLog::Sentence() const {
  if (!fault_) return {};
  if (fault_->strange) return OneLine(StrangeLogText(path_));
  return "cannot write " + path_ + ": " + fault_->error.description + ".";
}

std::string BatchLog::Open(const std::string& path) {
  path_ = path;
  fault_ = log_.Open(path);
  return Sentence();
}

void BatchLog::Take(std::int64_t index, std::string games) {
  constexpr std::int64_t kFarAhead = 65'536;
  std::unique_lock lock(mutex_);
  moved_on_.wait(lock, [&] { return index - next_ < kFarAhead || given_up_; });
  waiting_.emplace(index, std::move(games));
  if (index == next_) WriteReady();
}

void BatchLog::GiveUp() {
  const std::lock_guard lock(mutex_);
  given_up_ = true;
  moved_on_.notify_all();
}

void BatchLog::WriteReady() {
  while (!waiting_.empty() && waiting_.begin()->first == next_) {
    if (!fault_) fault_ = log_.Add(waiting_.begin()->second);
    waiting_.erase(waiting_.begin());
    ++next_;
  }
  moved_on_.notify_all();
}

std::string BatchLog::PutInPlace() {
  const std::lock_guard lock(mutex_);
  while (!waiting_.empty()) {
    next_ = waiting_.begin()->first;
    WriteReady();
  }
  if (!fault_) fault_ = log_.PutInPlace();
  return Sentence();
}

}  // namespace feltmaster
