#include "host/store/catalogue.h"

#include <fmt/format.h>

#include <cstdint>

#include "host/fields/words.h"

namespace host {
namespace {

// FNV-1a, the same on every system and in every version of the program.
class Signature {
 public:
  void Take(const std::string& text) {
    for (const char character : text) Mix(static_cast<unsigned char>(character));
    Mix(0);
  }
  std::string Text() const { return fmt::format("{:016x}", hash_); }

 private:
  void Mix(unsigned char byte) { hash_ = (hash_ ^ byte) * 0x100000001B3U; }

  std::uint64_t hash_ = 0xCBF29CE484222325U;
};

std::string SignatureOf(const std::vector<Column>& columns, const std::vector<Field>& fields) {
  Signature signature;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const Column& column = columns[i];
    for (const std::string* text : {&fields[i].name, &fields[i].unit.text, &column.name,
                                    &column.unit, &column.caption, &column.group}) {
      signature.Take(*text);
    }
    signature.Take(fmt::format("{} {} {}", int{static_cast<unsigned char>(column.type)},
                               column.width, int{static_cast<unsigned char>(column.role)}));
  }
  return signature.Text();
}

}  // namespace

std::string PlaceOf(const Run& run) {
  return run.settings ? fmt::format("{}, number {}", run.line, run.settings->number) : run.line;
}

long long Catalogue::Add(const Instrument& instrument, bool present) {
  long long id = 0;
  const char* source = present ? "excluded" : "instruments";
  database_.Session() << "INSERT INTO instruments (kind, model, serial, version, place) "
                         "VALUES (:kind, :model, :serial, :version, :place) "
                         "ON CONFLICT (serial, model, kind) DO UPDATE SET version = "
                      << source << ".version, place = " << source << ".place RETURNING id",
      soci::use(instrument.kind), soci::use(instrument.model), soci::use(instrument.serial),
      soci::use(instrument.version), soci::use(instrument.place), soci::into(id);
  return id;
}

long long Catalogue::AddSection(long long instrument, const std::string& kind,
                                const std::string& system, const std::string& records) {
  long long id = 0;
  database_.Session() << "INSERT INTO sections (instrument, kind, system, records) "
                         "VALUES (:instrument, :kind, :system, nullif(:records, '')) "
                         "ON CONFLICT (instrument, kind, system) DO UPDATE SET records = "
                         "coalesce(sections.records, excluded.records) RETURNING id",
      soci::use(instrument), soci::use(kind), soci::use(system), soci::use(records), soci::into(id);
  return id;
}

std::string Catalogue::RecordsOf(long long section) {
  std::string records;
  soci::indicator known = soci::i_null;
  database_.Session() << "SELECT records FROM sections WHERE id = :id", soci::use(section),
      soci::into(records, known);
  return known == soci::i_ok ? records : "";
}

long long Catalogue::AddFormat(long long section, const std::vector<Column>& columns,
                               const std::vector<Field>& fields) {
  const std::string signature = SignatureOf(columns, fields);
  long long id = 0;
  soci::session& session = database_.Session();
  session << "SELECT id FROM formats WHERE section = :section AND signature = :signature",
      soci::use(section), soci::use(signature), soci::into(id);
  if (session.got_data()) return id;
  session << "INSERT INTO formats (section, signature) VALUES (:section, :signature) RETURNING id",
      soci::use(section), soci::use(signature), soci::into(id);
  for (std::size_t i = 0; i < columns.size(); ++i) AddColumn(id, i, columns[i], fields[i]);
  return id;
}

void Catalogue::AddColumn(long long format, std::size_t position, const Column& column,
                          const Field& field) {
  const auto place = static_cast<long long>(position);
  const int type = static_cast<unsigned char>(column.type);
  const int width = column.width;
  const int role = static_cast<unsigned char>(column.role);
  const std::string roleName = NameOf(column.role);
  database_.Session()
      << "INSERT INTO columns (format, position, field, unit, role, caption, name, driver_unit, "
         "type, width, role_code, group_name) VALUES (:format, :position, :field, nullif(:unit, "
         "''), nullif(:role, ''), "
         ":caption, :name, :driver_unit, :type, :width, :role_code, :group_name)",
      soci::use(format), soci::use(place), soci::use(field.base), soci::use(field.unit.text),
      soci::use(roleName), soci::use(column.caption), soci::use(column.name),
      soci::use(column.unit), soci::use(type), soci::use(width), soci::use(role),
      soci::use(column.group);
}

bool Catalogue::Contradict(long long one, long long other) {
  const auto [place, isNew] = contradictions_.try_emplace({one, other}, false);
  if (!isNew) return place->second;
  int count = 0;
  database_.Session() << "SELECT count(*) FROM columns a JOIN columns b ON a.field = b.field "
                         "WHERE a.format = :one AND b.format = :other AND a.unit <> b.unit",
      soci::use(one), soci::use(other), soci::into(count);
  return place->second = count > 0;
}

}  // namespace host
