// Writes a stream in the driver's write calls, and tells what was found in it.
#pragma once

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "host/output/screen.h"
#include "host/reading/run_listener.h"
#include "host/stream/raw_file.h"

namespace host_test {

using host::Bytes;
using Pieces = std::vector<Bytes>;

Bytes Text(const std::string& characters);
Bytes Float(float value);
Bytes Date(unsigned year, unsigned char month, unsigned char day, unsigned char hour = 0,
           unsigned char minute = 0, unsigned char second = 0);
Bytes operator+(Bytes left, const Bytes& right);

// Each call adds pieces and returns the writer.
class StreamWriter {
 public:
  StreamWriter& Piece(const Bytes& piece);
  StreamWriter& TextRecord(const std::string& text);
  // Instrument "M", version "V1", number "7".
  StreamWriter& Title(char kind, const std::string& section, const Bytes& time = Date(2016, 9, 4));
  StreamWriter& Count(unsigned columns);
  // Caption: the name again; group "default".
  StreamWriter& Header(const std::string& name, char type, unsigned char width,
                       const std::string& unit = "u", const std::string& caption = "");
  // Columns "a", a float, and "b", a byte.
  StreamWriter& TwoColumns() { return Header("a", 'f', 4).Header("b", 'B', 1); }
  // A marker and the pieces of one row.
  StreamWriter& Row(const Pieces& pieces);
  StreamWriter& End() { return Piece({'s'}); }

  operator const Pieces&() const { return pieces_; }  // NOLINT: reads better where it is used

 private:
  Pieces pieces_;
};

// What a listener was told, a line for each call: "begin O ОВ a:f b:B /3", "row 1.5|2", "end"; a
// number after a slash is the announced number of columns.
class Told final : public host::RunListener {
 public:
  // text: gets the lines; throws: at each row.
  explicit Told(std::string& text, bool throws = false) : text_(text), throws_(throws) {}
  void BeginRun(const host::Run& run) override;
  void BeginSection(const host::Section& section) override;
  void AddRow(const host::Section& section, const host::Cells& cells) override;
  void EndSection(const host::Section& section) override;
  void Tell(const host::Message& message) override;
  void ShowProgress(const host::Progress& progress) override;
  void Keep() override;
  void EndRun(const host::RunEnd& end) override;

 private:
  void Add(const std::string& line) { text_ += line + '\n'; }

  std::string& text_;
  bool throws_;
};

// What a stream holds, told to its end.
std::string Decoded(const Pieces& pieces);

// A stream that was kept, without its file.
class PieceList final : public host::KeptPieces {
 public:
  explicit PieceList(Pieces pieces, std::string trouble = {})
      : pieces_(std::move(pieces)), trouble_(std::move(trouble)) {}
  bool Next(Bytes& piece) override {
    if (next_ == pieces_.size()) return false;
    piece = pieces_[next_++];
    return true;
  }
  const std::string& Trouble() const override { return trouble_; }

 private:
  Pieces pieces_;
  std::string trouble_;
  std::size_t next_ = 0;
};

// All pieces of a raw file; trouble: what the reader says at its end.
Pieces Loaded(const std::filesystem::path& path, std::string& trouble);

// A screen that keeps what it was told, in order: results as they are, errors in angle brackets.
class KeptScreen {
 public:
  explicit KeptScreen(bool terminal = false)
      : screen(
            terminal, [this](const std::string& result) { text += result; },
            [this](const std::string& error) { text += '<' + error + '>'; }) {}

  std::string text;
  host::Screen screen;
};

}  // namespace host_test
