// Any bytes as a game file: refused without a trace, or a game that can be played, and that keeps
// its file when it is saved, opened and saved again.
#include "files/game_file.h"
#include "table.h"
#include "view/state_hash.h"

using namespace feltmaster;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::EmptyScratchFolder();
  const std::string path = fuzz::FileWith("game.crp", fuzz::TextOf(data, size));
  fuzz::Table table;
  const std::uint64_t before = StateHash(table.Play);
  if (!OpenGame(table.Play, path, true)) {
    fuzz::Require(StateHash(table.Play) == before, "a refused file changes nothing");
    return 0;
  }
  fuzz::RequireSoundState(table.Play);

  const std::string first = (fuzz::ScratchFolder() / "first.crp").string();
  const std::string second = (fuzz::ScratchFolder() / "second.crp").string();
  if (SaveGame(table.Play, first)) {
    fuzz::Table other;
    fuzz::Require(OpenGame(other.Play, first, true), "a saved game opens");
    fuzz::Require(SaveGame(other.Play, second), "an opened game is saved");
    fuzz::Require(fuzz::BytesOf(first) == fuzz::BytesOf(second), "the same game, the same bytes");
  }
  fuzz::PlayOn(table.Play);
  return 0;
}
