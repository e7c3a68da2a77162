#include "base/plain_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace feltmaster {

namespace {

constexpr mode_t kUsualMode = 0666;

Descriptor OpenDescriptor(const std::string& path, int how) {
  // A pipe must not be waited for.
  return Descriptor(::open(path.c_str(), how | O_CLOEXEC | O_NONBLOCK, kUsualMode));
}

}  // namespace

PlainFile& PlainFile::operator=(PlainFile&& other) noexcept {
  Flush();
  file_ = std::move(other.file_);
  path_ = std::move(other.path_);
  writable_ = other.writable_;
  unflushed_ = std::exchange(other.unflushed_, false);
  return *this;
}

PlainFile::~PlainFile() {
  Flush();
}

std::optional<FileError> PlainFile::Open(const std::string& path, WhenMissing when_missing) {
  PlainFile opened;
  opened.path_ = path;
  opened.writable_ = true;
  opened.file_ =
      OpenDescriptor(path, O_RDWR | (when_missing == WhenMissing::kIsCreated ? O_CREAT : 0));
  if (!opened.file_.IsOpen() && (errno == EACCES || errno == EROFS)) {
    opened.writable_ = false;
    opened.file_ = OpenDescriptor(path, O_RDONLY);
  }
  struct stat status {};
  if (!opened.file_.IsOpen() || ::fstat(opened.file_.Number(), &status) != 0) {
    return SystemError(errno);
  }
  if (S_ISDIR(status.st_mode)) return SystemError(EISDIR);
  if (!S_ISREG(status.st_mode)) return SystemError(ENOTSUP);
  *this = std::move(opened);
  return std::nullopt;
}

bool PlainFile::IsInPlace() const {
  struct stat named {};
  struct stat opened {};
  return ::stat(path_.c_str(), &named) == 0 && ::fstat(file_.Number(), &opened) == 0 &&
         named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
}

std::int64_t PlainFile::Size() const {
  struct stat status {};
  return ::fstat(file_.Number(), &status) == 0 ? status.st_size : 0;
}

std::optional<FileError> PlainFile::ReadAt(std::int64_t place, std::span<char> bytes,
                                           std::size_t& count) const {
  count = 0;
  while (count < bytes.size()) {
    const ssize_t read = ::pread(file_.Number(), bytes.data() + count, bytes.size() - count,
                                 place + static_cast<off_t>(count));
    if (read == 0) break;
    if (read > 0) {
      count += static_cast<std::size_t>(read);
    } else if (errno != EINTR) {
      return SystemError(errno);
    }
  }
  return std::nullopt;
}

std::optional<FileError> PlainFile::WriteAt(std::int64_t place, std::string_view bytes) {
  if (!writable_) return SystemError(EACCES);
  if (!file_.WriteAt(static_cast<std::uint64_t>(place), bytes)) return SystemError(errno);
  unflushed_ = true;
  return std::nullopt;
}

std::optional<FileError> PlainFile::Flush() {
  if (!std::exchange(unflushed_, false)) return std::nullopt;
  if (::fsync(file_.Number()) != 0) return SystemError(errno);
  return std::nullopt;
}

}  // namespace feltmaster
