#include "host/store/record_table.h"

#include <nlohmann/json.hpp>

namespace host {
namespace {

constexpr std::size_t kKeySize = std::size(kRecordKey);

Slot::Type TypeOfRecordColumn(std::size_t index) {
  return index == 0 || index == 3 ? Slot::Type::kText : Slot::Type::kInteger;
}

std::vector<Slot> SlotsOf(const RecordLayout& layout) {
  std::vector<Slot> slots;
  for (std::size_t i = 0; i < std::size(kRecordColumns); ++i) {
    slots.emplace_back(kRecordColumns[i], TypeOfRecordColumn(i));
  }
  slots.insert(slots.end(), layout.values.begin(), layout.values.end());
  for (const char* key : kRecordKey) slots.emplace_back(key, Slot::Type::kInteger);
  return slots;
}

// "a, b" or "a = :a, b = :b".
std::string Listed(const std::vector<Slot>& slots, std::size_t count, const char* between,
                   const char* before) {
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) text += ", ";
    if (between[0] != 0) text.append(slots[i].name).append(between);
    text.append(before).append(slots[i].name);
  }
  return text;
}

constexpr char kWhere[] = " WHERE section = :section AND period = :period";

void Use(soci::statement& statement, Slot& slot) {
  switch (slot.type) {
    case Slot::Type::kInteger:
      return statement.exchange(soci::use(slot.integer, slot.indicator));
    case Slot::Type::kReal:
    case Slot::Type::kWideReal:
      return statement.exchange(soci::use(slot.number, slot.indicator));
    case Slot::Type::kText:
      break;
  }
  statement.exchange(soci::use(slot.text, slot.indicator));
}

void Prepare(soci::statement& statement, const std::string& text) {
  statement.alloc();
  statement.prepare(text);
  statement.define_and_bind();
}

nlohmann::ordered_json JsonOf(const Slot& slot) {
  switch (slot.type) {
    case Slot::Type::kInteger:
      return slot.integer;
    case Slot::Type::kReal:
    case Slot::Type::kWideReal:
      return slot.number;
    case Slot::Type::kText:
      break;
  }
  return slot.text;
}

}  // namespace

RecordTable::RecordTable(Database& database, const RecordLayout& layout, Contradict contradict)
    : database_(database),
      contradict_(std::move(contradict)),
      values_(SlotsOf(layout)),
      kept_(values_),
      insert_(database.Session()),
      select_(database.Session()),
      update_(database.Session()) {
  const std::size_t count = values_.size();
  const std::size_t own = count - kKeySize;
  for (Slot& slot : values_) Use(insert_, slot);
  Prepare(insert_, "INSERT INTO " + layout.table + " (" + Listed(values_, count, "", "") +
                       ") VALUES (" + Listed(values_, count, "", ":") +
                       ") ON CONFLICT (section, period) DO NOTHING");
  for (Slot& slot : values_) Use(update_, slot);
  Prepare(update_, "UPDATE " + layout.table + " SET " + Listed(values_, own, " = ", ":") + kWhere);
  for (std::size_t i = 0; i < own; ++i) Into(select_, kept_[i]);
  for (std::size_t i = own; i < count; ++i) Use(select_, values_[i]);
  Prepare(select_, "SELECT " + Listed(values_, own, "", "") + " FROM " + layout.table + kWhere);
}

PutResult RecordTable::Put(const RecordPlace& place, bool replace) {
  Place(place);
  insert_.execute(true);
  if (insert_.get_affected_rows() > 0) return PutResult::kNew;
  LoadKept();
  if (IsSame()) return PutResult::kEqual;
  const bool own = kept_[1].integer == place.reading;  // a kept stream may bring it in pieces
  if (!own && !replace) return PutResult::kLeft;
  if (!own) KeepFormer(place);
  update_.execute(true);
  return own ? PutResult::kEqual : PutResult::kChanged;
}

void RecordTable::Place(const RecordPlace& place) {
  values_[0].Set(place.time);
  values_[1].Set(place.reading);
  values_[2].Set(place.format);
  values_[values_.size() - 2].Set(place.section);
  values_.back().Set(place.period);
}

void RecordTable::LoadKept() {
  select_.execute(true);
  // To its end, so that nothing of it is open when the transaction ends.
  while (select_.fetch()) {
  }
}

// A reading that did not learn a unit says nothing against one that did.
bool RecordTable::IsSame() const {
  if (!SameValue(values_[0], kept_[0])) return false;
  for (std::size_t i = kOther; i < values_.size() - kKeySize; ++i) {
    if (!SameValue(values_[i], kept_[i])) return false;
  }
  const long long before = kept_[2].integer;
  const long long now = values_[2].integer;
  return before == now || !contradict_(before, now);
}

void RecordTable::KeepFormer(const RecordPlace& place) {
  nlohmann::ordered_json record;
  for (std::size_t i = kOther; i < values_.size() - kKeySize; ++i) {
    if (!kept_[i].IsNull()) record[kept_[i].name] = JsonOf(kept_[i]);
  }
  const std::string text = record.dump();
  database_.Session()
      << "INSERT INTO former_records (section, period, time, format, read_at, replaced_at, "
         "replaced_by, record) VALUES (:section, :period, :time, :format, "
         "(SELECT begun FROM readings WHERE id = :before), "
         "(SELECT begun FROM readings WHERE id = :now1), :now2, :record) "
         "ON CONFLICT (section, period, replaced_by) DO NOTHING",
      soci::use(place.section), soci::use(place.period), soci::use(kept_[0].text),
      soci::use(kept_[2].integer), soci::use(kept_[1].integer), soci::use(place.reading),
      soci::use(place.reading), soci::use(text);
}

}  // namespace host
