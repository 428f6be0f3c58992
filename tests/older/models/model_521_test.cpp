// What only a model 521 does.
#include <doctest/doctest.h>

#include "tests/older/simulated.h"
#include "tests/support/older_line.h"

using support::Bytes;
using support::Instrument;
using support::Section;
using support::SimulatedReading;
using support::operator+;

TEST_CASE("firmware without flows and without a number delivers -1") {
  const struct {
    int version;
    bool number, flows;
  } cases[] = {{0, false, false}, {1, true, false}, {2, true, true}};
  for (const auto& c : cases) {
    CAPTURE(c.version);
    simulator::Settings settings = Instrument("521");
    settings.special.version = c.version;
    SimulatedReading reading(settings, "BT");
    reading.Run();
    const auto sections = reading.Sections();
    REQUIRE(sections.size() == 2);
    CHECK((sections[0].Number(0, "ID") != -1.0) == c.number);
    CHECK((sections[1].Number(0, "G1") != -1.0) == c.flows);
    CHECK((sections[1].Number(0, "G2") != -1.0) == c.flows);
    CHECK((sections[0].number != "4294967295") == c.number);
  }
}

TEST_CASE("the mode code decides where volumes and masses stand") {
  // Floats of the reply from offset 4 on: 1, 2, ... 7, so that a column names its source; M1 - M2
  // is 5 - 6.
  Bytes data(4);
  for (int i = 1; i <= 7; ++i) data = data + support::older::Float(static_cast<float>(i));
  data[3] = 0x2A;
  const struct {
    int mode;
    double values[6];  // V1 to M3
  } cases[] = {
      {0, {3, 4, 0, 5, 6, -1}},
      {1, {3, 0, 4, 5, 6, -1}},
      {2, {0, 3, 4, 5, 6, -1}},
      {3, {3, 4, 0, 5, 6, 0}},
      {4, {3, 4, 0, 5, 6, 0}},
      {5, {3, 0, 4, 5, 0, 6}},
      {6, {0, 3, 4, 0, 5, 6}},
      {7, {3, 0, 0, 5, 0, 0}},
      {8, {3, 4, 0, 5, 0, 0}},
      {9, {3, 4, 0, 0, 0, 0}},
      {10, {}},
      {255, {}},
  };
  for (const auto& c : cases) {
    CAPTURE(c.mode);
    SimulatedReading reading(Instrument("521"), "H");
    const auto instrument = reading.port.answer;
    reading.port.answer = [&](const Bytes& written) {
      const Bytes reply = instrument(written);
      if (!support::older::IsRequest(written, 'H')) return reply;
      data[2] = static_cast<std::uint8_t>(c.mode);
      return support::older::Reply('H', data);
    };
    reading.Range({2016, 9, 0, 2, 3}, {2016, 9, 0, 2, 3});
    reading.Run();
    const Section hours = reading.Sections('H').at(0);
    REQUIRE(hours.rows.size() == 1);
    std::vector<double> expected = {static_cast<double>(c.mode), 1, 2};
    expected.insert(expected.end(), std::begin(c.values), std::end(c.values));
    expected.insert(expected.end(), {7, 0x2A});
    for (std::size_t i = 0; i < expected.size(); ++i) {
      CAPTURE(hours.columns[i + 1].name);
      CHECK(hours.Number(0, hours.columns[i + 1].name) == expected[i]);
    }
  }
}

TEST_CASE("the database is asked for without the port's control call, and every page must come") {
  for (const auto& [reply, end] : {std::pair{"10 01 45 01 02", "25 / BD"},  // cut
                                   {"10 01 21 00", "24 / BD"}}) {           // error 14
    SimulatedReading reading(Instrument("521"));
    std::size_t controls = 0;
    const auto instrument = reading.port.answer;
    reading.port.answer = [&, answer = support::Hex(reply)](const Bytes& written) {
      if (!support::older::IsRequest(written, 'E')) return instrument(written);
      controls = reading.port.setUp.size();
      return answer;
    };
    reading.Run();
    CHECK(controls == 2);  // of the identification and the clock
    CHECK(reading.stream.Said(end));
  }
}
