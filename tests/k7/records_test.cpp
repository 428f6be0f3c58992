// The records of the tables: their columns, and the values that go into them.
#include <doctest/doctest.h>

#include <cstring>

#include "k7/models/catalogue.h"
#include "tests/k7/scripted_urm.h"

using namespace common::literals;
using k7test::Joined;
using k7test::Reading;
using support::Bytes;
using support::HeaderRecord;

namespace {

// The bytes of a value as the record holds it.
template <typename Value>
Bytes Raw(Value value) {
  Bytes bytes(sizeof value);
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

Bytes Floats(int first, int last) {
  Bytes items;
  for (int i = first; i <= last; ++i) {
    items = Joined({items, k7test::FloatItem(static_cast<float>(i))});
  }
  return items;
}

Bytes RawFloats(int first, int last) {
  Bytes bytes;
  for (int i = first; i <= last; ++i) bytes = Joined({bytes, Raw(static_cast<float>(i))});
  return bytes;
}

Bytes Decode(tav::Columns columns, k7::Closing closing, const Bytes& items) {
  k7::TlvWalk walk(items);
  std::uint8_t space[k7::kLargestRecord];
  k7::Record record(space);
  k7::DecodeArchive(columns, closing, {2016, 3, 31, 23, 1, 2}, walk, record);
  CHECK(walk.Cursor() == items.size());
  return {record.Bytes().begin(), record.Bytes().end()};
}

const Bytes kHead = support::Hex("E0 07 03 1F 17 01 02 05");  // the date and the state code 5
const Bytes kCodes = Joined({k7test::UIntItem(1000), k7test::UIntItem(2000)});

}  // namespace

TEST_CASE("archive record of a 521: 38 floats and the two integers") {
  CHECK(Decode(k7::kModel521.periodic.columns, k7::Closing::kInOrder,
               Joined({k7test::UIntItem(5), Floats(1, 38), kCodes})) ==
        Joined({kHead, RawFloats(1, 38), Raw(1000U), Raw(2000U)}));
}

TEST_CASE("archive record of a 523: the first integer overwrites the 25th float") {
  CHECK(Decode(k7::kModel523.periodic.columns, k7::Closing::kSpareFloat,
               Joined({k7test::UIntItem(5), Floats(1, 25), kCodes})) ==
        Joined({kHead, RawFloats(1, 24), Raw(1000U), Raw(2000U)}));
}

TEST_CASE("control record of a 521: four zero bytes, then the integers in reverse") {
  Bytes sums, rawSums;
  for (int i = 1; i <= 8; ++i) {
    sums = Joined({sums, k7test::IntFloatItem(i, 0.5F)});
    rawSums = Joined({rawSums, Raw(i + 0.5)});
  }
  const Bytes record =
      Decode(k7::kModel521.control.columns, k7::Closing::kReversed,
             Joined({k7test::UIntItem(5), Floats(1, 17), sums, Floats(18, 35), kCodes}));
  CHECK(record == Joined({kHead, RawFloats(1, 17), rawSums, RawFloats(18, 35), Bytes(4, 0),
                          Raw(2000U), Raw(1000U)}));
  CHECK(Bytes(record.begin() + 216, record.begin() + 220) == Raw(2000U));
}

TEST_CASE("kinds, captions, groups and units of the columns") {
  struct Case {
    int code;
    std::size_t section;  // of the totals, months, control days and database that are read
    const char *name, *kind, *unit, *caption, *group;  // kind: type and role
  };
  for (const Case& c : {
           Case{0x2992, 0, "SP", "Bd", "код"_w, "СП"_w, "default"},
           Case{0x2992, 0, "Gм2"_w, "fd", "т/час"_w, "Gм2"_w, "default"},
           Case{0x2992, 0, "dt_1_2", "fd", "'C", "dt", "default"},
           Case{0x2992, 0, "thv", "fd", "'C", "tхв"_w, "default"},
           Case{0x2992, 0, "Phv", "fd", "МПа"_w, "Pхв"_w, "default"},
           Case{0x2992, 0, "DS", "Ld", "Код ДС"_w, "НС"_w, "kns0"},
           Case{0x2992, 1, "Qgvs", "di", "бар"_w, "Qгвс"_w, "default"},
           Case{0x2992, 1, "TC16", "fi", "Час"_w, "СТ16"_w, "default"},
           Case{0x2992, 2, "DT", "tI", "Дата:время"_w, "DT", "default"},
           Case{0x2992, 2, "Tns", "fd", "Час"_w, "Tн"_w, "default"},
           Case{0x2992, 2, "TC1", "fi", "Час"_w, "СТ1"_w, "default"},
           Case{0x2992, 4, "M3", "di", "т"_w, "M3", "default"},
           Case{0x2992, 5, "F109", "cd", "код"_w, "ПМ"_w, "default"},
           Case{0x2B54, 0, "F022", "cd", "код"_w, "КУ2"_w, "default"},
           Case{0x2B54, 2, "V1", "di", "м3"_w, "V1", "default"},
           Case{0x2B54, 3, "V1", "fd", "м3"_w, "V1", "default"},
           Case{0x2B54, 5, "V1", "fi", "м3"_w, "V1", "default"},
           Case{0x2B54, 6, "F034", "cd", "код"_w, "ATф"_w, "default"},
       }) {
    CAPTURE(c.section);
    INFO(std::string(c.name));
    Reading reading(c.code, "TMSB");
    reading.urm.items[{0, 1}] = k7test::TextItem("1");
    reading.urm.items[{0, 2}] = k7test::TextItem("2");
    reading.Run();
    const HeaderRecord column = reading.Sections().at(c.section).Column(c.name);
    CHECK(std::string{column.type, column.role} == c.kind);
    CHECK(column.unit == c.unit);
    CHECK(column.caption == c.caption);
    CHECK(column.group == c.group);
  }
}
