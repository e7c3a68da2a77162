#include <CLI/CLI.hpp>
#include <algorithm>
#include <csignal>
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
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
std::string UnknownVerb(const CLI::App& app, int argc, char** argv) {
  if (argc < 2 || argv[1][0] == '-' || IsGameFile(argv[1])) return {};
  for (const CLI::App* verb : app.get_subcommands([](const CLI::App*) { return true; })) {
    if (verb->get_name() == argv[1]) return {};
  }
  return argv[1];
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGXFSZ, SIG_IGN);  // a file past the limit of the system is a full disk, no end
  int exit_code = 0;
  CLI::App app("Feltmaster plays a crapless craps table and tries out betting strategies.",
               "feltmaster");
  app.set_version_flag("--version", "feltmaster " FELTMASTER_VERSION);
  feltmaster::AddDesktopVerb(app, exit_code);
  feltmaster::AddConsoleVerb(app, exit_code);
  feltmaster::AddSimulateVerb(app, exit_code);
  feltmaster::AddScriptVerb(app, exit_code);
  feltmaster::AddAdvantageVerb(app, exit_code);
  feltmaster::AddPayoffsVerb(app, exit_code);
  feltmaster::AddRollsVerb(app, exit_code);
  feltmaster::AddReportVerb(app, exit_code);
  feltmaster::AddDiceVerb(app, exit_code);
  feltmaster::AddGameVerb(app, exit_code);
  feltmaster::AddLogVerb(app, exit_code);
  feltmaster::AddTableVerb(app, exit_code);
  feltmaster::AddScreensVerb(app, exit_code);
  feltmaster::AddBenchVerb(app, exit_code);
  app.footer(
      "feltmaster VERB --help tells more about a verb.\n\n"
      "Examples:\n"
      "  feltmaster                   opens the table in a window\n"
      "  feltmaster evening.crp       with the game of that file\n"
      "  feltmaster console\n"
      "  feltmaster simulate --help");

  if (const std::string verb = UnknownVerb(app, argc, argv); !verb.empty()) {
    std::cerr << "feltmaster: there is no verb \"" << verb << "\"; --help lists them.\n";
    return kNotStarted;
  }
  try {
    std::vector<std::string> words = WithVerb(argc, argv);
    std::reverse(words.begin(), words.end());  // as the parser takes them
    app.parse(std::move(words));
  } catch (const CLI::Success& wanted) {  // --help and --version
    return app.exit(wanted);
  } catch (const CLI::ParseError& fault) {
    std::cerr << "feltmaster: " << feltmaster::OneLine(fault.what()) << '\n';
    return kNotStarted;
  } catch (const std::exception& fault) {
    std::cerr << "feltmaster: " << feltmaster::OneLine(fault.what()) << '\n';
    return kNotStarted;
  }
  return exit_code;
}
