// The engine against the reference table over random sessions, some 100,000 rolls, with every array
// of the state record compared after each. A failure names the seed and is cut
// down to the fewest commands that still show it. To play one seed again:
//   FELTMASTER_DIFFERENTIAL_SEED=17 FELTMASTER_DIFFERENTIAL_SESSIONS=1
// and the number of sessions alone makes a longer hunt.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <sstream>

#include "reference/session.h"

namespace reference {
namespace {

struct Failure {
  std::size_t step = 0;  // index of the command that showed it
  std::string difference;
};

// Plays a session; an empty difference when the tables agree throughout.
Failure Play(const std::vector<Command>& commands) {
  Tables tables;
  for (std::size_t step = 0; step < commands.size(); ++step) {
    std::string difference = tables.Do(commands[step]);
    if (!difference.empty()) return {step, std::move(difference)};
  }
  return {};
}

// Drops chunks of commands, then smaller ones, as long as the tables still differ.
std::vector<Command> Shrink(std::vector<Command> commands) {
  const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
  for (std::size_t chunk = commands.size() / 2; chunk > 0; chunk /= 2) {
    for (bool again = true; again;) {
      again = false;
      for (std::size_t at = 0; at + chunk < commands.size();) {
        if (std::chrono::steady_clock::now() > deadline) return commands;
        std::vector<Command> fewer = commands;
        const auto from = fewer.begin() + static_cast<std::ptrdiff_t>(at);
        fewer.erase(from, from + static_cast<std::ptrdiff_t>(chunk));
        const Failure failure = Play(fewer);
        if (failure.difference.empty()) {
          at += chunk;
        } else {
          fewer.resize(failure.step + 1);
          commands = std::move(fewer);
          again = chunk == 1;
        }
      }
    }
  }
  return commands;
}

bool ExpectAgreement(std::uint64_t seed, const SessionKind& kind) {
  std::vector<Command> commands = RandomSession(seed, kind);
  const Failure failure = Play(commands);
  if (failure.difference.empty()) return true;

  std::ostringstream report;
  report << "seed " << seed << ", command " << failure.step << ": " << failure.difference << '\n';
  commands.resize(failure.step + 1);
  commands = Shrink(std::move(commands));
  report << "The shortest way there:\n";
  for (const Command& command : commands) report << "  " << Describe(command) << '\n';
  report << "shows " << Play(commands).difference;
  ADD_FAILURE() << report.str();
  return false;
}

int FromEnvironment(const char* name, int otherwise) {
  const char* text = std::getenv(name);
  return text == nullptr ? otherwise : std::atoi(text);
}

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr int kSessions = 20;
#else
constexpr int kSessions = 180;
#endif

TEST(Differential, EngineAgreesWithTheReference) {
  const int first = FromEnvironment("FELTMASTER_DIFFERENTIAL_SEED", 1);
  const int sessions = FromEnvironment("FELTMASTER_DIFFERENTIAL_SESSIONS", kSessions);
  int failures = 0;
  for (int seed = first; seed < first + sessions && failures < 3; ++seed) {
    // Long sessions turn the history's page.
    const bool settles = seed % 3 == 0;
    const int rolls = settles ? 300 : seed % 5 == 0 ? 1600 : 500;
    if (!ExpectAgreement(static_cast<std::uint64_t>(seed), {.rolls = rolls, .settles = settles})) {
      ++failures;
    }
  }
}

}  // namespace
}  // namespace reference
