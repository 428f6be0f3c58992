#include "tests/host/stream_writer.h"

#include <cstring>

#include "host/stream/decoder.h"

namespace host_test {

Bytes Text(const std::string& characters) { return {characters.begin(), characters.end()}; }

Bytes Float(float value) {
  Bytes bytes(sizeof value);
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

Bytes Date(unsigned year, unsigned char month, unsigned char day, unsigned char hour,
           unsigned char minute, unsigned char second) {
  return {static_cast<unsigned char>(year),
          static_cast<unsigned char>(year >> 8U),
          month,
          day,
          hour,
          minute,
          second};
}

Bytes operator+(Bytes left, const Bytes& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

StreamWriter& StreamWriter::Piece(const Bytes& piece) {
  pieces_.push_back(piece);
  return *this;
}

StreamWriter& StreamWriter::TextRecord(const std::string& text) {
  return Piece({static_cast<unsigned char>(text.size())}).Piece(Text(text));
}

StreamWriter& StreamWriter::Title(char kind, const std::string& section, const Bytes& time) {
  Piece({static_cast<unsigned char>(kind)}).TextRecord("M").TextRecord("V1").TextRecord("7");
  return TextRecord(section).Piece(time);
}

StreamWriter& StreamWriter::Count(unsigned columns) {
  return Piece({static_cast<unsigned char>(columns), static_cast<unsigned char>(columns >> 8U)});
}

StreamWriter& StreamWriter::Header(const std::string& name, char type, unsigned char width,
                                   const std::string& unit, char role, const std::string& caption) {
  TextRecord(name).Piece({static_cast<unsigned char>(type)}).Piece({width}).TextRecord(unit);
  Piece({static_cast<unsigned char>(role)}).TextRecord(caption.empty() ? name : caption);
  return TextRecord("default");
}

StreamWriter& StreamWriter::Row(const Pieces& pieces) {
  Piece({'g'});
  for (const Bytes& piece : pieces) Piece(piece);
  return *this;
}

StreamWriter& StreamWriter::End() { return Piece({'s'}); }

void Told::BeginSection(const host::Section& section) {
  std::string line =
      std::string("begin ") + static_cast<char>(section.title.kind) + ' ' + section.title.section;
  for (const host::Column& column : section.columns) {
    line += ' ' + column.name + ':' + static_cast<char>(column.type);
  }
  if (section.announced) line += " /" + std::to_string(*section.announced);
  lines.push_back(line);
}

void Told::AddRow(const host::Section&, const host::Cells& cells) {
  std::string line;
  for (const host::Cell& cell : cells) line += (line.empty() ? "row " : "|") + host::CellText(cell);
  lines.push_back(line);
}

void Told::EndSection(const host::Section&) { lines.push_back("end"); }

Lines Decoded(const Pieces& pieces) {
  Told told;
  host::Decoder decoder(told);
  for (const Bytes& piece : pieces) decoder.Take(piece);
  decoder.Finish();
  return told.lines;
}

}  // namespace host_test
