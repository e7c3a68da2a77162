#include "autobet/run_script.h"

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "autobet/actions.h"
#include "autobet/compiled_script.h"
#include "autobet/conditions.h"
#include "autobet/message.h"
#include "autobet/output_file.h"
#include "surface/surface.h"

namespace feltmaster {
namespace {

constexpr std::int32_t kLinesPerYield = 500;
constexpr double kShortestRun = 0.3;  // seconds
constexpr std::int32_t kAbortHelp = 550;

bool ContinuesBlock(std::int32_t kind) {
  return kind == kAndWhen || kind == kAndWhile;
}

// --- The step display ----------------------------------------------------------------------------

bool Stepping(const Game& game) {
  return game.ShowSteps && !game.HyperDriveActive;
}

void Report(Game& game, std::string_view status) {
  if (!Stepping(game) || status.empty()) return;
  const std::string text = "Status: " + std::string(status);
  StepRequest request;
  request.line = game.CurrentLine;
  request.status = text;
  const auto index = static_cast<std::size_t>(game.CurrentLine) - 1;
  if (index < game.ScriptLines.size()) request.text = game.ScriptLines[index].LineText;
  if (!game.surface->ShowStep(request)) {
    game.ShowSteps = false;
    EndPacing(game);
  }
}

std::string_view ConditionStatus(const ConditionAnswer& answer) {
  if (!answer.is_true) return "Condition is false. ";
  return answer.is_new ? "Condition is true (just now occurred). "
                       : "Condition is true (not a new occurrance). ";
}

std::string_view SectionStatus(const ScriptRun& run) {
  constexpr std::string_view kNeedsNews =
      "This block of conditions will be true if each line is true and at least one has just "
      "occurred.";
  constexpr std::string_view kNeedsTruth =
      "This block of conditions will be true if each line is true.";
  constexpr std::string_view kSkipped =
      "Since some conditions are already false, this block will be skipped. ";
  switch (run.BlockKind) {
    case kWhen:
    case kOrWhen:
      return kNeedsNews;
    case kWhile:
    case kOrWhile:
      return kNeedsTruth;
    case kAndWhen:
      return run.BlockTrue ? kNeedsNews : kSkipped;
    case kAndWhile:
      return run.BlockTrue ? kNeedsTruth : kSkipped;
    case kXorWhen:
      return "This block of conditions will be true if each line is true and at least one has just "
             "occurred.  The xor condition will be then be evaluated with it and the previous "
             "block. ";
    case kXorWhile:
      return "This block of conditions will be true if each line is true. The xor condition will "
             "be then be evaluated with it and the previous block. ";
    case kThen:
      return run.OverallTrue
                 ? "Since the overall conditions were true, the next actions will be taken. "
                 : "Since the overall conditions were false, the next actions will be skipped. ";
    case kElse:
      return run.OverallTrue
                 ? "Since the previous actions were taken, the next actions will be skipped. "
                 : "Since the previous actions were skipped, the next actions will be taken. ";
    case kDoThis:
      return "This block of actions will be executed directly. ";
    case kLabelLine:
      return "\"Go to\" or \"GoSub\" statement has caused a jump to this label. ";
    default:
      return {};
  }
}

// --- Blocks --------------------------------------------------------------------------------------

[[gnu::always_inline]] inline void OpenSection(Game& game, ScriptRun& run, std::int32_t kind) {
  run.BlockKind = kind;
  run.BlockHasNew = false;
  if (kind == kXorWhen || kind == kXorWhile) run.XorKind = kind;
  if (Stepping(game)) [[unlikely]]
    Report(game, SectionStatus(run));
}

enum BlockVerdict : std::uint8_t { kBlockNotNew, kBlockTrue, kBlockFalse };
enum XorVerdict : std::uint8_t { kNoXor, kXorByPrevious, kXorFalse, kXorBothTrue, kXorByBlock };

constexpr std::array<std::string_view, 3> kBlockStatus = {
    "All the conditions in the block were true, but none have just now occurred - so the block "
    "is false. ",
    "All the conditions in the block were true. ",
    "At least one condition was false, so the block is false. "};
constexpr std::array<std::string_view, 5> kXorStatus = {
    "", "However, the previous block was true, therefore the xor condition is true. ",
    "And since the previous block was also false, the xor condition is false. ",
    "However, the previous block was also true, therefore the xor condition is false. ",
    "And since the previous block was false, the xor condition is also true. "};

// Decides the block that a line of that kind ends.
[[gnu::always_inline]] inline void CloseBlock(Game& game, ScriptRun& run, std::int32_t kind) {
  BlockVerdict block = kBlockFalse;
  XorVerdict by_xor = kNoXor;
  if (run.BlockTrue && !run.BlockHasNew && OpensWhen(run.BlockKind)) {
    block = kBlockNotNew;
    run.BlockTrue = false;
    if (run.XorKind == kXorWhen) {
      by_xor = run.PrevBlockTrue ? kXorByPrevious : kXorFalse;
      if (run.PrevBlockTrue) run.OverallTrue = true;
    } else {
      run.PrevBlockTrue = false;
    }
  } else if (run.BlockTrue) {
    block = kBlockTrue;
    if (run.XorKind == 0) {
      run.PrevBlockTrue = true;
    } else if (!ContinuesBlock(kind)) {
      by_xor = run.PrevBlockTrue ? kXorBothTrue : kXorByBlock;
      if (!run.PrevBlockTrue) run.OverallTrue = true;
      run.PrevBlockTrue = false;
    }
  } else if (run.XorKind != 0) {
    by_xor = run.PrevBlockTrue ? kXorByPrevious : kXorFalse;
    if (run.PrevBlockTrue) run.OverallTrue = true;
  } else {
    run.PrevBlockTrue = false;
  }
  run.XorKind = 0;
  const bool keeps_previous = ContinuesBlock(kind) || kind == kXorWhen || kind == kXorWhile;
  if (run.PrevBlockTrue && !keeps_previous) run.OverallTrue = true;
  if (run.OverallTrue && kind != kThen) return;
  if (Stepping(game)) [[unlikely]] {
    Report(game, std::string(kBlockStatus[block]) + std::string(kXorStatus[by_xor]));
  }
  OpenSection(game, run, kind);
}

// What comes next: the line behind, or, when none of the like lines that follow can do anything,
// the line behind them; or a jump or a Return leads elsewhere.
enum class Next : std::uint8_t { kLine, kPassLikeLines, kElsewhere };

Next AskCondition(Game& game, ScriptRun& run, const CompiledLine& line) {
  if (run.OverallTrue || !run.BlockTrue) return Next::kPassLikeLines;
  const ConditionAnswer answer = EvaluateCondition(game, line, run.BlockKind);
  run.BlockTrue = answer.is_true;
  run.LineNew = answer.is_new;
  run.BlockHasNew |= answer.is_new;
  if (Stepping(game)) Report(game, ConditionStatus(answer));
  return run.BlockTrue ? Next::kLine : Next::kPassLikeLines;
}

Next TakeAction(Game& game, ScriptRun& run, const CompiledLine& line) {
  if (run.BlockKind == kThen && !run.OverallTrue) return Next::kPassLikeLines;
  if (run.BlockKind == kElse && run.OverallTrue) return Next::kPassLikeLines;
  if (!line.continues_group) {
    run.RunValue = MoneyAmount();
    run.RunCount = 0;
  }
  ExecuteAction(game, line, run);
  const bool leads_elsewhere = run.PendingLine != 0 || run.Arrived != Arrival::kInOrder;
  const Next next = leads_elsewhere ? Next::kElsewhere : Next::kLine;
  if (!Stepping(game)) return next;
  if (line.code == kActionReturn && run.Arrived != Arrival::kToReturn) {
    Report(game,
           "This statement will be ignored since it was not encountered as a result of a \"GoSub\" "
           "statement.  Processing will resume with the next line in order.");
  } else {
    Report(game, "Action taken.");
  }
  return next;
}

Next ProcessLine(Game& game, ScriptRun& run, const CompiledLine& line) {
  switch (line.kind) {
    case kLabelLine:
      Report(game, "This label was encountered normally.");
      break;
    case kWhen:
    case kWhile:
      run.OverallTrue = false;
      run.PrevBlockTrue = false;
      run.BlockTrue = true;
      OpenSection(game, run, line.kind);
      break;
    case kAndWhen:
    case kAndWhile:
      if (run.BlockTrue && !run.LineNew && OpensWhen(run.BlockKind)) {
        CloseBlock(game, run, line.kind);
      } else {
        OpenSection(game, run, line.kind);
      }
      break;
    case kOrWhen:
    case kOrWhile:
    case kXorWhen:
    case kXorWhile:
    case kXorWhile + 1:  // no list offers it; a file that holds it opens a block of no kind
      if (run.OverallTrue) break;
      CloseBlock(game, run, line.kind);
      run.BlockTrue = true;
      break;
    case kConditionLine:
      return AskCondition(game, run, line);
    case kThen:
      CloseBlock(game, run, kThen);
      return run.OverallTrue ? Next::kLine : Next::kPassLikeLines;
    case kElse:
      OpenSection(game, run, kElse);
      return run.OverallTrue ? Next::kPassLikeLines : Next::kLine;
    case kDoThis:
      OpenSection(game, run, kDoThis);
      break;
    case kActionLine:
      return TakeAction(game, run, line);
    case kCommentLine:
      return Next::kPassLikeLines;
    default:
      break;
  }
  return Next::kLine;
}

// --- The run -------------------------------------------------------------------------------------

// Lets events through for each time that the count of lines has come to `yield_at`. False when the
// player has interrupted the script.
bool GoesOn(Game& game, std::int32_t lines, std::int32_t& yield_at) {
  while (lines >= yield_at && game.AutoBetRunning) {
    yield_at += kLinesPerYield;
    game.surface->LetEventsThrough();
  }
  return game.AutoBetRunning;
}

// Goes to where the action on line `at` leads: behind the label, or behind the Gosub that called.
// Comments on the way do nothing. False when it was interrupted.
[[gnu::noinline]] bool GoElsewhere(Game& game, ScriptRun& run, const CompiledScript& script,
                                   std::int32_t& at, std::int32_t& yield_at) {
  if (run.PendingLine == 0) {
    ++at;
  } else {
    yield_at -= at;
    at = std::exchange(run.PendingLine, 0);
    run.Arrived = Arrival::kByJump;
  }
  while (at <= static_cast<std::int32_t>(script.lines.size())) {
    game.CurrentLine = at;
    if (!GoesOn(game, at, yield_at)) return false;
    const CompiledLine& line = script.lines[static_cast<std::size_t>(at) - 1];
    if (line.kind == kCommentLine) {
      at = line.pass_to;
      continue;
    }
    if (std::exchange(run.Arrived, Arrival::kInOrder) == Arrival::kByJump) {
      OpenSection(game, run, kLabelLine);
    } else {
      const std::int32_t caller = run.Returns.Pop();
      yield_at += caller - at;
      game.CurrentLine = at = caller;
      Report(game,
             "A \"Return\" statement has caused a jump back to this \"GoSub\" statement.  "
             "Processing will resume with the next line in order.");
    }
    ++at;
    break;
  }
  return true;
}

// Returns false when it was interrupted. Lines are counted by where the run stands, so a jump moves
// the mark of the next yield instead: it counts as many lines as if the script were searched for
// the label from its first line.
bool WalkScript(Game& game, const CompiledScript& script) {
  ScriptRun run;
  const CompiledLine* const lines = script.lines.data();
  const auto count = static_cast<std::int32_t>(script.lines.size());
  std::int32_t yield_at = kLinesPerYield;
  std::int32_t at = 1;
  while (at <= count) {
    game.CurrentLine = at;
    if (!GoesOn(game, at, yield_at)) return false;
    const CompiledLine& line = lines[at - 1];
    switch (ProcessLine(game, run, line)) {
      case Next::kLine:
        ++at;
        break;
      case Next::kPassLikeLines:
        at = line.pass_to;
        break;
      case Next::kElsewhere:
        if (!GoElsewhere(game, run, script, at, yield_at)) return false;
        break;
    }
  }
  game.CurrentLine = at;
  return GoesOn(game, at - 1, yield_at);
}

void Abort(Game& game, const ScriptFailure& failure) {
  const std::string error = failure.description + ", Error #" + std::to_string(failure.number);
  game.LastErrorText = error + " occurred, at: Run Auto-Bet";
  game.KeepRolling = false;
  if (game.HyperDriveActive) game.HyperDriveStopText = kStoppedByScriptError;
  FlushScriptOutput(game);
  Tell(game, "Auto-Bet Abort",
       "The following error has caused Auto-Betting to abort at line #" +
           std::to_string(game.CurrentLine) + ":\n\n" + error +
           "\n\nPress help for more information.",
       kButtonOk | kButtonHelp, kAbortHelp);
}

// Whether the script came to its end.
bool Walk(Game& game, const CompiledScript& script) {
  try {
    const bool ended = WalkScript(game, script);
    if (!game.HyperDriveActive || !game.KeepRolling) {
      if (const std::error_code error = FlushScriptOutput(game)) throw FileFailure(error);
    }
    return ended;
  } catch (const MoneyOverflow&) {
    Abort(game, OverflowFailure());
  } catch (const MoneyDivisionByZero&) {
    Abort(game, DivisionFailure());
  } catch (const ScriptFailure& failure) {
    Abort(game, failure);
  }
  return false;
}

void ShowBanner(Game& game) {
  if (game.HyperDriveActive) return;
  if (game.HotKeyRunning) {
    game.surface->ShowBanner("Hot-Key");
  } else if (!game.ShowSteps) {
    game.surface->ShowBanner("Auto-Betting");
  }
}

// The player should see that the script has run. A clock that reads less has passed midnight.
void Pace(Game& game) {
  const double elapsed = game.surface->SecondsSinceMidnight() - game.ScriptStartTime;
  constexpr bool kGoesOn = true;
  if (elapsed >= 0 && elapsed < kShortestRun) game.surface->Wait(kShortestRun - elapsed, kGoesOn);
}

// Stands in the game for a form that is in use. It owns nothing, and being empty it suits no
// script.
const CompiledScript kTaken;

// The compiled script while it runs. A dialog that a line opens may let the player change the
// script, or open another game: the form in use stays with the run, and goes back to the game only
// if nobody has touched it there. To share it instead would cost every roll two locked counts.
class ScriptInUse {
 public:
  explicit ScriptInUse(Game& game) : game_(game) {
    CompileScript(game);
    script_ = std::exchange(game.Compiled, Taken());
  }
  ~ScriptInUse() {
    if (game_.Compiled == Taken()) game_.Compiled = std::move(script_);
  }
  ScriptInUse(const ScriptInUse&) = delete;
  ScriptInUse& operator=(const ScriptInUse&) = delete;

  const CompiledScript& Lines() const { return *script_; }

 private:
  static std::shared_ptr<const CompiledScript> Taken() {
    return {std::shared_ptr<const CompiledScript>(), &kTaken};
  }

  Game& game_;
  std::shared_ptr<const CompiledScript> script_;
};

}  // namespace

void RunScript(Game& game) {
  if (game.ScriptLines.empty()) return;
  const ScriptInUse script(game);
  game.AutoBetRunning = true;
  ShowBanner(game);
  game.ScriptStartTime = game.surface->SecondsSinceMidnight();
  game.MsgAnswer = kAnswerOk;
  const bool ended = Walk(game, script.Lines());
  game.AutoBetRunning = false;
  if (ended && game.HyperDriveActive) return;

  Pace(game);
  game.AutoBetRunning = false;
  game.RefreshBetAmounts = true;
  if (game.HyperDriveActive) return;
  game.surface->ShowBanner({});
  game.surface->TableChanged(kChangedAll);
}

void RunInitialisationCycle(Game& game) {
  game.ScriptNeedsInit = true;
  RunScript(game);
  game.ScriptNeedsInit = false;
}

}  // namespace feltmaster
