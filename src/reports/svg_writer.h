#pragma once

#include <string>

#include "reports/document.h"

namespace feltmaster {

// One page of a report as an SVG document. Its texts are texts, which can be searched and copied.
std::string SvgOf(const Document& document, std::size_t page);

}  // namespace feltmaster
