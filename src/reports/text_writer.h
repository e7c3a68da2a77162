#pragma once

#include <string>

#include "reports/document.h"

namespace feltmaster {

// A report as plain text: tables in columns, drawings in characters, a form feed between pages.
std::string TextOf(const Document& document);

}  // namespace feltmaster
