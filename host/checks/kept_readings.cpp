#include "host/checks/kept_readings.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>

#include "host/reading/periods.h"
#include "host/stream/cell.h"

namespace host {
namespace {

constexpr long long kSecondsOfHour = 3600;
constexpr long long kSecondsOfMinute = 60;

template <class Number>
Number Limited(unsigned value) {
  return static_cast<Number>(value);
}

}  // namespace

long long SecondsOf(const std::string& time) {
  unsigned parts[6] = {};
  const int count = std::sscanf(time.c_str(), "%4u-%2u-%2u%*c%2u:%2u:%2u", &parts[0], &parts[1],
                                &parts[2], &parts[3], &parts[4], &parts[5]);
  if (count < 3) return 0;
  const TAVDT date{Limited<unsigned short>(parts[0]), Limited<unsigned char>(parts[1]),
                   Limited<unsigned char>(parts[2]),  Limited<unsigned char>(parts[3]),
                   Limited<unsigned char>(parts[4]),  Limited<unsigned char>(parts[5])};
  const PeriodNumber hours = NumberOf(Period::kHour, date).value_or(0);
  return hours * kSecondsOfHour + date.minute * kSecondsOfMinute + date.second;
}

std::string TextOfSeconds(long long seconds) {
  TAVDT time = StartOf(Period::kHour, seconds / kSecondsOfHour);
  time.minute = static_cast<unsigned char>(seconds % kSecondsOfHour / kSecondsOfMinute);
  time.second = static_cast<unsigned char>(seconds % kSecondsOfMinute);
  return DateText(time);
}

KeptReadings::KeptReadings(Database& database) {
  std::map<std::string, std::size_t> places;
  long long instrument = 0;
  KeptReading row;
  std::string begun;
  std::string line;
  int number = 0;
  long long difference = 0;
  soci::indicator numbered = soci::i_null;
  soci::indicator known = soci::i_null;
  soci::statement select =
      (database.Session().prepare
           << "SELECT instrument, id, begun, line, number, clock_difference FROM readings "
              "WHERE instrument IS NOT NULL ORDER BY begun, id",
       soci::into(instrument), soci::into(row.id), soci::into(begun), soci::into(line),
       soci::into(number, numbered), soci::into(difference, known));
  for (select.execute(); select.fetch();) {
    if (numbered == soci::i_ok) line += fmt::format(", number {}", number);
    row.begun = SecondsOf(begun);
    row.place = places.try_emplace(line, places.size()).first->second;
    row.difference = known == soci::i_ok ? std::optional(difference) : std::nullopt;
    Add(instrument, row);
  }
  places_.resize(places.size());
  for (const auto& [name, place] : places) places_[place] = name;
}

void KeptReadings::Add(long long instrument, const KeptReading& reading) {
  readings_[instrument].push_back(reading);
  stays_.resize(std::max(stays_.size(), reading.place + 1));
  std::vector<Stay>& stays = stays_[reading.place];
  const auto found = std::find_if(stays.begin(), stays.end(),
                                  [&](const Stay& stay) { return stay.instrument == instrument; });
  if (found != stays.end()) {
    found->last = reading.begun;
  } else {
    stays.push_back({instrument, reading.begun, reading.begun});
  }
}

const std::vector<KeptReading>& KeptReadings::Of(long long instrument) const {
  static const std::vector<KeptReading> kNone;
  const auto found = readings_.find(instrument);
  return found == readings_.end() ? kNone : found->second;
}

std::optional<KeptReadings::Predecessor> KeptReadings::Before(long long instrument,
                                                              std::size_t place) const {
  std::optional<Predecessor> before;
  for (const Stay& stay : stays_[place]) {
    if (stay.instrument != instrument) {
      before = Predecessor{stay.instrument, stay.last};
      continue;
    }
    // In the order of first readings: what stands before came before, and may have come again.
    if (before && before->last > stay.first) before.reset();
    break;
  }
  return before;
}

}  // namespace host
