#pragma once

#include <string>

namespace feltmaster {

struct DesktopOptions {
  std::string data_dir;   // with its final separator; made if it is not there
  std::string sound_dir;  // the program's own clips
  std::string guide_dir;  // the user's guide
  std::string game_file;  // to open; may be empty
};

// Whether there is a display to show windows on.
bool HasDisplay();

// Opens the table and returns when it has been closed. Gives the program's exit code.
int RunDesktop(const DesktopOptions& options);

}  // namespace feltmaster
