#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace feltmaster {

// What a run of the program left behind.
struct ProgramRun {
  int exit_code = -1;
  std::string output;
  std::string complaints;  // the standard error

  std::vector<std::string> Lines() const;
  // The answers of a run under --json, in order; a line that is no JSON fails the test.
  std::vector<nlohmann::json> Answers() const;
};

// Runs `feltmaster OPTIONS` as a user would, with these bytes on its standard input.
ProgramRun RunProgram(const std::string& options, const std::string& input = {});

// The answers of `feltmaster console --json` to these commands.
std::vector<nlohmann::json> Play(const std::vector<std::string>& commands,
                                 const std::string& options = "--seed 1");

// A command, and what it is to give: all of it, or the parts of an object that are named. Null is
// not looked at.
struct Step {
  std::string command;
  nlohmann::json value = nullptr;
};
// Plays commands that must all be understood. Gives the answers.
std::vector<nlohmann::json> PlaySteps(const std::vector<Step>& steps,
                                      const std::string& options = "--seed 1");

}  // namespace feltmaster
