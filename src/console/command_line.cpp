#include "console/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cstdint>
#include <exception>
#include <iostream>
#include <optional>
#include <utility>

#include "base/text.h"

namespace feltmaster {

namespace {

constexpr int kDone = 0;
constexpr int kNotStarted = 2;

template <typename Target>
constexpr bool kIsList = false;
template <typename Value>
constexpr bool kIsList<std::vector<Value>> = true;

}  // namespace

Option& Option::Takes(const char* what) {
  option_->type_name(what);
  return *this;
}

Option& Option::Required() {
  option_->required();
  return *this;
}

template <typename Number>
Option& Option::InRange(Number least, Number most) {
  option_->check(CLI::Range(least, most));
  return *this;
}
template Option& Option::InRange(std::int32_t, std::int32_t);
template Option& Option::InRange(std::int64_t, std::int64_t);
template Option& Option::InRange(double, double);

Option& Option::OneOf(const std::vector<std::string>& words) {
  option_->check(CLI::IsMember(words));
  return *this;
}

Option& Option::SplitAt(char delimiter) {
  option_->delimiter(delimiter);
  return *this;
}

Option& Option::Under(const char* heading) {
  option_->group(heading);
  return *this;
}

Option& Option::TellDefault() {
  option_->capture_default_str();
  return *this;
}

Verb Verb::Sub(const char* name, const char* help) const {
  return {*app_->add_subcommand(name, help), *exit_code_};
}

void Verb::RequireSub() const {
  app_->require_subcommand(1);
}

void Verb::Footer(const std::string& text) const {
  app_->footer(text);
}

template <typename Target>
Option Verb::Add(const char* name, Target& target, const char* help) const {
  CLI::Option* option = app_->add_option(name, target, help);
  // Otherwise "--set A=1 mine.bet" would take the file for a second setting.
  if (kIsList<Target> && !option->get_positional()) option->allow_extra_args(false);
  return Option(*option);
}
template Option Verb::Add(const char*, std::string&, const char*) const;
template Option Verb::Add(const char*, std::optional<std::string>&, const char*) const;
template Option Verb::Add(const char*, std::vector<std::string>&, const char*) const;
template Option Verb::Add(const char*, std::int32_t&, const char*) const;
template Option Verb::Add(const char*, std::int64_t&, const char*) const;
template Option Verb::Add(const char*, double&, const char*) const;

void Verb::Flag(const char* name, bool& target, const char* help) const {
  app_->add_flag(name, target, help);
}

bool Verb::Given(const char* name) const {
  return app_->count(name) > 0;
}

void Verb::Runs(std::function<int()> run) const {
  app_->callback([run = std::move(run), exit_code = exit_code_] { *exit_code = run(); });
}

void Verb::RunsOrComplains(std::function<std::string()> run) const {
  Runs([run = std::move(run), name = app_->get_name()] {
    const std::string complaint = run();
    if (complaint.empty()) return kDone;
    std::cerr << "feltmaster " << name << ": " << complaint << '\n';
    return kNotStarted;
  });
}

CommandLine::CommandLine(const char* help) : app_(std::make_unique<CLI::App>(help, "feltmaster")) {
  app_->set_version_flag("--version", "feltmaster " FELTMASTER_VERSION);
}

CommandLine::~CommandLine() = default;

Verb CommandLine::Program() {
  return {*app_, exit_code_};
}

bool CommandLine::HasVerb(const std::string& name) const {
  const auto is_it = [&](const CLI::App* verb) { return verb->get_name() == name; };
  return !std::as_const(*app_).get_subcommands(is_it).empty();
}

int CommandLine::Run(std::vector<std::string> words) {
  try {
    std::reverse(words.begin(), words.end());  // as the parser takes them
    app_->parse(std::move(words));
  } catch (const CLI::Success& wanted) {  // --help and --version
    return app_->exit(wanted);
  } catch (const std::exception& fault) {
    std::cerr << "feltmaster: " << OneLine(fault.what()) << '\n';
    return kNotStarted;
  }
  return exit_code_;
}

}  // namespace feltmaster
