#pragma once

#include <string>

#include "console/console_commands.h"
#include "console/document_file.h"
#include "reports/print_commands.h"

namespace feltmaster {

// Where a report goes that was asked for by name.
struct ReportOrder {
  const PrintCommand* command = nullptr;
  std::string file;  // ends in one of kDocumentEndings
  Confirm confirm = Confirm::kAsked;
};

// The complaint about a file name that no format belongs to, or an empty text.
std::string FaultOfReportFile(const std::string& file);

// Prints into the file. Gives the complaint, one sentence, when it could not be written. The player
// may have given up or been refused: then PagesPrinted of the surface is 0.
std::string PrintInto(Console& console, const ReportOrder& order);

}  // namespace feltmaster
