#pragma once

#include "console/command_line.h"

namespace feltmaster {

// Each adds a verb with its options and examples. When it is chosen it runs, and gives the
// program's exit code: 0 done, 1 done but with failures that it has told, 2 not started (bad
// option, unreadable file, output that cannot be written), told in one sentence on standard error.
void AddDesktopVerb(Verb program);
void AddConsoleVerb(Verb program);
void AddSimulateVerb(Verb program);
void AddBenchVerb(Verb program);
void AddScriptVerb(Verb program);
void AddAdvantageVerb(Verb program);
void AddPayoffsVerb(Verb program);
void AddRollsVerb(Verb program);
void AddReportVerb(Verb program);
void AddDiceVerb(Verb program);
void AddGameVerb(Verb program);
void AddLogVerb(Verb program);
void AddTableVerb(Verb program);
void AddScreensVerb(Verb program);

}  // namespace feltmaster
