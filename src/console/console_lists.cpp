#include <array>
#include <filesystem>
#include <string>

#include "autobet/hot_keys.h"
#include "base/number_format.h"
#include "console/console_command.h"
#include "console/json_text.h"
#include "engine/chip_stacks.h"
#include "table/table_input.h"
#include "view/table_rows.h"
namespace feltmaster {

namespace {

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
  const bool cleared = ClearStacks(console.Table, values  ? StackClearing::kAllValues
                                                  : names ? StackClearing::kAllNames
                                                          : StackClearing::kValuesAndNames);
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

constexpr Command kStackWords[] = {
    {"value", "N AMOUNT", "keys in the amount of Chip-Stack N", StackValue},
    {"name", "N [NAME]", "names it", StackName},
    {"clear", "all|values|names", "clears all of them, after a question", StacksClear},
    {"visible", "N N N N", "which of them lie on the table, from the bottom up", StacksVisible},
    {"zero", "on|off", "whether the list shows amounts of 0", StacksZero},
};

Reply EditStacks(Console& console, Arguments& args) {
  return GoOn(console, args, kStackWords, "The word after stacks");
}

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

constexpr Command kHotKeyWords[] = {
    {"add", "CHAR FILE [DESCRIPTION]", "binds Ctrl and a key to a script", HotKeysAdd},
    {"delete", "N", "takes the Nth of the list away", HotKeysDelete},
    {"list", "", "the list", HotKeysList},
};

Reply EditHotKeys(Console& console, Arguments& args) {
  return GoOn(console, args, kHotKeyWords, "The word after hotkeys");
}

constexpr Command kListCommands[] = {
    {"stacks", "WORD ...", "the Chip-Stacks: value, name, clear, visible, zero", EditStacks,
     kStackWords},
    {"hotkey", "CHAR", "runs the script of a Hot-Key", PressHotKey},
    {"hotkeys", "WORD ...", "the list of Hot-Keys: add, delete, list", EditHotKeys, kHotKeyWords},
};

}  // namespace

CommandTable ListCommands() {
  return kListCommands;
}

}  // namespace feltmaster
