#include "simulator/k7/items.h"

#include <bit>
#include <cmath>

namespace simulator::k7 {
namespace {

// Hosts don't look at these.
constexpr std::uint8_t kIntegerTag = 0x02;
constexpr std::uint8_t kFloatTag = 0x09;
constexpr std::uint8_t kTextTag = 0x16;
constexpr std::uint8_t kDateTag = 0x41;
constexpr std::uint8_t kTimeTag = 0x42;

std::uint8_t Byte(std::size_t value) { return static_cast<std::uint8_t>(value); }

void PutLowFirst(Bytes& bytes, std::uint32_t value, std::size_t width) {
  for (std::size_t i = 0; i < width; ++i) bytes.push_back(Byte(value >> (8 * i)));
}

void PutSingle(Bytes& bytes, double value) {
  PutLowFirst(bytes, std::bit_cast<std::uint32_t>(static_cast<float>(value)), 4);
}

void PutLength(Bytes& bytes, std::size_t length) {
  if (length < 0x80) {
    bytes.push_back(Byte(length));
  } else if (length < 0x100) {
    bytes.insert(bytes.end(), {0x81, Byte(length)});
  } else {
    bytes.insert(bytes.end(), {0x82, Byte(length >> 8), Byte(length)});
  }
}

}  // namespace

void PutItem(Bytes& bytes, std::uint8_t tag, std::span<const std::uint8_t> value) {
  bytes.push_back(tag);
  PutLength(bytes, value.size());
  bytes.insert(bytes.end(), value.begin(), value.end());
}

void PutUInt(Bytes& bytes, std::uint32_t value, std::size_t width) {
  Bytes item;
  PutLowFirst(item, value, width);
  PutItem(bytes, kIntegerTag, item);
}

void PutFloat(Bytes& bytes, double value) {
  Bytes item;
  PutSingle(item, value);
  PutItem(bytes, kFloatTag, item);
}

void PutIntFloat(Bytes& bytes, double value) {
  const double whole = std::floor(value);
  Bytes item;
  PutLowFirst(item, static_cast<std::uint32_t>(static_cast<std::int32_t>(whole)), 4);
  PutSingle(item, value - whole);
  PutItem(bytes, kFloatTag, item);
}

void PutText(Bytes& bytes, const std::string& text) {
  PutItem(bytes, kTextTag, Bytes(text.begin(), text.end()));
}

void PutDate(Bytes& bytes, const ClockTime& time) {
  const int fields[] = {time.day, time.month, time.year - 2000};
  PutItem(bytes, kDateTag, Bytes(std::begin(fields), std::end(fields)));
}

// Hundredths of a second come first.
void PutTime(Bytes& bytes, const ClockTime& time) {
  const int fields[] = {0, time.second, time.minute, time.hour};
  PutItem(bytes, kTimeTag, Bytes(std::begin(fields), std::end(fields)));
}

void PutRecord(Bytes& bytes, const ClockTime& stamp, const Bytes& values) {
  const int fields[] = {stamp.year - 2000, stamp.month,  stamp.day, stamp.hour,
                        stamp.minute,      stamp.second, 0,         0};
  PutItem(bytes, kStampTag, Bytes(std::begin(fields), std::end(fields)));
  PutItem(bytes, kRecordTag, values);
}

}  // namespace simulator::k7
