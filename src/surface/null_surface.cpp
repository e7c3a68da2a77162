#include "surface/null_surface.h"

namespace feltmaster {

double NullSurface::PlainUniform() {
  // SplitMix64; the upper 53 bits make the fraction.
  plain_state_ += 0x9E3779B97F4A7C15u;
  std::uint64_t z = plain_state_;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
  z ^= z >> 31;
  return static_cast<double>(z >> 11) * 0x1.0p-53;
}

std::optional<FileError> NullSurface::Print(const Document&) {
  return {};
}

SettleReply NullSurface::ShowSettle(const SettleRequest& request) {
  SettleReply reply;
  reply.button = request.default_button;
  reply.options[0] = request.options[0];
  reply.options[1] = request.options[1];
  return reply;
}

}  // namespace feltmaster
