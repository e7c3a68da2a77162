#include "dice/probability.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

#include "autobet/message.h"
#include "base/record_file.h"
#include "base/text.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

using Layer = ProbabilityState::Layer;
enum { kStateLayer = 0, kWeightLayer = 1 };
constexpr std::int32_t kPercentageDice = 0;
constexpr std::int32_t kFreeFormDice = -1;

Layer& States(Game& game) {
  return game.DiceProbability[kStateLayer];
}
Layer& Weights(Game& game) {
  return game.DiceProbability[kWeightLayer];
}

struct Cell {
  int row = 0;
  int column = 0;
  constexpr bool operator==(const Cell&) const = default;
};

std::int32_t& At(Layer& layer, Cell cell) {
  return layer[static_cast<std::size_t>(cell.row)][static_cast<std::size_t>(cell.column)];
}
std::int32_t At(const Layer& layer, Cell cell) {
  return layer[static_cast<std::size_t>(cell.row)][static_cast<std::size_t>(cell.column)];
}

// The 36 rolls in the order in which a draw walks over them.
constexpr int kRolls = 36;
constexpr std::array<Cell, kRolls> RollCells() {
  std::array<Cell, kRolls> cells{};
  std::size_t n = 0;
  for (int row = kFirstRollRow; row <= kLastRollRow; ++row) {
    for (int column = row - 1; column <= 13 - row; ++column) cells[n++] = {row, column};
  }
  return cells;
}
constexpr std::array<Cell, kRolls> kRollCells = RollCells();
static_assert(kRollCells.back().row == kLastRollRow && kRollCells.back().column == 6);

// The cell of a face, 1 to 6, of a die (column 12 or 13).
constexpr Cell FaceCell(int die_column, int face) {
  return {face + 1, die_column};
}
constexpr int FaceOf(Cell roll, int die_column) {
  return die_column == kFirstDieColumn ? FirstDieOfCell(roll.row, roll.column)
                                       : SecondDieOfCell(roll.row, roll.column);
}

constexpr bool IsTotal(Cell cell) {
  return cell.row == kTotalRow && cell.column >= 1 && cell.column <= kTotalColumns;
}
constexpr bool IsFace(Cell cell) {
  return (cell.column == kFirstDieColumn || cell.column == kSecondDieColumn) &&
         cell.row >= kFirstRollRow && cell.row <= kLastRollRow;
}
constexpr bool IsRoll(Cell cell) {
  return cell.column >= 1 && cell.column <= kTotalColumns && cell.row >= kFirstRollRow &&
         cell.row <= WaysOfColumn(cell.column) + 1;
}
constexpr bool IsInUse(Cell cell) {
  return IsTotal(cell) || IsFace(cell) || IsRoll(cell);
}

// Working marks of an edit: the roll belongs to a locked face of a die, or to a locked total.
enum Mark : std::int32_t { kFirstDieMark = 1, kSecondDieMark = 2, kTotalMark = 4 };

std::int32_t Rounded(double value) {
  return static_cast<std::int32_t>(std::nearbyint(value));
}

// True chance of a cell, in thousandths of a percent.
double TrueWeight(Cell cell) {
  const int ways = IsTotal(cell) ? WaysOfColumn(cell.column) : IsFace(cell) ? 6 : 1;
  return ways * double{kCertainty} / kRolls;
}

// An edit works on a copy of the grid, which replaces the grid when it succeeds.
class Edit {
 public:
  Edit(Game& game, Cell cell) : states_(States(game)), weights_(Weights(game)), cell_(cell) {
    percentage_ = IsFace(cell) && IsProduct();
    At(states_, cell_) = kCellLocked;
    At(weights_, cell_) = 0;
    MarkRolls();
  }

  // False when nothing is free to take the rest.
  bool Set(std::int32_t value) {
    const bool done = percentage_ ? SetFaceOfProduct(value) : SetGroup(value);
    if (!done) return false;
    states_[0][0] = percentage_ ? kPercentageDice : kFreeFormDice;
    Derive();
    return true;
  }

  void Store(Game& game) {
    for (Layer::value_type& row : states_) {
      for (std::int32_t& state : row) {
        if (&state != &states_[0][0]) state &= kCellLocked;
      }
    }
    States(game) = states_;
    Weights(game) = weights_;
  }

 private:
  std::int32_t State(Cell cell) { return At(states_, cell); }
  bool Locked(Cell cell) { return (State(cell) & kCellLocked) != 0; }

  // Whether the dice are still a product of their faces. Rounding may have moved a roll by one; a
  // locked roll or total could not be kept by a product.
  bool IsProduct() {
    if (states_[0][0] != kPercentageDice) return false;
    for (const Cell roll : kRollCells) {
      if (Locked(roll) || Locked({kTotalRow, roll.column})) return false;
      if (std::abs(At(weights_, roll) - ProductOf(roll)) > 1) return false;
    }
    return true;
  }
  std::int32_t ProductOf(Cell roll) {
    const Cell first = FaceCell(kFirstDieColumn, FaceOf(roll, kFirstDieColumn));
    const Cell second = FaceCell(kSecondDieColumn, FaceOf(roll, kSecondDieColumn));
    return Rounded(static_cast<double>(At(weights_, first)) * At(weights_, second) / kCertainty);
  }

  void MarkRolls() {
    for (const Cell roll : kRollCells) {
      std::int32_t& state = At(states_, roll);
      for (const int die : {kFirstDieColumn, kSecondDieColumn}) {
        if (Locked(FaceCell(die, FaceOf(roll, die)))) state |= MarkOf(die);
      }
      if (Locked({kTotalRow, roll.column})) state |= kTotalMark;
    }
  }
  static std::int32_t MarkOf(int die_column) {
    return die_column == kFirstDieColumn ? kFirstDieMark : kSecondDieMark;
  }

  // Whether a roll belongs to the cell that is edited, and the mark that this cell put on it.
  bool InGroup(Cell roll) const {
    if (IsTotal(cell_)) return roll.column == cell_.column;
    if (IsFace(cell_)) return FaceOf(roll, cell_.column) == cell_.row - 1;
    return roll == cell_;
  }
  std::int32_t OwnMark() const {
    if (IsTotal(cell_)) return kTotalMark;
    return IsFace(cell_) ? MarkOf(cell_.column) : kCellLocked;
  }

  // A total, a face of Free Form Dice or a single roll: its free rolls share the value evenly, the
  // free rolls of the others what is left of the whole.
  bool SetGroup(std::int32_t value) {
    std::int64_t held_inside = 0;
    std::int64_t held_outside = 0;
    std::vector<Cell> inside;
    std::vector<Cell> outside;
    for (const Cell roll : kRollCells) {
      const bool in_group = InGroup(roll);
      const std::int32_t mark = in_group ? State(roll) & ~OwnMark() : State(roll);
      if (mark == 0) {
        (in_group ? inside : outside).push_back(roll);
      } else {
        (in_group ? held_inside : held_outside) += At(weights_, roll);
      }
    }
    const std::int64_t room = kCertainty - held_outside;
    if (inside.empty() || outside.empty() || room < 2 || held_inside > room) return false;
    const std::int64_t total = std::clamp<std::int64_t>(value, held_inside, room);
    Share(inside, static_cast<double>(total - held_inside));
    Share(outside, static_cast<double>(room - total));
    return true;
  }
  void Share(const std::vector<Cell>& cells, double weight) {
    for (const Cell cell : cells) {
      At(weights_, cell) = Rounded(weight / static_cast<double>(cells.size()));
    }
  }

  // The other faces of the die that are free share the rest; every roll is a product again.
  bool SetFaceOfProduct(std::int32_t value) {
    std::int64_t held = 0;
    std::vector<Cell> free;
    for (int face = 1; face <= 6; ++face) {
      const Cell cell = FaceCell(cell_.column, face);
      if (Locked(cell)) {
        held += At(weights_, cell);
      } else {
        free.push_back(cell);
      }
    }
    if (free.empty()) return false;
    const std::int64_t room = std::max<std::int64_t>(kCertainty - held, 0);
    const std::int64_t taken = std::min<std::int64_t>(value, room);
    At(weights_, cell_) = static_cast<std::int32_t>(taken);
    Share(free, static_cast<double>(room - taken));
    for (const Cell roll : kRollCells) At(weights_, roll) = ProductOf(roll);
    return true;
  }

  // Totals, and faces where they are not what the rolls were made of, are sums of their rolls.
  void Derive() {
    for (int column = 1; column <= kTotalColumns; ++column) At(weights_, {kTotalRow, column}) = 0;
    if (!percentage_) {
      for (int face = 1; face <= 6; ++face) {
        At(weights_, FaceCell(kFirstDieColumn, face)) = 0;
        At(weights_, FaceCell(kSecondDieColumn, face)) = 0;
      }
    }
    for (const Cell roll : kRollCells) {
      const std::int32_t weight = At(weights_, roll);
      At(weights_, {kTotalRow, roll.column}) += weight;
      if (percentage_) continue;
      for (const int die : {kFirstDieColumn, kSecondDieColumn}) {
        At(weights_, FaceCell(die, FaceOf(roll, die))) += weight;
      }
    }
  }

  Layer states_;
  Layer weights_;
  Cell cell_;
  bool percentage_ = false;
};

// The weight that a number typed into the field stands for. Not finite when it stands for none.
double TypedWeight(const Game& game, Cell cell, double value) {
  enum { kPercent, kPercentOff, kRollsOutOf, kRollsOff };
  const int display = game.ProbabilityDisplay;
  if (display == kRollsOutOf || display == kRollsOff) value *= 100.0 / game.RollsOutOf;
  if (display == kPercentOff || display == kRollsOff) value += TrueWeight(cell);
  return value;
}

// The dice of the cell that takes x.
bool TakeDraw(Game& game, std::int64_t x) {
  std::int64_t sum = 0;
  std::int64_t before = 0;
  for (const Cell roll : kRollCells) {
    sum += At(Weights(game), roll);
    if (x <= sum && x > before) {
      game.Die1 = FirstDieOfCell(roll.row, roll.column);
      game.Die2 = SecondDieOfCell(roll.row, roll.column);
      return true;
    }
    before = sum;
  }
  return false;
}

// The highest draw that a cell takes; all from 1 up to it are taken, whatever the weights are.
std::int64_t HighestTaken(Game& game) {
  std::int64_t sum = 0;
  std::int64_t highest = 0;
  for (const Cell roll : kRollCells) {
    sum += At(Weights(game), roll);
    highest = std::max(highest, sum);
  }
  return std::min<std::int64_t>(highest, kCertainty);
}

std::int64_t PlainBelow(Game& game, std::int64_t n) {
  return static_cast<std::int64_t>(game.surface->PlainUniform() * static_cast<double>(n));
}

constexpr std::string_view kProbabilityTitle = "Feltking Probability File, Data Format 4.6";
constexpr std::size_t kTitleSize = 92;
constexpr std::size_t kNumbersPerRecord = kRecordSize / sizeof(std::int32_t);

// What a file may have brought that no edit makes.
void BringIntoRange(Game& game) {
  for (Layer::value_type& row : Weights(game)) {
    for (std::int32_t& weight : row) weight = std::clamp(weight, 0, kCertainty);
  }
  Layer& states = States(game);
  if (states[0][0] != kPercentageDice) states[0][0] = kFreeFormDice;
  for (int row = kTotalRow; row <= kLastRollRow; ++row) {
    for (int column = 1; column <= kSecondDieColumn; ++column) {
      if (IsInUse({row, column})) At(states, {row, column}) &= kCellLocked;
    }
  }
}

}  // namespace

void DefaultProbabilities(Game& game) {
  constexpr std::array<std::int32_t, 6> kTotals = {2778, 5556, 8333, 11111, 13889, 16667};
  constexpr std::int32_t kRoll = 2778;
  constexpr std::int32_t kFace = 16667;
  States(game) = {};
  Layer& weights = Weights(game);
  weights = {};
  for (int column = 1; column <= kTotalColumns; ++column) {
    At(weights, {kTotalRow, column}) = kTotals[static_cast<std::size_t>(WaysOfColumn(column) - 1)];
  }
  for (const Cell roll : kRollCells) At(weights, roll) = kRoll;
  for (int face = 1; face <= 6; ++face) {
    At(weights, FaceCell(kFirstDieColumn, face)) = kFace;
    At(weights, FaceCell(kSecondDieColumn, face)) = kFace;
  }
}

void NewProbabilities(Game& game) {
  DefaultProbabilities(game);
  game.ProbabilityFileName.clear();
  game.ProbabilityChanged = false;
}

void MapSkewedDraw(Game& game, std::int32_t x) {
  // The true chances add up to 100,008, but 100,001 is a draw beyond the whole for every grid.
  if (x <= kCertainty && TakeDraw(game, x)) return;
  const std::int64_t highest = HighestTaken(game);
  if (highest > 0) {
    TakeDraw(game, PlainBelow(game, highest) + 1);
  } else {
    game.Die1 = static_cast<std::int32_t>(PlainBelow(game, 6)) + 1;
    game.Die2 = static_cast<std::int32_t>(PlainBelow(game, 6)) + 1;
  }
}

bool IsProbabilityCell(int row, int column) {
  return IsInUse({row, column});
}

std::int32_t ProbabilityWeight(const Game& game, int row, int column) {
  return At(game.DiceProbability[kWeightLayer], {row, column});
}

double TrueProbability(int row, int column) {
  return TrueWeight({row, column});
}

bool IsCellLocked(const Game& game, int row, int column) {
  return (At(game.DiceProbability[kStateLayer], {row, column}) & kCellLocked) != 0;
}

bool AreFreeFormDice(const Game& game) {
  return At(game.DiceProbability[kStateLayer], {0, 0}) != kPercentageDice;
}

bool SetProbabilityCell(Game& game, int row, int column, double value, bool raw) {
  const Cell cell = {row, column};
  if (!IsInUse(cell)) return false;
  if (!raw) value = TypedWeight(game, cell, value);
  if (!std::isfinite(value)) return false;
  Edit edit(game, cell);
  if (!edit.Set(Rounded(std::clamp(value, 0.0, double{kCertainty})))) return false;
  edit.Store(game);
  game.ProbabilityChanged = true;
  return true;
}

void ToggleCellLock(Game& game, int row, int column) {
  if (IsInUse({row, column})) At(States(game), {row, column}) ^= kCellLocked;
}

void UnlockAllCells(Game& game) {
  const std::int32_t kind = States(game)[0][0];
  States(game) = {};
  States(game)[0][0] = kind;
}

void ComputeAxisDice(Game& game, const DieControl& first, const DieControl& second) {
  // What the faces off an axis were before does not count: they share what is left equally.
  DefaultProbabilities(game);
  for (const auto& [control, column] :
       {std::pair(first, kFirstDieColumn), std::pair(second, kSecondDieColumn)}) {
    constexpr int kFaces = 6;
    const double kept = std::clamp(control.effectiveness, 0.0, 100.0) / 100;
    const double weight = std::nearbyint((1 - kept) / kFaces * kCertainty);
    const int face = static_cast<int>(control.axis) + 1;
    for (const int end : {face, kFaces + 1 - face}) {
      const Cell cell = FaceCell(column, end);
      SetProbabilityCell(game, cell.row, cell.column, weight, true);
    }
  }
}

bool LoadProbabilityFile(Game& game, const std::string& path) {
  const auto failed = [&](const FileError& error) {
    game.FileStatus = -1;
    game.LastErrorText = error.At("Open Probability File");
    return false;
  };
  RecordReader file;
  if (const std::optional<FileError> error = file.Open(path)) return failed(*error);
  Record record;
  file.Read(record);
  if (const std::optional<FileError> error = file.Fault()) return failed(*error);
  if (Trim(record.Bytes().substr(0, kTitleSize)) != kProbabilityTitle) {
    game.FileStatus = 0;
    game.LastErrorText = path +
                         "\nis either from an older version, has been corrupted, or is not a true "
                         "Feltmaster Probability File.";
    return false;
  }
  std::size_t number = 0;
  auto cells = game.DiceProbability;
  for (Layer& layer : cells) {
    for (Layer::value_type& row : layer) {
      for (std::int32_t& cell : row) {
        const std::size_t place = number++ % kNumbersPerRecord;
        if (place == 0) {
          record = Record();
          file.Read(record);
        }
        cell = record.Int32(place * sizeof cell);
      }
    }
  }
  if (const std::optional<FileError> error = file.Fault()) return failed(*error);
  game.DiceProbability = cells;
  BringIntoRange(game);
  game.ProbabilityFileName = path;
  game.ProbabilityChanged = false;
  game.FileStatus = 1;
  return true;
}

bool OpenProbabilityFile(Game& game, const std::string& path) {
  if (LoadProbabilityFile(game, path)) return true;
  if (game.FileStatus == 0) {
    Tell(game, "Unable to Open Feltmaster Probability File", game.LastErrorText,
         kButtonOk | kPictureStop);
  }
  return false;
}

bool SaveProbabilityFile(Game& game, const std::string& path) {
  Record record;
  record.SetText(0, kTitleSize, kProbabilityTitle);
  std::string bytes(record.Bytes());
  // One record is filled again and again: behind the last number stands what the record before it
  // held there.
  std::size_t number = 0;
  for (const Layer& layer : game.DiceProbability) {
    for (const Layer::value_type& row : layer) {
      for (const std::int32_t cell : row) {
        record.SetInt32(number % kNumbersPerRecord * sizeof cell, cell);
        if (++number % kNumbersPerRecord == 0) bytes += record.Bytes();
      }
    }
  }
  bytes += record.Bytes();
  if (const std::optional<FileError> error = WriteFileAtomically(path, bytes)) {
    game.LastErrorText = error->At("Save Probability File");
    return false;
  }
  game.ProbabilityFileName = path;
  game.ProbabilityChanged = false;
  return true;
}

}  // namespace feltmaster
