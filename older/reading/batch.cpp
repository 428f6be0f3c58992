// The batch reading: opening the instrument, then its parts, section by section.
#include "TKSplDrv/conversions.h"
#include "common/cp1251.h"
#include "older/reading/reading.h"
#include "older/session/session.h"

namespace older {
namespace {

using namespace common::literals;

// The mode code of a heat system that is not worth reading.
constexpr std::uint32_t kModeNotInUse = 'c';

void StartDates(TKSplImpl& reader) {
  for (auto& kind : reader.progress.NextDate) {
    for (SYSTEMTIME& date : kind) DateTimeTavToSys(&date, &reader.InstrumentClock);
  }
}

void TellClock(TKSplImpl& reader) {
  const TAVDT& clock = reader.InstrumentClock;
  reader.Say(common::Format("%u.%02u.%02u %02u:%02u:%02u", clock.year, clock.month, clock.day,
                            clock.hour, clock.minute, clock.second),
             "DT");
}

void TellMode(TKSplImpl& reader, std::uint32_t mode, int system) {
  reader.SayNumber(mode, common::Format("Regim%d", system));
}

// Greets, reads the clock, plans the progress and reads the instrument's database.
bool OpenInstrument(TKSplImpl& reader, const Model& model, std::span<std::uint8_t> record) {
  const ProgressWeights& weights = model.progress;
  if (model.sectionText != nullptr) common::SetText(reader.driver.sectionText, model.sectionText);
  reader.Say(model.greeting, "Th");
  if (weights.beforeClock) PlanProgress(reader, weights);
  if (!ReadClockOrTell(reader)) return false;
  StartDates(reader);
  TellClock(reader);
  if (!weights.beforeClock) PlanProgress(reader, weights);
  reader.driver.IncPr(weights.clock);

  const Block& block = model.database.block;
  if (!ReadBlockOrTell(reader, block, 1, record)) return false;
  reader.driver.IncPr(weights.databaseRead);
  common::SetText(reader.driver.numberText, common::Format("%u", NumberIn(model.number, record)));
  if (model.keepSettings != nullptr) model.keepSettings(reader, record);
  reader.Say(reader.driver.numberText, "Numer");
  return true;
}

bool ReadSections(TKSplImpl& reader, const ReadPart& part) {
  return ReadOperativeSection(reader, part) && ReadArchiveSections(reader, part) &&
         ReadLogSections(reader, part);
}

// A heat system that is switched off is left out, here and in the continuous reading.
bool LeftOut(TKSplImpl& reader, const ReadPart& part, std::span<const std::uint8_t> record) {
  const HeatSystems& systems = *part.model.systems;
  if (NumberIn(systems.mode, record) != kModeNotInUse) return false;
  const auto text = common::Format("%s%s%u", part.name.characters, " Код ввода "_w,
                                   NumberIn(systems.entryNumber, record));
  reader.Say(text, "Чтение нецелесообразно"_w);
  reader.progress.SystemSkip[part.system] = 1;
  return true;
}

bool ReadSystem(TKSplImpl& reader, const Model& model, int system) {
  const ReadPart part = HeatSystem(model, system);
  common::SetText(reader.driver.sectionText, part.name);
  reader.Say(part.name, "Th");
  if (!OpenSystem(reader, system)) {
    TellSystemNotOpened(reader, system);
    return false;
  }
  reader.SayNumber(static_cast<unsigned long>(system), "Init Opros OK ТВ"_w);
  reader.driver.IncPr(2);

  const DatabaseSection& database = model.systems->database;
  std::array<std::uint8_t, kLargestDatabase> buffer{};
  const auto record = std::span(buffer).first(RecordSize(database.block.columns));
  if (!ReadBlockOrTell(reader, database.block, system, record)) return false;
  TellMode(reader, NumberIn(model.systems->mode, record), system);
  reader.driver.IncPr(8);
  if (!ReadDatabaseSection(reader, part, database, record)) return false;
  return LeftOut(reader, part, record) || ReadSections(reader, part);
}

// Every system is read whatever the others gave; only a host that takes no more ends it.
bool ReadSystems(TKSplImpl& reader, const Model& model, bool general) {
  bool any = false;
  for (int system = 1; system <= model.systems->count && !reader.out.Refused(); ++system) {
    any = ReadSystem(reader, model, system) || any;
  }
  return general && any;
}

bool ReadWhole(TKSplImpl& reader, const Model& model) {
  const ReadPart part = WholeInstrument(model);
  const Block& block = model.database.block;
  std::array<std::uint8_t, kLargestDatabase> buffer{};
  const auto record = std::span(buffer).first(RecordSize(block.columns));
  if (!OpenInstrument(reader, model, record)) return false;
  if (!model.systems) TellMode(reader, NumberIn(model.mode, record), part.system);
  if (!ReadDatabaseSection(reader, part, model.database, record)) return false;
  return model.systems.has_value() || ReadSections(reader, part);
}

}  // namespace

bool ReadInstrument(TKSplImpl& reader, const Model& model) {
  const bool whole = ReadWhole(reader, model);
  return model.systems ? ReadSystems(reader, model, whole) : whole;
}

}  // namespace older
