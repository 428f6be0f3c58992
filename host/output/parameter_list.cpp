#include "host/output/parameter_list.h"

#include "host/output/folded_table.h"
#include "host/output/json_writer.h"

namespace host {
namespace {

const TextLine kParameterHeading = {"field", "value", "unit", "caption"};
const TextLine kChangeHeading = {"noticed", "instrument's clock", "field", "was", "is", "caption"};

std::string TitleOf(const StoredSection& section) {
  return NameOf(section.of) + ", parameters " + section.system;
}

std::string WithUnit(const Parameter& parameter) {
  const std::string value = CellText(parameter.value);
  return parameter.unit.empty() ? value : value + ' ' + parameter.unit;
}

TextLine LineOf(const Parameter& parameter) {
  return {parameter.field, CellText(parameter.value), parameter.unit, parameter.caption};
}

TextLine LineOf(const ParameterChange& change) {
  return {change.noticed.reading,  change.noticed.clock,     change.current.field,
          WithUnit(change.former), WithUnit(change.current), change.current.caption};
}

std::string List(const std::vector<std::string>& objects, const char* separator) {
  std::string text;
  for (const std::string& object : objects) {
    if (!text.empty()) text += separator;
    text += object;
  }
  return text;
}

std::string Document(const std::vector<std::string>& objects) {
  return objects.empty() ? "[]\n" : "[\n" + List(objects, ",\n") + "\n]\n";
}

std::string JsonOf(const Parameter& parameter) {
  const JsonMember members[] = {{"field", JsonText(parameter.field)},
                                {"value", JsonValue(parameter.value)},
                                {"unit", JsonTextOrNull(parameter.unit)},
                                {"caption", JsonText(parameter.caption)}};
  return JsonObject(members);
}

std::string JsonOf(const ParameterSnapshot& snapshot) {
  std::vector<std::string> parameters;
  for (const Parameter& parameter : snapshot.parameters) parameters.push_back(JsonOf(parameter));
  const StoredSection& section = snapshot.section;
  const JsonMember members[] = {{"serial", JsonText(section.of.serial)},
                                {"model", JsonText(section.of.model)},
                                {"section", JsonText(section.system)},
                                {"reading", JsonText(snapshot.noticed.reading)},
                                {"clock", JsonTextOrNull(snapshot.noticed.clock)},
                                {"parameters", '[' + List(parameters, ", ") + ']'}};
  return JsonObject(members);
}

std::string JsonOf(const ParameterChange& change) {
  const StoredSection& section = change.section;
  const JsonMember members[] = {{"serial", JsonText(section.of.serial)},
                                {"model", JsonText(section.of.model)},
                                {"section", JsonText(section.system)},
                                {"reading", JsonText(change.noticed.reading)},
                                {"clock", JsonTextOrNull(change.noticed.clock)},
                                {"former_reading", JsonText(change.before.reading)},
                                {"former_clock", JsonTextOrNull(change.before.clock)},
                                {"field", JsonText(change.current.field)},
                                {"caption", JsonText(change.current.caption)},
                                {"former", JsonValue(change.former.value)},
                                {"former_unit", JsonTextOrNull(change.former.unit)},
                                {"value", JsonValue(change.current.value)},
                                {"unit", JsonTextOrNull(change.current.unit)}};
  return JsonObject(members);
}

template <class Item>
std::string DocumentOf(const std::vector<Item>& items) {
  std::vector<std::string> objects;
  objects.reserve(items.size());
  for (const Item& item : items) objects.push_back(JsonOf(item));
  return Document(objects);
}

void AppendPart(std::string& text, const std::string& title, const std::vector<TextLine>& lines) {
  if (!text.empty()) text += '\n';
  text.append(title).append(1, '\n').append(ListText(lines));
}

}  // namespace

std::string ParametersText(const std::vector<ParameterSnapshot>& snapshots) {
  std::string text;
  for (const ParameterSnapshot& snapshot : snapshots) {
    std::vector<TextLine> lines = {kParameterHeading};
    for (const Parameter& parameter : snapshot.parameters) lines.push_back(LineOf(parameter));
    AppendPart(text,
               TitleOf(snapshot.section) + ", as of " + snapshot.noticed.clock + ", read at " +
                   snapshot.noticed.reading,
               lines);
  }
  return text.empty() ? "no parameters are kept\n" : text;
}

std::string ChangesText(const std::vector<ParameterChange>& changes) {
  std::string text;
  for (std::size_t i = 0; i < changes.size();) {
    const StoredSection& section = changes[i].section;
    std::vector<TextLine> lines = {kChangeHeading};
    for (; i < changes.size() && changes[i].section.id == section.id; ++i) {
      lines.push_back(LineOf(changes[i]));
    }
    AppendPart(text, TitleOf(section) + ", changes", lines);
  }
  return text.empty() ? "no changes of parameters are kept\n" : text;
}

std::string ParametersJson(const std::vector<ParameterSnapshot>& snapshots) {
  return DocumentOf(snapshots);
}

std::string ChangesJson(const std::vector<ParameterChange>& changes) { return DocumentOf(changes); }

}  // namespace host
