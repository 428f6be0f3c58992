// The log sections: the entries whose hour lies in the requested range.
#include <cstring>

#include "driver/read_groups.h"
#include "older/reading/period.h"
#include "older/reading/reading.h"

namespace older {
namespace {

bool InRange(const TavDrvV1& driver, std::span<const std::uint8_t> record) {
  TAVDT key;
  std::memcpy(&key, record.data(), sizeof key);
  const std::uint32_t hour = GetAbsH(key.year, key.month, key.day, key.hour);
  return hour >= HourOf(driver.dateFrom) && hour <= HourOf(driver.dateTo);
}

// A log without entries leaves no section; one without an entry in range leaves an empty one.
void ReadLogSection(TKSplImpl& reader, const ReadPart& part, const LogSection& section) {
  const Log& log = section.log;
  const common::ShortText title = common::Format("%s %s", part.name.characters, log.name);
  reader.Say(common::Format("Start Read %s", title.characters), "Sit");
  FlashBuffer flash;
  auto entries = ReadLog(reader, log, section.place[part.system - 1], flash);
  std::array<std::uint8_t, kLargestLogRecord> buffer{};
  const auto record = std::span(buffer).first(RecordSize(log.columns));
  bool more = NextRecord(log, entries, record);
  if (!more) return;
  reader.out.Title(TitleKind::kLog, title, reader.InstrumentClock);
  reader.out.Layout(log.columns, {}, ColumnCount::kAnnounced);
  for (; more; more = NextRecord(log, entries, record)) {
    if (InRange(reader.driver, record)) WriteRow(reader, record);
  }
  reader.out.EndMarker();
}

}  // namespace

bool ReadLogSections(TKSplImpl& reader, const ReadPart& part) {
  if (part.model.logs.empty() || !GroupWanted(reader.driver, ReadGroup::kLogs)) return true;
  if (Stopped(reader)) return false;
  for (const LogSection& section : part.model.logs) {
    ReadLogSection(reader, part, section);
    if (reader.out.Refused()) return false;
  }
  return true;
}

}  // namespace older
