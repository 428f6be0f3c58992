// Any bytes at all as a trace that is replayed: under libFuzzer, or as a test of traces in which
// pieces were changed, from a fixed seed. A crash, a hang or a sanitizer's report is a failure.
#include <cstdint>
#include <sstream>
#include <stdexcept>

#include "host/line/replay_line.h"
#include "host/reading/driver_set_up.h"
#include "host/reading/reading.h"
#include "host/reading/traced_reading.h"
#include "tests/support/fake_clock.h"

namespace {

void Replay(const host::ReadingTrace& traced) {
  const host::DriverLibrary library("");
  host::CheckSettings(library, traced.reading.settings);
  host::ReplayLine line(traced.trace);
  host::RunListener deaf;
  const host::Run run{traced.reading.settings, "", traced.reading.begun};
  host::RunReading(library, run, line, deaf, [] { return host::StopRequest::kNone; });
  line.Finish();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  support::clock::Reset();
  try {
    std::istringstream file(std::string(data, data + size));
    Replay(host::ReadingOf(host::LoadTrace(file, "x"), "x"));
  } catch (const std::runtime_error&) {
    // One sentence for the person.
  }
  return 0;
}

#if !defined(IRVELA_LIBFUZZER)
#include <doctest/doctest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>

namespace {

std::vector<std::string> Traces() {
  std::vector<std::string> traces;
  for (const char* name : {"521.jsonl", "521-followed.jsonl", "k7-521-unknown-items.jsonl"}) {
    std::ifstream file(std::filesystem::path(TRACES) / name, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    REQUIRE(!text.str().empty());
    traces.push_back(text.str());
  }
  return traces;
}

}  // namespace

TEST_CASE("a trace in which pieces were changed") {
  static const char* const kPieces[] = {"0",
                                        "f",
                                        "\"",
                                        "{",
                                        "}",
                                        "[",
                                        "]",
                                        ",",
                                        "-",
                                        "\n",
                                        "e9",
                                        "99999999999999999999",
                                        "\"stop\":\"user\"",
                                        "\"lost\":true"};
  const char* const wanted = std::getenv("IRVELA_FUZZ_RUNS");
  const int runs = wanted != nullptr ? std::atoi(wanted) / 100 : 1000;
  REQUIRE(runs > 0);
  const std::vector<std::string> traces = Traces();
  std::mt19937 random(1);
  const auto below = [&](std::size_t limit) { return random() % limit; };
  for (int run = 0; run < runs; ++run) {
    std::string text = traces[below(traces.size())];
    for (std::size_t changes = below(3) + 1; changes > 0; --changes) {
      text.replace(below(text.size()), below(4), kPieces[below(std::size(kPieces))]);
    }
    const auto* const data = reinterpret_cast<const std::uint8_t*>(text.data());
    REQUIRE(LLVMFuzzerTestOneInput(data, text.size()) == 0);
  }
}
#endif
