#pragma once

#include <fstream>
#include <ostream>
#include <string>

namespace feltmaster {

// A file for results that are known only after a long run: the place is tried before the run, the
// file appears whole at its end, or not at all. "-" is standard output; a device or a pipe is
// written directly.
class ResultFile {
 public:
  ResultFile() = default;
  ~ResultFile();
  ResultFile(const ResultFile&) = delete;
  ResultFile& operator=(const ResultFile&) = delete;

  // Each gives one sentence that names the file when it cannot be written, or an empty text. Of
  // several files all are finished before the first one is put in place.
  std::string Open(const std::string& path);
  std::string Finish();
  std::string PutInPlace();

  bool IsOpen() const { return !path_.empty(); }
  std::ostream& Stream();

 private:
  std::string Fault(int error) const;

  std::string path_;   // as asked for
  std::string goal_;   // the file behind it, links followed
  std::string draft_;  // beside the goal; empty when that is written directly
  std::ofstream stream_;
};

}  // namespace feltmaster
