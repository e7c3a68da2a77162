#include <limits>
#include <string>

#include "autobet/values.h"
#include "automation/auto_play.h"
#include "config/advantage.h"
#include "config/comps.h"
#include "console/console_command.h"
#include "console/json_text.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "engine/bet_limits.h"
#include "engine/new_game.h"
#include "stats/bankroll_history.h"
#include "stats/roll_statistics.h"
namespace feltmaster {

namespace {

Reply DiceReply(const Game& game) {
  return Done(JsonObject().Add("Die1", game.Die1).Add("Die2", game.Die2).Text(),
              std::to_string(game.Die1) + " and " + std::to_string(game.Die2) + '\n');
}

Reply CallComputeMinBet(Console& console, Arguments& args) {
  const int bet = args.LayoutBet(console.Table);
  args.End();
  if (args.Failed()) return Refused(args);
  ComputeMinBet(console.Table, bet);
  return Amount(console.Table.MinBetHere);
}
Reply CallComputeMaxBet(Console& console, Arguments& args) {
  const int bet = args.LayoutBet(console.Table);
  args.End();
  if (args.Failed()) return Refused(args);
  ComputeMaxBet(console.Table, bet);
  return Amount(console.Table.MaxBetHere);
}
Reply CallComputeBuyVig(Console& console, Arguments& args) {
  const int bet = args.LayoutBet(console.Table);
  const MoneyAmount amount = args.Amount("AMOUNT");
  args.End();
  if (args.Failed()) return Refused(args);
  ComputeBuyVig(console.Table, bet, amount);
  return Amount(console.Table.BuyVigAmount);
}
Reply CallComputeLayVig(Console& console, Arguments& args) {
  const int bet = args.LayoutBet(console.Table);
  const MoneyAmount amount = args.Amount("AMOUNT");
  args.End();
  if (args.Failed()) return Refused(args);
  ComputeLayVig(console.Table, bet, amount);
  return Amount(console.Table.LayVigAmount);
}
Reply CallMovingAverage(Console& console, Arguments& args) {
  const bool include = args.Switch("includeCurrent");
  const auto position = static_cast<int>(args.Number("position", 0, kGraphRolls));
  const auto count =
      static_cast<int>(args.Number("count", 0, std::numeric_limits<std::int32_t>::max()));
  args.End();
  if (args.Failed()) return Refused(args);
  return Amount(MovingAverage(console.Table, include, position, count));
}
Reply CallFigureAdvantage(Console& console, Arguments& args) {
  const int bet = args.LayoutBet(console.Table);
  args.End();
  if (args.Failed()) return Refused(args);
  const Advantage worth = FigureAdvantage(console.Table, bet);
  const std::string json = JsonObject()
                               .Add("EvPerRoll", worth.ev_per_roll)
                               .Add("EvPerDec", worth.ev_per_decision)
                               .Add("RollsPerDec", worth.rolls_per_decision)
                               .Add("StDevPerRoll", worth.deviation_per_roll)
                               .Add("StDevPerDec", worth.deviation_per_decision)
                               .Text();
  return Done(json, json + '\n');
}
// Target 1 is the Comps tab, 2 the Summary.
Reply CallFigureComps(Console& console, Arguments& args) {
  args.Number("Target", 1, 2);
  args.End();
  if (args.Failed()) return Refused(args);
  const Comps comps = FigureComps(console.Table);
  const std::string json = JsonObject()
                               .Add("Action", comps.Action)
                               .Add("Count", comps.Count)
                               .Add("Value", comps.Value)
                               .Add("Hours", comps.Hours)
                               .Add("ActionTime", comps.ActionTime)
                               .Add("CompValue", comps.CompValue)
                               .Text();
  return Done(json, json + '\n');
}
Reply CallProbablePercent(Console& console, Arguments& args) {
  const auto category = static_cast<int>(args.Number("category", 0, kRollCategories - 1));
  const bool skewed = args.Switch("skewed");
  args.End();
  if (args.Failed()) return Refused(args);
  const std::string number = JsonOf(ProbablePercent(console.Table, category, skewed));
  return Done(number, number + '\n');
}
Reply CallMapSkewedDraw(Console& console, Arguments& args) {
  constexpr std::int64_t kLargestDraw = 100'001;  // a few generators overshoot by one
  const auto x = static_cast<std::int32_t>(args.Number("X", 1, kLargestDraw));
  args.End();
  if (args.Failed()) return Refused(args);
  MapSkewedDraw(console.Table, x);
  return DiceReply(console.Table);
}
Reply CallSetProbabilityCell(Console& console, Arguments& args) {
  const auto row = static_cast<int>(args.Number("Row", 1, 7));
  const auto column = static_cast<int>(args.Number("Col", 1, 13));
  const double value = args.Real("Value");
  const bool raw = args.AtEnd() || args.Switch("Raw");
  if (!args.Failed() && !IsProbabilityCell(row, column)) {
    args.Fail("Row " + std::to_string(row) + " of Col " + std::to_string(column) +
              " is no cell of the grid.");
  }
  constexpr double kLargest = 1e9;
  if (!args.Failed() && !(value >= -kLargest && value <= kLargest)) {
    args.Fail("Value is out of range: -1000000000 to 1000000000.");
  }
  args.End();
  if (args.Failed()) return Refused(args);
  SetProbabilityCell(console.Table, row, column, value, raw);
  return Number(ProbabilityWeight(console.Table, row, column));
}
Reply CallSeedRng(Console& console, Arguments& args) {
  const auto ask = static_cast<std::int32_t>(args.Number(
      "Ask", std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()));
  args.End();
  if (args.Failed()) return Refused(args);
  SeedRng(console.Table, ask);
  const std::string json = JsonObject()
                               .Add("SeedValue", console.Table.SeedValue)
                               .Add("LastSeed", console.Table.LastSeed)
                               .Text();
  return Done(json, json + '\n');
}
Reply CallDrawDice(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  DrawDice(console.Table);
  return DiceReply(console.Table);
}
Reply CallApplyWorkStates(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  ApplyWorkStates(console.Table);
  return Done();
}
Reply CallResetGame(Console& console, Arguments& args) {
  const std::int64_t mode = args.Number("mode", 0, 1);
  args.End();
  if (args.Failed()) return Refused(args);
  ResetGame(console.Table, mode == 1 ? ResetMode::kKeepChipStacks : ResetMode::kAll);
  return Done();
}
using ValueFunction = MoneyAmount (*)(Game&, std::int32_t, std::int32_t);
Reply CallValue(Console& console, Arguments& args, ValueFunction value_of) {
  constexpr std::int64_t kLargestCode = 9999;
  const auto code = static_cast<std::int32_t>(args.Number("code", 0, kLargestCode));
  const bool of_stacks = code == 1600 || code == 1601;
  const auto stack =
      args.AtEnd()
          ? 0
          : static_cast<std::int32_t>(args.Number("stack", 0, of_stacks ? kStackCount - 1 : 999));
  args.End();
  if (args.Failed()) return Refused(args);
  return Amount(value_of(console.Table, code, stack));
}
Reply CallValueOf(Console& console, Arguments& args) {
  return CallValue(console, args, ValueOf);
}
Reply CallLastValueOf(Console& console, Arguments& args) {
  return CallValue(console, args, LastValueOf);
}

constexpr Command kProcedures[] = {
    {"ComputeMinBet", "BET", "MinBetHere", CallComputeMinBet},
    {"ComputeMaxBet", "BET", "MaxBetHere", CallComputeMaxBet},
    {"ComputeBuyVig", "BET AMOUNT", "BuyVigAmount", CallComputeBuyVig},
    {"ComputeLayVig", "BET AMOUNT", "LayVigAmount", CallComputeLayVig},
    {"MovingAverage", "includeCurrent position count", "an amount", CallMovingAverage},
    {"FigureAdvantage", "BET", "five figures", CallFigureAdvantage},
    {"FigureComps", "Target", "the comps", CallFigureComps},
    {"ProbablePercent", "category skewed", "a percentage", CallProbablePercent},
    {"MapSkewedDraw", "X", "Die1 and Die2", CallMapSkewedDraw},
    {"SetProbabilityCell", "Row Col Value [Raw]", "the weight of the cell", CallSetProbabilityCell},
    {"SeedRng", "Ask", "SeedValue and LastSeed", CallSeedRng},
    {"DrawDice", "", "Die1 and Die2", CallDrawDice},
    {"ApplyWorkStates", "", "nothing", CallApplyWorkStates},
    {"ResetGame", "mode", "nothing", CallResetGame},
    {"ValueOf", "code [stack]", "an amount", CallValueOf},
    {"LastValueOf", "code [stack]", "an amount", CallLastValueOf},
};

Reply CallProcedure(Console& console, Arguments& args) {
  return GoOn(console, args, kProcedures, "PROCEDURE");
}

constexpr Command kProcedureCommands[] = {
    {"call", "PROCEDURE ARG ...", "calls a procedure of the program", CallProcedure, kProcedures},
};

}  // namespace

CommandTable ProcedureCommands() {
  return kProcedureCommands;
}

}  // namespace feltmaster
