#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "base/record_file.h"
#include "reports/document.h"

namespace feltmaster {

// What the end of a file's name asks for.
enum class DocumentFormat { kPdf, kSvg, kText };
inline constexpr std::string_view kDocumentEndings = ".pdf, .svg and .txt";
std::optional<DocumentFormat> DocumentFormatOf(std::string_view path);

// Stands for a file; what goes there is text.
inline constexpr const char* kStandardOutput = "-";

// The whole report as one file. The same report gives the same bytes.
std::string PdfOf(const Document& document);

// Writes a report in the format of the file's name; an .svg holds one page, and those behind it go
// beside it as name-2.svg and so on. Old files stay whole when the new ones cannot be written.
std::optional<FileError> WriteDocument(const Document& document, const std::string& path);

}  // namespace feltmaster
