// Rows for other programs, one a line, of any number of instruments.
//
// csv: instrument, part and fields; a heading whenever they are others. jsonl: an object a line.
// influx: InfluxDB's line protocol, the kind of section as the measurement, and serial, model and
// system as tags.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "host/output/field_view.h"
#include "host/stream/section_listener.h"

namespace host {

// Makes the lines of one form.
class RowForm {
 public:
  virtual ~RowForm() = default;
  virtual void Begin(const Section& section, const std::vector<Field>& fields,
                     std::string& out) = 0;
  virtual void Append(const Section& section, const Cells& cells, std::string& out) = 0;
};

std::unique_ptr<RowForm> MakeCsvRows();
std::unique_ptr<RowForm> MakeJsonRows();
// offset: seconds that the instruments' clocks are ahead of UTC.
std::unique_ptr<RowForm> MakeInfluxRows(long offset);

class ExportWriter final : public SectionListener {
 public:
  using Write = std::function<void(const std::string& text)>;
  ExportWriter(std::unique_ptr<RowForm> form, const UnitChoice& units, Write write)
      : form_(std::move(form)), view_(units), write_(std::move(write)) {}

  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  // Writes what was gathered. Returns how many rows there were.
  std::size_t Finish();

 private:
  std::unique_ptr<RowForm> form_;
  FieldView view_;
  Write write_;
  ShownColumns columns_;
  Cells scratch_;
  std::string pending_;
  std::size_t rows_ = 0;
};

}  // namespace host
