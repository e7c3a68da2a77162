#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>

#include "autobet/check_bets.h"
#include "autobet/line_meaning.h"
#include "autobet/script_conversion.h"
#include "autobet/script_file.h"
#include "autobet/script_text.h"
#include "autobet/vocabulary.h"
#include "base/record_file.h"
#include "base/text.h"
#include "console/json_text.h"
#include "console/line_json.h"
#include "console/verbs.h"
#include "surface/null_surface.h"

namespace feltmaster {

namespace {

constexpr int kDone = 0;
constexpr int kFaultTold = 1;
constexpr int kNotStarted = 2;

constexpr std::string_view kNotes =
    R"(A script is a .bet file or its text: one line of the script a line, as
"script list" prints it. Indentation, runs of blanks and the case of the words
are free; a line that begins with ' is a comment; other text is a label when a
"Go to" or "Gosub" names it. "script words" prints what lines can be made of.

The text of a script, press_the_six.txt:
  ' Place the 6, and press it after each second win.
  When . . .
    Initializing Auto-Bet
  or when . . .
    A point is established on any number
  then . . .
    Bet $ 12 on Place 6
  When . . .
    Place 6 has won 2 times
  then . . .
    Add $ 6 to Place 6
    Reset wins / losses on Place 6

Examples:
  feltmaster script check press_the_six.txt
  feltmaster script compile press_the_six.txt press_the_six.bet
  feltmaster script list press_the_six.bet
  feltmaster script words "Place 6"
  feltmaster script convert theirs.bet ours.bet

The exit code is 0 when all is well, 1 when the structure of the script is at
fault, 2 when a file cannot be read, understood or written.)";

struct ScriptOptions {
  std::string file;
  std::string output;
  std::string words;
  bool json = false;
  bool markdown = false;
};

int Refuse(std::string_view sentence) {
  std::cerr << "feltmaster: " << sentence << '\n';
  return kNotStarted;
}

// What was printed has reached standard output.
int Printed(int exit_code) {
  std::cout.flush();
  return std::cout ? exit_code : Refuse("Standard output cannot be written.");
}

// A script at a table with nobody at it.
struct Desk {
  Desk() { table.surface = &surface; }
  // 0, or the exit code when the script was refused.
  int Load(const std::string& path) {
    const auto fault = LoadScriptOrText(table, path);
    return fault ? Refuse(*fault) : kDone;
  }

  NullSurface surface;
  Game table;
};

// A record may hold any bytes; a terminal should not obey them.
std::string Printable(std::string text) {
  for (char& c : text) {
    if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') c = '?';
  }
  return text;
}

int List(const ScriptOptions& options) {
  Desk desk;
  if (const int refused = desk.Load(options.file)) return refused;
  const std::vector<ScriptLine>& lines = desk.table.ScriptLines;
  if (!options.json) {
    for (const ScriptLine& line : lines) std::cout << Printable(line.LineText) << '\n';
    return Printed(kDone);
  }
  std::cout << '[';
  for (std::size_t i = 0; i < lines.size(); ++i) {
    std::cout << (i == 0 ? "\n" : ",\n") << LineAsJson(lines[i], LineFields::kStored);
  }
  std::cout << "\n]\n";
  return Printed(kDone);
}

// Where a line of the script stands in its file: a text may have blank lines between.
std::size_t FileLine(const std::string& path, std::size_t script_line) {
  constexpr std::size_t kLimit = 64 << 20;
  std::string text;
  if (ReadWholeFile(path, kLimit, text) || LooksLikeScriptFile(text)) return script_line;
  std::size_t number = 0;
  std::size_t at = 0;
  while (script_line > 0 && at < text.size()) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    if (text.find_first_not_of(" \t\r", at) < end) --script_line;
    ++number;
    at = end + 1;
  }
  return number;
}

// Tells the first fault of the structure and gives the exit code.
int TellStructure(const std::string& path, const std::vector<ScriptLine>& script) {
  const auto fault = FindStructureFault(script);
  if (!fault) return kDone;
  constexpr std::string_view kOnTheScreen = " shown at the top of the screen";
  std::string text = fault->text;
  if (const std::size_t at = text.find(kOnTheScreen); at != std::string::npos) {
    text.erase(at, kOnTheScreen.size());
  }
  std::cerr << path << ':' << FileLine(path, fault->line) << ": " << text << '\n';
  return kFaultTold;
}

int Check(const ScriptOptions& options) {
  Desk desk;
  if (const int refused = desk.Load(options.file)) return refused;
  if (const int fault = TellStructure(options.file, desk.table.ScriptLines)) return fault;
  std::cout << options.file << ": " << desk.table.ScriptLines.size()
            << " lines, properly structured.\n";
  return Printed(kDone);
}

int Compile(const ScriptOptions& options) {
  if (!Lower(options.output).ends_with(".bet")) {
    return Refuse("OUT " + options.output + " is no name of a script file; it must end in .bet.");
  }
  Desk desk;
  if (const int refused = desk.Load(options.file)) return refused;
  if (!SaveScript(desk.table, options.output)) {
    return Refuse(options.output +
                  " cannot be written: " + DescriptionIn(desk.table.LastErrorText) + '.');
  }
  std::cout << options.output << ": " << desk.table.ScriptLines.size() << " lines.\n";
  return Printed(TellStructure(options.file, desk.table.ScriptLines));
}

int Convert(const ScriptOptions& options) {
  if (!Lower(options.output).ends_with(".bet")) {
    return Refuse("OUT " + options.output + " is no name of a script file; it must end in .bet.");
  }
  Record header;
  RecordReader source;
  if (const auto error = source.Open(options.file)) {
    return Refuse(options.file + " cannot be read: " + error->description + '.');
  }
  if (!source.Read(header) || !IsSiblingScript(header)) {
    return Refuse(options.file + " is no script of Feltking; nothing to convert.");
  }
  ConversionCount count;
  if (const auto error = ConvertScriptFile(options.file, options.output, count)) {
    return Refuse(options.file + " cannot be converted to " + options.output + ": " +
                  error->description + '.');
  }
  if (options.json) {
    std::cout << JsonObject()
                     .Add("file", options.output)
                     .Add("lines", count.kept)
                     .Add("dropped", count.dropped)
                     .Text()
              << '\n';
  } else {
    std::cout << options.output << ": " << count.kept << " lines, " << count.dropped
              << " dropped.\n";
  }
  Desk desk;
  if (const int refused = desk.Load(options.output)) return refused;
  return Printed(TellStructure(options.output, desk.table.ScriptLines));
}

// What stands for a field in the list of words.
std::string_view PlaceOf(Field field) {
  switch (field) {
    case Field::kAmount:
    case Field::kPositiveAmount:
      return "AMOUNT";
    case Field::kTimes:
      return "COUNT times";
    case Field::kTimesOrEach:
      return "COUNT times|each time";
    case Field::kRolls:
      return "COUNT rolls";
    case Field::kStack:
      return "0..99";
    case Field::kAverage:
      return "ROLLS|all roll average )";
    case Field::kFlag:
      return "\"FLAG\"";
    case Field::kLabel:
      return "\"LABEL\"";
    case Field::kName:
      return "\"NAME\"";
    case Field::kText:
      return "\"TEXT\"";
    case Field::kIsTrue:
      return "is True|is False";
    case Field::kAreTrue:
      return "are True|are False";
    case Field::kToTrue:
      return "to True|to False";
    case Field::kComparedWith:
      return "THING";
    case Field::kValue:
      return "VALUE";
    case Field::kRounding:
      return "ROUNDING";
    case Field::kTarget:
      return "TARGET";
    case Field::kPlaceTarget:
      return "PLACE BET";
    case Field::kRollTarget:
      return "ROLL";
    case Field::kWinRule:
      return "WIN RULE";
    case Field::kLossRule:
      return "LOSS RULE";
    default:
      return WordsOf(field);
  }
}

constexpr std::string_view kVocabularyChapter =
    R"(# The vocabulary of scripts

Every condition and every action that a line can be made of, in the order of the editor's lists.
Words in capitals stand for what you fill in: an AMOUNT of money or a plain number, a COUNT, a
"TEXT" in quotation marks, or an entry of the list of that name at the end of this page. A bar
parts words of which one is chosen. Behind the colon stands what the line means, told for a sample:
the amount or count 3, the bankroll as the value, and most often the Pass Line as the bet. How lines
work together is told in [the script language](script_language.md).

This page is written by `feltmaster script words --markdown`.
)";

// Prints the rows that hold the words asked for, under their heading.
class WordList {
 public:
  WordList(const std::string& words, bool markdown) : words_(words), markdown_(markdown) {}

  void Head(std::string_view heading) { heading_ = heading; }
  // `sample` is a line made of the row.
  void Row(std::string text, const ScriptLine* sample = nullptr) {
    if (!ContainsIgnoringCase(text, words_)) return;
    if (!heading_.empty() && markdown_) {
      std::cout << "\n## " << heading_ << "\n\n";
    } else if (!heading_.empty()) {
      std::cout << (any_ ? "\n" : "") << heading_ << '\n';
    }
    heading_ = {};
    any_ = true;
    if (markdown_) text = "- `" + text + '`' + (sample != nullptr ? ": " + MeaningOf(*sample) : "");
    std::cout << (markdown_ ? "" : "  ") << text << '\n';
  }
  bool Any() const { return any_; }

 private:
  const std::string& words_;
  bool markdown_;
  std::string_view heading_;
  bool any_ = false;
};

std::string WithFields(std::string_view caption, std::span<const Field> fields) {
  std::string text(caption);
  for (const Field field : fields) {
    if (field == Field::kNone) continue;
    text += ' ';
    text += PlaceOf(field);
  }
  return text;
}

constexpr std::int32_t kSampleBet = kPassLine;

// A pick of the list of a field, as a sample.
std::int32_t SamplePick(Field field) {
  const PickList picks = PicksOf(field);
  for (const std::int32_t code : {std::int32_t{kBankrollSubject}, kSampleBet}) {
    if (FindPick(picks, code) != nullptr) return code;
  }
  return picks.empty() ? 0 : picks[picks.size() / 2].code;
}

ScriptLine SampleLine(std::int32_t kind, std::span<const Field> fields) {
  ScriptLine line;
  line.LineKind = kind;
  line.LineAmount = MoneyAmount(3);
  line.LineName = "NAME";
  for (const Field field : fields) {
    const bool is_value = field == Field::kValue || field == Field::kRounding;
    if (!PicksOf(field).empty())
      (is_value ? line.LineSubject : line.LineTarget) = SamplePick(field);
  }
  return line;
}

ScriptLine SampleOf(const StartRow& row) {
  return SampleLine(row.kind, {});
}
ScriptLine SampleOf(const ActionRow& row) {
  ScriptLine line = SampleLine(kActionLine, row.fields);
  line.LineCode = row.code;
  return line;
}
ScriptLine SampleOf(const ConditionRow& row) {
  ScriptLine line = SampleLine(kConditionLine, row.fields);
  line.LineSubject = row.code;
  return line;
}

bool Offers(const ConditionRow& condition, const ComparisonRow& row) {
  return std::ranges::any_of(condition.comparisons, [&row](ComparisonList list) {
    return std::ranges::find(list, row) != list.end();
  });
}
// A comparison, of the Pass Line or else of the first condition that offers it.
ScriptLine SampleOf(const ComparisonRow& row) {
  const ConditionRow* condition = FindCondition(kSampleBet);
  if (!Offers(*condition, row)) {
    condition = std::ranges::find_if(
        kConditions, [&row](const ConditionRow& other) { return Offers(other, row); });
  }
  ScriptLine line = SampleLine(kConditionLine, {&row.operand, 1});
  line.LineSubject = condition->code;
  line.LineCode = row.code;
  return line;
}

int Words(const ScriptOptions& options) {
  WordList list(options.words, options.markdown);
  if (options.markdown) std::cout << kVocabularyChapter;
  list.Head("Lines that start conditions and actions");
  for (const StartRow& row : kStartRows) {
    const ScriptLine sample = SampleOf(row);
    list.Row(std::string(row.caption), &sample);
  }
  list.Head("Conditions");
  for (const ConditionRow& row : kConditions) {
    const std::string_view shown = row.shown.empty() ? row.caption : row.shown;
    std::string text = WithFields(shown, row.fields);
    const bool complete = row.comparisons[0].empty();
    if (!complete) text += " COMPARISON";
    const ScriptLine sample = SampleOf(row);
    list.Row(text, complete ? &sample : nullptr);
  }
  const std::pair<std::string_view, ComparisonList> comparisons[] = {
      {"COMPARISON of a bet", kWonLostOne},
      {"COMPARISON of a bet, Chip-Stack or bankroll", kComparedOne},
      {"COMPARISON of several bets", kWonLostSeveral},
      {"COMPARISON of several bets, Chip-Stacks", kComparedAmountSeveral},
      {"COMPARISON of several bets, Chip-Stacks, or of a count", kComparedThingSeveral},
      {"COMPARISON of a count", kComparedCount},
      {"COMPARISON of a total, or of flags", kNumberOf},
      {"COMPARISON of a Chip-Stack", kNamedOne},
      {"COMPARISON of Chip-Stacks", kNamedSeveral},
      {"COMPARISON of a roll", kRolled},
      {"COMPARISON of a point", kPointNumbers},
  };
  for (const auto& [heading, rows] : comparisons) {
    list.Head(heading);
    for (const ComparisonRow& row : rows) {
      const ScriptLine sample = SampleOf(row);
      list.Row(WithFields(row.caption, {&row.operand, 1}), &sample);
    }
  }
  list.Head("Actions");
  for (const ActionRow& row : kActions) {
    const ScriptLine sample = SampleOf(row);
    list.Row(WithFields(row.caption, row.fields), &sample);
  }
  for (const Field field : {Field::kComparedWith, Field::kValue, Field::kTarget, Field::kRollTarget,
                            Field::kRounding, Field::kWinRule, Field::kLossRule}) {
    list.Head(PlaceOf(field));
    for (const PickRow& row : PicksOf(field)) {
      std::string text(row.caption);
      if (NeedsStack(row.code)) text += " 0..99";
      if (NeedsAverage(row.code)) text += " ROLLS|all";
      if (NeedsAverage(row.code) && field == Field::kComparedWith) text += " roll average )";
      list.Row(text);
    }
  }
  if (!list.Any()) return Refuse("No line of a script holds \"" + options.words + "\".");
  return Printed(kDone);
}

}  // namespace

void AddScriptVerb(Verb program) {
  const Verb verb = program.Sub("script", "Lists, checks and converts betting scripts");
  verb.Footer(std::string(kNotes));
  verb.RequireSub();
  const auto options = std::make_shared<ScriptOptions>();
  const auto add = [&](const char* name, const char* help, int (*run)(const ScriptOptions&)) {
    const Verb part = verb.Sub(name, help);
    part.Runs([options, run] { return run(*options); });
    return part;
  };

  const Verb list = add("list", "Prints the lines of a script", List);
  list.Add("FILE", options->file, "A .bet file or the text of a script").Required();
  list.Flag("--json", options->json, "Prints the records, an object a line");
  list.Footer(
      "Examples:\n"
      "  feltmaster script list mine.bet > mine.txt\n"
      "  feltmaster script list --json mine.bet");

  const Verb compile = add("compile", "Writes a script as a .bet file", Compile);
  compile.Add("IN", options->file, "A .bet file or the text of a script").Required();
  compile.Add("OUT", options->output, "The .bet file to write").Required();
  compile.Footer(
      "OUT is written whole or not at all. A script whose structure is at fault is\n"
      "written too, and the fault told.\n\n"
      "Example:\n"
      "  feltmaster script compile mine.txt mine.bet");

  const Verb convert = add("convert", "Converts a script of Feltking", Convert);
  convert.Add("IN", options->file, "A .bet file of Feltking, which stays as it is").Required();
  convert.Add("OUT", options->output, "The .bet file to write").Required();
  convert.Flag("--json", options->json, "Prints an object: file, lines, dropped");
  convert.Footer(
      "Lines that speak of Don't Pass or Don't Come bets are dropped. If that leaves a\n"
      "fault in the structure, the script is written all the same and the fault told.\n\n"
      "Example:\n"
      "  feltmaster script convert theirs.bet ours.bet");

  const Verb check = add("check", "Tests the structure of a script", Check);
  check.Add("FILE", options->file, "A .bet file or the text of a script").Required();
  check.Footer(
      "A fault is told as FILE:LINE: what is wrong, or for a text that cannot be read\n"
      "FILE:LINE:COLUMN: what was expected there.\n\n"
      "Example:\n"
      "  feltmaster script check mine.txt");

  const Verb words = add("words", "Prints what lines of a script can be made of", Words);
  words.Add("TEXT", options->words, "Only rows that hold this text");
  words.Flag("--markdown", options->markdown, "As a chapter of the user's guide");
  words.Footer(
      "Examples:\n"
      "  feltmaster script words\n"
      "  feltmaster script words chip-stack");
}

}  // namespace feltmaster
