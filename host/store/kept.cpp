#include "host/store/kept.h"

#include "host/store/place.h"
#include "host/store/schema.h"

namespace host {
namespace {

struct Found {
  long long id = 0;
  std::string records;  // table; empty: none
  KeptSection section;
};

std::vector<Found> Sections(soci::session& session) {
  std::vector<Found> sections;
  Found row;
  KeptSection& section = row.section;
  soci::indicator known = soci::i_null;
  soci::statement select =
      (session.prepare << "SELECT s.id, i.serial, i.model, i.place, s.kind, s.system, s.records "
                          "FROM sections s JOIN instruments i ON i.id = s.instrument "
                          "ORDER BY i.serial, i.model, i.kind, s.id",
       soci::into(row.id), soci::into(section.serial), soci::into(section.model),
       soci::into(section.place), soci::into(section.kind), soci::into(section.system),
       soci::into(row.records, known));
  for (select.execute(); select.fetch();) {
    if (known != soci::i_ok) row.records.clear();
    sections.push_back(row);
  }
  return sections;
}

struct Source {
  std::string table;
  const char* time;
};

Source SourceOf(const Found& found) {
  if (!found.records.empty()) return {found.records, "time"};
  if (found.section.kind == "log") return {"log_entries", "time"};
  return {"snapshots", "clock"};
}

std::size_t Count(soci::session& session, const std::string& from, long long section) {
  long long count = 0;
  session << "SELECT count(*) FROM " << from << " AND section = :section", soci::into(count),
      soci::use(section);
  return static_cast<std::size_t>(count);
}

void Fill(soci::session& session, Found& found) {
  const auto [table, time] = SourceOf(found);
  KeptSection& section = found.section;
  long long records = 0;
  soci::indicator any = soci::i_null;
  session << "SELECT count(*), min(" << time << "), max(" << time << ") FROM " << table
          << " WHERE section = :section",
      soci::into(records), soci::into(section.first, any), soci::into(section.last, any),
      soci::use(found.id);
  section.records = static_cast<std::size_t>(records);
  section.missing = Count(session, "absences WHERE state = 'missing'", found.id);
  section.absent = Count(session, "absences WHERE state = 'absent'", found.id);
  section.changed = Count(session, "former_records WHERE period IS NOT NULL", found.id);
}

}  // namespace

std::vector<KeptSection> ListKept(const std::string& address) {
  const std::string place = PlaceOfStore(address);
  RequireStore(place);
  Database database(place);
  PrepareSchema(database);
  std::vector<KeptSection> kept;
  database.Read([&] {
    for (Found& found : Sections(database.Session())) {
      Fill(database.Session(), found);
      kept.push_back(found.section);
    }
  });
  return kept;
}

}  // namespace host
