// Archive records by date.
#pragma once

#include "older/models/model.h"

namespace older {

// Reads the record of a date, with attempts, double reading and validity test. record is
// RecordSize(archive.columns) long. tells: "Data read found" and "Data not found" are sent, and the
// instrument's answer that there is no such record ends the attempts.
ReadResult ReadArchiveRecord(TKSplImpl& reader, const ArchiveRecord& archive, Function function,
                             const SYSTEMTIME& date, bool tells, std::span<std::uint8_t> record);

// The instrument float at reply[from], converted, at record[to].
void CopyFloat(std::span<const std::uint8_t> reply, std::size_t from,
               std::span<std::uint8_t> record, std::size_t to);
// record[to] = the single at record[minuend] less that at record[subtrahend].
void StoreDifference(std::span<std::uint8_t> record, std::size_t to, std::size_t minuend,
                     std::size_t subtrahend);

}  // namespace older
