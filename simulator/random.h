// Numbers that look random and are the same on every system for one seed.
#pragma once

#include <cstddef>
#include <cstdint>

namespace simulator {

// Mixes a value so that neighbours have nothing in common.
constexpr std::uint64_t Mix(std::uint64_t value) {
  value += 0x9E3779B97F4A7C15u;
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9u;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBu;
  return value ^ (value >> 31);
}

constexpr std::uint64_t Mix(std::uint64_t a, std::uint64_t b) { return Mix(Mix(a) ^ b); }

// From 0 up to, but not including, 1.
constexpr double Fraction(std::uint64_t mixed) {
  return static_cast<double>(mixed >> 11) / 9007199254740992.0;
}

class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  std::uint64_t Next() { return state_ = Mix(state_); }
  // 0 to count - 1; count is not 0.
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(Next() % count); }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(Next()); }

 private:
  std::uint64_t state_;
};

}  // namespace simulator
