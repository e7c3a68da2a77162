#include <limits>
#include <optional>
#include <ranges>
#include <string>
#include <vector>

#include "automation/auto_play.h"
#include "automation/hyper_drive.h"
#include "base/number_format.h"
#include "base/text.h"
#include "console/console_command.h"
#include "console/dealer_words.h"
#include "console/json_text.h"
#include "engine/amounts.h"
#include "engine/chip_stacks.h"
#include "engine/entry_box.h"
#include "engine/place_bet.h"
#include "engine/roll_cycle.h"
#include "files/file_commands.h"
#include "stats/bankroll_history.h"
#include "stats/roll_statistics.h"
#include "table/table_input.h"
#include "view/status_lines.h"
namespace feltmaster {

namespace {

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
  console.Surface.WasInterrupted = false;
  while (made < wanted && !console.Surface.WasInterrupted) {
    before = game.BetAmount[kBankroll];
    console.Surface.LetEventsThrough();
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

// A chain of rolls: as many as the command says, or until it stops by itself.
struct Chain {
  std::int32_t rolls = 0;
  std::string words;
};
template <typename Start>
std::optional<Chain> PlayChain(Game& game, Arguments& args, Start&& start) {
  const bool counted = !args.AtEnd();
  const std::int64_t wanted =
      counted ? args.Number("N", 0, std::numeric_limits<std::int32_t>::max()) : 0;
  args.End();
  if (args.Failed()) return std::nullopt;
  const MoneyAmount before = game.BetAmount[kBankroll];
  game.KeepRolling = false;  // what starts a chain is a toggle
  if (counted) SetNumAutoRolls(game, wanted);
  const std::int32_t rolls = CountRolls(game, start);
  return Chain{rolls, std::to_string(rolls) + " rolls. " + BankrollInWords(game, before)};
}

Reply AutoRoll(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::optional<Chain> chain = PlayChain(game, args, [&] {
    if (!game.AutoRollDice) SetAutoRollDice(game, true);
    RollCommand(game);
  });
  return chain ? Done(JsonOf(chain->rolls), chain->words) : Refused(args);
}

Reply HyperDrive(Console& console, Arguments& args) {
  Game& game = console.Table;
  const std::optional<Chain> chain = PlayChain(game, args, [&] { ToggleHyperDrive(game); });
  if (!chain) return Refused(args);
  std::string stop;
  for (const ShownMessage& message : console.Surface.Messages) {
    if (message.title == "Hyper-Drive Stopped") stop = message.text;
  }
  return Done(JsonObject().Add("rolls", chain->rolls).Add("stop", stop).Text(), chain->words);
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

// "all" or one bet, and nothing behind it.
constexpr int kAllBets = 0;
int AllOrBet(const Game& game, Arguments& args) {
  const int slot = args.Take("all") ? kAllBets : args.BetOrStack(game);
  args.End();
  return slot;
}

Reply Remove(Console& console, Arguments& args) {
  Game& game = console.Table;
  const int slot = AllOrBet(game, args);
  if (args.Failed()) return Refused(args);
  if (slot == kAllBets) {
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
  const int slot = AllOrBet(game, args);
  if (args.Failed()) return Refused(args);
  if (slot == kAllBets) {
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

constexpr Command kPlayCommands[] = {
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
};

}  // namespace

CommandTable PlayCommands() {
  return kPlayCommands;
}

}  // namespace feltmaster
