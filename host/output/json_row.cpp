#include "host/output/json_row.h"

namespace host {

JsonRow::JsonRow(const std::vector<Field>& fields) {
  keys_.reserve(fields.size() + 1);
  for (const Field& field : fields) keys_.push_back(JsonText(field.name));
  keys_.push_back(JsonText("undescribed"));
}

void JsonRow::Append(JsonWriter& writer, const Cells& cells) const {
  for (std::size_t i = 0; i < cells.size(); ++i) {
    if (std::holds_alternative<std::monostate>(cells[i])) continue;
    writer.Member(keys_[i], JsonValue(cells[i]));
  }
}

}  // namespace host
