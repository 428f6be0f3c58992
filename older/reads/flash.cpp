#include "older/reads/flash.h"

#include <algorithm>

#include "older/reads/text_items.h"

namespace older {
namespace {

constexpr std::size_t kRowsPerPage = kFlashPageSize / kRowSize;
constexpr std::size_t kItemsPerPage = kFlashPageSize / kItemSize;

}  // namespace

FlashRead ReadFlashRows(TKSplImpl& reader, std::uint16_t firstPage, std::size_t size,
                        FlashBuffer& buffer) {
  const std::size_t rows = size / kItemSize;
  const std::size_t pages = (rows + kRowsPerPage - 1) / kRowsPerPage;
  const ExchangeError error =
      reader.link.ReadFlash(firstPage, std::span(buffer).first(pages * kFlashPageSize));
  if (error != ExchangeError::kNone) return {error};
  for (std::size_t row = 0; row < rows; ++row) {
    std::copy_n(&buffer[row * kRowSize + kRowText], kItemSize, &buffer[row * kItemSize]);
  }
  return {ExchangeError::kNone, std::span(buffer).first(size)};
}

FlashRead ReadFlashBytes(TKSplImpl& reader, std::uint16_t address, std::size_t size,
                         FlashBuffer& buffer) {
  const std::size_t count = size / kItemSize;
  const std::size_t offset = address % kFlashPageSize;
  const std::size_t pages =
      count / kItemsPerPage + (count % kItemsPerPage != 0 ? 1 : 0) + (offset != 0 ? 1 : 0);
  if (pages * kFlashPageSize + offset > buffer.size()) {
    reader.Say("error len buffer_r", "error");
    return {ExchangeError::kNoBuffer};
  }
  const auto firstPage = static_cast<std::uint16_t>(address / kFlashPageSize);
  const ExchangeError error =
      reader.link.ReadFlash(firstPage, std::span(buffer).first(pages * kFlashPageSize));
  if (error != ExchangeError::kNone) return {error};
  return {error, std::span(buffer).subspan(offset, size)};
}

}  // namespace older
