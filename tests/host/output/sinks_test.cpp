// What the sinks make of a stream, chosen as the commands choose them.
#include "host/output/sinks.h"

#include <doctest/doctest.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "host/output/progress_display.h"
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

// Current values that come again, and hours.
Pieces Followed() {
  StreamWriter stream;
  return AddHours(AddCurrent(AddCurrent(stream, 1, 1), 2, 2), 1);
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
  const std::string times = "times: instrument clock, no zone\n";
  const std::string hours = "hours ТВ1: M V1, number 7, clock 2016-09-04 00:00:00";
  const std::string current = "current: M V1, number 7, clock 2016-09-04 00:00:00";
  const std::string twoHours =
      "  DT                      t1    NS\n"
      "                       'C, m\n"
      "  2016-09-04 00:00:00      0  a,\"b\n"
      "  2016-09-04 01:00:00    0.1  a,\"b\n";
  host::SinkOptions excel = Options(Format::kCsv, 0);
  excel.dialect = host::kExcelRuCsv;
  struct Case {
    const char* name;
    Pieces pieces;
    host::SinkOptions options;
    std::string text;
  };
  const Case cases[] = {
      {"CSV quotes what needs it and tells the driver's names", Hours(2), Options(Format::kCsv, 0),
       "# " + times + "\n# " + hours +
           "\n# DT,\"t1, 'C, m\",NS (НС)\nx_dt,x_t1,x_ns\n"
           "2016-09-04 00:00:00,0,\"a,\"\"b\"\n2016-09-04 01:00:00,0.1,\"a,\"\"b\"\n"},
      {"CSV for a spreadsheet set to Russian", Hours(2), excel,
       "\xEF\xBB\xBF# times: instrument clock, no zone\r\n\r\n# " + hours +
           "\r\n# DT;t1, 'C, m;NS (НС)\r\nx_dt;x_t1;x_ns\r\n"
           "2016-09-04 00:00:00;0;\"a,\"\"b\"\r\n2016-09-04 01:00:00;0,1;\"a,\"\"b\"\r\n"},
      {"long tables show their first and last rows", Hours(6), Options(Format::kTable, 3),
       hours + " (6 rows)\n" + twoHours +
           "  ... 3 more ...\n  2016-09-04 05:00:00    0.5  a,\"b\n\n" + times},
      {"a table of one row", Hours(2), Options(Format::kTable, 1),
       hours + " (2 rows)\n" + twoHours.substr(0, twoHours.rfind("  2016")) +
           "  ... 1 more ...\n\n" + times},
      {"a table that just fits", Hours(2), Options(Format::kTable, 2),
       hours + " (2 rows)\n" + twoHours + '\n' + times},
      {"one row of current values is a list", Odd(), Options(Format::kTable, 3),
       current +
           "\n  x_q          2.5   kW  НС\n  x_b          1         b\n"
           "  undescribed  0xFF\n\n" +
           times},
      {"rows of unlike length as CSV", Odd().Row({Float(2)}), Options(Format::kCsv, 0),
       "# " + times + "\n# " + current +
           "\n# clock,\"Q (НС), kW\",b,undescribed\nclock,x_q,x_b,undescribed\n"
           "2016-09-04 00:00:00,2.5,1,0xFF\n2016-09-04 00:00:00,2,\n"},
      {"rows of unlike length as a table", Odd().Row({Float(2)}), Options(Format::kTable, 0),
       current +
           " (2 rows)\n  clock                  Q  b\n                        kW\n"
           "  2016-09-04 00:00:00  2.5  1  0xFF\n  2016-09-04 00:00:00    2\n\n" +
           times},
      {"followed as CSV", Followed(), Options(Format::kCsv, 0, true),
       "clock,x_q\n2016-09-04 13:05:01,1\n2016-09-04 13:05:02,2\n\n"
       "x_dt,x_t1,x_ns\n2016-09-04 00:00:00,0,\"a,\"\"b\"\n"},
      {"followed as JSON", Followed(), Options(Format::kJson, 0, true),
       "{\"kind\":\"current\",\"section\":\"\",\"model\":\"M\",\"number\":\"7\","
       "\"clock\":\"2016-09-04 13:05:01\",\"x_q\":1.0}\n"
       "{\"kind\":\"current\",\"section\":\"\",\"model\":\"M\",\"number\":\"7\","
       "\"clock\":\"2016-09-04 13:05:02\",\"x_q\":2.0}\n"
       "{\"kind\":\"hours\",\"section\":\"ТВ1\",\"model\":\"M\",\"number\":\"7\","
       "\"clock\":\"2016-09-04 00:00:00\",\"x_dt\":\"2016-09-04 00:00:00\",\"x_t1\":0.0,"
       "\"x_ns\":\"a,\\\"b\"}\n"},
      {"followed as a table", Odd(), Options(Format::kTable, 0, true),
       current + "\nclock                          Q            b\n" + std::string(30, ' ') +
           "kW             \n2016-09-04 00:00:00          2.5            1  0xFF\n"},
      {"no section as JSON",
       {},
       Options(Format::kJson, 0),
       "{\n \"time\": \"instrument clock, no zone\",\n \"sections\": []\n}\n"},
  };
  for (const Case& item : cases) {
    INFO(item.name);
    CHECK(Shown(item.pieces, item.options) == item.text);
  }
}

TEST_CASE("a section that comes in parts is shown as one") {
  StreamWriter stream;
  for (const unsigned char hour : Bytes{3, 1, 2, 1}) {
    stream.Title('H', "").Header("DT", 't', 7).Row({Date(2016, 9, 4, hour)}).End();
  }
  for (const Bytes& row : {Text("ab"), Text("cde"), Text("f")}) {
    stream.Title('B', "");
    for (std::size_t i = 0; i < row.size(); ++i) stream.Header(std::string(1, 'p'), 'c', 1);
    stream.Row({row}).End();
  }
  CHECK(Shown(stream, Options(Format::kCsv, 0)) ==
        "# times: instrument clock, no zone\n\n"
        "# hours: M V1, number 7, clock 2016-09-04 00:00:00\n# \"DT, u\"\nx_dt\n"
        "2016-09-04 01:00:00\n2016-09-04 02:00:00\n2016-09-04 03:00:00\n\n"
        "# database: M V1, number 7, clock 2016-09-04 00:00:00\n"
        "# \"p, u\",\"p, u\",\"p, u\"\nx_p,x_p_2,x_p_3\nc,d,e\n");
}

TEST_CASE("wide tables fold, and their numbers are rounded") {
  StreamWriter stream;
  stream.Title('H', "").Header("DT", 't', 7).Header("v", 'f', 4).Header("w", 'd', 8);
  stream.Header("x", 'f', 4).Header("c", 'L', 4);
  const Bytes wide = {0x9A, 0x99, 0x99, 0x49, 0xD6, 0x12, 0x73, 0x41};  // 20000100.6
  stream.Row({Date(2016, 9, 4, 1) + Float(0.123456789F) + wide + Float(1e-7F) + Bytes{1, 2, 3, 4}});
  stream.Row({Date(2016, 9, 4, 2) + Float(-12.345678F)});
  host::SinkOptions options = Options(Format::kTable, 0);
  options.width = 42;
  CHECK(Shown(stream, options) ==
        "hours: M V1, number 7, clock 2016-09-04 00:00:00 (2 rows)\n"
        "  DT                          v         w\n"
        "  u                           u         u\n"
        "  2016-09-04 01:00:00  0.123457  20000101\n"
        "  2016-09-04 02:00:00  -12.3457\n\n"
        "  DT                       x         c\n"
        "  u                        u         u\n"
        "  2016-09-04 01:00:00  1e-07  67305985\n\n"
        "times: instrument clock, no zone\n");
}

TEST_CASE("JSON keeps single precision short and has no numbers that JSON lacks") {
  StreamWriter stream;
  stream.Title('O', "").Header("a", 'f', 4).Header("a", 'd', 4).Header("n", '\xFF', 4);
  stream.Row({Float(0.1F) + Float(1) + Float(2), {1}});
  stream.Row({Float(std::numeric_limits<float>::infinity())}).Row({Float(1e30F)});
  KeptScreen kept;
  const auto sinks = host::MakeSinks(Options(Format::kJson, 0), kept.screen);
  sinks->BeginRun({host::ReadSettings{}, "", {}});
  host::Decoder decoder(*sinks);
  for (const Bytes& piece : Pieces(stream)) decoder.Take(piece);
  decoder.Finish();
  sinks->EndRun({host::Ending::kFailed, "why\xFF", {}});
  const auto json = nlohmann::ordered_json::parse(kept.text);
  CHECK(json.dump(1) + '\n' == kept.text);
  CHECK(json["result"] == "failed");
  CHECK(json["reason"] == "why�");
  CHECK(json["sections"][0]["columns"][2].dump() ==
        R"({"field":"x_n","quantity":null,"pipe":null,"span":null,"unit":"u","name":"n",)"
        R"("caption":"n","driver_unit":"u","type":"я","width":4,"role":"d","group":"default"})");
  CHECK(json["sections"][0]["rows"].dump() ==
        R"([{"clock":"2016-09-04 00:00:00","x_a":0.1,"x_a_2":"0x0000803F",)"
        R"("x_n":"0x00000040","undescribed":"0x01"},)"
        R"({"clock":"2016-09-04 00:00:00","x_a":null},)"
        R"({"clock":"2016-09-04 00:00:00","x_a":1e+30}])");
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
  for (int i = 0; i < 60; ++i) stream.Title('M', std::string(250, 'x') + std::to_string(i)).End();
  host::SinkOptions options;
  options.out = (scratch / "out").string();
  options.raw = (scratch / "raw").string();
  Shown(stream, options);
  CHECK(scratch.Load("out/01-current.csv") ==
        "clock,x_q\n2016-09-04 13:05:01,1\n2016-09-04 13:05:02,2\n");
  CHECK(scratch.Load("out/02-hours-tv1.csv") ==
        "x_dt,x_t1,x_ns\n2016-09-04 00:00:00,0,\"a,\"\"b\"\n");
  CHECK(scratch.Load("out/62-months-" + std::string(60, 'x') + ".csv") == "\n");
  CHECK(scratch.Load("out/index.csv")
            .starts_with("file,kind,section,model,version,number,clock,expected,received,not_held,"
                         "failed,missing,clock_difference_s,times\n"
                         "01-current.csv,current,,M,V1,7,2016-09-04 13:05:01,,,,,,,"
                         "\"instrument clock, no zone\"\n"
                         "02-hours-tv1.csv,hours,ТВ1,M,V1,7,2016-09-04 00:00:00,"));
  CHECK(scratch.Load("out/columns.csv") ==
        "file,column,field,quantity,pipe,unit,driver_name,caption,driver_unit\n"
        "01-current.csv,2,x_q,,,kW,Q,Q,kW\n02-hours-tv1.csv,1,x_dt,,,,DT,DT,\n"
        "02-hours-tv1.csv,2,x_t1,,,\"'C, m\",t1,t1,\"'C, m\"\n02-hours-tv1.csv,3,x_ns,,,,NS,НС,\n");
  std::string trouble;
  CHECK(host_test::Loaded(scratch / "raw", trouble) == Pieces(stream));
  scratch.Save("file", "");
  options.out = (scratch / "file").string();
  CHECK_THROWS_AS(Shown(stream, options), std::runtime_error);
}

TEST_CASE("a folder that is not empty is refused, or its earlier reading replaced") {
  const ScratchFolder scratch;
  host::SinkOptions options;
  options.out = (scratch / "out").string();
  options.dialect = host::kExcelRuCsv;
  Shown(Hours(1), options);
  const std::string first = scratch.Load("out/index.csv");
  scratch.Save("out/notes.txt", "mine");
  CHECK_THROWS_AS(Shown(Hours(2), options), host::UsageError);
  CHECK(scratch.Load("out/index.csv") == first);
  options.force = true;
  Shown(StreamWriter().Title('M', "").End(), options);
  CHECK(!std::filesystem::exists(scratch / "out/01-hours-tv1.csv"));
  CHECK(std::filesystem::exists(scratch / "out/01-months.csv"));
  CHECK(scratch.Load("out/notes.txt") == "mine");
  for (const char* foreign : {"out/own.csv", "out/02-days.csv"}) {
    scratch.Save(foreign, "mine");
    CHECK_THROWS_AS(Shown(Hours(2), options), host::UsageError);
    std::filesystem::remove(scratch / foreign);
  }
  // Whatever an index names, nothing outside the folder goes.
  scratch.Save("out/index.csv", "file,kind\n../kept.csv,hours\n01-months.csv,months\n");
  scratch.Save("kept.csv", "mine");
  Shown(Hours(2), options);
  CHECK(scratch.Load("kept.csv") == "mine");
  std::filesystem::remove(scratch / "out/index.csv");
  CHECK_THROWS_AS(Shown(Hours(2), options), host::UsageError);
}

TEST_CASE("what is missing stands in every output") {
  const ScratchFolder scratch;
  const host::DateRange range{{2016, 9, 1, 3, 0, 0}, {2016, 9, 1, 5, 0, 0}};
  host::RunEnd end{host::Ending::kGaps, "", {}};
  end.accounts = {{tav::TitleKind::kHourly, "ТВ1", 9, 5, 1, 3, {}, {range}, "no reply"},
                  {tav::TitleKind::kDaily, "ТВ2", 2, 0, 2, 0, {range}, {}, ""}};
  end.clock = {{}, {}, -130, true};
  end.lineCounts.emplace().requests = 12;
  end.lineCounts->frames.emplace().foreign = 3;
  const auto shown = [&](const host::SinkOptions& options) {
    KeptScreen kept;
    const auto sinks = host::MakeSinks(options, kept.screen);
    sinks->BeginRun({host::ReadSettings{}, "tcp:a:1", {}});
    host::Decoder decoder(*sinks);
    for (const Bytes& piece : Hours(0)) decoder.Take(piece);
    sinks->EndRun(end);
    return kept.text;
  };
  const std::string missing = "missing 3 of 9: 2016-09-01 03:00 to 05:00 (no reply)\n";
  const std::string hours = "hours ТВ1: M V1, number 7, clock 2016-09-04 00:00:00";
  const std::string notHeld = "days ТВ2: the instrument does not hold 2 of 2: 2016-09-01\n";
  const std::string clock = "the instrument's clock is 2 min behind this machine's\n";
  const std::string times = "times: instrument clock, no zone\n";
  CHECK(shown(Options(Format::kTable, 3)) == hours + " (0 rows)\n  " + missing +
                                                 "  the instrument does not hold 1 of 9\n\n" +
                                                 notHeld + '\n' + clock + '\n' + times);
  CHECK(shown(Options(Format::kCsv, 3)) ==
        "# " + times + "# " + clock + "\n# " + hours +
            "\n# DT,\"t1, 'C, m\",NS (НС)\nx_dt,x_t1,x_ns\n# " + missing +
            "# the instrument does not hold 1 of 9\n\n# " + notHeld);
  const auto json = nlohmann::ordered_json::parse(shown(Options(Format::kJson, 3)));
  CHECK(json["result"] == "gaps");
  CHECK(json["asked"]["groups"] == "BTMSHE");
  CHECK(json["clock_difference_s"] == -130);
  CHECK(json["line_statistics"].dump() ==
        R"({"requests":12,"replies":0,"retries":0,"timeouts":0,"wrong_checksums":0,)"
        R"("foreign_replies":3,"echoes":0,"late_bytes":0,"bytes_out":0,"bytes_in":0,)"
        R"("on_line_ms":0,"bytes_alone_ms":0,"reply_median_ms":null,"reply_worst_ms":null})");
  CHECK(json["completeness"][0].dump() ==
        R"({"kind":"hours","section":"ТВ1","expected":9,"received":5,"not_held":1,"failed":3,)"
        R"("missing":[{"from":"2016-09-01 03:00","to":"2016-09-01 05:00"}],"absent":[],)"
        R"("reason":"no reply"})");
  host::SinkOptions options;
  options.out = (scratch / "out").string();
  shown(options);
  const std::string index = scratch.Load("out/index.csv");
  CHECK(index.find(",9,5,1,3,2016-09-01 03:00 to 05:00,-130,") != std::string::npos);
  CHECK(index.find("\n,days,ТВ2,,,,,2,0,2,0,,-130,") != std::string::npos);
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
  CHECK(kept.text == "clock,x_q\n2016-09-04 13:05:01,1\n");
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
          kept.text.ends_with("<\r\x1b[K><[##########################] 100 %  days: 1>"
                              "<\r\x1b[K>result<ReadStop: OK\n>"
                              "<[##########################] 100 %  days: 1><\r\x1b[K>"));
      CHECK(kept.text.find("[###.......................]  13 %  hours: 03>") != std::string::npos);
    } else {
      CHECK(kept.text ==
            "<  3 %  hours: 01\n>< 13 %  hours: 03\n>< 20 %  hours\n>< 20 %  days\n>"
            "<100 %  days: 1\n>result<ReadStop: OK\n>");
    }
  }
}

TEST_CASE("a bar keeps to one line") {
  const std::pair<std::size_t, const char*> cases[] = {
      {80, "<[#############.............]  50 %  1:02:03 left  7 rows  hours ТВ1: 04.09.2016>"},
      {40, "<[######.......]  50 %  1:02:03 left  7 >"},
      {34, "<[#####......]  50 %  1:02:03 left>"},
      {12, "< 50 %  1:02>"},
  };
  for (const auto& [width, text] : cases) {
    std::string drawn;
    host::Screen screen(
        true, nullptr, [&](const std::string& error) { drawn += '<' + error + '>'; },
        [columns = width] { return columns; });
    host::ProgressDisplay(screen).ShowProgress({50, "hours ТВ1: 04.09.2016:13", 7, 3723});
    CHECK(drawn == text);
    screen.TakeBarAway();
  }
}
