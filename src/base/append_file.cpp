#include "base/append_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace feltmaster {

namespace {

std::error_code LastError() {
  return {errno == 0 ? EIO : errno, std::generic_category()};
}

}  // namespace

std::error_code AppendFile::Open(const std::string& path, bool emptied) {
  const int how = emptied ? O_TRUNC : O_APPEND;
  file_ = Descriptor(::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | how, 0666));
  return file_.IsOpen() ? std::error_code() : LastError();
}

std::error_code AppendFile::Write(std::string_view text) {
  constexpr std::size_t kEnough = 1 << 16;
  waiting_ += text;
  return waiting_.size() < kEnough ? std::error_code() : Flush();
}

std::error_code AppendFile::Flush() {
  if (waiting_.empty()) return {};
  const off_t end = ::lseek(file_.Number(), 0, SEEK_END);
  std::error_code error;
  if (!file_.Write(waiting_)) {
    error = LastError();
    if (end >= 0 && ::ftruncate(file_.Number(), end) == 0) return error;
  }
  waiting_.clear();
  return error;
}

std::error_code AppendFile::Close() {
  if (const std::error_code error = Flush()) {
    waiting_.clear();
    file_.Close();
    return error;
  }
  // A pipe or a device has nothing to flush.
  if (::fsync(file_.Number()) != 0 && errno != EINVAL && errno != EROFS) return LastError();
  return file_.Close() == 0 ? std::error_code() : LastError();
}

}  // namespace feltmaster
