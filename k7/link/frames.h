// The two frames of the K7 protocol: how requests are built.
//
// Long:  10 addr 90 seq 00 length(2, low byte first) command data.. crc(2, high byte first);
//        length counts the command and the data, the CRC covers everything behind the 10.
// Short: 10 addr command data.. checksum 16; the checksum covers address, command and data.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace k7 {

inline constexpr std::uint8_t kStartByte = 0x10;
inline constexpr std::uint8_t kLongMarker = 0x90;
inline constexpr std::uint8_t kStopByte = 0x16;

// Offsets within a long frame.
inline constexpr std::size_t kLengthAt = 5;
inline constexpr std::size_t kCommandAt = 7;
inline constexpr std::size_t kDataAt = 8;

// What a long frame holds beside the bytes that its length counts.
inline constexpr std::size_t kLongOverhead = 9;

using TxBuf = std::array<std::uint8_t, 1024>;

// Both return the frame within the buffer, whose rest is zero. Data beyond what fits is left out.
//
// The high byte of the length is always 0, also for more than 254 data bytes: intended.
std::span<const std::uint8_t> BuildLongFrame(TxBuf& buffer, std::uint8_t address,
                                             std::uint8_t sequence, std::uint8_t command,
                                             std::span<const std::uint8_t> data);
std::span<const std::uint8_t> BuildShortFrame(TxBuf& buffer, std::uint8_t address,
                                              std::uint8_t command,
                                              std::span<const std::uint8_t> data);

}  // namespace k7
