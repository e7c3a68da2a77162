#include "base/draft_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace feltmaster {

DraftFile::~DraftFile() {
  if (!draft_.empty()) ::unlink(draft_.c_str());
}

std::optional<FileError> DraftFile::Open(const std::string& path) {
  target_ = path;
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0) {
    if (S_ISDIR(status.st_mode)) return SystemError(EISDIR);
    if (!S_ISREG(status.st_mode)) return SystemError(ENOTSUP);
    if (::access(path.c_str(), W_OK) != 0) return SystemError(errno);
    mode_ = static_cast<int>(status.st_mode & 07777);
    if (char* resolved = ::realpath(path.c_str(), nullptr)) {
      target_ = resolved;
      std::free(resolved);
    }
  }
  constexpr mode_t kUsualMode = 0666;
  const std::string draft = target_ + ".new" + std::to_string(::getpid());
  ::unlink(draft.c_str());
  file_ = Descriptor(::open(draft.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                            mode_ < 0 ? kUsualMode : static_cast<mode_t>(mode_)));
  if (!file_.IsOpen()) return SystemError(errno);
  draft_ = draft;
  return std::nullopt;
}

std::optional<FileError> DraftFile::Write(std::string_view bytes) {
  if (!file_.Write(bytes)) return SystemError(errno);
  return std::nullopt;
}

std::optional<FileError> DraftFile::WriteAt(std::uint64_t place, std::string_view bytes) {
  if (!file_.WriteAt(place, bytes)) return SystemError(errno);
  return std::nullopt;
}

std::optional<FileError> DraftFile::PutInPlace() {
  const bool done = (mode_ < 0 || ::fchmod(file_.Number(), static_cast<mode_t>(mode_)) == 0) &&
                    ::fsync(file_.Number()) == 0 && file_.Close() == 0 &&
                    ::rename(draft_.c_str(), target_.c_str()) == 0;
  if (!done) return SystemError(errno);
  draft_.clear();
  // The name is on the disk only when its folder is. A folder that cannot be flushed is no fault.
  const std::size_t slash = target_.rfind('/');
  const std::string folder = slash == std::string::npos ? "." : target_.substr(0, slash + 1);
  const Descriptor directory(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (directory.IsOpen()) ::fsync(directory.Number());
  return std::nullopt;
}

}  // namespace feltmaster
