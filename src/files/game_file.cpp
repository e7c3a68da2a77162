#include "files/game_file.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

#include "autobet/message.h"
#include "autobet/output_file.h"
#include "autobet/script_file.h"
#include "base/text.h"
#include "dice/probability.h"
#include "engine/sounds.h"
#include "files/games_log.h"
#include "files/roll_recorder.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFileTitle = "Feltmaster Game File, Data Format 5.0";
constexpr std::string_view kDataFormat = "Data Format 5.0";
constexpr std::size_t kFileLimit = 64 << 20;  // no game is longer than that
constexpr std::int32_t kRefusedHelp = 105;

// Byte offsets in a header record.
enum HeaderOffset : std::size_t {
  kAtTitle = 0,
  kAtLeft = 92,
  kAtTop = 96,
  kAtPath = 100,
  kAtStamp = 208,
};
constexpr std::size_t kTitleWidth = 92;
constexpr std::size_t kPathWidth = 100;
constexpr std::size_t kStampWidth = 40;
static_assert(kAtTitle + kTitleWidth == kAtLeft && kAtLeft + 4 == kAtTop && kAtTop + 4 == kAtPath);
static_assert(kAtPath + kPathWidth + 8 == kAtStamp && kAtStamp + kStampWidth == 248);

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

std::string Absolute(const std::string& path) {
  std::error_code fault;
  const fs::path absolute = fs::absolute(path, fault);
  return fault ? path : absolute.string();
}

bool IsPlainFile(const std::string& path) {
  std::error_code ignored;
  return !path.empty() && fs::is_regular_file(path, ignored);
}

// The file operations of scripts look at these two; those of a game file always mean the script as
// a whole.
class WholeScript {
 public:
  WholeScript(Game& game, bool stands_in)
      : game_(game),
        file_mode_(std::exchange(game.ScriptFileMode, false)),
        hot_key_(std::exchange(game.HotKeyRunning, stands_in)) {}
  ~WholeScript() {
    game_.ScriptFileMode = file_mode_;
    game_.HotKeyRunning = hot_key_;
  }
  WholeScript(const WholeScript&) = delete;
  WholeScript& operator=(const WholeScript&) = delete;

 private:
  Game& game_;
  bool file_mode_;
  bool hot_key_;
};

// --- Writing ---

// The form in which a path goes into its field; nothing when none fits.
std::optional<std::string> StoredPath(const Game& game, const std::string& game_path,
                                      const std::string& path) {
  if (path.size() <= kPathWidth) return path;
  const std::string stored = Absolute(path);
  for (const std::string& folder : {Absolute(game.AppPath), FolderOf(Absolute(game_path))}) {
    const bool below = !folder.empty() && stored.starts_with(folder);
    if (below && stored.size() - folder.size() <= kPathWidth) return stored.substr(folder.size());
  }
  return std::nullopt;
}

class HeaderWriter {
 public:
  HeaderWriter(Game& game, GameRecords& records, const std::string& game_path)
      : game_(game), records_(records), game_path_(game_path) {}

  // `what` is the file in words; an empty path leaves the fields empty.
  void Write(int number, const std::string& path, bool with_stamp, std::string_view what) {
    Record& record = records_.At(number);
    std::string stored;
    if (!path.empty()) {
      if (std::optional<std::string> fitting = StoredPath(game_, game_path_, path)) {
        stored = std::move(*fitting);
      } else {
        too_long_.push_back("The path of the " + std::string(what) +
                            " is too long to be kept with the game:\n\n" + path);
      }
    }
    record.SetText(kAtTitle, kTitleWidth, kFileTitle);
    record.SetInt32(kAtLeft, game_.TablePlacement.left);
    record.SetInt32(kAtTop, game_.TablePlacement.top);
    record.SetText(kAtPath, kPathWidth, stored);
    const bool stamped = with_stamp && !stored.empty();
    record.SetText(kAtStamp, kStampWidth, stamped ? FileStamp(path) : std::string());
  }

  void TellPathsTooLong() {
    for (std::string& text : too_long_) Tell(game_, "Path Too Long", std::move(text));
  }

 private:
  Game& game_;
  GameRecords& records_;
  const std::string& game_path_;
  std::vector<std::string> too_long_;
};

// The script's file as the game notes it. Lines without a file live on in default.bet, but only
// beside the default game.
std::string ScriptToNote(Game& game, bool is_default) {
  if (!game.ScriptUnsaved) return IsPlainFile(game.ScriptFileName) ? game.ScriptFileName : "";
  if (!is_default || game.ScriptLines.empty() || game.AppPath.empty()) return "";
  const std::string path = game.AppPath + std::string(kDefaultScript);
  const WholeScript whole(game, false);
  if (SaveScript(game, path)) return path;
  TellNotSaved(game, "Auto-Bet File", path);
  return "";
}

std::string ProbabilitiesToNote(Game& game, bool is_default) {
  if (game.ProbabilityChanged && is_default && !game.AppPath.empty()) {
    const std::string path = game.AppPath + std::string(kDefaultProbabilities);
    if (SaveProbabilityFile(game, path)) return path;
    TellNotSaved(game, "Probability File", path);
  }
  return IsPlainFile(game.ProbabilityFileName) ? game.ProbabilityFileName : "";
}

void TakeFileName(Game& game, const std::string& path) {
  game.GameFileName = IsNamed(path, kDefaultGame) ? std::string() : path;
  game.GameChanged = false;
}

// --- Reading ---

// A relative path is sought in the folder one is in, beside the game and in the data folder. The
// file that was noted comes before others of its name; what is nowhere stands as it is written.
std::string FullPath(const Game& game, const std::string& game_path, const GameHeader& noted) {
  const std::string& path = noted.path;
  if (path.empty() || path.front() == '/') return path;
  std::string first;
  for (const std::string& folder : {std::string(), FolderOf(Absolute(game_path)), game.AppPath}) {
    std::string found = folder + path;
    if (!IsPlainFile(found)) continue;
    if (FileStamp(found) == noted.stamp) return found;
    if (first.empty()) first = std::move(found);
  }
  return first.empty() ? path : first;
}

struct CompanionKind {
  GameHeaders header;
  std::string_view what;
  bool is_stamped;
};
constexpr std::array<CompanionKind, 5> kCompanionKinds = {{
    {kScriptHeader, "Auto-Bet file", true},
    {kDiceRollHeader, "Dice Roll file", true},
    {kProbabilityHeader, "Probability file", true},
    {kOutputHeader, "output file", false},
    {kLogHeader, "Games Log", false},
}};

Companion CompanionOf(const Game& game, const std::string& game_path, const GameRecords& records,
                      const CompanionKind& kind) {
  GameHeader noted = HeaderOf(records, kind.header);
  Companion companion;
  companion.what = kind.what;
  companion.is_stamped = kind.is_stamped;
  companion.path = FullPath(game, game_path, noted);
  companion.stamp = std::move(noted.stamp);
  if (IsPlainFile(companion.path)) {
    const bool same = !kind.is_stamped || FileStamp(companion.path) == companion.stamp;
    companion.found = same ? CompanionFound::kThere : CompanionFound::kAltered;
  }
  return companion;
}

std::vector<Companion> CompanionsOf(const Game& game, const std::string& game_path,
                                    const GameRecords& records) {
  std::vector<Companion> companions;
  for (const CompanionKind& kind : kCompanionKinds) {
    companions.push_back(CompanionOf(game, game_path, records, kind));
  }
  return companions;
}

// What the player is told of a companion that is missing or altered.
struct CompanionWords {
  std::string_view unable;  // title where it cannot be read
  std::string_view title;
  std::string_view text;
  std::string_view missing;
  std::string_view altered;
  bool with_path;
};
constexpr CompanionWords kScriptWords = {
    "Unable to Open Auto-Bet File",
    "Auto-Bet File",
    "The following Auto-Bet file (that was in use when this game was saved)",
    " was not found:",
    " has been changed:",
    true};
constexpr CompanionWords kDiceRollWords = {
    "",
    "Dice Roll File",
    "The Dice Roll file that was open when this game\nwas saved,",
    " was not found.",
    " has been changed.",
    false};
constexpr CompanionWords kProbabilityWords = {
    "Unable to Open Feltmaster Probability File",
    "Probability File",
    "The following Probability file (that was in use when this game was saved)",
    " was not found:",
    " has been changed:",
    true};

void TellCompanion(Game& game, const CompanionWords& words, const Companion& companion) {
  const bool exists = companion.found != CompanionFound::kMissing;
  std::string text(words.text);
  text += exists ? words.altered : words.missing;
  if (words.with_path) text += "\n\n" + companion.path;
  Tell(game, (exists ? "Altered " : "Missing ") + std::string(words.title), std::move(text));
}

void TellUnread(Game& game, std::string_view title, const std::string& path) {
  Tell(game, std::string(title), path + "\n" + game.LastErrorText, kButtonOk | kPictureStop);
}

// Loads a companion, or clears what it would have brought; what is missing or altered is told.
void OpenCompanion(Game& game, const Companion& companion, const CompanionWords& words,
                   bool (*load)(Game&, const std::string&), void (*clear)(Game&)) {
  const bool missing = companion.found == CompanionFound::kMissing;
  const bool loaded = !missing && load(game, companion.path);
  if (!loaded) clear(game);
  if (missing ? !companion.path.empty() : loaded && companion.found == CompanionFound::kAltered) {
    TellCompanion(game, words, companion);
  } else if (!missing && !loaded && game.FileStatus < 0) {
    TellUnread(game, words.unable, companion.path);
  }
}

void OpenScript(Game& game, const Companion& script) {
  const WholeScript whole(game, false);
  OpenCompanion(game, script, kScriptWords, LoadScript, ClearScript);
}

// Whether the recorder goes on where it was.
bool OpenDiceRolls(Game& game, const Companion& rolls) {
  const bool missing = rolls.found == CompanionFound::kMissing;
  game.DiceRollFileName = missing ? std::string() : rolls.path;
  if (rolls.path.empty() || rolls.found == CompanionFound::kThere) return true;
  TellCompanion(game, kDiceRollWords, rolls);
  return false;
}

void OpenProbabilities(Game& game, const Companion& probabilities) {
  OpenCompanion(game, probabilities, kProbabilityWords, OpenProbabilityFile, NewProbabilities);
}

void OpenOutput(Game& game, const std::string& path) {
  EndScriptOutput(game);
  game.ScriptOutputFile = path;
  std::error_code ignored;
  // Opening a pipe would wait for somebody at its other end, and lines of text among its games
  // would be the end of a log.
  if (path.empty() || fs::is_fifo(path, ignored)) return;
  if (Absolute(path) == Absolute(game.GamesLogFile)) return;
  if (const std::error_code error = OpenScriptOutput(game, path, OutputMode::kAppend)) {
    game.LastErrorText =
        FileError{error.value(), error.message()}.At("Open Output File of Auto-Bet");
  }
}

// A log that is not there yet is made by its first game.
void TakeGamesLog(Game& game, const Companion& log) {
  if (log.found == CompanionFound::kMissing) {
    game.GamesLogFile = log.path;
  } else if (!OpenGamesLog(game, log.path) && game.FileStatus < 0) {
    TellUnread(game, "Games Log", log.path);
  }
}

// What the fields build on: counters whose clock starts anew, and nothing of the roll before.
void ClearForFields(Game& game) {
  ResetRollStatistics(game);
  ResetBetResults(game);
  game.BetState = {};
  game.BetStreak = {};
  game.WorkOnComeOut = {};
  game.StackSlots = ChipStackState().StackSlots;
  game.StackPileName = ChipStackState().StackPileName;
  game.BankrollAverages.fill({});
}

// What is not in the file but follows from it, and what a game just opened begins with.
void CompleteState(Game& game, bool recorder_goes_on) {
  game.DiceTotal = game.Die1 + game.Die2;
  if (!recorder_goes_on) {
    game.DiceRollNext = 1;
    game.DiceRollLast = 0;
  }
  if (!recorder_goes_on || game.DiceRollFileName.empty()) game.DiceRollFileMode = kRecorderOff;
  game.DiceRollSelectEnd = game.DiceRollNext;
  ResumeDiceRollFile(game);
  SetRollsSinceLast(game, 0, RollCounts(game, 0));
  try {
    RebuildAverages(game);
  } catch (const std::exception&) {
    // Averages of amounts beyond all money are none.
    RescanGraphRange(game);
  }
  game.KeepRolling = false;
  game.DiceAlreadySet = false;
  game.CallBetMode = 0;
  game.Decisions.count = 0;
  game.HyperDriveStopText.clear();
  game.EntryBoxEdited = false;
  game.LastStackBet = game.StackSlots[1];
  BuildStickCalls(game);
  game.RedrawTable = true;
  game.ScriptUnsaved = false;
  game.ScriptNeedsInit = false;
}

// The places of `companions` in the order of kCompanionKinds.
enum { kScriptFile, kDiceRollFile, kProbabilityFile, kOutputFile, kLogFile };

// The new game is put together beside the one in play, which stays on the table, whole, while the
// player is told and asked about files that were in use.
void Adopt(Game& game, const std::string& path, const GameRecords& records) {
  const bool is_default = IsNamed(path, kDefaultGame);
  const std::vector<Companion> companions = CompanionsOf(game, path, records);
  const auto next = std::make_unique<Game>(game);
  if (is_default) {
    const GameHeader header = HeaderOf(records, kScriptHeader);
    next->TablePlacement.left = header.left;
    next->TablePlacement.top = header.top;
  }
  OpenScript(*next, companions[kScriptFile]);
  const bool recorder_goes_on = OpenDiceRolls(*next, companions[kDiceRollFile]);
  OpenProbabilities(*next, companions[kProbabilityFile]);
  TakeGamesLog(*next, companions[kLogFile]);

  ClearForFields(*next);
  ReadGameFields(*next, records, is_default);
  CompleteState(*next, recorder_goes_on);
  TakeFileName(*next, path);

  game = std::move(*next);
  WriteActiveScript(game);
  OpenOutput(game, companions[kOutputFile].path);
}

// The records of a game file. False with FileStatus, and LastErrorText after a file error.
bool ReadRecords(Game& game, const std::string& path, GameRecords& records) {
  if (const std::optional<FileError> error = ReadGameRecords(path, records)) {
    game.FileStatus = -1;
    game.LastErrorText = error->description + ", Error #" + std::to_string(error->number) +
                         "\n occurred, at: Open Game";
    return false;
  }
  game.FileStatus = IsGameFile(records) ? 1 : 0;
  return game.FileStatus == 1;
}

}  // namespace

bool IsNamed(std::string_view path, std::string_view file) {
  path = Trim(path);
  return path.size() >= file.size() &&
         EqualIgnoringCase(path.substr(path.size() - file.size()), file);
}

std::string TableTitle(const Game& game) {
  if (game.GameFileName.empty()) return "Feltmaster";
  return "Feltmaster (" + fs::path(game.GameFileName).filename().string() + ")";
}

void KeepOnScreen(ScreenPlacement& placement, int screen_width, int screen_height) {
  constexpr std::int32_t kReturned = 200;
  const auto beyond = [](std::int64_t begin, std::int64_t size, int screen) {
    return begin > screen || begin + size < 0;
  };
  if (beyond(placement.left, placement.width, screen_width)) placement.left = kReturned;
  if (beyond(placement.top, placement.height, screen_height)) placement.top = kReturned;
}

GameHeader HeaderOf(const GameRecords& records, int number) {
  const Record& record = records[number];
  GameHeader header;
  header.title = record.Text(kAtTitle, kTitleWidth);
  header.left = record.Int32(kAtLeft);
  header.top = record.Int32(kAtTop);
  // What a padding of zero bytes leaves behind a path is none of it, nor are blanks before it.
  const std::string path = record.Text(kAtPath, kPathWidth);
  header.path = TrimRight(std::string_view(path).substr(0, path.find('\0')));
  header.stamp = record.Text(kAtStamp, kStampWidth);
  return header;
}

bool IsGameFile(const GameRecords& records) {
  return HeaderOf(records, kScriptHeader).title.find(kDataFormat) != std::string::npos;
}

std::optional<FileError> ReadGameRecords(const std::string& path, GameRecords& records) {
  if (std::optional<FileError> fault = FaultOfRecordFile(path)) return fault;
  std::string bytes;
  if (std::optional<FileError> error = ReadWholeFile(path, kFileLimit, bytes)) return error;
  records = GameRecords(bytes);
  return std::nullopt;
}

bool WriteActiveScript(Game& game) {
  if (game.AppPath.empty()) return false;
  const WholeScript whole(game, true);
  return SaveScript(game, game.AppPath + std::string(kActiveScript));
}

bool SaveGame(Game& game, const std::string& path) {
  FlushDiceRolls(game);  // the game keeps a position in the file
  const bool is_default = IsNamed(path, kDefaultGame);
  GameRecords records;
  HeaderWriter headers(game, records, path);
  headers.Write(kScriptHeader, ScriptToNote(game, is_default), true, "Auto-Bet file");
  headers.Write(kDiceRollHeader, game.DiceRollFileName, true, "Dice Roll file");
  headers.Write(kProbabilityHeader, ProbabilitiesToNote(game, is_default), true,
                "Probability file");
  headers.Write(kOutputHeader, game.ScriptOutputFile, false, "output file");
  headers.Write(kLogHeader, game.GamesLogFile, false, "Games Log");
  WriteGameFields(game, records);
  if (const std::optional<FileError> error = WriteFileAtomically(path, records.Bytes())) {
    game.LastErrorText = error->At("Save Game");
    TellNotSaved(game, "Game File", path);
    return false;
  }
  headers.TellPathsTooLong();
  TakeFileName(game, path);
  return true;
}

bool OpenGame(Game& game, const std::string& path, bool chosen_by_player) {
  std::error_code ignored;
  const std::uintmax_t length = fs::file_size(path, ignored);
  game.FileStatus = static_cast<std::int32_t>(
      std::min<std::uintmax_t>(length, std::numeric_limits<std::int32_t>::max()));
  GameRecords records;
  if (!ReadRecords(game, path, records)) {
    if (game.FileStatus == 0 && chosen_by_player) {
      Tell(game, "Unable to Open Feltmaster Game File",
           path +
               "\nis either from a different version, has been corrupted, or is not a true "
               "Feltmaster game file.",
           kButtonOk | kPictureStop, kRefusedHelp);
    }
    return false;
  }
  Adopt(game, path, records);
  game.surface->TableChanged(kChangedAll);
  game.surface->RefreshOpenScreens();
  game.FileStatus = 1;
  return true;
}

std::string WhyNotOpened(const Game& game, const std::string& path) {
  if (game.FileStatus >= 0) return OneLine(game.MsgText);
  return path + " cannot be opened: " + DescriptionIn(game.LastErrorText) + '.';
}

bool ReadGame(Game& game, const std::string& path, std::vector<Companion>& companions) {
  GameRecords records;
  if (!ReadRecords(game, path, records)) return false;
  companions = CompanionsOf(game, path, records);
  const Companion& script = companions[kScriptFile];
  if (script.found == CompanionFound::kMissing || !LoadScript(game, script.path)) ClearScript(game);
  const Companion& probabilities = companions[kProbabilityFile];
  if (probabilities.found != CompanionFound::kMissing) {
    LoadProbabilityFile(game, probabilities.path);
  }
  ClearForFields(game);
  ReadGameFields(game, records, false);
  CompleteState(game, true);
  game.FileStatus = 1;
  return true;
}

}  // namespace feltmaster
