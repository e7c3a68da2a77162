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

namespace {

// Every generator that the selections are made of, the first one last: it stays selected.
void SeedGenerators(Game& game, const StartOptions& options) {
  for (std::int32_t rng = 4; rng >= 0; --rng) {
    game.RngSelected = rng;
    if (options.seed) game.BetRequest = MoneyAmount::FromWhole(*options.seed);
    SeedRng(game, options.seed ? -1 : 0);
  }
}

}  // namespace

void StartUp(Game& game, const StartOptions& options) {
  game.AppPath = options.data_dir;
  if (!options.data_dir.empty()) game.GamesLogFile = options.data_dir + "default.glg";
  SeedGenerators(game, options);

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
