#include "support/failing_calls.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <ostream>

// There is a struct flock beside the call of that name.
#pragma GCC diagnostic ignored "-Wshadow"

namespace feltmaster {

namespace {

struct CallState {
  bool watched = false;
  int made = 0;
  FailedCall failing;  // number 0: none
  bool failed = false;
} calls;

// Whether the call that is made now is to fail.
bool Fails(const char* name) {
  if (!calls.watched) return false;
  ++calls.made;
  const bool is_first = calls.made == calls.failing.number;
  const bool follows = calls.failed && calls.failing.failure == Failure::kForGood;
  if (!is_first && !follows) return false;
  if (is_first) calls.failing.name = name;
  calls.failed = true;
  errno = ENOSPC;
  return true;
}

long Made(const char* name, long number, long a, long b = 0, long c = 0) {
  return Fails(name) ? -1 : syscall(number, a, b, c);
}

long Address(const void* pointer) {
  return reinterpret_cast<long>(pointer);
}

FailedCall RunOnce(const FailedCall& failing, const std::function<void()>& act) {
  calls = {.watched = true, .failing = failing};
  act();
  calls.watched = false;
  return calls.failed ? calls.failing : FailedCall();
}

}  // namespace

void PrintTo(const FailedCall& call, std::ostream* out) {
  *out << "call " << call.number << ", " << call.name
       << (call.failure == Failure::kOnce ? ", fails" : " and all that follow fail");
}

int FailEachCall(const std::function<void()>& prepare, const std::function<void()>& act,
                 const std::function<void(const FailedCall&)>& check) {
  constexpr int kEndless = 10'000;
  for (int number = 1; number < kEndless; ++number) {
    for (const Failure failure : {Failure::kOnce, Failure::kForGood}) {
      prepare();
      const FailedCall failed = RunOnce({number, "", failure}, act);
      if (failed.number == 0) return calls.made;
      SCOPED_TRACE(testing::PrintToString(failed));
      check(failed);
      if (testing::Test::HasFatalFailure()) return 0;
    }
  }
  ADD_FAILURE() << "There is no end to the calls.";
  return 0;
}

}  // namespace feltmaster

using feltmaster::Address;
using feltmaster::Fails;
using feltmaster::Made;

extern "C" {

int open(const char* path, int flags, ...) {
  va_list rest;
  va_start(rest, flags);
  const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(rest, unsigned) : 0;
  va_end(rest);
  if (Fails("open")) return -1;
  return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}
// The half that still arrives is what makes a failed write dangerous.
ssize_t write(int file, const void* bytes, std::size_t count) {
  if (Fails("write")) {
    syscall(SYS_write, file, bytes, count / 2);
    errno = ENOSPC;
    return -1;
  }
  return syscall(SYS_write, file, bytes, count);
}
ssize_t pwrite(int file, const void* bytes, std::size_t count, off_t at) {
  if (Fails("pwrite")) {
    syscall(SYS_pwrite64, file, bytes, count / 2, at);
    errno = ENOSPC;
    return -1;
  }
  return syscall(SYS_pwrite64, file, bytes, count, at);
}
ssize_t read(int file, void* bytes, std::size_t count) {
  return Fails("read") ? -1 : syscall(SYS_read, file, bytes, count);
}
ssize_t pread(int file, void* bytes, std::size_t count, off_t at) {
  return Fails("pread") ? -1 : syscall(SYS_pread64, file, bytes, count, at);
}
// The files of a test need not outlive a crash of the machine.
int fsync(int) {
  return Fails("fsync") ? -1 : 0;
}
int fdatasync(int) {
  return Fails("fdatasync") ? -1 : 0;
}
// Closed in any case, as the system does it.
int close(int file) {
  const bool fails = Fails("close");
  const long result = syscall(SYS_close, file);
  if (!fails) return static_cast<int>(result);
  errno = ENOSPC;
  return -1;
}
int ftruncate(int file, off_t length) noexcept {
  return static_cast<int>(Made("ftruncate", SYS_ftruncate, file, length));
}
int fchmod(int file, mode_t mode) noexcept {
  return static_cast<int>(Made("fchmod", SYS_fchmod, file, static_cast<long>(mode)));
}
int flock(int file, int operation) noexcept {
  return static_cast<int>(Made("flock", SYS_flock, file, operation));
}
int rename(const char* from, const char* to) noexcept {
  return static_cast<int>(Made("rename", SYS_rename, Address(from), Address(to)));
}
int unlink(const char* path) noexcept {
  return static_cast<int>(Made("unlink", SYS_unlink, Address(path)));
}

}  // extern "C"
