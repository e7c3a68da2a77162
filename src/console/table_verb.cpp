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

struct Desk {
  SetUpSurface surface;
  Game table;
};

// Everything below gives a complaint, one sentence, or an empty text.

std::string SetTable(Desk& desk, const TableOptions& options) {
  Game& table = desk.table;
  std::string fault = OpenHouse(table, options.settings);
  if (!fault.empty()) return fault;
  table.surface = &desk.surface;
  if (!options.game_file.empty()) {
    if (!OpenGame(table, options.game_file, true)) {
      return WhyNotOpened(table, options.game_file);
    }
    HouseSettings settings;  // of the game just opened, too
    for (const std::string& text : options.settings) ReadHouseSetting(text, settings);
    fault = ApplyHouseSettings(table, desk.surface, settings);
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
  const auto desk = std::make_unique<Desk>();
  std::string fault = SetTable(*desk, options);
  if (!fault.empty()) return fault;

  ResultFile file;
  fault = file.Open(options.shot);
  if (fault.empty()) {
    const std::string name = Lower(options.shot);
    const bool jpeg = name.ends_with(".jpg") || name.ends_with(".jpeg");
    const std::string picture =
        TableShot(desk->table, options.scale, jpeg ? PictureFormat::kJpeg : PictureFormat::kPng);
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

void AddTableVerb(Verb program) {
  const Verb verb = program.Sub("table", "Draws the table of a game into a picture file");
  verb.Footer(kExamples);
  const auto options = std::make_shared<TableOptions>();
  verb.Add("--shot", options->shot,
           "The picture to write, as PNG or by its name as JPEG; - is standard output")
      .Takes("FILE.png")
      .Required();
  verb.Add("--game", options->game_file, "The game to show; without it an empty table")
      .Takes("FILE.crp");
  verb.Add("--scale", options->scale, "1 is 640 by 440 pixels")
      .Takes("S")
      .InRange(0.25, 8.0)
      .TellDefault();
  std::vector<std::string> presets;
  for (const TablePreset& preset : kTablePresets) presets.emplace_back(preset.name);
  verb.Add("--preset", options->preset, "Colours and felt in place of the game's own")
      .OneOf(presets)
      .Takes("NAME");
  verb.Add("--panel", options->panel, "What the panel on the right shows")
      .OneOf({"props", "hop"})
      .Takes("props|hop");
  verb.Flag("--numbers", options->numbers, "Bets as numbers in place of chips");
  verb.Flag("--restack", options->restack,
            "Stacks the chips by amount; a game keeps them as they were put");
  verb.Add("--set", options->settings,
           "A house rule or setting, such as BuyVigPct=4; may be repeated")
      .Takes("NAME=VALUE");
  verb.RunsOrComplains([options] { return RunTable(*options); });
}

}  // namespace feltmaster
