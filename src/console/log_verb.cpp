#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <iostream>
#include <memory>
#include <nlohmann/json.hpp>
#include <optional>

#include "base/number_format.h"
#include "base/text.h"
#include "console/json_text.h"
#include "console/progress_bar.h"
#include "console/result_file.h"
#include "console/svg_chart.h"
#include "console/text_table.h"
#include "console/verbs.h"
#include "files/games_log.h"
#include "stats/games_analysis.h"
#include "surface/null_surface.h"
#include "view/games_screen.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;
using Json = nlohmann::ordered_json;

constexpr int kDone = 0;
constexpr int kNotStarted = 2;

// A complaint, one sentence.
struct BadLog {
  std::string sentence;
};

// The values of a game by the names that other tools see; the Chip-Stacks are stack0 to stack19.
constexpr std::array<std::string_view, kFirstStackValue> kKeys = {
    "rolls",      "decided",     "won", "lost",      "net_count", "handle",
    "amount_won", "amount_lost", "net", "advantage", "invested",  "bankroll"};
std::string KeyOf(int value) {
  if (value < kFirstStackValue) return std::string(kKeys[static_cast<std::size_t>(value)]);
  return "stack" + std::to_string(value - kFirstStackValue);
}
int ValueNamed(const std::string& name) {
  for (int value = 0; value < kGameValues; ++value) {
    if (EqualIgnoringCase(name, KeyOf(value)) || EqualIgnoringCase(name, NameOfGameValue(value))) {
      return value;
    }
  }
  std::string keys;
  for (const std::string_view key : kKeys) keys += std::string(key) + ", ";
  throw BadLog{"--value \"" + name + "\" is none of " + keys + "stack0 to stack19."};
}

std::string SentenceOf(const std::string& path, const LogFault& fault) {
  return fault.strange ? OneLine(StrangeLogText(path))
                       : path + ": " + fault.error.description + ".";
}
void Check(const std::string& path, const std::optional<LogFault>& fault) {
  if (fault) throw BadLog{SentenceOf(path, *fault)};
}
void Check(const std::string& fault) {
  if (!fault.empty()) throw BadLog{fault};
}

void OpenExisting(GamesLogReader& log, const std::string& path) {
  Check(path, log.Open(path));
  if (!log.Exists()) throw BadLog{path + ": there is no such file."};
}

// How far a pass over games has come, drawn on a terminal.
class Passing {
 public:
  explicit Passing(std::int64_t games) : bar_(progress_, std::max<std::int64_t>(games, 1), 0) {}
  void Add(std::int64_t games) { progress_.games.fetch_add(games); }
  void Set(std::int64_t games) { progress_.games.store(games); }

 private:
  SimulationProgress progress_;
  ProgressBar bar_;
};

// --- show ------------------------------------------------------------------------------------

struct ShowOptions {
  std::string file;
  std::string value = "net";
  std::vector<std::string> only;
  std::string breaks;
  std::string from, to;
  int bar_width = 0;  // 0 for what suits the picture
  bool json = false;
  std::string chart;
};

MoneyAmount ReadAmount(std::string_view option, const std::string& text) {
  const bool number = !text.empty() &&
                      text.find_first_not_of("0123456789.,-") == std::string::npos &&
                      text.find_first_of("0123456789") != std::string::npos &&
                      text.find('-', 1) == std::string::npos;
  if (!number) throw BadLog{std::string(option) + " \"" + text + "\" is not an amount."};
  return ParseMoney(text);
}

void SetUpScreen(const ShowOptions& options, Game& game) {
  game.GamesLogFile = options.file;
  if (!options.only.empty()) {
    constexpr std::array<std::string_view, kGameOutcomes> kOutcomes = {"won", "even", "lost"};
    game.GamesViewChoice = 0;
    for (const std::string& name : options.only) {
      const auto* const outcome = std::find(kOutcomes.begin(), kOutcomes.end(), Lower(name));
      if (outcome == kOutcomes.end()) {
        throw BadLog{"--only \"" + name + "\" is none of won, even, lost."};
      }
      game.GamesViewChoice |= 1 << (outcome - kOutcomes.begin());
    }
  }
  if (!options.breaks.empty()) {
    const std::size_t colon = options.breaks.find(':');
    const MoneyAmount first = ReadAmount("--breaks", options.breaks.substr(0, colon));
    const MoneyAmount second = colon == std::string::npos
                                   ? first
                                   : ReadAmount("--breaks", options.breaks.substr(colon + 1));
    game.GamesBreakLow = std::min(first, second);
    game.GamesBreakHigh = std::max(first, second);
  }
  if (!options.from.empty()) {
    game.GamesValueBox[0] = PlainNumber(ReadAmount("--from", options.from));
  }
  if (!options.to.empty()) game.GamesValueBox[1] = PlainNumber(ReadAmount("--to", options.to));
}

std::vector<GamesBar> Bars(const GamesAnalysis& analysis, int width) {
  std::vector<GamesBar> bars;
  if (analysis.included == 0) return bars;
  for (int first = 0; first < kHistogramColumns; first += width) {
    bars.push_back(BarAt(analysis, first, width));
  }
  return bars;
}

// The values at the two edges of a bar. Columns are centred on their values.
double EdgeOf(const GamesAnalysis& analysis, int column) {
  constexpr double kSteps = kHistogramColumns - 1;
  const double range = analysis.range.Raw() == 0 ? kSteps : analysis.range.ToDouble();
  const double low =
      analysis.range.Raw() == 0 ? analysis.low.ToDouble() - kSteps / 2 : analysis.low.ToDouble();
  return low + range * (column - 0.5) / kSteps;
}

std::string HistogramText(const GamesAnalysis& analysis, int width) {
  constexpr int kBarLength = 48;
  std::int32_t most = 1;
  const std::vector<GamesBar> bars = Bars(analysis, width);
  for (const GamesBar& bar : bars) most = std::max(most, bar.total.games);
  Rows rows;
  for (const GamesBar& bar : bars) {
    // Bars that stand for one value, or for none, have that value or none beside them.
    const bool any = bar.total.games > 0;
    if (analysis.range.Raw() == 0 && !any) continue;
    const double share = static_cast<double>(bar.total.games) / most;
    std::string text = TextBar(share, kBarLength);
    if (any && text.empty()) text = "|";
    rows.push_back({any ? FormatMoney(bar.total.lowest) : "",
                    any ? FormatMoney(bar.total.highest) : "", CountText(bar.total.games), text});
  }
  if (rows.empty()) return {};
  rows.insert(rows.begin(), {"lowest", "highest", "games", ""});
  return "\n" + TextTable(rows, true);
}

std::string ShowText(const Game& game, const GamesAnalysis& analysis, int width) {
  Rows rows;
  for (const OutcomeFigure& outcome : OutcomeFigures(game, analysis)) {
    rows.push_back({outcome.caption, outcome.games, outcome.percent + " %"});
  }
  Rows figures = RowsOf(GamesFigures(analysis));
  for (Row& row : figures) row[0] = Trim(row[0]);
  const RangeFigures range = GamesInRange(analysis);
  return game.GamesLogFile + ": " + NameOfGameValue(analysis.value) + "\n\n" + TextTable(rows) +
         "\n" + TextTable(figures) + "\n" + range.games + " (" + range.percent + ") from " +
         game.GamesValueBox[0] + " to " + game.GamesValueBox[1] + "\n" +
         HistogramText(analysis, width);
}

Json Plain(MoneyAmount amount) {
  return Json::parse(JsonOf(amount));
}

std::string ShowJson(const Game& game, const GamesAnalysis& a, int width) {
  Json bars = Json::array();
  for (const GamesBar& bar : Bars(a, width)) {
    if (bar.total.games == 0) continue;
    bars.push_back({{"first_column", bar.first},
                    {"lowest", Plain(bar.total.lowest)},
                    {"highest", Plain(bar.total.highest)},
                    {"games", bar.total.games}});
  }
  const Json json = {
      {"file", game.GamesLogFile},
      {"games", a.games},
      {"value", KeyOf(a.value)},
      {"name", NameOfGameValue(a.value)},
      {"breaks", {Plain(game.GamesBreakLow), Plain(game.GamesBreakHigh)}},
      {"outcomes",
       {{"won", a.outcomes[kGameWon]},
        {"even", a.outcomes[kGameEven]},
        {"lost", a.outcomes[kGameLost]}}},
      {"included", a.included},
      {"sum", Plain(a.sum)},
      {"mean", Plain(a.mean)},
      {"median", Plain(a.median)},
      {"median_is_average", a.median_is_average},
      {"mode",
       {{"lowest", Plain(a.mode.total.lowest)},
        {"highest", Plain(a.mode.total.highest)},
        {"games", a.mode.total.games}}},
      {"high", Plain(a.high)},
      {"low", Plain(a.low)},
      {"range", Plain(a.range)},
      {"variance", a.variance},
      {"standard_deviation", Plain(a.deviation)},
      {"skew", Plain(a.skew)},
      {"kurtosis", Plain(a.kurtosis)},
      {"net", Plain(a.net)},
      {"handle", Plain(a.handle)},
      {"advantage", Plain(a.advantage)},
      {"from", Plain(ParseMoney(game.GamesValueBox[0]))},
      {"to", Plain(ParseMoney(game.GamesValueBox[1]))},
      {"in_range", a.in_range},
      {"bar_width", width},
      {"bars", bars},
  };
  return json.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

std::string ShowSvg(const Game& game, const GamesAnalysis& analysis, int width) {
  constexpr double kWidth = 960;
  constexpr double kHeight = 520;
  constexpr SvgChart::Frame kFrame = {100, 110, 820, 320};
  constexpr double kAir = 1.08;
  const std::string name = NameOfGameValue(analysis.value);
  std::vector<SvgChart::Bar> bars;
  double most = 1;
  for (const GamesBar& bar : Bars(analysis, width)) {
    const double games = bar.total.games;
    bars.push_back({EdgeOf(analysis, bar.first), EdgeOf(analysis, bar.first + width), games});
    most = std::max(most, games);
  }
  SvgChart chart(kWidth, kHeight);
  chart.Title(fs::path(game.GamesLogFile).filename().string(),
              CountText(analysis.included) + " of " + CountText(analysis.games) +
                  " games, median " + FormatMoney(analysis.median) + ", standard deviation " +
                  FormatNumber(analysis.deviation, "#,##0.00"));
  if (bars.empty()) return chart.Document();
  const bool money = name.find('$') != std::string::npos || analysis.value == kInvestedValue ||
                     analysis.value == kBankrollValue;
  chart.Panel(kFrame, name, {bars.front().from, bars.back().to, name, money},
              {0, most * kAir, "games", false});
  chart.Bars(bars);
  chart.MarkY(0);
  chart.MarkX(analysis.mean.ToDouble(),
              "mean " + FormatNumber(analysis.mean, "#,##0.00;-#,##0.00"));
  return chart.Document();
}

void RunShow(const ShowOptions& options) {
  constexpr int kTextBars = 25;  // columns a bar: a screen of text
  constexpr int kChartBars = 5;  // as the Games Log screen begins
  const int value = ValueNamed(options.value);
  NullSurface surface;
  const auto game = std::make_unique<Game>();
  game->surface = &surface;
  SetUpScreen(options, *game);
  const bool width_fits =
      options.bar_width == 0 ||
      std::count(kGamesBarWidths.begin(), kGamesBarWidths.end(), options.bar_width) > 0;
  if (!width_fits) throw BadLog{"--bar-width takes 1, 5, 25 or 105."};
  game->GamesBarWidth = options.bar_width != 0 ? options.bar_width : kTextBars;
  {
    GamesLogReader log;
    OpenExisting(log, options.file);
  }
  std::optional<GamesAnalysis> analysis;
  {
    constexpr std::int64_t kParts = 1000;
    Passing passing(kParts);
    analysis = AnalyzeGames(*game, value, [&](double share) {
      passing.Set(static_cast<std::int64_t>(share * kParts));
      return true;
    });
  }
  if (!analysis) throw BadLog{OneLine(game->MsgText) + "."};
  if (!options.chart.empty()) {
    ResultFile file;
    const auto check = [](const std::string& fault) {
      if (!fault.empty()) throw BadLog{"--chart: " + fault};
    };
    check(file.Open(options.chart));
    file.Stream() << ShowSvg(*game, *analysis,
                             options.bar_width != 0 ? options.bar_width : kChartBars);
    check(file.Finish());
    check(file.PutInPlace());
    if (options.chart == "-") return;
  }
  std::cout << (options.json ? ShowJson(*game, *analysis, game->GamesBarWidth)
                             : ShowText(*game, *analysis, game->GamesBarWidth));
}

// --- merge -----------------------------------------------------------------------------------

struct MergeOptions {
  std::vector<std::string> parts;
  std::string into;
  bool json = false;
};

void RunMerge(const MergeOptions& options) {
  std::int64_t games = 0;
  for (const std::string& part : options.parts) {
    GamesLogReader log;
    OpenExisting(log, part);
    games += log.Count();
    std::error_code ignored;
    if (fs::equivalent(part, options.into, ignored)) {
      throw BadLog{part + " cannot be merged into itself."};
    }
  }
  GamesLogAppender whole;
  Check(options.into, whole.Open(options.into));
  {
    Passing passing(games);
    for (const std::string& part : options.parts) {
      GamesLogReader log;
      OpenExisting(log, part);
      for (std::string block;;) {
        Check(part, log.ReadBlock(log.Count(), block));
        if (block.empty()) break;
        Check(options.into, whole.Add(block));
        passing.Add(static_cast<std::int64_t>(block.size() / kRecordSize));
      }
    }
    Check(options.into, whole.Finish(true));
  }
  if (options.json) {
    std::cout << JsonObject()
                     .Add("file", options.into)
                     .Add("added", games)
                     .Add("games", whole.Count())
                     .Text()
              << '\n';
  } else {
    std::cout << CountText(games) << (games == 1 ? " game" : " games") << " added, "
              << CountText(whole.Count()) << " in " << options.into << ".\n";
  }
}

// --- export ----------------------------------------------------------------------------------

struct ExportOptions {
  std::string file;
  std::string csv;
  std::string json;
};

void WriteGames(GamesLogReader& log, const std::string& path, bool as_json) {
  ResultFile file;
  Check(file.Open(path));
  std::ostream& out = file.Stream();
  std::array<std::string, kGameValues> keys;
  for (int value = 0; value < kGameValues; ++value) {
    keys[static_cast<std::size_t>(value)] = KeyOf(value);
  }
  if (as_json) {
    out << "[";
  } else {
    out << "game";
    for (const std::string& key : keys) out << ',' << key;
    out << '\n';
  }
  {
    Passing passing(log.Count());
    Record game;
    for (std::int32_t number = 1; log.Read(game) && out; ++number) {
      std::string line;
      if (as_json) {
        line = number == 1 ? "\n" : ",\n";
        JsonObject object;
        object.Add("game", number);
        for (int value = 0; value < kGameValues; ++value) {
          object.Add(keys[static_cast<std::size_t>(value)], ValueOfGame(game, value));
        }
        line += object.Text();
      } else {
        line = std::to_string(number);
        for (int value = 0; value < kGameValues; ++value) {
          line += ',' + PlainNumber(ValueOfGame(game, value));
        }
        line += '\n';
      }
      out << line;
      passing.Add(1);
    }
  }
  if (as_json) out << "\n]\n";
  Check(file.Finish());
  Check(file.PutInPlace());
}

void RunExport(const ExportOptions& options) {
  const bool as_json = !options.json.empty();
  if (as_json && !options.csv.empty()) throw BadLog{"--csv and --json are one too many."};
  GamesLogReader log;
  OpenExisting(log, options.file);
  const std::string& path = as_json ? options.json : options.csv;
  WriteGames(log, path.empty() ? "-" : path, as_json);
}

// --- The verb --------------------------------------------------------------------------------

template <typename Options>
int RunTold(void (*run)(const Options&), const Options& options) {
  try {
    run(options);
    std::cout.flush();
    if (!std::cout) throw BadLog{"cannot write standard output."};
    return kDone;
  } catch (const BadLog& bad) {
    std::cerr << "feltmaster log: " << bad.sentence << '\n';
  } catch (const std::exception& error) {
    std::cerr << "feltmaster log: " << OneLine(error.what()) << ".\n";
  }
  return kNotStarted;
}

constexpr const char* kExamples =
    R"(A Games Log holds one record for each finished game: rolls, bets, money and Chip-Stacks. The table
writes one, and so does simulate --log.

Examples:
  feltmaster simulate mine.bet --games 10000 --hours 4 --bankroll 500 --log mine.glg
  feltmaster log show mine.glg
  feltmaster log merge part_1.glg part_2.glg --into whole.glg
  feltmaster log export whole.glg > whole.csv
)";

constexpr const char* kShowExamples =
    R"(--value is one of rolls, decided, won, lost, net_count, handle, amount_won, amount_lost, net,
advantage, invested, bankroll, stack0 to stack19. A game is won or lost by its net; with --breaks
when its net is above the higher or below the lower of two amounts.

Examples:
  feltmaster log show mine.glg
  feltmaster log show mine.glg --value rolls --only lost
  feltmaster log show mine.glg --breaks=-100:200 --chart mine.svg
  feltmaster log show mine.glg --from -500 --to -300 --json
)";

constexpr const char* kMergeExamples =
    R"(The games are added in the order of the parts, behind those that WHOLE.glg holds already; all of them
or, where a part cannot be read, none. Parts that several machines played of one experiment give the
log of one run, byte for byte, when they are named in its order.

Examples:
  feltmaster log merge monday.glg tuesday.glg --into week.glg
  feltmaster log merge part_*.glg --into whole.glg
)";

constexpr const char* kExportExamples =
    R"(One line for each game, with the names that log show --help lists.

Examples:
  feltmaster log export mine.glg > mine.csv
  feltmaster log export mine.glg --json mine.json
)";

}  // namespace

void AddLogVerb(Verb program) {
  const Verb verb =
      program.Sub("log", "Analyses, joins and exports Games Logs, the records of games");
  verb.RequireSub();
  verb.Footer(kExamples);

  const Verb show = verb.Sub("show", "The distribution of one value of the games");
  show.Footer(kShowExamples);
  const auto show_options = std::make_shared<ShowOptions>();
  show.Add("LOG", show_options->file, "A Games Log, .glg").Required().Takes("");
  show.Add("--value", show_options->value, "What to look at (net)").Takes("NAME");
  show.Add("--only", show_options->only, "Games of these outcomes: won, even, lost")
      .Takes("OUTCOME,...")
      .SplitAt(',');
  show.Add("--breaks", show_options->breaks, "Break-points of the outcomes (0)").Takes("LOW:HIGH");
  show.Add("--from", show_options->from, "Counts the games from this value on").Takes("AMOUNT");
  show.Add("--to", show_options->to, "and up to this one; below --from it counts those outside")
      .Takes("AMOUNT");
  show.Add("--bar-width", show_options->bar_width,
           "Columns of a bar, of 525: 1, 5, 25 or 105 (25, in a chart 5)")
      .Takes("N");
  show.Flag("--json", show_options->json, "Prints the figures as JSON");
  show.Add("--chart", show_options->chart, "Draws the histogram; - is standard output")
      .Takes("FILE.svg");
  show.Runs([show_options] { return RunTold(RunShow, *show_options); });

  const Verb merge = verb.Sub("merge", "Adds the games of logs to another log");
  merge.Footer(kMergeExamples);
  const auto merge_options = std::make_shared<MergeOptions>();
  merge.Add("PART", merge_options->parts, "Games Logs, in the order of their games")
      .Required()
      .Takes("");
  merge.Add("--into", merge_options->into, "The log that takes the games; made if missing")
      .Required()
      .Takes("WHOLE.glg");
  merge.Flag("--json", merge_options->json, "Tells the number of games as JSON");
  merge.Runs([merge_options] { return RunTold(RunMerge, *merge_options); });

  const Verb exporting = verb.Sub("export", "Writes the games for other tools");
  exporting.Footer(kExportExamples);
  const auto export_options = std::make_shared<ExportOptions>();
  exporting.Add("LOG", export_options->file, "A Games Log, .glg").Required().Takes("");
  exporting.Add("--csv", export_options->csv, "Comma-separated, to a file (standard output)")
      .Takes("FILE|-");
  exporting.Add("--json", export_options->json, "A list of JSON objects instead").Takes("FILE|-");
  exporting.Runs([export_options] { return RunTold(RunExport, *export_options); });
}

}  // namespace feltmaster
