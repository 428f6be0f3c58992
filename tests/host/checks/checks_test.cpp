// What each rule finds in a store, and what comes near it.
#include <doctest/doctest.h>

#include "host/checks/rules.h"
#include "tests/host/store/made_store.h"

using host_test::MadeStore;

namespace {

// A 523 with the day of 2016-09-03, which its records date by the end: 24 hours to 2016-09-04
// 00:00, and a day of that date. All is as it should be. A second instrument has nothing yet.
constexpr const char* kGoodStore[] = {
    "INSERT INTO instruments VALUES (1, 'older', 'УРМ523', '5', 'V7', 'COM1, number 1'), "
    "(2, 'older', 'УРМ523', '6', 'V7', 'COM1, number 1')",
    "INSERT INTO sections VALUES (1, 1, 'hours', 'ТВ1', 'records_523_hours'), "
    "(2, 1, 'days', 'ТВ1', 'records_523_days'), (3, 1, 'months', 'ТВ1', 'records_523_months'), "
    "(4, 1, 'current', 'ТВ1', NULL), (5, 2, 'current', 'ТВ1', NULL)",
    "INSERT INTO formats VALUES (1, 1, 'a'), (2, 2, 'a'), (3, 3, 'a'), (4, 4, 'a'), (5, 1, 'b')",
    "INSERT INTO columns SELECT f.id, c.column1, c.column2, c.column3, NULL, '', '', '', 1, 1, 1, "
    "'' FROM formats f, (VALUES (1, 'v1', 'm3'), (2, 'q', 'Gcal'), (3, 'tw', 'h'), "
    "(4, 'v1_total', 'm3')) c",
    "INSERT INTO readings (id, instrument, begun, ended, line, number, clock_difference) VALUES "
    "(1, 1, '2016-09-02 00:00:00', '2016-09-02 00:01:00', 'COM1', 1, 5), "
    "(2, 1, '2016-09-05 00:00:00', '2016-09-05 00:01:00', 'COM1', 1, 15)",
    "WITH RECURSIVE n(i) AS (SELECT 17048 * 24 - 23 UNION ALL SELECT i + 1 FROM n "
    "WHERE i < 17048 * 24) INSERT INTO records_523_hours (section, period, time, reading, format, "
    "ns, v1, q, tw) SELECT 1, i, datetime(i * 3600, 'unixepoch'), 2, 1, 0, 1.0, 0.5, 1.0 FROM n",
    "INSERT INTO records_523_days (section, period, time, reading, format, ns, v1, q, tw) VALUES "
    "(2, 17048, '2016-09-04 00:00:00', 2, 2, 0, 24.0, 12.0, 24.0)",
    "INSERT INTO snapshots (section, reading, clock, format, content) VALUES "
    "(4, 1, '2016-09-02 00:00:05', 4, '{\"v1_total\":100.0}'), "
    "(4, 2, '2016-09-05 00:00:15', 4, '{\"v1_total\":100.0}')"};

// The months of a leap year's February, dated 1 March, and its days or hours.
const std::string kFebruary =
    "INSERT INTO records_523_months (section, period, time, reading, format, v1) VALUES "
    "(3, 24194, '2016-03-01 00:00:00', 2, 3, 40.0)";
const std::string kItsDays =
    "WITH RECURSIVE n(i) AS (SELECT 16833 UNION ALL SELECT i + 1 FROM n WHERE i < 16861) "
    "INSERT INTO records_523_days (section, period, time, reading, format, v1, tw) "
    "SELECT 2, i, date(i * 86400, 'unixepoch') || ' 00:00:00', 2, 2, 1.0, 24.0 FROM n";
const std::string kItsHours =
    "WITH RECURSIVE n(i) AS (SELECT 16832 * 24 + 1 UNION ALL SELECT i + 1 FROM n WHERE i < 16861 "
    "* 24) INSERT INTO records_523_hours (section, period, time, reading, format, ns, v1, tw) "
    "SELECT 1, i, datetime(i * 3600, 'unixepoch'), 2, 1, 0, 0.25, 1.0 FROM n";

struct Case {
  std::string name;
  std::vector<std::string> changes;
  std::string found;  // rule, field, from, to, records, expected, found; ';' between findings
};

const Case kCases[] = {
    {"nothing", {}, ""},
    {"a day off by less than the tolerance", {"UPDATE records_523_days SET v1 = 24.02"}, ""},
    {"a day that is off",
     {"UPDATE records_523_days SET v1 = 24.5"},
     "hours-days v1 09-04 00:00:00 09-04 00:00:00 1 24.5 24"},
    {"an hour that is not kept",
     {"UPDATE records_523_days SET v1 = 24.5",
      "DELETE FROM records_523_hours WHERE period = "
      "17048 * 24"},
     ""},
    {"an hour without a value",
     {"UPDATE records_523_days SET v1 = 24.5",
      "UPDATE records_523_hours SET v1 = NULL WHERE "
      "period = 17048 * 24"},
     ""},
    {"another unit in some hours",
     {"UPDATE records_523_days SET v1 = 24.5, q = 13.0",
      "UPDATE columns SET unit = 'GJ' WHERE format = 5 AND field = 'q'",
      "UPDATE records_523_hours SET format = 5 WHERE period > 17048 * 24 - 9"},
     "hours-days v1 09-04 00:00:00 09-04 00:00:00 1 24.5 24"},
    {"days that are off the month",
     {kFebruary, kItsDays, kItsHours},
     "hours-days v1 02-02 00:00:00 03-01 00:00:00 29 1 6;"
     "days-months v1 03-01 00:00:00 03-01 00:00:00 1 40 29"},
    {"hours against the month where a day is not kept",
     {kFebruary, kItsDays, kItsHours, "DELETE FROM records_523_days WHERE period = 16840",
      "UPDATE records_523_days SET v1 = 6.0 WHERE period < 17000"},
     "hours-months v1 03-01 00:00:00 03-01 00:00:00 1 40 174"},
    {"a total that runs backwards",
     {"UPDATE snapshots SET content = '{\"v1_total\":99.5}' WHERE reading = 2"},
     "totals v1_total 09-02 00:00:05 09-05 00:00:15 2 100 99.5"},
    {"a total that is rounded",
     {"UPDATE snapshots SET content = '{\"v1_total\":99.99999}' WHERE reading = 2"},
     ""},
    {"a total that is counted in another unit",
     {"UPDATE snapshots SET format = 5, content = '{\"v1_total\":9.5}' WHERE reading = 2",
      "UPDATE formats SET section = 4 WHERE id = 5",
      "UPDATE columns SET unit = 't' WHERE format = 5 AND field = 'v1_total'"},
     ""},
    {"a clock that is just right enough",
     {"UPDATE readings SET clock_difference = 120 WHERE id = 2"},
     ""},
    {"a clock that went wrong",
     {"UPDATE readings SET clock_difference = -200 WHERE id = 2"},
     "clock  09-02 00:00:05 09-04 23:56:40 25 0 -200;"
     "clock-changed  09-02 00:00:00 09-05 00:00:00 0 5 -200"},
    {"a record of the future",
     {"UPDATE readings SET ended = '2016-09-03 23:00:30' WHERE id = 2",
      "DELETE FROM records_523_days"},
     "ahead  09-04 00:00:00 09-04 00:00:00 1 0 3570"},
    {"a situation of 23 hours",
     {"UPDATE records_523_hours SET ns = 4 WHERE period < 17048 * 24"},
     ""},
    {"a situation of 24 hours, between others",
     {"UPDATE records_523_hours SET ns = 4 WHERE period <> 17048 * 24",
      "UPDATE records_523_hours "
      "SET ns = 8 WHERE period = 17048 * 24"},
     "situations ns 09-03 01:00:00 09-04 00:00:00 24 24 24"},
    {"two days of half the time",
     {"DELETE FROM records_523_hours", "UPDATE records_523_days SET tw = 12.0",
      "INSERT INTO records_523_days (section, period, time, reading, format, tw) VALUES (2, 17049, "
      "'2016-09-05 00:00:00', 2, 2, 11.0)"},
     "working-time tw 09-04 00:00:00 09-05 00:00:00 2 48 23"},
    {"two days of half the time with a good one between",
     {"UPDATE readings SET ended = '2016-09-06 00:00:00' WHERE id = 2",
      "DELETE FROM records_523_hours", "UPDATE records_523_days SET tw = 12.0",
      "INSERT INTO records_523_days (section, period, time, reading, format, tw) VALUES (2, 17049, "
      "'2016-09-05 00:00:00', 2, 2, 24.0), (2, 17050, '2016-09-06 00:00:00', 2, 2, 12.0)"},
     ""},
    {"another instrument at the place",
     {"INSERT INTO readings (id, instrument, begun, line, number) VALUES "
      "(3, 2, '2016-09-07 00:00:00', 'COM1', 1)"},
     "replaced  09-05 00:00:00 09-07 00:00:00 0"},
    {"one that is read there in turns",
     {"INSERT INTO readings (id, instrument, begun, line, number) VALUES "
      "(3, 2, '2016-09-03 00:00:00', 'COM1', 1)"},
     ""},
};

std::string TextOf(const std::vector<host::Finding>& findings) {
  std::string text;
  for (const host::Finding& finding : findings) {
    if (!text.empty()) text += ';';
    text += finding.rule + ' ' + finding.field + ' ' + finding.from.substr(5) + ' ' +
            finding.to.substr(5) + ' ' + std::to_string(finding.records);
    CHECK(finding.note == (finding.rule == "replaced"));
    if (!finding.numbers) continue;
    text += ' ' + host::CellText(finding.numbers->expected) + ' ' +
            host::CellText(finding.numbers->found);
  }
  return text;
}

}  // namespace

TEST_CASE("what the rules find") {
  for (const Case& each : kCases) {
    CAPTURE(each.name);
    MadeStore store;
    for (const char* statement : kGoodStore) store.Do(statement);
    for (const std::string& statement : each.changes) store.Do(statement);
    CHECK(TextOf(host::Check(store.Get(), {}, {})) == each.found);
  }
}

TEST_CASE("only what is asked for is checked") {
  MadeStore store;
  for (const char* statement : kGoodStore) store.Do(statement);
  store.Do("UPDATE records_523_days SET v1 = 30.0, tw = 20.0");
  const auto rules = [&](const host::Selection& selection, const host::CheckOptions& options,
                         const std::vector<std::string>& names) {
    std::string text;
    for (const auto& finding : host::Check(store.Get(), selection, options, names)) {
      text += finding.rule + ' ' + finding.field + ' ';
    }
    return text;
  };
  CHECK(rules({}, {.situationHours = 4}, {}) == "hours-days v1 hours-days tw working-time tw ");
  CHECK(rules({}, {.tolerance = 21, .situationHours = 4}, {}) == "working-time tw ");
  CHECK(rules({}, {.situationHours = 4}, {"working-time", "ahead"}) == "working-time tw ");
  CHECK(rules({.from = SYSTEMTIME{2016, 9, 0, 4, 0, 0, 1}}, {}, {}).empty());
  CHECK(rules({.to = SYSTEMTIME{2016, 9, 0, 3, 23, 59, 59}}, {}, {}).empty());
  CHECK_THROWS(rules({}, {}, {"working"}));
}
