#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "game/game.h"
#include "surface/null_surface.h"

// What every fuzzer has: the entry that is called with each input, a folder of its own for the
// files that readers want by name, and a table that is ready to play.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace feltmaster::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

// Stops with the sentence where something that must hold does not.
void Require(bool holds, const char* what);

// In memory where the system has such a place; removed at the end. The folder one is in, too, so
// that a relative name that an input holds stays inside.
const std::filesystem::path& ScratchFolder();
// What one input left there is not found by the next.
void EmptyScratchFolder();

// The path of a scratch file with these bytes.
std::string FileWith(std::string_view name, std::string_view bytes);
std::string BytesOf(const std::string& path);

// A table with nobody at it, who stops every chain of rolls and every script that goes on for long.
class ImpatientSurface : public NullSurface {
 public:
  explicit ImpatientSurface(Game& table) : table_(table) {}
  void LetEventsThrough() override;

 private:
  Game& table_;
  int patience_ = 200;
};

struct Table {
  Table();
  Game Play;
  ImpatientSurface Surface;
};

// Every index and choice that play relies on is inside its table.
void RequireSoundState(Game& game);

// A few rolls with a bet on the line.
void PlayOn(Game& game);

}  // namespace feltmaster::fuzz
