#include "host/report/last_reading.h"

#include "host/report/field_json.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

struct Told {
  std::string text;
  soci::indicator known = soci::i_null;

  Json Value() const { return known == soci::i_ok ? TextOrNull(text) : Json(); }
};

struct Clock {
  long long difference = 0;
  soci::indicator known = soci::i_null;

  Json Value() const { return known == soci::i_ok ? Json(difference) : Json(); }
};

Json LastReading(soci::session& session, long long instrument) {
  std::string begun;
  Told ended;
  Told result;
  Told reason;
  Clock clock;
  session << "SELECT begun, ended, result, reason, clock_difference FROM readings "
             "WHERE instrument = :instrument ORDER BY begun DESC, id DESC LIMIT 1",
      soci::use(instrument), soci::into(begun), soci::into(ended.text, ended.known),
      soci::into(result.text, result.known), soci::into(reason.text, reason.known),
      soci::into(clock.difference, clock.known);
  if (!session.got_data()) return nullptr;
  return {{"begun", begun},
          {"ended", ended.Value()},
          {"result", result.Value()},
          {"reason", reason.Value()},
          {"difference", clock.Value()}};
}

Json LastDifference(soci::session& session, long long instrument) {
  Clock clock;
  session << "SELECT clock_difference FROM readings WHERE instrument = :instrument "
             "AND clock_difference IS NOT NULL ORDER BY begun DESC, id DESC LIMIT 1",
      soci::use(instrument), soci::into(clock.difference, clock.known);
  return session.got_data() ? clock.Value() : Json();
}

long long CountReadings(soci::session& session, long long instrument) {
  long long count = 0;
  session << "SELECT count(*) FROM readings WHERE instrument = :instrument", soci::into(count),
      soci::use(instrument);
  return count;
}

// Readings at a place after a time that found no instrument: PlaceOf in catalogue.h writes a place.
Json FailedSince(soci::session& session, const std::string& place, const std::string& since) {
  constexpr char kWhere[] =
      " FROM readings WHERE instrument IS NULL AND begun > :since AND "
      "line || CASE WHEN number IS NULL THEN '' ELSE ', number ' || number END = :place";
  long long count = 0;
  session << std::string("SELECT count(*)") + kWhere, soci::use(since), soci::use(place),
      soci::into(count);
  if (count == 0) return nullptr;
  std::string last;
  Told reason;
  session << std::string("SELECT begun, reason") + kWhere + " ORDER BY begun DESC LIMIT 1",
      soci::use(since), soci::use(place), soci::into(last), soci::into(reason.text, reason.known);
  return {{"count", count}, {"last", last}, {"reason", reason.Value()}};
}

}  // namespace

void AddReadings(Database& database, const StoredSection& section, Json& json) {
  soci::session& session = database.Session();
  const Json last = LastReading(session, section.instrument);
  const std::string since = last.is_null() ? "" : last["begun"].get<std::string>();
  json["readings"] = CountReadings(session, section.instrument);
  json["last"] = last;
  json["difference"] = LastDifference(session, section.instrument);
  json["failed"] = FailedSince(session, section.of.place, since);
}

}  // namespace host
