// Logs: 100 entries in flash from the oldest on; an entry that starts with 0x00 or 0xFF ends them.
#pragma once

#include <cstdint>
#include <span>

#include "older/reads/flash.h"

namespace older {

struct Log {
  Columns columns;        // of the records in the output; the first one is the date
  const char* name;       // in its title
  const char* attempts;   // second text of the reports of failed attempts
  std::size_t entrySize;  // bytes in flash
  // Fills what follows the date in a record.
  void (*convert)(std::span<const std::uint8_t> entry, std::span<std::uint8_t> rest);
};

inline constexpr std::size_t kLogEntries = 100;
inline constexpr std::size_t kLogDateText = 17;  // "04.09.16/13:05:09", at the start of an entry

// Reads the log at a flash byte address, with attempts. One that cannot be read has no entries.
std::span<const std::uint8_t> ReadLog(TKSplImpl& reader, const Log& log, std::uint16_t address,
                                      FlashBuffer& buffer);

// Takes the next entry off entries and makes it a record of RecordSize(log.columns); false when
// there is none.
bool NextRecord(const Log& log, std::span<const std::uint8_t>& entries,
                std::span<std::uint8_t> record);

}  // namespace older
