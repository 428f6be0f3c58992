// The records of an archive reply: an item 49 with the record's time stamp, then an item 30 whose
// content holds the values as items of their own.
#pragma once

#include <cstddef>

#include "k7/link/tlv.h"
#include "k7/reads/record.h"
#include "k7/tables.h"

namespace k7 {

inline constexpr std::uint8_t kRecordTag = 0x30;

// What stands at a cursor among the records.
enum class Found {
  kRecord,
  kNoMoreRecords,
  kUnknownItem,   // passed over
  kStampAlone,    // a time stamp without its record
  kPastReplyEnd,  // a record that claims more than the reply holds
};

// Looks at the item at the cursor. After a record was found the cursor stands at its first value,
// and stamp is its time. replyLength: the length that the reply's frame reported, at most what the
// walk has bytes.
Found NextRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp);

// The same until a record, the end (also the reply's) or an error: never kUnknownItem.
Found SkipToRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp);

// How the record's last values come.
enum class Closing {
  kInOrder,     // two integers
  kSpareFloat,  // a float that the record has no place for, so the first integer overwrites it
  kReversed,    // two integers for the other way round, and nothing for the float before them
};

// Values of consecutive items by their columns' types.
void DecodeColumns(Columns columns, TlvWalk& items, Record& record);

// A whole archive record. columns: the date, the values, the two integers of the closing.
void DecodeArchive(Columns columns, Closing closing, const TAVDT& date, TlvWalk& items,
                   Record& record);

}  // namespace k7
