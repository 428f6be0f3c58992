#include "host/report/kept_values.h"

#include "host/output/text.h"
#include "host/report/field_json.h"
#include "host/report/packed_column.h"
#include "host/store/kept_rows.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

std::vector<StoredSection> OfKind(const std::vector<StoredSection>& sections, tav::TitleKind kind) {
  std::vector<StoredSection> found;
  for (const StoredSection& section : sections) {
    if (section.kind == kind) found.push_back(section);
  }
  return found;
}

class Values final : public SectionListener {
 public:
  Values(const UnitChoice& units, bool all) : view_(units), all_(all) {}

  void AddRow(const Section& section, const Cells& cells) override {
    const ShownColumns columns = view_.Columns(section);
    const Cells& shown = columns.In(cells, scratch_);
    Json values = Json::array();
    for (std::size_t i = 0; i < columns.fields.size() && i < shown.size(); ++i) {
      const Field& field = columns.fields[i];
      Json value = JsonOf(field, section.columns[i]);
      value["decimals"] = DecimalsOf(field);
      value["value"] = JsonOf(shown[i], DecimalsOf(field));
      values.push_back(std::move(value));
    }
    Add({{"system", section.title.section},
         {"time", TextOrNull(ClockText(section.title))},
         {"values", std::move(values)}});
  }

  Json Take() { return std::move(list_); }

 private:
  void Add(Json values) {
    const bool again = !list_.empty() && list_.back()["system"] == values["system"];
    if (again && !all_) list_.erase(list_.size() - 1);
    list_.push_back(std::move(values));
  }

  FieldView view_;
  bool all_;
  Cells scratch_;
  Json list_ = Json::array();
};

class LogEntries final : public SectionListener {
 public:
  explicit LogEntries(const UnitChoice& units) : view_(units) {}

  void BeginSection(const Section& section) override {
    Json captions = Json::array();
    for (std::size_t i = 1; i < section.columns.size(); ++i) {
      captions.push_back(section.columns[i].caption);
    }
    Json log = {{"system", section.title.section}, {"columns", std::move(captions)}};
    log["rows"] = Json::array();
    list_.push_back(std::move(log));
    columns_ = view_.Columns(section);
  }
  void AddRow(const Section&, const Cells& cells) override {
    const Cells& shown = columns_.In(cells, scratch_);
    Json row = Json::array();
    for (std::size_t i = 0; i < shown.size(); ++i) {
      const bool known = i < columns_.fields.size();
      row.push_back(JsonOf(shown[i], known ? DecimalsOf(columns_.fields[i]) : 0));
    }
    list_.back()["rows"].push_back(std::move(row));
  }

  Json Take() { return std::move(list_); }

 private:
  FieldView view_;
  ShownColumns columns_;
  Cells scratch_;
  Json list_ = Json::array();
};

}  // namespace

Json CurrentValues(Database& database, const std::vector<StoredSection>& sections,
                   const Selection& selection, const UnitChoice& units, bool all) {
  Values values(units, all);
  TellKept(database, OfKind(sections, tav::TitleKind::kCurrent), selection, values);
  return values.Take();
}

Json Logs(Database& database, const std::vector<StoredSection>& sections,
          const Selection& selection, const UnitChoice& units) {
  LogEntries entries(units);
  TellKept(database, OfKind(sections, tav::TitleKind::kLog), selection, entries);
  return entries.Take();
}

}  // namespace host
