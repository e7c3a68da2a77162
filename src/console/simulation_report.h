#pragma once

#include <ostream>
#include <string>

#include "console/session_statistics.h"
#include "console/simulation.h"

namespace feltmaster {

// Everything that a report of a simulation is written from.
struct SimulationReport {
  const Experiment& experiment;
  const Game& table;  // on which every game began
  const SimulationResults& results;
  const SessionStatistics& statistics;
};

// What the run cost, which is no result: only the summary tells it.
struct RunTime {
  double seconds = 0;
  int jobs = 1;
};

std::string SummaryText(const SimulationReport& report, const RunTime& time);
// Both hold the same bytes for every number of jobs.
void WriteJson(const SimulationReport& report, std::ostream& out);
void WriteCsv(const SimulationReport& report, std::ostream& out);
// A histogram of the net and the bankroll paths of the first games, as one SVG document.
std::string ChartSvg(const SimulationReport& report);

// "strategies/iron_cross.txt", or what is played when no script is given.
std::string NameOfStrategy(const Experiment& experiment);

}  // namespace feltmaster
