// Whole readings of the simulated instruments: what the host gets is what they hold.
#include <doctest/doctest.h>

#include <cstdio>

#include "common/cp1251.h"
#include "simulator/k7/values.h"
#include "tests/support/reading.h"
#include "tests/support/sections.h"
#include "tests/support/simulated_line.h"

using namespace common::literals;
using simulator::Moment;
using simulator::k7::Archive;
using support::Bytes;
using support::Section;

namespace {

constexpr SYSTEMTIME kFrom{2016, 8, 0, 30, 22, 17, 5, 9};
constexpr SYSTEMTIME kTo{2016, 9, 0, 2, 3, 30, 40, 0};
const Moment kNow = simulator::ToMoment(support::kTestTime);

struct Simulated : support::Reading {
  explicit Simulated(const simulator::Settings& settings) : values(settings) {
    Connect(port, settings);
    driver.SetupDateTime(kFrom, kTo);
  }
  std::vector<Section> Read(const char* groups) {
    Groups(groups);
    Run(2);
    CHECK(stream.Said("OK / ReadStop"));
    return support::TakeApart(stream.writes);
  }

  simulator::k7::Values values;
};

simulator::Settings Settings(const char* model, std::vector<simulator::Fault> faults = {}) {
  simulator::Settings settings;
  settings.model = model;
  settings.faults = std::move(faults);
  settings.special.unitsCode = 1;
  return settings;
}

// Column names in UTF-8: of the letters beyond ASCII they have only one.
std::string Utf8(const std::string& name) {
  std::string text;
  for (const char c : name) text += c == "м"_w[0] ? std::string("м") : std::string(1, c);
  return text;
}

std::string Text(Moment moment) {
  const simulator::ClockTime t = simulator::ToClockTime(moment);
  char text[40];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", t.year, t.month, t.day, t.hour,
                t.minute, t.second);
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

void CheckArchive(const Simulated& reading, const Section& section, int system, Archive kind,
                  std::size_t rows) {
  REQUIRE(section.rows.size() == rows);
  CHECK(section.ended);
  const std::string leftOut =
      kind == Archive::kControl && reading.values.GetModel().datedRecords ? "TC16" : "";
  Moment begin = reading.values.BeginOf(kind, simulator::ToMoment({2016, 8, 30, 22, 0, 0}));
  for (std::size_t row = 0; row < rows; ++row) {
    CHECK(section.Date(row, "DT") == Text(begin));
    CheckRow(section, row, reading.values.ArchiveRow(kind, system, begin), leftOut);
    begin = reading.values.EndOf(kind, begin);
  }
}

void CheckDatabase(const Simulated& reading, const Section& section, int channel) {
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

void CheckLog(const Simulated& reading, const Section& section, int system, Archive kind) {
  std::size_t row = 0;
  const Moment from = simulator::ToMoment({2016, 8, 30, 22, 0, 0});
  const Moment to = simulator::ToMoment({2016, 9, 2, 4, 0, 0});
  for (const auto& entry : reading.values.Log(kind, system, kNow)) {
    const Moment time = simulator::ToMoment(entry.time);
    if (time < from || time >= to) continue;
    REQUIRE(row < section.rows.size());
    CHECK(section.Date(row, "DT") == Text(time));
    const Bytes cell = section.Cell(row, "ISM");
    CHECK(std::string(cell.begin(), cell.end()).c_str() == entry.text);
    ++row;
  }
  CHECK(row > 0);
  CHECK(section.rows.size() == row);
  CHECK(section.announced == 2);
  CHECK(section.ended);
}

// The nine sections of one system.
void CheckSystem(const Simulated& reading, const std::vector<Section>& sections, std::size_t first,
                 int system) {
  const auto at = [&](std::size_t i) -> const Section& { return sections.at(first + i); };
  CheckRow(at(0), 0, reading.values.CurrentRow(system, kNow));
  CheckRow(at(1), 0, reading.values.TotalsRow(system, kNow));
  // Of the running month there is no record yet.
  CheckArchive(reading, at(2), system, Archive::kMonthly, 1);
  CheckArchive(reading, at(3), system, Archive::kDaily, 4);
  CheckArchive(reading, at(4), system, Archive::kControl, 4);
  CheckArchive(reading, at(5), system, Archive::kHourly, 54);
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
  Simulated reading(Settings("k7-521"));
  const auto sections = reading.Read("BTMSH");
  REQUIRE(Kinds(sections) == "OOMDDHBSS");
  CheckSystem(reading, sections, 0, 0);
  for (const Section& section : sections) {
    CHECK(section.model == "УРМ521"_w);
    CHECK(section.version == "V7");
    CHECK(section.number == *reading.values.ParameterText(0, 0x3A));
    CHECK(section.time == support::Hex("E0 07 09 04 0D 05 09"));
  }
  CHECK(sections[0].Column("P1").unit == "МПа"_w);
}

TEST_CASE("every group of a simulated 523, over the end of a month") {
  Simulated reading(Settings("k7-523"));
  const auto sections = reading.Read("BTMSH");
  REQUIRE(Kinds(sections) == "BOOMDDHBSSOOMDDHBSS");
  CheckDatabase(reading, sections[0], 0);
  CheckSystem(reading, sections, 1, 1);
  CheckSystem(reading, sections, 10, 2);
  CHECK(sections[10].number == *reading.values.ParameterText(0, 7));
}

TEST_CASE("faults that attempts or the search make good") {
  for (const char* fault : {"no-reply", "cut-reply", "flipped-bit", "noise", "wrong-sequence",
                            "echo", "false-starts", "unknown-items"}) {
    CAPTURE(std::string(fault));
    Simulated reading(Settings("k7-523", {{fault, 3}}));
    reading.Parameter(1, 5);
    const auto sections = reading.Read("BTMSH");
    REQUIRE(Kinds(sections) == "BOOMDDHBSSOOMDDHBSS");
    CheckSystem(reading, sections, 1, 1);
    CheckSystem(reading, sections, 10, 2);
  }
}

TEST_CASE("every fault on every reply ends the reading") {
  for (const auto& fault : simulator::Faults()) {
    if (std::string(fault.name) == "error-reply") continue;  // not of this protocol
    CAPTURE(std::string(fault.name));
    for (const char* model : {"k7-521", "k7-523"}) {
      Simulated reading(Settings(model, {{fault.name, 1}}));
      reading.Groups("BTMSH");
      // A damaged short reply leaves the search without an end.
      support::clock::OnPause([&](unsigned milliseconds) {
        if (milliseconds < 100) reading.driver.Stop();
      });
      reading.Run(2);
      CHECK(reading.stream.CountOf("OK / ReadStop") + reading.stream.CountOf("Error / ReadStop") ==
            1);
    }
  }
}

TEST_CASE("faults in archive replies") {
  struct Case {
    const char* fault;
    std::size_t rows;  // of three days
    const char* outcome;
    const char* said;
  };
  for (const Case& c : {Case{"several-records", 6, "успешно"_w, "OK / ReadStop"},
                        Case{"empty-reply", 0, "успешно"_w, "OK / ReadStop"},
                        Case{"stamp-alone", 0, "ошибка"_w, "OK / ReadStop"},
                        Case{"past-end", 0, "ошибка"_w, "OK / ReadStop"},
                        Case{"no-reply", 0, "ошибка"_w, "2016.9.1 0:0:0 / query error"},
                        Case{"other-command", 0, "успешно"_w, "2016.9.3 0:0:0 / fn error"}}) {
    CAPTURE(std::string(c.fault));
    // The session's three exchanges go well, then each one is disturbed.
    Simulated disturbed(Settings("k7-521", {{c.fault, 1}})), sound(Settings("k7-521"));
    disturbed.driver.SetupDateTime({2016, 9, 0, 1, 0, 0, 0, 0}, {2016, 9, 0, 3, 0, 0, 0, 0});
    const auto faulty = disturbed.port.answer;
    int frames = 0;
    disturbed.port.answer = [&](const Bytes& written) {
      return (frames += written[0] == 0x10 ? 1 : 0) <= 3 ? sound.port.answer(written)
                                                         : faulty(written);
    };
    const auto sections = disturbed.Read("S");
    CHECK(sections.at(0).rows.size() == c.rows);
    CHECK(disturbed.stream.Said(c.said));
    CHECK(
        disturbed.stream.Said(std::string(c.outcome) + " / " + std::string("Чтение посуточных"_w)));
  }
}

TEST_CASE("a system that is switched off is passed over") {
  simulator::Settings settings = Settings("k7-523");
  settings.special.idleSystem = 1;
  Simulated reading(settings);
  const auto sections = reading.Read("T");
  REQUIRE(Kinds(sections) == "OO");
  CHECK(sections[0].title == "ТВ2"_w);
  CHECK(reading.stream.Said("СП=99 / Чтение не целесообразно"_w));
}
