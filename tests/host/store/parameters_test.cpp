// Snapshots of parameters and what changed between them.
#include "host/store/parameters.h"

#include <doctest/doctest.h>

#include "tests/host/store/made_store.h"

using host_test::MadeStore;

namespace {

// Read on the 1st of three months; the instrument's clock is a day ahead.
void Fill(MadeStore& store) {
  store.Do("INSERT INTO instruments VALUES (1, 'older', 'УРМ523', '5', 'V7', 'COM1, number 1')");
  store.Do("INSERT INTO sections VALUES (1, 1, 'database', 'ОВ', NULL)");
  store.Do("INSERT INTO formats VALUES (1, 1, 'a'), (2, 1, 'b')");
  for (const char* format : {"1, 0, 'pk1', 'kgf/cm2'", "2, 0, 'pk1', 'MPa'", "1, 1, 'ei', NULL"}) {
    store.Do(std::string("INSERT INTO columns VALUES (") + format +
             ", NULL, 'caption', '', '', 1, 1, 1, '')");
  }
  const char* contents[] = {R"(1, '{"ei":0,"pk1":4.5,"kg":null,"pm":1}')",
                            R"(2, '{"ei":1,"pk1":0.5,"kg":2,"pm":null}')",
                            R"(2, '{"ei":1,"pk1":0.75,"kg":2,"pm":1}')"};
  for (int month = 1; month <= 3; ++month) {
    const std::string date = "2016-0" + std::to_string(month);
    const std::string id = std::to_string(month);
    store.Do("INSERT INTO readings (id, instrument, begun, line) VALUES (" + id + ", 1, '" + date +
             "-01 00:00:00', 'COM1')");
    store.Do("INSERT INTO snapshots (section, reading, clock, format, content) VALUES (1, " + id +
             ", '" + date + "-02 00:00:00', " + contents[month - 1] + ")");
  }
}

std::string TextOf(const std::vector<host::ParameterChange>& changes) {
  std::string text;
  for (const host::ParameterChange& change : changes) {
    const auto& [section, noticed, before, former, current] = change;
    for (const std::string& word :
         {current.field, host::CellText(former.value), former.unit, host::CellText(current.value),
          current.unit, before.clock.substr(5, 5), noticed.reading.substr(5, 5)}) {
      text += word + ' ';
    }
    text.back() = ';';
  }
  return text;
}

}  // namespace

TEST_CASE("what is known of parameters, and when it changed") {
  MadeStore store;
  Fill(store);
  const auto snapshots = host::FindSnapshots(store.Get(), {});
  REQUIRE(snapshots.size() == 3);

  const std::string february = "ei 0  1  01-02 02-01;pk1 4.5 kgf/cm2 0.5 MPa 01-02 02-01;";
  const std::string march = "pk1 0.5 MPa 0.75 MPa 02-02 03-01;";
  CHECK(TextOf(host::FindChanges(snapshots)) == february + march);
  CHECK(TextOf(host::FindChanges(snapshots, SYSTEMTIME{2016, 2, 0, 3})) == march);
  CHECK(TextOf(host::FindChanges(snapshots, {}, SYSTEMTIME{2016, 3, 0, 1, 23, 59, 59})) ==
        february);

  CHECK(host::NewestSnapshots(snapshots).at(0).noticed.clock == "2016-03-02 00:00:00");
  CHECK(host::NewestSnapshots(snapshots, SYSTEMTIME{2016, 3, 0, 1}).at(0).noticed.clock ==
        "2016-02-02 00:00:00");
  CHECK(host::NewestSnapshots(snapshots, SYSTEMTIME{2016, 1, 0, 1}).empty());
}
