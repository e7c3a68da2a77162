#include <algorithm>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "autobet/check_bets.h"
#include "autobet/flags.h"
#include "autobet/message.h"
#include "autobet/run_script.h"
#include "autobet/script_file.h"
#include "autobet/script_lines.h"
#include "autobet/script_text.h"
#include "base/text.h"
#include "console/console_command.h"
#include "console/json_text.h"
#include "console/line_json.h"
namespace feltmaster {

namespace {

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
    fault = DescriptionIn(game.LastErrorText);
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
    return Refused("FILE " + Quoted(file) +
                   " cannot be written: " + DescriptionIn(console.Table.LastErrorText));
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
  const std::string json = LineAsJson(line, LineFields::kAll);
  return Done(json, json + '\n');
}

constexpr Command kScriptWords[] = {
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
  return GoOn(console, args, kScriptWords, "The word after script");
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

constexpr Command kScriptCommands[] = {
    {"script", "WORD ...",
     "the Auto-Bet script: load, save, clear, add, list, check, active, init, "
     "run, fields",
     Script, kScriptWords},
    {"flag", "NAME true|false", "sets a flag of the script", Flag},
};

}  // namespace

CommandTable ScriptCommands() {
  return kScriptCommands;
}

}  // namespace feltmaster
