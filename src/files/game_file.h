#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "files/game_fields.h"
#include "game/game.h"

namespace feltmaster {

// A game file (".crp") is a snapshot of the whole program: rules, settings, table, statistics, the
// history of the bankroll, and the names and dates of the files that were in use. The program keeps
// its own state in one, default.crp in the data folder.

inline constexpr std::string_view kDefaultGame = "default.crp";
inline constexpr std::string_view kDefaultScript = "default.bet";
inline constexpr std::string_view kDefaultProbabilities = "default.prb";
inline constexpr std::string_view kActiveScript = "active.tmp";

// Writes the whole state, or leaves the old file as it was and tells the player why. Work that has
// no file of its own goes with default.crp alone, as default.bet and default.prb. A path too long
// for its field is kept relative to the data folder or to the folder of the game; if that does not
// fit either, the player is told and the file is not noted.
bool SaveGame(Game& game, const std::string& path);

// Replaces the whole state by that of a file, or changes nothing. FileStatus tells the result: 1
// when the game is open, 0 when the file was refused (told to the player who chose it), -1 after a
// file error (LastErrorText). A file that was in use then and is missing or altered now is told and
// does not stop the load; nor does a file that is too short, whose missing values are 0.
bool OpenGame(Game& game, const std::string& path, bool chosen_by_player);
// Why a file that the player chose did not open, as a sentence of one line.
std::string WhyNotOpened(const Game& game, const std::string& path);

// A file that was in use when a game was saved, as it is found now.
enum class CompanionFound { kMissing, kThere, kAltered };
struct Companion {
  std::string_view what;    // "Auto-Bet file"
  bool is_stamped = false;  // its date was noted; otherwise it is never found altered
  std::string path;         // empty when there was none
  std::string stamp;
  CompanionFound found = CompanionFound::kMissing;
};

// Reads a game into a fresh table for a look at it: nobody is told or asked anything, and no file
// is opened for writing. False as OpenGame.
bool ReadGame(Game& game, const std::string& path, std::vector<Companion>& companions);

// Writes the script in memory to active.tmp, its copy in the data folder.
bool WriteActiveScript(Game& game);

// "Feltmaster", or that and the name of the game's file.
std::string TableTitle(const Game& game);

// A path ends with the name of one of the program's own files, in whatever case.
bool IsNamed(std::string_view path, std::string_view file);

// A screen that lies beyond the edges of the platform's screen comes back into it.
void KeepOnScreen(ScreenPlacement& placement, int screen_width, int screen_height);

// The headers of a game file, for whoever shows one without opening it.
struct GameHeader {
  std::string title;
  std::string path;   // as it is kept: it may be relative
  std::string stamp;  // date and time of that file, as text
  std::int32_t left = 0;
  std::int32_t top = 0;
};
enum GameHeaders {
  kScriptHeader = 1,
  kDiceRollHeader,
  kProbabilityHeader,
  kOutputHeader,
  kLogHeader
};
GameHeader HeaderOf(const GameRecords& records, int record);
bool IsGameFile(const GameRecords& records);

// The records of a file; the error when it is no plain file or cannot be read.
std::optional<FileError> ReadGameRecords(const std::string& path, GameRecords& records);

}  // namespace feltmaster
