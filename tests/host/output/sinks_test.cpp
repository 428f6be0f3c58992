// What the sinks make of a stream, chosen as the commands choose them.
#include "host/output/sinks.h"

#include <doctest/doctest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "host/output/json_document.h"
#include "host/reading/kept_stream.h"
#include "tests/host/scratch_folder.h"
#include "tests/host/stream_writer.h"

using namespace host_test;
using host::Format;

namespace {

// A date key, a unit, a caption and a text that needs quotes.
StreamWriter& AddHours(StreamWriter& stream, unsigned char rows) {
  stream.Title('H', "\xD2\xC2\x31").Header("DT", 't', 7, "").Header("t1", 'f', 4, "'C, m");
  stream.Header("NS", 'c', 4, "", "\xCD\xD1");
  for (unsigned char i = 0; i < rows; ++i) {
    stream.Row({Date(2016, 9, 4, i) + Float(0.1F * static_cast<float>(i)) + Text("a,\"b")});
  }
  return stream.End();
}

StreamWriter& AddCurrent(StreamWriter& stream, float value, unsigned char second) {
  stream.Title('O', "", Date(2016, 9, 4, 13, 5, second)).Header("Q", 'f', 4, "kW");
  return stream.Row({Float(value)});
}

Pieces Hours(unsigned char rows) {
  StreamWriter stream;
  return AddHours(stream, rows);
}

// A row whose end no column describes.
StreamWriter Odd() {
  StreamWriter stream;
  stream.Title('O', "").Count(3).Header("Q", 'f', 4, "kW", "\xCD\xD1").Header("b", 'B', 1, "b");
  return stream.Row({Float(2.5F) + Bytes{1, 0xFF}});
}

// Current values that come again, twice the same, and hours.
Pieces Followed() {
  StreamWriter stream;
  return AddHours(AddCurrent(AddCurrent(AddCurrent(stream, 1, 1), 2, 2), 2, 2), 1);
}

host::SinkOptions Options(Format format, std::size_t rows, bool follow = false) {
  host::SinkOptions options;
  options.format = format;
  options.rows = rows;
  options.follow = follow;
  return options;
}

std::string Shown(const Pieces& pieces, const host::SinkOptions& options) {
  KeptScreen kept;
  PieceList stream(pieces);
  host::RunKeptStream(stream, "", *host::MakeSinks(options, kept.screen));
  return kept.text;
}

}  // namespace

TEST_CASE("what is shown of a stream") {
  const std::string hours = "hours ТВ1: M V1, number 7, clock 2016-09-04 00:00:00";
  const std::string current = "current: M V1, number 7, clock 2016-09-04 00:00:00";
  const std::string twoHours =
      "  DT                      t1    NS\n"
      "                       'C, m\n"
      "  2016-09-04 00:00:00      0  a,\"b\n"
      "  2016-09-04 01:00:00    0.1  a,\"b\n";
  struct Case {
    const char* name;
    Pieces pieces;
    host::SinkOptions options;
    std::string text;
  };
  const Case cases[] = {
      {"CSV quotes what needs it and names captions and units", Hours(2), Options(Format::kCsv, 0),
       "# " + hours +
           "\nDT,\"t1, 'C, m\",NS (НС)\n"
           "2016-09-04 00:00:00,0,\"a,\"\"b\"\n2016-09-04 01:00:00,0.1,\"a,\"\"b\"\n"},
      {"long tables show their first and last rows", Hours(6), Options(Format::kTable, 3),
       hours + " (6 rows)\n" + twoHours +
           "  ... 3 more ...\n  2016-09-04 05:00:00    0.5  a,\"b\n"},
      {"a table that just fits", Hours(2), Options(Format::kTable, 2),
       hours + " (2 rows)\n" + twoHours},
      {"one row of current values is a list", Odd(), Options(Format::kTable, 3),
       current + "\n  Q            2.5   kW  НС\n  b            1\n  undescribed  0xFF\n"},
      {"rows of unlike length as CSV", Odd().Row({Float(2)}), Options(Format::kCsv, 0),
       "# " + current +
           "\nclock,\"Q (НС), kW\",b,undescribed bytes\n"
           "2016-09-04 00:00:00,2.5,1,0xFF\n2016-09-04 00:00:00,2,\n"},
      {"rows of unlike length as a table", Odd().Row({Float(2)}), Options(Format::kTable, 0),
       current + " (2 rows)\n  Q    b\n  kW\n  2.5  1  0xFF\n  2\n"},
      {"followed as CSV", Followed(), Options(Format::kCsv, 0, true),
       "clock,\"Q, kW\"\n2016-09-04 13:05:01,1\n2016-09-04 13:05:02,2\n\n"
       "DT,\"t1, 'C, m\",NS (НС)\n2016-09-04 00:00:00,0,\"a,\"\"b\"\n"},
      {"followed as JSON", Followed(), Options(Format::kJson, 0, true),
       "{\"kind\":\"current\",\"section\":\"\",\"clock\":\"2016-09-04 13:05:01\",\"Q\":1.0}\n"
       "{\"kind\":\"current\",\"section\":\"\",\"clock\":\"2016-09-04 13:05:02\",\"Q\":2.0}\n"
       "{\"kind\":\"hours\",\"section\":\"ТВ1\",\"clock\":\"2016-09-04 00:00:00\","
       "\"DT\":\"2016-09-04 00:00:00\",\"t1\":0.0,\"NS\":\"a,\\\"b\"}\n"},
      {"followed as a table", Odd(), Options(Format::kTable, 0, true),
       current + "\nclock                          Q            b\n" + std::string(30, ' ') +
           "kW            b\n2016-09-04 00:00:00          2.5            1  0xFF\n"},
      {"no section as JSON", {}, Options(Format::kJson, 0), "{\n \"sections\": []\n}\n"},
  };
  for (const Case& item : cases) {
    INFO(item.name);
    CHECK(Shown(item.pieces, item.options) == item.text);
  }
}

TEST_CASE("JSON keeps single precision short and has no numbers that JSON lacks") {
  StreamWriter stream;
  stream.Title('O', "").Header("a", 'f', 4).Header("a", 'd', 4).Header("n", '\xFF', 4);
  stream.Row({Float(0.1F) + Float(1) + Float(2), {1}});
  stream.Row({Float(std::numeric_limits<float>::infinity())}).Row({Float(1e30F)});
  KeptScreen kept;
  host::JsonDocument document(kept.screen);
  document.BeginRun({host::ReadSettings{}, "", {}});
  host::Decoder decoder(document);
  for (const Bytes& piece : Pieces(stream)) decoder.Take(piece);
  decoder.Finish();
  document.EndRun({host::Ending::kFailed, "why\xFF", {}});
  const auto json = nlohmann::ordered_json::parse(kept.text);
  CHECK(json.dump(1) + '\n' == kept.text);
  CHECK(json["result"] == "failed");
  CHECK(json["reason"] == "why�");
  CHECK(
      json["sections"][0]["columns"][2].dump() ==
      R"({"name":"n","type":"я","width":4,"unit":"u","role":"d","caption":"n","group":"default"})");
  CHECK(json["sections"][0]["rows"].dump() ==
        R"([{"a":0.1,"a#2":"0x0000803F","n":"0x00000040","undescribed":"0x01"},)"
        R"({"a":null,"a#2":null,"n":null},{"a":1e+30}])");
}

TEST_CASE("every format costs in proportion to its input") {
  StreamWriter stream;
  stream.Title('H', "");
  for (int i = 0; i < 3000; ++i) stream.Header("a", 'B', i % 2 == 0 ? 0 : 1);
  for (int i = 0; i < 3000; ++i) stream.Row({{1, 1}});
  stream.Row({Bytes(20000, 7)}).Title('H', "").Header("a", 'B', 1);
  for (int i = 0; i < 1000; ++i) stream.Row({Bytes(i == 0 ? 20000 : 2, 7)});
  for (const Format format : {Format::kTable, Format::kCsv, Format::kJson}) {
    CHECK(Shown(stream, Options(format, 0)).size() < 4'000'000);  // for about 100 KB
    CHECK(Shown(stream, Options(format, 0, true)).size() < 4'000'000);
  }
}

TEST_CASE("a folder gets a file per section, and sections that come again go on in theirs") {
  const ScratchFolder scratch;
  StreamWriter stream;
  AddCurrent(AddHours(AddCurrent(stream, 1, 1), 1), 2, 2);
  for (int i = 0; i < 60; ++i) stream.Title('M', std::to_string(i)).End();
  host::SinkOptions options;
  options.out = (scratch / "out").string();
  options.raw = (scratch / "raw").string();
  Shown(stream, options);
  CHECK(scratch.Load("out/01-current.csv") ==
        "clock,\"Q, kW\"\n2016-09-04 13:05:01,1\n2016-09-04 13:05:02,2\n");
  CHECK(scratch.Load("out/02-hours-tv1.csv") ==
        "DT,\"t1, 'C, m\",NS (НС)\n2016-09-04 00:00:00,0,\"a,\"\"b\"\n");
  CHECK(scratch.Load("out/62-months-59.csv") == "\n");
  CHECK(scratch.Load("out/index.csv")
            .starts_with("file,kind,section,model,version,number,clock\n"
                         "01-current.csv,current,,M,V1,7,2016-09-04 13:05:01\n"
                         "02-hours-tv1.csv,hours,ТВ1,M,V1,7,2016-09-04 00:00:00\n"
                         "03-months-0.csv,months,0,"));
  std::string trouble;
  CHECK(host_test::Loaded(scratch / "raw", trouble) == Pieces(stream));
  scratch.Save("file", "");
  options.out = (scratch / "file").string();
  CHECK_THROWS_AS(Shown(stream, options), std::runtime_error);
}

TEST_CASE("what is shown is kept first, and rows show at the next moment of keeping") {
  const ScratchFolder scratch;
  KeptScreen kept;
  host::SinkOptions options = Options(Format::kCsv, 0, true);
  options.out = (scratch / "out").string();
  const auto sinks = host::MakeSinks(options, kept.screen);
  host::Decoder decoder(*sinks);
  StreamWriter stream;
  for (const Bytes& piece : Pieces(AddCurrent(stream, 1, 1))) decoder.Take(piece);
  decoder.Pause();
  CHECK(kept.text == "");
  sinks->Keep();
  CHECK(kept.text == "clock,\"Q, kW\"\n2016-09-04 13:05:01,1\n");
  CHECK(scratch.Load("out/01-current.csv") == kept.text);
}

TEST_CASE("progress is told in tens and steps, or drawn") {
  for (const bool terminal : {false, true}) {
    KeptScreen kept(terminal);
    host::SinkOptions options;
    options.verbose = true;
    const auto sinks = host::MakeSinks(options, kept.screen);
    for (const auto& [percent, step] : {std::pair{0, ""},
                                        {3, "hours: 01"},
                                        {9, "hours: 02"},
                                        {13, "hours: 03"},
                                        {20, "hours"},
                                        {20, "days"},
                                        {21, "days"},
                                        {-1, "days: 1"},
                                        {101, "days: 1"}}) {
      sinks->ShowProgress({percent, step});
    }
    kept.screen.PrintResult("result");
    sinks->Tell({"OK", "ReadStop"});
    sinks->Tell({"", "", 1});
    sinks->EndRun({});
    if (terminal) {
      CHECK(
          kept.text.ends_with("<\r\x1b[K><[##############################] 100 %  days: 1>"
                              "<\r\x1b[K>result<ReadStop: OK\n>"
                              "<[##############################] 100 %  days: 1><\r\x1b[K>"));
      CHECK(kept.text.find("[###...........................]  13 %  hours: 03>") !=
            std::string::npos);
    } else {
      CHECK(kept.text ==
            "<  3 %  hours: 01\n>< 13 %  hours: 03\n>< 20 %  hours\n>< 20 %  days\n>"
            "<100 %  days: 1\n>result<ReadStop: OK\n>");
    }
  }
}
