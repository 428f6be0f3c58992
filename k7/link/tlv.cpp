#include "k7/link/tlv.h"

#include <algorithm>
#include <bit>

#include "common/scan.h"

namespace k7 {
namespace {

constexpr std::uint8_t kLongForm = 0x80;
constexpr std::size_t kLongestText = 254;
constexpr unsigned kCentury = 2000;

std::uint16_t Year(std::uint8_t sinceCentury) {
  return static_cast<std::uint16_t>(kCentury + sinceCentury);
}

}  // namespace

Tlv TlvWalk::Locate() const {
  const std::uint8_t first = At(cursor_ + 1);
  if ((first & kLongForm) == 0) return {cursor_ + 2, first};
  const std::size_t count = first & (kLongForm - 1U);
  std::size_t length = 0;
  for (std::size_t i = 0; i < count; ++i) {
    length = std::min(length * 256 + At(cursor_ + 2 + i), kMostItemLength);
  }
  return {cursor_ + 2 + count, length};
}

void TlvWalk::MoveTo(std::size_t index) { cursor_ = std::min(index, bytes_.size()); }

Tlv TlvWalk::NextItem() {
  const Tlv item = Locate();
  MoveTo(item.at + item.length);
  return item;
}

Tlv TlvWalk::EnterItem() {
  const Tlv item = Locate();
  MoveTo(item.at);
  return item;
}

std::uint32_t TlvWalk::UInt(std::size_t index, std::size_t count) const {
  std::uint32_t value = 0;
  for (std::size_t i = 0; i < count; ++i) {
    value |= std::uint32_t{At(index + i)} << (8 * i);
  }
  return value;
}

std::uint32_t TlvWalk::ItemUInt() {
  const Tlv item = NextItem();
  return UInt(item.at, std::min(item.length, sizeof(std::uint32_t)));
}

std::uint32_t TlvWalk::ItemText() {
  char text[kLongestText + 1] = {};
  const Tlv item = NextItem();
  for (std::size_t i = 0; i < std::min(item.length, kLongestText); ++i) {
    text[i] = static_cast<char>(At(item.at + i));
  }
  return common::ScanUnsigned(text);
}

std::uint32_t TlvWalk::ItemFloat() { return UInt(NextItem().at, 4); }

double TlvWalk::ItemIntFloat() {
  const Tlv item = NextItem();
  const auto whole = static_cast<std::int32_t>(UInt(item.at, 4));
  const auto fraction = std::bit_cast<float>(UInt(item.at + 4, 4));
  return static_cast<double>(whole) + static_cast<double>(fraction);
}

void TlvWalk::ItemDate(TAVDT& time) {
  const Tlv item = NextItem();
  time.day = At(item.at);
  time.month = At(item.at + 1);
  time.year = Year(At(item.at + 2));
}

void TlvWalk::ItemTime(TAVDT& time) {
  const Tlv item = NextItem();
  time.second = At(item.at + 1);
  time.minute = At(item.at + 2);
  time.hour = At(item.at + 3);
}

Stamp TlvWalk::ItemStamp(std::size_t& length) {
  const Tlv item = NextItem();
  length = item.length;
  std::uint8_t fields[8] = {};
  for (std::size_t i = 0; i < std::min(length, sizeof fields); ++i) fields[i] = At(item.at + i);
  Stamp stamp;
  if (length > 0) stamp.time.year = Year(fields[0]);
  stamp.time.month = fields[1];
  stamp.time.day = fields[2];
  stamp.time.hour = fields[3];
  stamp.time.minute = fields[4];
  stamp.time.second = fields[5];
  if (length >= sizeof fields) {
    stamp.extra = static_cast<std::uint16_t>(fields[6] | (fields[7] << 8));
  }
  return stamp;
}

void TlvWalk::ItemBytes(std::span<std::uint8_t> destination) {
  const Tlv item = NextItem();
  const std::size_t count = std::min(item.length, destination.size());
  for (std::size_t i = 0; i < count; ++i) destination[i] = At(item.at + i);
}

}  // namespace k7
