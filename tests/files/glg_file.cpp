#include "files/glg_file.h"

#include <cstring>

namespace feltmaster {

// The tests run on little-endian machines, as the file is.
static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__);

std::string GlgHeader(std::int32_t games) {
  std::string header = "Feltking Games File, Data Format 5.0";
  header.resize(92, ' ');
  header.append(reinterpret_cast<const char*>(&games), 4);
  header.append(4, '\0');
  header.append(100, ' ');
  header.append(8, '\0');
  header.append(40, ' ');
  header.append(8, '\0');
  return header;
}

std::string GlgRecord(const GlgGame& game) {
  return {reinterpret_cast<const char*>(game.data()), 256};
}

std::string GlgBytes(const std::vector<GlgGame>& games) {
  std::string bytes = GlgHeader(static_cast<std::int32_t>(games.size()));
  for (const GlgGame& game : games) bytes += GlgRecord(game);
  return bytes;
}

GlgLog ReadGlg(const std::string& bytes) {
  GlgLog log;
  if (bytes.size() < 256) return log;
  log.title = bytes.substr(0, 92);
  std::memcpy(&log.count, &bytes[92], 4);
  for (std::size_t at = 256; at + 256 <= bytes.size(); at += 256) {
    std::memcpy(log.games.emplace_back().data(), &bytes[at], 256);
  }
  return log;
}

}  // namespace feltmaster
