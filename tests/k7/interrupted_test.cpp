// Readings that the host ends: by a stop at any byte, by refusing any piece of the stream.
#include <doctest/doctest.h>

#include "tests/k7/scripted_urm.h"

using k7test::Reading;
using k7test::Request;
using support::Bytes;
using support::Hex;

namespace {

// Everything is asked for, of a period of two hours; each archive request gives one record.
void Prepare(Reading& reading) {
  reading.driver.dateFrom = {2016, 3, 0, 31, 23, 0, 0, 0};
  reading.driver.dateTo = {2016, 4, 0, 1, 0, 0, 0, 0};
  reading.urm.archive = [](const k7test::ArchiveQuestion&) {
    return k7test::ArchiveRecord(Hex("10 04 01 00"), k7test::TextItem("a value"));
  };
}

// A whole reading, for how many bytes and pieces there are to interrupt at.
struct Whole {
  explicit Whole(int code) : reading(code, "BTMSH") {
    Prepare(reading);
    CHECK(reading.Run() == "OK / ReadStop");
  }
  Reading reading;
};

}  // namespace

TEST_CASE("a stop at any byte ends the reading without a further byte") {
  for (const int code : {k7test::kCode521, k7test::kCode523}) {
    const int reads = Whole(code).reading.port.reads;
    REQUIRE(reads > 1000);
    // Each of the first bytes, then a sample of the rest.
    for (int stopAt = 1; stopAt <= reads; stopAt += stopAt < 200 ? 1 : 37) {
      INFO("byte ", stopAt);
      Reading reading(code, "BTMSH");
      Prepare(reading);
      // As a host does that must be obeyed: asks until the reading has ended.
      bool stopping = false;
      const auto stop = [&] {
        stopping = stopping || reading.port.reads == stopAt;
        if (stopping) reading.driver.Stop();
      };
      reading.port.onRead = stop;
      reading.stream.onMessage = [&](const std::string&) { stop(); };
      // A reading of which a system was already read, or the last log begun, still counts as done.
      const std::string end = reading.Run();
      CHECK((end == "Error / ReadStop" || (stopAt > reads / 2 && end == "OK / ReadStop")));
      // Only the wake-up of the second frame variant may still look at the line.
      CHECK(reading.port.reads <= stopAt + 1);
      std::size_t pauses = 0;
      for (const unsigned pause : support::clock::Pauses()) pauses += pause;
      CHECK(pauses <= 200);
    }
  }
}

TEST_CASE("a piece that the host refuses ends the reading: nothing is written or asked for again") {
  for (const int code : {k7test::kCode521, k7test::kCode523}) {
    const int writes = Whole(code).reading.stream.writeCalls;
    REQUIRE(writes > 1000);
    for (int refused = 0; refused < writes; refused += refused < 300 ? 1 : 29) {
      INFO("piece ", refused);
      Reading reading(code, "BTMSH");
      Prepare(reading);
      reading.stream.refuseWriteAt = refused;
      std::size_t asked = 0;  // when the piece before the refused one was written
      reading.stream.onWrite = [&] { asked = reading.urm.requests.size(); };
      CHECK(reading.Run() == "Error / ReadStop");
      CHECK(reading.stream.writeCalls == refused + 1);
      // The refused piece may belong to the reply of one more request.
      CHECK(reading.urm.requests.size() <= (refused == 0 ? 7 : asked + 1));
    }
  }
}
