#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <system_error>

#include "base/draft_file.h"
#include "base/number_format.h"
#include "console/json_text.h"
#include "console/progress_bar.h"
#include "console/result_file.h"
#include "console/text_table.h"
#include "console/verbs.h"
#include "files/roll_file.h"
#include "files/roll_text.h"
#include "view/roll_list.h"

namespace feltmaster {

namespace {

constexpr int kDone = 0;
constexpr int kFaultTold = 1;
constexpr int kNotStarted = 2;

constexpr int kFewestPips = 2;
constexpr int kMostPips = 12;
constexpr double kCombinations = 36;

constexpr std::string_view kNotes =
    R"(A Dice Roll File holds the dice of a game, a byte for each roll: what "record" of the console
or the recorder of the table wrote, and what "playback" plays.

In a text every digit from 1 to 6 is a die, two dice are a roll, and all else is passed over. So
"import" reads what "export" writes, unless roll numbers or numbers called stand between the dice.

Examples:
  feltmaster rolls show evening.rol
  feltmaster rolls show evening.rol --from 1001 --count 20
  feltmaster rolls export evening.rol evening.txt
  feltmaster rolls export evening.rol --roll-numbers --numbers-called
  feltmaster rolls import evening.txt again.rol
  echo "3-4 6-6 1-2" | feltmaster rolls import - three.rol

The exit code is 0 when all is well, 1 when the file holds bytes that are no dice, 2 when a file
cannot be read, understood or written.)";

struct RollsOptions {
  std::string file;
  std::string output = "-";
  std::int64_t from = 1;
  std::int64_t count = 0;  // 0 for all
  bool roll_numbers = false;
  bool numbers_called = false;
  bool no_dice = false;
  bool json = false;
};

int Refuse(const std::string& sentence) {
  std::cerr << "feltmaster rolls: " << sentence << '\n';
  return kNotStarted;
}
int RefuseFile(std::string_view what, const std::string& path, const FileError& error) {
  return Refuse("cannot " + std::string(what) + ' ' + path + ": " + error.description + '.');
}

int Printed(int exit_code) {
  std::cout.flush();
  return std::cout ? exit_code : Refuse("cannot write standard output.");
}

// 0, or the exit code when it is no Dice Roll File.
int OpenForReading(PlainFile& file, const std::string& path) {
  if (const auto error = OpenRolls(file, path, PlainFile::WhenMissing::kFails)) {
    return RefuseFile("read", path, *error);
  }
  if (LooksLikeRollFile(file)) return kDone;
  return Refuse(path +
                " is either from an earlier version, has been corrupted, or is not a true "
                "Feltmaster dice roll file.");
}

RollRange RangeOf(const RollsOptions& options, const PlainFile& file) {
  const std::int64_t left = std::max<std::int64_t>(TotalRolls(file) + 1 - options.from, 0);
  return {options.from, options.count == 0 ? left : std::min(left, options.count)};
}

// --- show ---

struct RollCensus {
  std::array<std::int64_t, 256> of_byte{};
  std::int64_t rolls = 0;
  std::int64_t first_bad = 0;  // 0 for none
  std::int64_t bad = 0;

  void Take(std::string_view bytes) {
    for (const char byte : bytes) {
      ++rolls;
      ++of_byte[static_cast<unsigned char>(byte)];
      if (DiceOf(byte).AreGood()) continue;
      ++bad;
      if (first_bad == 0) first_bad = rolls;
    }
  }
  template <typename Wanted>
  std::int64_t Count(Wanted&& wanted) const {
    std::int64_t sum = 0;
    for (std::size_t byte = 0; byte < of_byte.size(); ++byte) {
      const Dice dice = DiceOf(static_cast<char>(byte));
      if (dice.AreGood() && wanted(dice)) sum += of_byte[byte];
    }
    return sum;
  }
  std::int64_t OfTotal(int total) const {
    return Count([=](Dice dice) { return dice.Total() == total; });
  }
  std::int64_t OfDice(int die1, int die2) const {
    return Count([=](Dice dice) { return dice.Die1 == die1 && dice.Die2 == die2; });
  }
};

double Percent(double part, double whole) {
  return whole == 0 ? 0 : 100 * part / whole;
}
double ProbablePercentOf(int total) {
  return Percent(6 - std::abs(7 - total), kCombinations);
}

std::string CensusJson(const std::string& path, const RollCensus& census) {
  const auto all = static_cast<double>(census.rolls - census.bad);
  std::vector<std::string> totals;
  for (int total = kFewestPips; total <= kMostPips; ++total) {
    const std::int64_t count = census.OfTotal(total);
    totals.push_back(JsonObject()
                         .Add("number", total)
                         .Add("rolls", count)
                         .Add("percent", Percent(static_cast<double>(count), all))
                         .Add("probable_percent", ProbablePercentOf(total))
                         .Text());
  }
  std::vector<std::string> dice;
  for (int die1 = 1; die1 <= 6; ++die1) {
    for (int die2 = 1; die2 <= 6; ++die2) {
      dice.push_back(JsonObject()
                         .AddJson("dice", JsonList({JsonOf(die1), JsonOf(die2)}))
                         .Add("rolls", census.OfDice(die1, die2))
                         .Text());
    }
  }
  JsonObject object;
  object.Add("file", path).Add("rolls", census.rolls).Add("bad_rolls", census.bad);
  if (census.bad > 0) object.Add("first_bad_roll", census.first_bad);
  object.AddJson("totals", JsonList(totals)).AddJson("combinations", JsonList(dice));
  return object.Text() + '\n';
}

std::string CensusText(const RollCensus& census) {
  constexpr int kBarWidth = 40;
  constexpr const char* kPercent = "0.00";
  const auto all = static_cast<double>(census.rolls - census.bad);
  std::int64_t most = 1;
  for (int total = kFewestPips; total <= kMostPips; ++total) {
    most = std::max(most, census.OfTotal(total));
  }
  Rows rows = {{"Number", "Rolls", "Percent", "Probable", ""}};
  for (int total = kFewestPips; total <= kMostPips; ++total) {
    const auto count = static_cast<double>(census.OfTotal(total));
    rows.push_back({std::to_string(total), FormatNumber(census.OfTotal(total), "#,##0"),
                    FormatNumber(Percent(count, all), kPercent),
                    FormatNumber(ProbablePercentOf(total), kPercent),
                    TextBar(count / static_cast<double>(most), kBarWidth)});
  }
  return FormatNumber(census.rolls, "#,##0") + (census.rolls == 1 ? " roll" : " rolls") + "\n\n" +
         TextTable(rows, true);
}

void PrintRow(const Row& row) {
  constexpr std::array<int, 4> kWidths = {10, 7, 7, 15};
  for (std::size_t i = 0; i < kWidths.size(); ++i) std::cout << std::setw(kWidths[i]) << row[i];
  std::cout << '\n';
}

// The rolls of a range, one by one.
int ListRolls(const PlainFile& file, const RollsOptions& options) {
  std::int64_t number = options.from;
  if (!options.json) PrintRow(RollListHeaders());
  const auto list = [&](std::string_view rolls) -> std::optional<FileError> {
    for (const char roll : rolls) {
      const Dice dice = DiceOf(roll);
      if (options.json) {
        std::cout << (number == options.from ? "[" : ",") << "\n{\"roll\":" << number
                  << ",\"dice\":[" << dice.Die1 << ',' << dice.Die2
                  << "],\"number\":" << dice.Total() << '}';
      } else {
        PrintRow(RollCells(number, dice));
      }
      ++number;
    }
    return std::cout ? std::nullopt : std::optional(SystemError(EIO));
  };
  const auto error = HandOnRolls(file, RangeOf(options, file), list);
  if (error && std::cout) return RefuseFile("read", options.file, *error);
  if (options.json) std::cout << (number == options.from ? "[]\n" : "\n]\n");
  return Printed(kDone);
}

int Show(const RollsOptions& options, bool listed) {
  PlainFile file;
  if (const int refused = OpenForReading(file, options.file)) return refused;
  if (listed) return ListRolls(file, options);
  RollCensus census;
  {
    WorkBar bar;
    const auto count = [&](std::string_view rolls) -> std::optional<FileError> {
      census.Take(rolls);
      return std::nullopt;
    };
    if (const auto error = HandOnRolls(file, AllRolls(file), count, bar.Showing())) {
      return RefuseFile("read", options.file, *error);
    }
  }
  std::cout << (options.json ? CensusJson(options.file, census) : CensusText(census));
  if (census.bad > 0) {
    std::cerr << "feltmaster rolls: " << options.file << " holds "
              << FormatNumber(census.bad, "#,##0")
              << (census.bad == 1 ? " byte that is" : " bytes that are")
              << " no dice; playback stops at roll " << FormatNumber(census.first_bad, "#,##0")
              << ".\n";
  }
  return Printed(census.bad > 0 ? kFaultTold : kDone);
}

// --- export ---

int Export(const RollsOptions& options) {
  const RollTextParts parts = {options.roll_numbers, !options.no_dice, options.numbers_called};
  if (!parts.DieNumbers && !parts.NumberCalled && !options.json) {
    return Refuse("--no-dice needs --numbers-called, or there is nothing to write.");
  }
  PlainFile file;
  if (const int refused = OpenForReading(file, options.file)) return refused;
  ResultFile result;
  if (std::string fault = result.Open(options.output); !fault.empty()) return Refuse(fault);
  std::ostream& out = result.Stream();
  const RollRange range = RangeOf(options, file);
  WorkBar bar;
  std::optional<FileError> error;
  if (options.json) {
    bool first = true;
    const auto write = [&](std::string_view rolls) -> std::optional<FileError> {
      for (const char roll : rolls) {
        const Dice dice = DiceOf(roll);
        out << (first ? "[\n[" : ",\n[") << dice.Die1 << ',' << dice.Die2 << ']';
        first = false;
      }
      return out ? std::nullopt : std::optional(SystemError(EIO));
    };
    error = HandOnRolls(file, range, write, bar.Showing());
    out << (first ? "[]\n" : "\n]\n");
  } else {
    const auto write = [&](std::string_view lines) -> std::optional<FileError> {
      out << lines;
      return out ? std::nullopt : std::optional(SystemError(EIO));
    };
    error = HandOnRollText(file, range, parts, options.from, write, bar.Showing());
  }
  std::string fault = result.Finish();
  if (fault.empty() && error) return RefuseFile("read", options.file, *error);
  if (fault.empty()) fault = result.PutInPlace();
  return fault.empty() ? kDone : Refuse(fault);
}

// --- import ---

std::optional<FileError> OpenText(std::ifstream& text, const std::string& path) {
  std::error_code ignored;
  if (std::filesystem::is_directory(path, ignored)) return SystemError(EISDIR);
  errno = 0;
  text.open(path, std::ios::binary);
  if (text.is_open()) return std::nullopt;
  return SystemError(errno != 0 ? errno : EIO);
}

int Import(const RollsOptions& options) {
  std::ifstream text_file;
  const bool piped = options.file == "-";
  if (!piped) {
    if (const auto error = OpenText(text_file, options.file)) {
      return RefuseFile("read", options.file, *error);
    }
  }
  std::istream& text = piped ? std::cin : text_file;
  std::error_code no_length;
  const auto length = static_cast<double>(std::filesystem::file_size(options.file, no_length));
  DraftFile rolls;
  std::optional<FileError> error = rolls.Open(options.output);
  RollTextReader reader;
  std::int64_t count = 0;
  {
    WorkBar bar;
    double taken = 0;
    std::array<char, kRollBlock> block;
    while (!error && text) {
      text.read(block.data(), block.size());
      const auto size = static_cast<std::size_t>(text.gcount());
      const std::string bytes = reader.Take({block.data(), size});
      count += static_cast<std::int64_t>(bytes.size());
      error = count > kMaxRolls ? std::optional(SystemError(EFBIG)) : rolls.Write(bytes);
      taken += static_cast<double>(size);
      if (!piped && !no_length && length > 0) bar.Show(taken / length);
    }
  }
  if (text.bad()) return RefuseFile("read", options.file, SystemError(EIO));
  if (!error) error = rolls.PutInPlace();
  if (error) return RefuseFile("write", options.output, *error);
  if (options.json) {
    std::cout << JsonObject().Add("file", options.output).Add("rolls", count).Text() << '\n';
  } else {
    std::cout << FormatNumber(count, "#,##0") << (count == 1 ? " roll" : " rolls") << " in "
              << options.output << ".\n";
  }
  if (reader.LoneDie() != 0) {
    std::cerr << "feltmaster rolls: the last die, a " << reader.LoneDie()
              << ", has no second one and is left out.\n";
  }
  return Printed(kDone);
}

void AddRange(Verb verb, RollsOptions& options) {
  verb.Add("--from", options.from, "The first roll, 1 if it is not given")
      .Takes("N")
      .InRange(std::int64_t{1}, kMaxRolls);
  verb.Add("--count", options.count, "How many rolls, all if it is not given")
      .Takes("N")
      .InRange(std::int64_t{1}, kMaxRolls);
}

}  // namespace

void AddRollsVerb(Verb program) {
  const Verb verb =
      program.Sub("rolls", "Shows Dice Roll Files, and turns them into text and back");
  verb.RequireSub();
  verb.Footer(std::string(kNotes));
  const auto options = std::make_shared<RollsOptions>();

  const Verb show =
      verb.Sub("show", "How often each number came; with --from or --count the rolls themselves");
  show.Add("FILE", options->file, "A Dice Roll File, .rol").Takes("").Required();
  AddRange(show, *options);
  show.Flag("--json", options->json, "Prints JSON");
  show.Runs(
      [options, show] { return Show(*options, show.Given("--from") || show.Given("--count")); });

  const Verb to_text = verb.Sub("export", "Writes the rolls as text, a line for each");
  to_text.Add("FILE", options->file, "A Dice Roll File, .rol").Takes("").Required();
  to_text.Add("TEXT", options->output, "The file to write; standard output without it").Takes("");
  AddRange(to_text, *options);
  to_text.Flag("--roll-numbers", options->roll_numbers, "\"12 (3-4)\" instead of \"(3-4)\"");
  to_text.Flag("--numbers-called", options->numbers_called, "\"(3-4) 7\" instead of \"(3-4)\"");
  to_text.Flag("--no-dice", options->no_dice, "Leaves out \"(3-4)\"");
  to_text.Flag("--json", options->json, "Writes a JSON list of pairs, [3,4]");
  to_text.Runs([options] { return Export(*options); });

  const Verb from_text = verb.Sub("import", "Makes a Dice Roll File of a text");
  from_text.Add("TEXT", options->file, "The text; - is standard input").Takes("").Required();
  from_text.Add("FILE", options->output, "The Dice Roll File to write").Takes("").Required();
  from_text.Flag("--json", options->json, "Prints the count as JSON");
  from_text.Runs([options] { return Import(*options); });
}

}  // namespace feltmaster
