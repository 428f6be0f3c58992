// Instruments that answer with anything: whatever comes over the line, a reading ends and its
// stream stays whole.
#include <doctest/doctest.h>

#include <algorithm>
#include <random>

#include "tests/older/simulated.h"

using support::Bytes;
using support::Instrument;
using support::SimulatedReading;

namespace {

using Random = std::mt19937;

// What a bad line and a bad instrument make of a reply: it is cut, replaced or doubled.
Bytes Spoil(Bytes reply, Random& random) {
  const auto kind = random() % 12;
  if (kind == 0) reply.resize(random() % (reply.size() + 1));
  if (kind == 1) reply.resize(random() % 300);
  if (kind == 1) std::generate(reply.begin(), reply.end(), random);
  if (kind == 2) reply.insert(reply.end(), reply.begin(), reply.end());
  return reply;
}

// Other data in a frame that is right: values that no instrument measures.
Bytes Scramble(Bytes reply, Random& random) {
  if (reply.size() < 12) return reply;  // the identification stays
  std::uint8_t sum = static_cast<std::uint8_t>(reply[1] + reply[2]);
  for (std::size_t i = 3; i + 2 < reply.size(); ++i) {
    if (random() % 8 == 0) reply[i] = static_cast<std::uint8_t>(random());
    sum = static_cast<std::uint8_t>(sum + reply[i]);
  }
  reply[reply.size() - 2] = static_cast<std::uint8_t>(~sum);
  return reply;
}

void RunToItsEnd(SimulatedReading& reading) {
  reading.Run();
  CHECK_NOTHROW(reading.Sections());
  CHECK((reading.driver.GetPr() == 101 || reading.driver.GetPr() < 0));
  CHECK(reading.stream.messages.back() == "2016.09.04:13.05.09 / Opros End");
}

}  // namespace

TEST_CASE("replies that are cut, replaced or doubled, and frames that hold anything") {
  for (const char* model : {"521", "522", "523", "721", "521.1x"}) {
    for (unsigned seed = 1; seed <= 80; ++seed) {
      CAPTURE(model);
      CAPTURE(seed);
      Random random(seed);
      SimulatedReading reading(Instrument(model), "BTMSHE");
      const auto instrument = reading.port.answer;
      reading.port.answer = [&](const Bytes& written) {
        const Bytes reply = instrument(written);
        if (reply.empty()) return reply;
        return seed % 2 == 0 ? Spoil(reply, random) : Scramble(reply, random);
      };
      reading.Range({2016, 8, 0, 31, 20}, {2016, 9, 0, 1, 3});
      reading.Parameter(1, 3);
      RunToItsEnd(reading);
    }
  }
}

TEST_CASE("dates that make no sense, and a negative number of attempts") {
  const SYSTEMTIME end{65535, 65535, 0, 65535, 65535};
  const struct {
    SYSTEMTIME from, to;
    int attempts;
  } cases[] = {{{2016, 13, 0, 1}, {2017, 0, 0, 40, 99}, 1},
               {{0, 0, 0, 0}, {0, 1, 0, 1}, 1},
               {end, end, 1},
               {{2016, 9, 0, 1}, {2016, 9, 0, 1}, -5}};
  for (const auto& c : cases) {
    SimulatedReading reading(Instrument("521"), "BTMSH");
    // Dates outside the calendar are asked for as they are; nobody has to like that.
    reading.Lose([](const Bytes& request) {
      return request[2] == 'H' || request[2] == 'Y' || request[2] == 'M';
    });
    reading.Range(c.from, c.to);
    reading.Parameter(1, c.attempts);
    // A range that wraps around the calendar goes on until the host stops it.
    reading.port.onRead = [&] {
      if (reading.port.reads > 5000) reading.driver.Stop();
    };
    RunToItsEnd(reading);
  }
}
