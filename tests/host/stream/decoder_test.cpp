#include "host/stream/decoder.h"

#include <doctest/doctest.h>

#include <random>

#include "tests/host/stream_writer.h"

using namespace host_test;

namespace {

// Two columns, five bytes.
StreamWriter& TwoColumns(StreamWriter& stream) {
  return stream.Header("a", 'f', 4).Header("b", 'B', 1);
}

StreamWriter FullStream() {
  StreamWriter stream;
  stream.Title('B', "\xCE\xC2").Count(2);
  TwoColumns(stream).Row({Float(1.5F) + Bytes{2}});
  stream.Title('H', "").Count(2);
  TwoColumns(stream).Row({Float(3), {4}}).Row({Float(5) + Bytes{6}}).End();
  return stream;
}

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) text += line + '\n';
  return text;
}

}  // namespace

TEST_CASE("sections are found by the write calls") {
  struct Case {
    const char* name;
    StreamWriter stream;
    Lines told;
  };
  std::vector<Case> cases;
  cases.push_back({"count, rows in one and in several pieces, with and without end",
                   FullStream(),
                   {"begin B ОВ a:f b:B /2", "row 1.5|2", "end", "begin H  a:f b:B /2", "row 3|4",
                    "row 5|6", "end"}});
  {
    StreamWriter stream;
    TwoColumns(stream.Title('O', "T")).Row({Float(1), {2}}).Title('M', "U").End();
    cases.push_back({"no count; a title ends a section; a section without columns",
                     stream,
                     {"begin O T a:f b:B", "row 1|2", "end", "begin M U", "end"}});
  }
  {
    StreamWriter stream;
    TwoColumns(stream.Title('D', "T").Count(9)).Row({Float(1) + Bytes{2, 0xAB, 0xCD}}).End();
    cases.push_back({"a layout that stopped early: what no column describes stays",
                     stream,
                     {"begin D T a:f b:B /9", "row 1|2|0xABCD", "end"}});
  }
  {
    StreamWriter stream;
    TwoColumns(stream.Title('B', "T")).Row({Float(1)}).Title('S', "L").Count(1);
    stream.Header("c", 'c', 3).Row({Text("abc")});
    cases.push_back({"a row that was cut short lacks its last values",
                     stream,
                     {"begin B T a:f b:B", "row 1|", "end", "begin S L c:c /1", "row abc", "end"}});
  }
  {
    StreamWriter stream;
    TwoColumns(stream.Title('H', "T")).Row({}).Row({Float(1), {2}}).Row({});
    cases.push_back({"a marker without its row", stream, {"begin H T a:f b:B", "row 1|2", "end"}});
  }
  {
    StreamWriter stream;
    stream.End().Title('O', "T").Header("a", 'B', 1).TextRecord("half").Piece({'f'});
    cases.push_back({"an end without a section; a header that was cut short",
                     stream,
                     {"begin O T a:B", "end"}});
  }
  {
    StreamWriter stream;
    stream.Piece({'H'}).TextRecord("M").Title('H', "T").Header("g", 'c', 103);
    stream.Row({Bytes(103, 'x')}).End();
    cases.push_back({"a title that was cut short; a row whose size is the marker's letter",
                     stream,
                     {"begin H T g:c", "row " + std::string(103, 'x'), "end"}});
  }
  for (const Case& item : cases) {
    INFO(item.name);
    CHECK(Joined(Decoded(item.stream)) == Joined(item.told));
  }
}

TEST_CASE("a row is told at a pause once it has all its bytes") {
  StreamWriter stream;
  TwoColumns(stream.Title('O', "T")).Row({Float(1)});
  Told told;
  host::Decoder decoder(told);
  for (const Bytes& piece : Pieces(stream)) decoder.Take(piece);
  decoder.Pause();
  CHECK(told.lines.size() == 1);
  decoder.Take(Bytes{2});
  decoder.Pause();
  CHECK(told.lines.back() == "row 1|2");
  decoder.Finish();
  CHECK(told.lines == Lines{"begin O T a:f b:B", "row 1|2", "end"});
}

TEST_CASE("a stream may end after any piece") {
  const Pieces pieces = FullStream();
  const Lines whole = Decoded(pieces);
  for (std::size_t length = 0; length <= pieces.size(); ++length) {
    CAPTURE(length);
    Lines told = Decoded({pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(length)});
    if (told.empty()) continue;
    CHECK(told.back() == "end");
    CHECK(told.size() <= whole.size());
  }
}

TEST_CASE("garbage harms nothing and the next title is found again") {
  std::mt19937 random(20160904);
  const Pieces good = FullStream();
  const Lines expected = Decoded(good);
  for (int round = 0; round < 3000; ++round) {
    Pieces pieces = good;
    for (int i = 0; i < 12; ++i) {
      Bytes noise(random() % 4 == 0 ? random() % 300 : random() % 3);
      for (unsigned char& byte : noise) byte = static_cast<unsigned char>(random());
      const auto place = static_cast<std::ptrdiff_t>(random() % pieces.size());
      pieces.insert(pieces.begin() + place, noise);
    }
    // A piece of no record's size ends any record that the noise began.
    pieces.push_back(Bytes(300, 0));
    pieces.insert(pieces.end(), good.begin(), good.end());
    const Lines told = Decoded(pieces);
    REQUIRE(told.size() >= expected.size());
    const auto last = told.end() - static_cast<std::ptrdiff_t>(expected.size());
    CHECK(Lines(last, told.end()) == expected);
  }
}

TEST_CASE("values have their column's type") {
  struct Case {
    char type;
    Bytes bytes;
    const char* text;
  };
  const Case cases[] = {
      {'f', Float(0.1F), "0.1"},
      {'f', {0, 0, 0xC0, 0x7F}, "nan"},
      {'f', {1, 2}, "0x0102"},
      {'d', {0, 0, 0, 0, 0, 0, 0xF8, 0x3F}, "1.5"},
      {'L', {0xFF, 0xFF, 0xFF, 0xFF}, "4294967295"},
      {'t', Date(2016, 9, 4, 13, 5, 9), "2016-09-04 13:05:09"},
      {'t', Date(1, 1, 1, 13, 5), "13:05:00"},
      {'t', Date(1, 4, 15), "04-15"},
      {'c', Text("\xD2\xC2\x31  ") + Bytes{0, 'x'}, "ТВ1"},
      {'c', {5, 0, 1, 0, 0}, "0x050001"},
      {'?', {1, 0xFE}, "0x01FE"},
  };
  for (const Case& item : cases) {
    CAPTURE(item.text);
    host::Column column;
    column.type = static_cast<tav::Type>(item.type);
    column.width = static_cast<unsigned char>(item.bytes.size());
    CHECK(host::CellText(host::DecodeCell(column, item.bytes)) == item.text);
  }
}
