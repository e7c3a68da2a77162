#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>

#include "base/money.h"

namespace feltmaster {

inline constexpr std::size_t kRecordSize = 256;

// One record of a record file: numbers little-endian at any byte offset, text in single bytes
// padded on the right with blanks. A fresh record is all zero bytes. Offsets and widths are the
// caller's and lie inside the record.
class Record {
 public:
  std::int16_t Int16(std::size_t offset) const;
  std::int32_t Int32(std::size_t offset) const;
  MoneyAmount Money(std::size_t offset) const;
  float Float(std::size_t offset) const;
  // The nearest whole number; NaN is 0, and what does not fit becomes the nearest that does.
  std::int32_t RoundedFloat(std::size_t offset) const;
  // Without the blanks and zero bytes at its end.
  std::string Text(std::size_t offset, std::size_t width) const;

  // A number that does not fit its 16 bits becomes the nearest that does.
  void SetInt16(std::size_t offset, std::int32_t value);
  void SetInt32(std::size_t offset, std::int32_t value);
  void SetMoney(std::size_t offset, MoneyAmount value);
  void SetFloat(std::size_t offset, float value);
  void SetText(std::size_t offset, std::size_t width, std::string_view text);

  std::string_view Bytes() const { return {bytes_.data(), bytes_.size()}; }
  char* Data() { return bytes_.data(); }

 private:
  std::array<char, kRecordSize> bytes_{};
};

// What went wrong with a file, as the system says it.
struct FileError {
  int number = 0;
  std::string description;

  // The form of LastErrorText: the description, the number and the place.
  std::string At(std::string_view place) const;
};
FileError SystemError(int number);
// The description alone, out of a text that At has made.
std::string DescriptionIn(std::string_view error_text);

// Why a path cannot be read as a file of records, if it cannot: it is not there, or it is a folder,
// or a pipe or a device, which would be waited for.
std::optional<FileError> FaultOfRecordFile(const std::string& path);

// Reads the records of a file one after the other and ends where the file ends, whatever its
// header promises. An incomplete record at the end is none.
class RecordReader {
 public:
  // The error, or nothing when the file is open at its first record.
  std::optional<FileError> Open(const std::string& path);
  bool Read(Record& record);
  // Why reading ended before the end of the file, if it did.
  std::optional<FileError> Fault() const;
  // Goes on with this record, counted from 1.
  void Seek(std::int64_t number);

 private:
  std::ifstream file_;
};

// Date and time of a file's last change as text, to the fraction of a second that the system keeps;
// empty when there is no such file. At most 40 bytes.
std::string FileStamp(const std::string& path);

// The bytes of a file of at most `limit` bytes; beyond that, EFBIG.
std::optional<FileError> ReadWholeFile(const std::string& path, std::size_t limit,
                                       std::string& bytes);

// Writes a file whole or not at all: beside the old one, flushed to the disk and renamed over it.
// The old file's permissions stay; a link is followed. A device or pipe is written as it is.
std::optional<FileError> WriteFileAtomically(const std::string& path, std::string_view bytes);
// The same, but what an older and longer file holds behind these bytes stays. A file too large to
// be one of records is replaced.
std::optional<FileError> WriteOverStart(const std::string& path, std::string_view bytes);

}  // namespace feltmaster
