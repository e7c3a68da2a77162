#include "files/games_log.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <filesystem>
#include <fstream>
#include <limits>
#include <system_error>

#include "autobet/message.h"
#include "base/text.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLogTitle = "Feltking Games File, Data Format 5.0";
constexpr std::size_t kTitleWidth = 92;
constexpr std::size_t kAtCount = 92;
// Texts of a header that have no meaning in a log.
constexpr std::size_t kAtPath = 100;
constexpr std::size_t kPathWidth = 100;
constexpr std::size_t kAtStamp = 208;
constexpr std::size_t kStampWidth = 40;
static_assert(kGameValues * sizeof(std::int64_t) == kRecordSize);

constexpr std::int32_t kMostGames = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kBlock = std::size_t{4096} * kRecordSize;

Record EmptyHeader() {
  Record header;
  header.SetText(0, kTitleWidth, kLogTitle);
  header.SetText(kAtPath, kPathWidth, "");
  header.SetText(kAtStamp, kStampWidth, "");
  return header;
}

Record HeaderWithCount(Record header, std::int32_t count) {
  header.SetText(0, kTitleWidth, kLogTitle);
  header.SetInt32(kAtCount, count);
  return header;
}

bool IsLogHeader(const Record& header) {
  return Trim(header.Text(0, kTitleWidth)) == kLogTitle && header.Int32(kAtCount) >= 0;
}

// What the header promises, as far as the file holds it.
std::int32_t CompleteGames(const Record& header, std::uint64_t size) {
  const auto records = static_cast<std::int64_t>(
      std::min<std::uint64_t>(size / kRecordSize, std::uint64_t{1} << 40));
  return static_cast<std::int32_t>(
      std::clamp<std::int64_t>(records - 1, 0, header.Int32(kAtCount)));
}

std::uint64_t PlaceOfRecord(std::int64_t number) {
  return static_cast<std::uint64_t>(number - 1) * kRecordSize;
}

LogFault Fault(const FileError& error) {
  return {false, error};
}
std::optional<LogFault> FaultOf(const std::optional<FileError>& error) {
  if (!error) return std::nullopt;
  return Fault(*error);
}
const LogFault kStrange = {true, {}};

std::uint64_t SizeOf(const std::string& path) {
  std::error_code fault;
  const std::uintmax_t size = fs::file_size(path, fault);
  return fault ? 0 : size;
}

// Gives `take` the games first to last of an open log in blocks, until it finds a fault.
template <typename Take>
std::optional<LogFault> CopyGames(GamesLogReader& log, std::int32_t first, std::int32_t last,
                                  Take&& take) {
  log.GoTo(first);
  std::string block;
  for (;;) {
    if (std::optional<LogFault> fault = log.ReadBlock(last, block)) return fault;
    if (block.empty()) return std::nullopt;
    if (std::optional<LogFault> fault = take(block)) return fault;
  }
}

}  // namespace

std::string NameOfGameValue(int value) {
  constexpr std::array<std::string_view, kFirstStackValue> kNames = {
      "# Rolls",
      "# Bets Decided",
      "# Bets Won",
      "# Bets Lost",
      "# Bets Won/Lost (Net)",
      "$ Bets Decided (Handle)",
      "$ Bets Won",
      "$ Bets Lost",
      "$ Bets Won/Lost (Net)",
      "% Won or Lost (HA)",
      "Invested bankroll",
      "Ending bankroll",
  };
  if (value >= kFirstStackValue) return "Chip-Stack #" + std::to_string(value - kFirstStackValue);
  return std::string(kNames[static_cast<std::size_t>(value)]);
}

// --- Reading ---

std::optional<LogFault> GamesLogReader::Open(const std::string& path) {
  count_ = 0;
  next_ = 1;
  exists_ = false;
  std::error_code fault;
  const fs::file_status status = fs::status(path, fault);
  if (status.type() == fs::file_type::not_found) return std::nullopt;
  if (fault) return Fault({fault.value(), fault.message()});
  exists_ = true;
  if (fs::is_regular_file(status) && SizeOf(path) == 0) return std::nullopt;
  if (!fs::is_regular_file(status) && !fs::is_directory(status)) {
    return Fault(SystemError(ENOTSUP));
  }
  if (std::optional<FileError> error = records_.Open(path)) return Fault(*error);
  Record header;
  const bool whole = records_.Read(header);
  if (std::optional<FileError> error = records_.Fault()) return Fault(*error);
  if (!whole || !IsLogHeader(header)) return kStrange;
  count_ = CompleteGames(header, SizeOf(path));
  return std::nullopt;
}

bool GamesLogReader::Read(Record& game) {
  if (next_ > count_ || !records_.Read(game)) return false;
  ++next_;
  return true;
}

std::optional<LogFault> GamesLogReader::ReadBlock(std::int32_t last, std::string& games) {
  games.clear();
  Record game;
  while (games.size() < kBlock && next_ <= std::min(last, count_)) {
    if (!Read(game)) return Fault(SystemError(EIO));
    games += game.Bytes();
  }
  return std::nullopt;
}

void GamesLogReader::GoTo(std::int32_t number) {
  next_ = std::max(number, 1);
  records_.Seek(std::int64_t{next_} + 1);
}

// --- Writing ---

GamesLogAppender::~GamesLogAppender() {
  if (open_) file_.CutBack();
}

std::optional<LogFault> GamesLogAppender::Open(const std::string& path) {
  if (std::optional<FileError> error = file_.Open(path)) return Fault(*error);
  if (file_.Size() == 0) {
    header_ = EmptyHeader();
  } else {
    bool whole = false;
    if (std::optional<FileError> error = file_.ReadRecord(1, header_, whole)) return Fault(*error);
    if (!whole || !IsLogHeader(header_)) return kStrange;
  }
  old_count_ = count_ = CompleteGames(header_, file_.Size());
  open_ = true;
  return std::nullopt;
}

std::optional<LogFault> GamesLogAppender::Add(std::string_view games) {
  const auto added = static_cast<std::int64_t>(games.size() / kRecordSize);
  if (count_ + added > kMostGames) return Fault(SystemError(EFBIG));
  if (std::optional<FileError> error =
          file_.WriteAt(PlaceOfRecord(std::int64_t{count_} + 2), games)) {
    return Fault(*error);
  }
  count_ += static_cast<std::int32_t>(added);
  return std::nullopt;
}

std::optional<LogFault> GamesLogAppender::Finish(bool flush) {
  std::optional<FileError> error;
  if (flush && count_ > old_count_) error = file_.Flush();
  if (error) return Fault(*error);
  error = file_.WriteAt(0, HeaderWithCount(header_, count_).Bytes());
  if (!error && flush) error = file_.Flush();
  if (error) {
    if (file_.Size() > 0) file_.WriteAt(0, header_.Bytes());
    return Fault(*error);
  }
  open_ = false;
  file_.Close();
  return std::nullopt;
}

std::optional<LogFault> NewGamesLog::Open(const std::string& path) {
  GamesLogReader old;
  if (std::optional<LogFault> fault = old.Open(path)) return fault;
  std::optional<FileError> error = file_.Open(path);
  if (!error) error = file_.Write(EmptyHeader().Bytes());
  return FaultOf(error);
}

std::optional<LogFault> NewGamesLog::Add(std::string_view games) {
  count_ += static_cast<std::int64_t>(games.size() / kRecordSize);
  if (count_ > kMostGames) return Fault(SystemError(EFBIG));
  waiting_ += games;
  if (waiting_.size() < kBlock) return std::nullopt;
  const std::optional<FileError> error = file_.Write(waiting_);
  waiting_.clear();
  return FaultOf(error);
}

std::optional<LogFault> NewGamesLog::PutInPlace() {
  std::optional<FileError> error = file_.Write(waiting_);
  waiting_.clear();
  if (!error) {
    error =
        file_.WriteAt(0, HeaderWithCount(EmptyHeader(), static_cast<std::int32_t>(count_)).Bytes());
  }
  return FaultOf(error ? error : file_.PutInPlace());
}

std::optional<LogFault> MakeEmptyLog(const std::string& path) {
  return FaultOf(WriteFileAtomically(path, EmptyHeader().Bytes()));
}

std::optional<LogFault> CopyLog(const std::string& from, const std::string& to) {
  GamesLogReader log;
  if (std::optional<LogFault> fault = log.Open(from)) return fault;
  if (SizeOf(from) == 0) return MakeEmptyLog(to);
  std::ifstream original(from, std::ios::binary);
  DraftFile copy;
  std::optional<FileError> error = copy.Open(to);
  std::string block(kBlock, '\0');
  while (!error && original.read(block.data(), kBlock).gcount() > 0) {
    error = copy.Write({block.data(), static_cast<std::size_t>(original.gcount())});
  }
  if (!error && original.bad()) error = SystemError(EIO);
  return FaultOf(error ? error : copy.PutInPlace());
}

std::optional<LogFault> AppendLog(const std::string& from, const std::string& to) {
  GamesLogReader log;
  if (std::optional<LogFault> fault = log.Open(from)) return fault;
  if (!log.Exists()) return Fault(SystemError(ENOENT));
  GamesLogAppender appender;
  if (std::optional<LogFault> fault = appender.Open(to)) return fault;
  const auto add = [&](const std::string& games) { return appender.Add(games); };
  if (std::optional<LogFault> fault = CopyGames(log, 1, log.Count(), add)) return fault;
  return appender.Finish(true);
}

std::optional<LogFault> DeleteFromLog(const std::string& path, std::int32_t first,
                                      std::int32_t last) {
  LockedFile lock;
  if (std::optional<FileError> error = lock.Open(path)) return Fault(*error);
  GamesLogReader log;
  if (std::optional<LogFault> fault = log.Open(path)) return fault;
  Record header;
  bool whole = false;
  if (std::optional<FileError> error = lock.ReadRecord(1, header, whole)) return Fault(*error);
  if (first < 1 || first > last || last > log.Count() || !whole) {
    return Fault(SystemError(ERANGE));
  }
  DraftFile draft;
  std::optional<FileError> error = draft.Open(path);
  if (!error)
    error = draft.Write(HeaderWithCount(header, log.Count() - (last - first + 1)).Bytes());
  if (error) return Fault(*error);
  const auto write = [&](const std::string& games) { return FaultOf(draft.Write(games)); };
  std::optional<LogFault> fault = CopyGames(log, 1, first - 1, write);
  if (!fault) fault = CopyGames(log, last + 1, log.Count(), write);
  // Behind the last game the file stays as it was.
  std::uint64_t place = PlaceOfRecord(std::int64_t{log.Count()} - (last - first) + 1);
  for (std::string tail; !fault && !(tail = lock.ReadAt(place, kBlock)).empty();) {
    fault = FaultOf(draft.Write(tail));
    place += tail.size();
  }
  return fault ? fault : FaultOf(draft.PutInPlace());
}

// --- The log in use ---

std::string StrangeLogText(const std::string& path) {
  return path +
         "\nis either from an older version, has been corrupted, or is not a true Feltmaster "
         "Games File.";
}

void TellLogFault(Game& game, const std::string& path, const LogFault& fault,
                  std::string_view place) {
  if (fault.strange) {
    Tell(game, "Unable to Open Feltmaster Games File", StrangeLogText(path),
         kButtonOk | kPictureStop);
    return;
  }
  game.LastErrorText = fault.error.At(place);
  Tell(game, "Games Log", path + "\n" + game.LastErrorText, kButtonOk | kPictureStop);
}

bool OpenGamesLog(Game& game, const std::string& path) {
  constexpr std::int32_t kError = -1;
  GamesLogReader log;
  std::optional<LogFault> fault = log.Open(path);
  if (!fault && !log.Exists()) fault = Fault(SystemError(ENOENT));
  if (!fault && SizeOf(path) == 0) fault = kStrange;
  if (fault && !fault->strange) {
    game.FileStatus = kError;
    game.LastErrorText = fault->error.At("Open Games File");
    return false;
  }
  game.FileStatus = fault ? 0 : 1;
  if (fault) {
    TellLogFault(game, path, *fault, {});
    return false;
  }
  std::error_code ignored;
  const fs::path full = fs::absolute(path, ignored);
  game.GamesLogFile = ignored ? path : full.string();
  return true;
}

Record RecordOfGame(Game& game) {
  constexpr int kFirstCounted = 3;
  TotalBetResults(game, kFirstCounted, kBetCount, true);
  const auto total = [&](ResultKind kind, ResultRow row) {
    return ResultCell(game, kind, kActual, 0, row);
  };
  Record record;
  const auto set = [&](int value, MoneyAmount amount) {
    record.SetMoney(static_cast<std::size_t>(value) * sizeof(std::int64_t), amount);
  };
  const MoneyAmount won = total(ResultKind::kWins, kResultCount);
  const MoneyAmount lost = total(ResultKind::kLosses, kResultCount);
  const MoneyAmount handle = total(ResultKind::kWagers, kResultTotal);
  const MoneyAmount amount_won = total(ResultKind::kWins, kResultTotal);
  const MoneyAmount amount_lost = total(ResultKind::kLosses, kResultTotal);
  const MoneyAmount net = amount_won - amount_lost;
  set(kRollsValue, MoneyAmount::FromWhole(RollCounts(game, 0)));
  set(kDecidedValue, total(ResultKind::kWagers, kResultCount));
  set(kWonValue, won);
  set(kLostValue, lost);
  set(kNetCountValue, won - lost);
  set(kHandleValue, handle);
  set(kAmountWonValue, amount_won);
  set(kAmountLostValue, amount_lost);
  set(kNetValue, net);
  if (handle != MoneyAmount()) set(kAdvantageValue, Ratio(net, MoneyAmount(100), handle));
  set(kInvestedValue, game.AmountInvested);
  set(kBankrollValue, game.BetAmount[kBankroll]);
  for (int value = kFirstStackValue; value < kGameValues; ++value) {
    set(value, game.BetAmount[kFirstStack + value - kFirstStackValue]);
  }
  return record;
}

bool UpdateGamesPlayed(Game& game, const std::string& path) {
  constexpr std::string_view kLoggingPlace = "UpdateGamesPlayed";
  const bool nowhere = path.empty() && game.GamesToLog == nullptr;
  if (RollCounts(game, 0) == 0 || nowhere) return false;
  Record record;
  try {
    record = RecordOfGame(game);
  } catch (const std::exception& error) {
    game.LastErrorText = std::string(error.what()) + " occurred, at: " + std::string(kLoggingPlace);
    return false;
  }
  if (game.GamesToLog != nullptr) {
    game.GamesToLog->push_back(record);
    return true;
  }
  // A script that ends game after game does not wait for the disk each time.
  const bool flush = !game.HyperDriveActive;
  GamesLogAppender log;
  std::optional<LogFault> fault = log.Open(path);
  if (!fault) fault = log.Add(record.Bytes());
  if (!fault) fault = log.Finish(flush);
  if (fault) {
    TellLogFault(game, path, *fault, kLoggingPlace);
    return false;
  }
  if (!flush) game.GamesLogUnflushed = true;
  return true;
}

void FallBackToDefaultLog(Game& game) {
  if (game.AppPath.empty()) return;
  std::error_code ignored;
  const fs::path folder = fs::path(game.GamesLogFile).parent_path();
  if (game.GamesLogFile.empty() || (!folder.empty() && !fs::is_directory(folder, ignored))) {
    game.GamesLogFile = game.AppPath + std::string(kDefaultGamesLog);
  }
}

bool LogFinishedGame(Game& game) {
  FallBackToDefaultLog(game);
  return UpdateGamesPlayed(game, game.GamesLogFile);
}

void FlushGamesLog(Game& game) {
  if (!game.GamesLogUnflushed) return;
  game.GamesLogUnflushed = false;
  LockedFile log;
  std::optional<FileError> error = log.Open(game.GamesLogFile);
  if (!error) error = log.Flush();
  if (error) TellLogFault(game, game.GamesLogFile, Fault(*error), "UpdateGamesPlayed");
}

}  // namespace feltmaster
