#include "host/output/json_document.h"

#include "host/stream/code_page.h"

namespace host {
namespace {

void AppendMember(JsonWriter& writer, const char* key, std::string_view text) {
  writer.Member(JsonText(key), JsonText(text));
}

// Any byte may stand in a stream.
template <class Code>
std::string Letter(Code code) {
  const char letter = static_cast<char>(code);
  return Utf8FromCp1251({&letter, 1});
}

void AppendColumn(JsonWriter& writer, const Column& column) {
  writer.Open('{');
  AppendMember(writer, "name", column.name);
  AppendMember(writer, "type", Letter(column.type));
  writer.Member(JsonText("width"), std::to_string(column.width));
  AppendMember(writer, "unit", column.unit);
  AppendMember(writer, "role", Letter(column.role));
  AppendMember(writer, "caption", column.caption);
  AppendMember(writer, "group", column.group);
  writer.Close('}');
}

void AppendTitle(JsonWriter& writer, const Title& title) {
  AppendMember(writer, "kind", KindName(title.kind));
  AppendMember(writer, "section", title.section);
  AppendMember(writer, "model", title.model);
  AppendMember(writer, "version", title.version);
  AppendMember(writer, "number", title.number);
  AppendMember(writer, "clock", DateText(title.time));
}

const char* EndingName(Ending ending) {
  switch (ending) {
    case Ending::kRead:
      return "read";
    case Ending::kGaps:
      return "gaps";
    case Ending::kInterrupted:
      return "interrupted";
    case Ending::kFailed:
      break;
  }
  return "failed";
}

}  // namespace

void JsonDocument::BeginRun(const Run& run) {
  hasResult_ = run.settings.has_value();
  writer_.Key(JsonText("sections")).Open('[');
}

void JsonDocument::BeginSection(const Section& section) {
  writer_.Open('{');
  AppendTitle(writer_, section.title);
  writer_.Key(JsonText("columns")).Open('[');
  for (const Column& column : section.columns) AppendColumn(writer_, column);
  writer_.Close(']').Key(JsonText("rows")).Open('[');
  row_.emplace(section);
}

void JsonDocument::AddRow(const Section&, const Cells& cells) {
  writer_.Open('{');
  row_->Append(writer_, cells);
  writer_.Close('}');
}

void JsonDocument::EndSection(const Section&) { writer_.Close(']').Close('}'); }

void JsonDocument::EndRun(const RunEnd& end) {
  writer_.Close(']').Close('}');
  text_ += '\n';
  std::string head;
  JsonWriter writer(head, JsonWriter::Layout::kIndented);
  writer.Open('{');
  if (hasResult_) AppendMember(writer, "result", EndingName(end.ending));
  if (hasResult_ && !end.reason.empty()) AppendMember(writer, "reason", end.reason);
  if (hasResult_) head += ',';
  screen_.PrintResult(head);
  screen_.PrintResult(text_);
}

}  // namespace host
