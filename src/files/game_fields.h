#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/record_file.h"
#include "game/game.h"

namespace feltmaster {

// The records of a game file behind its five headers, as one table: which record and slot holds
// which variable, and in what form. The writer and the reader walk it, and so does whoever shows a
// game file without opening it.

enum class FieldKind : std::uint8_t {
  kSingle,   // 4 bytes: a whole number as a single-precision float
  kAmount,   // 8 bytes: money, in ten-thousandths
  kWhole,    // 8 bytes: a whole number scaled like money
  kSwitch,   // 8 bytes: -1 or 0, scaled like money
  kLong,     // 4 bytes
  kInteger,  // 2 bytes
  kMark,     // 2 bytes: -1 or 0
  kName,     // 80 bytes of text
};
constexpr std::size_t BytesOf(FieldKind kind) {
  switch (kind) {
    case FieldKind::kSingle:
    case FieldKind::kLong:
      return 4;
    case FieldKind::kInteger:
    case FieldKind::kMark:
      return 2;
    case FieldKind::kName:
      return 80;
    default:
      return 8;
  }
}

struct GameField {
  std::string_view name;
  FieldKind kind = FieldKind::kWhole;
  int record = 0;      // of the first element
  int slot = 0;        // its place in the record, in slots of the kind's size
  int count = 1;       // elements, in consecutive slots
  int per_record = 0;  // elements in a record; the last record takes what is left
  int records = 1;

  // An element, counted from 0, in the units of its kind: ten-thousandths, whole numbers, and 1 or
  // 0 for switches and marks. Reading settles what is computed when it is asked for. Writing takes
  // any number and brings one that would lead the program astray into its range.
  std::int64_t (*read)(Game& game, int element) = nullptr;
  void (*write)(Game& game, int element, std::int64_t value) = nullptr;
  // Of kName alone.
  std::string_view (*read_text)(const Game& game, int element) = nullptr;
  void (*write_text)(Game& game, int element, std::string text) = nullptr;

  constexpr int RecordOf(int element) const { return record + RecordsBefore(element); }
  // In bytes, within that record.
  constexpr std::size_t OffsetOf(int element) const {
    const int place = slot + element - RecordsBefore(element) * per_record;
    return static_cast<std::size_t>(place) * BytesOf(kind);
  }

 private:
  constexpr int RecordsBefore(int element) const {
    if (records == 1) return 0;
    return element / per_record < records ? element / per_record : records - 1;
  }
};

inline constexpr int kHeaderRecords = 5;
inline constexpr int kTableScreenRecord = 6;   // this record and the next hold the places of the
inline constexpr int kOtherScreensRecord = 7;  // screens, which only the default game brings back
inline constexpr int kFixedRecords = 571;      // what follows depends on the chips and the flags
inline constexpr int kChipsPerRecord = 32;
inline constexpr int kFlagsPerRecord = 128;

// In the order of the file.
std::span<const GameField> GameFields();

// The records of a file by their numbers, which count from 1. Those behind the end are zero bytes.
class GameRecords {
 public:
  GameRecords() = default;
  // An incomplete record at the end is filled up with zero bytes.
  explicit GameRecords(std::string_view bytes);

  const Record& operator[](int number) const;
  // Makes the records up to this one if they are missing.
  Record& At(int number);
  int Count() const { return static_cast<int>(records_.size()); }
  std::string Bytes() const;

 private:
  std::vector<Record> records_;
};

// One element, without regard to what the program takes for valid.
std::int64_t FieldValue(const GameRecords& records, const GameField& field, int element);

// All records from 6 on. Reading needs the statistics of a fresh game, and the script whose flags
// are to take their values. The places of the screens are taken only if asked for.
void WriteGameFields(Game& game, GameRecords& records);
void ReadGameFields(Game& game, const GameRecords& records, bool with_screens);

}  // namespace feltmaster
