// Change and situation logs: 100 entries in flash from the oldest on; an entry that starts with
// 0x00 or 0xFF ends them.
#pragma once

#include "older/models/model.h"

namespace older {

inline constexpr std::size_t kLogEntries = 100;
inline constexpr std::size_t kLargestLogEntry = 32;   // bytes in flash
inline constexpr std::size_t kLargestLogRecord = 22;  // bytes in the output

struct Log {
  Columns columns;
  const char* attempts;   // second text of the reports of failed attempts
  std::size_t entrySize;  // bytes in flash
  // Fills what follows the date in a record.
  void (*convert)(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest);
};

extern const Log kChangeLog;
extern const Log kSituationLog;

// The entries of a log as records of RecordSize(log.columns), one behind the other.
struct LogRecords {
  std::size_t count = 0;
  std::array<std::uint8_t, kLogEntries * kLargestLogRecord> bytes{};
};

// Entries of log.entrySize bytes each, as they stand in flash.
LogRecords DecodeLog(const Log& log, std::span<const std::uint8_t> entries);

// Reads the log at a flash byte address, with attempts. One that cannot be read has no entries.
LogRecords ReadLog(TKSplImpl& reader, const Log& log, std::uint16_t address);

}  // namespace older
