// The skeleton that runs a model's description: the batch reading and one cycle of the continuous
// one.
#pragma once

#include "common/format.h"
#include "older/models/catalogue.h"

namespace older {

// The batch reading. False when it failed or was stopped.
bool ReadInstrument(TKSplImpl& reader, const Model& model);

// One cycle of the continuous reading.
void Nonstop(TKSplImpl& reader, const Model& model);

// --- Steps that the batch and the continuous reading share ---

// What of an instrument is being read: the whole of it, or one of two heat systems.
struct ReadPart {
  const Model& model;
  int system;              // 1 where there is only one
  common::ShortText name;  // "ОВ", "ТВ1", "ТВ2"
};

ReadPart WholeInstrument(const Model& model);
ReadPart HeatSystem(const Model& model, int system);

// Reads the clock and tells its failure.
bool ReadClockOrTell(TKSplImpl& reader);
// The number of the error and what failed.
void TellError(TKSplImpl& reader, ExchangeError error, const char* subject);
// Reads a block and tells its failure.
bool ReadBlockOrTell(TKSplImpl& reader, const Block& block, int system,
                     std::span<std::uint8_t> record);
// Opens the session of a heat system; false when it did not answer.
bool OpenSystem(TKSplImpl& reader, int system);
void TellSystemNotOpened(TKSplImpl& reader, int system);

// Current values and totals: reads them, and writes title, layout and row. False when a read failed
// (which is told) or the host refused a write.
bool ReadOperative(TKSplImpl& reader, const ReadPart& part, const char* title);

// The layout of a section that has a row for each record.
void WriteArchiveLayout(TKSplImpl& reader, const ReadPart& part, const ArchiveRecord& archive);
void WriteRow(TKSplImpl& reader, std::span<const std::uint8_t> record);

// The record of a date, in its own memory.
class ArchiveReading {
 public:
  explicit ArchiveReading(const ArchiveRecord& archive) : archive_(archive) {}

  // False when it was not obtained.
  bool Read(TKSplImpl& reader, Function function, const SYSTEMTIME& date);
  std::span<const std::uint8_t> Record() { return Part(record_); }

 private:
  using Buffer = std::array<std::uint8_t, kLargestArchiveRecord>;
  std::span<std::uint8_t> Part(Buffer& buffer) {
    return std::span(buffer).first(RecordSize(archive_.columns));
  }

  const ArchiveRecord& archive_;
  Buffer record_{};
  Buffer first_{};  // of two readings
};

// --- Steps of the batch reading ---

// A stop asked for between two sections: reported, and true.
bool Stopped(TKSplImpl& reader);
// "Start Read ..." and the section's name.
void TellStart(TKSplImpl& reader, const ReadPart& part, StartText start, const char* name);

void PlanProgress(TKSplImpl& reader, const ProgressWeights& weights);

bool ReadDatabaseSection(TKSplImpl& reader, const ReadPart& part, const DatabaseSection& section,
                         std::span<const std::uint8_t> record);
bool ReadOperativeSection(TKSplImpl& reader, const ReadPart& part);
bool ReadArchiveSections(TKSplImpl& reader, const ReadPart& part);
bool ReadLogSections(TKSplImpl& reader, const ReadPart& part);

}  // namespace older
