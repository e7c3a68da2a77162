#pragma once

#include <cstdint>
#include <string>

#include "game/game.h"

namespace feltmaster {

// Fills the grid with the true chances of two dice, in thousandths of a percent.
void DefaultProbabilities(Game& game);

// Maps a draw, 1 to 100,000 (a few generators give 100,001), to a pair of dice by the weights.
void MapSkewedDraw(Game& game, std::int32_t x);

// Sets one cell of the grid and lets the cells that are not locked take the rest. `raw` means that
// value is in thousandths of a percent already; otherwise it is the number of the field multiplied
// by 1,000 and is read by ProbabilityDisplay.
void SetProbabilityCell(Game& game, int row, int column, double value, bool raw);

// Reads a Probability File: 5 records of 256 bytes. False, with LastErrorText set and the table
// untouched, when the file cannot be read or is none.
bool LoadProbabilityFile(Game& game, const std::string& path);

}  // namespace feltmaster
