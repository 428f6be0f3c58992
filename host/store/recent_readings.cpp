#include "host/store/recent_readings.h"

namespace host {
namespace {

// A value that may not be known.
template <class Value>
struct Told {
  Value value{};
  soci::indicator known = soci::i_null;

  Value OrNothing() const { return known == soci::i_ok ? value : Value{}; }
  std::optional<Value> Optional() const {
    return known == soci::i_ok ? std::optional(value) : std::nullopt;
  }
};

long long CountReadings(soci::session& session, long long instrument) {
  long long count = 0;
  session << "SELECT count(*) FROM readings WHERE instrument = :instrument", soci::into(count),
      soci::use(instrument);
  return count;
}

std::optional<LastReading> FindLast(soci::session& session, long long instrument) {
  std::string begun;
  Told<std::string> ended;
  Told<std::string> result;
  Told<std::string> reason;
  Told<long long> difference;
  session << "SELECT begun, ended, result, reason, clock_difference FROM readings "
             "WHERE instrument = :instrument ORDER BY begun DESC, id DESC LIMIT 1",
      soci::use(instrument), soci::into(begun), soci::into(ended.value, ended.known),
      soci::into(result.value, result.known), soci::into(reason.value, reason.known),
      soci::into(difference.value, difference.known);
  if (!session.got_data()) return std::nullopt;
  return LastReading{begun, ended.OrNothing(), result.OrNothing(), reason.OrNothing(),
                     difference.Optional()};
}

std::optional<long long> FindDifference(soci::session& session, long long instrument) {
  Told<long long> difference;
  session << "SELECT clock_difference FROM readings WHERE instrument = :instrument "
             "AND clock_difference IS NOT NULL ORDER BY begun DESC, id DESC LIMIT 1",
      soci::use(instrument), soci::into(difference.value, difference.known);
  return session.got_data() ? difference.Optional() : std::nullopt;
}

// PlaceOf in catalogue.h writes a place.
std::optional<FailedReadings> FindFailed(soci::session& session, const std::string& place,
                                         const std::string& since) {
  constexpr char kWhere[] =
      " FROM readings WHERE instrument IS NULL AND begun > :since AND "
      "line || CASE WHEN number IS NULL THEN '' ELSE ', number ' || number END = :place";
  FailedReadings failed;
  session << std::string("SELECT count(*)") + kWhere, soci::use(since), soci::use(place),
      soci::into(failed.count);
  if (failed.count == 0) return std::nullopt;
  Told<std::string> reason;
  session << std::string("SELECT begun, reason") + kWhere + " ORDER BY begun DESC LIMIT 1",
      soci::use(since), soci::use(place), soci::into(failed.last),
      soci::into(reason.value, reason.known);
  failed.reason = reason.OrNothing();
  return failed;
}

}  // namespace

RecentReadings FindRecentReadings(Database& database, const StoredSection& section) {
  soci::session& session = database.Session();
  RecentReadings readings;
  readings.count = CountReadings(session, section.instrument);
  readings.last = FindLast(session, section.instrument);
  readings.difference = FindDifference(session, section.instrument);
  const std::string since = readings.last ? readings.last->begun : "0001-01-01 00:00:00";
  readings.failed = FindFailed(session, section.of.place, since);
  return readings;
}

}  // namespace host
