#include "host/store/reading_rows.h"

#include <algorithm>
#include <limits>

#include "host/system/clock.h"

namespace host {
namespace {

std::string TimeText(const SYSTEMTIME& time) { return DateText(TavOf(time)); }

// Whether parameters say something that was not known.
bool Tells(const FieldValues& now, const FieldValues& before) {
  for (const auto& [field, value] : now.items()) {
    if (!value.is_null() && before.value(field, FieldValues()) != value) return true;
  }
  return false;
}

FieldValues Merged(const FieldValues& now, const FieldValues& before) {
  FieldValues merged = now;
  for (auto& [field, value] : merged.items()) {
    if (value.is_null()) value = before.value(field, FieldValues());
  }
  return merged;
}

}  // namespace

void ReadingRows::Begin(const Run& run) {
  const ReadSettings settings = run.settings.value_or(ReadSettings{});
  soci::indicator read = run.settings ? soci::i_ok : soci::i_null;
  const std::string begun = TimeText(run.begun);
  const std::string from = TimeText(settings.from);
  const std::string to = TimeText(settings.to);
  const std::string kind = KindName(settings.kind);
  database_.Session()
      << "INSERT INTO readings (begun, line, number, kind, asked_from, asked_to, groups) "
         "VALUES (:begun, :line, :number, :kind, :from, :to, :groups) RETURNING id",
      soci::use(begun), soci::use(run.line), soci::use(settings.number, read),
      soci::use(kind, read), soci::use(from, read), soci::use(to, read),
      soci::use(settings.groups, read), soci::into(id_);
}

void ReadingRows::SetInstrument(long long instrument) {
  database_.Session() << "UPDATE readings SET instrument = :instrument WHERE id = :id",
      soci::use(instrument), soci::use(id_);
}

void ReadingRows::End(const RunEnd& end, const RecordCounts& counts) {
  const std::string ended = TimeText(LocalNow());
  const std::string result = NameOf(end.ending);
  soci::indicator clock = end.clock ? soci::i_ok : soci::i_null;
  const long long difference = end.clock ? end.clock->difference : 0;
  database_.Session()
      << "UPDATE readings SET ended = :ended, result = :result, reason = nullif(:reason, ''), "
         "records_new = :new, records_changed = :changed, records_equal = :equal, "
         "clock_difference = :difference WHERE id = :id",
      soci::use(ended), soci::use(result), soci::use(end.reason), soci::use(counts.added),
      soci::use(counts.changed), soci::use(counts.equal), soci::use(difference, clock),
      soci::use(id_);
}

void ReadingRows::AddValues(const Place& place, const FieldValues& content) {
  const std::string text = content.dump();
  database_.Session() << "INSERT INTO snapshots (section, reading, clock, format, content) "
                         "VALUES (:section, :reading, :clock, :format, :content)",
      soci::use(place.section), soci::use(id_), soci::use(place.time), soci::use(place.format),
      soci::use(text);
}

// A reading has one snapshot: parameters that come in parts make it more complete. A file that is
// taken in later may be older than what is kept.
void ReadingRows::AddParameters(const Place& place, const FieldValues& parameters) {
  std::string text;
  soci::session& session = database_.Session();
  session << "SELECT s.content FROM snapshots s JOIN readings r ON r.id = s.reading "
             "JOIN readings own ON own.id = :own AND r.begun <= own.begun "
             "WHERE s.section = :section ORDER BY r.begun DESC, s.id DESC LIMIT 1",
      soci::use(id_), soci::use(place.section), soci::into(text);
  const FieldValues before = session.got_data() ? FieldValues::parse(text) : FieldValues::object();
  if (!before.empty() && !Tells(parameters, before)) return;
  session << "DELETE FROM snapshots WHERE section = :section AND reading = :reading",
      soci::use(place.section), soci::use(id_);
  AddValues(place, Merged(parameters, before));
}

void ReadingRows::AddLogEntry(const Place& place, const FieldValues& entry) {
  const std::string text = entry.dump();
  database_.Session() << "INSERT INTO log_entries (section, time, entry, reading, format) "
                         "VALUES (:section, :time, :entry, :reading, :format) "
                         "ON CONFLICT (section, time, entry) DO NOTHING",
      soci::use(place.section), soci::use(place.time), soci::use(text), soci::use(id_),
      soci::use(place.format);
}

// A clock that is none says nothing of what is due.
ReadingRows::Due ReadingRows::DueOf(tav::TitleKind kind, const TAVDT& clock) {
  const Period period = PeriodOf(kind).value();
  const auto hour = IsDate(clock) ? NumberOf(Period::kHour, clock) : std::nullopt;
  if (!hour) return {period, std::numeric_limits<PeriodNumber>::max()};
  return {period, NumberOf(period, StartOf(Period::kHour, *hour - 1)).value_or(0) - 1};
}

// No answer does not unlearn that the instrument has no such record.
void ReadingRows::SetAbsent(long long section, const Due& due, const std::vector<DateRange>& ranges,
                            const std::string& state) {
  long long number = 0;
  soci::statement insert =
      (database_.Session().prepare
           << "INSERT INTO absences (section, period, state, reading) "
              "VALUES (:section, :period, :state, :reading) ON CONFLICT (section, period) "
              "DO UPDATE SET state = excluded.state, reading = excluded.reading "
              "WHERE absences.state <> 'absent' OR excluded.state = 'absent'",
       soci::use(section), soci::use(number), soci::use(state), soci::use(id_));
  for (const DateRange& range : ranges) {
    const PeriodNumber last = std::min(NumberOf(due.period, range.last).value_or(-1), due.last);
    for (number = NumberOf(due.period, range.first).value_or(0); number <= last; ++number) {
      insert.execute(true);
    }
  }
}

void ReadingRows::SetAbsent(long long section, const SectionAccount& account, const TAVDT& clock) {
  const Due due = DueOf(account.kind, clock);
  SetAbsent(section, due, account.missing, "missing");
  SetAbsent(section, due, account.absent, "absent");
}

void ReadingRows::ClearAbsent(long long section, const std::string& records) {
  database_.Session() << "DELETE FROM absences WHERE section = :section AND period IN "
                         "(SELECT period FROM "
                      << records << " WHERE section = :same)",
      soci::use(section), soci::use(section);
}

}  // namespace host
