#include "table/calls.h"

#include <array>

#include "engine/entry_box.h"
#include "engine/place_bet.h"
#include "engine/table_effects.h"

namespace feltmaster {

namespace {

struct CallRow {
  std::string_view prompt;
  void (*carry_out)(Game& game, int slot);
};

// By BetCall.
constexpr std::array<CallRow, 5> kCalls = {{
    {"", [](Game&, int) {}},
    {"Click on bet to call ON", [](Game& game, int slot) { CallBet(game, slot, kCallOn); }},
    {"Click on bet to call OFF", [](Game& game, int slot) { CallBet(game, slot, kCallOff); }},
    {"Click on bet to buy", BuyPlaceBet},
    {"Click on bet to remove", TakeDownBetQuietly},
}};

const CallRow& Waiting(const Game& game) {
  const auto mode = static_cast<std::size_t>(game.CallBetMode);
  return mode < kCalls.size() ? kCalls[mode] : kCalls[0];
}

void Wait(Game& game, std::int32_t mode) {
  if (game.CallBetMode == mode) return;
  game.CallBetMode = mode;
  ShowTableChange(game, kChangedPrompt);
}

}  // namespace

void ChooseCall(Game& game, BetCall call) {
  const auto mode = static_cast<std::int32_t>(call);
  if (EntryBoxOpen(game)) {
    CancelCall(game);
    kCalls[static_cast<std::size_t>(mode)].carry_out(game, game.EntryBoxBet);
    ResetEntryBox(game);
  } else {
    Wait(game, game.CallBetMode == mode ? 0 : mode);
  }
}

void CancelCall(Game& game) {
  Wait(game, 0);
}

void CarryOutCall(Game& game, int slot) {
  const CallRow& call = Waiting(game);
  CancelCall(game);
  call.carry_out(game, slot);
}

std::string_view CallPrompt(const Game& game) {
  return Waiting(game).prompt;
}

}  // namespace feltmaster
