// Readings that the host ends: by a stop at any byte, by refusing any piece of the stream.
#include <doctest/doctest.h>

#include <numeric>

#include "tests/k7/simulated.h"

using namespace common::literals;
using k7test::Reading;

namespace {

// Everything is asked for, of a period of two hours.
struct Everything : Reading {
  explicit Everything(const char* model) : Reading(model, "BTMSH") {
    driver.SetupDateTime({2016, 8, 0, 31, 23}, {2016, 9, 0, 1});
  }
};

}  // namespace

TEST_CASE("a stop at any byte ends the reading without a further byte") {
  for (const char* model : {"k7-521", "k7-523"}) {
    Everything whole(model);
    CHECK(whole.Run() == "OK / ReadStop");
    const int reads = whole.port.reads;
    REQUIRE(reads > 1000);
    // Each of the first bytes, then a sample of the rest.
    for (int stopAt = 1; stopAt <= reads; stopAt += stopAt < 200 ? 1 : 37) {
      INFO("byte ", stopAt);
      Everything reading(model);
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
      const auto pauses = support::clock::Pauses();
      CHECK(std::accumulate(pauses.begin(), pauses.end(), 0U) <= 200);
    }
  }
}

TEST_CASE("a piece that the host refuses ends the reading: nothing is written or asked for again") {
  for (const char* model : {"k7-521", "k7-523"}) {
    Everything whole(model);
    whole.Run();
    const int writes = whole.stream.writeCalls;
    REQUIRE(writes > 1000);
    for (int refused = 0; refused < writes; refused += refused < 300 ? 1 : 29) {
      INFO("piece ", refused);
      Everything reading(model);
      reading.stream.refuseWriteAt = refused;
      std::size_t asked = 0;  // when the piece before the refused one was written
      reading.stream.onWrite = [&] { asked = reading.requests.size(); };
      reading.stream.onMessage = [&](const std::string& line) {
        // No step is begun or reported any more.
        if (reading.stream.writeCalls > refused) CHECK(line.find("Чтение"_w) == std::string::npos);
      };
      CHECK(reading.Run() == "Error / ReadStop");
      CHECK(reading.stream.writeCalls == refused + 1);
      // The refused piece may belong to the reply of one more request.
      CHECK(reading.requests.size() <= (refused == 0 ? 7 : asked + 1));
    }
  }
}

TEST_CASE("a stop that is seen between two sections ends the plan of its system") {
  struct Case {
    const char *model, *said;
    std::size_t sections;
    const char* end;
  };
  for (const Case& c : {
           Case{"k7-521", "ТВ0 / Ch"_w, 0, "Error / ReadStop"},
           Case{"k7-521", "успешно / Чтение текущих"_w, 2, "Error / ReadStop"},
           Case{"k7-521", "успешно / Чтение помесячных"_w, 3, "Error / ReadStop"},
           Case{"k7-521", "успешно / Чтение посуточных"_w, 4, "Error / ReadStop"},
           Case{"k7-521", "успешно / Чтение контрольных"_w, 5, "Error / ReadStop"},
           Case{"k7-521", "успешно / Чтение почасовых"_w, 6, "Error / ReadStop"},
           Case{"k7-521", "ошибка / Чтение БД ТВ"_w, 7, "Error / ReadStop"},
           Case{"k7-521", "успешно / Чтение изменений БД"_w, 8, "Error / ReadStop"},
           Case{"k7-521", "успешно / Чтение событий"_w, 9, "OK / ReadStop"},
           Case{"k7-523", "2016.9.4 13:5:9 / DT", 0, "Error / ReadStop"},
           // The other system is read all the same.
           Case{"k7-523", "успешно / Чтение текущих"_w, 12, "OK / ReadStop"},
       }) {
    INFO(std::string(c.said));
    Everything reading(c.model);
    reading.stream.onMessage = [&](const std::string& line) {
      if (line == c.said && reading.stream.CountOf(line) == 1) reading.driver.Stop();
    };
    CHECK(reading.Run() == c.end);
    CHECK(reading.Sections().size() == c.sections);
    // The plan reports its end too.
    CHECK(reading.stream.CountOf("Error / ReadStop") + reading.stream.CountOf("OK / ReadStop") ==
          (c.sections == 9 ? 1 : 2));
  }
}
