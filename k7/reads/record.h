// A data record under construction, low bytes first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

#include "TKSplDrv/types.h"

namespace k7 {

class Record {
 public:
  // space: has room for what is put in, and outlives the record.
  explicit Record(std::span<std::uint8_t> space) : space_(space) {}

  void Byte(std::uint32_t value) { Put(value, 1); }
  // Also the bits of a float.
  void Int32(std::uint32_t value) { Put(value, 4); }
  void Double(double value) {
    std::uint64_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    Put(bits, sizeof bits);
  }
  void DateTime(const TAVDT& time) {
    Put(time.year, 2);
    for (const std::uint8_t field : {time.month, time.day, time.hour, time.minute, time.second}) {
      Put(field, 1);
    }
  }

  std::span<const std::uint8_t> Bytes() const { return space_.first(size_); }

 private:
  void Put(std::uint64_t value, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
      space_[size_++] = static_cast<std::uint8_t>((value >> (8 * i)) & 0xFFU);
    }
  }

  std::span<std::uint8_t> space_;
  std::size_t size_ = 0;
};

}  // namespace k7
