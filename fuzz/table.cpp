#include "table.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <sstream>
#include <utility>

#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "engine/start_up.h"
#include "game/bets.h"
#include "view/state_hash.h"

namespace feltmaster::fuzz {

namespace {

namespace fs = std::filesystem;

struct Folder {
  Folder() {
    const fs::path memory = "/dev/shm";
    std::string name =
        ((fs::is_directory(memory) ? memory : fs::temp_directory_path()) / "feltmaster-XXXXXX")
            .string();
    Require(mkdtemp(name.data()) != nullptr, "a scratch folder can be made");
    path = name;
    fs::current_path(path);
  }
  ~Folder() {
    std::error_code ignored;
    fs::current_path("/", ignored);
    fs::remove_all(path, ignored);
  }
  fs::path path;
};

}  // namespace

void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

const fs::path& ScratchFolder() {
  static const Folder folder;
  return folder.path;
}

void EmptyScratchFolder() {
  for (const fs::directory_entry& entry : fs::directory_iterator(ScratchFolder())) {
    fs::remove_all(entry);
  }
}

std::string FileWith(std::string_view name, std::string_view bytes) {
  const fs::path path = ScratchFolder() / name;
  std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
  return path.string();
}

std::string BytesOf(const std::string& path) {
  std::ostringstream bytes;
  bytes << std::ifstream(path, std::ios::binary).rdbuf();
  return std::move(bytes).str();
}

void ImpatientSurface::LetEventsThrough() {
  if (--patience_ > 0) return;
  table_.KeepRolling = false;
  table_.AutoBetRunning = false;
}

Table::Table() : Surface(Play) {
  Play.surface = &Surface;
  StartUp(Play, {.data_dir = "", .seed = 1});
}

void RequireSoundState(Game& game) {
  Require(game.Die1 >= 1 && game.Die1 <= 6 && game.Die2 >= 1 && game.Die2 <= 6, "dice are 1 to 6");
  Require(game.Point == 0 || (game.Point >= 2 && game.Point <= 12 && game.Point != 7),
          "the point is a number of the table");
  Require(game.RngSelected >= 0 && game.RngSelected < kRngCount, "a generator is selected");
  StateHash(game);  // reads every table
}

void PlayOn(Game& game) {
  game.BetRequest = MoneyAmount::FromWhole(10);
  try {
    PlaceBet(game, kPassLine);
  } catch (const std::exception&) {
    // As every way in does; the roll traps its own.
  }
  for (int roll = 0; roll < 8; ++roll) RollCycle(game);
  RequireSoundState(game);
}

}  // namespace feltmaster::fuzz
