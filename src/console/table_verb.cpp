#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "base/text.h"
#include "config/table_colors.h"
#include "console/house_settings.h"
#include "console/result_file.h"
#include "console/verbs.h"
#include "engine/chip_list.h"
#include "files/game_file.h"
#if FELTMASTER_DESKTOP
#include "desktop/table_shot.h"
#endif

namespace feltmaster {

namespace {

constexpr int kDone = 0;
constexpr int kNotStarted = 2;

struct TableOptions {
  std::string shot;
  std::string game_file;
  double scale = 2;
  std::string preset;
  std::string panel;
  bool numbers = false;
  bool restack = false;
  std::vector<std::string> settings;
};

#if FELTMASTER_DESKTOP

// Everything below gives a complaint, one sentence, or an empty text.

std::string SetTable(Game& table, SetUpSurface& surface, const TableOptions& options) {
  std::string fault = OpenHouse(table, options.settings);
  if (!fault.empty()) return fault;
  table.surface = &surface;
  if (!options.game_file.empty()) {
    if (!OpenGame(table, options.game_file, true)) {
      return WhyNotOpened(table, options.game_file);
    }
    HouseSettings settings;  // of the game just opened, too
    for (const std::string& text : options.settings) ReadHouseSetting(text, settings);
    fault = ApplyHouseSettings(table, surface, settings);
    if (!fault.empty()) return fault;
  }
  for (const TablePreset& preset : kTablePresets) {
    if (preset.name == options.preset) SetTablePreset(table, preset);
  }
  if (!options.panel.empty()) table.ShowHopBets = options.panel == "hop";
  if (options.numbers) table.DisplayBetAmounts = true;
  if (options.restack) RebuildAllChips(table);
  return {};
}

std::string RunTable(const TableOptions& options) {
  SetUpSurface surface;
  const auto table = std::make_unique<Game>();
  std::string fault = SetTable(*table, surface, options);
  if (!fault.empty()) return fault;

  ResultFile file;
  fault = file.Open(options.shot);
  if (fault.empty()) {
    const std::string name = Lower(options.shot);
    const bool jpeg = name.ends_with(".jpg") || name.ends_with(".jpeg");
    const std::string picture =
        TableShot(*table, options.scale, jpeg ? PictureFormat::kJpeg : PictureFormat::kPng);
    if (picture.empty()) return "the picture could not be drawn.";
    file.Stream() << picture;
    fault = file.Finish();
  }
  if (fault.empty()) fault = file.PutInPlace();
  return fault.empty() ? fault : "--shot: " + fault;
}

#else

std::string RunTable(const TableOptions&) {
  return "this program was built without its desktop; with the packages qt6-base-dev, "
         "qt6-multimedia-dev and qt6-svg-dev installed, ./run builds it.";
}

#endif

constexpr const char* kExamples =
    R"(Examples:
  feltmaster table --shot table.png
  feltmaster table --shot evening.png --game evening.crp --scale 2.5
  feltmaster table --shot hops.png --panel hop --preset blue-velvet
  feltmaster table --shot numbers.png --game evening.crp --numbers
)";

}  // namespace

void AddTableVerb(CLI::App& app, int& exit_code) {
  CLI::App* verb = app.add_subcommand("table", "Draws the table of a game into a picture file");
  verb->footer(kExamples);
  const auto options = std::make_shared<TableOptions>();
  verb->add_option("--shot", options->shot,
                   "The picture to write, as PNG or by its name as JPEG; - is standard output")
      ->type_name("FILE.png")
      ->required();
  verb->add_option("--game", options->game_file, "The game to show; without it an empty table")
      ->type_name("FILE.crp");
  verb->add_option("--scale", options->scale, "1 is 640 by 440 pixels")
      ->type_name("S")
      ->check(CLI::Range(0.25, 8.0))
      ->capture_default_str();
  std::vector<std::string> presets;
  for (const TablePreset& preset : kTablePresets) presets.emplace_back(preset.name);
  verb->add_option("--preset", options->preset, "Colours and felt in place of the game's own")
      ->check(CLI::IsMember(presets))
      ->type_name("NAME");
  verb->add_option("--panel", options->panel, "What the panel on the right shows")
      ->check(CLI::IsMember(std::vector<std::string>{"props", "hop"}))
      ->type_name("props|hop");
  verb->add_flag("--numbers", options->numbers, "Bets as numbers in place of chips");
  verb->add_flag("--restack", options->restack,
                 "Stacks the chips by amount; a game keeps them as they were put");
  verb->add_option("--set", options->settings,
                   "A house rule or setting, such as BuyVigPct=4; may be repeated")
      ->type_name("NAME=VALUE")
      ->allow_extra_args(false);
  verb->callback([options, &exit_code] {
    const std::string fault = RunTable(*options);
    exit_code = fault.empty() ? kDone : kNotStarted;
    if (!fault.empty()) std::cerr << "feltmaster table: " << fault << '\n';
  });
}

}  // namespace feltmaster
