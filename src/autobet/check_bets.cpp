#include "autobet/check_bets.h"

#include <string_view>
#include <unordered_set>

#include "autobet/script_lines.h"
#include "autobet/vocabulary.h"

namespace feltmaster {

namespace {

constexpr std::int32_t kHelpOnLabels = 554;
constexpr std::int32_t kHelpOnStructure = 556;
constexpr std::int32_t kLastContinuation = 9;  // one kind behind the last that is written
constexpr std::string_view kNotAllowed =
    "This is not allowed and must be resolved before you can run this auto-betting script.";

std::optional<StructureFault> LabelFault(const std::vector<ScriptLine>& script) {
  const auto fault = [](std::size_t index, std::string text, std::string title) {
    return StructureFault{index + 1, index + 1, std::move(text), std::move(title), kHelpOnLabels};
  };
  std::unordered_set<std::string_view> names;  // as they are written
  std::unordered_set<std::string> keys;        // as jumps find them
  for (std::size_t i = 0; i < script.size(); ++i) {
    if (script[i].LineKind != kLabelLine) continue;
    if (!names.insert(script[i].LineName).second) {
      return fault(i,
                   "The Label shown at the top of the screen appears more than once in your list.",
                   "Duplicate Label");
    }
    keys.insert(ScriptNameKey(script[i].LineName));
  }
  for (std::size_t i = 0; i < script.size(); ++i) {
    if (IsJump(script[i]) && !keys.contains(ScriptNameKey(script[i].LineName))) {
      return fault(i,
                   "The \"Go to\" statement shown at the top of the screen references a Label that "
                   "does not appear in your list.",
                   "Missing Label");
    }
  }
  for (std::size_t i = 0; i + 1 < script.size(); ++i) {
    const std::int32_t next = script[i + 1].LineKind;
    if (script[i].LineKind == kLabelLine &&
        (next == kConditionLine || (next >= kAndWhen && next <= kLastContinuation))) {
      return fault(i, "The Label shown at the top of the screen appears between Condition Lines.",
                   "Label Position");
    }
  }
  return std::nullopt;
}

// What the line before has started or built.
enum class State {
  kNothing,
  kConditionStarted,
  kConditionBuilt,
  kThenStarted,
  kThenBuilt,
  kElseStarted,
  kElseBuilt,
  kDoThisStarted,
  kDoThisBuilt,
};

struct FaultText {
  std::string_view text;
  std::string_view title;
};
constexpr FaultText kNoActions = {
    "The Start Action line shown at the top of the screen is not followed by an Action line.",
    "Missing Action Lines"};
constexpr FaultText kNoConditions = {
    "The Start Condition line shown at the top of the screen is not followed by a Condition line.",
    "Missing Condition Lines"};
constexpr FaultText kNoActionBlock = {
    "The Condition block shown at the top of the screen has no Action block to go with it.",
    "Missing Action Lines"};
constexpr FaultText kNoStartCondition = {
    "The Condition line shown at the top of the screen is not associated with a Start Condition.",
    "Missing Start Condition"};
constexpr FaultText kNoStartAction = {
    "The Action line shown at the top of the screen is not associated with a Start Action.",
    "Missing Start Action"};
constexpr FaultText kNoPrecedingCondition = {
    "The Start Condition line shown at the top of the screen is not preceded by a Condition line.",
    "Missing Condition Lines"};
constexpr FaultText kNoConditionBlock = {
    "The Action block shown at the top of the screen is not immediately preceded by a Condition "
    "block.",
    "Missing Condition Lines"};
constexpr FaultText kNoThenBlock = {
    "The \"else\" Start Action line shown at the top of the screen must be immediately preceded by "
    "a \"then\" block of action lines.",
    "Missing Action Lines"};

// Walks the statements of a script.
class StatementTest {
 public:
  std::optional<StructureFault> Run(const std::vector<ScriptLine>& script) {
    for (const ScriptLine& line : script) {
      ++line_;
      if (line.LineKind == kLabelLine || line.LineKind == kCommentLine) continue;
      if (auto fault = Take(line.LineKind)) return fault;
    }
    return Unfinished();
  }

 private:
  using Fault = std::optional<StructureFault>;

  Fault Take(std::int32_t kind) {
    if (kind == kConditionLine) return TakeCondition();
    if (kind == kActionLine) return TakeAction();
    if (state_ == State::kConditionStarted || InStartedActions()) return Unfinished();
    switch (kind) {
      case kWhen:
      case kWhile:
        if (state_ == State::kConditionBuilt) return Unfinished();
        return Start(State::kConditionStarted);
      case kThen:
        shown_ = line_;
        if (state_ != State::kConditionBuilt) return FaultAt(line_, kNoConditionBlock);
        return Start(State::kThenStarted);
      case kElse:
        shown_ = line_;
        if (state_ != State::kThenBuilt) return FaultAt(line_, kNoThenBlock);
        return Start(State::kElseStarted);
      case kDoThis:
        if (shown_ != 1 && !InBuiltActions()) return FaultAt(started_, kNoActionBlock);
        shown_ = line_;
        return Start(State::kDoThisStarted);
      default:
        break;
    }
    if (kind >= kAndWhen && kind <= kLastContinuation) {
      if (state_ != State::kConditionBuilt) return FaultAt(line_, kNoPrecedingCondition);
      return Start(State::kConditionStarted);
    }
    return std::nullopt;
  }

  Fault TakeCondition() {
    if (state_ == State::kConditionStarted || state_ == State::kConditionBuilt) {
      state_ = State::kConditionBuilt;
      return std::nullopt;
    }
    if (state_ == State::kThenStarted) return FaultAt(started_, kNoActions);
    shown_ = line_;
    return FaultAt(line_, kNoStartCondition);
  }

  Fault TakeAction() {
    switch (state_) {
      case State::kThenStarted:
        state_ = State::kThenBuilt;
        return std::nullopt;
      case State::kElseStarted:
        state_ = State::kElseBuilt;
        return std::nullopt;
      case State::kDoThisStarted:
        state_ = State::kDoThisBuilt;
        return std::nullopt;
      case State::kThenBuilt:
      case State::kElseBuilt:
      case State::kDoThisBuilt:
        return std::nullopt;
      case State::kConditionStarted:
        return FaultAt(started_, kNoConditions);
      default:
        break;
    }
    shown_ = line_;
    return FaultAt(line_, kNoStartAction);
  }

  Fault Start(State state) {
    state_ = state;
    started_ = line_;
    return std::nullopt;
  }

  // The fault of a block that ends here.
  Fault Unfinished() const {
    if (state_ == State::kConditionStarted) return FaultAt(started_, kNoConditions);
    if (state_ == State::kConditionBuilt) return FaultAt(started_, kNoActionBlock);
    if (InStartedActions()) return FaultAt(started_, kNoActions);
    return std::nullopt;
  }

  bool InStartedActions() const {
    return state_ == State::kThenStarted || state_ == State::kElseStarted ||
           state_ == State::kDoThisStarted;
  }
  bool InBuiltActions() const {
    return state_ == State::kThenBuilt || state_ == State::kElseBuilt ||
           state_ == State::kDoThisBuilt;
  }

  Fault FaultAt(std::size_t line, const FaultText& fault) const {
    return StructureFault{line, shown_, std::string(fault.text), std::string(fault.title),
                          kHelpOnStructure};
  }

  State state_ = State::kNothing;
  std::size_t line_ = 0;
  std::size_t started_ = 0;  // the start line of the state
  std::size_t shown_ = 1;    // the last start of an action block
};

}  // namespace

std::optional<StructureFault> FindStructureFault(const std::vector<ScriptLine>& script) {
  if (auto fault = LabelFault(script)) return fault;
  return StatementTest().Run(script);
}

int CheckBets(Game& game) {
  game.MsgText.clear();
  const std::optional<StructureFault> fault = FindStructureFault(game.ScriptLines);
  if (!fault) return 0;
  game.MsgText = fault->text + "\n\n" + std::string(kNotAllowed);
  game.MsgTitle = fault->title;
  game.MsgHelpId = fault->help;
  for (std::size_t i = 0; i < game.ScriptLines.size(); ++i) {
    game.ScriptLines[i].LineSelected = i + 1 == fault->shown;
  }
  return static_cast<int>(fault->shown);
}

}  // namespace feltmaster
