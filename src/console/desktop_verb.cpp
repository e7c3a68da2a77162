#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>
#include <system_error>

#include "console/program_folders.h"
#include "console/verbs.h"
#if FELTMASTER_DESKTOP
#include "desktop/desktop.h"
#endif

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

constexpr int kNotStarted = 2;

struct TableOptions {
  std::string data_dir;
  std::string game_file;
};

int Refuse(const std::string& sentence) {
  std::cerr << "feltmaster: " << sentence << '\n';
  return kNotStarted;
}

#if FELTMASTER_DESKTOP

int Play(const TableOptions& options) {
  if (!HasDisplay()) {
    return Refuse(
        "there is no display here to show the table on; \"feltmaster console\" plays it in this "
        "terminal, and feltmaster --help lists what else there is.");
  }
  const fs::path folder = options.data_dir.empty() ? DataFolder() : fs::absolute(options.data_dir);
  std::error_code fault;
  fs::create_directories(folder, fault);
  if (fault) {
    return Refuse("the data folder cannot be made: " + fault.message() + ": " + folder.string());
  }
  std::string game_file = options.game_file;
  if (!game_file.empty()) game_file = fs::absolute(game_file).string();
  return RunDesktop({.data_dir = (folder / "").string(),
                     .sound_dir = ShippedFolder("sounds"),
                     .guide_dir = GuideFolder(),
                     .game_file = game_file});
}

#else

int Play(const TableOptions&) {
  return Refuse(
      "this program was built without its desktop; with the packages qt6-base-dev, "
      "qt6-multimedia-dev and qt6-svg-dev installed, ./run builds it. \"feltmaster console\" "
      "plays the table in this terminal.");
}

#endif

}  // namespace

void AddDesktopVerb(Verb program) {
  const Verb verb = program.Sub("desktop", "Opens the table in a window, as no verb does");
  const auto options = std::make_shared<TableOptions>();
  verb.Add("FILE", options->game_file, "A game file to open, .crp").Takes("");
  verb.Add("--data-dir", options->data_dir,
           "The folder of games, scripts and sounds; without it $FELTMASTER_HOME, or the "
           "program's folder among your data")
      .Takes("DIR");
  verb.Footer(
      "Examples:\n"
      "  feltmaster desktop\n"
      "  feltmaster desktop evening.crp\n"
      "  feltmaster evening.crp");
  verb.Runs([options] { return Play(*options); });
}

}  // namespace feltmaster
