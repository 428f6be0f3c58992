// Whole readings of the simulated instruments: what the host gets is what they hold.
#include <doctest/doctest.h>

#include "tests/k7/simulated.h"

using namespace common::literals;
using k7test::Instrument;
using k7test::Reading;
using simulator::Moment;
using simulator::k7::Archive;
using support::Bytes;
using support::Section;

namespace {

const Moment kNow = simulator::ToMoment(support::kTestTime);

std::vector<Section> Read(Reading& reading) {
  CHECK(reading.Run() == "OK / ReadStop");
  return reading.Sections();
}

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

// Column names in UTF-8: of the letters beyond ASCII they have only one.
std::string Utf8(const std::string& name) {
  std::string text;
  for (const char c : name) text += c == "м"_w[0] ? std::string("м") : std::string(1, c);
  return text;
}

void CheckRow(const Section& section, std::size_t row, const simulator::k7::Row& expected,
              const std::string& leftOut = "") {
  for (const support::HeaderRecord& column : section.columns) {
    if (column.type == 't') continue;
    CAPTURE(column.name);
    const double value = column.name == leftOut ? 0 : expected.at(Utf8(column.name));
    const double held = column.type == 'f' ? static_cast<double>(static_cast<float>(value)) : value;
    CHECK(section.Number(row, column.name) == held);
  }
}

struct Expected {
  Archive kind;
  simulator::ClockTime begin;  // of the first record's period
  std::size_t rows;
  const char *first, *last;  // dates
};

void CheckArchive(const Reading& reading, const Section& section, int system, const Expected& e) {
  REQUIRE(section.rows.size() == e.rows);
  CHECK(section.ended);
  CHECK(section.Date(0, "DT") == e.first);
  CHECK(section.Date(e.rows - 1, "DT") == e.last);
  const std::string leftOut =
      e.kind == Archive::kControl && reading.values.GetModel().datedRecords ? "TC16" : "";
  Moment begin = simulator::ToMoment(e.begin);
  for (std::size_t row = 0; row < e.rows; ++row) {
    CheckRow(section, row, reading.values.ArchiveRow(e.kind, system, begin), leftOut);
    begin = reading.values.EndOf(e.kind, begin);
  }
}

void CheckDatabase(const Reading& reading, const Section& section, int channel) {
  REQUIRE(section.rows.size() == 1);
  for (const support::HeaderRecord& column : section.columns) {
    CAPTURE(column.name);
    const auto text = reading.values.ParameterText(channel, std::stoi(column.name.substr(1)));
    REQUIRE(text.has_value());
    std::string entry = text->substr(0, 50);
    entry.resize(50);
    const Bytes cell = section.Cell(0, column.name);
    CHECK(std::string(cell.begin(), cell.end()) == entry);
  }
}

void CheckLog(const Reading& reading, const Section& section, int system, Archive kind) {
  std::size_t row = 0;
  const Moment from = simulator::ToMoment({2016, 8, 30, 22, 0, 0});
  const Moment to = simulator::ToMoment({2016, 9, 2, 4, 0, 0});
  for (const auto& [time, text] : reading.values.Log(kind, system, kNow)) {
    if (simulator::ToMoment(time) < from || simulator::ToMoment(time) >= to) continue;
    REQUIRE(row < section.rows.size());
    const Bytes date = section.Cell(row, "DT");
    CHECK(Bytes(date.begin() + 2, date.end()) == Bytes{Byte(time.month), Byte(time.day),
                                                       Byte(time.hour), Byte(time.minute),
                                                       Byte(time.second)});
    const Bytes cell = section.Cell(row, "ISM");
    CHECK(std::string(cell.begin(), cell.end()).c_str() == text);
    ++row;
  }
  CHECK(row > 0);
  CHECK(section.rows.size() == row);
  CHECK(section.announced == 2);
  CHECK(section.ended);
}

// The nine sections of one system.
void CheckSystem(const Reading& reading, const std::vector<Section>& sections, std::size_t first,
                 int system) {
  const auto at = [&](std::size_t i) -> const Section& { return sections.at(first + i); };
  CheckRow(at(0), 0, reading.values.CurrentRow(system, kNow));
  CheckRow(at(1), 0, reading.values.TotalsRow(system, kNow));
  // Of the running month there is no record yet.
  const Expected expected[] = {
      {Archive::kMonthly, {2016, 8, 1, 0, 0, 0}, 1, "2016-08-01 00:00:00", "2016-08-01 00:00:00"},
      {Archive::kDaily, {2016, 8, 30, 0, 0, 0}, 4, "2016-08-30 00:00:00", "2016-09-02 00:00:00"},
      {Archive::kControl, {2016, 8, 30, 0, 0, 0}, 4, "2016-08-30 00:00:00", "2016-09-02 00:00:00"},
      {Archive::kHourly, {2016, 8, 30, 22, 0, 0}, 54, "2016-08-30 22:00:00", "2016-09-02 03:00:00"},
  };
  for (std::size_t i = 0; i < 4; ++i) CheckArchive(reading, at(2 + i), system, expected[i]);
  CheckDatabase(reading, at(6), system);
  CheckLog(reading, at(7), system, Archive::kChanges);
  CheckLog(reading, at(8), system, Archive::kEvents);
}

std::string Kinds(const std::vector<Section>& sections) {
  std::string kinds;
  for (const Section& section : sections) kinds += section.kind;
  return kinds;
}

}  // namespace

TEST_CASE("every group of a simulated 521, over the end of a month") {
  Reading reading("k7-521", "BTMSH");
  const auto sections = Read(reading);
  REQUIRE(Kinds(sections) == "OOMDDHBSS");
  CheckSystem(reading, sections, 0, 0);
  for (const Section& section : sections) {
    CHECK(section.model == "УРМ521"_w);
    CHECK(section.version == "V7");
    CHECK(section.number == *reading.values.ParameterText(0, 0x3A));
    CHECK(section.time == support::Hex("E0 07 09 04 0D 05 09"));
  }
}

TEST_CASE("every group of a simulated 523, and faults that attempts or the search make good") {
  for (const char* fault : {"", "no-reply", "cut-reply", "flipped-bit", "noise", "wrong-sequence",
                            "echo", "false-starts", "unknown-items"}) {
    CAPTURE(std::string(fault));
    std::vector<simulator::Fault> faults;
    if (*fault != 0) faults = {{fault, 3}};
    Reading reading(Instrument("k7-523", faults), "BTMSH");
    reading.Parameter(1, 5);
    const auto sections = Read(reading);
    REQUIRE(Kinds(sections) == "BOOMDDHBSSOOMDDHBSS");
    CheckDatabase(reading, sections[0], 0);
    CheckSystem(reading, sections, 1, 1);
    CheckSystem(reading, sections, 10, 2);
    CHECK(sections[10].number == *reading.values.ParameterText(0, 7));
  }
}

TEST_CASE("every fault on every reply ends the reading") {
  for (const auto& fault : simulator::Faults()) {
    if (std::string(fault.name) == "error-reply") continue;  // not of this protocol
    CAPTURE(std::string(fault.name));
    for (const char* model : {"k7-521", "k7-523"}) {
      Reading reading(Instrument(model, {{fault.name, 1}}), "BTMSH");
      // A damaged short reply leaves the search without an end.
      support::clock::OnPause([&](unsigned milliseconds) {
        if (milliseconds < 100) reading.driver.Stop();
      });
      reading.Run();
      CHECK(reading.stream.CountOf("OK / ReadStop") + reading.stream.CountOf("Error / ReadStop") ==
            1);
    }
  }
}

TEST_CASE("faults in archive replies") {
  struct Case {
    const char* fault;
    std::size_t rows;  // of three days
    const char *outcome, *said;
  };
  for (const Case& c : {Case{"several-records", 6, "успешно"_w, "OK / ReadStop"},
                        Case{"empty-reply", 0, "успешно"_w, "OK / ReadStop"},
                        Case{"stamp-alone", 0, "ошибка"_w, "OK / ReadStop"},
                        Case{"past-end", 0, "ошибка"_w, "OK / ReadStop"},
                        Case{"no-reply", 0, "ошибка"_w, "2016.9.1 0:0:0 / query error"},
                        Case{"other-command", 0, "успешно"_w, "2016.9.3 0:0:0 / fn error"}}) {
    CAPTURE(std::string(c.fault));
    // The session's three exchanges go well, then each one is disturbed.
    Reading sound("k7-521"), disturbed(Instrument("k7-521", {{c.fault, 1}}), "S");
    disturbed.driver.SetupDateTime({2016, 9, 0, 1, 0, 0, 0, 0}, {2016, 9, 0, 3, 0, 0, 0, 0});
    disturbed.port.answer = [&, faulty = disturbed.port.answer](const Bytes& written) {
      return sound.requests.size() < 3 ? sound.port.answer(written) : faulty(written);
    };
    const auto sections = Read(disturbed);
    CHECK(sections.at(0).rows.size() == c.rows);
    CHECK(sections.at(0).ended);
    CHECK(disturbed.stream.Said(c.said));
    CHECK(disturbed.Said(c.outcome, "Чтение посуточных"_w));
  }
}
