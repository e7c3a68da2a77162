#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/number_format.h"
#include "base/text.h"
#include "config/payoffs.h"
#include "console/text_table.h"
#include "console/verbs.h"
#include "dice/probability.h"
#include "surface/null_surface.h"
#include "view/probability_grid.h"

namespace feltmaster {

namespace {

constexpr int kDone = 0;
constexpr int kNotStarted = 2;

struct DiceOptions {
  std::string file;
  std::string base;
  std::vector<std::string> edits;
  std::string display = "percent";
  double out_of = 36;
  bool json = false;
};

constexpr std::array<std::string_view, 4> kDisplayNames = {"percent", "percent-off", "rolls",
                                                           "rolls-off"};

int Refuse(std::string_view what, std::string_view sentence) {
  std::cerr << "feltmaster dice " << what << ": " << OneLine(sentence) << '\n';
  return kNotStarted;
}

// Dice on a desk: a table at which nobody sits.
struct Desk {
  Desk() {
    table.surface = &surface;
    DefaultProbabilities(table);
  }
  // Gives the complaint, or an empty text.
  std::string Open(const DiceOptions& options, const std::string& file) {
    const auto* const name = std::find(kDisplayNames.begin(), kDisplayNames.end(), options.display);
    table.ProbabilityDisplay = static_cast<std::int32_t>(name - kDisplayNames.begin());
    table.RollsOutOf = options.out_of;
    if (!(options.out_of > 0 && options.out_of <= 1e9)) return "--out-of is 1 to 1000000000.";
    if (file.empty() || LoadProbabilityFile(table, file)) return {};
    if (table.FileStatus == 0) return table.LastErrorText;
    return file + " cannot be read: " + DescriptionIn(table.LastErrorText) + '.';
  }

  Game table;
  NullSurface surface;
};

// ---- Showing ----------------------------------------------------------------------------------

double Percent(const Game& game, int row, int column) {
  return ProbabilityWeight(game, row, column) / 1000.0;
}

// What a roll of these dice brings: a total by its bar, the true one beside it.
std::string TotalsText(const Game& game) {
  constexpr int kBarWidth = 40;
  double most = 0;
  for (int column = 1; column <= kTotalColumns; ++column) {
    most = std::max(
        {most, Percent(game, kTotalRow, column), TrueProbability(kTotalRow, column) / 1000});
  }
  Rows rows = {{"Total", "chance", "true", "once in", "# these dice, | true dice"}};
  for (int column = 1; column <= kTotalColumns; ++column) {
    const double chance = Percent(game, kTotalRow, column);
    const double fair = TrueProbability(kTotalRow, column) / 1000;
    std::string bar = TextBar(chance / most, kBarWidth);
    const auto mark = static_cast<std::size_t>(std::round(fair / most * kBarWidth));
    if (bar.size() < mark) bar.resize(mark, ' ');
    bar[mark - 1] = '|';
    rows.push_back({std::to_string(column + 1), FormatNumber(chance, "0.000") + " %",
                    FormatNumber(fair, "0.000") + " %",
                    chance > 0 ? FormatNumber(100 / chance, "#,0.0") + " rolls" : "never", bar});
  }
  return TextTable(rows, true);
}

std::string ShowText(const Game& game) {
  std::string text(DiceKindText(game));
  text += ": ";
  text +=
      game.ProbabilityFileName.empty() ? std::string_view("fair dice") : ProbabilityFileLabel(game);
  text += "\n\n" + TotalsText(game) + '\n';
  const Rows grid = ProbabilityRows(game);
  // The totals stand above.
  constexpr std::ptrdiff_t kRollRows = 8;
  text += TextTable(Rows(grid.begin(), grid.begin() + kRollRows));
  const auto cells = ProbabilityCells(game);
  if (std::any_of(cells.begin(), cells.end(), [](const auto& cell) { return cell.locked; })) {
    text += "* locked\n";
  }
  return text;
}

std::string ShowJson(const Game& game) {
  using Json = nlohmann::ordered_json;
  Json cells = Json::array();
  for (const ProbabilityCell& cell : ProbabilityCells(game)) {
    cells.push_back({{"name", cell.name},
                     {"row", cell.row},
                     {"column", cell.column},
                     {"weight", ProbabilityWeight(game, cell.row, cell.column)},
                     {"percent", Percent(game, cell.row, cell.column)},
                     {"true_percent", TrueProbability(cell.row, cell.column) / 1000},
                     {"shown", cell.text},
                     {"locked", cell.locked}});
  }
  return Json({{"file", game.ProbabilityFileName},
               {"kind", DiceKindText(game)},
               {"display", kDisplayNames[static_cast<std::size_t>(game.ProbabilityDisplay)]},
               {"cells", cells}})
             .dump(2) +
         '\n';
}

int Print(const Game& game, const DiceOptions& options, std::string_view what) {
  std::cout << (options.json ? ShowJson(game) : ShowText(game)) << std::flush;
  return std::cout ? kDone : Refuse(what, "Standard output cannot be written.");
}

int ShowDice(const DiceOptions& options) {
  const auto desk = std::make_unique<Desk>();
  if (const std::string fault = desk->Open(options, options.file); !fault.empty()) {
    return Refuse("show", fault);
  }
  return Print(desk->table, options, "show");
}

// ---- Editing ----------------------------------------------------------------------------------

struct Cell {
  int row = 0;
  int column = 0;
};

std::optional<int> WholeNumber(std::string_view text, int low, int high) {
  int number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = fault == std::errc() && end == text.data() + text.size();
  return whole && number >= low && number <= high ? std::optional(number) : std::nullopt;
}
std::optional<double> RealNumber(std::string_view text) {
  if (text.ends_with('%')) text.remove_suffix(1);
  if (text.starts_with('+')) text.remove_prefix(1);
  double number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool whole = fault == std::errc() && end == text.data() + text.size();
  return whole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

// "7", "3-4", "first6" or "second6".
std::optional<Cell> CellOf(std::string_view name) {
  for (const auto& [word, column] :
       {std::pair<std::string_view, int>{"first", kFirstDieColumn}, {"second", kSecondDieColumn}}) {
    if (!name.starts_with(word)) continue;
    const auto face = WholeNumber(name.substr(word.size()), 1, 6);
    if (!face) return std::nullopt;
    return Cell{*face + 1, column};
  }
  if (const auto total = WholeNumber(name, 2, 12)) return Cell{kTotalRow, *total - 1};
  const std::size_t dash = name.find('-');
  if (dash == std::string_view::npos) return std::nullopt;
  const auto die1 = WholeNumber(name.substr(0, dash), 1, 6);
  const auto die2 = WholeNumber(name.substr(dash + 1), 1, 6);
  if (!die1 || !die2) return std::nullopt;
  return Cell{RowOfRoll(*die1, *die2), ColumnOfRoll(*die1, *die2)};
}

std::vector<std::string_view> Parts(std::string_view text) {
  std::vector<std::string_view> parts;
  for (std::size_t begin = 0; begin <= text.size();) {
    const std::size_t end = std::min(text.find(',', begin), text.size());
    parts.push_back(text.substr(begin, end - begin));
    begin = end + 1;
  }
  return parts;
}

// Each gives the complaint, or an empty text.

std::string EditCell(Game& game, std::string_view name, std::string_view value) {
  const std::optional<Cell> cell = CellOf(name);
  if (!cell) {
    return "\"" + std::string(name) +
           "\" is no part of the dice: a total is 2 to 12, a roll such as 3-4, a face first6 or "
           "second6.";
  }
  const std::optional<double> number = RealNumber(value);
  if (!number) return "\"" + std::string(value) + "\" is not a number.";
  if (!SetProbabilityCell(game, cell->row, cell->column, *number * 1000, false)) {
    return "no part of the dice is free to take the rest.";
  }
  const ProbabilityCell now = ProbabilityCellAt(game, cell->row, cell->column);
  if (std::fabs(now.value - *number) > 0.01) {
    std::cerr << "feltmaster dice set: " << name << '=' << value << " became " << now.text << ".\n";
  }
  return {};
}

std::string EditLocks(Game& game, std::string_view names, bool lock) {
  if (!lock && names == "all") {
    UnlockAllCells(game);
    return {};
  }
  for (const std::string_view name : Parts(names)) {
    const std::optional<Cell> cell = CellOf(name);
    if (!cell) return "\"" + std::string(name) + "\" is no part of the dice.";
    if (IsCellLocked(game, cell->row, cell->column) != lock) {
      ToggleCellLock(game, cell->row, cell->column);
    }
  }
  return {};
}

std::string EditAxes(Game& game, std::string_view text) {
  constexpr std::string_view kForm =
      "an axis is 1-6, 2-5 or 3-4 with the shooter's effectiveness in percent behind an @, for one "
      "die or both: 3-4@20,1-6@10.";
  constexpr std::array<std::string_view, 3> kAxes = {"1-6", "2-5", "3-4"};
  std::vector<DieControl> dice;
  for (const std::string_view part : Parts(text)) {
    const std::size_t at = std::min(part.find('@'), part.size());
    const auto* const axis = std::find(kAxes.begin(), kAxes.end(), part.substr(0, at));
    const auto percent = RealNumber(part.substr(std::min(at + 1, part.size())));
    if (axis == kAxes.end() || !percent || *percent < 0) return std::string(kForm);
    dice.push_back({*percent, static_cast<DieAxis>(axis - kAxes.begin())});
  }
  if (dice.size() > 2) return std::string(kForm);
  ComputeAxisDice(game, dice.front(), dice.size() == 2 ? dice.back() : DieControl());
  return {};
}

std::string CarryOutEdit(Game& game, std::string_view edit) {
  const std::size_t equals = edit.find('=');
  if (equals == std::string_view::npos) return "an edit is NAME=VALUE, such as 7=20.";
  const std::string_view name = edit.substr(0, equals);
  const std::string_view value = edit.substr(equals + 1);
  if (name == "axis") return EditAxes(game, value);
  if (name == "lock") return EditLocks(game, value, true);
  if (name == "unlock") return EditLocks(game, value, false);
  return EditCell(game, name, value);
}

int SetDice(const DiceOptions& options) {
  const auto desk = std::make_unique<Desk>();
  std::string fault = desk->Open(options, options.base);
  for (const std::string& edit : options.edits) {
    if (!fault.empty()) break;
    fault = CarryOutEdit(desk->table, edit);
    if (!fault.empty()) fault.insert(0, edit + ": ");
  }
  if (!fault.empty()) return Refuse("set", fault);
  if (!SaveProbabilityFile(desk->table, options.file)) {
    return Refuse("set", options.file + " cannot be written: " +
                             DescriptionIn(desk->table.LastErrorText) + '.');
  }
  return Print(desk->table, options, "set");
}

constexpr const char* kShowExamples =
    R"(The table above tells each total's chance beside that of fair dice, the one below each roll's and
each face's. With --as they are shown as the Configure screen can: in percent, as the difference
from the true percentage, as rolls out of so many, or as the difference from those.

Examples:
  feltmaster dice show
  feltmaster dice show loaded.prb
  feltmaster dice show loaded.prb --as rolls --out-of 360
  feltmaster dice show loaded.prb --json
)";
constexpr const char* kSetExamples =
    R"(The edits are carried out in their order on fair dice, or on those of --from. Each sets one part of
the dice in percent (or as --as says), keeps it, and lets the parts that are not kept take the rest:
  7=20           the total 7 comes 20 % of the time
  3-4=5          the first die shows 3 and the second 4
  first6=0       the first die never shows a 6
  axis=3-4@20    a shooter who keeps the first die off its 3 and 4 one throw in five;
                 axis=3-4@20,1-6@20 is for both dice
  lock=7,first6  keeps these parts as they are
  unlock=3-4     lets them change again; unlock=all every one

As long as faces alone are set every roll is the product of its two faces (Percentage Dice).

Examples:
  feltmaster dice set loaded.prb 7=20
  feltmaster dice set shooter.prb axis=3-4@15,3-4@15
  feltmaster dice set lopsided.prb first1=10 first6=25 second6=25
  feltmaster dice set more.prb --from loaded.prb lock=7 12=4
  feltmaster dice set thirty_six.prb --as rolls 6=6 8=6
)";

}  // namespace

void AddDiceVerb(Verb program) {
  const Verb verb = program.Sub("dice", "Shows and makes Probability Files: unfair dice");
  verb.RequireSub();
  const auto options = std::make_shared<DiceOptions>();
  const auto add = [&](const char* name, const char* help, const char* examples,
                       int (*run)(const DiceOptions&)) {
    const Verb part = verb.Sub(name, help);
    part.Footer(examples);
    part.Add("--as", options->display, "How the chances are shown and typed")
        .OneOf({kDisplayNames.begin(), kDisplayNames.end()})
        .Takes("");
    part.Add("--out-of", options->out_of, "How many rolls; 36 unless told").Takes("N");
    part.Flag("--json", options->json, "Prints every cell as JSON");
    part.Runs([options, run] { return run(*options); });
    return part;
  };
  const Verb show =
      add("show", "Tells the chance of every total, roll and face", kShowExamples, ShowDice);
  show.Add("FILE", options->file, "A Probability File, .prb; without it fair dice").Takes("");
  const Verb set = add("set", "Makes a Probability File", kSetExamples, SetDice);
  set.Add("OUT", options->file, "The Probability File to write").Required().Takes("");
  set.Add("EDIT", options->edits, "What to set, such as 7=20").Takes("");
  set.Add("--from", options->base, "The Probability File to begin with").Takes("FILE.prb");
}

}  // namespace feltmaster
