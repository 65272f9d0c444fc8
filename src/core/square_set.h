// A set of squares by index, a bit each, walked in scan order.
#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "core/types.h"

namespace varkesh {

class SquareSet {
 public:
  void Add(int index) { words_[Word(index)] |= Bit(index); }
  void Remove(int index) { words_[Word(index)] &= ~Bit(index); }
  bool Has(int index) const { return (words_[Word(index)] & Bit(index)) != 0; }
  void Clear() { words_ = {}; }

  // Calls each(index) for every square in the set, lowest index first.
  template <class Each>
  void ForEach(Each&& each) const {
    for (std::size_t w = 0; w < words_.size(); ++w) {
      for (std::uint64_t bits = words_[w]; bits != 0; bits &= bits - 1)
        each(static_cast<int>(w * 64 + static_cast<std::size_t>(std::countr_zero(bits))));
    }
  }
  bool operator==(const SquareSet&) const = default;

 private:
  static std::size_t Word(int index) { return static_cast<std::size_t>(index) / 64; }
  static std::uint64_t Bit(int index) { return std::uint64_t{1} << (index % 64); }

  std::array<std::uint64_t, (kSquareCount + 63) / 64> words_{};
};

}  // namespace varkesh
