#include "console/report_printing.h"

#include "base/text.h"

namespace feltmaster {

std::string FaultOfReportFile(const std::string& file) {
  if (DocumentFormatOf(file)) return {};
  return "FILE \"" + file + "\" ends in none of " + std::string(kDocumentEndings) + '.';
}

std::string PrintInto(Console& console, const ReportOrder& order) {
  ConsoleSurface& surface = console.Surface;
  surface.PrintFile = order.file;
  surface.PagesPrinted = 0;
  console.Table.LastErrorText.clear();
  order.command->print(console.Table, order.confirm);
  surface.PrintFile.clear();
  if (surface.PagesPrinted > 0 || console.Table.LastErrorText.empty()) return {};
  return "FILE \"" + order.file +
         "\" cannot be written: " + DescriptionIn(console.Table.LastErrorText) + '.';
}

}  // namespace feltmaster
