#pragma once

#include <string>
#include <vector>

#include "reports/document.h"
#include "support/recording_surface.h"

namespace feltmaster {

// A table with a printer that keeps what it prints. Its clock on the wall stands.
class PrinterSurface : public RecordingSurface {
 public:
  CalendarTime Now() override { return {2026, 11, 5, 8, 4, 9}; }
  bool HasPrinter() override { return has_printer; }
  std::optional<FileError> Print(const Document& document) override {
    if (broken) return FileError{5, "Input/output error"};
    printed.push_back(document);
    return {};
  }
  void ShowNotice(std::string_view, std::string_view text) override {
    if (!text.empty()) notices.emplace_back(text);
  }

  bool has_printer = true;
  bool broken = false;
  std::vector<Document> printed;
  std::vector<std::string> notices;
};

}  // namespace feltmaster
