#include "k7/reads/archive_records.h"

#include <doctest/doctest.h>

#include "tests/support/hex.h"

using k7::Found;
using support::Bytes;
using support::Hex;

TEST_CASE("what is no record in an archive reply") {
  struct Case {
    const char* bytes;
    Found found;
    std::size_t cursor;
  };
  for (const Case& c : {
           Case{"30 00", Found::kNoMoreRecords, 0},              // content first
           Case{"49 00 30 00", Found::kNoMoreRecords, 2},        // an empty stamp
           Case{"49 01 10 30 00", Found::kNoMoreRecords, 5},     // an empty content
           Case{"49 01 10", Found::kStampAlone, 3},              // a stamp at the end
           Case{"49 01 10 30 02 00", Found::kPastReplyEnd, 5},   // a content past the end
           Case{"49 01 10 30 01 00", Found::kRecord, 5},         // one up to the end
           Case{"02 84 FF FF FF FF", Found::kNoMoreRecords, 6},  // an unknown item without end
       }) {
    INFO(std::string(c.bytes));
    const Bytes bytes = Hex(c.bytes);
    k7::TlvWalk items(bytes);
    k7::Stamp stamp;
    CHECK((k7::SkipToRecord(items, bytes.size(), stamp) == c.found));
    CHECK(items.Cursor() == c.cursor);
  }
}
