// Which records are there and which are not, of archives put together by SQL.
#include "host/store/coverage.h"

#include <doctest/doctest.h>
#include <fmt/format.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include "host/output/gap_list.h"
#include "host/output/gap_map.h"
#include "host/store/store.h"
#include "host/system/files.h"
#include "tests/host/scratch_folder.h"

namespace {

// Hours, days and months of two instruments. Periods count from 2016-09-01, or from the month.
class Archives {
 public:
  Archives() {
    host::MakeStoreSink(path_, [](const std::string&) {});
    session_.open(soci::sqlite3, "dbname=" + path_);
    for (const char* statement :
         {"INSERT INTO instruments (id, kind, model, serial, version, place) VALUES "
          "(1, 'older', 'M', '77', 'V', 'line, number 1'), (2, 'k7', 'N', '88', 'V', 'line')",
          "INSERT INTO readings (id, begun, line) VALUES (1, '2016-09-05 12:00:00', 'line')",
          "INSERT INTO sections (id, instrument, kind, system, records) VALUES "
          "(1, 1, 'months', 'A', 'records_other'), (2, 1, 'days', 'A', 'records_other'), "
          "(3, 1, 'hours', 'A', 'records_other'), (4, 1, 'hours', 'B', NULL), "
          "(5, 1, 'current', 'A', NULL), (6, 2, 'days', 'A', 'records_other')"}) {
      session_ << statement;
    }
    Keep(1, kMonth, {0});
    Keep(2, kDay, {0, 1, 3});
    for (int hour = 0; hour < 120; ++hour) {
      if (hour < 5 || hour > 9) Keep(3, kDay * 24, {hour});
    }
    Miss(3, kDay * 24, {5, 6, 10}, "missing");
    Miss(3, kDay * 24, {8}, "absent");
    Miss(4, kDay * 24, {30}, "absent");
    Keep(6, kDay, {0});
  }

  const std::string& Path() const { return path_; }

 private:
  static constexpr long long kDay = 17045;
  static constexpr long long kMonth = 2016 * 12 + 8;

  void Keep(int section, long long origin, const std::vector<int>& periods) {
    for (const int period : periods) {
      session_ << fmt::format(
          "INSERT INTO records_other (section, period, time, reading, format) VALUES ({}, {}, '', "
          "1, 1)",
          section, origin + period);
    }
  }
  void Miss(int section, long long origin, const std::vector<int>& periods, const char* state) {
    for (const int period : periods) {
      session_ << fmt::format("INSERT INTO absences VALUES ({}, {}, '{}', 1)", section,
                              origin + period, state);
    }
  }

  host_test::ScratchFolder folder_;
  std::string path_ = host::PathText(folder_ / "archive.db");
  soci::session session_;
};

std::string TextOf(const Archives& archives, const host::Selection& selection) {
  std::string text;
  for (const auto& [section, coverage] : host::ListCoverage(archives.Path(), selection)) {
    text += host::KindName(section.kind) + section.system;
    for (const host::CoverageRange& range : coverage.ranges) {
      text += fmt::format(", {} {}", host::WordOf(range.state),
                          host::PeriodsText(section, range.periods));
      if (!range.learnt.empty()) text += " learnt " + range.learnt;
    }
    text += "; ";
  }
  return text;
}

host::Selection Of(const char* serial, const char* groups, std::optional<SYSTEMTIME> from = {},
                   std::optional<SYSTEMTIME> to = {}) {
  return {.serial = serial, .groups = groups, .from = from, .to = to};
}

}  // namespace

TEST_CASE("what is kept, missing, absent, and was never asked for") {
  const Archives archives;
  struct Case {
    host::Selection selection;
    const char* text;
  };
  const SYSTEMTIME second{2016, 9, 0, 2, 0, 0, 0, 0};
  const SYSTEMTIME secondEnd{2016, 9, 0, 2, 23, 59, 59, 0};
  const Case cases[] = {
      // The hours end with the 5th at 23:00, so the days up to the 4th are over.
      {Of("77", "MST"),
       "monthsA, kept 2016-09; "
       "daysA, kept 2016-09-01 to 2016-09-02, not asked for 2016-09-03, kept 2016-09-04; "},
      {Of("77", "H"),
       "hoursA, kept 2016-09-01 00:00 to 04:00, no answer 2016-09-01 05:00 to 06:00, "
       "not asked for 2016-09-01 07:00, not held 2016-09-01 08:00 learnt 2016-09-05 12:00:00, "
       "not asked for 2016-09-01 09:00, kept 2016-09-01 10:00 to 2016-09-05 23:00; "
       "hoursB, not held 2016-09-02 06:00 learnt 2016-09-05 12:00:00, "
       "not asked for 2016-09-02 07:00 to 2016-09-05 23:00; "},
      {Of("77", "HS", second, secondEnd),
       "daysA, kept 2016-09-02; hoursA, kept 2016-09-02 00:00 to 23:00; "
       "hoursB, not asked for 2016-09-02 00:00 to 05:00, "
       "not held 2016-09-02 06:00 learnt 2016-09-05 12:00:00, "
       "not asked for 2016-09-02 07:00 to 23:00; "},
      {Of("88", "MSH", SYSTEMTIME{2016, 8, 0, 31, 0, 0, 0, 0}),
       "daysA, not asked for 2016-08-31, kept 2016-09-01; "},
      {Of("88", "H"), ""},
  };
  for (const Case& item : cases) CHECK(TextOf(archives, item.selection) == item.text);
}

TEST_CASE("gaps on a terminal") {
  const Archives archives;
  const auto all = host::ListCoverage(archives.Path(), Of("77", "SH"));
  CHECK(host::GapsText({all.data(), all.data() + 2}, 60) ==
        "M, number 77, read at line, number 1\n"
        "  days   A  3 of 4 kept      2016-09-01 to 2016-09-04\n"
        "      not asked for 1: 2016-09-03\n"
        "  hours  A  115 of 120 kept  2016-09-01 00:00 to 2016-09-05 23:00\n"
        "      no answer 2: 2016-09-01 05:00 to 06:00\n"
        "      not held 1: 2016-09-01 08:00\n"
        "      not asked for 2: 2016-09-01 07:00, 2016-09-01 09:00\n");
  const char* legend = "# kept   x no answer   - not held   . not asked for\n\n";
  const std::string heading = "M, number 77, read at line, number 1\n";
  CHECK(host::GapsMap({all.begin(), all.begin() + 1}, {45, false}) ==
        legend + heading +
            "days A: 3 of 4 kept\n"
            "          0000000001111111111222222222233\n"
            "          1234567890123456789012345678901\n"
            "  2016-09 ##.#\n");
  const std::string hours = host::GapsMap({all.begin() + 1, all.begin() + 2}, {13, false});
  CHECK(hours.substr(0, hours.find("  12 ")) ==
        legend + heading +
            "hours A: 115 of 120 kept\n"
            "          2016-09\n          000\n          123\n"
            "  00      ###\n  01      ###\n  02      ###\n  03      ###\n  04      ###\n"
            "  05      x##\n  06      x##\n  07      .##\n  08      -##\n  09      .##\n"
            "  10      ###\n  11      ###\n");
  CHECK(hours.find("\n          00\n          45\n  00      ##\n") != std::string::npos);
  CHECK(host::GapsMap({}, {80, true}) == "the store holds no archive of these\n");
}
