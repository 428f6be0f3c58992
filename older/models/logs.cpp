#include "older/models/logs.h"

#include <algorithm>

namespace older {

void ConvertChange(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest) {
  DecodeText(entry.subspan(kLogDateText, rest.size()), rest);
}

// The code and the flag, as they stand.
void ConvertSituation(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest) {
  std::copy_n(&entry[kLogDateText], rest.size(), rest.begin());
}

}  // namespace older
