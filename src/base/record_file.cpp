#include "base/record_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <system_error>

#include "base/descriptor.h"
#include "base/draft_file.h"
#include "base/text.h"

namespace feltmaster {

namespace {

template <typename Unsigned>
Unsigned LittleEndian(std::string_view bytes, std::size_t offset) {
  Unsigned value = 0;
  for (std::size_t i = sizeof(Unsigned); i-- > 0;) {
    value = static_cast<Unsigned>((std::uint64_t{value} << 8) |
                                  static_cast<unsigned char>(bytes[offset + i]));
  }
  return value;
}

template <typename Unsigned>
void PutLittleEndian(char* bytes, Unsigned value) {
  for (std::size_t i = 0; i < sizeof(Unsigned); ++i) {
    bytes[i] = static_cast<char>((std::uint64_t{value} >> (8 * i)) & 0xff);
  }
}

std::optional<FileError> WriteInPlace(const std::string& path, std::string_view bytes) {
  // A pipe that nobody reads is an error, not waited for.
  Descriptor file(::open(path.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK));
  const bool written = file.IsOpen() && ::fcntl(file.Number(), F_SETFL, O_WRONLY) == 0 &&
                       file.Write(bytes) && file.Close() == 0;
  return written ? std::nullopt : std::optional(SystemError(errno));
}

}  // namespace

std::int16_t Record::Int16(std::size_t offset) const {
  return static_cast<std::int16_t>(LittleEndian<std::uint16_t>(Bytes(), offset));
}
std::int32_t Record::Int32(std::size_t offset) const {
  return static_cast<std::int32_t>(LittleEndian<std::uint32_t>(Bytes(), offset));
}
MoneyAmount Record::Money(std::size_t offset) const {
  return MoneyAmount::FromRaw(
      static_cast<std::int64_t>(LittleEndian<std::uint64_t>(Bytes(), offset)));
}
float Record::Float(std::size_t offset) const {
  return std::bit_cast<float>(LittleEndian<std::uint32_t>(Bytes(), offset));
}
std::int32_t Record::RoundedFloat(std::size_t offset) const {
  const double value = Float(offset);
  if (std::isnan(value)) return 0;
  constexpr double kLow = std::numeric_limits<std::int32_t>::min();
  constexpr double kHigh = std::numeric_limits<std::int32_t>::max();
  return static_cast<std::int32_t>(std::nearbyint(std::clamp(value, kLow, kHigh)));
}
std::string Record::Text(std::size_t offset, std::size_t width) const {
  const std::string_view field = Bytes().substr(offset, width);
  const std::size_t last = field.find_last_not_of(std::string_view(" \0", 2));
  return std::string(field.substr(0, last == std::string_view::npos ? 0 : last + 1));
}

void Record::SetInt16(std::size_t offset, std::int32_t value) {
  using Limits = std::numeric_limits<std::int16_t>;
  const auto fitting = static_cast<std::int16_t>(
      std::clamp(value, std::int32_t{Limits::min()}, std::int32_t{Limits::max()}));
  PutLittleEndian(&bytes_[offset], static_cast<std::uint16_t>(fitting));
}
void Record::SetInt32(std::size_t offset, std::int32_t value) {
  PutLittleEndian(&bytes_[offset], static_cast<std::uint32_t>(value));
}
void Record::SetMoney(std::size_t offset, MoneyAmount value) {
  PutLittleEndian(&bytes_[offset], static_cast<std::uint64_t>(value.Raw()));
}
void Record::SetFloat(std::size_t offset, float value) {
  PutLittleEndian(&bytes_[offset], std::bit_cast<std::uint32_t>(value));
}
void Record::SetText(std::size_t offset, std::size_t width, std::string_view text) {
  PadRight(text, width).copy(&bytes_[offset], width);
}

std::string FileError::At(std::string_view place) const {
  return description + ", Error #" + std::to_string(number) +
         " occurred, at: " + std::string(place);
}

std::string DescriptionIn(std::string_view error_text) {
  return std::string(error_text.substr(0, error_text.find(", Error #")));
}

FileError SystemError(int number) {
  return {number, std::generic_category().message(number)};
}

std::optional<FileError> FaultOfRecordFile(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return SystemError(errno);
  if (S_ISDIR(status.st_mode)) return SystemError(EISDIR);
  return S_ISREG(status.st_mode) ? std::nullopt : std::optional(SystemError(ENOTSUP));
}

std::optional<FileError> RecordReader::Open(const std::string& path) {
  if (std::optional<FileError> fault = FaultOfRecordFile(path)) return fault;
  file_ = std::ifstream();
  errno = 0;
  file_.open(path, std::ios::binary);
  if (!file_.is_open()) return SystemError(errno != 0 ? errno : EIO);
  return std::nullopt;
}

bool RecordReader::Read(Record& record) {
  return static_cast<bool>(file_.read(record.Data(), kRecordSize));
}

std::optional<FileError> RecordReader::Fault() const {
  if (!file_.bad()) return std::nullopt;
  return SystemError(EIO);
}

void RecordReader::Seek(std::int64_t number) {
  file_.clear();
  file_.seekg((number - 1) * static_cast<std::int64_t>(kRecordSize));
}

std::string FileStamp(const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) return {};
  using std::chrono::sys_seconds, std::chrono::seconds, std::chrono::days;
  const sys_seconds time{seconds(status.st_mtim.tv_sec)};
  const auto day = std::chrono::floor<days>(time);
  const std::chrono::year_month_day date(day);
  const std::chrono::hh_mm_ss clock(time - day);
  char text[64];
  std::snprintf(text, sizeof text, "%04d-%02u-%02u %02d:%02d:%02d.%09ld UTC",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()), status.st_mtim.tv_nsec);
  return text;
}

std::optional<FileError> ReadWholeFile(const std::string& path, std::size_t limit,
                                       std::string& bytes) {
  bytes.clear();
  Descriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsOpen()) return SystemError(errno);
  std::array<char, 65536> block{};
  for (;;) {
    const ssize_t count = ::read(file.Number(), block.data(), block.size());
    if (count == 0) return std::nullopt;
    if (count < 0) {
      if (errno == EINTR) continue;
      return SystemError(errno);
    }
    bytes.append(block.data(), static_cast<std::size_t>(count));
    if (bytes.size() > limit) return SystemError(EFBIG);
  }
}

std::optional<FileError> WriteFileAtomically(const std::string& path, std::string_view bytes) {
  struct stat status {};
  const bool device =
      ::stat(path.c_str(), &status) == 0 && !S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode);
  if (device) return WriteInPlace(path, bytes);
  DraftFile file;
  std::optional<FileError> error = file.Open(path);
  if (!error) error = file.Write(bytes);
  return error ? error : file.PutInPlace();
}

std::optional<FileError> WriteOverStart(const std::string& path, std::string_view bytes) {
  constexpr std::size_t kLimit = 64 << 20;
  std::string whole(bytes);
  struct stat status {};
  if (::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode)) {
    std::string older;
    const std::optional<FileError> error = ReadWholeFile(path, kLimit, older);
    if (error && error->number != EFBIG) return error;
    if (!error && older.size() > bytes.size()) {
      whole += std::string_view(older).substr(bytes.size());
    }
  }
  return WriteFileAtomically(path, whole);
}

}  // namespace feltmaster
