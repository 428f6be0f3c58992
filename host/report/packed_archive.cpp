#include "host/report/packed_archive.h"

#include <algorithm>

#include "host/report/field_json.h"
#include "host/report/packed.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

bool IsWhole(const Column& column) {
  return column.type == tav::Type::kInt32 || column.type == tav::Type::kInt16 ||
         column.type == tav::Type::kByte;
}

bool IsNumber(const Column& column) {
  return IsWhole(column) || column.type == tav::Type::kFloat || column.type == tav::Type::kDouble;
}

}  // namespace

std::size_t PackedArchive::PlaceOf(const Field& field, const Column& column) {
  const auto found = std::find_if(columns_.begin(), columns_.end(), [&](const Gathered& each) {
    return each.about["field"] == field.name;
  });
  const auto place = static_cast<std::size_t>(found - columns_.begin());
  if (found != columns_.end()) return place;
  const int decimals = IsWhole(column) ? 0 : DecimalsOf(field);
  columns_.push_back({JsonOf(field, column), !IsNumber(column), decimals});
  return place;
}

void PackedArchive::BeginSection(const Section& section) {
  shown_ = view_.Columns(section);
  places_.clear();
  for (std::size_t i = 0; i < shown_.fields.size(); ++i) {
    places_.push_back(i == 0 ? 0 : PlaceOf(shown_.fields[i], section.columns[i]));
  }
}

void PackedArchive::Put(Gathered& column, std::size_t row, const Cell& cell) {
  if (column.isText) {
    column.texts.resize(row + 1);
    column.texts[row] = CellText(cell);
  } else {
    column.numbers.resize(row + 1);
    column.numbers[row] = NumberIn(cell);
  }
}

// The first cell is the record's time.
void PackedArchive::AddRow(const Section&, const Cells& cells) {
  const auto* time = cells.empty() ? nullptr : std::get_if<TAVDT>(&cells.front());
  const auto period = time == nullptr ? std::nullopt : NumberOf(period_, *time);
  if (!period || (!periods_.empty() && *period <= periods_.back())) return;
  periods_.push_back(*period);
  const Cells& shown = shown_.In(cells, scratch_);
  for (std::size_t i = 1; i < shown.size() && i < places_.size(); ++i) {
    Put(columns_[places_[i]], periods_.size() - 1, shown[i]);
  }
}

Json PackedArchive::TextColumn(const Gathered& column) const {
  Json json = column.about;
  json["texts"] = Json::array();
  for (const std::string& text : column.texts) json["texts"].push_back(TextOrNull(text));
  while (json["texts"].size() < Rows()) json["texts"].push_back(nullptr);
  return json;
}

PackedColumn PackedArchive::NumberColumn(const Gathered& column) const {
  std::vector<std::optional<double>> values = column.numbers;
  values.resize(Rows());
  return Pack(values, column.decimals);
}

void PackedArchive::AddTo(Json& archive) const {
  std::vector<PackedColumn> packed = {Pack(periods_)};
  Json columns = Json::array();
  for (const Gathered& column : columns_) {
    if (column.isText) {
      columns.push_back(TextColumn(column));
      continue;
    }
    packed.push_back(NumberColumn(column));
    Json about = column.about;
    about["decimals"] = column.decimals;
    about["bytes"] = packed.back().bytes;
    if (!packed.back().wild.empty()) about["wild"] = packed.back().wild;
    columns.push_back(std::move(about));
  }
  archive["columns"] = std::move(columns);
  archive["records"] = Rows();
  archive["periodBytes"] = packed.front().bytes;
  archive["data"] = Packed(Planes(packed));
}

}  // namespace host
