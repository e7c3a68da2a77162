#include "console/console_program.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace feltmaster {

namespace {

namespace fs = std::filesystem;

std::string BytesOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

std::vector<std::string> ProgramRun::Lines() const {
  std::vector<std::string> lines;
  std::istringstream text(output);
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

std::vector<nlohmann::json> ProgramRun::Answers() const {
  std::vector<nlohmann::json> answers;
  for (const std::string& line : Lines()) {
    answers.push_back(nlohmann::json::parse(line, nullptr, false));
    EXPECT_FALSE(answers.back().is_discarded()) << line;
  }
  return answers;
}

ProgramRun RunProgram(const std::string& options, const std::string& input) {
  std::string name = (fs::temp_directory_path() / "feltmaster-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) return {};
  const fs::path folder(name);
  std::ofstream(folder / "input", std::ios::binary) << input;
  const std::string command = std::string(FELTMASTER_PROGRAM) + ' ' + options + " <" + name +
                              "/input >" + name + "/output 2>" + name + "/complaints";
  ProgramRun run;
  const int status = std::system(command.c_str());
  run.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  run.output = BytesOf(folder / "output");
  run.complaints = BytesOf(folder / "complaints");
  fs::remove_all(folder);
  return run;
}

std::vector<nlohmann::json> Play(const std::vector<std::string>& commands,
                                 const std::string& options) {
  std::string input;
  for (const std::string& command : commands) input += command + '\n';
  return RunProgram("console --json " + options, input).Answers();
}

std::vector<nlohmann::json> PlaySteps(const std::vector<Step>& steps, const std::string& options) {
  std::vector<std::string> commands;
  for (const Step& step : steps) commands.push_back(step.command);
  auto answers = Play(commands, options);
  EXPECT_EQ(answers.size(), steps.size());
  answers.resize(steps.size());
  for (std::size_t i = 0; i < steps.size(); ++i) {
    const auto& [command, expected] = steps[i];
    EXPECT_EQ(answers[i].value("ok", false), true) << command << ": " << answers[i];
    const auto& value = answers[i]["value"];
    if (!expected.is_object()) {
      EXPECT_TRUE(expected.is_null() || value == expected) << command << ": " << answers[i];
      continue;
    }
    for (const auto& [name, part] : expected.items()) {
      EXPECT_EQ(value.at(name), part) << command << ": " << name;
    }
  }
  return answers;
}

}  // namespace feltmaster
