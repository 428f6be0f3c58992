#include "driver/record_stream.h"

namespace tav {

void RecordStream::Title(TitleKind kind, const char* section, const TAVDT& time) {
  if (refused_) return;
  refused_ = driver_.WriteTavTitle(static_cast<char>(kind), driver_.typeText, driver_.versionText,
                                   driver_.numberText, section, &time) == 0;
}

bool RecordStream::Layout(Columns columns, const ChosenUnits& units, ColumnCount count) {
  if (count == ColumnCount::kAnnounced) {
    const auto number = static_cast<std::uint16_t>(columns.size());
    const std::uint8_t bytes[] = {static_cast<std::uint8_t>(number & 0xFF),
                                  static_cast<std::uint8_t>(number >> 8)};
    Data(bytes);
  }
  for (const Column& column : columns) {
    const char* unit = column.unit.text != nullptr ? column.unit.text : units[column.unit.choice];
    if (unit == nullptr) return false;
    Header(column, unit);
  }
  return !refused_;
}

void RecordStream::Header(const Column& column, const char* unit) {
  if (refused_) return;
  refused_ =
      driver_.WriteShapkaRec(column.name, static_cast<char>(column.type), column.width, unit,
                             static_cast<char>(column.role), column.caption, column.group) == 0;
}

void RecordStream::Marker(char marker) {
  const std::uint8_t bytes[] = {static_cast<std::uint8_t>(marker)};
  Data(bytes);
}

void RecordStream::Data(std::span<const std::uint8_t> bytes) {
  if (refused_) return;
  refused_ = driver_.WriteDataRec(bytes.data(), static_cast<unsigned long>(bytes.size())) == 0;
}

}  // namespace tav
