#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/draft_file.h"
#include "base/locked_file.h"
#include "base/record_file.h"
#include "game/game.h"

namespace feltmaster {

// The Games Log on disk: a header record with the number of games, and behind it one record of 32
// amounts for each finished game. Records behind the last game have no meaning.

inline constexpr std::string_view kDefaultGamesLog = "default.glg";

// The amounts of a game with a meaning of their own; from kFirstStackValue on, Chip-Stacks 0 to 19.
enum GameValue : int {
  kRollsValue = 0,
  kDecidedValue = 1,
  kWonValue = 2,
  kLostValue = 3,
  kNetCountValue = 4,
  kHandleValue = 5,
  kAmountWonValue = 6,
  kAmountLostValue = 7,
  kNetValue = 8,
  kAdvantageValue = 9,
  kInvestedValue = 10,
  kBankrollValue = 11,
  kFirstStackValue = 12,
};
// The name of an amount, 0 to 31, as the screen lists it.
std::string NameOfGameValue(int value);

inline MoneyAmount ValueOfGame(const Record& game, int value) {
  return game.Money(static_cast<std::size_t>(value) * sizeof(std::int64_t));
}

// Why a log cannot be used.
struct LogFault {
  bool strange = false;  // a file, but not a Games Log
  FileError error;       // of the system, when it is not strange
};

// Reads the games of a log one after the other. A log that was cut short holds the games that are
// complete, whatever its header promises.
class GamesLogReader {
 public:
  // Nothing when the log is open at its first game. A missing or empty file is a log of no games.
  std::optional<LogFault> Open(const std::string& path);
  std::int32_t Count() const { return count_; }
  bool Exists() const { return exists_; }
  bool Read(Record& game);
  // The games from here up to `last`, some thousands at most, as they lie in the file; empty when
  // there are none left.
  std::optional<LogFault> ReadBlock(std::int32_t last, std::string& games);
  // Goes on with game `number`, counted from 1.
  void GoTo(std::int32_t number);

 private:
  RecordReader records_;
  std::int32_t count_ = 0;
  std::int32_t next_ = 1;
  bool exists_ = false;
};

// Adds games at the end of a log, which no other copy of the program changes meanwhile. The log
// holds all of them or none: they count when the header does, which is written last.
class GamesLogAppender {
 public:
  GamesLogAppender() = default;
  ~GamesLogAppender();
  GamesLogAppender(const GamesLogAppender&) = delete;
  GamesLogAppender& operator=(const GamesLogAppender&) = delete;

  // Makes the log when it is missing.
  std::optional<LogFault> Open(const std::string& path);
  std::int32_t Count() const { return count_; }  // with the games added
  std::optional<LogFault> Add(std::string_view games);
  // flush: on the disk when this returns.
  std::optional<LogFault> Finish(bool flush);

 private:
  LockedFile file_;
  Record header_;  // as it was found
  std::int32_t old_count_ = 0;
  std::int32_t count_ = 0;
  bool open_ = false;
};

// A new log that takes the place of an older file whole or not at all.
class NewGamesLog {
 public:
  // A file that is there must be a Games Log.
  std::optional<LogFault> Open(const std::string& path);
  std::optional<LogFault> Add(std::string_view games);
  std::optional<LogFault> PutInPlace();

 private:
  DraftFile file_;
  std::string waiting_;  // what goes to the file in one piece
  std::int64_t count_ = 0;
};

// Each gives the fault, or nothing when it is done.
std::optional<LogFault> MakeEmptyLog(const std::string& path);
std::optional<LogFault> CopyLog(const std::string& from, const std::string& to);
std::optional<LogFault> AppendLog(const std::string& from, const std::string& to);
// first and last are games of the log. The games behind them move up; the file stays as long as it
// was.
std::optional<LogFault> DeleteFromLog(const std::string& path, std::int32_t first,
                                      std::int32_t last);

// "PATH\nis either from an older version, ..."
std::string StrangeLogText(const std::string& path);
// Tells the player, and keeps what happened and the place in LastErrorText.
void TellLogFault(Game& game, const std::string& path, const LogFault& fault,
                  std::string_view place);

// The check of a log that is to be taken: true when GamesLogFile is this path now. A file that is
// no log is refused with a message; one that cannot be read is told in LastErrorText.
bool OpenGamesLog(Game& game, const std::string& path);

// The record of the game in progress. Works out the totals of all bets (bet 0 of the results) anew.
Record RecordOfGame(Game& game);
// Logs the game in progress, if it has a roll. A failure is told to the player. False when nothing
// was logged.
bool UpdateGamesPlayed(Game& game, const std::string& path);
// The same into the log in use.
bool LogFinishedGame(Game& game);
// A game that names no log, or one in a folder that is gone, uses the default log.
void FallBackToDefaultLog(Game& game);
// The games logged during Hyper-Drive are on the disk when this returns.
void FlushGamesLog(Game& game);

}  // namespace feltmaster
