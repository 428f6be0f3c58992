#include "host/store/kept.h"

#include "host/store/open_store.h"
#include "host/store/selection.h"

namespace host {
namespace {

struct Source {
  std::string table;
  const char* time;
};

Source SourceOf(const StoredSection& section) {
  if (!section.records.empty()) return {section.records, "time"};
  if (section.kind == tav::TitleKind::kLog) return {"log_entries", "time"};
  return {"snapshots", "clock"};
}

std::size_t Count(soci::session& session, const std::string& from, long long section) {
  long long count = 0;
  session << "SELECT count(*) FROM " << from << " AND section = :section", soci::into(count),
      soci::use(section);
  return static_cast<std::size_t>(count);
}

KeptSection Count(soci::session& session, const StoredSection& stored) {
  const auto [table, time] = SourceOf(stored);
  KeptSection section{stored.of.serial, stored.of.model, stored.of.place, KindName(stored.kind),
                      stored.system};
  long long records = 0;
  soci::indicator any = soci::i_null;
  session << "SELECT count(*), min(" << time << "), max(" << time << ") FROM " << table
          << " WHERE section = :section",
      soci::into(records), soci::into(section.first, any), soci::into(section.last, any),
      soci::use(stored.id);
  section.records = static_cast<std::size_t>(records);
  section.missing = Count(session, "absences WHERE state = 'missing'", stored.id);
  section.absent = Count(session, "absences WHERE state = 'absent'", stored.id);
  section.changed = Count(session, "former_records WHERE period IS NOT NULL", stored.id);
  return section;
}

}  // namespace

std::vector<KeptSection> ListKept(const std::string& address) {
  const std::unique_ptr<Database> database = OpenStore(address);
  std::vector<KeptSection> kept;
  database->Read([&] {
    for (const StoredSection& section : FindSections(*database, {})) {
      kept.push_back(Count(database->Session(), section));
    }
  });
  return kept;
}

}  // namespace host
