// The output stream as the readers write it. Remembers that the host refused a piece: from then on
// nothing is written, and the readers end the reading at their next look.
#pragma once

#include <cstdint>
#include <span>

#include "TKSplDrv/driver.h"
#include "driver/column.h"

namespace tav {

// Whether a layout announces the number of its columns before them.
enum class ColumnCount { kAnnounced, kLeftOut };

class RecordStream {
 public:
  explicit RecordStream(TavDrvV1& driver) : driver_(driver) {}

  // The order of a title record: kind, model, version, number, section, the instrument's time.
  void Title(TitleKind kind, const char* section, const TAVDT& time);
  // The column headers. False when a column's unit was not chosen: the headers end before it, and
  // the count, already written, is larger than what follows; intended.
  bool Layout(Columns columns, const ChosenUnits& units, ColumnCount count);
  void RowMarker() { Marker(kRowMarker); }
  void EndMarker() { Marker(kEndMarker); }
  void Data(std::span<const std::uint8_t> bytes);

  bool Refused() const { return refused_; }

 private:
  void Header(const Column& column, const char* unit);
  void Marker(char marker);

  TavDrvV1& driver_;
  bool refused_ = false;
};

}  // namespace tav
