#include "console/console_commands.h"

#include <algorithm>
#include <exception>

#include "base/text.h"
#include "console/console_command.h"
#include "console/json_text.h"
#include "files/file_commands.h"
#include "game/bets.h"
#include "reports/print_commands.h"
#include "view/state_record.h"

namespace feltmaster {

namespace {

constexpr std::string_view kReport = "report";

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

constexpr Command kTalkCommands[] = {
    {"help", "[COMMAND]", "tells about the commands", Help},
    {"echo", "TEXT", "says the text", Echo},
    {"quit", "", "leaves the table", QuitConsole},
};
CommandTable TalkCommands() {
  return kTalkCommands;
}

// Subject by subject, in the order of the help.
constexpr CommandTable (*kSubjects[])() = {
    PlayCommands,   StateCommands, ProcedureCommands, ScreenCommands,
    ScriptCommands, ListCommands,  FileCommands,      TalkCommands,
};

const Command* FindCommand(std::string_view name) {
  for (const auto subject : kSubjects) {
    if (const Command* command = Find(subject(), name)) return command;
  }
  return nullptr;
}

std::string UsageOf(const Command& command) {
  std::string usage(command.name);
  if (!command.usage.empty()) usage += ' ' + std::string(command.usage);
  return usage;
}

std::string HelpOn(CommandTable commands, std::size_t width) {
  std::string text;
  for (const Command& command : commands) {
    const std::string usage = UsageOf(command);
    text += "  " + PadRight(usage, std::max(usage.size(), width)) + ' ' +
            std::string(command.help) + '\n';
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
    for (const auto subject : kSubjects) text += HelpOn(subject(), kUsageWidth);
    text += kAboutBets;
  } else {
    const std::string word = args.Word("COMMAND");
    args.End();
    if (args.Failed()) return Refused(args);
    const Command* command = FindCommand(word);
    if (command == nullptr) return Refused("COMMAND " + Quoted(word) + " is not a command.");
    text = UsageOf(*command) + "\n  " + std::string(command->help) + ".\n";
    text += HelpOn(command->words, kUsageWidth);
    if (command->name == kReport) text += HelpOnReports(kUsageWidth);
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
  const Command* command = FindCommand(word);
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
  const Command* command = FindCommand(Trim(line.substr(0, line.find(' '))));

  std::vector<std::string> words;
  const auto offer = [&](std::string word) {
    if (word.size() >= typed.size() && EqualIgnoringCase(word.substr(0, typed.size()), typed)) {
      words.push_back(std::move(word));
    }
  };
  const auto offer_all = [&](CommandTable commands) {
    for (const Command& one : commands) offer(std::string(one.name));
  };
  const auto offer_commands = [&] {
    for (const auto subject : kSubjects) offer_all(subject());
  };
  if (start == 0) {
    offer_commands();
  } else if (typed.starts_with('"')) {
    for (int bet = 1; bet <= kBetCount; ++bet) {
      offer('"' + std::string(kBetName[static_cast<std::size_t>(bet)]) + '"');
    }
  } else if (command == nullptr) {
    return words;
  } else if (command->name == "get" || command->name == "set" || command->name == "configure") {
    for (const StateName& entry : StateRecord()) offer(std::string(entry.name));
  } else if (command->name == kReport) {
    for (const PrintCommand& one : PrintCommands()) offer(std::string(one.name));
  } else if (command->handler == Help) {
    offer_commands();
  } else {
    offer_all(command->words);
  }
  return words;
}

}  // namespace feltmaster
