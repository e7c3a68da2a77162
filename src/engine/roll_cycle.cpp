#include "engine/roll_cycle.h"

#include <array>
#include <exception>
#include <string>
#include <string_view>
#include <vector>

#include "autobet/message.h"
#include "autobet/output_file.h"
#include "autobet/run_script.h"
#include "base/number_format.h"
#include "config/payoffs.h"
#include "dice/rng.h"
#include "engine/amounts.h"
#include "engine/bet_states.h"
#include "engine/chip_list.h"
#include "engine/place_bet.h"
#include "engine/resolve.h"
#include "engine/table_effects.h"
#include "files/games_log.h"
#include "files/roll_recorder.h"
#include "reports/graph_print.h"
#include "stats/bankroll_history.h"
#include "stats/bet_results.h"
#include "stats/roll_statistics.h"
#include "surface/surface.h"

namespace feltmaster {
namespace {

constexpr std::string_view kProgramName = "Feltmaster";

std::string NewGameHint() {
  return "\n\nSelect \"New\" from the \"Game\" menu to reset the table.";
}

bool PastBankLimit(const Game& game) {
  constexpr MoneyAmount kLimit = MoneyAmount::FromWhole(kBankLimit);
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  return bankroll > kLimit || bankroll < -kLimit;
}

// The copies of the table that conditions compare with and that bound the established bets.
void BeginRoll(Game& game) {
  if (game.BetAmount.Touched()) {
    game.BetAmount.ChangedSinceStart().ForEach([&](int slot) {
      const auto s = static_cast<std::size_t>(slot);
      game.BetAmountAtRollStart[s] = game.BetAmount[slot];
      if (slot >= kComePoint && slot <= kPassLine) game.EstablishedAmount[s] = game.BetAmount[slot];
    });
    game.BetAmount.RollStarted();
  }
  game.BetStreak.BeginRoll();
  BeginRollResults(game);
  BeginRollStatistics(game);
  if (game.AnyFlagChanged) {
    for (ScriptFlag& flag : game.ScriptFlags) flag.FlagChanged = false;
    game.AnyFlagChanged = false;
  }
  game.Decisions.count = 0;
  game.PrevPrevPoint = game.PrevPoint;
  game.PrevPoint = game.Point;
}

void CopyAmountsAtRollEnd(Game& game) {
  if (!game.BetAmount.Touched()) return;
  game.BetAmount.ChangedSinceEnd().ForEach([&](int slot) {
    game.BetAmountAtRollEnd[static_cast<std::size_t>(slot)] = game.BetAmount[slot];
  });
  game.BetAmount.RollEnded();
}

void ShowDice(Game& game) {
  PlayChosenClip(game, game.DiceSoundList, game.DiceSoundChoice, false);
  game.surface->AnimateDice();
  if (game.DiceAction == kDiceStationary || game.DiceAction == kDiceReturnAfterThrown) {
    ReturnDice(game);
  }
}

void CallDice(Game& game) {
  StickCall(game, game.DiceTotal);
  if (game.Die1 == game.Die2 && game.Die1 != 1 && game.Die1 != 6) StickCall(game, kClipPair);
}

// A seven-out or a natural, a point made, or a new point.
void DecideLine(Game& game) {
  const bool come_out = game.PrevPoint == 0;
  if (game.DiceTotal == 7 && !come_out) {
    HandMissed(game);
    StickCall(game, kClipSevenOut);
  } else if (game.DiceTotal == 7 || game.DiceTotal == game.PrevPoint) {
    HandPassed(game);
    StickCall(game, kClipPointMade);
  } else if (come_out) {
    PointEstablished(game);
  }
}

// The row of each total in the list of what stops Auto-Roll, and the row of its hard way.
struct AutoStopRows {
  std::int8_t any;
  std::int8_t hard;
};
constexpr std::array<AutoStopRows, 13> kAutoStopRows = {{{-1, -1},
                                                         {-1, -1},
                                                         {2, -1},
                                                         {3, -1},
                                                         {4, 5},
                                                         {6, -1},
                                                         {7, 8},
                                                         {9, -1},
                                                         {10, 11},
                                                         {12, -1},
                                                         {13, 14},
                                                         {15, -1},
                                                         {16, -1}}};

void CheckAutoStop(Game& game) {
  if (game.HyperDriveActive || !game.AutoRollDice) return;
  const AutoStopRows rows = kAutoStopRows[static_cast<std::size_t>(game.DiceTotal)];
  const bool hard = rows.hard >= 0 && game.Die1 == game.Die2;
  if (game.AutoStopOn[static_cast<std::size_t>(rows.any)] ||
      (hard && game.AutoStopOn[static_cast<std::size_t>(rows.hard)])) {
    game.KeepRolling = false;
  }
}

void PointMoved(Game& game) {
  if (!game.HyperDriveActive) game.surface->TableChanged(kChangedPuck);
  UpdateBetStates(game);
  if (game.Point == 0) return;
  CopyPointOddsRow(game);
  if (game.BetAmount[kPassLine].Raw() == 0) return;
  if (game.AutoTakeFullOdds) TakeFullOdds(game, kPassOdds);
  if (game.AutoRemovePlaceBets) TakeDownBetQuietly(game, BetOnNumber(kPlace, game.Point));
}

void CountAutoRolls(Game& game) {
  if (game.AutoRollsRemaining <= 0 || --game.AutoRollsRemaining > 0) return;
  game.KeepRolling = false;
  if (game.HyperDriveActive && game.HyperDriveStopText.empty()) {
    game.HyperDriveStopText = kStoppedByRollCount;
  }
  game.AutoRollsRemaining = game.NumAutoRolls;
}

void RollLimitReached(Game& game) {
  game.KeepRolling = false;
  const std::string rest = "reaching the maximum limit of " +
                           FormatNumber(std::int64_t{kRollLimit}, "#,#") + " rolls." +
                           NewGameHint();
  if (game.HyperDriveActive) {
    game.HyperDriveStopText = "Stopped due to " + rest;
  } else {
    Tell(game, "Reached Maximum Roll Limit",
         "Sorry ... you've reached the maximum limit of " +
             FormatNumber(std::int64_t{kRollLimit}, "#,#") + " rolls." + NewGameHint());
  }
}

// From the player's hand, the Dice Roll File or the generator. False when there is no roll to be
// made.
bool TakeDice(Game& game) {
  if (game.DiceAlreadySet) {
    game.DiceAlreadySet = false;
    return true;
  }
  if (game.DiceRollFileMode == kPlayback) return PlayBackDice(game);
  DrawDice(game);
  return true;
}

void PlayRoll(Game& game) {
  if (RollsMade(game) >= kRollLimit) {
    RollLimitReached(game);
    return;
  }
  game.DiceReturned = false;
  BeginRoll(game);
  if (!TakeDice(game)) return;
  const bool shown = !game.HyperDriveActive;
  if (shown) ShowDice(game);
  if (game.DiceRollFileMode == kRecording) RecordDice(game);
  game.DiceTotal = game.Die1 + game.Die2;
  if (shown) CallDice(game);

  const int pair = PairOfDice(game.Die1, game.Die2);
  RecordRollStatistics(game, pair);
  DecideLine(game);
  RecordPhantomDecisions(game, pair);
  ResolveRoll(game, pair);
  CheckAutoStop(game);
  if (game.Point != game.PrevPoint) PointMoved(game);
  if (shown && game.RefreshBetAmounts) {
    game.RefreshBetAmounts = false;
    game.surface->TableChanged(kChangedAmounts);
  }
  if (PastBankLimit(game)) BankLimitReached(game);
  TrackBankroll(game);
  if (game.GraphAutoPrint && game.BankrollHistoryCount == kGraphRolls) PrintGraph(game);
  if (game.ScriptActive == 1 && !game.ScriptLines.empty()) RunScript(game);
  FinishRollStatistics(game);
  CopyAmountsAtRollEnd(game);
  game.surface->RefreshOpenScreens();
  CountAutoRolls(game);
}

void EndHyperDrive(Game& game) {
  game.HyperDriveActive = false;
  game.surface->RefreshOpenScreens();
  SettleScriptOutput(game);
  game.surface->ShowBanner("");
  if (!game.HyperDriveStopText.empty()) {
    Tell(game, "Hyper-Drive Stopped", game.HyperDriveStopText);
  }
  FinishGraphPrint(game);
  RebuildAllChips(game);
  game.RefreshBetAmounts = false;
  game.surface->TableChanged(kChangedAll);
}

void RollChain(Game& game) {
  while (true) {
    PlayRoll(game);
    if (game.HyperDriveActive) {
      game.surface->LetEventsThrough();
      game.surface->Throttle(game.ThrottleSetting);
      if (game.KeepRolling) continue;
      EndHyperDrive(game);
      return;
    }
    if (!game.AutoRollDice || !game.KeepRolling) return;
    game.surface->Wait(game.AutoRollDelay, game.KeepRolling);
    if (!game.KeepRolling) return;
    if (game.Point == 0) ComeOutCall(game);
  }
}

void TrapError(Game& game, const char* what) {
  game.LastErrorText = std::string(what) + " occurred, at: Roll Cycle";
  game.KeepRolling = false;
  game.HyperDriveActive = false;
}

}  // namespace

void StickCall(Game& game, int clip) {
  if (game.HyperDriveActive || game.AllSoundOff || game.StickPersonChoice == 0) return;
  const std::string& file = game.StickCallFiles[static_cast<std::size_t>(clip)];
  if (!file.empty()) game.surface->PlaySound(file, false);
}

void ComeOutCall(Game& game) {
  if (game.GameCounters[kRollsThisHand] == 0) StickCall(game, kClipNewShooter);
  StickCall(game, kClipComeOut);
}

void BankLimitReached(Game& game) {
  const bool over = game.BetAmount[kBankroll].Raw() > 0;
  const std::string limit = "$" + FormatMoney(MoneyAmount::FromWhole(kBankLimit)) + NewGameHint();
  if (game.HyperDriveActive) {
    game.KeepRolling = false;
    game.HyperDriveStopText = (over ? "Stopped by breaking the bank limit of "
                                    : "Stopped by exceeding the max loss limit of ") +
                              limit;
    return;
  }
  if (over) {
    if (game.BetAmount[kBankroll] != AtRollEnd(game, kBankroll)) game.surface->ShowerOfChips();
    Tell(game, std::string(kProgramName),
         "Congratulations!\n\nYou broke the bank limit of " + limit);
  } else {
    Tell(game, std::string(kProgramName),
         "Sorry ... this wasn't your lucky day.\n\nYou've exceeded the max loss limit of " + limit);
  }
}

void RollCycle(Game& game) {
  if (game.RollInProgress) return;
  if (game.KeyInBetAmounts && !CommitEnteredBet(game)) return;
  if (PastBankLimit(game)) {
    BankLimitReached(game);
    return;
  }
  game.GameChanged = true;
  game.HyperDriveStopText.clear();
  game.RollInProgress = true;
  if (game.DiceRollFileMode != kRecorderOff) ReadyRecorder(game);
  try {
    RollChain(game);
  } catch (const std::exception& error) {
    TrapError(game, error.what());
  }
  FlushGamesLog(game);
  if (!game.surface->TableMinimised()) {
    if (game.HyperDriveStopText == kEndOfDiceRolls) DiceRollStopped(game);
    game.HyperDriveStopText.clear();
  }
  if (game.Point == 0) ComeOutCall(game);
  game.RollInProgress = false;
}

}  // namespace feltmaster
