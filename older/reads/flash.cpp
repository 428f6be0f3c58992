#include "older/reads/flash.h"

#include <algorithm>

#include "older/reads/text_items.h"

namespace older {
namespace {

constexpr std::size_t kBufferSize = 10240;

// A row holds its text in the middle.
constexpr std::size_t kRowSize = 16;
constexpr std::size_t kRowText = 4;
constexpr std::size_t kRowsPerPage = kFlashPageSize / kRowSize;
constexpr std::size_t kItemsPerPage = kFlashPageSize / kItemSize;

}  // namespace

ExchangeError ReadFlashRows(TKSplImpl& reader, std::uint16_t firstPage,
                            std::span<std::uint8_t> items) {
  const std::size_t rows = items.size() / kItemSize;
  const std::size_t pages = (rows + kRowsPerPage - 1) / kRowsPerPage;
  std::array<std::uint8_t, kBufferSize> buffer;
  const ExchangeError error =
      reader.link.ReadFlash(firstPage, std::span(buffer).first(pages * kFlashPageSize));
  if (error != ExchangeError::kNone) return error;
  for (std::size_t row = 0; row < rows; ++row) {
    std::copy_n(&buffer[row * kRowSize + kRowText], kItemSize, &items[row * kItemSize]);
  }
  return ExchangeError::kNone;
}

ExchangeError ReadFlashBytes(TKSplImpl& reader, std::uint16_t address,
                             std::span<std::uint8_t> data) {
  const std::size_t count = data.size() / kItemSize;
  const std::size_t offset = address % kFlashPageSize;
  const std::size_t pages =
      count / kItemsPerPage + (count % kItemsPerPage != 0 ? 1 : 0) + (offset != 0 ? 1 : 0);
  if (pages * kFlashPageSize + offset > kBufferSize) {
    reader.Say("error len buffer_r", "error");
    return ExchangeError::kNoBuffer;
  }
  std::array<std::uint8_t, kBufferSize> buffer;
  const auto firstPage = static_cast<std::uint16_t>(address / kFlashPageSize);
  const ExchangeError error =
      reader.link.ReadFlash(firstPage, std::span(buffer).first(pages * kFlashPageSize));
  if (error == ExchangeError::kNone) std::copy_n(&buffer[offset], data.size(), data.begin());
  return error;
}

}  // namespace older
