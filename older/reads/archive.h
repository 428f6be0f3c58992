// Archive records by date.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

#include "older/reads/fields.h"
#include "older/session/attempts.h"
#include "older/session/reader_state.h"

namespace older {

// Fills a record from the reply's data; the first column, DT, is already there, the rest is zero.
using ConvertArchive = void (*)(Columns columns, std::span<const std::uint8_t> reply,
                                std::span<std::uint8_t> record);

struct ArchiveRecord {
  Columns columns;
  std::uint8_t replySize;  // data bytes
  ConvertArchive convert;
  // "Data read found" and "Data not found" are sent, and the instrument's answer that there is no
  // such record ends the attempts.
  bool tells;
};

// Reads the record of a date, with attempts, double reading and validity test. record and first,
// the room for the first of two readings, are RecordSize(archive.columns) long.
ReadResult ReadArchiveRecord(TKSplImpl& reader, const ArchiveRecord& archive, Function function,
                             const SYSTEMTIME& date, std::span<std::uint8_t> record,
                             std::span<std::uint8_t> first);

// Fills a record by the types of its columns: the one byte, the mode code, from reply[0]; the one
// integer, the situation code, from the 24 bits at reply[1]; the floats in their order from
// reply[4] on. A float at leftOut in the record is not in the reply.
inline constexpr std::size_t kNoneLeftOut = std::numeric_limits<std::size_t>::max();
void ConvertColumns(Columns columns, std::span<const std::uint8_t> reply,
                    std::span<std::uint8_t> record, std::size_t leftOut);
// The same for records whose floats are all in the reply.
void ConvertEveryColumn(Columns columns, std::span<const std::uint8_t> reply,
                        std::span<std::uint8_t> record);

// The instrument float at reply[from], converted, at record[to].
void CopyFloat(std::span<const std::uint8_t> reply, std::size_t from,
               std::span<std::uint8_t> record, std::size_t to);
// As many of them, one behind the other.
void CopyFloats(std::size_t count, std::span<const std::uint8_t> reply, std::size_t from,
                std::span<std::uint8_t> record, std::size_t to);
// One single less another.
void StoreDifference(std::span<std::uint8_t> record, const Field& to, const Field& minuend,
                     const Field& subtrahend);

}  // namespace older
