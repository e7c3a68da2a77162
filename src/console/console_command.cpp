#include "console/console_command.h"

#include <utility>
#include <vector>

#include "base/number_format.h"
#include "base/text.h"
#include "console/json_text.h"

namespace feltmaster {

const Command* Find(CommandTable commands, std::string_view name) {
  for (const Command& command : commands) {
    if (EqualIgnoringCase(command.name, name)) return &command;
  }
  return nullptr;
}

Reply GoOn(Console& console, Arguments& args, CommandTable commands, std::string_view what) {
  const std::string word = args.Word(what);
  const std::string names = NamesOf(commands, &Command::name);
  if (args.Failed()) return Refused(args.Error() + " It is one of " + names + '.');
  const Command* command = Find(commands, word);
  if (command == nullptr) {
    return Refused(std::string(what) + ' ' + Quoted(word) + " is none of " + names + '.');
  }
  return command->handler(console, args);
}

Reply Done(std::string value, std::string words) {
  return {{}, std::move(value), std::move(words)};
}
Reply Refused(std::string sentence) {
  if (!sentence.empty() && !sentence.ends_with('.')) sentence += '.';
  return {std::move(sentence), {}, {}};
}
Reply Refused(const Arguments& args) {
  return Refused(args.Error());
}

Reply Amount(MoneyAmount amount, std::string words) {
  if (words.empty()) words = PlainNumber(amount) + '\n';
  return Done(JsonOf(amount), std::move(words));
}
Reply Number(std::int64_t number) {
  return Done(JsonOf(number), std::to_string(number) + '\n');
}
Reply Truth(bool value, std::string words) {
  if (words.empty()) words = value ? "true\n" : "false\n";
  return Done(JsonOf(value), std::move(words));
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

bool SomebodyAnswers(const Console& console) {
  return !console.Surface.Answers.empty() || console.Surface.Ask != nullptr;
}

}  // namespace feltmaster
