// Tag-length-value items with BER lengths, which replies consist of: a tag byte, a length, a value.
// The length is one byte up to 7F, or 80 + n and n bytes, most significant first. The decoders do
// not look at tags.
//
// Lengths are the instrument's word: whatever they claim, the walk stays inside its buffer, and
// what would lie behind it reads as zero.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "TKSplDrv/types.h"

namespace k7 {

// Where an item's value lies; length is what the item claims, at most kMostItemLength.
struct Tlv {
  std::size_t at = 0;
  std::size_t length = 0;
};

// Longer than any buffer.
inline constexpr std::size_t kMostItemLength = 0x10000;

// An archive time stamp, the value of an item with this tag.
inline constexpr std::uint8_t kStampTag = 0x49;
struct Stamp {
  TAVDT time{};
  std::uint16_t extra = 0;
};

class TlvWalk {
 public:
  // bytes: the whole reply buffer, which outlives the walk.
  explicit TlvWalk(std::span<const std::uint8_t> bytes) : bytes_(bytes) {}

  std::size_t Cursor() const { return cursor_; }
  // The tag of the item at the cursor.
  std::uint8_t Tag() const { return At(cursor_); }

  // The item at the cursor, which moves behind it.
  Tlv NextItem();
  // The same, but the cursor moves to the value: the next item is the first one inside.
  Tlv EnterItem();

  // The decoders take the next item. Those of a fixed size read that many bytes from where the
  // value starts, whatever length the item claims.

  // Any length, low byte first; 32 bits of it.
  std::uint32_t ItemUInt();
  // A decimal number in at most 254 characters; 0 when there is none.
  std::uint32_t ItemText();
  // Four bytes: the bits of an IEEE single. Bits, for a floating-point register may change a NaN.
  std::uint32_t ItemFloat();
  // Eight bytes: a signed 32-bit integer and an IEEE single, which are added.
  double ItemIntFloat();
  // Three bytes: day, month and year; the other fields of time stay.
  void ItemDate(TAVDT& time);
  // Four bytes: second, minute and hour behind one that is not used; the other fields stay.
  void ItemTime(TAVDT& time);
  // Year, month, day, hour, minute, second and two bytes of the extra number; fields that the value
  // is too short for are 0. The item's length goes with it: 0 is an empty stamp.
  Stamp ItemStamp(std::size_t& length);
  // At most as many bytes of the value as destination holds; the rest of it stays.
  void ItemBytes(std::span<std::uint8_t> destination);

 private:
  // 0 behind the end.
  std::uint8_t At(std::size_t index) const { return index < bytes_.size() ? bytes_[index] : 0; }
  // Low byte first; count is at most 4.
  std::uint32_t UInt(std::size_t index, std::size_t count) const;
  Tlv Locate() const;
  void MoveTo(std::size_t index);

  std::span<const std::uint8_t> bytes_;
  std::size_t cursor_ = 0;
};

}  // namespace k7
