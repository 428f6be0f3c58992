// An archive as the page carries it: a list for each column, packed.
#pragma once

#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "host/output/field_view.h"
#include "host/reading/periods.h"
#include "host/report/packed_column.h"
#include "host/stream/section_listener.h"

namespace host {

// Gathers the rows of one archive section. Columns whose unit changed come as several.
class PackedArchive final : public SectionListener {
 public:
  PackedArchive(Period period, const UnitChoice& units) : period_(period), view_(units) {}

  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;

  std::size_t Rows() const { return periods_.size(); }
  // "columns", "records", "periodBytes" and "data", see docs/report.md.
  void AddTo(nlohmann::ordered_json& archive) const;

 private:
  struct Gathered {
    nlohmann::ordered_json about;
    bool isText = false;
    int decimals = 0;
    std::vector<std::optional<double>> numbers{};
    std::vector<std::string> texts{};  // empty: no value
  };

  std::size_t PlaceOf(const Field& field, const Column& column);
  static void Put(Gathered& column, std::size_t row, const Cell& cell);
  nlohmann::ordered_json TextColumn(const Gathered& column) const;
  PackedColumn NumberColumn(const Gathered& column) const;

  Period period_;
  FieldView view_;
  ShownColumns shown_;
  Cells scratch_;
  std::vector<std::size_t> places_;  // of the section's columns; those of the first are unused
  std::vector<PeriodNumber> periods_;
  std::vector<Gathered> columns_;
};

}  // namespace host
