#include "host/output/export_writer.h"

#include <fmt/format.h>

#include <cmath>
#include <optional>

#include "host/output/csv.h"
#include "host/output/json_row.h"
#include "host/output/text.h"
#include "host/reading/periods.h"

namespace host {
namespace {

constexpr std::size_t kPiece = 65536;

const TAVDT* TimeIn(const Cells& cells) {
  return cells.empty() ? nullptr : std::get_if<TAVDT>(&cells.front());
}

class CsvRows final : public RowForm {
 public:
  void Begin(const Section& section, const std::vector<Field>& fields, std::string& out) override {
    lead_.clear();
    for (const std::string* text : {&section.title.number, &section.title.section}) {
      AppendCsvField(lead_, *text, kStandardCsv);
      lead_ += kStandardCsv.separator;
    }
    std::string heading = std::string("serial,system") + kStandardCsv.separator;
    AppendCsvHeader(heading, section, fields, kStandardCsv);
    if (heading == heading_) return;
    if (!heading_.empty()) out += kStandardCsv.lineEnd;
    out += heading;
    heading_ = std::move(heading);
  }
  void Append(const Section& section, const Cells& cells, std::string& out) override {
    out += lead_;
    AppendCsvRow(out, section, section.title.time, cells, kStandardCsv);
  }

 private:
  std::string heading_;
  std::string lead_;
};

class JsonRows final : public RowForm {
 public:
  void Begin(const Section& section, const std::vector<Field>& fields, std::string&) override {
    const Title& title = section.title;
    lead_ = R"({"serial":)" + JsonText(title.number);
    lead_ += R"(,"model":)" + JsonText(title.model);
    lead_ += R"(,"kind":)" + JsonText(KindName(title.kind));
    lead_ += R"(,"section":)" + JsonText(title.section);
    const std::string clock = ClockText(title);
    if (!clock.empty()) lead_ += R"(,"clock":)" + JsonText(clock);
    row_.emplace(fields);
  }
  void Append(const Section&, const Cells& cells, std::string& out) override {
    values_.clear();
    JsonWriter writer(values_, JsonWriter::Layout::kOneLine);
    row_->Append(writer, cells);
    out.append(lead_).append(values_.empty() ? "" : ",").append(values_).append("}\n");
  }

 private:
  std::string lead_;
  std::string values_;
  std::optional<JsonRow> row_;
};

class InfluxRows final : public RowForm {
 public:
  explicit InfluxRows(long offset) : offset_(offset) {}

  void Begin(const Section& section, const std::vector<Field>& fields, std::string&) override {
    const Title& title = section.title;
    lead_ = KindName(title.kind);
    AppendTag("serial", title.number);
    AppendTag("model", title.model);
    AppendTag("system", title.section);
    second_ = 0;
    names_.clear();
    for (const Field& field : fields) names_.push_back(field.name);
  }
  // What has no time, or no value, is no point.
  void Append(const Section& section, const Cells& cells, std::string& out) override {
    const TAVDT* own = TimeIn(cells);
    const TAVDT& time = own == nullptr ? section.title.time : *own;
    if (!IsDate(time)) return;
    values_.clear();
    for (std::size_t i = own == nullptr ? 0 : 1; i < cells.size() && i < names_.size(); ++i) {
      AppendValue(names_[i], cells[i]);
    }
    if (values_.empty()) return;
    out.append(lead_).append(1, ' ').append(values_).append(1, ' ');
    AppendTime(SecondOf(time) - offset_, out);
  }

 private:
  static long long SecondOf(const TAVDT& time) {
    const PeriodNumber hour = NumberOf(Period::kHour, time).value_or(0);
    return hour * 3600 + time.minute * 60 + time.second;
  }

  // In nanoseconds. Log entries of one second are told apart by them: of points with one time only
  // the last would stay.
  void AppendTime(long long second, std::string& out) {
    repeated_ = second == second_ ? repeated_ + 1 : 0;
    second_ = second;
    out += fmt::format("{}{:09}\n", second, repeated_);
  }

  // A tag without a value is none, and a backslash would take its end with it.
  void AppendTag(const char* key, const std::string& value) {
    if (value.empty()) return;
    lead_.append(1, ',').append(key).append(1, '=');
    for (const char character : value) {
      if (character == ',' || character == ' ' || character == '=') lead_ += '\\';
      lead_ += character == '\\' ? '/' : character;
    }
  }

  void AppendValue(const std::string& name, const Cell& cell) {
    const std::string value = ValueOf(cell);
    if (value.empty()) return;
    if (!values_.empty()) values_ += ',';
    values_.append(name).append(1, '=').append(value);
  }

  static std::string ValueOf(const Cell& cell) {
    if (std::holds_alternative<std::monostate>(cell)) return {};
    if (std::holds_alternative<std::uint32_t>(cell)) return CellText(cell) + 'i';
    const auto* single = std::get_if<float>(&cell);
    const auto* wide = std::get_if<double>(&cell);
    if (single != nullptr || wide != nullptr) {
      const double number = single != nullptr ? double{*single} : *wide;
      return std::isfinite(number) ? CellText(cell) : std::string();
    }
    std::string text(1, '"');
    for (const char character : CellText(cell)) {
      if (character == '"' || character == '\\') text += '\\';
      text += character;
    }
    text += '"';
    return text;
  }

  long offset_;
  std::string lead_;
  std::string values_;
  std::vector<std::string> names_;
  long long second_ = 0;  // of the last point
  int repeated_ = 0;      // points of that second before it
};

}  // namespace

std::unique_ptr<RowForm> MakeCsvRows() { return std::make_unique<CsvRows>(); }
std::unique_ptr<RowForm> MakeJsonRows() { return std::make_unique<JsonRows>(); }
std::unique_ptr<RowForm> MakeInfluxRows(long offset) {
  return std::make_unique<InfluxRows>(offset);
}

void ExportWriter::BeginSection(const Section& section) {
  columns_ = view_.Columns(section);
  form_->Begin(section, columns_.fields, pending_);
}

void ExportWriter::AddRow(const Section& section, const Cells& cells) {
  form_->Append(section, columns_.In(cells, scratch_), pending_);
  ++rows_;
  if (pending_.size() < kPiece) return;
  write_(pending_);
  pending_.clear();
}

std::size_t ExportWriter::Finish() {
  if (!pending_.empty()) write_(pending_);
  pending_.clear();
  return rows_;
}

}  // namespace host
