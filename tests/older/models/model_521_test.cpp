// What only a model 521 does.
#include <doctest/doctest.h>

#include "tests/older/simulated.h"
#include "tests/support/older_line.h"

using support::Bytes;
using support::Instrument;
using support::SimulatedReading;

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
