// Writes a stream in the driver's write calls, and tells what was found in it.
#pragma once

#include <string>
#include <vector>

#include "host/stream/section.h"

namespace host_test {

using host::Bytes;

Bytes Text(const std::string& characters);
Bytes Float(float value);
Bytes Date(unsigned year, unsigned char month, unsigned char day, unsigned char hour = 0,
           unsigned char minute = 0, unsigned char second = 0);
Bytes operator+(Bytes left, const Bytes& right);

// Each call adds pieces and answers the writer.
class StreamWriter {
 public:
  StreamWriter& Piece(const Bytes& piece);
  StreamWriter& TextRecord(const std::string& text);
  // Instrument "M", version "V1", number "7".
  StreamWriter& Title(char kind, const std::string& section, const Bytes& time = Date(2016, 9, 4));
  StreamWriter& Count(unsigned columns);
  StreamWriter& Header(const std::string& name, char type, unsigned char width,
                       const std::string& unit = "u", char role = 'd',
                       const std::string& caption = "", const std::string& group = "default");
  // A marker and the pieces of one row.
  StreamWriter& Row(const std::vector<Bytes>& pieces);
  StreamWriter& End();

  const std::vector<Bytes>& Pieces() const { return pieces_; }

 private:
  std::vector<Bytes> pieces_;
};

// What a listener was told, a line for each call: "begin O ОВ a:f b:B /3", "row 1.5|2", "end"; a
// number after a slash is the announced number of columns.
class Told final : public host::SectionListener {
 public:
  void Begin(const host::Section& section) override;
  void AddRow(const host::Section& section, host::ByteView row) override;
  void End(const host::Section& section) override;

  std::vector<std::string> lines;
};

// Decodes the pieces to their end.
void Feed(const std::vector<Bytes>& pieces, host::SectionListener& listener);
std::vector<std::string> Decoded(const std::vector<Bytes>& pieces);

// The sections that the pieces hold.
std::vector<host::KeptSection> Kept(const std::vector<Bytes>& pieces);

}  // namespace host_test
