#include "tests/k7/recorded_sections.h"

#include <stdexcept>
#include <string>

namespace k7test {
namespace {

using support::Bytes;
using support::operator+;

class Walk {
 public:
  explicit Walk(const std::vector<Bytes>& writes) : writes_(writes) {}

  bool AtEnd() const { return next_ == writes_.size(); }
  const Bytes& Peek() const { return writes_.at(next_); }
  Bytes Take(std::size_t size) {
    if (AtEnd() || Peek().size() != size) throw std::runtime_error("a piece of another size");
    return writes_[next_++];
  }
  char Character() { return static_cast<char>(Take(1)[0]); }
  std::string Text() {
    const Bytes text = Take(Take(1)[0]);
    return {text.begin(), text.end()};
  }

 private:
  const std::vector<Bytes>& writes_;
  std::size_t next_ = 0;
};

RecordedSection TakeTitle(Walk& walk) {
  RecordedSection section;
  section.kind = walk.Character();
  section.type = walk.Text();
  section.version = walk.Text();
  section.number = walk.Text();
  section.name = walk.Text();
  section.time = walk.Take(7);
  return section;
}

RecordedColumn TakeColumn(Walk& walk) {
  RecordedColumn column;
  column.name = walk.Text();
  column.type = walk.Character();
  column.width = static_cast<unsigned char>(walk.Character());
  column.unit = walk.Text();
  column.role = walk.Character();
  column.caption = walk.Text();
  column.group = walk.Text();
  return column;
}

// Names are shorter than any marker or title kind is large as a number.
constexpr std::uint8_t kLongestName = 20;

bool IsSingle(const Bytes& piece, char character) {
  return piece.size() == 1 && piece[0] == static_cast<std::uint8_t>(character);
}

void TakeRow(Walk& walk, RecordedSection& section) {
  walk.Take(1);
  section.rows.emplace_back();
  while (!walk.AtEnd() && walk.Peek().size() > 1) {
    section.rows.back() = section.rows.back() + walk.Take(walk.Peek().size());
  }
}

}  // namespace

std::vector<RecordedSection> Sections(const std::vector<Bytes>& writes) {
  std::vector<RecordedSection> sections;
  for (Walk walk(writes); !walk.AtEnd();) {
    const Bytes& piece = walk.Peek();
    if (sections.empty() || (piece.size() == 1 && std::string("OHDMSB").find(static_cast<char>(
                                                      piece[0])) != std::string::npos)) {
      sections.push_back(TakeTitle(walk));
    } else if (IsSingle(piece, 'g')) {
      TakeRow(walk, sections.back());
    } else if (IsSingle(piece, 's')) {
      walk.Take(1);
      ++sections.back().endMarkers;
    } else if (piece.size() == 2) {
      const Bytes count = walk.Take(2);
      sections.back().announced = count[0] + 256 * count[1];
    } else if (piece.size() == 1 && piece[0] <= kLongestName) {
      sections.back().columns.push_back(TakeColumn(walk));
    } else {
      throw std::runtime_error("an unexpected piece: " + support::ToHex(piece));
    }
  }
  return sections;
}

std::string RecordedSection::Types() const {
  std::string types;
  for (const RecordedColumn& column : columns) types += column.type;
  return types;
}

std::string RecordedSection::Roles() const {
  std::string roles;
  for (const RecordedColumn& column : columns) roles += column.role;
  return roles;
}

std::string RecordedSection::Names() const {
  std::string names;
  for (const RecordedColumn& column : columns) {
    names += (names.empty() ? "" : " ") + column.name;
  }
  return names;
}

const RecordedColumn& RecordedSection::Column(const std::string& wanted) const {
  for (const RecordedColumn& column : columns) {
    if (column.name == wanted) return column;
  }
  throw std::runtime_error("no column " + wanted);
}

Bytes RecordedSection::Field(std::size_t row, const std::string& wanted) const {
  std::ptrdiff_t at = 0;
  for (const RecordedColumn& column : columns) {
    const auto begin = rows.at(row).begin() + at;
    if (column.name == wanted) return {begin, begin + column.width};
    at += column.width;
  }
  throw std::runtime_error("no column " + wanted);
}

}  // namespace k7test
