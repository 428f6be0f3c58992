#include "host/stream/decoder.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <random>

#include "tests/host/stream_writer.h"

using namespace host_test;

namespace {

StreamWriter FullStream() {
  StreamWriter stream;
  stream.Title('B', "\xCE\xC2").Count(2).TwoColumns().Row({Float(1.5F) + Bytes{2}});
  stream.Title('H', "").Count(2).TwoColumns();
  return stream.Row({Float(3), {4}}).Row({Float(5) + Bytes{6}}).End();
}

}  // namespace

TEST_CASE("sections are found by the write calls") {
  struct Case {
    const char* name;
    StreamWriter stream;
    std::string told;
  };
  StreamWriter count, early, cut, marker, header, title, columns;
  columns.Title('O', "T").Header("z", 'c', 0);
  for (int i = 0; i < 1030; ++i) columns.Header("a", 'B', 1);
  const Case cases[] = {
      {"count, rows in one and in several pieces, with and without end", FullStream(),
       "begin BОВ a:f b:B /2\nrow 1.5|2\nend\nbegin H a:f b:B /2\nrow 3|4\nrow 5|6\nend\n"},
      {"no count; a title ends a section; a section without columns",
       count.Title('O', "T").TwoColumns().Row({Float(1), {2}}).Title('M', "U").End(),
       "begin OT a:f b:B\nrow 1|2\nend\nbegin MU\nend\n"},
      {"a layout that stopped early: what no column describes stays",
       early.Title('D', "T").Count(9).TwoColumns().Row({Float(1) + Bytes{2, 0xAB, 0xCD}}).End(),
       "begin DT a:f b:B /9\nrow 1|2|0xABCD\nend\n"},
      {"a row that was cut short lacks its last values",
       cut.Title('B', "T").TwoColumns().Row({Float(1)}).Title('S', "L").Count(1).Row({Text("a")}),
       "begin BT a:f b:B\nrow 1|\nend\nbegin SL /1\nrow 0x61\nend\n"},
      {"a marker without its row",
       marker.Title('H', "T").TwoColumns().Row({}).Row({Float(1), {2}}).Row({}),
       "begin HT a:f b:B\nrow 1|2\nend\n"},
      {"an end without a section; a header that was cut short",
       header.End().Title('O', "T").Header("a", 'B', 1).TextRecord("half").Piece({'f'}),
       "begin OT a:B\nend\n"},
      {"a title that was cut short; a row whose size is the marker's letter",
       title.Piece({'H'})
           .TextRecord("M")
           .Title('H', "T")
           .Header("g", 'c', 103)
           .Row({Bytes(103, 'x')}),
       "begin HT g:c\nrow " + std::string(103, 'x') + "\nend\n"},
  };
  for (const Case& item : cases) {
    INFO(item.name);
    CHECK(Decoded(item.stream) == item.told);
  }
  // Columns without a byte, or more than any instrument has, are left out.
  const std::string most = Decoded(columns);
  CHECK(std::count(most.begin(), most.end(), ':') == host::Decoder::kMostColumns);
  CHECK(most.find("z:") == std::string::npos);
}

TEST_CASE("a row is told at a pause once it has all its bytes") {
  StreamWriter stream;
  std::string told;
  Told listener(told);
  host::Decoder decoder(listener);
  for (const Bytes& piece : Pieces(stream.Title('O', "T").TwoColumns().Row({Float(1)}))) {
    decoder.Take(piece);
  }
  decoder.Pause();
  CHECK(told == "begin OT a:f b:B\n");
  decoder.Take(Bytes{2});
  decoder.Pause();
  CHECK(told == "begin OT a:f b:B\nrow 1|2\n");
  decoder.Finish();
  CHECK(told == "begin OT a:f b:B\nrow 1|2\nend\n");
}

TEST_CASE("a stream may end after any piece") {
  const Pieces pieces = FullStream();
  const std::string whole = Decoded(pieces);
  for (std::size_t length = 0; length <= pieces.size(); ++length) {
    CAPTURE(length);
    const std::string told =
        Decoded({pieces.begin(), pieces.begin() + static_cast<std::ptrdiff_t>(length)});
    CHECK((told.empty() || told.ends_with("end\n")));
    CHECK(told.size() <= whole.size());
  }
}

TEST_CASE("garbage harms nothing and the next title is found again") {
  std::mt19937 random(20160904);
  const Pieces good = FullStream();
  const std::string expected = Decoded(good);
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
    CHECK(Decoded(pieces).ends_with(expected));
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
