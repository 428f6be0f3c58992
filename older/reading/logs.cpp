// The log sections: the entries whose hour lies in the requested range.
#include <cstring>

#include "common/cp1251.h"
#include "driver/read_groups.h"
#include "older/reading/period.h"
#include "older/reading/reading.h"
#include "older/reads/log.h"

namespace older {
namespace {

using namespace common::literals;

bool InRange(const TavDrvV1& driver, std::span<const std::uint8_t> record) {
  TAVDT key;
  std::memcpy(&key, record.data(), sizeof key);
  const std::uint32_t hour = GetAbsH(key.year, key.month, key.day, key.hour);
  return hour >= HourOf(driver.dateFrom) && hour <= HourOf(driver.dateTo);
}

// A log without entries leaves no section; one without an entry in range leaves an empty one.
void ReadLogSection(TKSplImpl& reader, const ReadPart& part, const Log& log, const char* name,
                    std::uint16_t address) {
  const common::ShortText title = common::Format("%s %s", part.name.characters, name);
  reader.Say(common::Format("Start Read %s", title.characters), "Sit");
  const LogRecords records = ReadLog(reader, log, address);
  if (records.count == 0) return;
  reader.out.Title(TitleKind::kLog, title, reader.InstrumentClock);
  reader.out.Layout(log.columns, {}, ColumnCount::kAnnounced);
  const std::size_t size = RecordSize(log.columns);
  for (std::size_t i = 0; i < records.count; ++i) {
    const auto record = std::span(records.bytes).subspan(i * size, size);
    if (InRange(reader.driver, record)) WriteRow(reader, record);
  }
  reader.out.EndMarker();
}

}  // namespace

bool ReadLogSections(TKSplImpl& reader, const ReadPart& part) {
  const LogAddresses* logs = part.model.logs;
  if (logs == nullptr || !GroupWanted(reader.driver, ReadGroup::kLogs)) return true;
  if (Stopped(reader)) return false;
  const int place = part.system - 1;
  ReadLogSection(reader, part, kChangeLog, "ИЗМ"_w, logs->changes[place]);
  if (reader.out.Refused()) return false;
  ReadLogSection(reader, part, kSituationLog, "НС"_w, logs->situations[place]);
  return !reader.out.Refused();
}

}  // namespace older
