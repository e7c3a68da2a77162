#pragma once

#include <functional>
#include <string>

namespace feltmaster {

// The system calls by which the program works on its files, made to fail one after the other. The
// test program has its own open, read, write, fsync, ... in place of the C library's; they pass
// every call on to the system until a test wants one to fail.

enum class Failure {
  kOnce,     // one call fails: a disk that was full for a moment
  kForGood,  // it and all that follow fail: the disk is gone, or the program was killed there
};

struct FailedCall {
  int number = 0;  // of the call, counted from 1
  std::string name;
  Failure failure = Failure::kOnce;
};
void PrintTo(const FailedCall& call, std::ostream* out);

// Runs `act` with its first call failing, with its second, and so on, until it comes through
// without a failure; each in both ways. A write that fails has written half of its bytes. `prepare`
// runs before each round and `check` after it, with all calls working. Gives the number of calls
// that `act` makes when none fails.
int FailEachCall(const std::function<void()>& prepare, const std::function<void()>& act,
                 const std::function<void(const FailedCall&)>& check);

}  // namespace feltmaster
