// Steps of a reading: what is asked before a section, and the sections without dates.
#include "common/cp1251.h"
#include "driver/read_groups.h"
#include "older/reading/reading.h"
#include "older/session/session.h"

namespace older {

using namespace common::literals;

ReadPart WholeInstrument(const Model& model) { return {model, 1, common::Format("%s", "ОВ"_w)}; }

ReadPart HeatSystem(const Model& model, int system) {
  return {model, system, common::Format("%s%d", "ТВ"_w, system)};
}

bool ReadClockOrTell(TKSplImpl& reader) {
  const ReadResult result = ReadClock(reader);
  if (!result.done) TellError(reader, result.error, "Dt");
  return result.done;
}

void TellError(TKSplImpl& reader, ExchangeError error, const char* subject) {
  reader.SayNumber(static_cast<unsigned long>(error), subject);
}

bool ReadBlockOrTell(TKSplImpl& reader, const Block& block, int system,
                     std::span<std::uint8_t> record) {
  const ReadResult result = block.read(reader, block, system, record);
  if (!result.done) TellError(reader, result.error, block.failure);
  return result.done;
}

bool OpenSystem(TKSplImpl& reader, int system) {
  return IdentifyWithAttempts(reader, static_cast<std::uint8_t>(system));
}

void TellSystemNotOpened(TKSplImpl& reader, int system) {
  reader.SayNumber(static_cast<unsigned long>(system), "Init Opros Error ТВ"_w);
}

bool Stopped(TKSplImpl& reader) {
  if (reader.driver.IsStop() == 0) return false;
  reader.driver.ReadStop(false);
  return true;
}

void TellStart(TKSplImpl& reader, const ReadPart& part, StartText start, const char* name) {
  if (start != nullptr) {
    reader.Say(start, name);
  } else {
    reader.Say(common::Format("Start Read %s", part.name.characters), name);
  }
}

void WriteRow(TKSplImpl& reader, std::span<const std::uint8_t> record) {
  reader.out.RowMarker();
  reader.out.Data(record);
}

bool ReadDatabaseSection(TKSplImpl& reader, const ReadPart& part, const DatabaseSection& section,
                         std::span<const std::uint8_t> record) {
  if (!GroupWanted(reader.driver, ReadGroup::kDatabase)) return true;
  if (Stopped(reader)) return false;
  TellStart(reader, part, section.start, section.startName);
  reader.out.Title(TitleKind::kDatabase, part.name, reader.InstrumentClock);
  reader.out.Layout(section.block.columns, part.model.units(reader, part.system),
                    ColumnCount::kAnnounced);
  WriteRow(reader, record);
  if (reader.out.Refused()) return false;
  if (section.noticeAfter) reader.SayNewValues();
  return true;
}

namespace {

void WriteOperative(TKSplImpl& reader, const ReadPart& part, const char* title,
                    std::span<const std::uint8_t> record) {
  const OperativeSection& section = part.model.operative;
  reader.out.Title(TitleKind::kCurrent, title, reader.InstrumentClock);
  reader.out.Layout(section.layout, part.model.units(reader, part.system), ColumnCount::kAnnounced);
  reader.out.RowMarker();
  for (const Block& block : section.blocks) {
    const std::size_t size = RecordSize(block.columns);
    reader.out.Data(record.first(size));
    record = record.subspan(size);
  }
}

}  // namespace

bool ReadOperative(TKSplImpl& reader, const ReadPart& part, const char* title) {
  std::array<std::uint8_t, kLargestOperative> buffer{};
  std::span<std::uint8_t> rest = buffer;
  for (const Block& block : part.model.operative.blocks) {
    const std::size_t size = RecordSize(block.columns);
    if (!ReadBlockOrTell(reader, block, part.system, rest.first(size))) return false;
    rest = rest.subspan(size);
  }
  WriteOperative(reader, part, title, buffer);
  return !reader.out.Refused();
}

bool ReadOperativeSection(TKSplImpl& reader, const ReadPart& part) {
  if (!GroupWanted(reader.driver, ReadGroup::kCurrent)) return true;
  if (Stopped(reader)) return false;
  TellStart(reader, part, part.model.start, part.model.operative.startName);
  if (!ReadOperative(reader, part, part.name)) return false;
  reader.driver.IncPr(2);
  return true;
}

}  // namespace older
