#include "tests/host/stream_writer.h"

#include <cstring>
#include <stdexcept>

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
                                   const std::string& unit, const std::string& caption) {
  TextRecord(name).Piece({static_cast<unsigned char>(type)}).Piece({width}).TextRecord(unit);
  Piece({'d'}).TextRecord(caption.empty() ? name : caption);
  return TextRecord("default");
}

StreamWriter& StreamWriter::Row(const Pieces& pieces) {
  Piece({'g'});
  for (const Bytes& piece : pieces) Piece(piece);
  return *this;
}

void Told::BeginRun(const host::Run& run) { Add("begin run " + run.line); }

void Told::BeginSection(const host::Section& section) {
  std::string line = std::string("begin ") + host::SectionKey(section);
  line.pop_back();
  for (const host::Column& column : section.columns) {
    line += ' ' + column.name + ':' + static_cast<char>(column.type);
  }
  Add(section.announced ? line + " /" + std::to_string(*section.announced) : line);
}

void Told::AddRow(const host::Section&, const host::Cells& cells) {
  std::string line;
  for (const host::Cell& cell : cells) line += (line.empty() ? "row " : "|") + host::CellText(cell);
  Add(line);
  if (throws_) throw std::runtime_error("no space left");
}

void Told::EndSection(const host::Section&) { Add("end"); }

void Told::Tell(const host::Message& message) {
  Add(message.subject + ' ' + message.detail + ' ' + std::to_string(message.code));
}

void Told::ShowProgress(const host::Progress& progress) {
  Add(std::to_string(progress.percent) + " % " + progress.step);
}

void Told::Keep() { Add("keep"); }

void Told::EndRun(const host::RunEnd& end) {
  Add("end run " + std::to_string(end.counts.rows) + ' ' + end.reason);
}

std::string Decoded(const Pieces& pieces) {
  std::string text;
  Told told(text);
  host::Decoder decoder(told);
  for (const Bytes& piece : pieces) decoder.Take(piece);
  decoder.Finish();
  return text;
}

Pieces Loaded(const std::filesystem::path& path, std::string& trouble) {
  host::RawFileReader reader(path);
  Pieces pieces;
  for (Bytes piece; reader.Next(piece);) pieces.push_back(piece);
  trouble = reader.Trouble();
  return pieces;
}

}  // namespace host_test
