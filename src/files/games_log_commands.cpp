#include "files/games_log_commands.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <system_error>
#include <tuple>
#include <utility>

#include "autobet/message.h"
#include "base/number_format.h"
#include "base/text.h"
#include "files/file_dialog.h"
#include "files/games_log.h"
#include "stats/games_analysis.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

constexpr std::int32_t kHistogramShown = 8;  // bit of GamesViewChoice

void BlankRange(Game& game) {
  game.GamesValueBox = {};
  game.GamesDeviationBox = {};
}

std::int32_t GamesInLog(const Game& game) {
  GamesLogReader log;
  return log.Open(game.GamesLogFile) ? 0 : log.Count();
}

// Whether the log has no name that would keep it from being begun anew.
bool IsUnnamed(const Game& game) {
  const std::string name = fs::path(game.GamesLogFile).filename().string();
  return EqualIgnoringCase(name, kDefaultGamesLog) || EqualIgnoringCase(name, "untitled");
}

// True when the games need no other name, or have one now.
bool KeepUnnamedGames(Game& game) {
  if (!IsUnnamed(game) || GamesInLog(game) == 0) return true;
  const bool rename =
      AskYesNo(game, "Save Games Log?",
               "This log needs to be re-named \nif you want to save it.\n\n"
               "Do you want to re-name it now?",
               kButtonYes | kButtonNo | kButtonCancel | kPictureQuestion | kDefaultYes);
  return rename ? SaveLogAsCommand(game) : game.MsgAnswer == kAnswerNo;
}

// A dialog with two fields: what was typed, or nothing when the player gave up.
std::optional<std::pair<MoneyAmount, MoneyAmount>> AskTwoNumbers(Game& game, std::string title,
                                                                 std::string text,
                                                                 MoneyAmount first,
                                                                 MoneyAmount second) {
  game.MsgAnswer = kAnswerCancel;  // what an unanswered dialog leaves behind
  game.MsgInputDefault = PlainNumber(first);
  game.MsgInput2Default = PlainNumber(second);
  Tell(game, std::move(title), std::move(text), kTwoInputs | kButtonOk | kButtonCancel);
  if (game.MsgAnswer != kAnswerOk) return std::nullopt;
  return std::pair(game.BetRequest, game.MsgInput2);
}

bool AskForValue(Game& game, int value) {
  game.MsgAnswer = kAnswerCancel;
  Tell(game, "Find",
       "If found, the line will appear at the top of the data box.\n\n"
       "Enter the value you'd like to find for:\n\n" +
           NameOfGameValue(value),
       kOneInput | kButtonOk | kButtonCancel);
  if (game.MsgAnswer != kAnswerOk || Trim(game.MsgInputText).empty()) return false;
  game.GamesFindText = game.MsgInputText;
  return true;
}

// The game that a search from GamesTopLine on comes to first, wrapping at the ends of the log; 0
// when none has the value.
std::int32_t FindGame(const Game& game, GamesLogReader& log, int value, bool forward) {
  const double wanted = NumericPrefix(game.GamesFindText);
  const std::int64_t games = log.Count();
  const std::int64_t start = std::int64_t{game.GamesTopLine} + (forward ? 1 : -1);
  std::int32_t found = 0;
  std::int64_t nearest = games;
  Record record;
  for (std::int32_t number = 1; log.Read(record); ++number) {
    const std::int64_t ahead = forward ? number - start : start - number;
    const std::int64_t distance = (ahead % games + games) % games;
    if (distance >= nearest) continue;
    if (!IsIncluded(game, OutcomeOf(game, ValueOfGame(record, kNetValue)))) continue;
    if (NumericPrefix(PlainNumber(ValueOfGame(record, value))) != wanted) continue;
    found = number;
    nearest = distance;
  }
  return found;
}

}  // namespace

bool NewLogCommand(Game& game) {
  if (!KeepUnnamedGames(game)) return false;
  const std::string path = game.AppPath + std::string(kDefaultGamesLog);
  if (const std::optional<LogFault> fault = MakeEmptyLog(path)) {
    TellLogFault(game, path, *fault, "Open Games File");
    return false;
  }
  game.GamesLogFile = path;
  game.GamesTopLine = 1;
  BlankRange(game);
  if (RollCounts(game, 0) > 0) {
    Tell(game, "Game in progress will be added to new Games Log",
         "Note:  There's currently a game in progress which will be added to this new Games Log "
         "when it's finished.\n\n"
         "If you don't want this to happen, then you should first select \"New\" from the Game "
         "menu on the main game table, then return here to start a new Games Log again.");
  }
  return true;
}

bool OpenLogCommand(Game& game) {
  if (!ShowFileDialog(game, "Open Games Log")) return false;
  BlankRange(game);
  return true;
}

bool SaveLogAsCommand(Game& game) {
  return ShowFileDialog(game, "Save Games Log As").has_value();
}

bool MergeLogCommand(Game& game) {
  if (!ShowFileDialog(game, "Merge Games Log")) return false;
  BlankRange(game);
  return true;
}

bool SetBreakPointCommand(Game& game) {
  const auto points = AskTwoNumbers(game, "Set Break-point",
                                    "Enter the break-point or range that you'd \n"
                                    "like to use to sort this data:",
                                    game.GamesBreakLow, game.GamesBreakHigh);
  if (!points) return false;
  std::tie(game.GamesBreakLow, game.GamesBreakHigh) = std::minmax(points->first, points->second);
  return true;
}

bool DeleteGamesCommand(Game& game) {
  constexpr const char* kTitle = "Delete Games";
  const auto typed = AskTwoNumbers(game, kTitle,
                                   "Enter the game number or range of game \n"
                                   "numbers that you'd like to delete:",
                                   {}, {});
  if (!typed) return false;
  std::int64_t first = typed->first.RoundWhole();
  std::int64_t last = typed->second.RoundWhole();
  if (first == 0) first = last;
  if (last == 0) last = first;
  if (first > last) std::swap(first, last);
  if (first < 1 || last > GamesInLog(game)) {
    Tell(game, kTitle, "No games deleted.  Entry out of range.");
    return false;
  }
  if (const std::optional<LogFault> fault = DeleteFromLog(
          game.GamesLogFile, static_cast<std::int32_t>(first), static_cast<std::int32_t>(last))) {
    TellLogFault(game, game.GamesLogFile, *fault, "Open Games");
    return false;
  }
  BlankRange(game);
  return true;
}

bool FindGameCommand(Game& game, int value, FindDirection direction) {
  const bool ask = direction == FindDirection::kAsk || game.GamesFindText.empty();
  if (ask && !AskForValue(game, value)) return false;
  GamesLogReader log;
  if (const std::optional<LogFault> fault = log.Open(game.GamesLogFile)) {
    TellLogFault(game, game.GamesLogFile, *fault, "Open Games");
    return false;
  }
  const std::int32_t found = FindGame(game, log, value, direction != FindDirection::kPrevious);
  if (found == 0) {
    Tell(game, "Search Results", "Value not found.");
    return false;
  }
  game.GamesTopLine = found;
  game.GamesViewChoice &= ~kHistogramShown;
  return true;
}

bool SaveGamesLogAs(Game& game, const std::string& path) {
  FallBackToDefaultLog(game);
  if (const std::optional<LogFault> fault = CopyLog(game.GamesLogFile, path)) {
    game.LastErrorText =
        (fault->strange ? OneLine(StrangeLogText(game.GamesLogFile)) : fault->error.description) +
        " occurred, at: Form Games Menu Save As";
    return false;
  }
  game.GamesLogFile = path;
  return true;
}

bool MergeGamesLog(Game& game, const std::string& path) {
  constexpr std::string_view kMergeTitle = "Merge Games Log";
  FallBackToDefaultLog(game);
  std::error_code ignored;
  if (fs::equivalent(path, game.GamesLogFile, ignored)) {
    Tell(game, std::string(kMergeTitle), path + "\nis the log in use.");
    return false;
  }
  GamesLogReader part;
  std::optional<LogFault> fault = part.Open(path);
  if (fault) {
    TellLogFault(game, path, *fault, kMergeTitle);
    return false;
  }
  fault = AppendLog(path, game.GamesLogFile);
  if (fault) TellLogFault(game, game.GamesLogFile, *fault, kMergeTitle);
  return !fault;
}

}  // namespace feltmaster
