#pragma once

#include <string>
#include <string_view>
#include <system_error>

#include "base/descriptor.h"

namespace feltmaster {

// A text file that grows at its end. What is written waits in memory until there is enough of it.
// Each procedure gives the system's error, or none.
class AppendFile {
 public:
  AppendFile() = default;
  AppendFile(const AppendFile&) = delete;
  AppendFile& operator=(const AppendFile&) = delete;
  ~AppendFile() { Flush(); }

  // Makes the file if there is none; an older one is emptied or goes on at its end.
  std::error_code Open(const std::string& path, bool emptied);
  std::error_code Write(std::string_view text);
  // What reached the disk of a write that failed is taken back and waits for the next try, so that
  // a text comes into the file whole and once.
  std::error_code Flush();
  // Flushed to the disk.
  std::error_code Close();

 private:
  Descriptor file_;
  std::string waiting_;
};

}  // namespace feltmaster
