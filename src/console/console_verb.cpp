#include <signal.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <iostream>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/text.h"
#include "console/console_commands.h"
#include "console/line_editor.h"
#include "console/verbs.h"
#include "engine/start_up.h"
#include "files/file_commands.h"
#include "files/game_file.h"

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

struct ConsoleOptions {
  bool Json = false;
  std::string DataDir;
  std::int32_t Seed = 0;  // 0 for the clock
  std::int32_t Rng = 0;   // 0 for the one that stands
  std::string GameFile;
};

// The data folder: the one named, or a fresh one that goes away with the console.
class DataFolder {
 public:
  // Throws fs::filesystem_error.
  explicit DataFolder(const std::string& named) {
    if (!named.empty()) {
      path_ = fs::absolute(named);
      fs::create_directories(path_);
      if (!fs::is_directory(path_)) {
        throw fs::filesystem_error("not a folder", path_,
                                   std::make_error_code(std::errc::not_a_directory));
      }
      return;
    }
    std::string name = (fs::temp_directory_path() / "feltmaster-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
      throw fs::filesystem_error("cannot be made", name,
                                 std::error_code(errno, std::generic_category()));
    }
    path_ = name;
    temporary_ = true;
  }
  ~DataFolder() {
    std::error_code ignored;
    if (temporary_) fs::remove_all(path_, ignored);
  }
  DataFolder(const DataFolder&) = delete;
  DataFolder& operator=(const DataFolder&) = delete;

  std::string WithSeparator() const { return (path_ / "").string(); }

 private:
  fs::path path_;
  bool temporary_ = false;
};

// Ctrl-C at a terminal stops the chain of rolls, not the program: the signal is kept pending and
// looked for whenever events are let through.
class InterruptKey {
 public:
  InterruptKey() {
    sigemptyset(&signals_);
    sigaddset(&signals_, SIGINT);
    sigprocmask(SIG_BLOCK, &signals_, nullptr);
  }
  bool Pressed() {
    const timespec no_time{};
    return sigtimedwait(&signals_, nullptr, &no_time) == SIGINT;
  }

 private:
  sigset_t signals_;
};

volatile std::sig_atomic_t ended_by = 0;  // the signal that asks the program to end

// A line that was cut, or a system that goes down, is the end of the input: the table closes in
// order, which keeps the game in its data folder.
void CloseInOrderOn(int signal) {
  struct sigaction action {};
  if (sigaction(signal, nullptr, &action) != 0 || action.sa_handler == SIG_IGN) return;
  action.sa_handler = [](int number) { ended_by = number; };
  sigemptyset(&action.sa_mask);
  sigaction(signal, &action, nullptr);  // without SA_RESTART: a read that waits comes back
}

// Gives the exit code: whether every command was understood.
template <typename NextLine>
int Serve(Console& console, bool json, NextLine&& next_line) {
  int exit_code = 0;
  while (!console.Quit && ended_by == 0) {
    const std::optional<std::string> line = next_line();
    if (!line) break;
    const std::optional<Reply> reply = CarryOut(console, *line);
    if (!reply) continue;
    if (!reply->Error.empty()) exit_code = 1;
    if (json) {
      std::cout << AnswerAsJson(console, *reply) << '\n';
    } else if (!reply->Error.empty()) {
      std::cout << reply->Error << '\n';
    } else {
      std::cout << reply->Words;
    }
    std::cout.flush();
    if (!std::cout) return 1;  // nobody listens any more
  }
  return exit_code;
}

int ServePerson(Console& console) {
  InterruptKey interrupt;
  LineEditor editor([](std::string_view line) { return Completions(line); });
  console.Surface.Ask = [&](const std::string& prompt) { return editor.Answer(prompt); };
  int pumps = 0;
  console.Surface.Interrupted = [&] {
    constexpr int kPumpsPerLook = 16;  // a look is a call of the system
    return ended_by != 0 || (++pumps % kPumpsPerLook == 0 && interrupt.Pressed());
  };
  std::cout << "Welcome to the table. help lists the commands, quit leaves." << std::endl;
  return Serve(console, false, [&] {
    auto line = editor.Command("feltmaster> ");
    interrupt.Pressed();  // one that came at the prompt stops nothing
    if (!line) std::cout << std::endl;
    return line;
  });
}

int ServePipe(Console& console, bool json) {
  CloseInOrderOn(SIGTERM);  // the line editor would read on
  console.Surface.Interrupted = [] { return ended_by != 0; };
  return Serve(console, json, []() -> std::optional<std::string> {
    std::string line;
    if (!std::getline(std::cin, line)) return std::nullopt;
    return line;
  });
}

int RunConsole(const ConsoleOptions& options) {
  // The data folder is to be cleared away in any case.
  signal(SIGPIPE, SIG_IGN);
  CloseInOrderOn(SIGHUP);
  std::optional<DataFolder> folder;
  try {
    folder.emplace(options.DataDir);
  } catch (const fs::filesystem_error& fault) {
    std::cerr << "feltmaster console: the data folder cannot be used: " << fault.code().message()
              << ": " << fault.path1().string() << '\n';
    return 2;
  }

  std::optional<std::int32_t> seed;
  if (options.Seed != 0) seed = options.Seed;
  const auto console = std::make_unique<Console>(seed);
  StartUp(console->Table, {folder->WithSeparator(), seed});
  // Names typed at a terminal mean the folder one is in.
  std::error_code ignored;
  console->Table.FileDialogPath = (fs::current_path(ignored) / "").string();
  if (!options.GameFile.empty() && !OpenGame(console->Table, options.GameFile, true)) {
    std::cerr << "feltmaster console: " << WhyNotOpened(console->Table, options.GameFile) << '\n';
    return 2;
  }
  if (options.Rng != 0) console->Table.RngSelected = options.Rng - 1;

  if (!options.Json) console->Surface.Paper = &std::cout;
  const bool person = !options.Json && isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  const int exit_code = person ? ServePerson(*console) : ServePipe(*console, options.Json);
  if (!console->Quit) EndProgram(console->Table);
  constexpr int kEndedBySignal = 128;  // as a shell counts
  return ended_by == 0 ? exit_code : kEndedBySignal + ended_by;
}

}  // namespace

void AddConsoleVerb(Verb program) {
  const Verb verb = program.Sub("console", "Play the table in a terminal");
  const auto options = std::make_shared<ConsoleOptions>();
  verb.Flag("--json", options->Json, "Answer each command with one line of JSON");
  verb.Add("--data-dir", options->DataDir,
           "The folder of games, scripts and sounds; without it a fresh one, removed at exit")
      .Takes("DIR");
  verb.Add("--seed", options->Seed, "Seed every generator with N, to repeat a run")
      .Takes("N")
      .InRange(1, std::numeric_limits<std::int32_t>::max());
  verb.Add("--rng", options->Rng, "Select a generator, 1 to 8").Takes("N").InRange(1, kRngCount);
  verb.Add("FILE", options->GameFile, "A game file to open, .crp").Takes("");
  verb.Footer(
      "Commands come from the standard input, one a line; help lists them.\n\n"
      "Examples:\n"
      "  feltmaster console\n"
      "  printf 'bet \"Pass Line\" 5\\nroll\\n' | feltmaster console --json --seed 7\n"
      "  feltmaster console --rng 2 < evening.txt");
  verb.Runs([options] { return RunConsole(*options); });
}

}  // namespace feltmaster
