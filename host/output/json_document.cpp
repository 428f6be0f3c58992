#include "host/output/json_document.h"

#include "host/output/json_row.h"
#include "host/output/ranges.h"
#include "host/output/text.h"
#include "host/reading/periods.h"
#include "host/stream/code_page.h"

namespace host {
namespace {

void AppendText(JsonWriter& writer, const char* key, std::string_view text) {
  writer.Member(JsonText(key), JsonText(text));
}

// What does not apply is null.
void AppendTextOrNull(JsonWriter& writer, const char* key, std::string_view text) {
  writer.Member(JsonText(key), text.empty() ? "null" : JsonText(text));
}

void AppendNumber(JsonWriter& writer, const char* key, std::size_t number) {
  writer.Member(JsonText(key), std::to_string(number));
}

// Any byte may stand in a stream.
template <class Code>
std::string Letter(Code code) {
  const char letter = static_cast<char>(code);
  return Utf8FromCp1251({&letter, 1});
}

void AppendColumn(JsonWriter& writer, const Column& column, const Field& field) {
  writer.Open('{');
  AppendText(writer, "field", field.name);
  AppendTextOrNull(writer, "quantity", NameOf(field.quantity));
  AppendTextOrNull(writer, "pipe", NameOf(field.pipe));
  AppendTextOrNull(writer, "span", NameOf(field.span));
  AppendTextOrNull(writer, "unit", field.unit.text);
  AppendText(writer, "name", column.name);
  AppendText(writer, "caption", column.caption);
  AppendText(writer, "driver_unit", column.unit);
  AppendText(writer, "type", Letter(column.type));
  AppendNumber(writer, "width", column.width);
  AppendText(writer, "role", Letter(column.role));
  AppendText(writer, "group", column.group);
  writer.Close('}');
}

void AppendTitle(JsonWriter& writer, const Title& title) {
  AppendText(writer, "kind", KindName(title.kind));
  AppendText(writer, "section", title.section);
  AppendText(writer, "model", title.model);
  AppendText(writer, "version", title.version);
  AppendText(writer, "number", title.number);
  AppendTextOrNull(writer, "clock", ClockText(title));
}

// Rows of current values have a clock each.
void AppendRow(JsonWriter& writer, const GatheredSection& gathered, const GatheredRow& row,
               const JsonRow& keys) {
  writer.Open('{');
  if (gathered.section.title.kind == tav::TitleKind::kCurrent) {
    AppendText(writer, "clock", DateText(row.clock));
  }
  keys.Append(writer, row.cells);
  writer.Close('}');
}

void AppendSection(JsonWriter& writer, const GatheredSection& gathered) {
  const Section& section = gathered.section;
  writer.Open('{');
  AppendTitle(writer, section.title);
  writer.Key(JsonText("columns")).Open('[');
  for (std::size_t i = 0; i < section.columns.size(); ++i) {
    AppendColumn(writer, section.columns[i], gathered.fields[i]);
  }
  writer.Close(']').Key(JsonText("rows")).Open('[');
  const JsonRow keys(gathered.fields);
  for (const GatheredRow& row : gathered.rows) AppendRow(writer, gathered, row, keys);
  writer.Close(']').Close('}');
}

void AppendRanges(JsonWriter& writer, const char* key, tav::TitleKind kind,
                  const std::vector<DateRange>& ranges) {
  writer.Key(JsonText(key)).Open('[');
  for (const DateRange& range : ranges) {
    writer.Open('{');
    AppendText(writer, "from", RecordDateText(kind, range.first));
    AppendText(writer, "to", RecordDateText(kind, range.last));
    writer.Close('}');
  }
  writer.Close(']');
}

void AppendAccount(JsonWriter& writer, const SectionAccount& account) {
  writer.Open('{');
  AppendText(writer, "kind", KindName(account.kind));
  AppendText(writer, "section", account.section);
  AppendNumber(writer, "expected", account.expected);
  AppendNumber(writer, "received", account.received);
  AppendNumber(writer, "not_held", account.notHeld);
  AppendNumber(writer, "failed", account.failed);
  AppendRanges(writer, "missing", account.kind, account.missing);
  AppendRanges(writer, "absent", account.kind, account.absent);
  AppendText(writer, "reason", account.reason);
  writer.Close('}');
}

void AppendAsked(JsonWriter& writer, const ReadSettings& settings) {
  writer.Key(JsonText("asked")).Open('{');
  AppendText(writer, "from", DateText(TavOf(settings.from)));
  AppendText(writer, "to", DateText(TavOf(settings.to)));
  AppendText(writer, "groups", settings.groups);
  AppendText(writer, "kind", settings.kind == tav::Mode::kK7 ? "k7" : "older");
  AppendNumber(writer, "number", static_cast<std::size_t>(settings.number));
  writer.Close('}');
}

void AppendMilliseconds(JsonWriter& writer, const char* key, std::chrono::milliseconds time) {
  AppendNumber(writer, key, static_cast<std::size_t>(time.count()));
}

void AppendFrames(JsonWriter& writer, const std::optional<FrameCounts>& frames) {
  const auto append = [&](const char* key, std::size_t FrameCounts::*count) {
    writer.Member(JsonText(key), frames ? std::to_string((*frames).*count) : "null");
  };
  append("wrong_checksums", &FrameCounts::wrongChecksums);
  append("foreign_replies", &FrameCounts::foreign);
  append("echoes", &FrameCounts::echoes);
}

void AppendReplyTimes(JsonWriter& writer, const std::optional<ReplyTimes>& reply) {
  const auto append = [&](const char* key, std::chrono::milliseconds ReplyTimes::*time) {
    writer.Member(JsonText(key), reply ? std::to_string(((*reply).*time).count()) : "null");
  };
  append("reply_median_ms", &ReplyTimes::median);
  append("reply_worst_ms", &ReplyTimes::worst);
}

void AppendLine(JsonWriter& writer, const LineCounts& counts) {
  writer.Key(JsonText("line_statistics")).Open('{');
  AppendNumber(writer, "requests", counts.requests);
  AppendNumber(writer, "replies", counts.replies);
  AppendNumber(writer, "retries", counts.retries);
  AppendNumber(writer, "timeouts", counts.timeouts);
  AppendFrames(writer, counts.frames);
  AppendNumber(writer, "late_bytes", counts.lateBytes);
  AppendNumber(writer, "bytes_out", counts.bytesOut);
  AppendNumber(writer, "bytes_in", counts.bytesIn);
  AppendMilliseconds(writer, "on_line_ms", counts.onLine);
  AppendMilliseconds(writer, "bytes_alone_ms", counts.bytesAlone);
  AppendReplyTimes(writer, counts.reply);
  writer.Close('}');
}

// What only a reading of an instrument has.
void AppendReading(JsonWriter& writer, const GatheredRun& run) {
  const RunEnd& end = run.end;
  AppendText(writer, "result", NameOf(end.ending));
  if (!end.reason.empty()) AppendText(writer, "reason", end.reason);
  AppendText(writer, "line", run.line);
  AppendAsked(writer, *run.settings);
  writer.Member(JsonText("clock_difference_s"),
                end.clock ? std::to_string(end.clock->difference) : "null");
  if (end.lineCounts) AppendLine(writer, *end.lineCounts);
  writer.Key(JsonText("completeness")).Open('[');
  for (const SectionAccount& account : end.accounts) AppendAccount(writer, account);
  writer.Close(']');
}

}  // namespace

void JsonDocument::Show(const GatheredRun& run) {
  std::string text;
  JsonWriter writer(text, JsonWriter::Layout::kIndented);
  writer.Open('{');
  if (run.settings) AppendReading(writer, run);
  AppendText(writer, "time", kTimes);
  writer.Key(JsonText("sections")).Open('[');
  for (const GatheredSection& gathered : run.sections) AppendSection(writer, gathered);
  writer.Close(']').Close('}');
  screen_.PrintResult(text + '\n');
}

}  // namespace host
