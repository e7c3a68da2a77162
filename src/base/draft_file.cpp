#include "base/draft_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

namespace feltmaster {

namespace {

// With its separator; empty for a bare name.
std::string FolderOf(const std::string& path) {
  return path.substr(0, path.rfind('/') + 1);
}

// Where the new file grows up. It is no longer than a name may be, however long the file's own is.
std::string NameBeside(const std::string& path) {
  constexpr std::size_t kLongest = 200;
  const std::string folder = FolderOf(path);
  return folder + path.substr(folder.size(), kLongest) + ".new" + std::to_string(::getpid());
}

}  // namespace

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
  const std::string draft = NameBeside(target_);
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

std::optional<FileError> DraftFile::Flush() {
  if (::fsync(file_.Number()) != 0) return SystemError(errno);
  return std::nullopt;
}

std::optional<FileError> DraftFile::PutInPlace() {
  const bool done = (mode_ < 0 || ::fchmod(file_.Number(), static_cast<mode_t>(mode_)) == 0) &&
                    ::fsync(file_.Number()) == 0 && file_.Close() == 0 &&
                    ::rename(draft_.c_str(), target_.c_str()) == 0;
  if (!done) return SystemError(errno);
  draft_.clear();
  FlushFolderOf(target_);
  return std::nullopt;
}

}  // namespace feltmaster
