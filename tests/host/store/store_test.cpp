// What the store keeps of readings of simulated instruments, asked by SQL.
#include "host/store/store.h"

#include <doctest/doctest.h>
#include <fmt/format.h>
#include <soci/soci.h>
#include <soci/sqlite3/soci-sqlite3.h>

#include <algorithm>

#include "host/reading/periods.h"
#include "host/store/kept.h"
#include "host/store/record_layout.h"
#include "host/store/slot.h"
#include "host/system/files.h"
#include "tests/host/fields/instrument_reading.h"
#include "tests/host/scratch_folder.h"

using fields_test::KeptSection;
using host_test::ScratchFolder;

namespace {

class Store {
 public:
  std::string Keep(const std::vector<KeptSection>& sections, const host::RunEnd& end = {}) const {
    std::string report;
    const auto sink = host::MakeStoreSink(Path(), [&](const std::string& line) { report = line; });
    const host::UnitSettings units = fields_test::Seen(sections);
    sink->BeginRun({host::ReadSettings{}, "tcp:gateway:4001", {2016, 9, 0, 5, 12}, &units});
    for (const KeptSection& kept : sections) {
      sink->BeginSection(kept.section);
      for (const host::Cells& row : kept.rows) sink->AddRow(kept.section, row);
      sink->EndSection(kept.section);
      sink->Keep();
    }
    sink->EndRun(end);
    return report.substr(report.rfind(": ") + 2);
  }

  // The rows, with '|' between their values and ';' between them.
  std::string Ask(const std::string& question) const {
    soci::session session(soci::sqlite3, fmt::format("dbname=\"{}\"", Path()));
    const soci::rowset<soci::row> rows = session.prepare << question;
    std::string text;
    for (const soci::row& row : rows) {
      if (!text.empty()) text += ';';
      for (std::size_t i = 0; i < row.size(); ++i)
        text.append(i > 0 ? "|" : "").append(TextOf(row, i));
    }
    return text;
  }

  void Do(const std::string& statement) const {
    soci::session session(soci::sqlite3, fmt::format("dbname=\"{}\"", Path()));
    session << statement;
  }

  // A name as users have them.
  std::string Path() const { return host::PathText(folder_ / host::PathOf("Мой архив 1.db")); }

 private:
  static std::string TextOf(const soci::row& row, std::size_t i) {
    if (row.get_indicator(i) == soci::i_null) return "null";
    switch (row.get_properties(i).get_data_type()) {
      case soci::dt_double:
        return host::CellText(row.get<double>(i));
      case soci::dt_integer:
        return std::to_string(row.get<int>(i));
      case soci::dt_long_long:
        return std::to_string(row.get<long long>(i));
      default:
        return row.get<std::string>(i);
    }
  }

  ScratchFolder folder_;
};

KeptSection& Find(std::vector<KeptSection>& sections, tav::TitleKind kind,
                  const std::string& name) {
  for (KeptSection& kept : sections) {
    if (kept.section.title.kind == kind && kept.section.title.section == name) return kept;
  }
  FAIL("no such section");
  return sections.front();
}

std::size_t ColumnOf(const KeptSection& kept, const std::string& base) {
  const std::vector<host::Field> fields = host::FieldsOf(kept.section);
  std::size_t i = 0;
  while (i < fields.size() && fields[i].base != base) ++i;
  REQUIRE(i < fields.size());
  return i;
}

}  // namespace

TEST_CASE("every archive record of every model is there by its field names") {
  for (const char* model : {"521", "521.1x", "522", "523", "721", "k7-521", "k7-523"}) {
    INFO(model);
    const Store store;
    const auto sections = fields_test::ReadAll(fields_test::Instrument(model, 1));
    store.Keep(sections);
    std::size_t archives = 0;
    for (const KeptSection& kept : sections) {
      if (!host::PeriodOf(kept.section.title.kind) || kept.rows.empty()) continue;
      ++archives;
      const host::RecordLayout& layout = host::RecordLayoutOf(kept.section);
      REQUIRE(layout.view != "");
      std::string question = "SELECT time";
      for (const host::Slot& value : layout.values) question += ", " + value.name;
      std::string expected;
      const host::Cells& row = kept.rows.back();
      for (std::size_t i = 0; i < row.size(); ++i) {
        expected.append(i > 0 ? "|" : "").append(host::CellText(row[i]));
      }
      CHECK(store.Ask(question + " FROM " + layout.view + " WHERE system = '" +
                      kept.section.title.section + "' AND time = '" + host::CellText(row.front()) +
                      "'") == expected);
    }
    CHECK(archives >= 2);
    CHECK(store.Ask("SELECT count(*) FROM records_other") == "0");
  }
}

TEST_CASE("what is read again") {
  const Store store;
  auto sections = fields_test::ReadAll(fields_test::Instrument("523", 0));
  store.Keep(sections);
  const std::string count = store.Ask("SELECT records_new FROM readings");
  const std::string before = store.Ask("SELECT count(*) FROM log_entries");
  CHECK(store.Keep(sections) == "0 records new, " + count + " as before");

  KeptSection& hours = Find(sections, tav::TitleKind::kHourly, "ТВ1");
  const std::size_t q = ColumnOf(hours, "q");
  const std::string former = host::CellText(hours.rows[2][q]);
  const std::string time = host::CellText(hours.rows[2].front());
  hours.rows[2][q] = 0.25F;
  hours.rows[3][q] = {};
  KeptSection& database = Find(sections, tav::TitleKind::kDatabase, "ТВ1");
  const std::size_t tk1 = ColumnOf(database, "tk1");
  database.rows[0][tk1] = {};
  const int left = std::stoi(count) - 2;
  CHECK(store.Keep(sections) == "0 records new, 2 changed, " + std::to_string(left) + " as before");
  CHECK(store.Ask("SELECT q, reading FROM hours_523 WHERE system = 'ТВ1' AND time = '" + time +
                  "'") == "0.25|3");
  CHECK(store.Ask("SELECT count(*) FROM hours_523 WHERE q IS NULL") == "1");
  CHECK(store.Ask("SELECT json_extract(record, '$.q'), read_at, replaced_at, replaced_by FROM "
                  "former_records WHERE time = '" +
                  time + "'") == former + "|2016-09-05 12:00:00|2016-09-05 12:00:00|3");

  // A parameter without a value says nothing, another value makes a snapshot.
  const std::string snapshots =
      "SELECT count(*) FROM snapshots JOIN sections s ON s.id = section "
      "WHERE kind = 'database' AND system = 'ТВ1'";
  CHECK(store.Ask(snapshots) == "1");
  database.rows[0][tk1] = 96.0F;
  store.Keep(sections);
  CHECK(store.Ask(snapshots) == "2");
  CHECK(store.Ask("SELECT count(*) FROM log_entries") == before);
  CHECK(store.Ask("SELECT count(*) FROM instruments") == "1");
}

TEST_CASE("records that are not there") {
  const Store store;
  auto sections = fields_test::ReadAll(fields_test::Instrument("523", 0));
  KeptSection& hours = Find(sections, tav::TitleKind::kHourly, "ТВ1");
  const host::Cells row = hours.rows[1];
  hours.rows.erase(hours.rows.begin() + 1);
  const TAVDT time = std::get<TAVDT>(row.front());
  host::RunEnd end;
  end.accounts.push_back({.kind = tav::TitleKind::kHourly,
                          .section = "ТВ1",
                          .absent = {{{2010, 1, 1, 0, 0, 0}, {2010, 1, 1, 2, 0, 0}}},
                          .missing = {{time, time}}});
  end.accounts.push_back({.kind = tav::TitleKind::kMonthly,
                          .section = "ТВ9",
                          .missing = {{{2010, 1, 1, 0, 0, 0}, {2010, 2, 1, 0, 0, 0}}}});
  store.Keep(sections, end);
  const std::vector<host::KeptSection> listed = host::ListKept(store.Path());
  const auto listedHours = std::find_if(listed.begin(), listed.end(), [](const auto& section) {
    return section.kind == "hours" && section.system == "ТВ1";
  });
  REQUIRE(listedHours != listed.end());
  CHECK(listedHours->records == hours.rows.size());
  CHECK(listedHours->first == host::CellText(hours.rows.front().front()));
  CHECK(listedHours->last == host::CellText(hours.rows.back().front()));
  CHECK(listedHours->absent == 3);
  CHECK(listedHours->missing == 1);
  const char* absences =
      "SELECT s.kind, state, count(*) FROM absences JOIN sections s ON s.id = section "
      "GROUP BY s.kind, state ORDER BY s.kind, state";
  CHECK(store.Ask(absences) == "hours|absent|3;hours|missing|1;months|missing|2");

  // No answer does not unlearn; a record that comes does.
  std::swap(end.accounts[0].absent, end.accounts[0].missing);
  store.Keep(sections, end);
  CHECK(store.Ask(absences) == "hours|absent|4;months|missing|2");
  hours.rows.push_back(row);
  store.Keep(sections);
  CHECK(store.Ask(absences) == "hours|absent|3;months|missing|2");
}

TEST_CASE("a value is the number that its shortest text says") {
  for (const float value : {0.1F, -0.0F, 12.345F, 999999.94F, 0.00012F, 8388608.5F, 1e20F,
                            3.14159274F, 1048575.06F, 0.99995F, -7.0625F}) {
    CHECK(host::ShownNumber(value) == std::stod(host::CellText(value)));
  }
}

TEST_CASE("a section that no table knows is kept whole") {
  const Store store;
  host::Section section;
  section.title = {tav::TitleKind::kHourly, "M", "V1", "", "A", {}};
  section.columns = {{"DT", tav::Type::kDateTime, 7, "", tav::Role::kKey, "DT", "default"},
                     {"new", tav::Type::kFloat, 4, "u", tav::Role::kValue, "new", "default"}};
  store.Keep({{section, {{TAVDT{2016, 9, 4, 1, 0, 0}, 0.1F}, {TAVDT{}, 0.2F}}}});
  CHECK(store.Ask("SELECT serial, r.time, other FROM records_other r JOIN sections s ON "
                  "s.id = section JOIN instruments i ON i.id = s.instrument") ==
        "@tcp:gateway:4001, number 1|2016-09-04 01:00:00|{\"x_new\":0.1}");
}

#ifdef _WIN32
TEST_CASE("a server is refused where there is no library of it") {
  CHECK_THROWS_WITH_AS(host::MakeStoreSink("postgresql://user@host/name", {}),
                       doctest::Contains("--db: "), host::UsageError);
}
#endif

TEST_CASE("a store learns columns that the table of fields has new") {
  const Store store;
  const auto sections = fields_test::ReadAll(fields_test::Instrument("523", 0));
  store.Keep({});
  for (const host::RecordLayout& layout : host::RecordLayouts()) {
    if (layout.view.empty()) continue;
    store.Do("DROP VIEW " + layout.view);
    for (const host::Slot& value : layout.values) {
      if (value.name == "q") store.Do("ALTER TABLE " + layout.table + " DROP COLUMN q");
    }
  }
  store.Do("UPDATE store_version SET fields = replace(fields, ' q ', ' ')");
  store.Keep(sections);
  CHECK(store.Ask("SELECT count(q) = count(*), count(*) > 0 FROM hours_523") == "1|1");
}
