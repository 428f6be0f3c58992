#include "host/frames/k7_items.h"

#include <fmt/format.h>

#include "host/frames/values.h"
#include "host/stream/cell.h"
#include "host/stream/code_page.h"
#include "k7/reading/archive_kinds.h"
#include "k7/session/session.h"

namespace host::frames {
namespace {

// --- Meanings ---

const tav::Column* FindIn(const k7::ParameterTable& table, unsigned number) {
  if (number < table.first || number >= table.first + table.columns.size()) return nullptr;
  return &table.columns[number - table.first];
}

// Current values and totals are asked for on the channel of a heat system.
const tav::Column* FindValue(const k7::Model& model, unsigned channel, unsigned number) {
  const auto systems = model.systems;
  if (std::find(systems.begin(), systems.end(), channel) == systems.end()) return nullptr;
  const tav::Column* current = FindIn(model.current, number);
  return current != nullptr ? current : FindIn(model.totals, number);
}

const tav::Column* FindSetting(const k7::Model& model, unsigned channel, unsigned number) {
  if (channel >= model.databases.size()) return nullptr;
  const k7::Database& database = model.databases[channel];
  for (std::size_t i = 0; i < database.columns.size(); ++i) {
    if (k7::ParameterAt(database.blocks, i) == number) return &database.columns[i];
  }
  return nullptr;
}

// The basic read asks for settings that no table has.
bool IsBasic(const k7::Model& model, unsigned number) {
  const auto basic = model.introduction.basicParameters;
  return std::find(basic.begin(), basic.end(), number) != basic.end();
}

void AddColumns(std::vector<ItemMeaning>& meanings, tav::Columns columns) {
  for (const tav::Column& column : columns) {
    meanings.push_back({NameOf(column), ItemForm::kColumn, &column});
  }
}

// The last two columns come as the closing says.
void AddClosing(std::vector<ItemMeaning>& meanings, const k7::ArchiveTable& table) {
  const auto last = table.columns.last(2);
  if (table.closing == k7::Closing::kSpareFloat)
    meanings.push_back({"not used", ItemForm::kUnused});
  AddColumns(meanings, table.closing == k7::Closing::kReversed ? last.last(1) : last);
  if (table.closing == k7::Closing::kReversed) AddColumns(meanings, last.first(1));
}

// --- Values ---

std::string ColumnText(const tav::Column& column, ByteView item) {
  Bytes space(sizeof(double));
  k7::Record record(space);
  k7::TlvWalk walk(item);
  k7::DecodeColumns(tav::Columns(&column, 1), walk, record);
  return ValueText(column, record.Bytes());
}

std::string TimeText(ByteView item) {
  k7::TlvWalk walk(item);
  TAVDT time{1, 1, 1, 0, 0, 0};
  walk.ItemTime(time);
  return DateText(time);
}

std::string DayText(ByteView item) {
  k7::TlvWalk walk(item);
  TAVDT time{};
  walk.ItemDate(time);
  return DateText(time).substr(0, 10);
}

std::string Text(ByteView value) { return Utf8FromCp1251(std::string(value.begin(), value.end())); }

std::string ValueOf(const ItemMeaning& meaning, ByteView item, ByteView value) {
  switch (meaning.form) {
    case ItemForm::kColumn:
      if (meaning.column->type == tav::Type::kChars) return Text(value);
      return ColumnText(*meaning.column, item);
    case ItemForm::kTime:
      return TimeText(item);
    case ItemForm::kDate:
      return DayText(item);
    case ItemForm::kText:
      return Text(value);
    case ItemForm::kUnused:
      break;
  }
  return {};
}

// --- Items ---

// An item at the start of bytes: its head, tag and length, and its value as far as it is there.
struct Item {
  std::uint8_t tag;
  std::size_t head;
  std::size_t claimed;  // bytes of the value
  ByteView value;
  ByteView whole;
};

Item ItemIn(ByteView bytes) {
  k7::TlvWalk walk(bytes);
  const std::uint8_t tag = walk.Tag();
  const k7::Tlv tlv = walk.NextItem();
  const std::size_t head = std::min(tlv.at, bytes.size());
  const std::size_t there = std::min(tlv.length, bytes.size() - head);
  return {tag, head, tlv.length, bytes.subspan(head, there), bytes.first(head + there)};
}

void PutItemHead(Labels& labels, const Item& item, const std::string& name) {
  const std::string there = item.claimed == item.value.size()
                                ? std::string()
                                : fmt::format(", {} are there", item.value.size());
  labels.Put(item.head, name,
             fmt::format("tag {}, {} bytes{}", Hex(item.tag), item.claimed, there));
}

// Returns its size.
std::size_t PutItem(Labels& labels, ByteView bytes, const ItemMeaning& meaning) {
  const Item item = ItemIn(bytes);
  PutItemHead(labels, item, meaning.name + ", item");
  labels.Put(item.value.size(), meaning.name, ValueOf(meaning, item.whole, item.value));
  return item.whole.size();
}

// A stamp, a record or what stands between them. Returns its size.
std::size_t PutAmongRecords(Labels& labels, ByteView bytes, std::span<const ItemMeaning> meanings) {
  const Item item = ItemIn(bytes);
  if (item.tag == k7::kRecordTag) {
    PutItemHead(labels, item, "record");
    PutItems(labels, item.value.size(), meanings);
  } else if (item.tag == k7::kStampTag) {
    PutItemHead(labels, item, "time stamp, item");
    labels.Put(item.value.size(), "time stamp", StampText(item.whole));
  } else {
    PutItemHead(labels, item, "unknown item");
    labels.Put(item.value.size(), "unknown item", "passed over");
  }
  return item.whole.size();
}

}  // namespace

ItemMeaning ParameterMeaning(const k7::Model* model, unsigned channel, unsigned number) {
  if (channel == 0 && number == k7::kTimeParameter) return {"clock, time", ItemForm::kTime};
  if (channel == 0 && number == k7::kTimeParameter + 1U) return {"clock, date", ItemForm::kDate};
  if (model != nullptr) {
    const tav::Column* column = FindValue(*model, channel, number);
    if (column == nullptr) column = FindSetting(*model, channel, number);
    if (column != nullptr) return {NameOf(*column), ItemForm::kColumn, column};
    if (channel == 0 && IsBasic(*model, number)) {
      return {fmt::format("setting {}", Hex(number, 4)), ItemForm::kUnused};
    }
  }
  return {fmt::format("parameter {}", Hex(number, 4))};
}

std::vector<ItemMeaning> MeaningsOf(const k7::Model* model, ByteView references) {
  std::vector<ItemMeaning> meanings;
  for (; references.size() >= k7::kReferenceSize;
       references = references.subspan(k7::kReferenceSize)) {
    meanings.push_back(
        ParameterMeaning(model, references[2], references[3] + 256U * references[4]));
  }
  return meanings;
}

std::vector<ItemMeaning> RecordMeanings(const k7::Model* model, unsigned kind) {
  const auto known = static_cast<k7::Kind>(kind);
  if (known == k7::Kind::kChange || known == k7::Kind::kEvent) return {{"text"}};
  if (model == nullptr) return {};
  const k7::ArchiveTable& table = known == k7::Kind::kControl ? model->control : model->periodic;
  std::vector<ItemMeaning> meanings;
  if (model->datedRecords) meanings = {{"time", ItemForm::kTime}, {"date", ItemForm::kDate}};
  const std::size_t closing = table.closing == k7::Closing::kReversed ? 3 : 2;
  AddColumns(meanings, table.columns.subspan(1, table.columns.size() - 1 - closing));
  AddClosing(meanings, table);
  return meanings;
}

void PutItems(Labels& labels, std::size_t size, std::span<const ItemMeaning> meanings) {
  static const ItemMeaning kNameless{"value", ItemForm::kUnused};
  ByteView bytes = labels.Left().first(std::min(size, labels.Left().size()));
  for (std::size_t i = 0; !bytes.empty(); ++i) {
    bytes = bytes.subspan(PutItem(labels, bytes, i < meanings.size() ? meanings[i] : kNameless));
  }
}

void PutRecords(Labels& labels, std::size_t size, std::span<const ItemMeaning> meanings) {
  ByteView bytes = labels.Left().first(std::min(size, labels.Left().size()));
  while (!bytes.empty()) bytes = bytes.subspan(PutAmongRecords(labels, bytes, meanings));
}

std::string StampText(ByteView stamp) {
  k7::TlvWalk walk(stamp);
  std::size_t length = 0;
  const k7::Stamp value = walk.ItemStamp(length);
  return length == 0 ? "empty" : DateText(value.time);
}

}  // namespace host::frames
