// Which sections are read, in which order, and what becomes of them when something goes wrong.
#include <doctest/doctest.h>

#include <algorithm>

#include "simulator/k7/items.h"
#include "tests/k7/simulated.h"

using namespace common::literals;
using k7test::Frame;
using k7test::RangeOf;
using k7test::Reading;
using support::Bytes;
using support::Hex;
using support::ToHex;

namespace {

// The kind code of an archive request, -1 of another one.
int KindOf(const Frame& request) { return request.command == 0x61 ? request.data.at(5) : -1; }

// Leaves parameter requests of these ranges unanswered.
auto Silent(const std::vector<std::string>& ranges) {
  return [ranges](const Frame& request, Bytes& reply) {
    if (request.command != 0x72) return;
    if (std::count(ranges.begin(), ranges.end(), RangeOf(request)) > 0) reply.clear();
  };
}

}  // namespace

TEST_CASE("the letters choose the sections, in either case") {
  struct Case {
    const char *model, *groups, *titles;
  };
  for (const Case& c :
       {Case{"k7-521", "T", "O ОБЩ, O ОБЩ Тотальный"_w}, Case{"k7-521", "m", "M ОБЩ"_w},
        Case{"k7-521", "S", "D ОБЩ, D ОБЩ Контрольный"_w}, Case{"k7-521", "h", "H ОБЩ"_w},
        Case{"k7-521", "b", "B ОБЩ, S ОБЩ Изменения, S ОБЩ События"_w},
        Case{"k7-521", "EePpJj", ""}, Case{"k7-523", "MH", "M ТВ1, H ТВ1, M ТВ2, H ТВ2"_w}}) {
    INFO(std::string(c.groups));
    Reading reading(c.model, c.groups);
    CHECK(reading.Run() == "OK / ReadStop");
    CHECK(reading.Titles() == c.titles);
  }
}

TEST_CASE("periodic archives are asked for period by period") {
  struct Case {
    const char* group;
    int kind;
    SYSTEMTIME from, to;
    const char *asked, *said;  // the date and hour of each request's start, the last one told
  };
  for (const Case& c : {Case{"H",
                             0,
                             {2016, 3, 0, 31, 23, 10, 9},
                             {2016, 4, 0, 1, 0, 59},
                             "10 03 1F 17|10 04 01 00|",
                             "2016.4.1 0:0:0"},
                        Case{"S",
                             7,
                             {2016, 2, 0, 29, 5, 30, 9},
                             {2016, 3, 0, 1},
                             "10 02 1D 00|10 03 01 00|",
                             "2016.3.1 0:0:0"},
                        Case{"M",
                             3,
                             {2015, 12, 0, 31, 5, 30, 9},
                             {2016, 1, 0, 1},
                             "0F 0C 00 00|10 01 00 00|",
                             "2016.1.0 0:0:0"},
                        Case{"M", 3, {2016, 3, 0, 1}, {2016, 2, 0, 1}, "", nullptr},
                        Case{"H", 0, {2016, 3, 0, 1, 1}, {2016, 3, 0, 1}, "", nullptr}}) {
    INFO(std::string(c.group));
    Reading reading("k7-521", c.group);
    reading.driver.SetupDateTime(c.from, c.to);
    reading.Run();
    std::string asked;
    for (const Frame& request : reading.requests) {
      if (KindOf(request) != c.kind) continue;
      asked += ToHex({request.data.begin() + 9, request.data.begin() + 13}) + '|';
    }
    CHECK(asked == c.asked);
    if (c.said != nullptr) CHECK(reading.Said(c.said, "read..."));
    CHECK(reading.Sections().at(0).ended);
  }
}

TEST_CASE("messages of an archive read") {
  Reading reading("k7-521", "M");
  reading.onReply = [](const Frame& request, Bytes& reply) {
    if (KindOf(request) != 3 || request.data.at(10) != 8) return;
    // The record's own time and date are not its stamp's.
    reply = k7test::Reply(
        request, 0x61, Hex("49 08 10 08 01 00 00 00 00 00 30 0B 05 04 00 00 00 0C 05 03 02 08 10"));
  };
  reading.Run();
  const auto& said = reading.stream.messages;
  const std::string step = "Чтение помесячных"_w;
  const auto begin = std::find(said.begin(), said.end() - 2, "... / " + step);
  CHECK(std::vector<std::string>(begin, said.end() - 2) ==
        std::vector<std::string>{"... / " + step, std::string("Start Read ОБЩ / Mon"_w),
                                 "2016.8.0 0:0:0 / read...", "2016.8.1 0:0:0 / detect ...",
                                 "Mon / 2016.8.2 12:0:0", "2016.9.0 0:0:0 / read...",
                                 std::string("успешно / "_w) + step});
}

TEST_CASE("a log is one request for the whole period; another command's reply is looked at") {
  Bytes records, text;
  simulator::k7::PutText(text, std::string(60, 'x'));
  simulator::k7::PutRecord(records, {2016, 9, 1, 0, 0, 0}, text);
  struct Case {
    int command;  // 0: silence
    std::size_t rows;
    const char *said, *outcome;
  };
  for (const Case& c : {Case{0x61, 1, "2016.9.1 0:0:0 / detect ...", "успешно"_w},
                        Case{0x62, 1, "2016.8.30 22:17:5 / fn error", "успешно"_w},
                        Case{0, 0, "2016.8.30 22:17:5 / query error", "ошибка"_w}}) {
    INFO(std::string(c.said));
    Reading reading("k7-521", "B");
    reading.onReply = [&](const Frame& request, Bytes& reply) {
      if (KindOf(request) != 6) return;
      CHECK(request.data == Hex("04 05 FF FF 00 06 E8 49 08 10 08 1E 16 1E 28 00 00 49 08 10 09 02 "
                                "03 00 00 00 00"));
      reply = c.command != 0 ? k7test::Reply(request, c.command, records) : Bytes{};
    };
    CHECK(reading.Run() == "OK / ReadStop");
    const auto log = reading.Sections().at(2);
    REQUIRE(log.rows.size() == c.rows);
    if (c.rows > 0) {
      CHECK(log.rows[0] == std::vector<Bytes>{Hex("E0 07 09 01 00 00 00"), Bytes(50, 'x')});
    }
    for (const char* line :
         {"2016.8.30 22:17:5 / reda begin ...", "2016.9.2 3:30:40 / reda end ...", c.said}) {
      CHECK(reading.stream.Said(line));
    }
    CHECK(reading.Said(c.outcome, "Чтение событий"_w));
  }
}

TEST_CASE("current values or totals that fail end the plan of their system") {
  struct Case {
    const char* model;
    std::vector<std::string> silent;
    int archives;    // hourly archives that are read all the same
    int endMarkers;  // with those of the archives
  };
  for (const Case& c :
       {Case{"k7-521", {"0:1026+20"}, 0, 0}, Case{"k7-521", {"0:2048+27"}, 0, 0},
        Case{"k7-523", {"1:2048+16"}, 1, 2}, Case{"k7-523", {"1:1024+14", "2:1024+14"}, 0, 2}}) {
    INFO(c.silent.front());
    Reading reading(c.model, "TH");
    reading.onReply = Silent(c.silent);
    CHECK(reading.Run() == (c.archives > 0 ? "OK / ReadStop" : "Error / ReadStop"));
    CHECK(reading.stream.CountOf("успешно / Чтение текущих"_w) == c.archives);
    CHECK(reading.stream.CountOf("... / Чтение почасовых"_w) == c.archives);
    const auto& writes = reading.stream.writes;
    CHECK(std::count(writes.begin(), writes.end(), Hex("73")) == c.endMarkers);
  }
}

TEST_CASE("current values and totals: what another command's reply and a switched-off system say") {
  Reading reading("k7-521", "T");
  reading.onReply = [](const Frame& request, Bytes& reply) {
    if (request.command == 0x72 && RangeOf(request) == "0:2048+27") {
      reply = k7test::Reply(request, 0x61, {});
    }
  };
  reading.Run();
  for (const char* said :
       {"ОБЩ / Oper"_w, "ОБЩ Тотальный / Oper"_w, "not 0x72 result=0x61 / error total"}) {
    CHECK(reading.stream.Said(said));
  }

  simulator::Settings settings = k7test::Instrument("k7-523");
  settings.special.idleSystem = 1;
  Reading idle(settings, "T");
  idle.onReply = [](const Frame& request, Bytes& reply) {
    if (request.command == 0x72 && RangeOf(request) == "2:1024+14") {
      reply = k7test::Reply(request, 0x61, {});
    }
  };
  CHECK(idle.Run() == "Error / ReadStop");
  CHECK(idle.stream.Said("СП=99 / Чтение не целесообразно"_w));
  CHECK(idle.stream.Said("not 0x72 result=0x61 / error oper"));
  CHECK(idle.stream.writes == std::vector<Bytes>{Hex("73")});  // of the system that failed
}

TEST_CASE("a database is one row, asked for in blocks and reported with the two texts swapped") {
  Reading reading("k7-523", "B");
  reading.onReply = [](const Frame& request, Bytes& reply) {
    if (request.command != 0x72) return;
    const std::string range = RangeOf(request);
    if (range == "0:10+11" || range == "2:30+5") reply = k7test::Reply(request, 0x3F, {});
    if (range == "2:10+10") reply.clear();
  };
  CHECK(reading.Run() == "OK / ReadStop");
  std::string blocks;
  for (const Frame& request : reading.requests) {
    if (request.command == 0x72) blocks += RangeOf(request) + ' ';
  }
  CHECK(blocks ==
        "0:7+4 0:1024+2 0:0+10 0:10+11 0:22+5 "
        "1:0+10 1:10+10 1:20+10 1:30+5 2:0+10 2:10+10 2:20+10 2:30+5 ");
  const auto sections = reading.Sections();
  const auto& common = sections.at(0).rows.at(0);
  CHECK(common.size() == 26);  // empty where another command was answered
  CHECK(std::count(common.begin(), common.end(), Bytes(50, 0)) >= 11);
  CHECK(sections.at(1).rows.at(0).size() == 35);
  CHECK(sections.at(4).rows.at(0).size() == 25);  // without the block that the link failed
  CHECK(!sections.at(4).ended);
  CHECK(reading.Said("успешно"_w, "Чтение БД ОВ"_w));
  CHECK(reading.stream.CountOf("ошибка / Чтение БД ТВ"_w) == 1);
  CHECK(reading.stream.CountOf("успешно / Чтение БД ТВ"_w) == 1);
  CHECK(reading.stream.CountOf("not 0x72 result=0x3F / error basic") == 2);
}
