#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/descriptor.h"
#include "base/record_file.h"

namespace feltmaster {

// A file that takes the place of an older one whole or not at all: it is written beside it, block
// by block, flushed to the disk and renamed over it. The old file's permissions stay; a link is
// followed. What is not put in place leaves nothing behind.
class DraftFile {
 public:
  DraftFile() = default;
  ~DraftFile();
  DraftFile(const DraftFile&) = delete;
  DraftFile& operator=(const DraftFile&) = delete;

  // The error, or nothing. A folder, device or pipe in the place is an error.
  std::optional<FileError> Open(const std::string& path);
  std::optional<FileError> Write(std::string_view bytes);  // behind what was written
  std::optional<FileError> WriteAt(std::uint64_t place, std::string_view bytes);
  std::optional<FileError> Flush();  // to the disk, as PutInPlace does it
  std::optional<FileError> PutInPlace();

 private:
  std::string target_;
  std::string draft_;  // beside the target; empty when there is none
  Descriptor file_;
  int mode_ = -1;  // of the old file
};

}  // namespace feltmaster
