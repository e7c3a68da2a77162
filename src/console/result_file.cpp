#include "console/result_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <iostream>

namespace feltmaster {

namespace {

bool IsDevice(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
}

}  // namespace

std::string ResultFile::Told(const std::optional<FileError>& error) const {
  return error ? "cannot write " + path_ + ": " + error->description + "." : std::string();
}

std::string ResultFile::Open(const std::string& path) {
  path_ = path;
  if (path_ == "-") return {};
  if (!IsDevice(path_)) return Told(draft_.emplace().Open(path_));
  device_ = Descriptor(open(path_.c_str(), O_WRONLY | O_CLOEXEC));
  return device_.IsOpen() ? std::string() : Told(SystemError(errno));
}

std::ostream& ResultFile::Stream() {
  return path_ == "-" ? std::cout : stream_;
}

ResultFile::int_type ResultFile::overflow(int_type character) {
  if (traits_type::eq_int_type(character, traits_type::eof())) return 0;
  const char byte = traits_type::to_char_type(character);
  return xsputn(&byte, 1) == 1 ? character : traits_type::eof();
}

std::streamsize ResultFile::xsputn(const char* bytes, std::streamsize count) {
  constexpr std::size_t kBlock = 1 << 16;
  waiting_.append(bytes, static_cast<std::size_t>(count));
  if (waiting_.size() >= kBlock) WriteWaiting();
  return error_ ? 0 : count;
}

void ResultFile::WriteWaiting() {
  if (!error_ && draft_) error_ = draft_->Write(waiting_);
  if (!error_ && device_.IsOpen() && !device_.Write(waiting_)) error_ = SystemError(errno);
  waiting_.clear();
}

std::string ResultFile::Finish() {
  if (path_ == "-") {
    errno = 0;
    std::cout.flush();
    return std::cout ? std::string() : Told(SystemError(errno != 0 ? errno : EIO));
  }
  WriteWaiting();
  if (!error_ && draft_) error_ = draft_->Flush();
  if (!error_ && device_.IsOpen() && device_.Close() != 0) error_ = SystemError(errno);
  return Told(error_);
}

std::string ResultFile::PutInPlace() {
  return draft_ ? Told(draft_->PutInPlace()) : std::string();
}

}  // namespace feltmaster
