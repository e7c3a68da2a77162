#pragma once

#include <CLI/CLI.hpp>

namespace feltmaster {

// Each verb adds its subcommand with its options and examples. When it is chosen it runs, and
// leaves the program's exit code: 0 done, 1 done but with failures that it has told, 2 not started
// (bad option, unreadable file, output that cannot be written), told in one sentence on standard
// error.
void AddDesktopVerb(CLI::App& app, int& exit_code);
void AddConsoleVerb(CLI::App& app, int& exit_code);
void AddSimulateVerb(CLI::App& app, int& exit_code);
void AddBenchVerb(CLI::App& app, int& exit_code);
void AddScriptVerb(CLI::App& app, int& exit_code);
void AddAdvantageVerb(CLI::App& app, int& exit_code);
void AddPayoffsVerb(CLI::App& app, int& exit_code);
void AddRollsVerb(CLI::App& app, int& exit_code);
void AddReportVerb(CLI::App& app, int& exit_code);
void AddDiceVerb(CLI::App& app, int& exit_code);
void AddGameVerb(CLI::App& app, int& exit_code);
void AddLogVerb(CLI::App& app, int& exit_code);
void AddTableVerb(CLI::App& app, int& exit_code);
void AddScreensVerb(CLI::App& app, int& exit_code);

}  // namespace feltmaster
