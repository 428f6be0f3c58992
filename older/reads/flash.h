// Flash as the parameter databases and logs stand in it.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "older/session/reader_state.h"

namespace older {

// Room for what one read of flash may bring: the instrument's limit.
using FlashBuffer = std::array<std::uint8_t, 10240>;

struct FlashRead {
  ExchangeError error = ExchangeError::kNone;
  std::span<const std::uint8_t> data = {};  // in the buffer
};

// Reads so many bytes (a multiple of 8) from a place on.
using ReadFlash = FlashRead (*)(TKSplImpl& reader, std::uint16_t place, std::size_t size,
                                FlashBuffer& buffer);

// A row holds its text in the middle.
inline constexpr std::size_t kRowSize = 16;
inline constexpr std::size_t kRowText = 4;

// The 8-byte texts of 16-byte rows, from the start of a page on.
FlashRead ReadFlashRows(TKSplImpl& reader, std::uint16_t firstPage, std::size_t size,
                        FlashBuffer& buffer);

// What stands from a byte address on. More than the buffer holds is refused with a message and
// kNoBuffer.
FlashRead ReadFlashBytes(TKSplImpl& reader, std::uint16_t address, std::size_t size,
                         FlashBuffer& buffer);

}  // namespace older
