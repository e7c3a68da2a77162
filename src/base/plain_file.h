#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "base/descriptor.h"
#include "base/record_file.h"

namespace feltmaster {

// A file that is read and changed where it lies, at any place. What is written is in the file at
// once, and on the disk after Flush or at the end of the object's life.
class PlainFile {
 public:
  enum class WhenMissing { kFails, kIsCreated };

  PlainFile() = default;
  PlainFile(PlainFile&&) = default;
  PlainFile& operator=(PlainFile&& other) noexcept;
  ~PlainFile();

  // A file that may not be written is opened for reading alone. A folder, device or pipe is an
  // error. After an error the object is as it was.
  std::optional<FileError> Open(const std::string& path, WhenMissing when_missing);
  const std::string& Path() const { return path_; }
  bool IsWritable() const { return writable_; }
  // The path still names this file: nobody deleted it or put another one in its place.
  bool IsInPlace() const;

  std::int64_t Size() const;  // in bytes, as it is now
  // Fills `bytes` from this place on; `count` is fewer at the end of the file.
  std::optional<FileError> ReadAt(std::int64_t place, std::span<char> bytes,
                                  std::size_t& count) const;
  std::optional<FileError> WriteAt(std::int64_t place, std::string_view bytes);
  std::optional<FileError> Flush();

 private:
  Descriptor file_;
  std::string path_;
  bool writable_ = false;
  bool unflushed_ = false;
};

}  // namespace feltmaster
