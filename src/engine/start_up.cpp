#include "engine/start_up.h"

#include "config/configure.h"
#include "config/payoffs.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "engine/bet_states.h"
#include "engine/roll_cycle.h"
#include "stats/bankroll_history.h"
#include "surface/surface.h"

namespace feltmaster {

void SeedGenerators(Game& game, std::optional<std::int32_t> seed) {
  for (std::int32_t rng = 4; rng >= 0; --rng) {
    game.RngSelected = rng;
    if (seed) game.BetRequest = MoneyAmount::FromWhole(*seed);
    SeedRng(game, seed ? -1 : 0);
  }
}

void StartUp(Game& game, const StartOptions& options) {
  game.AppPath = options.data_dir;
  if (!options.data_dir.empty()) game.GamesLogFile = options.data_dir + "default.glg";
  SeedGenerators(game, options.seed);

  // All other defaults are those of a fresh Game.
  DefaultProbabilities(game);
  game.RedrawTable = true;
  DefaultWorkOnComeOut(game);
  SetDefaultDenominations(game);
  DefaultPayoffs(game);
  RestartGraph(game);

  game.surface->TableChanged(kChangedAll);
  game.surface->LetEventsThrough();
  if (game.Point == 0) ComeOutCall(game);
}

}  // namespace feltmaster
