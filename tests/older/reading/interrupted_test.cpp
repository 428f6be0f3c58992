// A host that stops a reading, or takes no more of it, at any moment.
#include <doctest/doctest.h>

#include "tests/older/simulated.h"

using support::Bytes;
using support::Instrument;
using support::SimulatedReading;

namespace {

constexpr int kCycles = 2;

// Every group, then two continuous cycles in which an hour and a day are due.
struct Interrupted : SimulatedReading {
  explicit Interrupted(const char* model) : SimulatedReading(Instrument(model), "BTMSHE") {
    Range({2016, 8, 0, 31, 22}, {2016, 9, 0, 1, 1});
    Parameter(16, 1);
    stream.onMessage = [this](const std::string& line) {
      if (line == "reading... / Nonstop" && ++cycle > kCycles) driver.Stop();
    };
  }
  int cycle = 0;
};

}  // namespace

TEST_CASE("a stop at any request ends the reading, an open archive with its marker") {
  for (const char* model : {"521", "721"}) {
    CAPTURE(model);
    Interrupted whole(model);
    whole.Run();
    CHECK(whole.cycle == kCycles + 1);
    const std::size_t requests = whole.port.writes.size();
    for (std::size_t at = 17; at <= requests; ++at) {
      CAPTURE(at);
      Interrupted reading(model);
      bool inBatch = false;
      const auto instrument = reading.port.answer;
      reading.port.answer = [&](const Bytes& written) {
        if (reading.port.writes.size() == at) {
          inBatch = reading.cycle == 0;
          reading.driver.Stop();
        }
        return instrument(written);
      };
      reading.Run();
      const auto sections = reading.Sections();
      REQUIRE(reading.port.writes.size() <= at + 5);  // clock, database and operative values
      const bool archive =
          !sections.empty() && sections.back().kind != 'B' && sections.back().kind != 'O';
      if (archive) CHECK(sections.back().ended);
      // In the batch reported where it was noticed, and once more at the end; later not at all. The
      // logs are the batch's last sections.
      const bool noticed = inBatch && (sections.empty() || sections.back().kind != 'S');
      CHECK(reading.stream.CountOf("Error / ReadStop") == (noticed ? 2 : 0));
      CHECK((reading.driver.GetPr() < 0) == noticed);
    }
  }
}

TEST_CASE("a refused write is the last one, and no request follows it") {
  for (const char* model : {"521", "523", "721"}) {
    CAPTURE(model);
    Interrupted whole(model);
    whole.Run();
    const int step = model[2] == '1' && model[0] == '5' ? 1 : 7;
    for (int refused = 0; refused < whole.stream.writeCalls; refused += step) {
      CAPTURE(refused);
      Interrupted reading(model);
      reading.stream.refuseWriteAt = refused;
      std::size_t asked = 0;
      reading.port.onRead = [&] {
        if (reading.stream.writeCalls <= refused) asked = reading.port.writes.size();
      };
      reading.Run();
      CHECK(reading.stream.writeCalls == refused + 1);
      CHECK(reading.port.writes.size() == asked);
      CHECK(reading.stream.CountOf("Error / ReadStop") == 1);
    }
  }
}
