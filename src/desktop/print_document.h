#pragma once

#include <QPainter>
#include <QPrinter>
#include <optional>
#include <string>

#include "base/record_file.h"
#include "reports/document.h"

namespace feltmaster {

// Paints a page on a painter whose unit is the point, its origin the upper left corner of a US
// letter.
void PaintPage(QPainter& painter, const Page& page);

// The whole report as a PDF; written whole or not at all.
std::optional<FileError> WritePdf(const Document& document, const std::string& path);

bool ThereIsAPrinter();
// On the paper of that printer, made smaller or larger and in its middle where that is no US
// letter. The pages are those chosen for the printer; 0 stands for all.
std::optional<FileError> SendTo(QPrinter& printer, const Document& document);

}  // namespace feltmaster
