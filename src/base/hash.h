#pragma once

#include <cstdint>
#include <string_view>

namespace feltmaster {

// Every bit of the result hangs on every bit of the argument (the finalizer of SplitMix64).
constexpr std::uint64_t MixBits(std::uint64_t z) {
  z += 0x9E3779B97F4A7C15u;
  z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
  z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
  return z ^ (z >> 31);
}

// A hash of a row of values, in their order; the same on every machine.
class RowHash {
 public:
  constexpr void Add(std::uint64_t value) { state_ = MixBits(state_ ^ value) + value; }
  constexpr void Add(std::int64_t value) { Add(static_cast<std::uint64_t>(value)); }
  constexpr void Add(std::int32_t value) { Add(std::int64_t{value}); }
  constexpr void Add(std::uint32_t value) { Add(std::uint64_t{value}); }
  constexpr void Add(bool value) { Add(std::uint64_t{value}); }
  constexpr void Add(std::string_view text) {
    Add(std::uint64_t{text.size()});
    for (const char c : text) Add(std::uint64_t{static_cast<unsigned char>(c)});
  }
  constexpr std::uint64_t Value() const { return state_; }

 private:
  std::uint64_t state_ = 0;
};

}  // namespace feltmaster
