#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

#include "autobet/compiled_script.h"
#include "engine/place_bet.h"
#include "game/game.h"

namespace feltmaster {

// What ends a run before its time. Thrown by actions, told to the player by RunScript.
struct ScriptFailure {
  std::int32_t number = 0;
  std::string description;
};
ScriptFailure OverflowFailure();
ScriptFailure DivisionFailure();
ScriptFailure FileFailure(const std::error_code& error);

// The lines of the Gosubs that have not returned, the latest on top. A script that calls itself
// without end fails here before it fills the memory.
class ReturnStack {
 public:
  bool Empty() const { return depth_ == 0; }
  void Push(std::int32_t line);
  std::int32_t Pop();

 private:
  static constexpr std::size_t kInline = 32;

  std::size_t depth_ = 0;
  std::array<std::int32_t, kInline> first_;  // as many as depth_ tells
  std::vector<std::int32_t> rest_;
};

// How the run has come to the line at hand.
enum class Arrival : std::uint8_t {
  kInOrder,
  kByJump,    // it is the label of a Go to or Gosub
  kToReturn,  // a Return is pending: the run goes back instead
};

// The control state of one run.
struct ScriptRun {
  bool BlockTrue = false;
  bool LineNew = false;
  bool BlockHasNew = false;
  bool OverallTrue = false;
  bool PrevBlockTrue = false;
  Arrival Arrived = Arrival::kInOrder;
  std::int32_t XorKind = 0;      // kXorWhen or kXorWhile while such a block is open
  std::int32_t BlockKind = 0;    // kind of the line that opened the block or section
  std::int32_t PendingLine = 0;  // where a jump goes; 0 when none has been asked for
  ReturnStack Returns;

  // The memory of a group of like action lines.
  MoneyAmount RunValue;
  std::int32_t RunCount = 0;
  MoneyAmount RunBase;
};

// Each slot of the line's target, one after the other; and a line that works on no target.
void ExecuteOnTarget(Game& game, const CompiledLine& line, ScriptRun& run);
void ExecuteCommand(Game& game, const CompiledLine& line, ScriptRun& run);

// Carries out an action line, CurrentLine. May throw MoneyOverflow, MoneyDivisionByZero and
// ScriptFailure.
inline void ExecuteAction(Game& game, const CompiledLine& line, ScriptRun& run) {
  if (line.bet_slot != 0) {  // which most lines do
    BetAnew(game, line.bet_slot, line.amount);
  } else if (line.works_on_target) {
    ExecuteOnTarget(game, line, run);
  } else {
    ExecuteCommand(game, line, run);
  }
}

}  // namespace feltmaster
