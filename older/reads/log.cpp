#include "older/reads/log.h"

#include <cstring>

#include "TKSplDrv/conversions.h"
#include "older/session/attempts.h"

namespace older {
namespace {

void ConvertEntry(const Log& log, std::span<const std::uint8_t> entry,
                  std::span<std::uint8_t> record) {
  char text[kLogDateText + 1] = {};
  std::memcpy(text, entry.data(), kLogDateText);
  const TAVDT date = DtUrmToTav(text);
  std::memcpy(record.data(), &date, sizeof date);
  log.convert(entry, record.subspan(sizeof date));
}

}  // namespace

std::span<const std::uint8_t> ReadLog(TKSplImpl& reader, const Log& log, std::uint16_t address,
                                      FlashBuffer& buffer) {
  FlashRead read;
  const AttemptPlan plan{.name = log.attempts, .confirmation = ForOthers(reader.policy)};
  const ReadResult result = Attempt(reader.driver, reader.policy, plan, [&] {
    read = ReadFlashBytes(reader, address, kLogEntries * log.entrySize, buffer);
    return read.error;
  });
  return result.done ? read.data : std::span<const std::uint8_t>();
}

bool NextRecord(const Log& log, std::span<const std::uint8_t>& entries,
                std::span<std::uint8_t> record) {
  if (entries.empty() || entries[0] == 0x00 || entries[0] == 0xFF) return false;
  ConvertEntry(log, entries.first(log.entrySize), record);
  entries = entries.subspan(log.entrySize);
  return true;
}

}  // namespace older
