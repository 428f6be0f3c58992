// The frames of the older protocol: nine-byte requests, data and error replies. Bytes in, values
// out; nothing here touches a port.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "TKSplDrv/types.h"

namespace older {

// What an exchange came to. The numbers are those that the messages print.
enum class ExchangeError : std::uint8_t {
  kNone = 0,
  kWrite = 11,        // the request could not be written whole
  kNoHeader = 12,     // fewer than 3 header bytes
  kNoErrorCode = 13,  // an error reply without its code
  kNoErrorEnd = 14,   // an error reply without its two closing bytes
  kNoData = 15,       // fewer data bytes than asked for
  kNoEnd = 16,        // a data reply without its two closing bytes
  kChecksum = 17,     // checksum mismatch
  kReply0 = 20,       // the instrument answered with error code 0
  kReply1 = 21,       // 1
  kReply2 = 22,       // 2
  kReply3 = 23,       // 3: models 522, 523, 521.1x and 721 have no such archive record
  kReplyOther = 24,   // any other code
  kNoBuffer = 102,    // the reply does not fit the buffer
};

// A failure of the second half of a request of two halves: 10 is added to its number.
constexpr ExchangeError InSecondHalf(ExchangeError error) {
  return static_cast<ExchangeError>(static_cast<std::uint8_t>(error) + 10);
}

enum class Function : std::uint8_t {
  kIdentify = 0x3F,  // '?': P1 = session argument
  kMemory = 0x52,    // 'R': P1, P2 = address, P3 = number of bytes
  kFlash = 0x45,     // 'E': P1, P2 = first page, P3 = number of pages
  kHourly = 0x48,    // 'H': P1 to P4 = year - 1900, month, day, hour
  kDaily = 0x59,     // 'Y': the same without the hour
  kMonthly = 0x4D,   // 'M': the same without day and hour
};

struct Request {
  Function function;
  std::array<std::uint8_t, 4> parameters{};  // P1 to P4
};

inline constexpr std::size_t kRequestSize = 9;
inline constexpr std::uint8_t kStartByte = 0x10;
inline constexpr std::uint8_t kEndByte = 0x16;
inline constexpr std::uint8_t kErrorMark = 0x21;  // '!' in place of the function code

// The most data of a reply: requests count them in one byte.
inline constexpr std::size_t kMostReplyData = 255;

// Bytes of a data reply beside its data: 3 before them, checksum and end byte after.
inline constexpr std::size_t kReplyOverhead = 5;

std::array<std::uint8_t, kRequestSize> BuildRequest(std::uint8_t number, const Request& request);

Request MemoryRequest(std::uint16_t address, std::uint8_t count);
Request FlashRequest(std::uint16_t firstPage, std::uint8_t pages);
// function is kHourly, kDaily or kMonthly; what an archive does not tell apart goes out as 0.
Request ArchiveRequest(Function function, const SYSTEMTIME& date);

// The complemented 8-bit sum of all bytes but the first and the last; also stored as the last byte,
// so a checker saves the received one before. At least 2 bytes.
std::uint8_t Checksum(std::span<std::uint8_t> frame);

// What the instrument's code in an error reply means.
ExchangeError ErrorOfReply(std::uint8_t code);

// The instrument's float (16 mantissa bits, sign and 7 mantissa bits, exponent) becomes an IEEE
// single in place; so each value is converted exactly once.
void ConvertFloat(std::span<std::uint8_t, 4> value);

}  // namespace older
