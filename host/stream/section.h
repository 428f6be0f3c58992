// What the driver's output stream describes: sections with typed columns, and rows as bytes.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "TKSplDrv/types.h"

namespace host {

using Bytes = std::vector<unsigned char>;
using ByteView = std::span<const unsigned char>;

// A column header. Texts are UTF-8.
struct Column {
  std::string name;
  char type = 0;            // f d L S B t c, see cell.h
  unsigned char width = 0;  // bytes in a row
  std::string unit;
  char role = 0;        // I: the row's date-time, i: accumulated over the interval, d: others
  std::string caption;  // the name again where the driver has none
  std::string group;    // "default" where the driver has none
};

// A title record. Texts are UTF-8.
struct Title {
  char kind = 0;  // O current values, H hours, D days, M months, S log, B database
  std::string model;
  std::string version;
  std::string number;
  std::string section;  // part of the instrument, and which log
  TAVDT time{};         // the instrument's clock
};

struct Section {
  Title title;
  // Only tables of some instruments announce their number of columns, and a layout may stop before
  // the last one.
  std::optional<unsigned> announced;
  std::vector<Column> columns;
};

// The bytes of a row that the columns describe.
std::size_t RowWidth(const Section& section);

// Whether columns that were announced never came, so that rows are longer than described.
bool HasUndescribedColumns(const Section& section);

// "hours"; "section" for an unknown letter.
const char* KindName(char kind);

// Column names in order, made distinct by "#2" where one repeats.
std::vector<std::string> DistinctNames(const Section& section);

// A section is told as it comes in: Begin when its columns are known, a row when it is complete,
// End when no row can follow.
class SectionListener {
 public:
  virtual ~SectionListener() = default;
  virtual void Begin(const Section& section) = 0;
  virtual void AddRow(const Section& section, ByteView row) = 0;
  virtual void End(const Section& section) = 0;
};

// Keeps everything.
struct KeptSection {
  Section section;
  std::vector<Bytes> rows;
};

class SectionKeeper final : public SectionListener {
 public:
  void Begin(const Section& section) override { sections_.push_back({section, {}}); }
  void AddRow(const Section&, ByteView row) override {
    sections_.back().rows.emplace_back(row.begin(), row.end());
  }
  void End(const Section&) override {}
  const std::vector<KeptSection>& Sections() const { return sections_; }

 private:
  std::vector<KeptSection> sections_;
};

}  // namespace host
