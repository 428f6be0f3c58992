#include "older/reads/memory.h"

namespace older {

ReadResult ReadMemoryBlock(TKSplImpl& reader, const Block& block, int system,
                           std::span<std::uint8_t> record) {
  const AttemptPlan plan{.name = block.attempts, .confirmation = ForOthers(reader.policy)};
  const std::uint16_t address = block.place[system - 1];
  const ReadResult result = Attempt(reader.driver, reader.policy, plan,
                                    [&] { return reader.link.ReadMemory(address, record); });
  if (result.done) ConvertFloats(block.columns, record);
  return result;
}

void ConvertFloats(Columns columns, std::span<std::uint8_t> record) {
  std::size_t offset = 0;
  for (const Column& column : columns) {
    if (column.type == Type::kFloat) ConvertFloat(record.subspan(offset).first<4>());
    offset += column.width;
  }
}

}  // namespace older
