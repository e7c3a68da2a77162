#pragma once

#include <optional>
#include <ostream>
#include <streambuf>
#include <string>

#include "base/descriptor.h"
#include "base/draft_file.h"
#include "base/record_file.h"

namespace feltmaster {

// A file for results that are known only after a long run: the place is tried before the run, the
// file appears whole at its end, or not at all. "-" is standard output; a device or a pipe is
// written directly.
class ResultFile : private std::streambuf {
 public:
  ResultFile() = default;

  // Each gives one sentence that names the file when it cannot be written, or an empty text. Of
  // several files all are finished before the first one is put in place.
  std::string Open(const std::string& path);
  std::string Finish();
  std::string PutInPlace();

  bool IsOpen() const { return !path_.empty(); }
  std::ostream& Stream();

 private:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  void WriteWaiting();
  std::string Told(const std::optional<FileError>& error) const;

  std::string path_;  // as asked for
  std::optional<DraftFile> draft_;
  Descriptor device_;
  std::string waiting_;
  std::optional<FileError> error_;  // the first one
  std::ostream stream_{this};
};

}  // namespace feltmaster
