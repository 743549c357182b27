#pragma once

#include <cstdint>
#include <random>

// Random numbers: a 64-bit Mersenne twister (Nishimura, "Tables of 64-bit Mersenne twisters", 2000).

namespace tessara {

class RandomNumbers {
 public:
  explicit RandomNumbers(std::uint64_t seed) : generator_(seed) {}

  // In [0, 1), of single precision: the upper 24 bits of one draw.
  float Uniform() { return static_cast<float>(generator_() >> 40) * 0x1p-24F; }

 private:
  std::mt19937_64 generator_;
};

}  // namespace tessara
