// Archive records by date.
#pragma once

#include <string_view>

#include "older/models/model.h"

namespace older {

// Reads the record of a date, with attempts, double reading and validity test. record is
// RecordSize(archive.columns) long. tells: "Data read found" and "Data not found" are sent, and the
// instrument's answer that there is no such record ends the attempts.
ReadResult ReadArchiveRecord(TKSplImpl& reader, const ArchiveRecord& archive, Function function,
                             const SYSTEMTIME& date, bool tells, std::span<std::uint8_t> record);

// Fills a record by its columns: NS from the 24 bits at reply[1], a mode code SP from reply[0], and
// the columns of floats in their order from reply[4] on.
void ConvertByColumns(Columns columns, std::span<const std::uint8_t> reply,
                      std::span<std::uint8_t> record);
// The same without the column of floats of this name, which the reply does not have.
void ConvertColumnsBut(std::string_view leftOut, Columns columns,
                       std::span<const std::uint8_t> reply, std::span<std::uint8_t> record);

// The instrument float at reply[from], converted, at record[to].
void CopyFloat(std::span<const std::uint8_t> reply, std::size_t from,
               std::span<std::uint8_t> record, std::size_t to);
// record[to] = the single at record[minuend] less that at record[subtrahend].
void StoreDifference(std::span<std::uint8_t> record, std::size_t to, std::size_t minuend,
                     std::size_t subtrahend);

}  // namespace older
