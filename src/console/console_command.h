#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "base/money.h"
#include "console/arguments.h"
#include "console/console_commands.h"
#include "view/rows.h"

namespace feltmaster {

// What the commands of the console are made of. The commands of one subject stand together in a
// file with the table of them at its end; all tables together are the one that is looked up, helped
// with and completed from.

using CommandHandler = Reply (*)(Console&, Arguments&);
struct Command;
using CommandTable = std::span<const Command>;

// A command, or one of the words that may follow it.
struct Command {
  std::string_view name;
  std::string_view usage;
  std::string_view help;
  CommandHandler handler;
  CommandTable words = {};  // that it goes on with
};

CommandTable PlayCommands();
CommandTable StateCommands();
CommandTable ProcedureCommands();
CommandTable ScreenCommands();
CommandTable ScriptCommands();
CommandTable ListCommands();
CommandTable FileCommands();

// Nothing when the table has no command of that name, in whatever case.
const Command* Find(CommandTable commands, std::string_view name);
// Goes on with the command that the next word names; `what` stands for that word in a refusal.
Reply GoOn(Console& console, Arguments& args, CommandTable commands, std::string_view what);

// Replies: what was done, with its value as JSON and the words for a person.
Reply Done(std::string value = {}, std::string words = {});
Reply Amount(MoneyAmount amount, std::string words = {});
Reply Number(std::int64_t number);
Reply Truth(bool value, std::string words = {});
// A screen; without words its cells stand in lines.
Reply RowsReply(const Rows& rows, std::string words);
Reply RowsReply(const Rows& rows);
// And why nothing was done, in a sentence.
Reply Refused(std::string sentence);
Reply Refused(const Arguments& args);

// What a sentence may choose from, with commas.
template <typename Range, typename Name>
std::string NamesOf(const Range& entries, Name name) {
  std::string names;
  for (const auto& entry : entries) {
    if (!names.empty()) names += ", ";
    names += std::invoke(name, entry);
  }
  return names;
}

// Questions that a person at the table would be asked come up only where somebody can answer them:
// from a pipe without queued answers a file named outright is opened or written.
bool SomebodyAnswers(const Console& console);

}  // namespace feltmaster
