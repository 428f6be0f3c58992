// The continuous reading: the current values in every cycle, and an hour and a day when the
// instrument has closed them. Months are not read here.
#include "older/reading/period.h"
#include "older/reading/reading.h"

namespace older {
namespace {

// An hour is asked for from this minute on.
constexpr int kFirstMinute = 5;

// Whether the instrument's clock has reached the next record of the period.
bool Due(const TKSplImpl& reader, const Period& period, int system) {
  SYSTEMTIME clock = {};
  DateTimeTavToSys(&clock, &reader.InstrumentClock);
  return period.position(clock) >=
         period.position(reader.progress.NextDate[static_cast<int>(period.kind)][system]);
}

// Reads and writes the next record and goes on to the one after it, whether or not it was there.
void ReadNext(TKSplImpl& reader, const ReadPart& part, const Period& period) {
  const ArchiveRecord& archive = part.model.archives[static_cast<int>(period.kind)].record;
  ArchiveReading reading(archive);
  SYSTEMTIME& date = reader.progress.NextDate[static_cast<int>(period.kind)][part.system];
  if (reading.Read(reader, period.function, date)) {
    reader.out.Title(period.title, reader.driver.sectionText, reader.InstrumentClock);
    WriteArchiveLayout(reader, part, archive);
    WriteRow(reader, reading.Record());
    reader.out.EndMarker();
    if (!reader.out.Refused()) reader.SayNewValues();
  }
  period.step(&date);
}

// What ends a step early, without a failure.
bool EndsStep(TKSplImpl& reader) { return reader.out.Refused() || reader.driver.IsStop() != 0; }

void NonstopStep(TKSplImpl& reader, const ReadPart& part) {
  if (reader.progress.SystemSkip[part.system] != 0) return;
  if (!ReadOperative(reader, part, part.model.operative.continuousTitle)) return;
  reader.SayNewValues();
  if (EndsStep(reader) || reader.InstrumentClock.minute < kFirstMinute) return;
  if (!Due(reader, kHours, part.system)) return;
  if (part.model.systems.has_value() && !OpenSystem(reader, part.system)) {
    TellSystemNotOpened(reader, part.system);
    return;
  }
  if (EndsStep(reader)) return;
  ReadNext(reader, part, kHours);
  if (!Due(reader, kDays, part.system) || EndsStep(reader)) return;
  ReadNext(reader, part, kDays);
}

}  // namespace

void Nonstop(TKSplImpl& reader, const Model& model) {
  reader.Say("reading...", "Nonstop");
  if (!ReadClockOrTell(reader)) return;
  if (!model.systems) {
    NonstopStep(reader, WholeInstrument(model));
    return;
  }
  for (int system = 1; system <= model.systems->count && !reader.out.Refused(); ++system) {
    NonstopStep(reader, HeatSystem(model, system));
  }
}

}  // namespace older
