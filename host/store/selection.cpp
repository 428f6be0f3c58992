#include "host/store/selection.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace host {
namespace {

using tav::ReadGroup;
using tav::TitleKind;

struct KindOfGroup {
  TitleKind kind;
  ReadGroup group;
};

constexpr std::array kKinds = {KindOfGroup{TitleKind::kDatabase, ReadGroup::kDatabase},
                               KindOfGroup{TitleKind::kCurrent, ReadGroup::kCurrent},
                               KindOfGroup{TitleKind::kMonthly, ReadGroup::kMonths},
                               KindOfGroup{TitleKind::kDaily, ReadGroup::kDays},
                               KindOfGroup{TitleKind::kHourly, ReadGroup::kHours},
                               KindOfGroup{TitleKind::kLog, ReadGroup::kLogs}};

// The row of a kind by its name in the store; null for one that this program does not know.
const KindOfGroup* FindKind(const std::string& name) {
  const auto* found = std::find_if(kKinds.begin(), kKinds.end(), [&](const KindOfGroup& known) {
    return name == KindName(known.kind);
  });
  return found == kKinds.end() ? nullptr : found;
}

bool IsAsked(const Selection& selection, const StoredSection& section, ReadGroup group) {
  const bool system = selection.system.empty() || selection.system == section.system;
  return system && selection.groups.find(static_cast<char>(group)) != std::string::npos;
}

// A name that is not there is a slip; no sections are none.
void RequireInstrument(Database& database, const std::string& serial) {
  long long count = 0;
  database.Session() << "SELECT count(*) FROM instruments WHERE serial = :serial",
      soci::use(serial), soci::into(count);
  if (count > 0) return;
  throw std::runtime_error("there is no instrument of number " + serial + " in " + database.Name() +
                           "; irvela list tells which there are");
}

}  // namespace

std::vector<StoredSection> FindSections(Database& database, const Selection& selection) {
  if (!selection.serial.empty()) RequireInstrument(database, selection.serial);
  std::vector<StoredSection> sections;
  StoredSection row;
  std::string kind;
  soci::indicator known = soci::i_null;
  soci::statement select =
      (database.Session().prepare
           << "SELECT s.id, i.id, i.kind, i.model, i.serial, i.version, i.place, s.kind, s.system, "
              "s.records FROM sections s JOIN instruments i ON i.id = s.instrument "
              "WHERE :any = '' OR i.serial = :serial ORDER BY i.serial, i.model, i.kind, s.id",
       soci::use(selection.serial), soci::use(selection.serial), soci::into(row.id),
       soci::into(row.instrument), soci::into(row.of.kind), soci::into(row.of.model),
       soci::into(row.of.serial), soci::into(row.of.version), soci::into(row.of.place),
       soci::into(kind), soci::into(row.system), soci::into(row.records, known));
  for (select.execute(); select.fetch();) {
    const KindOfGroup* found = FindKind(kind);
    if (found == nullptr) continue;
    row.kind = found->kind;
    if (known != soci::i_ok) row.records.clear();
    if (IsAsked(selection, row, found->group)) sections.push_back(row);
  }
  return sections;
}

std::vector<std::vector<StoredSection>> ByInstrument(std::vector<StoredSection> sections) {
  std::vector<std::vector<StoredSection>> groups;
  for (StoredSection& section : sections) {
    const bool same = !groups.empty() && groups.back().front().instrument == section.instrument;
    if (!same) groups.emplace_back();
    groups.back().push_back(std::move(section));
  }
  return groups;
}

std::string NameOf(const Instrument& instrument) {
  return instrument.model + ", number " + instrument.serial;
}

}  // namespace host
