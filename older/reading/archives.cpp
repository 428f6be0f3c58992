// The archive sections: one loop for hours, days and months.
#include "TKSplDrv/conversions.h"
#include "driver/read_groups.h"
#include "older/reading/period.h"
#include "older/reading/reading.h"

namespace older {
namespace {

// Writes the records of the period's dates; date ends at the first one that was not asked for.
// False when the reading was stopped or the host refused a write.
bool ReadRecords(TKSplImpl& reader, const ReadPart& part, const Period& period, SYSTEMTIME& date) {
  ArchiveReading reading(part.model.archives[static_cast<int>(period.kind)].record);
  while (period.Includes(date, reader.driver.dateTo)) {
    period.cut(date);
    if (reading.Read(reader, period.function, date)) {
      WriteRow(reader, reading.Record());
      if (reader.out.Refused()) return false;
    }
    period.step(&date);
    if (Stopped(reader)) {
      reader.out.EndMarker();
      return false;
    }
    reader.driver.IncPr(1);
  }
  return true;
}

bool ReadArchiveSection(TKSplImpl& reader, const ReadPart& part, const Period& period) {
  const ArchiveSection& section = part.model.archives[static_cast<int>(period.kind)];
  if (Stopped(reader)) return false;
  TellStart(reader, part, part.model.start, section.startName);
  SYSTEMTIME date = reader.driver.dateFrom;
  reader.out.Title(period.title, part.name, reader.InstrumentClock);
  WriteArchiveLayout(reader, part, section.record);
  if (reader.out.Refused() || !ReadRecords(reader, part, period, date)) return false;
  reader.progress.NextDate[static_cast<int>(period.kind)][part.system] = date;
  reader.out.EndMarker();
  return !reader.out.Refused();
}

// The hours are read for the upper-case letter alone, though they are planned for both: intended.
bool HoursWanted(const TKSplImpl& reader) {
  return reader.driver.groupFlag[GroupIndex(ReadGroup::kHours)] != 0;
}

}  // namespace

void WriteArchiveLayout(TKSplImpl& reader, const ReadPart& part, const ArchiveRecord& archive) {
  reader.out.Layout(archive.columns, part.model.units(reader, part.system),
                    ColumnCount::kAnnounced);
}

bool ArchiveReading::Read(TKSplImpl& reader, Function function, const SYSTEMTIME& date) {
  return ReadArchiveRecord(reader, archive_, function, date, Part(record_), Part(first_)).done;
}

bool ReadArchiveSections(TKSplImpl& reader, const ReadPart& part) {
  if (GroupWanted(reader.driver, ReadGroup::kMonths) && !ReadArchiveSection(reader, part, kMonths))
    return false;
  if (GroupWanted(reader.driver, ReadGroup::kDays) && !ReadArchiveSection(reader, part, kDays))
    return false;
  return !HoursWanted(reader) || ReadArchiveSection(reader, part, kHours);
}

}  // namespace older
