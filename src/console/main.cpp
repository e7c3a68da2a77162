#include <csignal>
#include <iostream>
#include <string>
#include <vector>

#include "base/text.h"
#include "console/command_line.h"
#include "console/verbs.h"

namespace {

constexpr int kNotStarted = 2;

bool IsGameFile(const std::string& word) {
  return feltmaster::Lower(word).ends_with(".crp");
}

// Without a verb the table opens; its options and the name of a game go with it.
std::vector<std::string> WithVerb(int argc, char** argv) {
  std::vector<std::string> words(argv + 1, argv + argc);
  const bool table = words.empty() || IsGameFile(words[0]) || words[0].starts_with("--data-dir");
  if (table) words.insert(words.begin(), "desktop");
  return words;
}

// The first word of the command line when it is meant as a verb and is none.
std::string UnknownVerb(const feltmaster::CommandLine& line, int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-' || IsGameFile(argv[1])) return {};
  return line.HasVerb(argv[1]) ? "" : argv[1];
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file past the limit of the system is a full disk, no end
  feltmaster::CommandLine line(
      "Feltmaster plays a crapless craps table and tries out betting strategies.");
  const feltmaster::Verb program = line.Program();
  feltmaster::AddDesktopVerb(program);
  feltmaster::AddConsoleVerb(program);
  feltmaster::AddSimulateVerb(program);
  feltmaster::AddScriptVerb(program);
  feltmaster::AddAdvantageVerb(program);
  feltmaster::AddPayoffsVerb(program);
  feltmaster::AddRollsVerb(program);
  feltmaster::AddReportVerb(program);
  feltmaster::AddDiceVerb(program);
  feltmaster::AddGameVerb(program);
  feltmaster::AddLogVerb(program);
  feltmaster::AddTableVerb(program);
  feltmaster::AddScreensVerb(program);
  feltmaster::AddBenchVerb(program);
  program.Footer(
      "feltmaster VERB --help tells more about a verb.\n\n"
      "Examples:\n"
      "  feltmaster                   opens the table in a window\n"
      "  feltmaster evening.crp       with the game of that file\n"
      "  feltmaster console\n"
      "  feltmaster simulate --help");

  if (const std::string verb = UnknownVerb(line, argc, argv); !verb.empty()) {
    std::cerr << "feltmaster: there is no verb \"" << verb << "\"; --help lists them.\n";
    return kNotStarted;
  }
  return line.Run(WithVerb(argc, argv));
}
