// Any bytes as lines typed at the console: each gets its answer, and the table stays sound.
#include <nlohmann/json.hpp>

#include "console/console_commands.h"
#include "engine/start_up.h"
#include "table.h"

using namespace feltmaster;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::EmptyScratchFolder();
  Console console(1);
  StartUp(console.Table, {.data_dir = "", .seed = 1});
  int pumps = 0;
  console.Surface.Interrupted = [&] { return ++pumps > 300; };

  std::string_view rest = fuzz::TextOf(data, size);
  for (int lines = 0; !rest.empty() && lines < 24 && !console.Quit; ++lines) {
    const std::size_t end = rest.find('\n');
    const std::string_view line = rest.substr(0, end);
    rest.remove_prefix(end == rest.npos ? rest.size() : end + 1);
    Completions(line);
    // A name with a folder could reach files that are not the fuzzer's.
    if (line.find('/') != line.npos) continue;
    if (const auto reply = CarryOut(console, line)) {
      const auto answer = nlohmann::json::parse(AnswerAsJson(console, *reply), nullptr, false);
      fuzz::Require(answer.is_object(), "an answer is a line of JSON");
      fuzz::Require(answer["ok"] == reply->Error.empty(), "an answer says whether it is one");
    }
  }
  return 0;
}
