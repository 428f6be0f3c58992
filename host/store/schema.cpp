#include "host/store/schema.h"

#include <fmt/format.h>

#include <iterator>

#include "host/store/record_layout.h"

namespace host {
namespace {

// {id}, {int} and {time} stand for the database's own types, {keyed} for the end of a table that is
// stored in the order of its key.
constexpr const char* kTables[] = {
    "CREATE TABLE store_version (version {int} NOT NULL, fields TEXT NOT NULL)",
    "CREATE TABLE instruments (id {id}, kind TEXT NOT NULL, model TEXT NOT NULL, "
    "serial TEXT NOT NULL, version TEXT NOT NULL, place TEXT NOT NULL, "
    "UNIQUE (serial, model, kind))",
    "CREATE TABLE readings (id {id}, instrument {int} REFERENCES instruments (id), "
    "begun {time} NOT NULL, ended {time}, line TEXT NOT NULL, number {int}, kind TEXT, "
    "asked_from {time}, asked_to {time}, groups TEXT, result TEXT, reason TEXT, "
    "records_new {int}, records_changed {int}, records_equal {int}, clock_difference {int})",
    "CREATE TABLE sections (id {id}, instrument {int} NOT NULL REFERENCES instruments (id), "
    "kind TEXT NOT NULL, system TEXT NOT NULL, records TEXT, "
    "UNIQUE (instrument, kind, system))",
    "CREATE TABLE formats (id {id}, section {int} NOT NULL REFERENCES sections (id), "
    "signature TEXT NOT NULL, UNIQUE (section, signature))",
    "CREATE TABLE columns (format {int} NOT NULL REFERENCES formats (id), position {int} NOT NULL, "
    "field TEXT NOT NULL, unit TEXT, role TEXT, caption TEXT NOT NULL, name TEXT NOT NULL, "
    "driver_unit TEXT NOT NULL, type {int} NOT NULL, width {int} NOT NULL, "
    "role_code {int} NOT NULL, group_name TEXT NOT NULL, PRIMARY KEY (format, position)){keyed}",
    "CREATE TABLE former_records (section {int} NOT NULL, period {int} NOT NULL, "
    "time {time} NOT NULL, format {int} NOT NULL, read_at {time}, replaced_at {time} NOT NULL, "
    "replaced_by {int} NOT NULL, record TEXT NOT NULL, "
    "PRIMARY KEY (section, period, replaced_by)){keyed}",
    "CREATE TABLE absences (section {int} NOT NULL, period {int} NOT NULL, state TEXT NOT NULL, "
    "reading {int} NOT NULL, PRIMARY KEY (section, period)){keyed}",
    "CREATE TABLE snapshots (id {id}, section {int} NOT NULL REFERENCES sections (id), "
    "reading {int} NOT NULL REFERENCES readings (id), clock TEXT NOT NULL, format {int} NOT NULL, "
    "content TEXT NOT NULL)",
    "CREATE INDEX snapshots_of_section ON snapshots (section, reading)",
    "CREATE TABLE log_entries (section {int} NOT NULL, time TEXT NOT NULL, entry TEXT NOT NULL, "
    "reading {int} NOT NULL, format {int} NOT NULL, PRIMARY KEY (section, time, entry)){keyed}",
};

std::string Fill(const char* statement, const Dialect& own) {
  return fmt::format(fmt::runtime(statement), fmt::arg("id", own.identity),
                     fmt::arg("int", own.integer), fmt::arg("time", own.time),
                     fmt::arg("keyed", own.keyed));
}

const char* TypeName(Slot::Type type, const Dialect& own) {
  switch (type) {
    case Slot::Type::kInteger:
      return own.integer;
    case Slot::Type::kReal:
      return own.real;
    case Slot::Type::kWideReal:
      return own.wideReal;
    case Slot::Type::kText:
      break;
  }
  return "TEXT";
}

std::string TableStatement(const RecordLayout& layout, const Dialect& own) {
  std::string statement = fmt::format(
      "CREATE TABLE IF NOT EXISTS {} (section {int} NOT NULL, period {int} NOT NULL, "
      "time {time} NOT NULL, reading {int} NOT NULL, format {int} NOT NULL, ",
      layout.table, fmt::arg("int", own.integer), fmt::arg("time", own.time));
  for (const Slot& value : layout.values) {
    statement += value.name + ' ' + TypeName(value.type, own) + ", ";
  }
  return statement + "other TEXT, PRIMARY KEY (section, period))" + own.keyed;
}

std::string ViewStatement(const RecordLayout& layout) {
  std::string statement = fmt::format(
      "CREATE VIEW {} AS SELECT i.id AS instrument, i.serial, s.system, r.time", layout.view);
  for (const Slot& value : layout.values) statement += ", r." + value.name;
  return statement + fmt::format(
                         ", r.section, r.period, r.reading, r.format FROM {} r "
                         "JOIN sections s ON s.id = r.section "
                         "JOIN instruments i ON i.id = s.instrument",
                         layout.table);
}

// The columns of all record tables, as the version table keeps them.
std::string FieldsText() {
  std::string text;
  for (const RecordLayout& layout : RecordLayouts()) {
    text += layout.table + ':';
    for (const Slot& value : layout.values) text += value.name + ' ';
  }
  return text;
}

bool HasColumn(const std::string& known, const RecordLayout& layout, const std::string& column) {
  const std::size_t begin = known.find(layout.table + ':');
  if (begin == std::string::npos) return true;  // the table is made whole
  const std::size_t end = std::min(known.find("records_", begin + 1), known.size());
  const std::string columns = known.substr(begin, end - begin);
  return columns.find(':' + column + ' ') != std::string::npos ||
         columns.find(' ' + column + ' ') != std::string::npos;
}

// Tables that are there keep their columns and get those that the table of fields has new.
void MakeRecordTables(Database& database, const std::string& known) {
  soci::session& session = database.Session();
  const Dialect& own = database.Own();
  for (const RecordLayout& layout : RecordLayouts()) {
    session << TableStatement(layout, own);
    for (const Slot& value : layout.values) {
      if (HasColumn(known, layout, value.name)) continue;
      session << "ALTER TABLE " << layout.table << " ADD COLUMN " << value.name << ' '
              << TypeName(value.type, own);
    }
    if (layout.view.empty()) continue;
    session << own.dropView << layout.view;
    session << ViewStatement(layout);
  }
}

void MakeAll(Database& database) {
  const std::string fields = FieldsText();  // statements run at the end of their line
  for (const char* statement : kTables) database.Session() << Fill(statement, database.Own());
  MakeRecordTables(database, {});
  database.Session() << "INSERT INTO store_version (version, fields) VALUES (:version, :fields)",
      soci::use(kStoreVersion), soci::use(fields);
}

// 0: there are no tables.
int VersionOf(Database& database, std::string& fields) {
  int tables = 0;
  int version = 0;
  database.Session() << database.Own().hasVersion, soci::into(tables);
  if (tables == 0) return 0;
  database.Session() << "SELECT version, fields FROM store_version", soci::into(version),
      soci::into(fields);
  return version;
}

// One step for each version: from that of its place to the next.
using Step = void (*)(Database&);
constexpr Step kSteps[] = {MakeAll};
static_assert(std::size(kSteps) == kStoreVersion);

void Migrate(Database& database, int version) {
  for (; version < kStoreVersion; ++version) kSteps[version](database);
}

void Refresh(Database& database) {
  std::string known;
  Migrate(database, VersionOf(database, known));
  VersionOf(database, known);
  const std::string fields = FieldsText();
  if (known == fields) return;
  MakeRecordTables(database, known);
  database.Session() << "UPDATE store_version SET version = :version, fields = :fields",
      soci::use(kStoreVersion), soci::use(fields);
}

}  // namespace

void PrepareSchema(Database& database) {
  int version = 0;
  std::string known;
  database.Read([&] { version = VersionOf(database, known); });
  if (version > kStoreVersion) {
    throw std::runtime_error(fmt::format(
        "{} is a store of version {}, this program knows version {}; take a newer program",
        database.Name(), version, kStoreVersion));
  }
  if (version == kStoreVersion && known == FieldsText()) return;
  database.Write([&] {
    database.Session() << database.Own().schemaBegin;
    Refresh(database);
  });
}

}  // namespace host
