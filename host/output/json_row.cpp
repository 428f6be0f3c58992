#include "host/output/json_row.h"

namespace host {

JsonRow::JsonRow(const Section& section, const std::vector<std::string>& taken) {
  for (const std::string& name : DistinctNames(section, taken)) keys_.push_back(JsonText(name));
}

void JsonRow::Append(JsonWriter& writer, const Cells& cells) {
  bool lacks = false;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const bool lacking = std::holds_alternative<std::monostate>(cells[i]);
    if (!lacking || !cut_) writer.Member(keys_[i], JsonValue(cells[i]));
    lacks = lacks || lacking;
  }
  cut_ = cut_ || lacks;
}

}  // namespace host
