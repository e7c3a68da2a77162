#include "console/console_commands.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <limits>
#include <memory>
#include <ostream>
#include <ranges>
#include <span>

#include "autobet/check_bets.h"
#include "autobet/flags.h"
#include "autobet/hot_keys.h"
#include "autobet/message.h"
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "autobet/values.h"
#include "automation/auto_play.h"
#include "automation/hyper_drive.h"
#include "base/number_format.h"
#include "base/text.h"
#include "config/advantage.h"
#include "config/comps.h"
#include "config/configure.h"
#include "console/arguments.h"
#include "console/dealer_words.h"
#include "console/json_text.h"
#include "console/report_printing.h"
#include "console/text_table.h"
#include "dice/probability.h"
#include "dice/rng.h"
#include "engine/amounts.h"
#include "engine/bet_limits.h"
#include "engine/chip_stacks.h"
#include "engine/entry_box.h"
#include "engine/new_game.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "files/file_commands.h"
#include "files/games_log.h"
#include "files/roll_recorder.h"
#include "stats/bankroll_history.h"
#include "stats/games_analysis.h"
#include "stats/roll_statistics.h"
#include "table/table_input.h"
#include "view/bankroll_graph.h"
#include "view/bet_results_table.h"
#include "view/games_screen.h"
#include "view/probability_grid.h"
#include "view/roll_frequencies.h"
#include "view/roll_totals.h"
#include "view/rules_rows.h"
#include "view/settings_rows.h"
#include "view/state_record.h"
#include "view/status_lines.h"
#include "view/summary.h"
#include "view/table_rows.h"

namespace feltmaster {

namespace {

using Handler = Reply (*)(Console&, Arguments&);

// A command, or one of the words that may follow it.
struct Command {
  std::string_view name;
  std::string_view usage;
  std::string_view help;
  Handler handler;
};

Reply Done(std::string value = {}, std::string words = {}) {
  return {{}, std::move(value), std::move(words)};
}
Reply Refused(std::string sentence) {
  if (!sentence.empty() && !sentence.ends_with('.')) sentence += '.';
  return {std::move(sentence), {}, {}};
}
Reply Refused(const Arguments& args) {
  return Refused(args.Error());
}

Reply Amount(MoneyAmount amount, std::string words = {}) {
  if (words.empty()) words = PlainNumber(amount) + '\n';
  return Done(JsonOf(amount), std::move(words));
}
Reply Number(std::int64_t number) {
  return Done(JsonOf(number), std::to_string(number) + '\n');
}
Reply Truth(bool value, std::string words = {}) {
  if (words.empty()) words = value ? "true\n" : "false\n";
  return Done(JsonOf(value), std::move(words));
}

// ---- Play -------------------------------------------------------------------------------------

bool PlayHasStopped(const Game& game) {
  return Abs(game.BetAmount[kBankroll]) > MoneyAmount::FromWhole(kBankLimit);
}

// One roll, by whatever road the dice come. False when the table made none.
bool RollOnce(Game& game) {
  const std::int32_t rolls = RollCounts(game, 0);
  game.KeepRolling = false;  // one roll, also with Auto-Roll on
  RollCycle(game);
  return RollCounts(game, 0) != rolls;
}

JsonObject RollObject(const Game& game, bool rolled, MoneyAmount before) {
  std::vector<std::string> decided;
  for (int i = 0; rolled && i < game.Decisions.count; ++i) {
    const BetDecision& decision = game.Decisions.list[static_cast<std::size_t>(i)];
    decided.push_back(JsonObject()
                          .Add("bet", decision.bet)
                          .Add("name", NameOfBet(game, decision.bet))
                          .Add("amount", decision.amount)
                          .Add("net", decision.net)
                          .Text());
  }
  const MoneyAmount bankroll = game.BetAmount[kBankroll];
  JsonObject object;
  object.AddJson("dice", JsonList({JsonOf(game.Die1), JsonOf(game.Die2)}))
      .Add("point", game.Point)
      .Add("bankroll", bankroll)
      .Add("net", bankroll - before)
      .AddJson("decided", JsonList(decided));
  return object;
}

Reply Roll(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool chosen = !args.AtEnd();
  const auto die1 = chosen ? static_cast<std::int32_t>(args.Number("D1", 1, 6)) : 0;
  const auto die2 = chosen ? static_cast<std::int32_t>(args.Number("D2", 1, 6)) : 0;
  args.End();
  if (args.Failed()) return Refused(args);

  const std::int32_t lying1 = game.Die1;
  const std::int32_t lying2 = game.Die2;
  if (chosen) {
    game.Die1 = die1;
    game.Die2 = die2;
    game.DiceAlreadySet = true;
  }
  const MoneyAmount before = game.BetAmount[kBankroll];
  const bool rolled = RollOnce(game);
  if (chosen && !rolled) {
    game.Die1 = lying1;
    game.Die2 = lying2;
    game.DiceAlreadySet = false;
  }
  return Done(RollObject(game, rolled, before).Text(), rolled ? "" : "No roll was made.\n");
}

Reply RollMany(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::int64_t wanted = args.Number("N", 1, kRollLimit);
  args.End();
  if (args.Failed()) return Refused(args);

  const std::int32_t recorder = game.DiceRollFileMode;
  std::int64_t made = 0;
  MoneyAmount before = game.BetAmount[kBankroll];
  std::string last = RollObject(game, false, before).Add("rolls", made).Text();
  while (made < wanted) {
    before = game.BetAmount[kBankroll];
    if (!RollOnce(game)) break;
    ++made;
    if (PlayHasStopped(game) || game.DiceRollFileMode != recorder) break;
  }
  if (made > 0) last = RollObject(game, true, before).Add("rolls", made).Text();
  return Done(last, std::to_string(made) + (made == 1 ? " roll.\n" : " rolls.\n"));
}

// Plays a chain that ends by itself and tells how many rolls it made.
template <typename Function>
std::int32_t CountRolls(Game& game, Function&& play) {
  const std::int32_t before = RollCounts(game, 0);
  play();
  return RollCounts(game, 0) - before;
}

Reply AutoRoll(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool counted = !args.AtEnd();
  const std::int64_t wanted =
      counted ? args.Number("N", 0, std::numeric_limits<std::int32_t>::max()) : 0;
  args.End();
  if (args.Failed()) return Refused(args);

  const MoneyAmount before = game.BetAmount[kBankroll];
  game.KeepRolling = false;  // the roll command is a toggle
  if (counted) SetNumAutoRolls(game, wanted);
  if (!game.AutoRollDice) SetAutoRollDice(game, true);
  const std::int32_t rolls = CountRolls(game, [&] { RollCommand(game); });
  return Done(JsonOf(rolls), std::to_string(rolls) + " rolls. " + BankrollInWords(game, before));
}

Reply HyperDrive(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool counted = !args.AtEnd();
  const std::int64_t wanted =
      counted ? args.Number("N", 0, std::numeric_limits<std::int32_t>::max()) : 0;
  args.End();
  if (args.Failed()) return Refused(args);

  const MoneyAmount before = game.BetAmount[kBankroll];
  game.KeepRolling = false;  // Hyper-Drive's button is a toggle
  if (counted) SetNumAutoRolls(game, wanted);
  const std::int32_t rolls = CountRolls(game, [&] { ToggleHyperDrive(game); });
  std::string stop;
  for (const ShownMessage& message : console.Surface.Messages) {
    if (message.title == "Hyper-Drive Stopped") stop = message.text;
  }
  return Done(JsonObject().Add("rolls", rolls).Add("stop", stop).Text(),
              std::to_string(rolls) + " rolls. " + BankrollInWords(game, before));
}

Reply Bet(Console& console, Arguments& args) {
  Game& game = console.Table;
  const int slot = args.BetOrStack(game);
  const MoneyAmount amount = args.Amount("AMOUNT");
  args.End();
  if (args.Failed()) return Refused(args);
  game.BetRequest = amount;
  PlaceChips(game, slot);
  return Amount(game.BetChange, BetInWords(game, slot));
}

Reply Enter(Console& console, Arguments& args) {
  Game& game = console.Table;
  const int slot = args.BetOrStack(game);
  const MoneyAmount amount = args.Amount("AMOUNT", IsChipStack(slot));
  args.End();
  if (args.Failed()) return Refused(args);
  MoveEntryBox(game, slot);
  EditEntryBox(game, PlainNumber(amount));
  CommitEnteredBet(game);
  return Amount(game.BetAmount[slot], BetInWords(game, slot));
}

MoneyAmount SumOf(const Game& game, int first, int last) {
  MoneyAmount sum;
  for (int bet = first; bet <= last; ++bet) sum += game.BetAmount[bet];
  return sum;
}

Reply Remove(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool all = args.Take("all");
  const int slot = all ? 0 : args.BetOrStack(game);
  args.End();
  if (args.Failed()) return Refused(args);
  if (all) {
    RemoveAllBets(game);
    return Amount(SumOf(game, 1, kBetCount),
                  "On the table $" + FormatMoney(game.TotalOnTable) + ".\n");
  }
  TakeDownBetQuietly(game, slot);
  return Amount(game.BetAmount[slot], BetInWords(game, slot));
}

Reply Buy(Console& console, Arguments& args) {
  Game& game = console.Table;
  const int slot = args.BetOrStack(game);
  args.End();
  if (args.Failed()) return Refused(args);
  BuyPlaceBet(game, slot);
  return Done({}, IsPlace(slot) ? BetInWords(game, slot + kBuy - kPlace) : std::string());
}

Reply Call(Console& console, Arguments& args, int on_off) {
  Game& game = console.Table;
  const bool all = args.Take("all");
  const int slot = all ? 0 : args.BetOrStack(game);
  args.End();
  if (args.Failed()) return Refused(args);
  if (all) {
    CallAllBets(game, on_off);
    return Done();
  }
  CallBet(game, slot, on_off);
  return Done({}, IsLayoutBet(slot) ? NameOfBet(game, slot) + ' ' + WorkingState(game, slot) + ".\n"
                                    : std::string());
}
Reply CallOn(Console& console, Arguments& args) {
  return Call(console, args, kCallOn);
}
Reply CallOff(Console& console, Arguments& args) {
  return Call(console, args, kCallOff);
}

// The odds that belong to a bet, or the bet itself when it is odds; 0 when it has none.
int OddsOf(int bet) {
  if (bet == kPassLine || bet == kPassOdds) return kPassOdds;
  if (IsComePoint(bet)) return bet + kComeOdds - kComePoint;
  return IsComeOdds(bet) ? bet : 0;
}

Reply Odds(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool all = args.Take("all");
  const int bet = all ? 0 : args.BetOrStack(game);
  const int odds = OddsOf(bet);
  if (!all && !args.Failed() && odds == 0) {
    args.Fail("BET " + std::to_string(bet) + " takes no odds: the Pass Line, 51, and Come bets, " +
              "11 to 20, do, and their odds, 52 and 21 to 30.");
  }
  args.End();
  if (args.Failed()) return Refused(args);
  if (all) {
    TakeAllFullOdds(game);
    const MoneyAmount sum =
        game.BetAmount[kPassOdds] + SumOf(game, kComeOdds, kComeOdds + kSlotCount - 1);
    return Amount(sum, "Odds on the table $" + FormatMoney(sum) + ".\n");
  }
  TakeFullOdds(game, odds);
  return Amount(game.BetAmount[odds], BetInWords(game, odds));
}

Reply Drag(Console& console, Arguments& args) {
  Game& game = console.Table;
  const int from = args.BetOrStack(game, "FROM");
  const std::string rail = std::to_string(kRail);
  const bool off_table = args.Take("rail") || args.Take(rail);
  const int to = off_table ? kRail : args.BetOrStack(game, "TO");
  args.End();
  if (args.Failed()) return Refused(args);
  LiftForDrag(game, from);
  DropDragged(game, to);
  return Done({}, BetInWords(game, from) + (off_table ? std::string() : BetInWords(game, to)));
}

// What a press does from now on.
std::string ToolInWords(const Game& game) {
  if (IsChipTool(game.ChipColor)) {
    return "In hand: $" + FormatMoney(game.BetAmount[kFirstChip - 1 + game.ChipColor]) +
           " chips.\n";
  }
  if (IsPileTool(game.ChipColor)) {
    const int pile = game.ChipColor - kFirstPileTool + 1;
    return "In hand: " + NameOfBet(game, game.StackSlots[static_cast<std::size_t>(pile)]) + ".\n";
  }
  switch (game.ChipColor) {
    case kBuyTool:
      return "In hand: Buy.\n";
    case kCallOffTool:
      return "In hand: OFF.\n";
    case kCallOnTool:
      return "In hand: ON.\n";
    default:
      return {};
  }
}

// What stands where a press or a key has done something.
std::string TouchedInWords(const Game& game, int slot) {
  return IsLayoutBet(slot) || IsChipStack(slot) ? BetInWords(game, slot) : std::string();
}

Reply Press(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool right = args.Take("right");
  if (!right && !args.Take("left")) return Refused("BUTTON is left or right.");
  Pixel at;
  at.x = static_cast<int>(args.Number("X", 0, kTableWidth - 1));
  at.y = static_cast<int>(args.Number("Y", 0, kTableHeight - 1));
  Modifiers held;
  for (bool more = true; more;) {
    const bool shift = args.Take("shift");
    const bool ctrl = args.Take("ctrl");
    const bool alt = args.Take("alt");
    held = {held.shift || shift, held.ctrl || ctrl, held.alt || alt};
    more = shift || ctrl || alt;
  }
  args.End();
  if (args.Failed()) return Refused(args);

  const std::int32_t tool = game.ChipColor;
  PressTable(game, right ? MouseButton::kRight : MouseButton::kLeft, at, held);
  if (right) return Done();
  return Done({}, game.ChipColor != tool ? ToolInWords(game) : TouchedInWords(game, game.HitBet));
}

Reply PressKeyOfTable(Console& console, Arguments& args) {
  struct NamedKey {
    std::string_view name;
    Key key;
  };
  constexpr NamedKey kNamedKeys[] = {{"left", Key::kLeft},   {"right", Key::kRight},
                                     {"up", Key::kUp},       {"down", Key::kDown},
                                     {"enter", Key::kEnter}, {"esc", Key::kEscape}};
  Game& game = console.Table;
  const std::string word = args.Word("KEY");
  KeyPress press;
  press.ctrl = args.Take("ctrl");
  args.End();
  if (args.Failed()) return Refused(args);
  const auto* named = std::ranges::find_if(
      kNamedKeys, [&](const NamedKey& key) { return EqualIgnoringCase(key.name, word); });
  if (named != std::end(kNamedKeys)) {
    press.key = named->key;
  } else if (word.size() == 1) {
    press.character = word[0];
  } else {
    return Refused("KEY " + Quoted(word) +
                   " is not left, right, up, down, enter, esc or a character.");
  }
  const bool taken = PressKey(game, press);
  if (!taken) return Done({}, "The table has no use for that key.\n");
  return Done({}, EntryBoxOpen(game)
                      ? NameOfBet(game, game.EntryBoxBet) + ": [" + TextInEntryBox(game) + "]\n"
                      : std::string());
}

Reply UseAtm(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool withdraw = args.Take("withdraw");
  if (!withdraw && !args.Take("deposit")) {
    return Refused("atm goes on with withdraw or deposit.");
  }
  const MoneyAmount amount = args.Amount("AMOUNT", false);
  args.End();
  if (args.Failed()) return Refused(args);
  const MoneyAmount before = game.BetAmount[kBankroll];
  ATMTransaction(game, withdraw ? Atm::kWithdraw : Atm::kDeposit, amount);
  return Done({}, BankrollInWords(game, before));
}

Reply New(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const bool begun = NewGame(console.Table);
  return Done({}, begun ? "A new game. " +
                              BankrollInWords(console.Table, console.Table.BetAmount[kBankroll])
                        : "The game goes on.\n");
}

Reply QueueAnswers(Console& console, Arguments& args) {
  std::vector<QueuedAnswer> answers;
  do {
    const std::string word = args.Word("A");
    if (args.Failed()) return Refused(args);
    const auto answer = ReadAnswer(word);
    if (!answer) {
      return Refused("A " + Quoted(word) +
                     " is not ok, yes, no, cancel, a number, or two numbers joined by a comma.");
    }
    answers.push_back(*answer);
  } while (!args.AtEnd());
  console.Surface.Answers.insert(console.Surface.Answers.end(), answers.begin(), answers.end());
  return Done();
}

Reply QueueSettles(Console& console, Arguments& args) {
  std::vector<int> buttons;
  do {
    buttons.push_back(static_cast<int>(args.Number("The button", 0, 6)));
    if (args.Failed()) return Refused(args);
  } while (!args.AtEnd());
  auto& queue = console.Surface.SettleButtons;
  queue.insert(queue.end(), buttons.begin(), buttons.end());
  return Done();
}

// ---- State ------------------------------------------------------------------------------------

std::string FlagObject(const ScriptFlag& flag) {
  return JsonObject()
      .Add("FlagName", flag.FlagName)
      .Add("FlagValue", flag.FlagValue)
      .Add("FlagChanged", flag.FlagChanged)
      .Text();
}

std::string ValueAsJson(const StateValue& value) {
  if (const auto* flag = std::get_if<ScriptFlag>(&value)) return FlagObject(*flag);
  return std::visit(
      [](const auto& plain) -> std::string {
        if constexpr (std::is_same_v<std::decay_t<decltype(plain)>, ScriptFlag>) {
          return {};
        } else {
          return JsonOf(plain);
        }
      },
      value);
}

// An element, or the list of elements under the indices given so far.
std::string StateAsJson(Game& game, const StateName& entry, StateIndex index, int indices) {
  if (indices == entry.rank) return ValueAsJson(entry.read(game, index));
  const StateBounds bounds = BoundsOf(game, entry, indices);
  std::string list = "[";
  for (int i = bounds.first; i <= bounds.last; ++i) {
    if (i > bounds.first) list += ',';
    index[static_cast<std::size_t>(indices)] = i;
    list += StateAsJson(game, entry, index, indices + 1);
  }
  return list + ']';
}

Reply Get(Console& console, Arguments& args) {
  StateIndex index{};
  int indices = 0;
  const StateName* entry = args.Name(console.Table, index, indices);
  args.End();
  if (args.Failed()) return Refused(args);
  const std::string json = StateAsJson(console.Table, *entry, index, indices);
  if (entry->type == StateType::kText && indices == entry->rank) {
    return Done(json, std::get<std::string>(entry->read(console.Table, index)) + '\n');
  }
  return Done(json, json + '\n');
}

Reply Set(Console& console, Arguments& args) {
  StateIndex index{};
  int indices = 0;
  const StateName* entry = args.Name(console.Table, index, indices);
  if (args.Failed()) return Refused(args);
  const std::string name(entry->name);
  if (entry->write == nullptr) return Refused("NAME " + name + " can be read, not written.");
  if (indices != entry->rank) {
    return Refused("NAME " + name + " needs " + std::to_string(entry->rank) +
                   (entry->rank == 1 ? " index." : " indices."));
  }
  const StateValue value = args.Value(entry->type);
  args.End();
  if (args.Failed()) return Refused(args);
  if (!entry->write(console.Table, index, value)) {
    return Refused("VALUE " + ValueAsJson(value) + " is none that " + name + " can hold.");
  }
  return Done();
}

Reply ConfigureSetting(Console& console, Arguments& args) {
  if (args.Take("check")) {
    args.End();
    if (args.Failed()) return Refused(args);
    return Truth(CheckLimits(console.Table));
  }
  const std::string name = args.NameWord();
  const std::string value = args.Rest("VALUE");
  if (args.Failed()) return Refused(args);
  return Refused(Configure(console.Table, name, value));
}

Reply State(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  JsonObject object;
  std::string words;
  for (const StateName& entry : StateRecord()) {
    const std::string json = StateAsJson(console.Table, entry, {}, 0);
    object.AddJson(entry.name, json);
    if (console.Surface.Paper != nullptr) words += std::string(entry.name) + " = " + json + '\n';
  }
  return Done(object.Text(), std::move(words));
}

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

const Command* Find(std::span<const Command> commands, std::string_view name) {
  for (const Command& command : commands) {
    if (EqualIgnoringCase(command.name, name)) return &command;
  }
  return nullptr;
}

std::string NamesOf(std::span<const Command> commands) {
  std::string names;
  for (const Command& command : commands) {
    if (!names.empty()) names += ", ";
    names += command.name;
  }
  return names;
}

// Goes on with the command that the next word names.
Reply GoOn(Console& console, Arguments& args, std::span<const Command> commands,
           std::string_view what) {
  const std::string word = args.Word(what);
  if (args.Failed()) return Refused(args.Error() + " It is one of " + NamesOf(commands) + '.');
  const Command* command = Find(commands, word);
  if (command == nullptr) {
    return Refused(std::string(what) + ' ' + Quoted(word) + " is none of " + NamesOf(commands) +
                   '.');
  }
  return command->handler(console, args);
}

Reply CallProcedure(Console& console, Arguments& args) {
  return GoOn(console, args, kProcedures, "PROCEDURE");
}

Reply RowsReply(const Rows& rows, std::string words) {
  std::vector<std::string> list;
  for (const Row& row : rows) {
    std::vector<std::string> cells;
    for (const std::string& cell : row) cells.push_back(JsonOf(cell));
    list.push_back(JsonList(cells));
  }
  return Done(JsonList(list), std::move(words));
}
Reply RowsReply(const Rows& rows) {
  std::string words;
  for (const Row& row : rows) {
    std::string line;
    for (const std::string& cell : row) {
      if (!line.empty() && !line.ends_with(' ')) line += "  ";
      line += cell;
    }
    words += line + '\n';
  }
  return RowsReply(rows, words);
}

template <auto kRows>
Reply ShowRows(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  return RowsReply(kRows(console.Table));
}
Reply ShowStatus(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Game& game = console.Table;
  return RowsReply(StatusRows(game, BetOfStatus(game)));
}
// The rows of a screen, in columns.
template <auto kRows>
Reply ShowTable(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Rows rows = kRows(console.Table);
  return RowsReply(rows, TextTable(rows));
}
template <auto kFigures>
Reply ShowFigures(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Rows rows = RowsOf(kFigures(console.Table));
  return RowsReply(rows, TextTable(rows));
}

// A person reads a line for each bar, with the bar drawn.
Reply ShowTotals(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  constexpr int kBarWidth = 30;
  const Rows rows = RollTotalRows(console.Table);
  const RollTotals totals = RollTotalsOf(console.Table);
  Rows lines(rows[1].size());
  for (std::size_t row = 1; row < rows.size(); ++row) {
    for (std::size_t bar = 0; bar < lines.size(); ++bar) lines[bar].push_back(rows[row][bar]);
  }
  lines[0][2] = "since last";
  lines[0].push_back("");
  for (std::size_t bar = 0; bar < totals.bars.size(); ++bar) {
    lines[bar + 1].push_back(TextBar(totals.bars[bar].actual_height, kBarWidth));
  }
  return RowsReply(rows, TextTable(lines, true) + "Total rolls  " + totals.total_rolls + '\n');
}

// The page of the graph in characters: a column stands for seven rolls and shows the last of them.
std::string TextGraph(Game& game) {
  constexpr int kRollsAColumn = 7;
  constexpr int kColumns = kGraphRolls / kRollsAColumn;
  constexpr int kPointsALine = 25;
  constexpr int kLines = kGraphHeight / kPointsALine + 1;
  constexpr std::size_t kLabelWidth = 12;
  DrawGraph(game, false);
  const BankrollGraph graph = PaintBankrollGraph(game);
  std::array<std::string, kLines> lines;
  lines.fill(std::string(kColumns, ' '));
  for (std::size_t i = 0; i < graph.columns.size(); ++i) {
    const int y = std::clamp(graph.columns[i].line.y2, 0, kGraphHeight);
    const std::size_t column = i / kRollsAColumn;
    for (std::string& line : lines) line[column] = ' ';
    lines[static_cast<std::size_t>((y + kPointsALine / 2) / kPointsALine)][column] = '*';
  }
  std::string text;
  for (std::size_t line = 0; line < lines.size(); ++line) {
    const std::string label = line % 2 == 0 ? graph.scale_labels[line / 2] : std::string();
    text += std::string(kLabelWidth - std::min(kLabelWidth, label.size()), ' ') + label + " |" +
            std::string(TrimRight(lines[line])) + '\n';
  }
  const std::string rolls = "rolls " + graph.rolls_left + " to " + graph.rolls_right;
  return text + std::string(kLabelWidth + 2, ' ') + rolls + '\n';
}

Reply ShowBankroll(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Rows rows = RowsOf(BankrollHeader(console.Table));
  std::string words = TextTable(rows);
  if (console.Surface.Paper != nullptr && console.Table.BankrollHistoryCount > 0) {
    // Looking at the graph moves its scale; the table's own stays as it is.
    const auto copy = std::make_unique<Game>(console.Table);
    words += '\n' + TextGraph(*copy);
  }
  return RowsReply(rows, words);
}

// Without N the entry that the screen has selected.
Reply ShowFrequencies(Console& console, Arguments& args) {
  Game& game = console.Table;
  std::int64_t entry = std::clamp(game.RollFreqsListIndex, 0, kFrequencyEntries - 1);
  bool skewed = args.Take("skewed");
  if (!skewed && !args.AtEnd()) {
    entry = args.Number("N", 0, kFrequencyEntries - 1);
    skewed = args.Take("skewed");
  }
  args.End();
  if (args.Failed()) return Refused(args);
  const FrequencyEntry& chosen = kFrequencyEntry[static_cast<std::size_t>(entry)];
  Rows rows = {{"Display frequencies for:", std::string(chosen.caption)}};
  const Rows figures = RowsOf(FrequencyFigures(game, chosen.event, skewed));
  rows.insert(rows.end(), figures.begin(), figures.end());
  std::string words = TextTable(rows) + '\n';

  const Rows gaps = GapRows(game, chosen.event);
  Rows columns(kGapRowsShown);
  for (std::size_t gap = 0; gap < gaps.size(); ++gap) {
    Row& line = columns[gap % kGapRowsShown];
    line.insert(line.end(), gaps[gap].begin(), gaps[gap].end());
  }
  rows.insert(rows.end(), gaps.begin(), gaps.end());
  return RowsReply(rows, words + TextTable(columns));
}

// What the arguments choose, or else the screen's own choice, or else all bets.
Reply ShowResults(Console& console, Arguments& args) {
  Game& game = console.Table;
  BetResultsChoice choice = ReadBetResultsSelection(game.BetResultsSelection);
  if (args.Take("phantom")) {
    choice.phantom = true;
  } else if (args.Take("actual")) {
    choice.phantom = false;
  }
  if (args.Take("all")) {
    choice.bets = kLayoutBets;
  } else if (!args.AtEnd()) {
    choice.bets.Clear();
    while (!args.AtEnd() && !args.Failed()) choice.bets.Add(args.LayoutBet(game));
  }
  args.End();
  if (args.Failed()) return Refused(args);
  if (choice.bets.Empty()) choice.bets = kLayoutBets;
  const Rows rows = BetResultRows(game, choice);
  return RowsReply(rows, TextTable(rows));
}

std::string TabNames() {
  std::string names;
  for (const SettingTab& tab : SettingTabs()) {
    names += (names.empty() ? "" : ", ") + std::string(tab.caption);
  }
  return names;
}

// All tabs, or one of them. A person reads the tabs under headings.
Reply ShowSettings(Console& console, Arguments& args) {
  const std::string wanted = args.AtEnd() ? std::string() : args.Rest("TAB");
  Rows rows = SettingRows(console.Table);
  if (!wanted.empty()) {
    std::erase_if(rows, [&](const Row& row) { return !EqualIgnoringCase(row[0], wanted); });
    if (rows.empty()) {
      args.Fail("TAB " + Quoted(wanted) + " is none of " + TabNames() + '.');
    }
  }
  args.End();
  if (args.Failed()) return Refused(args);
  std::string words;
  for (const Row& row : rows) {
    const bool heading = &row == &rows.front() || (&row - 1)->front() != row.front();
    if (heading) words += (words.empty() ? "" : "\n") + row.front() + '\n';
    constexpr std::size_t kCaptionWidth = 46;
    words += "  " + PadRight(row[1], std::max(row[1].size(), kCaptionWidth)) + ' ' + row[2] + '\n';
  }
  return RowsReply(rows, words);
}

// The log by the variable that the screen has chosen; each time as if the screen were opened.
Reply ShowGames(Console& console, Arguments& args) {
  Game& game = console.Table;
  args.End();
  if (args.Failed()) return Refused(args);
  game.GamesValueBox = {};
  game.GamesDeviationBox = {};
  const std::optional<GamesAnalysis> analysis = AnalyzeGames(game, game.GamesDisplayChoice);
  const Rows rows = analysis ? GamesRows(game, *analysis) : Rows();
  return RowsReply(rows, TextTable(rows));
}

constexpr Command kScreens[] = {
    {"bets", "", "the bets that stand", ShowRows<BetRows>},
    {"status", "", "the status lines", ShowStatus},
    {"summary", "", "a digest of the game", ShowFigures<SummaryFigures>},
    {"totals", "", "how often each roll came", ShowTotals},
    {"frequencies", "[N] [skewed]", "one roll event in depth", ShowFrequencies},
    {"results", "[phantom|actual] [all|BET ...]", "what the bets have won and lost", ShowResults},
    {"trends", "", "runs of wins and losses", ShowTable<TrendRows>},
    {"bankroll", "", "the figures of the bankroll", ShowBankroll},
    {"games", "", "the Games Log", ShowGames},
    {"stacks", "", "the Chip-Stacks", ShowRows<ChipStackRows>},
    {"flags", "", "the flags of the script", ShowRows<FlagRows>},
    {"hotkeys", "", "the Hot-Keys", ShowRows<HotKeyRows>},
    {"advantage", "", "what each bet is worth", ShowTable<AdvantageRows>},
    {"payoffs", "", "the payoffs in force", ShowTable<PayoffRows>},
    {"probabilities", "", "the chances of the dice", ShowTable<ProbabilityRows>},
    {"comps", "", "the comps earned", ShowFigures<CompFigures>},
    {"settings", "[TAB]", "the Configure and Auto-Play screens", ShowSettings},
};

Reply Show(Console& console, Arguments& args) {
  return GoOn(console, args, kScreens, "SCREEN");
}

// ---- Scripts ----------------------------------------------------------------------------------

Reply LinesReply(const Game& game) {
  const auto lines = static_cast<std::int64_t>(game.ScriptLines.size());
  return Done(JsonOf(lines), std::to_string(lines) + (lines == 1 ? " line.\n" : " lines.\n"));
}

// A .bet file that is refused raises its message; a text has no house to refuse it.
Reply ScriptLoad(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  constexpr std::string_view kBet = ".bet";
  const bool is_bet =
      file.size() >= kBet.size() && EqualIgnoringCase(file.substr(file.size() - kBet.size()), kBet);
  std::optional<std::string> fault;
  if (!is_bet) {
    fault = LoadScriptOrText(game, file);
  } else if (game.LastErrorText.clear(); !LoadScript(game, file)) {
    fault = game.LastErrorText;
  }
  if (!fault) return LinesReply(game);
  if (console.Surface.Messages.empty()) {
    return Refused("FILE " + Quoted(file) + " was not loaded: " + *fault);
  }
  return Number(0);
}
Reply ScriptSave(Console& console, Arguments& args) {
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  if (!SaveScript(console.Table, file)) {
    return Refused("FILE " + Quoted(file) + " cannot be written: " + console.Table.LastErrorText);
  }
  console.Table.ScriptUnsaved = false;
  return LinesReply(console.Table);
}
Reply ScriptClear(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  ClearScript(console.Table);
  console.Table.ScriptNeedsInit = true;
  return LinesReply(console.Table);
}

bool LabelIsTaken(const Game& game, const ScriptLine& line) {
  return std::ranges::any_of(game.ScriptLines, [&](const ScriptLine& other) {
    return other.LineKind == kLabelLine &&
           EqualIgnoringCase(Trim(other.LineName), Trim(line.LineName));
  });
}
Reply ScriptAdd(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string text = args.RawRest("TEXT");
  if (args.Failed()) return Refused(args);
  const auto composed = ComposeLine(text);
  if (const auto* fault = std::get_if<ScriptTextFault>(&composed)) {
    return Refused("TEXT is no line of a script: column " + std::to_string(fault->column) +
                   ": expected " + fault->expected);
  }
  const ScriptLine& line = std::get<ScriptLine>(composed);
  if (line.LineKind == kLabelLine && LabelIsTaken(game, line)) {
    constexpr std::int32_t kHelpOnLabels = 554;
    Tell(game, "Log Label", "That label name is already in use.", kButtonOk, kHelpOnLabels);
    return Done();
  }
  InsertLine(game, game.ScriptLines.size() + 1, line);
  return Done();
}
Reply ScriptList(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  std::vector<std::string> lines;
  std::string words;
  for (const ScriptLine& line : console.Table.ScriptLines) {
    lines.push_back(JsonOf(line.LineText));
    words += std::to_string(lines.size()) + '\t' + line.LineText + '\n';
  }
  return Done(JsonList(lines), words);
}
Reply ScriptCheck(Console& console, Arguments& args) {
  Game& game = console.Table;
  args.End();
  if (args.Failed()) return Refused(args);
  CheckBets(game);
  if (game.MsgText.empty()) return Truth(true, "The script is properly structured.\n");
  game.MsgOptions = kButtonOk | kPictureStop;
  ShowMessage(game);
  return Truth(false);
}
Reply ScriptActive(Console& console, Arguments& args) {
  Game& game = console.Table;
  const bool on = args.Take("on");
  if (!on && !args.Take("off")) return Refused("script active goes on with on or off.");
  args.End();
  if (args.Failed()) return Refused(args);
  game.ScriptActive = on ? 1 : 0;
  game.ScriptNeedsInit = true;
  game.GameChanged = true;
  return Done();
}
Reply ScriptInit(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  RunInitialisationCycle(console.Table);
  console.Table.GameChanged = true;
  return Done();
}
Reply ScriptRun(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  RunScript(console.Table);
  return Done();
}
Reply ScriptFields(Console& console, Arguments& args) {
  const Game& game = console.Table;
  const auto count = static_cast<std::int64_t>(game.ScriptLines.size());
  if (count == 0) return Refused("N names a line, and the script has none.");
  const std::int64_t number = args.Number("N", 1, count);
  args.End();
  if (args.Failed()) return Refused(args);
  const ScriptLine& line = game.ScriptLines[static_cast<std::size_t>(number - 1)];
  const std::string json = JsonObject()
                               .Add("LineKind", line.LineKind)
                               .Add("LineCode", line.LineCode)
                               .Add("LineName", line.LineName)
                               .Add("LineAmount", line.LineAmount)
                               .Add("LineSubject", line.LineSubject)
                               .Add("LineSubjectStack", line.LineSubjectStack)
                               .Add("LineReserved1", line.LineReserved1)
                               .Add("LineTarget", line.LineTarget)
                               .Add("LineTargetStack", line.LineTargetStack)
                               .Add("LineReserved2", line.LineReserved2)
                               .Add("LineSelected", line.LineSelected)
                               .Add("LineShade", line.LineShade)
                               .Add("LineText", line.LineText)
                               .Text();
  return Done(json, json + '\n');
}

constexpr Command kScriptCommands[] = {
    {"load", "FILE", "reads a script, .bet or text", ScriptLoad},
    {"save", "FILE", "writes a .bet file", ScriptSave},
    {"clear", "", "an empty script", ScriptClear},
    {"add", "TEXT", "logs a line at the end", ScriptAdd},
    {"list", "", "the lines", ScriptList},
    {"check", "", "tests the structure", ScriptCheck},
    {"active", "on|off", "whether each roll runs the script", ScriptActive},
    {"init", "", "the initialisation cycle", ScriptInit},
    {"run", "", "one run", ScriptRun},
    {"fields", "N", "the record of line N", ScriptFields},
};

Reply Script(Console& console, Arguments& args) {
  return GoOn(console, args, kScriptCommands, "The word after script");
}

Reply Flag(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string rest = args.RawRest("NAME");
  if (args.Failed()) return Refused(args);
  const std::size_t blank = rest.find_last_of(" \t\"");
  const std::string_view truth =
      std::string_view(rest).substr(blank == std::string::npos ? 0 : blank + 1);
  const bool value = EqualIgnoringCase(truth, "true");
  if (blank == std::string::npos || (!value && !EqualIgnoringCase(truth, "false"))) {
    return Refused("The value of a flag is true or false, behind its NAME.");
  }
  std::string_view name = Trim(std::string_view(rest).substr(0, blank + 1));
  if (name.size() >= 2 && name.front() == '"' && name.back() == '"') {
    name = Trim(name.substr(1, name.size() - 2));
  }
  for (std::size_t row = 0; row < game.ScriptFlags.size(); ++row) {
    if (!EqualIgnoringCase(Trim(game.ScriptFlags[row].FlagName), name)) continue;
    PressFlagButton(game, {&row, 1}, value ? FlagButton::kTrue : FlagButton::kFalse);
    return Done();
  }
  return Refused("NAME " + Quoted(name) + " is not a flag of the script.");
}

// ---- Chip-Stacks ------------------------------------------------------------------------------

int StackNumber(Arguments& args) {
  return static_cast<int>(args.Number("N", 0, kStackCount - 1));
}
Reply StackValue(Console& console, Arguments& args) {
  const int stack = StackNumber(args);
  const MoneyAmount amount = args.Amount("AMOUNT");
  args.End();
  if (args.Failed()) return Refused(args);
  EnterStackCell(console.Table, {stack, false}, PlainNumber(amount));
  return Amount(console.Table.BetAmount[kFirstStack + stack]);
}
Reply StackName(Console& console, Arguments& args) {
  const int stack = StackNumber(args);
  const std::string name = args.AtEnd() ? std::string() : args.Rest("NAME");
  args.End();
  if (args.Failed()) return Refused(args);
  EnterStackCell(console.Table, {stack, true}, name);
  return Done();
}
Reply StacksClear(Console& console, Arguments& args) {
  const bool values = args.Take("values");
  const bool names = !values && args.Take("names");
  if (!values && !names && !args.Take("all")) {
    return Refused("stacks clear goes on with values, names or all.");
  }
  args.End();
  if (args.Failed()) return Refused(args);
  const bool cleared = ClearStacks(console.Table, values  ? StackClearing::kValues
                                                  : names ? StackClearing::kNames
                                                          : StackClearing::kAll);
  return Truth(cleared, cleared ? "Cleared.\n" : "They stay.\n");
}
Reply StacksVisible(Console& console, Arguments& args) {
  std::array<int, 4> numbers{};
  for (int& number : numbers) number = StackNumber(args);
  args.End();
  if (args.Failed()) return Refused(args);
  return Truth(SetVisibleStacks(console.Table, numbers) == 0);
}
Reply StacksZero(Console& console, Arguments& args) {
  const bool on = args.Take("on");
  if (!on && !args.Take("off")) return Refused("stacks zero goes on with on or off.");
  args.End();
  if (args.Failed()) return Refused(args);
  SetStackDisplayZero(console.Table, on);
  return Done();
}

constexpr Command kStackCommands[] = {
    {"value", "N AMOUNT", "keys in the amount of Chip-Stack N", StackValue},
    {"name", "N [NAME]", "names it", StackName},
    {"clear", "all|values|names", "clears all of them, after a question", StacksClear},
    {"visible", "N N N N", "which of them lie on the table, from the bottom up", StacksVisible},
    {"zero", "on|off", "whether the list shows amounts of 0", StacksZero},
};

Reply EditStacks(Console& console, Arguments& args) {
  return GoOn(console, args, kStackCommands, "The word after stacks");
}

// ---- Hot-Keys ---------------------------------------------------------------------------------

char HotKeyChar(Arguments& args) {
  const std::string word = args.Word("CHAR");
  if (!args.Failed() && (word.size() != 1 || !IsHotKeyChar(word[0]))) {
    args.Fail("CHAR " + Quoted(word) + " is not a digit or a letter, A to Z.");
  }
  return args.Failed() ? '0' : word[0];
}

Reply PressHotKey(Console& console, Arguments& args) {
  const char key = HotKeyChar(args);
  args.End();
  if (args.Failed()) return Refused(args);
  if (PressKey(console.Table, {Key::kCharacter, key, true})) return Done();
  return Done({}, "No Hot-Key has that key.\n");
}

// What the screen does when it closes.
Reply HotKeysReply(Console& console) {
  Game& game = console.Table;
  SaveHotKeys(game);
  const auto count = static_cast<std::int64_t>(game.HotKeys.size());
  return Done(JsonOf(count), std::to_string(count) + (count == 1 ? " Hot-Key.\n" : " Hot-Keys.\n"));
}
Reply HotKeysAdd(Console& console, Arguments& args) {
  Game& game = console.Table;
  const char key = HotKeyChar(args);
  const std::string file = args.Word("FILE");
  const std::string description = args.AtEnd() ? std::string() : args.Rest("DESCRIPTION");
  if (args.Failed()) return Refused(args);
  // The list outlives the folder one is in.
  const std::string kept = file.empty() ? file : std::filesystem::absolute(file).string();
  if (AddHotKey(game, key, kept, description)) {
    PlaceHotKey(game, static_cast<std::int32_t>(game.HotKeys.size()) + 1);
  }
  return HotKeysReply(console);
}
Reply HotKeysList(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  const Rows rows = HotKeyRows(console.Table);
  std::string words;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    words +=
        std::to_string(i + 1) + '\t' + rows[i][0] + "  " + rows[i][1] + "  " + rows[i][2] + '\n';
  }
  return RowsReply(rows, words);
}
Reply HotKeysDelete(Console& console, Arguments& args) {
  Game& game = console.Table;
  const auto count = static_cast<std::int64_t>(game.HotKeys.size());
  if (count == 0) return Refused("N names a Hot-Key, and there is none.");
  const auto row = static_cast<std::int32_t>(args.Number("N", 1, count));
  args.End();
  if (args.Failed()) return Refused(args);
  ClickRow(HotKeyList(game), row, Click::kPlain);
  DeleteHotKeys(game);
  return HotKeysReply(console);
}

constexpr Command kHotKeyCommands[] = {
    {"add", "CHAR FILE [DESCRIPTION]", "binds Ctrl and a key to a script", HotKeysAdd},
    {"delete", "N", "takes the Nth of the list away", HotKeysDelete},
    {"list", "", "the list", HotKeysList},
};

Reply EditHotKeys(Console& console, Arguments& args) {
  return GoOn(console, args, kHotKeyCommands, "The word after hotkeys");
}

// ---- Files ------------------------------------------------------------------------------------

// Questions that a person at the table would be asked come up only where somebody can answer them:
// from a pipe without queued answers a file named outright is opened or written.
bool SomebodyAnswers(const Console& console) {
  return !console.Surface.Answers.empty() || console.Surface.Ask != nullptr;
}

Reply Open(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  game.FileStatus = 1;
  if (OpenNamedGame(game, file, SomebodyAnswers(console))) {
    return Done({}, file + " is open. " + BankrollInWords(game, game.BetAmount[kBankroll]));
  }
  if (game.FileStatus < 0) {
    return Refused("FILE " + Quoted(file) + " cannot be opened: " + OneLine(game.LastErrorText));
  }
  return Done({}, "The game goes on.\n");
}

Reply Save(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  game.LastErrorText.clear();
  if (SaveNamedGame(game, file, SomebodyAnswers(console))) {
    return Done({}, "The game is saved in " + file + ".\n");
  }
  if (game.LastErrorText.empty()) return Done({}, "The game is not saved.\n");
  // The dialog has told why.
  return Refused("The game is not saved: FILE " + Quoted(file) + " cannot be written");
}

Reply PrbOpen(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  if (OpenProbabilityFile(game, file)) {
    return Done({}, "The dice of " + file +
                        (game.UseSkewedProbability ? " are on the table.\n"
                                                   : "; prb on brings them to the table.\n"));
  }
  if (game.FileStatus < 0) {
    return Refused("FILE " + Quoted(file) + " cannot be read: " + game.LastErrorText + '.');
  }
  return Done();
}
Reply PrbSave(Console& console, Arguments& args) {
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  if (!SaveProbabilityFile(console.Table, file)) {
    return Refused("FILE " + Quoted(file) + " cannot be written: " + console.Table.LastErrorText);
  }
  return Done();
}
Reply UsePrb(Console& console, Arguments& args, bool use) {
  args.End();
  if (args.Failed()) return Refused(args);
  console.Table.UseSkewedProbability = use;
  return Done();
}
Reply PrbOn(Console& console, Arguments& args) {
  return UsePrb(console, args, true);
}
Reply PrbOff(Console& console, Arguments& args) {
  return UsePrb(console, args, false);
}

constexpr Command kPrbCommands[] = {
    {"open", "FILE", "reads a Probability File", PrbOpen},
    {"save", "FILE", "writes one", PrbSave},
    {"on", "", "the dice obey it", PrbOn},
    {"off", "", "the dice are true", PrbOff},
};

Reply Prb(Console& console, Arguments& args) {
  return GoOn(console, args, kPrbCommands, "The word after prb");
}

std::string RecorderInWords(Game& game) {
  return game.DiceRollFileName + ": next roll is #" + std::to_string(game.DiceRollNext) + " of " +
         std::to_string(DiceRollTotal(game)) + ".\n";
}

Reply UseRolls(Console& console, Arguments& args, DiceRollMode mode) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  std::error_code none;
  if (mode == kPlayback && !std::filesystem::exists(file, none)) {
    return Refused("FILE " + Quoted(file) + " does not exist");
  }
  game.FileStatus = 1;
  if (!OpenDiceRollFile(game, file)) {
    if (game.FileStatus >= 0) return Done();
    return Refused("FILE " + Quoted(file) + " cannot be opened: " + OneLine(game.LastErrorText));
  }
  return Done({}, SetDiceRollMode(game, mode) ? RecorderInWords(game) : std::string());
}
Reply RecordRolls(Console& console, Arguments& args) {
  return UseRolls(console, args, kRecording);
}
Reply PlayBackRolls(Console& console, Arguments& args) {
  return UseRolls(console, args, kPlayback);
}
Reply Recorder(Console& console, Arguments& args) {
  if (!args.Take("off")) return Refused("recorder goes on with off.");
  args.End();
  if (args.Failed()) return Refused(args);
  SetDiceRollMode(console.Table, kRecorderOff);
  return Done();
}

std::string ReportNames() {
  std::string names;
  for (const PrintCommand& command : PrintCommands()) {
    if (!names.empty()) names += ", ";
    names += command.name;
  }
  return names;
}

// What the words before the file choose, in place of what the screen has selected.
void ChooseForReport(const PrintCommand& command, Game& game, Arguments& args) {
  if (command.name == "frequencies" && args.NumberIsNext()) {
    game.RollFreqsListIndex = static_cast<std::int32_t>(args.Number("N", 0, kFrequencyEntries - 1));
  }
  if (command.name != "results") return;
  BetResultsChoice choice = ReadBetResultsSelection(game.BetResultsSelection);
  if (args.Take("phantom")) {
    choice.phantom = true;
  } else if (args.Take("actual")) {
    choice.phantom = false;
  }
  if (args.Take("all")) choice.bets = kLayoutBets;
  game.BetResultsSelection = BetResultsSelectionOf(choice);
}

Reply Report(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string name = args.Word("NAME");
  if (args.Failed()) return Refused(args.Error() + " It is one of " + ReportNames() + '.');
  ReportOrder order;
  order.command = FindPrintCommand(name);
  if (order.command == nullptr) {
    return Refused("NAME " + Quoted(name) + " is none of " + ReportNames() + '.');
  }
  const std::int32_t entry = game.RollFreqsListIndex;
  const std::string bets = game.BetResultsSelection;
  ChooseForReport(*order.command, game, args);
  order.file = args.Rest("FILE");
  std::string fault = args.Failed() ? args.Error() : FaultOfReportFile(order.file);
  order.confirm = SomebodyAnswers(console) ? Confirm::kAsk : Confirm::kAsked;
  if (fault.empty()) fault = PrintInto(console, order);
  game.RollFreqsListIndex = entry;
  game.BetResultsSelection = bets;
  if (!fault.empty()) return Refused(std::move(fault));

  const std::size_t pages = console.Surface.PagesPrinted;
  return Done(JsonOf(static_cast<std::int64_t>(pages)),
              pages == 0
                  ? "Nothing is printed.\n"
                  : std::to_string(pages) + (pages == 1 ? " page" : " pages") + " printed.\n");
}

Reply GamesReply(const Game& game) {
  GamesLogReader log;
  const std::optional<LogFault> fault = log.Open(game.GamesLogFile);
  const std::int32_t games = fault ? 0 : log.Count();
  return Done(JsonOf(games), CountText(games) + (games == 1 ? " game" : " games") + " in " +
                                 game.GamesLogFile + ".\n");
}
Reply LogAdd(Console& console) {
  Game& game = console.Table;
  if (!LogFinishedGame(game) && !console.Surface.Messages.empty()) {
    return Refused("The game is not logged: " + Quoted(game.GamesLogFile) + " cannot be written");
  }
  return GamesReply(game);
}
Reply Log(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::string file = args.Rest("FILE");
  if (args.Failed()) return Refused(args);
  if (EqualIgnoringCase(file, "add")) return LogAdd(console);
  std::error_code ignored;
  std::optional<LogFault> fault;
  if (!std::filesystem::exists(file, ignored)) fault = MakeEmptyLog(file);
  if (fault) game.LastErrorText = fault->error.At("Open Games File");
  if (fault || (!OpenGamesLog(game, file) && game.FileStatus < 0)) {
    return Refused("FILE " + Quoted(file) + " cannot be used: " + OneLine(game.LastErrorText));
  }
  return GamesReply(game);
}

Reply Echo(Console&, Arguments& args) {
  const std::string text = args.AtEnd() ? std::string() : args.RawRest("TEXT");
  return Done(JsonOf(text), text + '\n');
}

Reply QuitConsole(Console& console, Arguments& args) {
  args.End();
  if (args.Failed()) return Refused(args);
  if (SomebodyAnswers(console) && !AskToClose(console.Table)) {
    return Done({}, "The table stays open.\n");
  }
  console.Quit = true;
  EndProgram(console.Table);
  return Done();
}

Reply Help(Console& console, Arguments& args);

constexpr Command kCommands[] = {
    {"roll", "[D1 D2]", "rolls the dice, or these dice", Roll},
    {"rolls", "N", "N rolls, stopping early where play stops", RollMany},
    {"bet", "BET AMOUNT", "changes a bet by an amount, which may be negative", Bet},
    {"enter", "BET AMOUNT", "keys an amount into the box over a bet", Enter},
    {"remove", "BET|all", "takes down", Remove},
    {"buy", "BET", "turns a Place bet into a Buy bet", Buy},
    {"on", "BET|all", "calls bets ON", CallOn},
    {"off", "BET|all", "calls bets OFF", CallOff},
    {"odds", "BET|all", "takes full odds", Odds},
    {"drag", "FROM TO", "drags a whole bet or Chip-Stack", Drag},
    {"press", "BUTTON X Y [shift] [ctrl] [alt]", "presses a mouse button on the table", Press},
    {"key", "KEY [ctrl]", "presses a key on the table", PressKeyOfTable},
    {"atm", "withdraw|deposit AMOUNT", "moves money between pocket and bankroll", UseAtm},
    {"auto", "[N]", "starts Auto-Roll, for N rolls", AutoRoll},
    {"hyper", "[N]", "starts Hyper-Drive, for N rolls", HyperDrive},
    {"new", "", "a new game", New},
    {"answer", "A ...",
     "queues answers for dialogs: ok, yes, no, cancel, a number, two numbers "
     "joined by a comma",
     QueueAnswers},
    {"settle", "0..6 ...", "queues buttons for the settle dialogs", QueueSettles},
    {"get", "NAME", "reads the state record", Get},
    {"set", "NAME VALUE", "writes the state record, without any check of the rules", Set},
    {"configure", "NAME VALUE|check", "changes a setting as its control does, or checks them all",
     ConfigureSetting},
    {"call", "PROCEDURE ARG ...", "calls a procedure of the program", CallProcedure},
    {"state", "", "the whole state record", State},
    {"show", "SCREEN", "what a screen shows", Show},
    {"script", "WORD ...",
     "the Auto-Bet script: load, save, clear, add, list, check, active, init, "
     "run, fields",
     Script},
    {"flag", "NAME true|false", "sets a flag of the script", Flag},
    {"stacks", "WORD ...", "the Chip-Stacks: value, name, clear, visible, zero", EditStacks},
    {"hotkey", "CHAR", "runs the script of a Hot-Key", PressHotKey},
    {"hotkeys", "WORD ...", "the list of Hot-Keys: add, delete, list", EditHotKeys},
    {"open", "FILE", "opens a game file", Open},
    {"save", "FILE", "saves the game", Save},
    {"record", "FILE", "records the rolls in a Dice Roll File", RecordRolls},
    {"playback", "FILE", "plays the rolls of a Dice Roll File", PlayBackRolls},
    {"recorder", "off", "stops recording or playback", Recorder},
    {"prb", "open FILE|save FILE|on|off", "the probabilities of the dice", Prb},
    {"log", "FILE|add", "takes a file as the Games Log, or logs the game in progress", Log},
    {"report", "NAME FILE.pdf", "prints a report into a file, .pdf, .svg or .txt", Report},
    {"help", "[COMMAND]", "tells about the commands", Help},
    {"echo", "TEXT", "says the text", Echo},
    {"quit", "", "leaves the table", QuitConsole},
};

std::string UsageOf(const Command& command) {
  std::string usage(command.name);
  if (!command.usage.empty()) usage += ' ' + std::string(command.usage);
  return usage;
}

std::string HelpOn(std::span<const Command> commands, std::size_t width) {
  std::string text;
  for (const Command& command : commands) {
    text += "  " + PadRight(UsageOf(command), width) + ' ' + std::string(command.help) + '\n';
  }
  return text;
}

std::string HelpOnReports(std::size_t width) {
  std::string text;
  for (const PrintCommand& command : PrintCommands()) {
    text += "  " + PadRight(command.name, width) + ' ' + std::string(command.help) + '\n';
  }
  return text +
         "report results [phantom|actual] [all] FILE takes all bets in place of those selected;\n"
         "report frequencies N FILE takes entry N of the list.\n";
}

Reply Help(Console&, Arguments& args) {
  constexpr std::size_t kUsageWidth = 32;
  constexpr std::string_view kAboutBets =
      "BET is a number, 1 to 88, or 100 to 199 for Chip-Stacks, or a name in double quotes.\n";
  std::string text;
  if (args.AtEnd()) {
    text = HelpOn(kCommands, kUsageWidth) + std::string(kAboutBets);
  } else {
    const std::string word = args.Word("COMMAND");
    args.End();
    if (args.Failed()) return Refused(args);
    const Command* command = Find(kCommands, word);
    if (command == nullptr) return Refused("COMMAND " + Quoted(word) + " is not a command.");
    text = UsageOf(*command) + "\n  " + std::string(command->help) + ".\n";
    if (command->handler == Script) text += HelpOn(kScriptCommands, kUsageWidth);
    if (command->handler == EditStacks) text += HelpOn(kStackCommands, kUsageWidth);
    if (command->handler == EditHotKeys) text += HelpOn(kHotKeyCommands, kUsageWidth);
    if (command->handler == Prb) text += HelpOn(kPrbCommands, kUsageWidth);
    if (command->handler == Show) text += HelpOn(kScreens, kUsageWidth);
    if (command->handler == CallProcedure) text += HelpOn(kProcedures, kUsageWidth);
    if (command->handler == Report) text += HelpOnReports(kUsageWidth);
    if (command->usage.find("BET") != std::string_view::npos) text += kAboutBets;
  }
  return Done(JsonOf(text), text);
}

std::string MessagesAsJson(const std::vector<ShownMessage>& messages) {
  std::vector<std::string> list;
  for (const ShownMessage& message : messages) {
    list.push_back(JsonObject()
                       .Add("title", message.title)
                       .Add("text", message.text)
                       .Add("options", message.options)
                       .Add("answer", message.answer)
                       .Text());
  }
  return JsonList(list);
}

std::string SettlesAsJson(const std::vector<ShownSettle>& settles) {
  std::vector<std::string> list;
  for (const ShownSettle& settle : settles) {
    std::vector<std::string> rows;
    for (const auto& [label, amount] : settle.rows) {
      rows.push_back(JsonList({JsonOf(label), JsonOf(amount)}));
    }
    list.push_back(JsonObject()
                       .Add("title", settle.title)
                       .AddJson("rows", JsonList(rows))
                       .Add("button", settle.button)
                       .Text());
  }
  return JsonList(list);
}

}  // namespace

std::optional<Reply> CarryOut(Console& console, std::string_view line) {
  console.Surface.Messages.clear();
  console.Surface.Settles.clear();
  Arguments args(line);
  if (args.AtEnd() || Trim(line).starts_with('#')) return std::nullopt;
  const std::string word = args.Word("COMMAND");
  const Command* command = Find(kCommands, word);
  if (command == nullptr) {
    return Refused("COMMAND " + Quoted(word) + " is not a command; help lists them.");
  }
  try {
    return command->handler(console, args);
  } catch (const std::exception& fault) {
    console.Table.LastErrorText = fault.what();
    return Refused(std::string(command->name) + " could not be carried out: " + fault.what() + '.');
  }
}

std::string AnswerAsJson(const Console& console, const Reply& reply) {
  const ConsoleSurface& surface = console.Surface;
  JsonObject object;
  object.Add("ok", reply.Error.empty());
  if (!reply.Error.empty()) object.Add("error", reply.Error);
  object.AddJson("messages", MessagesAsJson(surface.Messages));
  if (!surface.Settles.empty()) object.AddJson("settles", SettlesAsJson(surface.Settles));
  if (reply.Error.empty() && !reply.Value.empty()) object.AddJson("value", reply.Value);
  return object.Text();
}

std::vector<std::string> Completions(std::string_view line) {
  const std::size_t quotes = static_cast<std::size_t>(std::ranges::count(line, '"'));
  const std::size_t start =
      quotes % 2 == 1 ? line.rfind('"') : line.find_last_of(' ') + 1;  // npos + 1 is 0
  const std::string_view typed = line.substr(start);
  const std::string_view command = Trim(line.substr(0, line.find(' ')));

  std::vector<std::string> words;
  const auto offer = [&](std::string word) {
    if (word.size() >= typed.size() && EqualIgnoringCase(word.substr(0, typed.size()), typed)) {
      words.push_back(std::move(word));
    }
  };
  const auto offer_all = [&](std::span<const Command> commands) {
    for (const Command& one : commands) offer(std::string(one.name));
  };
  if (start == 0) {
    offer_all(kCommands);
  } else if (typed.starts_with('"')) {
    for (int bet = 1; bet <= kBetCount; ++bet) {
      offer('"' + std::string(kBetName[static_cast<std::size_t>(bet)]) + '"');
    }
  } else if (command == "get" || command == "set" || command == "configure") {
    for (const StateName& entry : StateRecord()) offer(std::string(entry.name));
  } else if (command == "script") {
    offer_all(kScriptCommands);
  } else if (command == "stacks") {
    offer_all(kStackCommands);
  } else if (command == "hotkeys") {
    offer_all(kHotKeyCommands);
  } else if (command == "prb") {
    offer_all(kPrbCommands);
  } else if (command == "show") {
    offer_all(kScreens);
  } else if (command == "call") {
    offer_all(kProcedures);
  } else if (command == "report") {
    for (const PrintCommand& one : PrintCommands()) offer(std::string(one.name));
  } else if (command == "help") {
    offer_all(kCommands);
  }
  return words;
}

}  // namespace feltmaster
