#include "tests/support/sections.h"

#include <cstdio>
#include <cstring>
#include <stdexcept>

namespace support {
namespace {

class Reader {
 public:
  explicit Reader(const std::vector<Bytes>& writes) : writes_(writes) {}

  bool More() const { return next_ < writes_.size(); }
  const Bytes& Peek() const { return writes_.at(next_); }
  const Bytes& Take() { return writes_.at(next_++); }
  bool Is(std::size_t size, char first) const {
    return More() && Peek().size() == size && Peek()[0] == static_cast<std::uint8_t>(first);
  }
  // A length byte and the characters, two writes.
  std::string Text() {
    const std::size_t length = One();
    const Bytes& characters = Take();
    if (characters.size() != length) Fail();
    return {characters.begin(), characters.end()};
  }
  std::uint8_t One() {
    const Bytes& byte = Take();
    if (byte.size() != 1) Fail();
    return byte[0];
  }
  // Whether a title begins here: a kind, and six writes on its seven bytes of time.
  bool AtTitle() const {
    return next_ + 9 < writes_.size() && Peek().size() == 1 &&
           std::strchr("OHDMSB", Peek()[0]) != nullptr && writes_[next_ + 9].size() == 7;
  }
  [[noreturn]] void Fail() const {
    throw std::runtime_error("write " + std::to_string(next_) + " is out of place");
  }

 private:
  const std::vector<Bytes>& writes_;
  std::size_t next_ = 0;
};

Section Title(Reader& reader) {
  Section section;
  section.kind = static_cast<char>(reader.One());
  section.model = reader.Text();
  section.version = reader.Text();
  section.number = reader.Text();
  section.title = reader.Text();
  section.time = reader.Take();
  return section;
}

HeaderRecord Header(Reader& reader) {
  HeaderRecord header;
  header.name = reader.Text();
  header.type = static_cast<char>(reader.One());
  header.width = reader.One();
  header.unit = reader.Text();
  header.role = static_cast<char>(reader.One());
  header.caption = reader.Text();
  header.group = reader.Text();
  return header;
}

bool AtEdge(const Reader& reader) {
  return !reader.More() || reader.Is(1, 'g') || reader.Is(1, 's') || reader.AtTitle();
}

void Rows(Reader& reader, Section& section) {
  while (reader.Is(1, 'g')) {
    reader.Take();
    section.rows.emplace_back();
    while (!AtEdge(reader)) section.rows.back().push_back(reader.Take());
  }
}

template <typename T>
double As(const Bytes& bytes) {
  T value{};
  if (bytes.size() != sizeof value) throw std::out_of_range("another width");
  std::memcpy(&value, bytes.data(), sizeof value);
  return static_cast<double>(value);
}

}  // namespace

std::vector<Section> TakeApart(const std::vector<Bytes>& writes) {
  std::vector<Section> sections;
  Reader reader(writes);
  while (reader.More()) {
    if (!reader.AtTitle()) reader.Fail();
    Section section = Title(reader);
    if (reader.More() && reader.Peek().size() == 2) {
      const Bytes& count = reader.Take();
      section.announced = count[0] + 256 * count[1];
    }
    while (!AtEdge(reader)) section.columns.push_back(Header(reader));
    Rows(reader, section);
    if (reader.Is(1, 's')) {
      reader.Take();
      section.ended = true;
    }
    sections.push_back(std::move(section));
  }
  return sections;
}

Bytes Section::Row(std::size_t row) const {
  Bytes whole;
  for (const Bytes& piece : rows.at(row)) whole = whole + piece;
  return whole;
}

Bytes Section::Cell(std::size_t row, const std::string& column) const {
  const Bytes bytes = Row(row);
  std::size_t offset = 0;
  for (const HeaderRecord& header : columns) {
    const auto width = static_cast<std::size_t>(header.width);
    if (header.name == column) {
      if (offset + width > bytes.size()) throw std::out_of_range("a short row");
      const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(offset);
      return {begin, begin + header.width};
    }
    offset += width;
  }
  throw std::out_of_range("no column " + column);
}

double Section::Number(std::size_t row, const std::string& column) const {
  const Bytes cell = Cell(row, column);
  switch (Column(column).type) {
    case 'f':
      return As<float>(cell);
    case 'd':
      return As<double>(cell);
    case 'L':
      return As<std::uint32_t>(cell);
    case 'S':
      return As<std::uint16_t>(cell);
    default:
      return As<std::uint8_t>(cell);
  }
}

std::string Section::Date(std::size_t row, const std::string& column) const {
  const Bytes cell = Cell(row, column);
  char text[32];
  std::snprintf(text, sizeof text, "%04d-%02d-%02d %02d:%02d:%02d", cell[0] + 256 * cell[1],
                cell[2], cell[3], cell[4], cell[5], cell[6]);
  return text;
}

const HeaderRecord& Section::Column(const std::string& name) const {
  for (const HeaderRecord& header : columns) {
    if (header.name == name) return header;
  }
  throw std::out_of_range("no column " + name);
}

}  // namespace support
