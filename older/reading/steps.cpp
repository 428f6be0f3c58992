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

bool ReadOperative(TKSplImpl& reader, const ReadPart& part, const char* title) {
  std::array<std::uint8_t, kLargestOperative> buffer{};
  const OperativeSection& section = part.model.operative;
  std::size_t offset = 0;
  for (const Block& block : section.blocks) {
    const auto record = std::span(buffer).subspan(offset, RecordSize(block.columns));
    const ReadResult result = block.read(reader, block, part.system, record);
    if (!result.done) {
      TellError(reader, result.error, block.failure);
      return false;
    }
    offset += record.size();
  }

  reader.out.Title(TitleKind::kCurrent, title, reader.InstrumentClock);
  reader.out.Layout(section.layout, part.model.units(reader, part.system), ColumnCount::kAnnounced);
  reader.out.RowMarker();
  offset = 0;
  for (const Block& block : section.blocks) {
    const std::size_t size = RecordSize(block.columns);
    reader.out.Data(std::span(buffer).subspan(offset, size));
    offset += size;
  }
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
