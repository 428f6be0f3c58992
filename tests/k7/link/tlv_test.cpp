#include "k7/link/tlv.h"

#include <doctest/doctest.h>

#include <cstring>

#include "k7/reads/archive_records.h"
#include "tests/k7/k7_bytes.h"

using k7test::Item;
using k7test::Joined;
using support::Bytes;
using support::Hex;

namespace {

bool SameTime(const TAVDT& left, const TAVDT& right) {
  return std::memcmp(&left, &right, sizeof left) == 0;
}

}  // namespace

TEST_CASE("lengths in their short and long forms") {
  struct Case {
    const char* head;  // tag and length bytes
    std::size_t at, length;
  };
  for (const Case& c : {
           Case{"04 80", 2, 0},
           Case{"04 81 80", 3, 128},
           Case{"04 82 01 00", 4, 256},
           Case{"04 86 00 00 00 00 00 05", 8, 5},
           Case{"04 88 01 00 00 00 00 00 00 05", 10, k7::kMostItemLength},
       }) {
    INFO(std::string(c.head));
    const Bytes bytes = Joined({Hex(c.head), Bytes(400, 0)});
    k7::TlvWalk items(bytes);
    const k7::Tlv item = items.NextItem();
    CHECK(item.at == c.at);
    CHECK(item.length == c.length);
    CHECK(items.Cursor() == std::min(c.at + c.length, bytes.size()));
  }
}

TEST_CASE("what lies behind the buffer reads as zero") {
  const Bytes bytes = Hex("02 04 AA BB");
  CHECK(k7::TlvWalk(bytes).ItemUInt() == 0xBBAA);
  const Bytes tag = Hex("04");
  k7::TlvWalk items(tag);
  CHECK(items.NextItem().length == 0);
  CHECK(items.ItemText() == 0);
  CHECK(items.Cursor() == tag.size());

  std::uint8_t copy[4] = {9, 9, 9, 9};
  k7::TlvWalk(Hex("04 7F AA")).ItemBytes(copy);
  CHECK(Bytes(copy, copy + 4) == Hex("AA 00 00 00"));
  k7::TlvWalk(Hex("04 02 AA BB CC")).ItemBytes(copy);
  CHECK(Bytes(copy, copy + 4) == Hex("AA BB 00 00"));
}

TEST_CASE("numbers in texts, stamps of any length") {
  CHECK(k7::TlvWalk(Hex("02 06 04 03 02 01 09 09")).ItemUInt() == 0x01020304);
  CHECK(k7::TlvWalk(k7test::TextItem(" 7 bar")).ItemText() == 7);
  CHECK(k7::TlvWalk(k7test::TextItem("x1")).ItemText() == 0);
  const std::string digits = std::string(253, '0') + "57";
  CHECK(k7::TlvWalk(k7test::TextItem(digits.c_str())).ItemText() == 5);  // 254 characters are read
  CHECK(k7::TlvWalk(Hex("09 04 01 00 A0 7F")).ItemFloat() == 0x7FA00001);  // a NaN stays as it is
  CHECK(k7::TlvWalk(k7test::IntFloatItem(-3, 0.25F)).ItemIntFloat() == -2.75);
  struct Case {
    const char* value;
    TAVDT time;
    unsigned extra;
  };
  for (const Case& c : {
           Case{"10 03 1F 17 01 02 34 12", {2016, 3, 31, 23, 1, 2}, 0x1234},
           Case{"10 03 1F 17 01 02 34", {2016, 3, 31, 23, 1, 2}, 0},
           Case{"10 03", {2016, 3, 0, 0, 0, 0}, 0},
       }) {
    INFO(std::string(c.value));
    const Bytes item = Joined({Item(0x49, Hex(c.value)), Hex("77 77")});
    std::size_t length = 99;
    const k7::Stamp stamp = k7::TlvWalk(item).ItemStamp(length);
    CHECK(SameTime(stamp.time, c.time));
    CHECK(stamp.extra == c.extra);
    CHECK(length == Hex(c.value).size());
  }
}

TEST_CASE("what is no record in an archive reply") {
  struct Case {
    const char* bytes;
    k7::Found result;
    std::size_t cursor;
  };
  for (const Case& c : {
           Case{"30 00", k7::Found::kNoMoreRecords, 0},              // content first
           Case{"49 00 30 00", k7::Found::kNoMoreRecords, 2},        // an empty stamp
           Case{"49 01 10 30 00", k7::Found::kNoMoreRecords, 5},     // an empty content
           Case{"49 01 10", k7::Found::kStampAlone, 3},              // a stamp at the end
           Case{"49 01 10 30 02 00", k7::Found::kPastReplyEnd, 5},   // a content past the end
           Case{"02 84 FF FF FF FF", k7::Found::kNoMoreRecords, 6},  // an unknown item without end
       }) {
    INFO(std::string(c.bytes));
    const Bytes bytes = Hex(c.bytes);
    k7::TlvWalk items(bytes);
    k7::Stamp stamp;
    CHECK((k7::SkipToRecord(items, bytes.size(), stamp) == c.result));
    CHECK(items.Cursor() == c.cursor);
  }
}
