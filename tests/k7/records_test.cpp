// The records of the tables: their columns, and the values that go into them.
#include <doctest/doctest.h>

#include <cstring>

#include "k7/archive_records.h"
#include "k7/layouts.h"
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

Bytes Decode(Columns columns, k7::Closing closing, const Bytes& items) {
  k7::Items walk(items);
  const k7::Record record = k7::DecodeArchive(columns, closing, {2016, 3, 31, 23, 1, 2}, walk);
  CHECK(walk.Cursor() == items.size());
  return {record.Bytes().begin(), record.Bytes().end()};
}

// One character a column.
std::string Letters(const support::Section& section, char HeaderRecord::*letter) {
  std::string letters;
  for (const HeaderRecord& column : section.columns) letters += column.*letter;
  return letters;
}

std::string Names(const support::Section& section) {
  std::string names;
  for (const HeaderRecord& column : section.columns) {
    names += (names.empty() ? "" : " ") + column.name;
  }
  return names;
}

const Bytes kHead = support::Hex("E0 07 03 1F 17 01 02 05");  // the date and the state code 5
const Bytes kCodes = Joined({k7test::UIntItem(1000), k7test::UIntItem(2000)});

}  // namespace

TEST_CASE("archive record of a 521: 38 floats and the two integers") {
  CHECK(Decode(k7::kArchive521, k7::Closing::kInOrder,
               Joined({k7test::UIntItem(5), Floats(1, 38), kCodes})) ==
        Joined({kHead, RawFloats(1, 38), Raw(1000U), Raw(2000U)}));
}

TEST_CASE("archive record of a 523: the first integer overwrites the 25th float") {
  CHECK(Decode(k7::kArchive523, k7::Closing::kSpareFloat,
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
      Decode(k7::kControl521, k7::Closing::kReversed,
             Joined({k7test::UIntItem(5), Floats(1, 17), sums, Floats(18, 35), kCodes}));
  CHECK(record == Joined({kHead, RawFloats(1, 17), rawSums, RawFloats(18, 35), Bytes(4, 0),
                          Raw(2000U), Raw(1000U)}));
  CHECK(Bytes(record.begin() + 216, record.begin() + 220) == Raw(2000U));
}

TEST_CASE("the columns of each table") {
  struct Case {
    int code;
    char group;
    std::size_t section;  // of those that the reading writes
    std::string names, types, roles;
  };
  const auto times = [](std::size_t count, char character) {
    return std::string(count, character);
  };
  const std::string counters =
      "TC1 TC2 TC3 TC4 TC5 TC6 TC7 TC8 TC9 TC10 TC11 TC12 TC13 TC14 TC15 TC16";
  const std::string t521 = "t1 t2 dt_1_2 t3 thv t4", p521 = "P1 P2 P3 Phv P4";
  const std::string t523 = "t1 t2 dt_1_2 t3 thv tvoz";
  const std::string sums = "V1 V2 V3 M1 M2 M3 Q Qgvs";
  const std::string hours523 = "Ti Tmin Tmax Ttd Tep Tf Tns Tw";
  const std::string flows = "G1 G2 G3 " + std::string("Gм1 Gм2 Gм3"_w);
  for (const Case& c : {
           Case{0x2992, 'T', 0, "SP " + flows + ' ' + t521 + ' ' + p521 + " NS DS",
                'B' + times(17, 'f') + "LL", times(20, 'd')},
           Case{0x2992, 'T', 1, sums + " Ti Tns Tw " + counters, times(8, 'd') + times(19, 'f'),
                times(27, 'i')},
           Case{0x2992, 'M', 0,
                "DT SP " + t521 + ' ' + p521 + ' ' + sums + " Ti Tns Tw " + counters + " NS DS",
                "tB" + times(38, 'f') + "LL", 'I' + times(23, 'd') + times(16, 'i') + "dd"},
           Case{0x2992, 'S', 1,
                "DT SP " + flows + ' ' + t521 + ' ' + p521 + ' ' + sums + " Ti Tns Tw " + counters +
                    " NS DS",
                "tB" + times(17, 'f') + times(8, 'd') + times(19, 'f') + "LL",
                'I' + times(18, 'd') + times(8, 'i') + "ddd" + times(16, 'i') + "dd"},
           Case{0x2B54, 'T', 0, "SP G1 G2 G3 P1 P2 " + t523 + " NS DS", 'B' + times(11, 'f') + "LL",
                times(14, 'd')},
           Case{0x2B54, 'T', 1, sums + ' ' + hours523, times(8, 'd') + times(8, 'f'),
                times(16, 'i')},
           Case{0x2B54, 'H', 0, "DT SP P1 P2 " + t523 + ' ' + sums + ' ' + hours523 + " NS DS",
                "tB" + times(24, 'f') + "LL", 'I' + times(27, 'd')},
           Case{0x2B54, 'S', 1, "DT SP P1 P2 " + t523 + ' ' + sums + ' ' + hours523 + " NS DS",
                "tB" + times(24, 'f') + "LL", 'I' + times(9, 'd') + times(16, 'i') + "dd"},
       }) {
    INFO(c.names);
    Reading reading(c.code, std::string(1, c.group).c_str());
    reading.Run();
    const auto section = reading.Sections().at(c.section);
    CHECK(Names(section) == c.names);
    CHECK(Letters(section, &HeaderRecord::type) == c.types);
    CHECK(Letters(section, &HeaderRecord::role) == c.roles);
    CHECK(section.announced == -1);
  }
}

TEST_CASE("captions, groups and units of the columns") {
  Reading reading(0x2992, "TM");
  reading.urm.items[{0, 1}] = k7test::TextItem("1");
  reading.urm.items[{0, 2}] = k7test::TextItem("2");
  reading.Run();
  const auto sections = reading.Sections();
  struct Case {
    std::size_t section;
    const char *name, *unit, *caption, *group;
  };
  for (const Case& c : {
           Case{0, "SP", "код"_w, "СП"_w, "default"},
           Case{0, "G1", "м3/час"_w, "G1", "default"},
           Case{0, "Gм2"_w, "т/час"_w, "Gм2"_w, "default"},
           Case{0, "t4", "'C", "t4", "default"},
           Case{0, "dt_1_2", "'C", "dt", "default"},
           Case{0, "thv", "'C", "tхв"_w, "default"},
           Case{0, "Phv", "МПа"_w, "Pхв"_w, "default"},
           Case{0, "NS", "Код НС"_w, "НС"_w, "kns0"},
           Case{0, "DS", "Код ДС"_w, "НС"_w, "kns0"},
           Case{1, "V1", "м3"_w, "V1", "default"},
           Case{1, "M3", "т"_w, "M3", "default"},
           Case{1, "Q", "бар"_w, "Q", "default"},
           Case{1, "Qgvs", "бар"_w, "Qгвс"_w, "default"},
           Case{1, "TC16", "Час"_w, "СТ16"_w, "default"},
           Case{2, "DT", "Дата:время"_w, "DT", "default"},
           Case{2, "Tns", "Час"_w, "Tн"_w, "default"},
           Case{2, "P4", "МПа"_w, "P4", "default"},
       }) {
    INFO(std::string(c.name));
    const auto& column = sections.at(c.section).Column(c.name);
    CHECK(column.unit == c.unit);
    CHECK(column.caption == c.caption);
    CHECK(column.group == c.group);
  }
}

TEST_CASE("the parameter databases name every parameter and its caption") {
  Reading first(0x2992, "B"), second(0x2B54, "B");
  first.Run();
  second.Run();
  const auto own = first.Sections().at(0), common = second.Sections().at(0),
             system = second.Sections().at(4);
  CHECK(Letters(own, &HeaderRecord::type) == std::string(127, 'c'));
  CHECK(own.Column("F109").caption == "ПМ"_w);
  CHECK(own.Column("F150").caption == "PLG");
  CHECK(own.Column("F166").caption == "Tka");
  CHECK(own.Column("F081").caption == "АСТ16"_w);
  CHECK(common.columns.size() == 26);
  CHECK(common.Column("F022").caption == "КУ2"_w);
  CHECK(common.Column("F024").caption == "НУ22"_w);
  CHECK(common.Column("F026").caption == "УН2"_w);
  CHECK(system.title == "ТВ2"_w);
  CHECK(system.columns.size() == 35);
  CHECK(system.Column("F034").caption == "ATф"_w);
  CHECK(system.Column("F011").width == 50);
}
