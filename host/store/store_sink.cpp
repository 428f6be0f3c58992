#include "host/store/store_sink.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "host/reading/periods.h"
#include "host/store/place.h"
#include "host/store/schema.h"

namespace host {
namespace {

// Kept streams come without a pause.
constexpr std::size_t kMostUnwritten = 4000;
constexpr std::size_t kNoSlot = static_cast<std::size_t>(-1);

std::vector<std::size_t> SlotsOf(const std::vector<Field>& fields, const RecordLayout& layout) {
  std::vector<std::size_t> slots(fields.size(), kNoSlot);
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const auto found =
        std::find_if(layout.values.begin(), layout.values.end(),
                     [&](const Slot& value) { return value.name == fields[i].base; });
    if (found == layout.values.end()) continue;
    slots[i] = static_cast<std::size_t>(found - layout.values.begin()) + RecordTable::kFirstValue;
  }
  return slots;
}

FieldValues JsonOf(const Cell& cell) {
  if (std::holds_alternative<std::monostate>(cell)) return nullptr;
  if (const auto* whole = std::get_if<std::uint32_t>(&cell)) return *whole;
  if (std::holds_alternative<float>(cell) || std::holds_alternative<double>(cell)) {
    return ShownNumber(cell);
  }
  return CellText(cell);
}

// The date of an archive record or a log entry.
const TAVDT* DateOf(const Cells& cells) {
  return cells.empty() ? nullptr : std::get_if<TAVDT>(&cells.front());
}

// By the columns, where nothing else tells it.
tav::Mode KindOf(const Section& section) {
  const Layout* layout = FindLayout(section);
  const bool k7 =
      layout != nullptr && (layout->model == Model::kK7521 || layout->model == Model::kK7523);
  return k7 ? tav::Mode::kK7 : tav::Mode::kOlder;
}

// Bytes of a row that no column describes.
constexpr const char* kUndescribed = "undescribed";

std::string Summary(const std::string& name, const RecordCounts& counts) {
  std::string text =
      fmt::format("irvela: kept in {}: {} new", name,
                  counts.added == 1 ? "1 record" : fmt::format("{} records", counts.added));
  if (counts.changed > 0) text += fmt::format(", {} changed", counts.changed);
  if (counts.equal > 0) text += fmt::format(", {} as before", counts.equal);
  if (counts.left > 0) text += fmt::format(", {} otherwise, left as kept", counts.left);
  return text;
}

}  // namespace

std::unique_ptr<RunListener> MakeStoreSink(const std::string& address, StoreReport report,
                                           bool replace) {
  return std::make_unique<StoreSink>(PlaceOfStore(address), std::move(report), replace);
}

StoreSink::StoreSink(const std::string& address, StoreReport report, bool replace)
    : database_(address),
      report_(std::move(report)),
      replace_(replace),
      catalogue_(database_),
      reading_(database_) {
  PrepareSchema(database_);
}

// Once a write has failed there is nothing more to try: the reading ends by that.
void StoreSink::Write(const std::function<void()>& work) {
  broken_ = true;
  database_.Write(work);
  broken_ = false;
}

void StoreSink::BeginRun(const Run& run) {
  run_ = run;
  if (run_.units == nullptr) run_.units = &seen_;
  Write([&] { reading_.Begin(run_); });
}

void StoreSink::BeginSection(const Section& section) {
  seen_.See(section);
  open_ = std::make_shared<Open>();
  open_->section = section;
  clock_ = section.title.time;
}

void StoreSink::AddRow(const Section& section, const Cells& cells) {
  seen_.See(section, cells);
  rows_.push_back({open_, cells});
  if (rows_.size() >= kMostUnwritten) Keep();
}

void StoreSink::Keep() {
  if (rows_.empty() || broken_) return;
  Write([this] { WriteRows(); });
  rows_.clear();
}

void StoreSink::WriteRows() {
  for (const Row& row : rows_) {
    if (!row.of->known) Learn(*row.of);
    WriteRow(row);
  }
}

// An instrument that tells no serial number is known by its place.
void StoreSink::LearnInstrument(const Section& section) {
  const Title& title = section.title;
  if (title.number.empty() && instrument_ != 0) return;
  const std::string place = PlaceOf(run_);
  const tav::Mode kind = run_.settings ? run_.settings->kind : KindOf(section);
  const std::string serial = title.number.empty() ? '@' + place : title.number;
  const Instrument instrument{KindName(kind), title.model, serial, title.version, place};
  const bool present = run_.settings.has_value();
  const long long before = std::exchange(instrument_, catalogue_.Add(instrument, present));
  if (before != instrument_) reading_.SetInstrument(instrument_);
}

void StoreSink::Learn(Open& open) {
  const Title& title = open.section.title;
  LearnInstrument(open.section);
  const bool archive = PeriodOf(title.kind).has_value();
  if (archive) open.layout = &RecordLayoutOf(open.section);
  open.id = catalogue_.AddSection(instrument_, KindName(title.kind), title.section,
                                  archive ? open.layout->table : "");
  open.fields = FieldsOf(open.section, *run_.units);
  open.format = catalogue_.AddFormat(open.id, open.section.columns, open.fields);
  if (archive) open.slots = SlotsOf(open.fields, *open.layout);
  open.known = true;
}

std::string StoreSink::NameOf(const Open& open, std::size_t column) {
  return column < open.fields.size() ? open.fields[column].base : kUndescribed;
}

FieldValues StoreSink::ContentOf(const Open& open, const Cells& cells) {
  FieldValues content = FieldValues::object();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    content[NameOf(open, i)] = JsonOf(cells[i]);
  }
  return content;
}

void StoreSink::WriteRow(const Row& row) {
  const Open& open = *row.of;
  if (open.layout != nullptr) return WriteRecord(open, row.cells);
  const Title& title = open.section.title;
  const FieldValues content = ContentOf(open, row.cells);
  if (title.kind == tav::TitleKind::kLog) {
    const TAVDT* date = DateOf(row.cells);
    const std::string time = date == nullptr ? "" : DateText(*date);
    reading_.AddLogEntry({open.id, open.format, time}, content);
  } else if (title.kind == tav::TitleKind::kDatabase) {
    reading_.AddParameters({open.id, open.format, DateText(title.time)}, content);
  } else {
    reading_.AddValues({open.id, open.format, DateText(title.time)}, content);
  }
}

// The values of a record that its table has no column for stand together in one.
void StoreSink::Fill(RecordTable& table, const Open& open, const Cells& cells) const {
  std::vector<Slot>& slots = table.Values();
  for (Slot& slot : slots) slot.Clear();
  FieldValues other = FieldValues::object();
  for (std::size_t i = 1; i < cells.size(); ++i) {
    const std::size_t place = i < open.slots.size() ? open.slots[i] : kNoSlot;
    if (place != kNoSlot && slots[place].Take(cells[i])) continue;
    other[NameOf(open, i)] = JsonOf(cells[i]);
  }
  if (!other.empty()) table.Other().Set(other.dump());
}

// What has no date belongs to no period.
void StoreSink::WriteRecord(const Open& open, const Cells& cells) {
  const Period period = PeriodOf(open.section.title.kind).value();
  const TAVDT* date = DateOf(cells);
  const auto number = date == nullptr ? std::nullopt : NumberOf(period, *date);
  if (!number) return;
  RecordTable& table = TableOf(*open.layout);
  Fill(table, open, cells);
  const TAVDT time = IsDate(*date) ? *date : StartOf(period, *number);
  const RecordPlace place{open.id, *number, DateText(time), reading_.Id(), open.format};
  Count(table.Put(place, replace_));
  archives_[open.id] = open.layout->table;
}

void StoreSink::Count(PutResult result) {
  if (result == PutResult::kNew) ++counts_.added;
  if (result == PutResult::kEqual) ++counts_.equal;
  if (result == PutResult::kChanged) ++counts_.changed;
  if (result == PutResult::kLeft) ++counts_.left;
}

RecordTable& StoreSink::TableOf(const RecordLayout& layout) {
  std::unique_ptr<RecordTable>& table = tables_[layout.table];
  if (!table) {
    const auto contradict = [this](long long one, long long other) {
      return catalogue_.Contradict(one, other);
    };
    table = std::make_unique<RecordTable>(database_, layout, contradict);
  }
  return *table;
}

// Of an instrument that has told who it is; also of sections that never came.
void StoreSink::WriteAbsences(const RunEnd& end) {
  if (instrument_ == 0 && open_ != nullptr) LearnInstrument(open_->section);
  if (instrument_ == 0) return;
  for (const SectionAccount& account : end.accounts) {
    if (account.missing.empty() && account.absent.empty()) continue;
    const long long section =
        catalogue_.AddSection(instrument_, KindName(account.kind), account.section, "");
    reading_.SetAbsent(section, account, clock_);
    const std::string records = catalogue_.RecordsOf(section);
    if (!records.empty()) archives_[section] = records;
  }
  for (const auto& [section, records] : archives_) reading_.ClearAbsent(section, records);
}

void StoreSink::EndRun(const RunEnd& end) {
  if (broken_) return;
  Write([&] {
    WriteRows();
    WriteAbsences(end);
    reading_.End(end, counts_);
  });
  rows_.clear();
  report_(Summary(database_.Name(), counts_));
}

}  // namespace host
