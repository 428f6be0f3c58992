#include "host/cli/command_line.h"

#include <doctest/doctest.h>

#include <CLI/CLI.hpp>

#include "host/cli/dates.h"
#include "host/cli/durations.h"
#include "host/cli/read_options.h"
#include "host/reading/settings.h"
#include "host/system/exit_codes.h"

using host::CommandLine;

namespace {

using Words = std::vector<std::string>;

std::string TextOf(const SYSTEMTIME& time) {
  return std::to_string(time.wYear) + '-' + std::to_string(time.wMonth) + '-' +
         std::to_string(time.wDay) + ' ' + std::to_string(time.wHour) + ':' +
         std::to_string(time.wMinute) + ':' + std::to_string(time.wSecond);
}

host::ReadOptions ReadOptionsOf(const Words& words) {
  host::ReadOptions read;
  host::ReadParser parser(read);
  CLI::App app;
  parser.AddTo(app);
  app.parse(Words(words.rbegin(), words.rend()));
  parser.Finish();
  return read;
}

}  // namespace

TEST_CASE("wrong usage is told in one line") {
  const Words cases[] = {
      {},
      {"write"},
      {"read"},
      {"read", "--port", "a", "--tcp", "b:1"},
      {"read", "--port", "a", "--number", "256"},
      {"read", "--port", "a", "--kind", "new"},
      {"read", "--port", "a", "--attempts", "0"},
      {"read", "--port", "a", "--retry-gaps", "101"},
      {"read", "--port", "a", "--speed", "fast"},
      {"read", "--port", "a", "--patience", "long"},
      {"read", "--port", "a", "--format", "xml"},
      {"read", "--port", "a", "--rows", "0"},
      {"read", "--port", "a", "--units", "gj,mwh"},
      {"decode", "a", "--csv-dialect", "excel"},
      {"read", "--port", "a", "--from", "2015-02-29"},
      {"read", "--port", "a", "--from", "2016-09-04", "--to", "2016-09-03"},
      {"read", "--port", "a", "--rows", "5", "--all"},
      {"read", "--port", "a", "--follow", "--count", "3", "--groups", "H"},
      {"read", "--port", "a", "--kind", "k7", "--follow"},
      {"read", "--port", "a", "--clock", "2016-09-04"},
      {"read", "--port", "a", "--count", "1"},
      {"read", "--port", "a", "--follow", "--interval", "often"},
      {"read", "--tcp", "gateway:70000"},
      {"read", "--simulate", "no such model"},
      {"read", "--simulate", "521", "--fault", "no such fault"},
      {"read", "--simulate", "k7-521", "--fault", "error-reply"},
      {"read", "--simulate", "521", "--fault", "noise:1:2"},
      {"read", "--simulate", "521", "--fault", "frozen:1:"},
      {"simulate", "521", "--tcp", "0", "--sim-units", "2"},
      {"read", "--port", "a", "--sim-units", "1"},
      {"decode"},
      {"simulate", "521", "--pty", "a", "--tcp", "1"},
      {"simulate", "521", "--tcp", "0", "--also", "522"},
      {"read", "--port", "a", "--fill"},
      {"read", "--port", "a", "--db", "b", "--fill=oldest"},
      {"read", "--port", "a", "--db", "b", "--fill", "--since-last"},
      {"read", "--port", "a", "--db", "b", "--since-last", "--from", "2016-09-01"},
      {"read", "--port", "a", "--db", "b", "--since-last", "--follow"},
      {"read", "--port", "a", "--db", "b", "--ask-again", "3"},
      {"gaps", "--from", "2016-09-02", "--to", "2016-09-01"},
      {"scan", "--port", "a", "--numbers", "1-256"},
      {"scan", "--port", "a", "--speeds", "fast"},
  };
  for (const Words& words : cases) {
    CAPTURE(words.size());
    CAPTURE(words.empty() ? "" : words.back());
    const CommandLine line = host::ParseCommandLine(words);
    CHECK(line.command == nullptr);
    CHECK(line.exitCode == host::kWrongUsage);
    CHECK(line.message.starts_with("irvela: "));
    CHECK(line.message.find('\n') == line.message.size() - 1);
  }
}

TEST_CASE("what the option library finds is told in sentences") {
  struct Case {
    Words words;
    const char* sentence;
  };
  const Case cases[] = {
      {{},
       "give a command, one of read, scan, replay, decode, list, show, gaps, params, check, "
       "report, export, "
       "import, explain, simulate, models (irvela --help tells more)"},
      {{"--all"}, "there is no option --all (irvela --help tells more)"},
      {{"read", "--number", "1"},
       "give exactly one of --port, --tcp, --rfc2217, --simulate (irvela read --help tells more)"},
      {{"read", "--port"}, "--port needs a value (irvela read --help tells more)"},
      {{"read", "--port", "a", "--format", "xml"},
       "--format: xml is none of table, json, csv (irvela read --help tells more)"},
      {{"read", "--port", "a", "--number", "x"},
       "--number: x is not a whole number from 0 to 255 (irvela read --help tells more)"},
      {{"read", "--port", "a", "--number", "1", "--number", "2"},
       "--number is given more than once (irvela read --help tells more)"},
      {{"read", "--port", "a", "--all=no"},
       "the option all takes no value (irvela read --help tells more)"},
      {{"decode"}, "the file is missing (irvela decode --help tells more)"},
      {{"decode", "a", "b"}, "b is a word too many (irvela decode --help tells more)"},
      {{"models", "--format", "json"},
       "--format goes with --fields only (irvela models --help tells more)"},
      {{"read", "--port", "a", "--out", ""}, "--out: an empty text; give a value, or leave it out"},
      {{"read", "--out=", "--port", "a"}, "--out: an empty text; give a value, or leave it out"},
      {{"decode", ""}, "command line: an empty text; give a value, or leave it out"},
  };
  for (const Case& item : cases) {
    CHECK(host::ParseCommandLine(item.words).message ==
          std::string("irvela: ") + item.sentence + '\n');
  }
}

TEST_CASE("help and version are no errors") {
  for (const Words& words : {Words{"--help"}, {"read", "--help"}, {"--version"}}) {
    const CommandLine line = host::ParseCommandLine(words);
    CHECK(line.command == nullptr);
    CHECK(line.exitCode == host::kSuccess);
    CHECK(!line.message.empty());
  }
}

TEST_CASE("a reading is set up from its options") {
  const host::ReadOptions read = ReadOptionsOf({"--port",        "COM3",
                                                "--number",      "5",
                                                "--kind",        "k7",
                                                "--baud",        "9600",
                                                "--groups",      "TH",
                                                "--from",        "2016-09-01",
                                                "--to",          "2016-09-04T13:30",
                                                "--attempts",    "7",
                                                "--pause",       "250",
                                                "--double-read", "--format",
                                                "JSON",          "--all"});
  const host::ReadSettings& settings = read.settings;
  CHECK(read.line == "serial:COM3");
  CHECK(settings.number == 5);
  CHECK(settings.kind == tav::Mode::kK7);
  CHECK(settings.baud == 9600);
  CHECK(!read.search.Wanted());
  CHECK(settings.groups == "TH");
  CHECK(TextOf(settings.from) == "2016-9-1 0:0:0");
  CHECK(TextOf(settings.to) == "2016-9-4 13:30:0");
  CHECK(settings.attempts == 7);
  CHECK(settings.pause == 250);
  CHECK(settings.doubleRead);
  CHECK(!settings.validity);
  CHECK(read.sinks.format == host::Format::kJson);
  CHECK(read.sinks.rows == 0);
}

TEST_CASE("a simulated clock sets the period") {
  const host::ReadOptions read =
      ReadOptionsOf({"--simulate", "521", "--number", "9", "--clock", "2016-03-01 13:05:09",
                     "--fault", "frozen:3:50", "--sim-units", "1", "--follow"});
  CHECK(TextOf(read.settings.from) == "2016-2-27 0:0:0");
  CHECK(TextOf(read.settings.to) == "2016-3-1 13:5:9");
  CHECK(read.settings.kind == tav::Mode::kOlder);
  CHECK(read.settings.groups == "BTMSHE");
  CHECK(read.sinks.follow);
  CHECK(read.simulated.number == 9);
  CHECK(read.simulated.clock->minute == 5);
  CHECK(read.simulated.faults.front().every == 3);
  CHECK(read.simulated.faults.front().length == 50);
  CHECK(read.simulated.special.unitsCode == 1);
}

TEST_CASE("what is not given is found out, but for what is known") {
  struct Case {
    Words words;
    bool anyKind, anySpeed;
    tav::Mode kind;
  };
  const Case cases[] = {{{"--port", "a"}, true, false, tav::Mode::kOlder},
                        {{"--port", "a", "--speed", "auto"}, true, true, tav::Mode::kOlder},
                        {{"--port", "a", "--follow"}, false, false, tav::Mode::kOlder},
                        {{"--simulate", "k7-521"}, false, false, tav::Mode::kK7}};
  for (const Case& item : cases) {
    const host::ReadOptions read = ReadOptionsOf(item.words);
    CHECK(read.search.anyKind == item.anyKind);
    CHECK(read.search.anySpeed == item.anySpeed);
    CHECK(read.settings.kind == item.kind);
  }
}

TEST_CASE("dates") {
  struct Case {
    const char* text;
    host::Bound bound;
    const char* result;  // the date, or what the refusal says
  };
  constexpr const char* kForm = "a date looks like 2016-09-04 or \"2016-09-04 13:00\"";
  const Case cases[] = {
      {"2016-09-04", host::Bound::kFrom, "2016-9-4 0:0:0"},
      {"2099-12-31", host::Bound::kTo, "2099-12-31 23:59:59"},
      {"2016-02-29T13:05:09", host::Bound::kTo, "2016-2-29 13:5:9"},
      {"2015-02-29", host::Bound::kFrom, "2015-02 has no day 29"},
      {"2016-02-31 13:00", host::Bound::kFrom, "2016-02 has no day 31"},
      {"2016-13-01", host::Bound::kFrom, "there is no month 13"},
      {"1899-01-01", host::Bound::kFrom, "the instruments have the years 2000 to 2099"},
      {"2100-01-01", host::Bound::kFrom, "the instruments have the years 2000 to 2099"},
      {"2016-09-04 24:00", host::Bound::kFrom, "the day ends with 23:59:59"},
      {"201609-04", host::Bound::kFrom, kForm},
      {"2016-0904", host::Bound::kFrom, kForm},
      {"2016-09-0413", host::Bound::kFrom, kForm},
      {"2016-09-04 13:00:00:00", host::Bound::kFrom, kForm},
      {"2016-09-0x", host::Bound::kFrom, kForm},
      {"", host::Bound::kFrom, kForm},
  };
  const auto result = [](const Case& item) {
    try {
      return TextOf(host::RequireDate("--from", item.text, item.bound));
    } catch (const host::UsageError& error) {
      return std::string(error.what())
          .substr(std::string("--from : ").size() + std::string(item.text).size());
    }
  };
  for (const Case& item : cases) {
    CAPTURE(item.text);
    CHECK(result(item) == item.result);
  }
}

TEST_CASE("durations") {
  for (const auto& [text, seconds] :
       {std::pair("90", 90), std::pair("90s", 90), std::pair("2m", 120), std::pair("1h", 3600),
        std::pair("1000d", 86400000)}) {
    CHECK(host::RequireDuration("--duration", text).count() == seconds);
  }
  for (const char* text : {"", "0", "-1", "1.5h", "m", "2 m", "2mm", "1001d", "5000000000"}) {
    CAPTURE(text);
    CHECK_THROWS_AS(host::RequireDuration("--duration", text), host::UsageError);
  }
}
