// When each byte is due on a line of a given speed.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>

namespace simulator {

// Every byte is due at a time counted from the start of its part, so that late timers don't add up.
class Pacer {
 public:
  using Time = std::chrono::steady_clock::time_point;

  explicit Pacer(int bitsPerSecond) : bitsPerSecond_(bitsPerSecond) {}

  // Bytes that a host handed over at once still take their time on the line.
  void Received(Time now, std::size_t count) { free_ = std::max(free_, now) + On(count); }
  // A part of a reply begins once the line is free and the silence before it is over.
  void Start(Time now, std::chrono::milliseconds silence, std::size_t size) {
    start_ = std::max(free_, now) + silence;
    free_ = start_ + On(size);
  }
  // When the first `count` bytes of the part have passed.
  Time Due(std::size_t count) const { return start_ + On(count); }
  // How many bytes of the part have passed.
  std::size_t DueBy(Time now, std::size_t size) const {
    if (bitsPerSecond_ <= 0) return size;
    // One nanosecond more, because On() cuts fractions off.
    const std::int64_t elapsed = std::max<std::int64_t>((now - start_) / kTick, 0) + 1;
    const std::int64_t passed = elapsed * bitsPerSecond_ / kTicksPerByte;
    return std::min(size, static_cast<std::size_t>(passed));
  }

 private:
  static constexpr std::chrono::nanoseconds kTick{1};
  // Eleven bits: start, eight data, parity or a second stop, stop.
  static constexpr std::int64_t kTicksPerByte = 11'000'000'000;  // at 1 bit/s

  std::chrono::nanoseconds On(std::size_t count) const {
    if (bitsPerSecond_ <= 0) return {};
    return static_cast<std::int64_t>(count) * kTicksPerByte / bitsPerSecond_ * kTick;
  }

  int bitsPerSecond_;
  Time free_{}, start_{};
};

}  // namespace simulator
