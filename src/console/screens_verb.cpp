#include <filesystem>
#include <memory>
#include <string>

#include "console/program_folders.h"
#include "console/verbs.h"
#if FELTMASTER_DESKTOP
#include "desktop/screen_shots.h"
#endif

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

struct ScreensOptions {
  std::string shots;
  std::string game_file;
  std::string data_dir;
  bool dark = false;
};

// With its final separator; empty stays empty.
[[maybe_unused]] std::string WholeFolder(const std::string& folder) {
  return folder.empty() ? folder : (fs::absolute(folder) / "").string();
}

// Gives the complaint, one sentence, or an empty text.
std::string Shoot([[maybe_unused]] const ScreensOptions& options) {
#if FELTMASTER_DESKTOP
  return ShootScreens({.folder = WholeFolder(options.shots),
                       .game_file = options.game_file,
                       .data_dir = WholeFolder(options.data_dir),
                       .guide_dir = GuideFolder(),
                       .dark = options.dark});
#else
  return "this program was built without its desktop; ./run builds it where Qt 6 is installed.";
#endif
}

}  // namespace

void AddScreensVerb(Verb program) {
  const Verb verb = program.Sub("screens", "Draws every screen of a game into pictures");
  const auto options = std::make_shared<ScreensOptions>();
  verb.Add("--shots", options->shots, "The folder of the pictures, made if it is not there")
      .Takes("DIR")
      .Required();
  verb.Add("--game", options->game_file, "The game that they show; without it a new table")
      .Takes("FILE.crp");
  verb.Add("--data-dir", options->data_dir,
           "The folder of games, scripts and logs; without it there is none")
      .Takes("DIR");
  verb.Flag("--dark", options->dark, "In dark colours");
  verb.Footer(
      "Examples:\n"
      "  feltmaster screens --shots pictures --game evening.crp\n"
      "  feltmaster screens --shots pictures/dark --game evening.crp --dark\n\n"
      "No display is needed. A picture has the name of its window.");
  verb.RunsOrComplains([options] { return Shoot(*options); });
}

}  // namespace feltmaster
