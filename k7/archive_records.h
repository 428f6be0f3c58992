// The records of an archive reply: an item 49 with the record's time stamp, then an item 30 whose
// content holds the values as items of their own.
#pragma once

#include <cstddef>

#include "k7/link/tlv.h"
#include "k7/record.h"
#include "k7/tables.h"

namespace k7 {

// Results of NextRecord; a positive one is the length of the record's content.
enum RecordCode : int {
  kNoMoreRecords = 0,
  kUnknownItem = -1,   // skipped
  kStampAlone = -2,    // a time stamp without its record
  kPastReplyEnd = -3,  // the content claims more than the reply holds
};

// Looks at the item at the cursor. After a record was found the cursor stands at its first value.
// replyLength: the length that the reply's frame reported.
int NextRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp);

// The same until a record, the end (also the reply's) or a parse error: never kUnknownItem.
int SkipToRecord(TlvWalk& items, std::size_t replyLength, Stamp& stamp);

// How the record's last values come.
enum class Closing {
  kInOrder,     // two integers
  kSpareFloat,  // a float that the record has no place for, so the first integer overwrites it
  kReversed,    // two integers for the other way round, and nothing for the float before them
};

// Values of consecutive items by their columns' types.
void DecodeColumns(Columns columns, TlvWalk& items, Record& record);

// A whole archive record. columns: the date, the values, the two integers of the closing.
Record DecodeArchive(Columns columns, Closing closing, const TAVDT& date, TlvWalk& items);

}  // namespace k7
