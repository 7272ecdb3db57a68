#pragma once
// The demo data's own generator: the same seed gives the same rows on every platform and library,
// so nothing here goes through std::random_device or the standard distributions.
#include <cstddef>
#include <cstdint>
#include <span>

namespace lupin::demo {

// xoshiro256** seeded through splitmix64.
class Random {
 public:
  explicit Random(std::uint64_t seed) {
    for (auto& word : state_) word = SplitMix(seed);
  }

  std::uint64_t Next() {
    const std::uint64_t result = Rotl(state_[1] * 5, 7) * 9;
    const std::uint64_t t = state_[1] << 17;
    state_[2] ^= state_[0];
    state_[3] ^= state_[1];
    state_[1] ^= state_[2];
    state_[0] ^= state_[3];
    state_[2] ^= t;
    state_[3] = Rotl(state_[3], 45);
    return result;
  }

  // 0 .. bound-1 by multiply-shift; the tiny bias does not matter for demo rows.
  std::uint32_t Below(std::uint32_t bound) {
    return static_cast<std::uint32_t>(((Next() >> 32) * bound) >> 32);
  }
  // first .. last inclusive.
  int Between(int first, int last) {
    return first + static_cast<int>(Below(static_cast<std::uint32_t>(last - first + 1)));
  }
  // True with the chance percent in 100.
  bool Percent(int percent) { return Below(100) < static_cast<std::uint32_t>(percent); }

  template <typename T>
  const T& Pick(std::span<const T> items) {
    return items[Below(static_cast<std::uint32_t>(items.size()))];
  }
  template <typename T, std::size_t N>
  const T& Pick(const T (&items)[N]) {
    return items[Below(static_cast<std::uint32_t>(N))];
  }

 private:
  static std::uint64_t Rotl(std::uint64_t x, int k) { return (x << k) | (x >> (64 - k)); }
  static std::uint64_t SplitMix(std::uint64_t& x) {
    std::uint64_t z = (x += 0x9E3779B97F4A7C15ULL);
    z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9ULL;
    z = (z ^ (z >> 27)) * 0x94D049BB133111EBULL;
    return z ^ (z >> 31);
  }
  std::uint64_t state_[4];
};

}  // namespace lupin::demo
