// The instrument's clock: wrong, changed, or ahead of the readings.
#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>

#include "host/checks/archive.h"
#include "host/checks/rules.h"
#include "host/checks/wording.h"
#include "host/fields/words.h"
#include "host/reading/patience.h"

namespace host {
namespace {

using Readings = std::vector<KeptReading>;

// What a quartz may go wrong by in a day, with a good margin.
constexpr long long kDriftOfDay = 5;
constexpr long long kSecondsOfDay = 86400;

Readings ReadingsWithClock(const Subject& subject) {
  Readings readings;
  for (const KeptReading& reading : subject.readings.Of(subject.sections.front().instrument)) {
    if (reading.difference) readings.push_back(reading);
  }
  return readings;
}

bool IsWrong(const Subject& subject, const KeptReading& reading) {
  return std::llabs(*reading.difference) > subject.options.clockLimit.count();
}

std::string AheadText(long long seconds) {
  return fmt::format("{} {}", TimeText(std::chrono::seconds(std::llabs(seconds))),
                     seconds < 0 ? "behind" : "ahead");
}

// Readings that follow each other, all with a wrong clock.
struct WrongClock {
  std::optional<KeptReading> before;  // with a right one
  KeptReading first;
  KeptReading last;
  KeptReading worst;
  std::size_t readings = 0;
};

// Records that these readings brought and that were made since the reading before.
std::size_t CountRecords(const Subject& subject, const WrongClock& wrong) {
  const std::string since =
      wrong.before ? TextOfSeconds(wrong.before->Clock()) : std::string("0001-01-01 00:00:00");
  long long all = 0;
  for (const StoredSection& section : subject.sections) {
    if (section.records.empty()) continue;
    long long count = 0;
    subject.database.Session() << "SELECT count(*) FROM " << section.records
                               << " WHERE section = :section AND reading >= :first "
                                  "AND reading <= :last AND time > :since",
        soci::use(section.id), soci::use(wrong.first.id), soci::use(wrong.last.id),
        soci::use(since), soci::into(count);
    all += count;
  }
  return static_cast<std::size_t>(all);
}

void TellWrong(const Subject& subject, const Rule& rule, const WrongClock& wrong,
               std::vector<Finding>& findings) {
  Finding finding = MakeFinding(rule, subject);
  finding.from = TextOfSeconds(wrong.before.value_or(wrong.first).Clock());
  finding.to = TextOfSeconds(wrong.last.Clock());
  if (finding.to < finding.from) finding.from = TextOfSeconds(wrong.first.Clock());
  if (!IsMeant(subject.selection, finding.from, finding.to)) return;
  finding.records = CountRecords(subject, wrong);
  finding.numbers = {0, static_cast<double>(*wrong.worst.difference), "s"};
  finding.sentence =
      fmt::format("the clock was {} in {}, which brought {}{}", AheadText(*wrong.worst.difference),
                  CountOf(wrong.readings, "reading"), CountOf(finding.records, "record"),
                  wrong.before ? " made since it was right" : "");
  findings.push_back(std::move(finding));
}

}  // namespace

void CheckClock(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  std::optional<KeptReading> right;
  std::optional<WrongClock> wrong;
  const auto tell = [&] {
    if (wrong) TellWrong(subject, rule, *wrong, findings);
    wrong.reset();
  };
  for (const KeptReading& reading : ReadingsWithClock(subject)) {
    if (!IsWrong(subject, reading)) {
      tell();
      right = reading;
      continue;
    }
    if (!wrong) wrong = WrongClock{right, reading, reading, reading, 0};
    wrong->last = reading;
    ++wrong->readings;
    const bool worse = std::llabs(*reading.difference) > std::llabs(*wrong->worst.difference);
    if (worse) wrong->worst = reading;
  }
  tell();
}

void CheckClockChange(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  const Readings readings = ReadingsWithClock(subject);
  for (std::size_t i = 1; i < readings.size(); ++i) {
    const KeptReading& before = readings[i - 1];
    const KeptReading& now = readings[i];
    const long long change = *now.difference - *before.difference;
    const long long drift = (now.begun - before.begun) / kSecondsOfDay * kDriftOfDay;
    if (std::llabs(change) <= subject.options.clockLimit.count() + drift) continue;
    Finding finding = MakeFinding(rule, subject);
    finding.from = TextOfSeconds(before.begun);
    finding.to = TextOfSeconds(now.begun);
    if (!IsMeant(subject.selection, finding.from, finding.to)) continue;
    finding.numbers = {static_cast<double>(*before.difference),
                       static_cast<double>(*now.difference), "s"};
    finding.sentence = fmt::format("the clock was set {} by {}: it was {}, then {}",
                                   change > 0 ? "forward" : "back",
                                   TimeText(std::chrono::seconds(std::llabs(change))),
                                   AheadText(*before.difference), AheadText(*now.difference));
    findings.push_back(std::move(finding));
  }
}

// Readings that never ended tell nothing: a record may have been made while they were under way.
void CheckAhead(const Subject& subject, const Rule& rule, std::vector<Finding>& findings) {
  for (const StoredSection& section : subject.sections) {
    if (section.records.empty()) continue;
    Finding finding = MakeFinding(rule, section);
    long long most = 0;
    std::string time;
    std::string ended;
    soci::statement select =
        (subject.database.Session().prepare
             << "SELECT r.time, g.ended FROM " << section.records
             << " r JOIN readings g ON g.id = r.reading WHERE r.section = :section "
                "AND r.time > g.ended ORDER BY r.period",
         soci::use(section.id), soci::into(time), soci::into(ended));
    for (select.execute(); select.fetch();) {
      const long long ahead = SecondsOf(time) - SecondsOf(ended);
      if (ahead <= subject.options.clockLimit.count()) continue;
      if (finding.records++ == 0) finding.from = time;
      finding.to = time;
      most = std::max(most, ahead);
    }
    if (finding.records == 0 || !IsMeant(subject.selection, finding.from, finding.to)) continue;
    finding.numbers = {0, static_cast<double>(most), "s"};
    finding.sentence =
        fmt::format("{}, up to {} ahead of the reading", CountOf(finding.records, "record"),
                    TimeText(std::chrono::seconds(most)));
    findings.push_back(std::move(finding));
  }
}

}  // namespace host
