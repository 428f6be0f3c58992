// Whole readings of a simulated model 521.
#include <doctest/doctest.h>

#include <algorithm>

#include "TKSplDrv/conversions.h"
#include "common/cp1251.h"
#include "simulator/older/values.h"
#include "tests/support/older_line.h"
#include "tests/support/reading.h"
#include "tests/support/sections.h"
#include "tests/support/simulated_line.h"

using namespace common::literals;
using simulator::older::Archive;
using support::Bytes;
using support::Hex;
using support::Reading;
using support::Section;
using support::TakeApart;
using support::operator+;

namespace {

constexpr SYSTEMTIME kFrom{2016, 8, 0, 30, 22, 17, 5, 9};
constexpr SYSTEMTIME kTo{2016, 9, 0, 2, 3, 0, 0, 0};

struct Reading521 : Reading {
  explicit Reading521(const simulator::Settings& settings = {}) : values(settings) {
    Connect(port, settings);
    driver.SetupDateTime(kFrom, kTo);
  }

  simulator::older::Values values;
};

simulator::Moment MomentOf(const std::string& date) {
  simulator::ClockTime t;
  std::sscanf(date.c_str(), "%d-%d-%d %d:%d:%d", &t.year, &t.month, &t.day, &t.hour, &t.minute,
              &t.second);
  return simulator::ToMoment(t);
}

void CheckRow(const Section& section, std::size_t row, const simulator::older::Row& expected) {
  for (const support::HeaderRecord& column : section.columns) {
    if (column.type == 't') continue;
    CAPTURE(column.name);
    double value = expected.Value(column.name);
    if (column.name == "NS") value = static_cast<std::uint8_t>(static_cast<std::uint32_t>(value));
    CHECK(static_cast<float>(section.Number(row, column.name)) == static_cast<float>(value));
  }
}

void CheckArchive(const Section& section, Archive kind, const simulator::older::Values& values,
                  const std::vector<std::string>& dates) {
  REQUIRE(section.rows.size() == dates.size());
  for (std::size_t row = 0; row < dates.size(); ++row) {
    CHECK(section.Date(row, "DT") == dates[row]);
    CheckRow(section, row, values.ArchiveRow(kind, 1, MomentOf(dates[row])));
  }
}

std::vector<std::string> HoursOfTheRange() {
  std::vector<std::string> hours;
  for (SYSTEMTIME t = kFrom;
       GetAbsH(t.wYear, static_cast<unsigned char>(t.wMonth), static_cast<unsigned char>(t.wDay),
               static_cast<unsigned char>(t.wHour)) <= GetAbsH(2016, 9, 2, 3);
       DateTimeIncH(&t)) {
    char text[40];
    std::snprintf(text, sizeof text, "2016-%02d-%02d %02d:00:00", t.wMonth, t.wDay, t.wHour);
    hours.emplace_back(text);
  }
  return hours;
}

}  // namespace

TEST_CASE("every group of a 521, over the end of a month") {
  Reading521 r;
  r.Groups("BTMSH");
  r.Run();

  const auto sections = TakeApart(r.stream.writes);
  std::string kinds;
  for (const Section& section : sections) {
    kinds += section.kind;
    CHECK(section.model == "УРМ521"_w);
    CHECK(section.title == "ОВ"_w);
    CHECK(section.announced == static_cast<int>(section.columns.size()));
    CHECK(section.time == Hex("E0 07 09 04 0D 05 09"));
    // Archives alone are closed.
    CHECK(section.ended == (section.kind != 'B' && section.kind != 'O'));
  }
  REQUIRE(kinds == "BOMDH");

  for (const char* column : {"TC", "C1", "tx", "P1", "KTh", "w2", "NT", "ID"}) {
    CAPTURE(column);
    CHECK(static_cast<float>(sections[0].Number(0, column)) ==
          std::stof(r.values.ParameterText(0, column)));
  }
  const auto now = simulator::ToMoment(support::kTestTime);
  for (const char* column : {"t1", "t2", "G1", "G2"}) {
    CHECK(static_cast<float>(sections[1].Number(0, column)) ==
          static_cast<float>(r.values.CurrentRow(1, now).Value(column)));
  }
  CHECK(sections[1].Number(0, "NS") == 0);
  CheckArchive(sections[2], Archive::kMonthly, r.values,
               {"2016-08-01 00:00:00", "2016-09-01 00:00:00"});
  // The day that the range ends in is left out.
  CheckArchive(sections[3], Archive::kDaily, r.values,
               {"2016-08-30 00:00:00", "2016-08-31 00:00:00", "2016-09-01 00:00:00"});
  CheckArchive(sections[4], Archive::kHourly, r.values, HoursOfTheRange());

  CHECK(r.stream.messages.back() == "2016.09.04:13.05.09 / Opros End");
  CHECK(r.stream.CountOf("OK / ReadStop") == 1);
  CHECK(r.driver.GetPr() == 101);
}

TEST_CASE("what the host hears of a 521") {
  Reading521 r;
  r.Groups("bT");
  r.Run();
  const auto said = [&](const char* a, const char* b) { return std::string(a) + " / " + b; };
  CHECK(r.stream.messages ==
        std::vector<std::string>{"2016.09.04:13.05.09 / Start Opros", said("УРМ521"_w, "Tip"),
                                 said(r.driver.versionText, "Version"), "521 / Th",
                                 "2016.09.04 13:05:09 / DT", said(r.driver.numberText, "Numer"),
                                 said(r.values.ParameterText(0, "SP").c_str(), "Regim1"),
                                 said("Start Read", "BD ОВ"_w), said("Start Read", "Oper ОВ"_w),
                                 "OK / ReadStop", "2016.09.04:13.05.09 / Opros End"});
  CHECK(std::string(r.driver.numberText) == r.values.ParameterText(0, "ID"));
}

TEST_CASE("the columns' units follow the first letter of the version") {
  struct Case {
    int version;
    const char *heat, *pressure;
  };
  for (const Case& c : {Case{4, "ГКал"_w, "кг/см2"_w}, Case{11, "ГДж"_w, "МПа"_w}}) {
    simulator::Settings settings;
    settings.special.version = c.version;
    Reading521 r(settings);
    r.Groups("BTMSH");
    r.Run();
    const auto sections = TakeApart(r.stream.writes);
    REQUIRE(sections.size() == 5);
    CHECK(sections[0].Column("P2").unit == c.pressure);
    for (std::size_t i = 1; i < 5; ++i) CHECK(sections[i].Column("Q").unit == c.heat);
    CHECK(sections[1].Column("M1").unit == "м3"_w);
    CHECK(sections[4].Column("M1").unit == "тонн"_w);
    CHECK(sections[4].Column("NS").caption == "НС"_w);
    CHECK(sections[4].Column("NS").group == "kns0");
  }
}

TEST_CASE("firmware without flows and without a number delivers -1") {
  simulator::Settings settings;
  settings.special.version = 0;
  Reading521 r(settings);
  r.Groups("BT");
  r.Run();
  const auto sections = TakeApart(r.stream.writes);
  REQUIRE(sections.size() == 2);
  CHECK(sections[0].Number(0, "ID") == -1.0);
  CHECK(sections[1].Number(0, "G1") == -1.0);
  CHECK(sections[1].Number(0, "G2") == -1.0);
  CHECK(std::string(r.driver.numberText) == "4294967295");
}

TEST_CASE("the mode code decides where volumes and masses stand") {
  // Floats of the reply from offset 4 on: 1, 2, ... 7, so that a column names its source; M1 - M2
  // is 5 - 6.
  Bytes data = Hex("00 00");
  data.resize(4);
  for (int i = 1; i <= 7; ++i) data = data + support::older::Float(static_cast<float>(i));
  data[3] = 0x2A;
  struct Case {
    int mode;
    double v1, v2, v3, m1, m2, m3;
  };
  const Case cases[] = {
      {0, 3, 4, 0, 5, 6, -1}, {1, 3, 0, 4, 5, 6, -1}, {2, 0, 3, 4, 5, 6, -1},
      {3, 3, 4, 0, 5, 6, 0},  {4, 3, 4, 0, 5, 6, 0},  {5, 3, 0, 4, 5, 0, 6},
      {6, 0, 3, 4, 0, 5, 6},  {7, 3, 0, 0, 5, 0, 0},  {8, 3, 4, 0, 5, 0, 0},
      {9, 3, 4, 0, 0, 0, 0},  {10, 0, 0, 0, 0, 0, 0}, {255, 0, 0, 0, 0, 0, 0},
  };
  for (const Case& c : cases) {
    CAPTURE(c.mode);
    Reading521 r;
    const auto instrument = r.port.answer;
    r.port.answer = [&](const Bytes& written) {
      const Bytes reply = instrument(written);
      if (!support::older::IsRequest(written, 'H')) return reply;
      data[2] = static_cast<std::uint8_t>(c.mode);
      return support::older::Reply('H', data);
    };
    r.driver.SetupDateTime(kTo, kTo);
    r.Groups("H");
    r.Run();
    const Section hours = TakeApart(r.stream.writes).at(0);
    REQUIRE(hours.rows.size() == 1);
    const std::vector<std::pair<const char*, double>> expected = {
        {"SP", c.mode}, {"t1", 1},    {"t2", 2},    {"V1", c.v1}, {"V2", c.v2}, {"V3", c.v3},
        {"M1", c.m1},   {"M2", c.m2}, {"M3", c.m3}, {"Q", 7},     {"NS", 0x2A}};
    for (const auto& [column, value] : expected) {
      CAPTURE(column);
      CHECK(hours.Number(0, column) == value);
    }
  }
}

TEST_CASE("which groups are read, and how their progress is planned") {
  struct Case {
    const char* groups;
    const char* sections;
    float units;
  };
  const int hours = 53;
  for (const Case& c :
       {Case{"", "", 3}, Case{"B", "B", 5}, Case{"t", "O", 5}, Case{"H", "H", 3.0F + hours + 1},
        Case{"h", "", 3.0F + hours + 1}, Case{"s", "D", 3 + 4}, Case{"m", "M", 3 + 2}}) {
    CAPTURE(c.groups);
    Reading521 r;
    r.Groups(c.groups);
    r.Run();
    std::string kinds;
    for (const Section& section : TakeApart(r.stream.writes)) kinds += section.kind;
    CHECK(kinds == c.sections);
    CHECK(r.driver.prStep == 100.0F / c.units);
    CHECK(r.driver.GetPr() == 101);
  }
}

TEST_CASE("a range that ends before it starts gives empty sections") {
  Reading521 r;
  r.driver.SetupDateTime(kTo, kFrom);
  r.Groups("MSH");
  r.Run();
  const auto sections = TakeApart(r.stream.writes);
  REQUIRE(sections.size() == 3);
  for (const Section& section : sections) {
    CHECK(section.rows.empty());
    CHECK(section.ended);
  }
  CHECK(r.stream.Said("OK / ReadStop"));
}

TEST_CASE("failures end the reading where they happen") {
  struct Case {
    const char* name;
    char function;
    Bytes reply;
    std::vector<std::string> messages;
    const char* sections;
  };
  const Bytes cutPage = Hex("10 01 45 01 02");
  const Case cases[] = {
      {"identification",
       '?',
       {},
       {"Read 0 / Error Version", "1 / PopitkaInit", "Error Init / Start Opros"},
       ""},
      {"database", 'E', cutPage, {"1 Error: 25 / PoitkaReadBD", "25 / BD"}, ""},
      {"error 14 in the database",
       'E',
       Hex("10 01 21 00"),
       {"1 Error: 24 / PoitkaReadBD", "24 / BD"},
       ""},
      {"memory", 'R', support::older::ErrorReply(3), {"1 Error: 23 / PopitkaTime", "23 / Dt"}, ""},
  };
  for (const Case& c : cases) {
    CAPTURE(c.name);
    Reading521 r;
    const auto instrument = r.port.answer;
    r.port.answer = [&](const Bytes& written) {
      return support::older::IsRequest(written, c.function) ? c.reply : instrument(written);
    };
    r.Groups("BTMSH");
    r.Run();
    for (const std::string& message : c.messages) {
      CAPTURE(message);
      CHECK(r.stream.Said(message));
    }
    CHECK(r.stream.CountOf("Error / ReadStop") == 1);
    CHECK(TakeApart(r.stream.writes).empty());
    CHECK(r.driver.GetPr() < 0);
  }
}

TEST_CASE("a failure of the second piece of the operative values counts ten more") {
  Reading521 r;
  const auto instrument = r.port.answer;
  r.port.answer = [&](const Bytes& written) {
    const bool flows = support::older::IsRequest(written, 'R') && written[3] == (328 & 0xFF) &&
                       written[4] == (328 >> 8);
    return flows ? Bytes{} : instrument(written);
  };
  r.Groups("T");
  r.Run();
  CHECK(r.stream.Said("1 Error: 22 / PoitkaReadTek"));
  CHECK(r.stream.Said("22 / Op"));
}

TEST_CASE("a record that is not there is left out, and the reading goes on") {
  Reading521 r;
  const auto instrument = r.port.answer;
  int hours = 0;
  r.port.answer = [&](const Bytes& written) {
    const bool missing = support::older::IsRequest(written, 'H') && hours++ == 2;
    return missing ? support::older::ErrorReply(3) : instrument(written);
  };
  r.Groups("H");
  r.Run();
  auto expected = HoursOfTheRange();
  expected.erase(expected.begin() + 2);
  CheckArchive(TakeApart(r.stream.writes).at(0), Archive::kHourly, r.values, expected);
  CHECK(r.stream.CountOf("1 Error: 23 / PoitkaArh") == 1);
  CHECK(r.stream.Said("OK / ReadStop"));
}

TEST_CASE("a stop at any moment ends the reading as failed, an open archive with its marker") {
  // What is written and asked when nobody stops.
  Reading521 whole;
  whole.Groups("BTMSH");
  whole.Run();
  const std::size_t requests = whole.port.writes.size();
  for (std::size_t at = 16; at < requests; ++at) {
    CAPTURE(at);
    Reading521 r;
    r.Groups("BTMSH");
    const auto instrument = r.port.answer;
    r.port.answer = [&](const Bytes& written) {
      if (r.port.writes.size() == at) r.driver.Stop();
      return instrument(written);
    };
    r.Run();
    REQUIRE(r.port.writes.size() <= at + 5);  // the clock, the database and the operative values
    const auto sections = TakeApart(r.stream.writes);
    const bool inArchive =
        !sections.empty() && std::string("MDH").find(sections.back().kind) != std::string::npos;
    if (inArchive) CHECK(sections.back().ended);
    // Reported where it was noticed, and once more by the poll routine.
    CHECK(r.stream.CountOf("Error / ReadStop") == 2);
    CHECK(r.driver.GetPr() < 0);
  }
}

TEST_CASE("a refused write is the last one, and no request follows it") {
  Reading521 whole;
  whole.Groups("BTMS");
  whole.Run();
  const int writes = whole.stream.writeCalls;
  for (int refused = 0; refused < writes; ++refused) {
    CAPTURE(refused);
    Reading521 r;
    r.Groups("BTMS");
    r.Parameter(16, 1);
    r.stream.refuseWriteAt = refused;
    std::size_t requestsBefore = 0;
    r.port.onRead = [&] {
      if (r.stream.writeCalls <= refused) requestsBefore = r.port.writes.size();
    };
    r.Run();
    CHECK(r.stream.writeCalls == refused + 1);
    CHECK(r.port.writes.size() == requestsBefore);
    CHECK(r.stream.CountOf("Error / ReadStop") == 1);
  }
}

TEST_CASE("attempts repeat what failed once") {
  simulator::Settings settings;
  settings.faults = {{"no-reply", 3}, {"cut-reply", 5}};
  Reading521 r(settings);
  r.Groups("BTMSH");
  r.Parameter(1, 4);
  r.Run();
  const auto sections = TakeApart(r.stream.writes);
  REQUIRE(sections.size() == 5);
  CheckArchive(sections[4], Archive::kHourly, r.values, HoursOfTheRange());
  CHECK(r.stream.Said("1 Error: 12 / PoitkaArh"));
}
