// The tagged items of replies, as an instrument writes them: tag, length, value.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "simulator/instrument.h"

namespace simulator::k7 {

inline constexpr std::uint8_t kStampTag = 0x49;
inline constexpr std::uint8_t kRecordTag = 0x30;

void PutItem(Bytes& bytes, std::uint8_t tag, std::span<const std::uint8_t> value);
void PutUInt(Bytes& bytes, std::uint32_t value, std::size_t width);
void PutFloat(Bytes& bytes, double value);
// The whole part as an integer, the rest as a float.
void PutIntFloat(Bytes& bytes, double value);
void PutText(Bytes& bytes, const std::string& text);
void PutDate(Bytes& bytes, const ClockTime& time);
void PutTime(Bytes& bytes, const ClockTime& time);
// A record: its stamp, then its values, which are items themselves.
void PutRecord(Bytes& bytes, const ClockTime& stamp, const Bytes& values);

}  // namespace simulator::k7
