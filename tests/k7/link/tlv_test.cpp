#include "k7/link/tlv.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <cstring>

#include "simulator/k7/items.h"
#include "tests/support/hex.h"

using support::Bytes;
using support::Hex;
using support::operator+;

namespace {

Bytes Text(const std::string& text) {
  Bytes item;
  simulator::k7::PutText(item, text);
  return item;
}

}  // namespace

TEST_CASE("lengths in their short and long forms") {
  struct Case {
    const char* head;  // tag and length bytes
    std::size_t at, length;
  };
  for (const Case& c : {
           Case{"04 7F", 2, 127},
           Case{"04 80", 2, 0},
           Case{"04 81 80", 3, 128},
           Case{"04 82 01 00", 4, 256},
           Case{"04 86 00 00 00 00 00 05", 8, 5},
           Case{"04 88 01 00 00 00 00 00 00 05", 10, k7::kMostItemLength},
       }) {
    INFO(std::string(c.head));
    const Bytes bytes = Hex(c.head) + Bytes(400, 0);
    k7::TlvWalk items(bytes);
    const k7::Tlv item = items.NextItem();
    CHECK(item.at == c.at);
    CHECK(item.length == c.length);
    CHECK(items.Cursor() == std::min(c.at + c.length, bytes.size()));
  }
}

TEST_CASE("what lies behind the buffer reads as zero") {
  CHECK(k7::TlvWalk(Hex("02 04 AA BB")).ItemUInt() == 0xBBAA);
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

TEST_CASE("numbers, texts, and stamps of any length") {
  CHECK(k7::TlvWalk(Hex("02 06 04 03 02 01 09 09")).ItemUInt() == 0x01020304);
  CHECK(k7::TlvWalk(Text(" 7 bar")).ItemText() == 7);
  CHECK(k7::TlvWalk(Text("x1")).ItemText() == 0);
  CHECK(k7::TlvWalk(Text(std::string(253, '0') + "57")).ItemText() == 5);  // 254 characters count
  CHECK(k7::TlvWalk(Hex("09 04 01 00 A0 7F")).ItemFloat() == 0x7FA00001);  // a NaN stays as it is
  CHECK(k7::TlvWalk(Hex("09 08 FD FF FF FF 00 00 80 3E")).ItemIntFloat() == -2.75);
  struct Case {
    const char* value;
    TAVDT time;
    unsigned extra;
  };
  for (const Case& c : {
           Case{"49 08 10 03 1F 17 01 02 34 12 77", {2016, 3, 31, 23, 1, 2}, 0x1234},
           Case{"49 07 10 03 1F 17 01 02 34 77", {2016, 3, 31, 23, 1, 2}, 0},
           Case{"49 02 10 03 77", {2016, 3, 0, 0, 0, 0}, 0},
           Case{"49 00 77", {}, 0},
       }) {
    INFO(std::string(c.value));
    const Bytes item = Hex(c.value);
    std::size_t length = 99;
    const k7::Stamp stamp = k7::TlvWalk(item).ItemStamp(length);
    CHECK(std::memcmp(&stamp.time, &c.time, sizeof c.time) == 0);
    CHECK(stamp.extra == c.extra);
    CHECK(length == item.size() - 3);
  }
}
