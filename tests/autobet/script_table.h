#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "autobet/codes.h"
#include "autobet/conditions.h"
#include "autobet/run_script.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "engine/roll_cycle.h"
#include "engine/start_up.h"
#include "game/game.h"
#include "stats/roll_statistics.h"
#include "support/recording_surface.h"

namespace feltmaster {

// Somebody watches the script: its steps, its waits, and the events that it lets through.
class WatchingSurface : public RecordingSurface {
 public:
  bool TableMinimised() override { return minimised; }
  MessageReply ShowMessage(const MessageRequest& request) override {
    input_default = request.input_default;
    return RecordingSurface::ShowMessage(request);
  }
  bool ShowStep(const StepRequest& request) override {
    steps.push_back(std::to_string(request.line) + " " + std::string(request.status));
    return steps.size() < cancel_at_step;
  }
  void LetEventsThrough() override {
    ++pumps;
    if (on_pump) on_pump();
  }
  void Wait(double length, const bool&) override { waits.push_back(length); }
  double SecondsSinceMidnight() override { return seconds; }
  void ShowBanner(std::string_view text) override { banners.emplace_back(text); }

  bool minimised = false;
  double seconds = 1000;
  std::string input_default;
  std::vector<std::string> steps;
  std::size_t cancel_at_step = 1'000'000;
  int pumps = 0;
  std::function<void()> on_pump;
  std::vector<double> waits;
  std::vector<std::string> banners;
};

// A table with a script on it. Scripts are written as they are printed; what has run is read from
// Chip-Stacks that the lines count on.
class ScriptTable : public ::testing::Test {
 protected:
  ScriptTable() {
    game.surface = &surface;
    StartUp(game, {{}, 1});
    surface.pumps = 0;
    surface.banners.clear();
    SetAmount(kBankroll, 1000);
    CopyToRollEnd();
  }

  void Script(std::string_view text) {
    auto composed = ComposeScript(text);
    if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) {
      FAIL() << "line " << fault->line << ", column " << fault->column << ": " << fault->expected;
    }
    SetLines(std::get<std::vector<ScriptLine>>(composed));
  }
  void SetLines(std::vector<ScriptLine> lines) {
    game.ScriptLines = std::move(lines);
    RegisterNames(game, game.ScriptLines);
    ScriptLinesChanged(game);
  }
  static ScriptLine Line(std::int32_t kind, std::int32_t code = 0) {
    ScriptLine line;
    line.LineKind = kind;
    line.LineCode = code;
    return line;
  }

  void Run() { RunScript(game); }
  // Runs a script and gives what it counted on Chip-Stack 1.
  int Count(std::string_view text) {
    Script(text);
    SetStack(1, 0);
    Run();
    return Stack(1);
  }
  void Roll(int die1, int die2) {
    game.Die1 = die1;
    game.Die2 = die2;
    game.DiceAlreadySet = true;
    RollCycle(game);
  }
  // Asks one condition line as a block of that kind would.
  ConditionAnswer Ask(std::string_view text, std::int32_t block_kind = kWhen) {
    auto composed = ComposeLine(text);
    if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) {
      ADD_FAILURE() << text << ": " << fault->expected;
      return {};
    }
    return Ask(std::get<ScriptLine>(composed), block_kind);
  }
  ConditionAnswer Ask(const ScriptLine& line, std::int32_t block_kind = kWhen) {
    SetLines({line});
    return EvaluateCondition(game, Compile(game)->lines[0], block_kind);
  }

  void SetAmount(int slot, double amount) {
    game.BetAmount.Set(slot, MoneyAmount::FromDouble(amount));
  }
  double Amount(int slot) const { return game.BetAmount[slot].ToDouble(); }
  void SetStack(int stack, double amount) { SetAmount(kFirstStack + stack, amount); }
  int Stack(int stack) const {
    return static_cast<int>(game.BetAmount[kFirstStack + stack].FloorWhole());
  }
  void SetAmountBefore(int slot, double amount) {
    game.BetAmountAtRollEnd[static_cast<std::size_t>(slot)] = MoneyAmount::FromDouble(amount);
    game.BetAmount.ChangedSinceEnd().Add(slot);
  }
  void CopyToRollEnd() {
    for (int slot = 0; slot < kAmountSlots; ++slot) SetAmountBefore(slot, Amount(slot));
  }
  void SetRolls(int rolls) {
    SetRollCounts(game, 0, rolls);
    game.RollsSeenByScript = rolls;
  }

  Game game;
  WatchingSurface surface;
};

inline void PrintTo(const ConditionAnswer& answer, std::ostream* out) {
  *out << (answer.is_true ? "true" : "false") << (answer.is_new ? ", new" : ", not new");
}
inline bool operator==(const ConditionAnswer& a, const ConditionAnswer& b) {
  return a.is_true == b.is_true && a.is_new == b.is_new;
}
inline constexpr ConditionAnswer kNo = {false, false};
inline constexpr ConditionAnswer kFalseButNew = {false, true};
inline constexpr ConditionAnswer kOld = {true, false};
inline constexpr ConditionAnswer kNew = {true, true};

}  // namespace feltmaster
