// What the driver's output stream describes: sections with typed columns.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "TKSplDrv/records.h"
#include "TKSplDrv/types.h"

namespace host {

using Bytes = std::vector<unsigned char>;
using ByteView = std::span<const unsigned char>;

// A column header. Texts are UTF-8. Type and role may hold any byte: what stood in the stream.
struct Column {
  std::string name;
  tav::Type type{};
  unsigned char width = 0;  // bytes in a row
  std::string unit;
  tav::Role role{};
  std::string caption;  // the name again where the driver has none
  std::string group;    // tav::kDefaultGroup where the driver has none
};

// A title record. Texts are UTF-8.
struct Title {
  tav::TitleKind kind{};
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
  std::optional<unsigned> announced{};
  std::vector<Column> columns{};
  // Of a section that was kept with them: the true unit of each column, see host/fields. Empty:
  // they are to be found out.
  std::vector<std::string> units{};
};

// The bytes of a row that the columns describe.
std::size_t RowWidth(const Section& section);

// Whether columns that were announced never came, so that rows are longer than described.
bool HasUndescribedColumns(const Section& section);

// Whether a byte is one of the kinds.
bool IsTitleKind(unsigned char byte);

// "hours"; "section" for an unknown kind.
const char* KindName(tav::TitleKind kind);

// The same for sections that go on where an earlier one ended: kind and part of the instrument.
std::string SectionKey(const Section& section);

}  // namespace host
