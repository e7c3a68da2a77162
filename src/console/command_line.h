#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace feltmaster {

// Verbs, their options and their help. The library that reads them takes long to compile, so
// command_line.cpp alone includes it. A Verb or an Option is a light handle that can be copied; it
// is good for as long as its CommandLine.

// An option with a value ("--seed"), or a value told by its place ("FILE").
class Option {
 public:
  explicit Option(CLI::Option& option) : option_(&option) {}

  Option& Takes(const char* what);  // how --help calls the value; "" for not at all
  Option& Required();
  template <typename Number>  // std::int32_t, std::int64_t or double
  Option& InRange(Number least, Number most);
  Option& OneOf(const std::vector<std::string>& words);
  Option& SplitAt(char delimiter);  // one word holds several values
  Option& Under(const char* heading);
  Option& TellDefault();

 private:
  CLI::Option* option_;
};

class Verb {
 public:
  Verb(CLI::App& app, int& exit_code) : app_(&app), exit_code_(&exit_code) {}

  Verb Sub(const char* name, const char* help) const;
  void RequireSub() const;
  void Footer(const std::string& text) const;  // what --help ends with

  // Target is a std::string, an optional one or a vector of them, a std::int32_t, std::int64_t or
  // double, and keeps its value when the option is not given. An option with a vector can be
  // repeated; a place takes all the words that are left.
  template <typename Target>
  Option Add(const char* name, Target& target, const char* help) const;
  void Flag(const char* name, bool& target, const char* help) const;
  bool Given(const char* name) const;

  // What the verb does once the whole line was read without a fault; gives the exit code. It is to
  // hold the targets, so that they live until then.
  void Runs(std::function<int()> run) const;
  // The same for a verb that gives its complaint, one sentence, or an empty text: the sentence is
  // told on standard error, and the exit code is then 2 and otherwise 0.
  void RunsOrComplains(std::function<std::string()> run) const;

 private:
  CLI::App* app_;
  int* exit_code_;
};

class CommandLine {
 public:
  explicit CommandLine(const char* help);
  ~CommandLine();
  CommandLine(const CommandLine&) = delete;
  CommandLine& operator=(const CommandLine&) = delete;

  Verb Program();
  bool HasVerb(const std::string& name) const;

  // Runs what the words behind the program's name ask for and gives the exit code: the verb's, 0
  // after --help or --version, 2 with one sentence on standard error for a line that is wrong or an
  // exception of the verb.
  int Run(std::vector<std::string> words);

 private:
  std::unique_ptr<CLI::App> app_;
  int exit_code_ = 0;
};

}  // namespace feltmaster
