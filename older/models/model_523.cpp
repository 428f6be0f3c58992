#include "older/models/model_523.h"

namespace older {

void ConvertArchive523(Columns columns, std::span<const std::uint8_t> reply,
                       std::span<std::uint8_t> record) {
  constexpr Field kM3 = FieldOf(kArchiveLayout523, "M3");
  ConvertColumns(columns, reply, record, kM3.offset);
  StoreDifference(record, kM3, FieldOf(kArchiveLayout523, "M1"), FieldOf(kArchiveLayout523, "M2"));
}

}  // namespace older
