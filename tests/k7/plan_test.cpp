// Which sections are read, in which order, and what becomes of them when something goes wrong.
#include <doctest/doctest.h>

#include <algorithm>

#include "tests/k7/scripted_urm.h"

using namespace common::literals;
using k7test::Answer;
using k7test::ArchiveQuestion;
using k7test::ArchiveRecord;
using k7test::Joined;
using k7test::Reading;
using k7test::Request;
using support::Bytes;
using support::Hex;
using support::ToHex;

namespace {

using Before = std::optional<std::optional<Answer>>;

const Bytes kStamp = Hex("10 04 01 00 00 00 00 00");

// Leaves everything unanswered that the test picks.
auto Silent(std::function<bool(const Request&)> picked) {
  return [=](const Request& request) -> Before {
    return picked(request) ? Before(std::optional<Answer>{}) : std::nullopt;
  };
}

// Of a parameter request: its channel and first parameter.
bool Asks(const Request& request, int channel, int first) {
  if (request.command != 0x72) return false;
  const auto range = k7test::RangeOf(request);
  return range.channel == channel && range.first == first;
}

// "O ОБЩ, H ОБЩ", the sections in code page 1251.
std::string Titles(const Reading& reading) {
  std::string titles;
  for (const auto& section : reading.Sections()) {
    titles += (titles.empty() ? "" : ", ") + std::string(1, section.kind) + ' ' + section.title;
  }
  return titles;
}

}  // namespace

TEST_CASE("the letters choose the sections, in either case") {
  struct Case {
    int code;
    const char *groups, *titles;
  };
  const char* const own = "B ОБЩ, S ОБЩ Изменения, S ОБЩ События"_w;
  const char* const both = "M ТВ1, H ТВ1, M ТВ2, H ТВ2"_w;
  for (const Case& c : {Case{k7test::kCode521, "T", "O ОБЩ, O ОБЩ Тотальный"_w},
                        Case{k7test::kCode521, "m", "M ОБЩ"_w},
                        Case{k7test::kCode521, "S", "D ОБЩ, D ОБЩ Контрольный"_w},
                        Case{k7test::kCode521, "h", "H ОБЩ"_w}, Case{k7test::kCode521, "b", own},
                        Case{k7test::kCode521, "EePpJj", ""}, Case{k7test::kCode523, "MH", both}}) {
    INFO(std::string(c.groups));
    Reading reading(c.code, c.groups);
    CHECK(reading.Run() == "OK / ReadStop");
    CHECK(Titles(reading) == c.titles);
  }
}

TEST_CASE("periodic archives are asked for period by period") {
  struct Case {
    const char* group;
    int kind;
    SYSTEMTIME from, to;
    const char* asked;  // the date and hour of each request's start
  };
  for (const Case& c : {
           Case{"H",
                0,
                {2016, 3, 0, 31, 23, 10},
                {2016, 4, 0, 1, 0, 59},
                "10 03 1F 17|10 04 01 00|"},
           Case{"S", 7, {2016, 2, 0, 29, 5, 30}, {2016, 3, 0, 1}, "10 02 1D 00|10 03 01 00|"},
           Case{"M", 3, {2015, 12, 0, 31, 5, 30}, {2016, 1, 0, 1}, "0F 0C 00 00|10 01 00 00|"},
           Case{"M", 3, {2016, 3, 0, 1}, {2016, 2, 0, 1}, ""},
           Case{"H", 0, {2016, 3, 0, 1, 1}, {2016, 3, 0, 1}, ""},
       }) {
    INFO(std::string(c.group));
    Reading reading(k7test::kCode521, c.group);
    reading.driver.SetupDateTime(c.from, c.to);
    std::string asked;
    reading.urm.archive = [&](const ArchiveQuestion& question) {
      if (question.kind != c.kind) return Bytes{};
      asked += ToHex({question.from.begin(), question.from.begin() + 4}) + '|';
      return Bytes{};
    };
    reading.Run();
    CHECK(asked == c.asked);
    CHECK(reading.Sections().back().ended);
  }
}

TEST_CASE("messages of an archive read") {
  Reading reading(k7test::kCode521, "M");
  reading.urm.archive = [](const ArchiveQuestion& question) {
    if (question.from[1] != 4) return Bytes{};
    return ArchiveRecord(kStamp, Hex("05 04 00 00 00 0C 05 03 02 04 10"));
  };
  reading.Run();
  const auto& said = reading.stream.messages;
  const auto begin =
      std::find(said.begin(), said.end(), "... / " + std::string("Чтение помесячных"_w));
  REQUIRE(begin != said.end());
  CHECK(std::vector<std::string>(begin + 1, said.end() - 2) ==
        std::vector<std::string>{"Start Read " + std::string("ОБЩ"_w) + " / Mon",
                                 "2016.3.0 0:0:0 / read...", "2016.4.0 0:0:0 / read...",
                                 "2016.4.1 0:0:0 / detect ...", "Mon / 2016.4.2 12:0:0",
                                 std::string("успешно / Чтение помесячных"_w)});
}

TEST_CASE("a log is one request for the whole period; another command's reply is looked at") {
  const Bytes text = k7test::Item(4, Bytes(60, 'x'));
  const Bytes records =
      Joined({ArchiveRecord(kStamp, k7test::TextItem("abc")), ArchiveRecord(kStamp, text)});
  struct Case {
    std::optional<Answer> answer;
    std::size_t rows;
    const char* said;
    const char* outcome;
  };
  for (const Case& c : {
           Case{Answer{0x61, records}, 2, "2016.4.1 0:0:0 / detect ...", "успешно"_w},
           Case{Answer{0x62, records}, 2, "2016.3.31 22:10:0 / fn error", "успешно"_w},
           Case{std::nullopt, 0, "2016.3.31 22:10:0 / query error", "ошибка"_w},
       }) {
    Reading reading(k7test::kCode521, "B");
    reading.urm.before = [&](const Request& request) -> Before {
      if (request.command != 0x61 || request.data.at(5) != 6) return std::nullopt;
      CHECK(request.data == Hex("04 05 FF FF 00 06 E8 49 08 10 03 1F 16 00 00 00 00 49 08 10 04 01 "
                                "01 00 00 00 00"));
      return Before(c.answer);
    };
    CHECK(reading.Run() == "OK / ReadStop");
    const auto log = reading.Sections().back();
    REQUIRE(log.rows.size() == c.rows);
    if (c.rows > 0) {
      CHECK(ToHex(log.Row(0)).substr(0, 32) == "E0 07 04 01 00 00 00 61 62 63 00");
      CHECK(log.rows[1].size() == 2);  // two records
      CHECK(log.Row(1).size() == 57);
      CHECK(log.Row(1).back() == 'x');
    }
    CHECK(reading.stream.Said(c.said));
    CHECK(reading.Said(c.outcome, "Чтение событий"_w));
  }
}

TEST_CASE("current values or totals that fail end the plan of their system") {
  struct Case {
    int code, channel, first;
    int endMarkers;  // only of a 523
    const char* result;
  };
  for (const Case& c : {
           Case{k7test::kCode521, 0, 0x402, 0, "Error / ReadStop"},
           Case{k7test::kCode521, 0, 0x800, 0, "Error / ReadStop"},
           Case{k7test::kCode523, 1, 0x800, 1, "OK / ReadStop"},
       }) {
    Reading reading(c.code, "TH");
    reading.urm.before = Silent([&](const Request& r) { return Asks(r, c.channel, c.first); });
    CHECK(reading.Run() == c.result);
    const std::string archive = c.code == k7test::kCode521 ? "H ОБЩ"_w : "H ТВ1"_w;
    int endMarkers = 0;
    for (const auto& section : reading.Sections()) {
      CHECK(std::string(1, section.kind) + ' ' + section.title != archive);
      if (section.kind == 'O' && section.ended) ++endMarkers;
    }
    CHECK(endMarkers == c.endMarkers);
  }
}

TEST_CASE("failed current values of a 523 leave an end marker without a title, a 521's nothing") {
  for (const int code : {k7test::kCode521, k7test::kCode523}) {
    Reading reading(code, "T");
    reading.urm.before = Silent([&](const Request& request) {
      return request.command == 0x72 && k7test::RangeOf(request).first / 0x100 == 4 &&
             k7test::RangeOf(request).count > 2;
    });
    CHECK(reading.Run() == "Error / ReadStop");
    const std::vector<Bytes> markers(2, Hex("73"));
    CHECK(reading.stream.writes == (code == k7test::kCode523 ? markers : std::vector<Bytes>{}));
  }
}

TEST_CASE("the databases are reported with the two texts swapped") {
  Reading good(k7test::kCode523, "B");
  good.Run();
  CHECK(good.Said("ошибка"_w, "Чтение БД ОВ"_w));
  CHECK(good.stream.CountOf("ошибка / Чтение БД ТВ"_w) == 2);
  CHECK(good.stream.CountOf("успешно / Чтение изменений БД"_w) == 2);

  Reading bad(k7test::kCode523, "B");
  bad.urm.before = [](const Request& request) -> Before {
    if (!Asks(request, 0, 10) && !Asks(request, 2, 30)) return std::nullopt;
    return std::optional(Answer{0x3F, {}});
  };
  CHECK(bad.Run() == "OK / ReadStop");
  CHECK(bad.Said("успешно"_w, "Чтение БД ОВ"_w));
  CHECK(bad.Said("успешно"_w, "Чтение БД ТВ"_w));
  CHECK(bad.Said("ошибка"_w, "Чтение БД ТВ"_w));
}

TEST_CASE("a database is one row, asked for in blocks on the system's channel") {
  Reading reading(k7test::kCode523, "B");
  reading.urm.before = Silent([](const Request& request) { return Asks(request, 2, 10); });
  reading.Run();
  std::string blocks;
  for (const Request& request : reading.urm.requests) {
    if (request.command != 0x72) continue;
    const auto [channel, first, count] = k7test::RangeOf(request);
    if (first >= 0x100) continue;
    blocks += std::to_string(channel) + ':' + std::to_string(first) + '+' + std::to_string(count);
    blocks += ' ';
  }
  CHECK(blocks.substr(blocks.find(' ') + 1) ==  // behind the basic read
        "0:0+10 0:10+11 0:22+5 1:0+10 1:10+10 1:20+10 1:30+5 2:0+10 2:10+10 2:20+10 2:30+5 ");
  const auto sections = reading.Sections();
  CHECK(sections.at(0).rows.at(0).size() == 26);
  CHECK(sections.at(1).rows.at(0).size() == 35);
  CHECK(sections.at(4).rows.at(0).size() == 25);  // without the block that failed
  CHECK(!sections.at(4).ended);
}

TEST_CASE("a stop that the plan of system 1 sees does not keep system 2 from being read") {
  Reading reading(k7test::kCode523, "MT");
  reading.stream.onMessage = [&](const std::string& line) {
    if (line == std::string("успешно / Чтение текущих"_w) &&
        reading.stream.CountOf("Error / ReadStop") == 0) {
      reading.driver.Stop();
    }
  };
  CHECK(reading.Run() == "OK / ReadStop");
  CHECK(Titles(reading) == "O ТВ1, O ТВ1 Тотальный, O ТВ2, O ТВ2 Тотальный, M ТВ2"_w);
  CHECK(reading.stream.CountOf("Error / ReadStop") == 1);
}
