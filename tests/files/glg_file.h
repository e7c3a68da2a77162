#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace feltmaster {

// A Games Log by its bytes, written and read without the program's own code. Amounts are counted in
// ten-thousandths.
using GlgGame = std::array<std::int64_t, 32>;

std::string GlgHeader(std::int32_t games);
std::string GlgRecord(const GlgGame& game);
std::string GlgBytes(const std::vector<GlgGame>& games);

struct GlgLog {
  std::string title;  // with its padding
  std::int32_t count = 0;
  std::vector<GlgGame> games;  // all complete records behind the header
};
GlgLog ReadGlg(const std::string& bytes);

}  // namespace feltmaster
