// The program as a person starts it; what it shows goes to this test's own output.
#include <doctest/doctest.h>

#include "host/cli/commands.h"
#include "host/system/exit_codes.h"
#include "tests/host/scratch_folder.h"

using host_test::ScratchFolder;

TEST_CASE("a reading's folder is the one that decoding its raw file gives") {
  const ScratchFolder scratch;
  const std::string raw = (scratch / "raw").string();
  CHECK(host::RunProgram({"read", "--simulate", "521", "--clock", "2016-03-02 12:10", "--groups",
                          "M", "--out", (scratch / "read").string(), "--raw", raw, "-v"}) ==
        host::kSuccess);
  CHECK(host::RunProgram({"decode", raw, "--out", (scratch / "decoded").string()}) ==
        host::kSuccess);
  for (const char* name : {"index.csv", "01-months-ov.csv"}) {
    CHECK(!scratch.Load(std::string("read/") + name).empty());
    CHECK(scratch.Load(std::string("read/") + name) ==
          scratch.Load(std::string("decoded/") + name));
  }
  scratch.Save("cut", scratch.Load("raw") + "x");
  CHECK(host::RunProgram({"decode", (scratch / "cut").string()}) == host::kFailed);
  CHECK(host::RunProgram({"decode", (scratch / "none").string()}) == host::kFailed);
  CHECK(host::RunProgram({"read", "--simulate", "521", "--baud", "9600"}) == host::kWrongUsage);
}
