#include "console/result_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <system_error>

#include "base/descriptor.h"

namespace feltmaster {

namespace {

constexpr mode_t kUsualMode = 0666;

// Makes an empty file that was not there before. Gives an errno.
int MakeNew(const std::string& path) {
  const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kUsualMode);
  if (file < 0) return errno;
  close(file);
  return 0;
}

// False with errno.
bool FlushToDisk(const std::string& path) {
  Descriptor file(open(path.c_str(), O_WRONLY | O_CLOEXEC));
  return file.IsOpen() && fsync(file.Number()) == 0 && file.Close() == 0;
}

}  // namespace

ResultFile::~ResultFile() {
  if (draft_.empty()) return;
  stream_.close();
  unlink(draft_.c_str());
}

std::string ResultFile::Fault(int error) const {
  return "cannot write " + path_ + ": " + std::generic_category().message(error) + ".";
}

std::string ResultFile::Open(const std::string& path) {
  path_ = path;
  if (path_ == "-") return {};
  std::error_code ignored;
  const auto real = std::filesystem::weakly_canonical(path_, ignored);
  goal_ = ignored ? path_ : real.string();

  struct stat status {};
  const bool exists = stat(goal_.c_str(), &status) == 0;
  if (exists && S_ISDIR(status.st_mode)) return Fault(EISDIR);
  if (exists && access(goal_.c_str(), W_OK) != 0) return Fault(errno);
  if (exists && !S_ISREG(status.st_mode)) {
    stream_.open(goal_);
    return stream_ ? std::string() : Fault(errno);
  }
  const std::string draft = goal_ + "." + std::to_string(getpid()) + ".tmp";
  if (const int error = MakeNew(draft); error != 0) return Fault(error);
  draft_ = draft;
  if (exists) chmod(draft_.c_str(), status.st_mode & 07777);
  stream_.open(draft_);
  return stream_ ? std::string() : Fault(errno);
}

std::ostream& ResultFile::Stream() {
  return path_ == "-" ? std::cout : stream_;
}

std::string ResultFile::Finish() {
  errno = 0;
  std::ostream& stream = Stream();
  stream.flush();
  if (stream_.is_open()) stream_.close();
  if (!stream) return Fault(errno != 0 ? errno : EIO);
  return draft_.empty() || FlushToDisk(draft_) ? std::string() : Fault(errno);
}

std::string ResultFile::PutInPlace() {
  if (draft_.empty()) return {};
  if (rename(draft_.c_str(), goal_.c_str()) != 0) return Fault(errno);
  draft_.clear();
  return {};
}

}  // namespace feltmaster
