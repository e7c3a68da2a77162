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

// Gives the complaint, one sentence, or an empty text.
std::string Play([[maybe_unused]] const TableOptions& options, [[maybe_unused]] int& exit_code) {
#if FELTMASTER_DESKTOP
  if (!HasDisplay()) {
    return "there is no display here to show the table on; \"feltmaster console\" plays it in this "
           "terminal, and feltmaster --help lists what else there is.";
  }
  const fs::path folder = options.data_dir.empty() ? DataFolder() : fs::absolute(options.data_dir);
  std::error_code fault;
  fs::create_directories(folder, fault);
  if (fault) return "the data folder cannot be made: " + fault.message() + ": " + folder.string();
  std::string game_file = options.game_file;
  if (!game_file.empty()) game_file = fs::absolute(game_file).string();
  exit_code = RunDesktop({.data_dir = (folder / "").string(),
                          .sound_dir = ShippedFolder("sounds"),
                          .guide_dir = GuideFolder(),
                          .game_file = game_file});
  return {};
#else
  return "this program was built without its desktop; with the packages qt6-base-dev, "
         "qt6-multimedia-dev and qt6-svg-dev installed, ./run builds it. \"feltmaster console\" "
         "plays the table in "
         "this terminal.";
#endif
}

}  // namespace

void AddDesktopVerb(CLI::App& app, int& exit_code) {
  CLI::App* verb = app.add_subcommand("desktop", "Opens the table in a window, as no verb does");
  const auto options = std::make_shared<TableOptions>();
  verb->add_option("FILE", options->game_file, "A game file to open, .crp")->type_name("");
  verb->add_option("--data-dir", options->data_dir,
                   "The folder of games, scripts and sounds; without it $FELTMASTER_HOME, or the "
                   "program's folder among your data")
      ->type_name("DIR");
  verb->footer(
      "Examples:\n"
      "  feltmaster desktop\n"
      "  feltmaster desktop evening.crp\n"
      "  feltmaster evening.crp");
  verb->callback([options, &exit_code] {
    const std::string fault = Play(*options, exit_code);
    if (fault.empty()) return;
    exit_code = kNotStarted;
    std::cerr << "feltmaster: " << fault << '\n';
  });
}

}  // namespace feltmaster
