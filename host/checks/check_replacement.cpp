// Another instrument at the same place.
#include <fmt/format.h>

#include <set>

#include "host/checks/rules.h"
#include "host/checks/wording.h"

namespace host {
namespace {

std::string NameOf(Database& database, long long id) {
  Instrument instrument;
  database.Session() << "SELECT model, serial FROM instruments WHERE id = :id", soci::use(id),
      soci::into(instrument.model), soci::into(instrument.serial);
  return NameOf(instrument);
}

}  // namespace

void CheckReplacement(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  const long long instrument = subject.sections.front().instrument;
  std::set<std::size_t> places;
  for (const KeptReading& reading : subject.readings.Of(instrument)) {
    if (!places.insert(reading.place).second) continue;
    const auto before = subject.readings.Before(instrument, reading.place);
    const std::string begun = TextOfSeconds(reading.begun);
    if (!before || !IsMeant(subject.selection, begun, begun)) continue;
    Finding finding = MakeFinding(rule, subject);
    finding.note = true;
    finding.from = TextOfSeconds(before->last);
    finding.to = begun;
    finding.sentence =
        fmt::format("it has replaced {} at {}", NameOf(subject.database, before->instrument),
                    subject.readings.NameOf(reading.place));
    findings.push_back(std::move(finding));
  }
}

}  // namespace host
