#include "engine/start_up.h"

#include <filesystem>
#include <string>
#include <system_error>

#include "autobet/hot_keys.h"
#include "config/configure.h"
#include "config/payoffs.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "engine/bet_states.h"
#include "engine/roll_cycle.h"
#include "engine/sounds.h"
#include "files/game_file.h"
#include "files/games_log.h"
#include "stats/bankroll_history.h"
#include "surface/surface.h"

namespace feltmaster {

namespace {

// The state in which the program was left, if there is any; a file that cannot be opened leaves the
// defaults.
void OpenDefaultGame(Game& game) {
  if (game.AppPath.empty()) return;
  const std::string path = game.AppPath + std::string(kDefaultGame);
  std::error_code ignored;
  if (std::filesystem::exists(path, ignored)) OpenGame(game, path, false);
  WriteActiveScript(game);
}

void FindSoundsOf(Game& game, const StartOptions& options) {
  std::vector<std::string> folders;
  for (const std::string& folder : {options.data_dir, options.sound_dir}) {
    if (!folder.empty()) folders.push_back(folder);
  }
  FindSounds(game, folders);
}

}  // namespace

void SeedGenerators(Game& game, std::optional<std::int32_t> seed) {
  for (std::int32_t rng = 4; rng >= 0; --rng) {
    game.RngSelected = rng;
    if (seed) game.BetRequest = MoneyAmount::FromWhole(*seed);
    SeedRng(game, seed ? -1 : 0);
  }
}

void StartUp(Game& game, const StartOptions& options) {
  game.AppPath = options.data_dir;
  game.FileDialogPath = options.data_dir;
  if (!options.data_dir.empty())
    game.GamesLogFile = options.data_dir + std::string(kDefaultGamesLog);
  SeedGenerators(game, options.seed);

  // All other defaults are those of a fresh Game.
  DefaultProbabilities(game);
  game.RedrawTable = true;
  DefaultWorkOnComeOut(game);
  SetDefaultDenominations(game);
  DefaultPayoffs(game);
  RestartGraph(game);
  FindSoundsOf(game, options);
  LoadHotKeys(game);
  OpenDefaultGame(game);

  game.surface->TableChanged(kChangedAll);
  game.surface->LetEventsThrough();
  if (game.Point == 0) ComeOutCall(game);
}

}  // namespace feltmaster
