#include "host/output/fields_list.h"

#include <utility>
#include <vector>

#include "host/fields/list.h"
#include "host/output/folded_table.h"
#include "host/output/json_writer.h"

namespace host {
namespace {

// --- Text ---

const TextLine kHeading = {"column", "caption", "driver's unit", "field", "unit", "quantity",
                           "pipe",   "span",    "type",          "role",  "note"};

// "q_gcal|gj|mwh".
std::string JoinedName(const std::vector<Field>& fields) {
  std::string text = fields.front().name;
  for (std::size_t i = 1; i < fields.size(); ++i) {
    text += '|' + fields[i].name.substr(fields[i].base.size() + 1);
  }
  return text;
}

std::string JoinedUnit(const std::vector<Field>& fields) {
  std::string text = fields.front().unit.text;
  for (std::size_t i = 1; i < fields.size(); ++i) text += '|' + fields[i].unit.text;
  return text;
}

TextLine LineOf(const ListedColumn& listed) {
  const Field& field = listed.fields.front();
  return {listed.column,
          listed.caption == listed.column ? "" : listed.caption,
          listed.driverUnit,
          JoinedName(listed.fields),
          JoinedUnit(listed.fields),
          NameOf(field.quantity),
          NameOf(field.pipe),
          NameOf(field.span),
          NameOf(listed.type),
          NameOf(listed.role),
          listed.note};
}

std::string TitleOf(const ListedTable& table) {
  std::string title = table.model;
  const char* separator = ": ";
  for (const std::string& section : table.sections) {
    title += separator + section;
    separator = ", ";
  }
  return title + '\n';
}

// --- JSON ---

std::string JsonList(const std::vector<std::string>& values) {
  std::string text = "[";
  for (const std::string& value : values) text += (text.size() > 1 ? "," : "") + value;
  return text + ']';
}

// The same of each field.
template <typename Part>
std::string JsonListOf(const std::vector<Field>& fields, Part part) {
  std::vector<std::string> values;
  values.reserve(fields.size());
  for (const Field& field : fields) values.push_back(JsonTextOrNull(part(field)));
  return JsonList(values);
}

std::string JsonTexts(const std::vector<std::string>& texts) {
  std::vector<std::string> values;
  values.reserve(texts.size());
  for (const std::string& text : texts) values.push_back(JsonText(text));
  return JsonList(values);
}

std::string JsonOf(const ListedTable& table, const ListedColumn& listed) {
  const Field& field = listed.fields.front();
  const JsonMember members[] = {
      {"model", JsonText(table.model)},
      {"sections", JsonTexts(table.sections)},
      {"column", JsonText(listed.column)},
      {"caption", JsonText(listed.caption)},
      {"driver_unit", JsonText(listed.driverUnit)},
      {"base", JsonText(field.base)},
      {"fields", JsonListOf(listed.fields, [](const Field& each) { return each.name; })},
      {"units", JsonListOf(listed.fields, [](const Field& each) { return each.unit.text; })},
      {"quantity", JsonText(NameOf(field.quantity))},
      {"pipe", JsonTextOrNull(NameOf(field.pipe))},
      {"type", JsonText(NameOf(listed.type))},
      {"role", JsonText(NameOf(listed.role))},
      {"span", JsonTextOrNull(NameOf(field.span))},
      {"note", JsonTextOrNull(listed.note)}};
  return JsonObject(members);
}

}  // namespace

std::string FieldsText() {
  std::string text;
  for (const ListedTable& table : ListFields()) {
    std::vector<TextLine> lines = {kHeading};
    for (const ListedColumn& listed : table.columns) lines.push_back(LineOf(listed));
    if (!text.empty()) text += '\n';
    text += TitleOf(table);
    text += ListText(lines, "");
  }
  return text;
}

std::string FieldsJson() {
  std::string text;
  for (const ListedTable& table : ListFields()) {
    for (const ListedColumn& listed : table.columns) {
      text += text.empty() ? "[\n" : ",\n";
      text += JsonOf(table, listed);
    }
  }
  return text + "\n]\n";
}

}  // namespace host
