#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/descriptor.h"
#include "base/record_file.h"

namespace feltmaster {

// A file that is changed where it lies, while no other copy of the program does the same: the lock
// is taken at the opening and given back at the end of the object's life. What is written lands in
// the order of the calls.
class LockedFile {
 public:
  // The error, or nothing. A missing file is made, with nothing in it; a folder, device or pipe is
  // an error. Waits for another copy for some seconds, then gives up with EAGAIN.
  std::optional<FileError> Open(const std::string& path);

  std::uint64_t Size() const { return size_; }  // in bytes, as it was when the file was opened
  // `whole` is false when the file ends before.
  std::optional<FileError> ReadRecord(std::int64_t number, Record& record, bool& whole) const;
  // Up to so many bytes; fewer at the end of the file.
  std::string ReadAt(std::uint64_t place, std::size_t size) const;
  std::optional<FileError> WriteAt(std::uint64_t place, std::string_view bytes) const;
  std::optional<FileError> Flush() const;
  // Takes the file back to the size that it had, after a write that failed.
  void CutBack() const;
  // Gives the lock back.
  void Close() { file_.Close(); }

 private:
  Descriptor file_;
  std::uint64_t size_ = 0;
};

}  // namespace feltmaster
