#include "view/probability_grid.h"

#include "base/number_format.h"
#include "dice/probability.h"

namespace feltmaster {

namespace {

std::size_t DisplayOf(const Game& game) {
  return static_cast<std::size_t>(game.ProbabilityDisplay);
}
bool IsDifference(const Game& game) {
  return game.ProbabilityDisplay == kShowPercentOff || game.ProbabilityDisplay == kShowRollsOff;
}
bool IsRolls(const Game& game) {
  return game.ProbabilityDisplay == kShowRolls || game.ProbabilityDisplay == kShowRollsOff;
}

double ShownValue(const Game& game, int row, int column) {
  double weight = ProbabilityWeight(game, row, column);
  if (IsDifference(game)) weight -= TrueProbability(row, column);
  constexpr double kOnePercent = kCertainty / 100.0;
  return IsRolls(game) ? weight / kCertainty * game.RollsOutOf : weight / kOnePercent;
}

std::string NameOfCell(int row, int column) {
  if (column == kFirstDieColumn) return "first " + std::to_string(row - 1);
  if (column == kSecondDieColumn) return "second " + std::to_string(row - 1);
  if (row == kTotalRow) return std::to_string(column + 1);
  return std::to_string(FirstDieOfCell(row, column)) + '-' +
         std::to_string(SecondDieOfCell(row, column));
}

std::string Marked(const ProbabilityCell& cell) {
  return cell.text + (cell.locked ? "*" : "");
}

}  // namespace

ProbabilityCell ProbabilityCellAt(const Game& game, int row, int column) {
  constexpr std::array<std::string_view, 4> kPictures = {"#,0.000", "+#,0.000;-#,0.000;#,0.000",
                                                         "#,0.000;-#,0.000;#,0.000",
                                                         "+#,0.000;-#,0.000;#,0.000"};
  ProbabilityCell cell;
  cell.row = row;
  cell.column = column;
  cell.name = NameOfCell(row, column);
  cell.value = ShownValue(game, row, column);
  cell.text = FormatNumber(cell.value, kPictures[DisplayOf(game)]);
  cell.locked = IsCellLocked(game, row, column);
  return cell;
}

std::vector<ProbabilityCell> ProbabilityCells(const Game& game) {
  std::vector<ProbabilityCell> cells;
  const auto add = [&](int row, int column) {
    cells.push_back(ProbabilityCellAt(game, row, column));
  };
  for (int column = 1; column <= kTotalColumns; ++column) add(kTotalRow, column);
  for (int column = 1; column <= kTotalColumns; ++column) {
    for (int way = 0; way < WaysOfColumn(column); ++way) add(kFirstRollRow + way, column);
  }
  for (const int column : {kFirstDieColumn, kSecondDieColumn}) {
    for (int row = kFirstRollRow; row <= kLastRollRow; ++row) add(row, column);
  }
  return cells;
}

std::string_view DiceKindText(const Game& game) {
  return AreFreeFormDice(game) ? "Free Form Dice" : "Percentage Dice";
}

std::string_view ProbabilityFileLabel(const Game& game) {
  return game.ProbabilityFileName.empty() ? std::string_view("untitled")
                                          : std::string_view(game.ProbabilityFileName);
}

Rows ProbabilityRows(const Game& game) {
  const auto text = [&](int row, int column) {
    return Marked(ProbabilityCellAt(game, row, column));
  };
  Rows rows = {{"First die"}};
  for (int die2 = 1; die2 <= 6; ++die2) rows[0].push_back("second " + std::to_string(die2));
  rows[0].push_back("any");
  for (int die1 = 1; die1 <= 6; ++die1) {
    Row row = {std::to_string(die1)};
    for (int die2 = 1; die2 <= 6; ++die2) {
      row.push_back(text(RowOfRoll(die1, die2), ColumnOfRoll(die1, die2)));
    }
    row.push_back(text(die1 + 1, kFirstDieColumn));
    rows.push_back(row);
  }
  Row any = {"any"};
  for (int die2 = 1; die2 <= 6; ++die2) any.push_back(text(die2 + 1, kSecondDieColumn));
  any.emplace_back();
  rows.push_back(any);
  rows.push_back({"Total", std::string(kProbabilityDisplayCaptions[DisplayOf(game)].substr(1))});
  for (int column = 1; column <= kTotalColumns; ++column) {
    rows.push_back({std::to_string(column + 1), text(kTotalRow, column)});
  }
  return rows;
}

}  // namespace feltmaster
