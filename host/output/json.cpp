#include "host/output/json.h"

#include <charconv>
#include <cmath>

#include "host/stream/code_page.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

struct JsonOf {
  Json operator()(std::monostate) const { return nullptr; }
  Json operator()(std::uint32_t value) const { return value; }
  Json operator()(float value) const {
    if (!std::isfinite(value)) return nullptr;
    // As a double of the same digits: 0.1 and not 0.10000000149011612.
    const std::string text = NumberText(value);
    double wide = 0;
    std::from_chars(text.data(), text.data() + text.size(), wide);
    return wide;
  }
  Json operator()(double value) const { return std::isfinite(value) ? Json(value) : Json(); }
  Json operator()(const TAVDT& value) const { return DateText(value); }
  Json operator()(const std::string& value) const { return value; }
};

// Any byte may stand in a stream.
std::string Letter(char letter) { return Utf8FromCp1251({&letter, 1}); }

Json ColumnJson(const Column& column) {
  return {{"name", column.name},  {"type", Letter(column.type)}, {"width", column.width},
          {"unit", column.unit},  {"role", Letter(column.role)}, {"caption", column.caption},
          {"group", column.group}};
}

}  // namespace

Json CellJson(const Cell& cell) { return std::visit(JsonOf{}, cell); }

Json RowJson(const Section& section, ByteView row) {
  const std::vector<std::string> names = DistinctNames(section);
  const std::vector<Cell> cells = DecodeRow(section, row);
  Json json = Json::object();
  for (std::size_t i = 0; i < cells.size(); ++i) {
    json[i < names.size() ? names[i] : "undescribed"] = CellJson(cells[i]);
  }
  return json;
}

Json SectionJson(const Section& section) {
  const Title& title = section.title;
  Json json = {{"kind", KindName(title.kind)}, {"section", title.section},
               {"model", title.model},         {"version", title.version},
               {"number", title.number},       {"clock", DateText(title.time)},
               {"columns", Json::array()}};
  for (const Column& column : section.columns) json["columns"].push_back(ColumnJson(column));
  return json;
}

Json DocumentJson(const std::vector<KeptSection>& sections) {
  Json list = Json::array();
  for (const KeptSection& kept : sections) {
    Json json = SectionJson(kept.section);
    json["rows"] = Json::array();
    for (const Bytes& row : kept.rows) json["rows"].push_back(RowJson(kept.section, row));
    list.push_back(std::move(json));
  }
  return {{"sections", std::move(list)}};
}

}  // namespace host
