// Any bytes as a Games Log: opened, analysed by one of its values, shown, added to, thinned out.

#include "files/games_log.h"
#include "stats/games_analysis.h"
#include "table.h"
#include "view/games_screen.h"

namespace feltmaster::fuzz {
namespace {

void Show(Game& game, int value) {
  game.GamesValueBox = game.GamesDeviationBox = {};
  const std::optional<GamesAnalysis> analysis = AnalyzeGames(game, value);
  if (!analysis) return;
  Require(analysis->included >= 0 && analysis->included <= analysis->games, "games included");
  Require(analysis->low <= analysis->median && analysis->median <= analysis->high, "median");
  std::int64_t in_columns = 0;
  for (const GamesColumn& column : analysis->GamesBuckets) in_columns += column.games;
  Require(in_columns == analysis->included, "games in columns");
  GamesRows(game, *analysis);
  PaintGamesHistogram(game, *analysis);
}

}  // namespace
}  // namespace feltmaster::fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace feltmaster;
  using namespace feltmaster::fuzz;
  Table table;
  Game& game = table.Play;
  const std::string_view bytes = TextOf(data, size);
  const std::string path = FileWith("log.glg", bytes);
  const int choice = bytes.empty() ? 0 : data[size - 1];
  game.GamesViewChoice = choice % 16;
  game.GamesBarWidth = kGamesBarWidths[static_cast<std::size_t>(choice % 4)];
  if (!OpenGamesLog(game, path)) {
    Require(BytesOf(path) == bytes, "a refused log stays as it is");
    return 0;
  }
  Show(game, choice % kGameValues);
  GamesLogReader before;
  Require(!before.Open(path), "a log that was opened");
  GamesLogAppender appender;
  Record record;
  Require(!appender.Open(path) && !appender.Add(record.Bytes()) && !appender.Finish(false),
          "append");
  GamesLogReader after;
  Require(!after.Open(path) && after.Count() == before.Count() + 1, "one game more");
  Require(!DeleteFromLog(path, after.Count(), after.Count()), "delete");
  Require(!after.Open(path) && after.Count() == before.Count(), "one game less");
  return 0;
}
