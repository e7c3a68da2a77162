#pragma once

#include <array>
#include <bit>
#include <cstdint>
#include <utility>

namespace feltmaster {

// A fixed set of small numbers whose members are cheap to walk in rising order.
template <int kSize>
class BitSet {
 public:
  static constexpr int kWords = (kSize + 63) / 64;

  constexpr void Add(int member) { words_[Word(member)] |= Bit(member); }
  constexpr void Remove(int member) { words_[Word(member)] &= ~Bit(member); }
  constexpr void Put(int member, bool in) { in ? Add(member) : Remove(member); }
  constexpr bool Has(int member) const { return (words_[Word(member)] & Bit(member)) != 0; }
  constexpr void Clear() { words_ = {}; }
  constexpr void AddRange(int first, int last) {
    for (int member = first; member <= last; ++member) Add(member);
  }
  constexpr bool Empty() const {
    return [this]<std::size_t... kWord>(std::index_sequence<kWord...>) {
      return (words_[kWord] | ...) == 0;
    }
    (std::make_index_sequence<kWords>());
  }
  constexpr int Count() const {
    int count = 0;
    for (const std::uint64_t word : words_) count += std::popcount(word);
    return count;
  }

  // The members first to first + count - 1 as bits; they must lie within one word of 64.
  constexpr std::uint32_t Slice(int first, int count) const {
    return static_cast<std::uint32_t>(words_[Word(first)] >> (first % 64)) & ((1u << count) - 1u);
  }

  template <typename Function>
  constexpr void ForEach(Function&& function) const {
    for (int w = 0; w < kWords; ++w) {
      for (std::uint64_t rest = words_[static_cast<std::size_t>(w)]; rest != 0; rest &= rest - 1) {
        function(w * 64 + std::countr_zero(rest));
      }
    }
  }

  constexpr bool operator==(const BitSet&) const = default;
  constexpr BitSet operator&(const BitSet& other) const {
    return Join(other, [](auto a, auto b) { return a & b; });
  }
  constexpr BitSet operator|(const BitSet& other) const {
    return Join(other, [](auto a, auto b) { return a | b; });
  }
  constexpr BitSet Without(const BitSet& other) const {
    return Join(other, [](auto a, auto b) { return a & ~b; });
  }

 private:
  static constexpr std::size_t Word(int member) { return static_cast<std::size_t>(member) / 64; }
  static constexpr std::uint64_t Bit(int member) {
    return std::uint64_t{1} << (static_cast<unsigned>(member) % 64);
  }
  template <typename Function>
  constexpr BitSet Join(const BitSet& other, Function function) const {
    BitSet result;
    for (std::size_t w = 0; w < kWords; ++w)
      result.words_[w] = function(words_[w], other.words_[w]);
    return result;
  }

  std::array<std::uint64_t, kWords> words_{};
};

}  // namespace feltmaster
