#include "base/locked_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <thread>

namespace feltmaster {

namespace {

// Nothing else than a lock held by somebody else is worth waiting for. A file system without locks
// has to do without.
std::optional<FileError> Lock(int file) {
  constexpr auto kPatience = std::chrono::seconds(20);
  constexpr auto kPause = std::chrono::milliseconds(5);
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (::flock(file, LOCK_EX | LOCK_NB) != 0) {
    if (errno == ENOLCK || errno == ENOSYS || errno == ENOTSUP) break;
    if (errno != EWOULDBLOCK && errno != EINTR) return SystemError(errno);
    if (std::chrono::steady_clock::now() > end) return SystemError(EAGAIN);
    std::this_thread::sleep_for(kPause);
  }
  return std::nullopt;
}

}  // namespace

std::optional<FileError> LockedFile::Open(const std::string& path) {
  constexpr mode_t kUsualMode = 0666;
  for (;;) {
    // A pipe must not be waited for.
    file_ = Descriptor(::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, kUsualMode));
    if (!file_.IsOpen()) return SystemError(errno);
    struct stat opened {};
    if (::fstat(file_.Number(), &opened) != 0) return SystemError(errno);
    if (!S_ISREG(opened.st_mode)) return SystemError(ENOTSUP);
    if (std::optional<FileError> error = Lock(file_.Number())) return error;
    // While this copy waited, another one may have put a new file in its place.
    struct stat named {};
    if (::stat(path.c_str(), &named) != 0) {
      if (errno == ENOENT) continue;
      return SystemError(errno);
    }
    if (named.st_dev != opened.st_dev || named.st_ino != opened.st_ino) continue;
    if (::fstat(file_.Number(), &opened) != 0) return SystemError(errno);
    size_ = static_cast<std::uint64_t>(opened.st_size);
    if (size_ == 0) FlushFolderOf(path);
    return std::nullopt;
  }
}

std::optional<FileError> LockedFile::ReadRecord(std::int64_t number, Record& record,
                                                bool& whole) const {
  const auto place = static_cast<off_t>((number - 1) * static_cast<std::int64_t>(kRecordSize));
  const ssize_t read = ::pread(file_.Number(), record.Data(), kRecordSize, place);
  whole = read == static_cast<ssize_t>(kRecordSize);
  if (read < 0) return SystemError(errno);
  return std::nullopt;
}

std::string LockedFile::ReadAt(std::uint64_t place, std::size_t size) const {
  std::string bytes(size, '\0');
  const ssize_t read =
      ::pread(file_.Number(), bytes.data(), bytes.size(), static_cast<off_t>(place));
  bytes.resize(read < 0 ? 0 : static_cast<std::size_t>(read));
  return bytes;
}

std::optional<FileError> LockedFile::WriteAt(std::uint64_t place, std::string_view bytes) const {
  if (!file_.WriteAt(place, bytes)) return SystemError(errno);
  return std::nullopt;
}

std::optional<FileError> LockedFile::Flush() const {
  if (::fsync(file_.Number()) != 0) return SystemError(errno);
  return std::nullopt;
}

void LockedFile::CutBack() const {
  // What cannot be cut back lies behind the records that count.
  if (::ftruncate(file_.Number(), static_cast<off_t>(size_)) != 0) return;
}

}  // namespace feltmaster
