#include "autobet/line_meaning.h"

#include <array>
#include <span>
#include <string_view>

#include "autobet/vocabulary.h"
#include "base/number_format.h"
#include "base/text.h"

namespace feltmaster {

namespace {

// In the texts stands {s} for what a condition is about, {n} for its number or amount, {t} for what
// it is compared with or an action works on, {v} for a value and {q} for a name.

struct Meaning {
  std::int32_t code = 0;
  std::string_view text;
  std::string_view text_of_zero = {};  // where 0 means each time
};

// By LineKind.
constexpr auto kStarts = std::to_array<Meaning>({
    {kWhen,
     "Starts a statement. Its actions run on the roll that makes the conditions below it come "
     "true."},
    {kWhile,
     "Starts a statement. Its actions run on every roll on which the conditions below it are "
     "true."},
    {kAndWhen, "The conditions below must be true too, and one of them must just have come true."},
    {kAndWhile, "The conditions below must be true too."},
    {kOrWhen, "Or else the conditions below must just have come true."},
    {kOrWhile, "Or else the conditions below must be true."},
    {kXorWhen, "Either what stands above or the conditions below, just come true, but not both."},
    {kXorWhile, "Either what stands above or the conditions below, but not both."},
    {kThen, "The actions below run when the statement is true."},
    {kElse, "The actions below run when the statement is not true."},
    {kDoThis, "The actions below run on every roll."},
});

// By LineSubject, of the conditions that are complete without a comparison.
constexpr auto kPlainConditions = std::to_array<Meaning>({
    {kInitializing, "True on the first run after the script was loaded or changed."},
    {kOnEachRoll, "True once after each roll."},
    {kNextIsComeOut, "True while there is no point, so that the next roll is a come-out roll."},
    {kNextIsNotComeOut, "True while a point stands."},
    {kLastWasComeOut, "True when the roll just made was a come-out roll."},
    {kLastWasNotComeOut, "True when a point stood at the roll just made."},
    {kAnswerWasYes, "True when the last question was answered with Yes."},
    {kAnswerWasNo, "True when the last question was answered with No."},
    {kOnEachPass,
     "True on each roll that makes a pass: a 7 on the come-out, or a point made other than 2, 3 or "
     "12."},
    {kOnEachMiss,
     "True on each roll that is a miss: a 7 against a point, or a point of 2, 3 or 12 that is "
     "made."},
    {kFlagSubject, "True while the flag {q} has this value; new when the flag has changed."},
    {kAnyFlag, "True while any flag has this value."},
    {kAllFlags, "True while all flags have this value."},
    {kPointEstablished, "True while the point is {w}; new on the roll that establishes it."},
    {kPointNotEstablished, "True while the point is not {w}."},
    {kPointDecidedFor, "True on the roll that makes a point that was {w}."},
    {kPointDecidedAgainst, "True on the 7 that ends a point that was {w}."},
    {kPointDecided, "True on the roll that decides a point that was {w}, for or against."},
});

// By LineCode of a condition.
constexpr auto kComparisons = std::to_array<Meaning>({
    {kHasWon, "True while the run of wins of {s} is {n} long.",
     "True on each roll on which {s} wins."},
    {kHasWonMore, "True while {s} has won more than {n} times in a row."},
    {kHasNotWon, "True while the run of wins of {s} is not {n} long.",
     "True on each roll on which {s} does not win."},
    {kHasWonLess, "True while {s} has won fewer than {n} times in a row."},
    {kHasLost, "True while the run of losses of {s} is {n} long.",
     "True on each roll on which {s} loses."},
    {kHasLostMore, "True while {s} has lost more than {n} times in a row."},
    {kHasNotLost, "True while the run of losses of {s} is not {n} long.",
     "True on each roll on which {s} does not lose."},
    {kHasLostLess, "True while {s} has lost fewer than {n} times in a row."},
    {kHasRolled, "True while {s} has been rolled {n} times since its count was reset.",
     "True on each roll of {s}."},
    {kHasRolledMore,
     "True while {s} has been rolled more than {n} times since its count was reset."},
    {kHasNotRolled,
     "True while {s} has been rolled more or less often than {n} times since its count was reset.",
     "True on each roll other than {s}."},
    {kHasRolledLess,
     "True while {s} has been rolled fewer than {n} times since its count was reset.",
     "Never true: nothing can be rolled fewer than 0 times."},
    {kHasRolledInLast, "True while {s} has been rolled within the last {n} rolls."},
    {kHasNotRolledInLast, "True while {s} has not been rolled for {n} rolls."},
    {kEqualAmount, "True while {s} stands at {n}."},
    {kNotEqualAmount, "True while {s} stands at something else than {n}."},
    {kGreaterAmount, "True while {s} stands above {n}."},
    {kNotGreaterAmount, "True while {s} stands at {n} or below."},
    {kLessAmount, "True while {s} stands below {n}."},
    {kNotLessAmount, "True while {s} stands at {n} or above."},
    {kEqualThing, "True while {s} is as high as {t}."},
    {kNotEqualThing, "True while {s} is not as high as {t}."},
    {kGreaterThing, "True while {s} is higher than {t}."},
    {kNotGreaterThing, "True while {s} is at most as high as {t}."},
    {kLessThing, "True while {s} is lower than {t}."},
    {kNotLessThing, "True while {s} is at least as high as {t}."},
    {kNumberIs, "True while {s} count {n}."},
    {kNumberMore, "True while {s} count more than {n}."},
    {kNumberLess, "True while {s} count fewer than {n}."},
    {kIsNamed, "True while the name is {q}."},
    {kIsNotNamed, "True while the name is not {q}."},
});

// By the tens of LineCode; {o} is the operand.
constexpr auto kVerbs = std::to_array<Meaning>({
    {kBet, "Makes the bet on {t} {o}."},
    {kAdd, "Adds {o} to {t}."},
    {kSubtract, "Takes {o} off {t}."},
    {kMultiply, "Multiplies {t} by {o}."},
    {kDivide, "Divides {t} by {o}."},
});
// By its last digit.
constexpr auto kOperands = std::to_array<Meaning>({
    {kFormAmount, "{n}"},
    {kFormPercent, "{n} % of {v}"},
    {kFormPercentOfLast, "{n} % of what {v} was before the roll"},
    {kFormHighest, "the highest value of this group of lines, here {v}"},
    {kFormHighestOfLast, "the highest value of this group of lines, here {v} before the roll"},
    {kFormLowest, "the lowest value of this group of lines, here {v}"},
    {kFormLowestOfLast, "the lowest value of this group of lines, here {v} before the roll"},
    {kFormAverage, "the average of this group of lines, here {v}"},
    {kFormAverageOfLast, "the average of this group of lines, here {v} before the roll"},
});

// By LineCode, beside the verbs.
constexpr auto kOtherActions = std::to_array<Meaning>({
    {kActionBuyPlace, "Turns {t} into a Buy bet of the same amount."},
    {kActionCallOff, "Calls {t} OFF: it neither wins nor loses until it is called ON."},
    {kActionCallOn, "Calls {t} ON: it works on every roll."},
    {kActionResetStreaks, "The runs of wins and losses of {t} begin anew."},
    {kActionResetRolls, "The counts of {t} that conditions read begin anew."},
    {kActionStop, "Ends Auto-Rolling and Hyper-Drive after this roll."},
    {kActionGoTo, "The script goes on at the label {q}."},
    {kActionGosub, "The script goes on at the label {q} until a Return brings it back here."},
    {kActionReturn, "Back to the line behind the last Gosub."},
    {kActionSetFlag, "Gives the flag {q} this value."},
    {kActionSetAllFlags, "Gives all flags this value."},
    {kActionRound, "Rounds {t} {v} {n}."},
    {kActionNameStack, "Gives this Chip-Stack the name {q}."},
    {kActionNameStackReference,
     "Gives the Chip-Stack whose number lies in this Chip-Stack the name {q}."},
    {kActionClearStackNames, "Takes the names of all Chip-Stacks away."},
    {kActionMessage, "Shows a message. Message lines that follow each other make one."},
    {kActionMessageValue, "Shows {v} in a message, with the message lines beside it."},
    {kActionQuestion, "Asks a question; conditions read the answer."},
    {kActionQuestionValue, "Asks a question that shows {v}, with the question lines beside it."},
    {kActionInput, "Asks for an amount and makes it the bet on {t}."},
    {kActionPlaySound, "Plays the sound {q} and waits for its end."},
    {kActionActivateProbability, "The dice take the probabilities of the file {q}."},
    {kActionDeactivateProbability, "The dice are fair again."},
    {kActionShowSteps, "From here on the script halts at each step and tells what it does."},
    {kActionSetWinRule, "From now on a won bet is handled so: {t}."},
    {kActionSetLossRule, "From now on a lost bet is handled so: {t}."},
    {kActionSetFullOdds, "Whether full odds are taken by themselves."},
    {kActionWithdraw, "Brings {n} from the ATM to the bankroll."},
    {kActionWithdrawPercent, "Brings {n} % of {v} from the ATM to the bankroll."},
    {kActionDeposit, "Takes {n} from the bankroll to the ATM."},
    {kActionDepositPercent, "Takes {n} % of {v} from the bankroll to the ATM."},
    {kActionSelectRng, "The dice come from generator number {n}, 1 to 5."},
    {kActionSelectRngValue, "The dice come from the generator with the number {v}, 1 to 5."},
    {kActionSelectRngLastValue,
     "The dice come from the generator with the number that {v} was before the roll, 1 to 5."},
    {kActionSeedClock, "Starts the generator from the clock."},
    {kActionSeedNumber, "Starts the generator from the number {n}, so that its rolls repeat."},
    {kActionSeedValue, "Starts the generator from {v}."},
    {kActionSeedLastValue, "Starts the generator from what {v} was before the roll."},
    {kActionOpenClear, "Opens the file {q} for output and empties it."},
    {kActionOpenAppend, "Opens the file {q} for output behind what it holds."},
    {kActionOutputMessage, "Writes this text to the output file, and a tab unless it ends in ;."},
    {kActionOutputValue, "Writes {v} and a tab to the output file."},
    {kActionOutputLastValue, "Writes what {v} was before the roll, and a tab, to the output file."},
    {kActionOutputNewLine, "Ends the line in the output file."},
    {kActionCloseFile, "Closes the output file."},
    {kActionResetTable, "Logs the game and begins a new one."},
    {kActionResetKeepStacks,
     "Logs the game and begins a new one with the Chip-Stacks as they are."},
});

std::string_view TextOf(std::span<const Meaning> meanings, std::int32_t code, bool zero = false) {
  for (const Meaning& row : meanings) {
    if (row.code == code) return zero && !row.text_of_zero.empty() ? row.text_of_zero : row.text;
  }
  return {};
}

void Replace(std::string& text, std::string_view mark, std::string_view words) {
  for (std::size_t at = text.find(mark); at != std::string::npos;
       at = text.find(mark, at + words.size())) {
    text.replace(at, mark.size(), words);
  }
}

// The caption of a code with the number that belongs to it.
std::string Named(std::string_view caption, std::int32_t code, std::int32_t number) {
  std::string text(Trim(caption));
  if (NeedsStack(code)) return text + ' ' + std::to_string(number);
  if (!NeedsAverage(code)) return text;
  if (number == 0) return text + " of all rolls";
  return text + " of the last " + std::to_string(number) + " rolls";
}
std::string PickName(std::span<const Field> fields, bool values, std::int32_t code,
                     std::int32_t number) {
  for (const Field field : fields) {
    const bool is_value = field == Field::kValue || field == Field::kRounding;
    if (PicksOf(field).empty() || is_value != values) continue;
    if (const PickRow* row = FindPick(PicksOf(field), code)) {
      return Named(row->caption, code, number);
    }
  }
  return {};
}

std::string ConditionMeaning(const ScriptLine& line) {
  const ConditionRow* condition = FindCondition(line.LineSubject);
  if (condition == nullptr) return {};
  std::string text(TextOf(kPlainConditions, line.LineSubject));
  if (text.empty()) text = TextOf(kComparisons, line.LineCode, line.LineAmount == MoneyAmount());
  if (const ComparisonRow* comparison = FindComparison(*condition, line.LineCode)) {
    Replace(text, "{w}", comparison->caption);
    const std::array<Field, 1> fields = {comparison->operand};
    Replace(text, "{t}", PickName(fields, false, line.LineTarget, line.LineTargetStack));
  }
  Replace(text, "{s}", Named(condition->caption, line.LineSubject, line.LineSubjectStack));
  return text;
}

std::string ActionMeaning(const ScriptLine& line) {
  const ActionRow* action = FindAction(line.LineCode);
  if (action == nullptr) return {};
  std::string text(TextOf(kOtherActions, line.LineCode));
  if (line.LineCode >= kFirstVerbCode && line.LineCode <= kLastVerbCode) {
    text = TextOf(kVerbs, line.LineCode / 10);
    Replace(text, "{o}", TextOf(kOperands, line.LineCode % 10));
  }
  Replace(text, "{v}", PickName(action->fields, true, line.LineSubject, line.LineSubjectStack));
  Replace(text, "{t}", PickName(action->fields, false, line.LineTarget, line.LineTargetStack));
  return text;
}

}  // namespace

std::string MeaningOf(const ScriptLine& line) {
  if (line.LineKind == kLabelLine) return "A place to which Go to and Gosub lead.";
  if (line.LineKind == kCommentLine) return "A comment, which does nothing.";
  std::string text(TextOf(kStarts, line.LineKind));
  if (line.LineKind == kConditionLine) text = ConditionMeaning(line);
  if (line.LineKind == kActionLine) text = ActionMeaning(line);
  if (text.empty()) return "A line of no known meaning, which does nothing.";
  Replace(text, "{n}", PlainNumber(line.LineAmount));
  Replace(text, "{q}", '"' + line.LineName + '"');
  return text;
}

}  // namespace feltmaster
