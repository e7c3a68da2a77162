#pragma once

#include <string_view>

namespace feltmaster {

// share/icons/feltmaster.svg
extern const std::string_view kIconDrawing;

}  // namespace feltmaster
