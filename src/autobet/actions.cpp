#include "autobet/actions.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>

#include "autobet/flags.h"
#include "autobet/message.h"
#include "autobet/output_file.h"
#include "autobet/values.h"
#include "base/number_format.h"
#include "base/text.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "engine/amounts.h"
#include "engine/new_game.h"
#include "engine/place_bet.h"
#include "files/games_log.h"
#include "stats/roll_statistics.h"
#include "surface/surface.h"

namespace feltmaster {
namespace {

constexpr const char* kMessageTitle = "Auto-Bet";
constexpr std::int32_t kMessageHelp = 550;
constexpr std::int32_t kAskYesNoOptions = kButtonYes | kButtonNo | kPictureQuestion;
constexpr int kLastStreak = 100;
constexpr std::int32_t kSelectableRngs = 5;

struct ErrorNumber {
  std::errc error;
  std::int32_t number;
};
// The numbers under which the player is told of the system's errors.
constexpr std::array<ErrorNumber, 11> kErrorNumbers = {{
    {std::errc::bad_file_descriptor, 52},
    {std::errc::no_such_file_or_directory, 53},
    {std::errc::io_error, 57},
    {std::errc::no_space_on_device, 61},
    {std::errc::file_too_large, 61},
    {std::errc::too_many_files_open, 67},
    {std::errc::too_many_files_open_in_system, 67},
    {std::errc::permission_denied, 70},
    {std::errc::read_only_file_system, 70},
    {std::errc::is_a_directory, 75},
    {std::errc::not_a_directory, 76},
}};
constexpr std::int32_t kOtherFileError = 75;

void Demand(const std::error_code& error) {
  if (error) throw FileFailure(error);
}

// --- Verbs ---------------------------------------------------------------------------------------

MoneyAmount Operand(Game& game, const CompiledLine& line, std::int32_t form) {
  switch (form) {
    case kFormAmount:
      return line.amount;
    case kFormPercent:
      return PercentOf(game, line.subject_code, line.subject_stack, line.amount);
    case kFormPercentOfLast:
      return PercentOfLast(game, line.subject_code, line.subject_stack, line.amount);
    case kFormHighest:
    case kFormLowest:
    case kFormAverage:
      return ValueOf(game, line.subject_code, line.subject_stack);
    default:
      return LastValueOf(game, line.subject_code, line.subject_stack);
  }
}

// The memory that a group of like lines shares. Gives whether the line acts; the operand becomes
// the best value, or the average, so far.
bool ActsInGroup(std::int32_t verb, std::int32_t form, MoneyAmount slot_amount,
                 MoneyAmount& operand, ScriptRun& run) {
  constexpr MoneyAmount kNone;
  const bool average = form == kFormAverage || form == kFormAverageOfLast;
  if (verb != kBet && (average ? run.RunCount == 0 : run.RunValue == kNone))
    run.RunBase = slot_amount;

  if (average) {
    if (operand <= kNone) return false;
    run.RunValue += operand;
    ++run.RunCount;
    operand = MoneyAmount::FromWhole(run.RunValue.RoundWhole() / run.RunCount);
    return true;
  }
  const bool first = run.RunValue == kNone;
  bool acts = false;
  if (form == kFormHighest || form == kFormHighestOfLast) {
    acts = verb == kBet ? operand > run.RunValue
                        : operand > kNone && (first || operand > run.RunValue);
  } else {
    acts = operand > kNone && (first || operand < run.RunValue);
  }
  if (acts) run.RunValue = operand;
  return acts;
}

void PutBack(Game& game, int slot, MoneyAmount amount) {
  if (IsLayoutBet(slot)) game.TotalOnTable += amount - game.BetAmount[slot];
  game.BetAmount.Set(slot, amount);
}

MoneyAmount FloatingQuotient(MoneyAmount a, MoneyAmount b) {
  return MoneyAmount::FromDouble(a.ToDouble() / b.ToDouble());
}

MoneyAmount WholeQuotient(MoneyAmount a, MoneyAmount b) {
  const std::int64_t divisor = b.RoundWhole();
  if (divisor == 0) throw MoneyDivisionByZero();
  return MoneyAmount::FromWhole(a.RoundWhole() / divisor);
}

void RunVerb(Game& game, const CompiledLine& line, ScriptRun& run, int slot) {
  const std::int32_t verb = line.verb;
  const std::int32_t form = line.form;
  const bool in_group = form >= kFormHighest;
  const MoneyAmount amount = game.BetAmount[slot];
  MoneyAmount operand = Operand(game, line, form);
  if (in_group && !ActsInGroup(verb, form, amount, operand, run)) return;

  switch (verb) {
    case kBet:
      BetAnew(game, slot, operand);
      return;
    case kAdd:
    case kSubtract:
      if (in_group) PutBack(game, slot, run.RunBase);
      game.BetRequest = verb == kAdd ? operand : -operand;
      break;
    case kMultiply:
      game.BetRequest = Product(in_group ? run.RunBase : amount, operand) - amount;
      break;
    default:
      if (in_group) {
        game.BetRequest = WholeQuotient(run.RunBase, operand) - amount;
      } else if (form == kFormAmount && operand == MoneyAmount()) {
        return;
      } else if (form == kFormAmount || operand > MoneyAmount()) {
        game.BetRequest = FloatingQuotient(amount, operand) - amount;
      } else {
        game.BetRequest = operand;
      }
      break;
  }
  PlaceChips(game, slot);
}

void Round(Game& game, const CompiledLine& line, int slot) {
  const MoneyAmount unit = line.amount;
  if (unit == MoneyAmount()) throw MoneyDivisionByZero();
  const MoneyAmount amount = game.BetAmount[slot];
  const MoneyAmount units = FloatingQuotient(amount, unit);
  if (units.IsWhole()) return;
  const MoneyAmount up = unit.Times(units.FloorWhole() + 1) - amount;
  const MoneyAmount down = unit.Times(units.FloorWhole()) - amount;
  switch (line.subject_code) {
    case kRoundUpTo:
      game.BetRequest = up;
      break;
    case kRoundToNearest:
      game.BetRequest = Abs(up) > Abs(down) ? down : up;
      break;
    case kRoundDownTo:
      game.BetRequest = down;
      break;
    default:
      return;
  }
  PlaceChips(game, slot);
}

// --- Messages, questions, input ------------------------------------------------------------------

void DropLast(std::string& text, char mark) {
  if (!text.empty() && text.back() == mark) text.pop_back();
}

// Consecutive lines build one text; the last of them shows it.
void BuildMessage(Game& game, const CompiledLine& line, ScriptRun& run) {
  const bool question = line.code == kActionQuestion || line.code == kActionQuestionValue;
  if (line.starts_text) game.MsgText.clear();
  if (line.code == kActionMessage || line.code == kActionQuestion) {
    game.MsgText += line.text;
  } else {
    run.RunValue += ValueOf(game, line.subject_code, line.subject_stack);
    game.MsgText += FormatMoney(run.RunValue);
    game.MsgText += " ;";
  }
  if (!game.MsgText.empty() && game.MsgText.back() == ';') {
    game.MsgText.pop_back();
  } else {
    game.MsgText += '\n';
  }
  game.MsgTitle = kMessageTitle;
  game.MsgHelpId = kMessageHelp;
  game.MsgOptions = question ? kAskYesNoOptions : kButtonOk | kHideScript;
  if (!line.ends_text) return;
  if (!question && (game.NotifyFlags & kNoticeScript) == 0) return;
  DropLast(game.MsgText, '\n');
  ShowMessage(game);
  if (game.HyperDriveActive) game.KeepRolling = false;
}

void AskForInput(Game& game, const CompiledLine& line, ScriptRun& run) {
  if (line.starts_text) game.MsgText.clear();
  if (game.MsgText.empty()) game.MsgText = "Please enter a value to bet on:  " + line.text;
  DropLast(game.MsgText, '\n');
  game.MsgTitle = kMessageTitle;
  game.MsgHelpId = kMessageHelp;
  game.MsgOptions = kButtonOk | kOneInput;
  ShowMessage(game);
  run.RunValue = game.BetRequest;
}

// --- Files, dice, settings -----------------------------------------------------------------------

void OutputMessage(Game& game, const CompiledLine& line) {
  std::string_view text = line.text;
  const bool open_ended = text.empty() || text.back() != ';';
  if (!open_ended) text.remove_suffix(1);
  Demand(WriteScriptOutput(game, text));
  if (open_ended) Demand(WriteScriptOutput(game, "\t"));
}

void OutputValue(Game& game, MoneyAmount value) {
  game.BetRequest = value;
  Demand(WriteScriptOutput(game, PlainNumber(value) + '\t'));
}

void ActivateProbability(Game& game, const std::string& name) {
  if (LoadProbabilityFile(game, name)) {
    game.UseSkewedProbability = true;
    return;
  }
  if (std::FILE* file = std::fopen(name.c_str(), "rb"); file == nullptr) {
    throw FileFailure({errno, std::generic_category()});
  } else {
    std::fclose(file);
  }
  // It is there, but it is no Probability File: the dice stay as they are.
  Tell(game, "Unable to Open Probability File", game.LastErrorText, kButtonOk | kPictureStop);
  if (game.HyperDriveActive) game.KeepRolling = false;
}

void SelectRng(Game& game, MoneyAmount number) {
  const std::int64_t whole = number.FloorWhole();
  if (whole >= 1 && whole <= kSelectableRngs)
    game.RngSelected = static_cast<std::int32_t>(whole) - 1;
}

void SeedWith(Game& game, MoneyAmount seed) {
  constexpr std::int32_t kSeedGiven = -1;
  game.BetRequest = seed;
  SeedRng(game, kSeedGiven);
}

MoneyAmount ClockSeed(Game& game) {
  constexpr std::int32_t kSmallSeedRng = 2;  // its seeds end at 999,999
  const MoneyAmount clock = MoneyAmount(game.surface->MillisecondClock());
  return game.RngSelected == kSmallSeedRng ? Quotient(clock, MoneyAmount(100)) : clock;
}

void PlaySound(Game& game, const std::string& name) {
  if (!game.AllSoundOff && !game.AutoBetSoundOff && !game.HyperDriveActive)
    game.surface->PlaySound(name, true);
  EndPacing(game);
}

void SetFlags(Game& game, const CompiledLine& line, bool by_name) {
  const bool value = line.amount != MoneyAmount();
  std::vector<ScriptFlag>& flags = game.ScriptFlags;
  const auto known = static_cast<std::size_t>(line.flag);
  if (by_name && line.flag_is_only_one && known < flags.size() &&
      flags[known].FlagName == line.text) {
    SetFlag(game, known, value);
    return;
  }
  for (std::size_t index = 0; index < flags.size(); ++index) {
    if (!by_name || flags[index].FlagName == line.text) SetFlag(game, index, value);
  }
}

void NameStack(Game& game, int stack, const std::string& name) {
  if (stack >= 0 && stack < kStackCount) game.ChipStackName[static_cast<std::size_t>(stack)] = name;
}

void NameReferredStack(Game& game, std::int32_t stack, const std::string& name) {
  if (stack < 0 || stack >= kStackCount) return;
  NameStack(game, ReferredStack(game.BetAmount[kFirstStack + stack]), name);
}

void SetHandling(std::int32_t& rule, std::int32_t choice) {
  constexpr std::int32_t kLastChoice = 5;
  if (choice >= kHandleManually && choice <= kLastChoice) rule = choice;
}

void ResetTable(Game& game, ResetMode mode) {
  LogFinishedGame(game);
  ResetGame(game, mode);
}

// --- Targets -------------------------------------------------------------------------------------

// With the Place bets of covered numbers taken down by themselves, a script does not bring them
// back.
bool IsSpared(const Game& game, const CompiledLine& line, int slot) {
  if (!line.spares_places || !game.AutoRemovePlaceBets ||
      game.BetAmount[kPassLine] == MoneyAmount() || !IsPlace(slot))
    return false;
  const int number_slot = slot - kPlace;
  return NumberOfSlot(number_slot) == game.Point ||
         game.BetAmount[kComePoint + number_slot] != MoneyAmount();
}

template <typename Act>
void ForEachTarget(const Game& game, const CompiledLine& line, Act act) {
  SlotsOf(game, line.target).ForEach([&](int slot) {
    if (!IsSpared(game, line, slot)) act(slot);
  });
}

}  // namespace

ScriptFailure OverflowFailure() {
  return {6, "Overflow"};
}

ScriptFailure DivisionFailure() {
  return {11, "Division by zero"};
}

ScriptFailure FileFailure(const std::error_code& error) {
  const auto row =
      std::find_if(kErrorNumbers.begin(), kErrorNumbers.end(),
                   [&](const ErrorNumber& r) { return error == std::make_error_code(r.error); });
  return {row == kErrorNumbers.end() ? kOtherFileError : row->number, error.message()};
}

void ReturnStack::Push(std::int32_t line) {
  constexpr std::size_t kDeepest = 1'000'000;
  if (depth_ == kDeepest) throw ScriptFailure{28, "Out of stack space"};
  if (depth_ < kInline) {
    first_[depth_] = line;
  } else {
    rest_.push_back(line);
  }
  ++depth_;
}

std::int32_t ReturnStack::Pop() {
  --depth_;
  if (depth_ < kInline) return first_[depth_];
  const std::int32_t line = rest_.back();
  rest_.pop_back();
  return line;
}

void ExecuteOnTarget(Game& game, const CompiledLine& line, ScriptRun& run) {
  if (line.verb != 0) {
    return ForEachTarget(game, line, [&](int slot) { RunVerb(game, line, run, slot); });
  }
  bool asked = false;
  if (line.code == kActionInput && game.HyperDriveActive) game.KeepRolling = false;
  ForEachTarget(game, line, [&](int slot) {
    switch (line.code) {
      case kActionBuyPlace:
        BuyPlaceBet(game, slot);
        break;
      case kActionCallOff:
        CallBet(game, slot, kCallOff);
        break;
      case kActionCallOn:
        CallBet(game, slot, kCallOn);
        break;
      case kActionResetStreaks:
        if (slot > kLastStreak) break;
        game.BetStreak.SetNow(slot, 0);
        game.BetStreak.SetBefore(slot, 0);
        break;
      case kActionResetRolls:
        ResetScriptCounters(game, slot);
        break;
      case kActionInput:
        if (!asked) AskForInput(game, line, run);
        asked = true;
        BetAnew(game, slot, run.RunValue);
        break;
      case kActionRound:
        Round(game, line, slot);
        break;
      default:
        break;
    }
  });
}

void ExecuteCommand(Game& game, const CompiledLine& line, ScriptRun& run) {
  const auto value = [&] { return ValueOf(game, line.subject_code, line.subject_stack); };
  const auto last_value = [&] { return LastValueOf(game, line.subject_code, line.subject_stack); };
  const auto percent = [&] {
    return PercentOf(game, line.subject_code, line.subject_stack, line.amount);
  };
  switch (line.code) {
    case kActionStop:
      game.KeepRolling = false;
      if (game.HyperDriveActive) game.HyperDriveStopText = kStoppedByScript;
      break;
    case kActionGosub:
      run.Returns.Push(game.CurrentLine);
      run.PendingLine = line.jump;
      break;
    case kActionGoTo:
      run.PendingLine = line.jump;
      break;
    case kActionReturn:
      if (run.Returns.Empty()) break;
      run.Arrived = Arrival::kToReturn;
      run.OverallTrue = true;
      break;
    case kActionSetFlag:
      SetFlags(game, line, true);
      break;
    case kActionSetAllFlags:
      SetFlags(game, line, false);
      break;
    case kActionMessage:
    case kActionMessageValue:
    case kActionQuestion:
    case kActionQuestionValue:
      BuildMessage(game, line, run);
      break;
    case kActionPlaySound:
      PlaySound(game, line.text);
      break;
    case kActionShowSteps:
      game.ShowSteps = true;
      break;
    case kActionNameStack:
      NameStack(game, line.subject_stack, line.text);
      break;
    case kActionNameStackReference:
      NameReferredStack(game, line.subject_stack, line.text);
      break;
    case kActionClearStackNames:
      for (std::string& name : game.ChipStackName) name.clear();
      break;
    case kActionSetWinRule:
      SetHandling(game.HandleWinningBets, line.target_code);
      break;
    case kActionSetLossRule:
      SetHandling(game.HandleLosingBets, line.target_code);
      break;
    case kActionSetFullOdds:
      game.AutoTakeFullOdds = line.amount != MoneyAmount();
      if (game.AutoTakeFullOdds) TakeAllFullOdds(game);
      break;
    case kActionWithdraw:
      ATMTransaction(game, Atm::kWithdraw, line.amount);
      break;
    case kActionWithdrawPercent:
      ATMTransaction(game, Atm::kWithdraw, percent());
      break;
    case kActionDeposit:
      ATMTransaction(game, Atm::kDeposit, line.amount);
      break;
    case kActionDepositPercent:
      ATMTransaction(game, Atm::kDeposit, percent());
      break;
    case kActionActivateProbability:
      ActivateProbability(game, line.text);
      break;
    case kActionDeactivateProbability:
      game.UseSkewedProbability = false;
      break;
    case kActionOpenClear:
      Demand(OpenScriptOutput(game, line.text, OutputMode::kClear));
      break;
    case kActionOpenAppend:
      Demand(OpenScriptOutput(game, line.text, OutputMode::kAppend));
      break;
    case kActionOutputMessage:
      OutputMessage(game, line);
      break;
    case kActionOutputValue:
      OutputValue(game, value());
      break;
    case kActionOutputLastValue:
      OutputValue(game, last_value());
      break;
    case kActionOutputNewLine:
      Demand(WriteScriptOutput(game, "\n"));
      break;
    case kActionCloseFile:
      Demand(CloseScriptOutput(game));
      break;
    case kActionSelectRng:
      SelectRng(game, line.amount);
      break;
    case kActionSelectRngValue:
      SelectRng(game, value());
      break;
    case kActionSelectRngLastValue:
      SelectRng(game, last_value());
      break;
    case kActionSeedClock:
      SeedWith(game, ClockSeed(game));
      break;
    case kActionSeedNumber:
      SeedWith(game, line.amount);
      break;
    case kActionSeedValue:
      SeedWith(game, value());
      break;
    case kActionSeedLastValue:
      SeedWith(game, last_value());
      break;
    case kActionResetTable:
      ResetTable(game, ResetMode::kAll);
      break;
    case kActionResetKeepStacks:
      ResetTable(game, ResetMode::kKeepChipStacks);
      break;
    default:
      break;
  }
}

}  // namespace feltmaster
