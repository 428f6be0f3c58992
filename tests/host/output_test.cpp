#include <doctest/doctest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "host/output/csv.h"
#include "host/output/csv_folder.h"
#include "host/output/follow_printer.h"
#include "host/output/show.h"
#include "host/stream/code_page.h"
#include "tests/host/scratch_folder.h"
#include "tests/host/stream_writer.h"

using namespace host_test;

namespace {

constexpr const char* kSystem1 = "\xD2\xC2\x31";  // "ТВ1" in code page 1251

// A date key, a unit, a caption and a text that needs quotes.
StreamWriter& AddHours(StreamWriter& stream, unsigned char rows) {
  stream.Title('H', kSystem1).Header("DT", 't', 7, "", 'I').Header("t1", 'f', 4, "'C, m");
  stream.Header("NS", 'c', 4, "", 'd', "\xCD\xD1");
  for (unsigned char i = 0; i < rows; ++i) {
    stream.Row({Date(2016, 9, 4, i) + Float(0.1F * static_cast<float>(i)) + Text("a,\"b")});
  }
  return stream.End();
}

StreamWriter& AddCurrent(StreamWriter& stream, float value, unsigned char second) {
  stream.Title('O', "", Date(2016, 9, 4, 13, 5, second)).Header("Q", 'f', 4, "kW");
  return stream.Row({Float(value)});
}

std::string Shown(StreamWriter stream, const host::ShowSettings& settings) {
  return host::ShowSections(Kept(stream.Pieces()), settings);
}

}  // namespace

TEST_CASE("CSV quotes what needs it and names captions and units") {
  StreamWriter stream;
  CHECK(Shown(AddHours(stream, 2), {host::Format::kCsv, 0, "", ""}) ==
        "# hours ТВ1: M V1, number 7, clock 2016-09-04 00:00:00\n"
        "DT,\"t1, 'C, m\",NS (НС)\n"
        "2016-09-04 00:00:00,0,\"a,\"\"b\"\n"
        "2016-09-04 01:00:00,0.1,\"a,\"\"b\"\n");
}

TEST_CASE("long tables show their first and last rows") {
  StreamWriter stream;
  CHECK(Shown(AddHours(stream, 6), {host::Format::kTable, 3, "", ""}) ==
        "hours ТВ1: M V1, number 7, clock 2016-09-04 00:00:00 (6 rows)\n"
        "  DT                      t1    NS\n"
        "                       'C, m\n"
        "  2016-09-04 00:00:00      0  a,\"b\n"
        "  2016-09-04 01:00:00    0.1  a,\"b\n"
        "  ... 3 more ...\n"
        "  2016-09-04 05:00:00    0.5  a,\"b\n");
}

TEST_CASE("one row of current values is a list") {
  StreamWriter stream;
  stream.Title('O', "").Header("Q", 'f', 4, "kW", 'd', "\xCD\xD1").Header("b", 'B', 1, "b");
  stream.Row({Float(2.5F) + Bytes{1, 0xFF}});
  CHECK(Shown(stream, {host::Format::kTable, 3, "", ""}) ==
        "current: M V1, number 7, clock 2016-09-04 00:00:00\n"
        "  Q            2.5   kW  НС\n"
        "  b            1\n"
        "  undescribed  0xFF\n");
}

TEST_CASE("JSON keeps single precision short and has no numbers that JSON lacks") {
  StreamWriter stream;
  stream.Title('O', "").Header("a", 'f', 4).Header("a", 'f', 4).Header("n", 'f', 4);
  stream.Row({Float(0.1F) + Float(std::numeric_limits<float>::infinity())});
  const auto json = nlohmann::json::parse(Shown(stream, {host::Format::kJson, 0, "failed", "why"}));
  CHECK(json["result"] == "failed");
  CHECK(json["reason"] == "why");
  CHECK(json["sections"][0]["columns"][2]["name"] == "n");
  CHECK(json["sections"][0]["rows"].dump() == R"([{"a":0.1,"a#2":null,"n":null}])");
}

TEST_CASE("a folder gets a file per section, and sections that come again go on in theirs") {
  const ScratchFolder scratch;
  StreamWriter stream;
  AddCurrent(AddHours(AddCurrent(stream, 1, 1), 1), 2, 2);
  host::CsvFolder folder(scratch / "out");
  Feed(stream.Pieces(), folder);
  CHECK(scratch.Load("out/01-current.csv") ==
        "clock,\"Q, kW\"\n2016-09-04 13:05:01,1\n2016-09-04 13:05:02,2\n");
  CHECK(scratch.Load("out/02-hours-tv1.csv") ==
        "DT,\"t1, 'C, m\",NS (НС)\n2016-09-04 00:00:00,0,\"a,\"\"b\"\n");
  CHECK(scratch.Load("out/index.csv") ==
        "file,kind,section,model,version,number,clock\n"
        "01-current.csv,current,,M,V1,7,2016-09-04 13:05:01\n"
        "02-hours-tv1.csv,hours,ТВ1,M,V1,7,2016-09-04 00:00:00\n");
  scratch.Save("file", "");
  CHECK_THROWS_AS(host::CsvFolder(scratch / "file"), std::runtime_error);
}

TEST_CASE("rows that are followed get a heading when their section changes") {
  StreamWriter stream;
  AddHours(AddCurrent(AddCurrent(AddCurrent(stream, 1, 1), 2, 2), 2, 2), 1);
  struct Case {
    host::Format format;
    const char* text;
  };
  const Case cases[] = {
      {host::Format::kCsv,
       "clock,\"Q, kW\"\n2016-09-04 13:05:01,1\n2016-09-04 13:05:02,2\n\n"
       "DT,\"t1, 'C, m\",NS (НС)\n2016-09-04 00:00:00,0,\"a,\"\"b\"\n"},
      {host::Format::kJson,
       "{\"kind\":\"current\",\"section\":\"\",\"clock\":\"2016-09-04 13:05:01\",\"Q\":1.0}\n"
       "{\"kind\":\"current\",\"section\":\"\",\"clock\":\"2016-09-04 13:05:02\",\"Q\":2.0}\n"
       "{\"kind\":\"hours\",\"section\":\"ТВ1\",\"clock\":\"2016-09-04 00:00:00\","
       "\"DT\":\"2016-09-04 00:00:00\",\"t1\":0.0,\"NS\":\"a,\\\"b\"}\n"},
  };
  for (const Case& item : cases) {
    std::string text;
    host::FollowPrinter printer(item.format, [&](const std::string& piece) { text += piece; });
    Feed(stream.Pieces(), printer);
    CHECK(text == item.text);
  }
}

TEST_CASE("texts of code page 1251 become UTF-8 and file names") {
  CHECK(host::Utf8FromCp1251("\xC0\xFF\xA8\xB8\xB9\x98\n\x88") == "АяЁё№��€");
  CHECK(host::AsciiSlug("ТВ1 Изменения/№") == "tv1-izmeneniya");
  CHECK(host::AsciiSlug("ОБЩ Электропитание") == "obsch-elektropitanie");
  CHECK(host::AsciiSlug("../..") == "");
}
