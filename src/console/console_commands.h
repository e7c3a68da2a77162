#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "console/console_surface.h"
#include "game/game.h"

namespace feltmaster {

// One table in a terminal.
struct Console {
  explicit Console(std::optional<std::int32_t> seed) : Surface(Table, seed) {
    Table.surface = &Surface;
  }
  Console(const Console&) = delete;
  Console& operator=(const Console&) = delete;

  Game Table;
  ConsoleSurface Surface;
  bool Quit = false;
};

// What a command gives back. Error is empty when it was understood; otherwise it is one sentence
// and nothing has changed.
struct Reply {
  std::string Error;
  std::string Value;  // as JSON, empty for none
  std::string Words;  // the same as a dealer would say it, with its line breaks
};

// Carries out one line. Nothing for blank lines and remarks.
std::optional<Reply> CarryOut(Console& console, std::string_view line);

// The line that answers the last command under --json, with the dialogs that it raised.
std::string AnswerAsJson(const Console& console, const Reply& reply);

// The words that the start of a line can go on with: commands, their words, bet names in double
// quotes, names of the state record.
std::vector<std::string> Completions(std::string_view line);

}  // namespace feltmaster
