#include "host/store/kept_rows.h"

#include <algorithm>
#include <limits>
#include <map>

#include "host/reading/periods.h"
#include "host/store/kept_format.h"
#include "host/store/record_layout.h"

namespace host {
namespace {

using FieldValues = nlohmann::ordered_json;

// Tells the rows of one section, each in the format that it was kept in.
class Teller {
 public:
  Teller(Database& database, const StoredSection& section, SectionListener& listener)
      : database_(database), section_(section), listener_(listener) {}

  const KeptFormat& FormatOf(long long format) {
    const auto [place, isNew] = formats_.try_emplace(format);
    if (isNew) place->second = LoadFormat(database_, section_, format);
    return place->second;
  }
  // clock: of the title that the row stands under, which values have one each of.
  void Tell(long long format, const TAVDT& clock, const Cells& cells) {
    const bool anew = section_.kind == tav::TitleKind::kCurrent;
    if (open_ == nullptr || format != format_ || anew) Begin(format, clock);
    listener_.AddRow(*open_, cells);
  }
  void End() {
    if (open_ != nullptr) listener_.EndSection(*open_);
    open_ = nullptr;
  }

 private:
  void Begin(long long format, const TAVDT& clock) {
    End();
    FormatOf(format);
    KeptFormat& kept = formats_.at(format);
    kept.section.title.time = clock;
    format_ = format;
    open_ = &kept.section;
    listener_.BeginSection(*open_);
  }

  Database& database_;
  const StoredSection& section_;
  SectionListener& listener_;
  std::map<long long, KeptFormat> formats_;
  long long format_ = 0;
  const Section* open_ = nullptr;
};

struct Bounds {
  std::string from = "0";  // before every time
  std::string to = "9";    // after it
};

Bounds BoundsOf(const Selection& selection) {
  Bounds bounds;
  if (selection.from) bounds.from = DateText(TavOf(*selection.from));
  if (selection.to) bounds.to = DateText(TavOf(*selection.to));
  return bounds;
}

// Rows that are kept as one JSON text: log entries, values, parameters. from names the table and
// what else a row has to be.
void TellTexts(Database& database, const StoredSection& section, const char* select,
               const Bounds& bounds, Teller& teller) {
  const bool hasClock = section.kind != tav::TitleKind::kLog;
  std::string time;
  std::string text;
  long long format = 0;
  soci::statement statement =
      (database.Session().prepare << select, soci::use(section.id), soci::use(bounds.from),
       soci::use(bounds.to), soci::into(time), soci::into(format), soci::into(text));
  Cells cells;
  for (statement.execute(); statement.fetch();) {
    const KeptFormat& kept = teller.FormatOf(format);
    const FieldValues values = FieldValues::parse(text);
    cells.clear();
    for (std::size_t i = 0; i < kept.fields.size(); ++i) {
      const auto value = values.find(kept.fields[i]);
      const tav::Type type = kept.section.columns[i].type;
      cells.push_back(value == values.end() ? Cell{} : CellOf(*value, type));
    }
    teller.Tell(format, hasClock ? TimeOf(time) : TAVDT{}, cells);
  }
}

constexpr char kEntries[] =
    "SELECT time, format, entry FROM log_entries "
    "WHERE section = :section AND time >= :from AND time <= :to ORDER BY time";
constexpr char kValues[] =
    "SELECT clock, format, content FROM snapshots "
    "WHERE section = :section AND clock >= :from AND clock <= :to ORDER BY clock, id";
constexpr char kParameters[] =
    "SELECT clock, format, content FROM snapshots WHERE section = :section "
    "AND :from <> '' AND clock <= :to ORDER BY clock DESC, id DESC LIMIT 1";

Cell CellOf(const Slot& slot, tav::Type type) {
  if (slot.IsNull()) return {};
  switch (slot.type) {
    case Slot::Type::kInteger:
      return static_cast<std::uint32_t>(slot.integer);
    case Slot::Type::kReal:
    case Slot::Type::kWideReal:
      if (type == tav::Type::kFloat) return static_cast<float>(slot.number);
      return slot.number;
    case Slot::Type::kText:
      break;
  }
  return slot.text;
}

// The records of an archive, read column by column.
class Records {
 public:
  Records(Database& database, const StoredSection& section)
      : section_(section), select_(database.Session()) {
    slots_.emplace_back("time", Slot::Type::kText);
    slots_.emplace_back("format", Slot::Type::kInteger);
    slots_.emplace_back("other", Slot::Type::kText);
    const RecordLayout& layout = RecordLayoutOf(section.records);
    slots_.insert(slots_.end(), layout.values.begin(), layout.values.end());
  }

  void Tell(long long first, long long last, Teller& teller) {
    Prepare(first, last);
    Cells cells;
    for (select_.execute(); select_.fetch();) {
      const long long format = slots_[kFormat].integer;
      Fill(teller.FormatOf(format), PlacesOf(format, teller), cells);
      teller.Tell(format, {}, cells);
    }
  }

 private:
  static constexpr std::size_t kTime = 0;
  static constexpr std::size_t kFormat = 1;
  static constexpr std::size_t kOther = 2;
  static constexpr std::ptrdiff_t kFirstValue = 3;
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  void Prepare(long long& first, long long& last) {
    std::string columns;
    for (Slot& slot : slots_) {
      if (!columns.empty()) columns += ", ";
      columns += slot.name;
      Into(select_, slot);
    }
    select_.exchange(soci::use(section_.id));
    select_.exchange(soci::use(first));
    select_.exchange(soci::use(last));
    select_.alloc();
    select_.prepare("SELECT " + columns + " FROM " + section_.records +
                    " WHERE section = :section AND period >= :first AND period <= :last "
                    "ORDER BY period");
    select_.define_and_bind();
  }

  // Of each of the format's fields its slot; kNone: it has none.
  const std::vector<std::size_t>& PlacesOf(long long format, Teller& teller) {
    const auto [found, isNew] = places_.try_emplace(format);
    if (!isNew) return found->second;
    for (const std::string& field : teller.FormatOf(format).fields) {
      const auto slot = std::find_if(slots_.begin() + kFirstValue, slots_.end(),
                                     [&](const Slot& each) { return each.name == field; });
      const auto place = static_cast<std::size_t>(slot - slots_.begin());
      found->second.push_back(slot == slots_.end() ? kNone : place);
    }
    return found->second;
  }

  // The first column is the record's time.
  void Fill(const KeptFormat& kept, const std::vector<std::size_t>& places, Cells& cells) const {
    const Slot& other = slots_[kOther];
    const FieldValues others = other.IsNull() ? FieldValues() : FieldValues::parse(other.text);
    cells.assign(1, TimeOf(slots_[kTime].text));
    for (std::size_t i = 1; i < kept.fields.size(); ++i) {
      const tav::Type type = kept.section.columns[i].type;
      cells.push_back(places[i] == kNone ? Cell{} : CellOf(slots_[places[i]], type));
      const auto found = others.find(kept.fields[i]);
      if (found != others.end()) cells.back() = host::CellOf(*found, type);
    }
  }

  const StoredSection& section_;
  std::vector<Slot> slots_;
  std::map<long long, std::vector<std::size_t>> places_;  // by format
  soci::statement select_;
};

PeriodNumber PeriodAt(Period period, const std::optional<SYSTEMTIME>& time,
                      PeriodNumber otherwise) {
  return time ? NumberOf(period, TavOf(*time)).value_or(otherwise) : otherwise;
}

void TellRecords(Database& database, const StoredSection& section, const Selection& selection,
                 Teller& teller) {
  using Limits = std::numeric_limits<PeriodNumber>;
  if (section.records.empty()) return;
  const Period period = PeriodOf(section.kind).value();
  Records(database, section)
      .Tell(PeriodAt(period, selection.from, Limits::min()),
            PeriodAt(period, selection.to, Limits::max()), teller);
}

}  // namespace

void TellKept(Database& database, const std::vector<StoredSection>& sections,
              const Selection& selection, SectionListener& listener) {
  const Bounds bounds = BoundsOf(selection);
  for (const StoredSection& section : sections) {
    Teller teller(database, section, listener);
    if (PeriodOf(section.kind)) {
      TellRecords(database, section, selection, teller);
    } else if (section.kind == tav::TitleKind::kLog) {
      TellTexts(database, section, kEntries, bounds, teller);
    } else if (section.kind == tav::TitleKind::kDatabase) {
      TellTexts(database, section, kParameters, bounds, teller);
    } else {
      TellTexts(database, section, kValues, bounds, teller);
    }
    teller.End();
  }
}

}  // namespace host
