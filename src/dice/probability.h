#pragma once

#include <cstdint>
#include <string>

#include "game/game.h"

namespace feltmaster {

// The grid of the dice. Columns 1 to 11 stand for the totals 2 to 12: row 1 holds the total, the
// rows below it its ordered rolls. Columns 12 and 13 hold the faces of either die in rows 2 to 7.
inline constexpr int kTotalRow = 1;
inline constexpr int kFirstRollRow = 2;
inline constexpr int kLastRollRow = 7;
inline constexpr int kTotalColumns = 11;
inline constexpr int kFirstDieColumn = 12;
inline constexpr int kSecondDieColumn = 13;
inline constexpr std::int32_t kCertainty = 100'000;  // thousandths of a percent
inline constexpr std::int32_t kCellLocked = 128;

// Ways of two dice to make the total of a column, which is also the number of its roll cells.
constexpr int WaysOfColumn(int column) {
  return 6 - (column < 6 ? 6 - column : column - 6);
}
// The dice of a roll's cell.
constexpr int FirstDieOfCell(int row, int column) {
  return column < 7 ? row - 1 : row + column - 7;
}
constexpr int SecondDieOfCell(int row, int column) {
  return column < 7 ? column - row + 2 : 8 - row;
}

// The cell of a roll.
constexpr int ColumnOfRoll(int die1, int die2) {
  return die1 + die2 - 1;
}
constexpr int RowOfRoll(int die1, int die2) {
  return ColumnOfRoll(die1, die2) < 7 ? die1 + 1 : 8 - die2;
}
// A total, one of its rolls, or a face of a die.
bool IsProbabilityCell(int row, int column);

// In thousandths of a percent, of a cell in use: by the grid, and with true dice.
std::int32_t ProbabilityWeight(const Game& game, int row, int column);
double TrueProbability(int row, int column);
bool IsCellLocked(const Game& game, int row, int column);
// Percentage Dice make every roll the product of its two faces; Free Form Dice need not.
bool AreFreeFormDice(const Game& game);

// Fills the grid with the true chances of two dice, in thousandths of a percent; no cell is locked
// and the dice are Percentage Dice.
void DefaultProbabilities(Game& game);

// The same as a table that no file holds and that needs no saving.
void NewProbabilities(Game& game);

// Maps a draw, 1 to 100,000 (a few generators give 100,001), to a pair of dice by the weights. A
// draw that no cell takes is made anew by the plain generator among those that one takes; a grid
// without any weight gives true dice.
void MapSkewedDraw(Game& game, std::int32_t x);

// Sets one cell of the grid, locks it, and lets the cells that are not locked take the rest. `raw`
// means that value is in thousandths of a percent already; otherwise it is the number of the field
// multiplied by 1,000 and is read by ProbabilityDisplay. False, and nothing changes, when no cell
// is free to take the rest, or when there is no such cell.
bool SetProbabilityCell(Game& game, int row, int column, double value, bool raw);

// The key L on a cell in use, and the button for all of them.
void ToggleCellLock(Game& game, int row, int column);
void UnlockAllCells(Game& game);

// How well a shooter keeps a die turning about an axis, so that the faces at its ends stay away: in
// percent, where more than 100 counts as 100.
enum class DieAxis { kOneSix, kTwoFive, kThreeFour };
struct DieControl {
  double effectiveness = 0;
  DieAxis axis = DieAxis::kOneSix;
};
// Makes Percentage Dice of such a shooter. All locks are taken away; the faces at the ends of the
// axes stay locked.
void ComputeAxisDice(Game& game, const DieControl& first, const DieControl& second);

// Reads a Probability File: 5 records of 256 bytes. False, with LastErrorText set and the table
// untouched, when the file cannot be read or is none. FileStatus tells the result as for game
// files. Missing numbers are 0; weights outside 0 to 100,000 are brought into range.
bool LoadProbabilityFile(Game& game, const std::string& path);
// The same, and the player is told why a file was refused.
bool OpenProbabilityFile(Game& game, const std::string& path);
// Writes one, whole or not at all; it becomes the file in use. False with LastErrorText when it
// could not be written.
bool SaveProbabilityFile(Game& game, const std::string& path);

}  // namespace feltmaster
