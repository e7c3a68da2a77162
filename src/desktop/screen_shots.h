#pragma once

#include <string>

namespace feltmaster {

struct ScreenShotOptions {
  std::string folder;     // of the pictures, with its final separator; made if it is not there
  std::string game_file;  // that the screens show; a new table without it
  std::string data_dir;   // with its final separator; empty for a table without files
  std::string guide_dir;
  bool dark = false;
};

// Draws the table and every screen into pictures in the folder, by the names of their windows, as
// "frmSummary.png"; of a screen with tabs one of each, as "frmConfigure-2.png". Needs no display.
// To be called before any window of the program is made. Gives a complaint, one sentence, or an
// empty text.
std::string ShootScreens(const ScreenShotOptions& options);

}  // namespace feltmaster
