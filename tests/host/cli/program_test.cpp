// The program as a person starts it; what it shows goes to this test's own output.
#include <doctest/doctest.h>

#include "host/cli/command_line.h"
#include "host/cli/summary.h"
#include "host/system/exit_codes.h"
#include "tests/host/scratch_folder.h"

using host_test::ScratchFolder;

TEST_CASE("how a run ended is told in a line and an exit code") {
  using host::Ending;
  CHECK(host::IgnoredLine({}) == "");
  CHECK(host::IgnoredLine({0, 0, 2}) == "irvela: 2 pieces of the stream made no sense\n");
  CHECK(host::ReadingLine({Ending::kRead, "", {1, 2}}, "out") ==
        "irvela: read 1 section with 2 rows, kept in out\n");
  CHECK(host::ReadingLine({Ending::kInterrupted, "", {2, 1}}, "") ==
        "irvela: interrupted after 2 sections with 1 row\n");
  CHECK(host::ReadingLine({Ending::kFailed, "no reply", {0, 0}}, "") ==
        "irvela: the reading failed after 0 sections with 0 rows: no reply\n");
  using std::chrono::seconds;
  CHECK(host::FollowLine({}, 120, seconds(629), "out") ==
        "irvela: read 120 rows in 10 min, kept in out\n");
  CHECK(host::FollowLine({Ending::kInterrupted, "", {}}, 1, seconds(59), "") ==
        "irvela: interrupted after 1 row in 59 s\n");
  CHECK(host::FollowLine({Ending::kFailed, "no reply", {}}, 0, seconds(7500), "") ==
        "irvela: the reading failed after 0 rows in 2 h 5 min: no reply\n");
  CHECK(host::ExitCodeOf({Ending::kInterrupted, "", {}}) == host::kInterrupted);
}

TEST_CASE("what is missing is told above the last line") {
  host::RunEnd end{host::Ending::kGaps, "", {1, 741}};
  host::SectionAccount hours{tav::TitleKind::kHourly, "ТВ1", 744, 741, 0, 3, {}, {}, "no reply"};
  const TAVDT three{2016, 9, 1, 3, 0, 0}, five{2016, 9, 1, 5, 0, 0};
  hours.missing = {{three, five}};
  end.accounts = {hours, {tav::TitleKind::kMonthly, "ТВ1", 1, 1, 0, 0, {}, {}, ""}};
  CHECK(host::MissingLines(end) ==
        "  hours ТВ1: missing 3 of 744: 2016-09-01 03:00 to 05:00 (no reply)\n");
  CHECK(
      host::ReadingLine(end, "out") ==
      "irvela: read 1 section with 741 rows, kept in out; 3 of 745 records are missing (see above "
      "and index.csv)\n");
  CHECK(host::ExitCodeOf(end) == host::kReadWithGaps);
}

TEST_CASE("a reading's folder is the one that decoding its raw file gives") {
  const ScratchFolder scratch;
  const std::string raw = (scratch / "raw").string();
  CHECK(host::RunProgram({"read", "--simulate", "521", "--clock", "2016-03-02 12:10", "--groups",
                          "BM", "--out", (scratch / "read").string(), "--raw", raw, "-v"}) ==
        host::kSuccess);
  CHECK(host::RunProgram({"decode", raw, "--out", (scratch / "decoded").string()}) ==
        host::kSuccess);
  for (const char* name : {"columns.csv", "02-months-ov.csv"}) {
    CHECK(!scratch.Load(std::string("read/") + name).empty());
    CHECK(scratch.Load(std::string("read/") + name) ==
          scratch.Load(std::string("decoded/") + name));
  }
  for (const std::string& kept : {raw, (scratch / "").string(), std::string("-")}) {
    CAPTURE(kept);
    CHECK(host::RunProgram({"read", "--simulate", "521", "--groups", "B", "--raw", kept}) ==
          host::kWrongUsage);
  }
  CHECK(host::RunProgram({"read", "--simulate", "521", "--groups", "B", "--raw", raw + "2", "--out",
                          raw + "2/"}) == host::kWrongUsage);
  CHECK(host::RunProgram({"decode", raw, "--out", (scratch / "decoded").string()}) ==
        host::kWrongUsage);
  CHECK(host::RunProgram({"decode", raw, "--force", "--units", "mwh,kpa", "--out",
                          (scratch / "decoded").string()}) == host::kSuccess);
  CHECK(scratch.Load("decoded/02-months-ov.csv").find(",q_mwh,") != std::string::npos);
  CHECK(host::RunProgram({"read", "--simulate", "521", "--groups", "B", "--raw", raw, "--force"}) ==
        host::kSuccess);
  scratch.Save("cut", scratch.Load("raw") + "x");
  CHECK(host::RunProgram({"decode", (scratch / "cut").string()}) == host::kFailed);
  CHECK(host::RunProgram({"decode", (scratch / "none").string()}) == host::kFailed);
  CHECK(host::RunProgram({"read", "--simulate", "521", "--baud", "9600"}) == host::kWrongUsage);
  CHECK(host::RunProgram({"read", "--simulate", "k7-521", "--groups", "E"}) == host::kWrongUsage);
}

TEST_CASE("bytes are explained from the command line, hex lines and nothing else") {
  const ScratchFolder scratch;
  const auto keep = [&](const char* name, const char* text) {
    scratch.Save(name, text);
    return (scratch / name).string();
  };
  struct Case {
    std::vector<std::string> arguments;
    int exitCode;
  };
  const Case cases[] = {
      {{"1001", "48 74 03", "010539", "16"}, host::kSuccess},
      {{keep("hex", "> 10 01 3F 00 00 00 00 BF 16\n# remark\n< 10 01\n\n"), "--format", "json"},
       host::kSuccess},
      {{keep("odd", "10 0\n")}, host::kFailed},
      {{keep("json", "{}\n")}, host::kFailed},
      {{"no-such-file"}, host::kWrongUsage},
      {{"10", "--kind", "older", "--model", "k7-521"}, host::kWrongUsage},
      {{"10", "--model", "524"}, host::kWrongUsage},
  };
  for (const Case& item : cases) {
    INFO(item.arguments.front());
    std::vector<std::string> arguments = {"explain"};
    arguments.insert(arguments.end(), item.arguments.begin(), item.arguments.end());
    CHECK(host::RunProgram(arguments) == item.exitCode);
  }
}
