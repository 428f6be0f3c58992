#include "host/frames/values.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "host/stream/cell.h"
#include "host/stream/code_page.h"

namespace host::frames {
namespace {

Column HostColumn(const tav::Column& column) {
  Column result;
  result.type = column.type;
  result.width = column.width;
  return result;
}

constexpr std::size_t kNoColumn = static_cast<std::size_t>(-1);

// The first column in which two records differ.
std::size_t ChangedColumn(tav::Columns columns, ByteView left, ByteView right) {
  std::size_t offset = 0;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const std::size_t width = columns[i].width;
    const auto one = left.subspan(offset, width);
    if (!std::equal(one.begin(), one.end(), right.begin() + static_cast<std::ptrdiff_t>(offset))) {
      return i;
    }
    offset += width;
  }
  return kNoColumn;
}

// The column that each byte goes to.
std::vector<std::size_t> Targets(tav::Columns columns, ByteView bytes, const Bytes& record,
                                 const Convert& convert) {
  Bytes changed(bytes.size());
  std::copy(bytes.begin(), bytes.end(), changed.begin());
  std::vector<std::size_t> targets;
  for (unsigned char& byte : changed) {
    Bytes other(record.size());
    byte ^= 0xFF;
    convert(changed, other);
    byte ^= 0xFF;
    targets.push_back(ChangedColumn(columns, record, other));
  }
  return targets;
}

Piece PieceOf(tav::Columns columns, std::size_t index, const Bytes& record) {
  if (index == kNoColumn) return {0, "not used", {}};
  const tav::Column& column = columns[index];
  const auto value = ByteView(record).subspan(tav::RecordSize(columns.first(index)), column.width);
  return {0, NameOf(column), ValueText(column, value)};
}

}  // namespace

std::string NameOf(const tav::Column& column) {
  const std::string name = Utf8FromCp1251(column.name);
  if (column.caption == nullptr || std::string_view(column.caption) == column.name) return name;
  return fmt::format("{} ({})", name, Utf8FromCp1251(column.caption));
}

std::string ValueText(const tav::Column& column, ByteView value) {
  const std::string text = CellText(DecodeCell(HostColumn(column), value));
  const char* const unit = column.unit.text;
  const bool measured = column.type == tav::Type::kFloat || column.type == tav::Type::kDouble;
  // In some databases a column's unit is its own name.
  if (!measured || unit == nullptr || std::string_view(unit) == column.name) return text;
  return fmt::format("{} {}", text, Utf8FromCp1251(unit));
}

std::string Hex(unsigned value, int digits) { return fmt::format("0x{:0{}X}", value, digits); }

std::vector<Piece> PiecesOf(tav::Columns columns, ByteView bytes, const Convert& convert) {
  Bytes record(tav::RecordSize(columns));
  convert(bytes, record);
  const auto targets = Targets(columns, bytes, record, convert);
  std::vector<Piece> pieces;
  for (std::size_t i = 0; i < targets.size(); ++i) {
    if (i == 0 || targets[i] != targets[i - 1]) {
      pieces.push_back(PieceOf(columns, targets[i], record));
    }
    ++pieces.back().count;
  }
  return pieces;
}

}  // namespace host::frames
