// Recorded readings, made once more by this driver.
#include <doctest/doctest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "host/cli/replay_run.h"
#include "host/reading/replay_log.h"
#include "simulator/simulator.h"
#include "tests/support/fake_clock.h"

namespace {

namespace fs = std::filesystem;

std::string TextOf(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::vector<fs::path> Traces() {
  std::vector<fs::path> traces;
  for (const auto& entry : fs::directory_iterator(TRACES)) traces.push_back(entry.path());
  std::sort(traces.begin(), traces.end());
  return traces;
}

struct Outcome {
  host::Replayed done;
  host::ReplayLog log;
};

Outcome Replay(const std::string& text) {
  std::istringstream file(text);
  const host::ReadingTrace traced = host::ReadingOf(host::LoadTrace(file, "x"), "x");
  support::clock::Reset();
  host::Screen screen;
  Outcome outcome;
  outcome.done = host::RunReplay(traced, {}, host::DriverLibrary(""), screen, outcome.log);
  return outcome;
}

// What a person is told of a trace.
std::string SentenceFor(const std::string& text) {
  try {
    return Replay(text).done.trouble;
  } catch (const std::exception& error) {
    return error.what();
  }
}

std::vector<std::string> Lines(const std::string& text) {
  std::istringstream stream(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line + '\n');
  return lines;
}

std::string Joined(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += line;
  return text;
}

std::size_t FirstWith(const std::vector<std::string>& lines, const std::string& part) {
  const auto found = std::find_if(lines.begin(), lines.end(), [&](const std::string& line) {
    return line.find(part) != std::string::npos;
  });
  REQUIRE(found != lines.end());
  return static_cast<std::size_t>(found - lines.begin());
}

}  // namespace

// Each has the sum of the stream that was written when it was recorded.
TEST_CASE("every model and every fault is read again as it was recorded") {
  std::string names;
  for (const fs::path& trace : Traces()) {
    INFO(trace.string());
    const std::string text = TextOf(trace);
    const Outcome outcome = Replay(text);
    CHECK(outcome.done.trouble == "");
    CHECK(text.find("\"exit\":" + std::to_string(outcome.done.exitCode)) != std::string::npos);
    names += ' ' + trace.stem().string() + ' ';
  }
  for (const simulator::Choice& model : simulator::Models()) {
    CHECK(names.find(' ' + std::string(model.name) + ' ') != std::string::npos);
    for (const simulator::Choice& fault : simulator::FaultsOf(model.name)) {
      CHECK(names.find('-' + std::string(fault.name) + ' ') != std::string::npos);
    }
  }
}

TEST_CASE("a trace that is not whole is told in a sentence") {
  const std::vector<std::string> whole = Lines(TextOf(fs::path(TRACES) / "521.jsonl"));
  const std::size_t question = FirstWith(whole, R"("write":"10)");
  const std::size_t reply = FirstWith(whole, R"("data":"10)");
  struct Case {
    std::function<void(std::vector<std::string>&)> spoil;
    const char* sentence;  // a part of it
  };
  using List = std::vector<std::string>;
  const auto at = [](List& lines, std::size_t index) {
    return lines.begin() + static_cast<std::ptrdiff_t>(index);
  };
  const Case cases[] = {
      {[&](List& lines) { lines[question].replace(lines[question].find(R"(":"10)") + 3, 2, "11"); },
       "departs from the trace at call 23 (line 25, "},
      {[&](List& lines) { lines.erase(at(lines, question)); },
       ", here came write of 9 bytes 10 01 3f 00 00 00 00 bf 16"},
      {[&](List& lines) { lines.erase(at(lines, reply)); },
       ", here came read of 8 bytes within 500 ms"},
      {[&](List& lines) { lines[reply].replace(lines[reply].find(R"(":"10)") + 3, 2, "1"); },
       "x is damaged: line 26 makes no sense"},
      {[](List& lines) { lines.insert(lines.end() - 1, lines[1]); },
       "the trace has a run of the driver with {"},
      {[](List& lines) { lines.pop_back(); }, "the trace is cut before call "},
      {[](List& lines) { lines.resize(40); }, "the trace is cut before call 39"},
      {[](List& lines) { lines.resize(40), lines[39].resize(15); },
       "the trace is cut before call 38"},
      {[](List& lines) { lines.push_back(lines[3]); }, "x is damaged: line "},
      {[](List& lines) { lines[0].replace(lines[0].find(":1"), 2, ":2"); },
       "x is a trace of version 2, this program knows version 1"},
      {[](List& lines) { lines[0].replace(lines[0].find("attempts\":3"), 11, "attempts\":0"); },
       "x is damaged: the settings of the reading makes no sense"},
      {[](List& lines) { lines.clear(); }, "x is empty"},
      {[](List& lines) { lines = {"IRVRAW1\n"}; }, "x is no trace of a reading"},
      {[](List& lines) { lines.back().replace(lines.back().find("sum\":\"") + 6, 4, "0000"); },
       "the stream is not that of the trace: "}};
  for (const Case& item : cases) {
    INFO(std::string(item.sentence));
    List lines = whole;
    item.spoil(lines);
    const std::string told = SentenceFor(Joined(lines));
    INFO(told);
    CHECK(told.find(item.sentence) != std::string::npos);
    CHECK(told.find('\n') == std::string::npos);
  }
}

TEST_CASE("two drivers are told apart where they first differ") {
  const std::string text = TextOf(fs::path(TRACES) / "521.jsonl");
  const auto other = [&](host::ByteView piece, const char* detail) {
    host::ReplayLog log;
    log.Tell({detail, "Start Opros", 0});
    log.AddPiece(piece);
    return log;
  };
  const unsigned char one[] = {1, 2}, two[] = {1, 3};
  CHECK(host::DifferenceOf(other(one, "now"), other(one, "later"), "B") == "");
  CHECK(host::DifferenceOf(other(one, ""), other(two, ""), "B") ==
        "the drivers differ after 1 pieces and messages: this one has piece 1 of 2 bytes 01 02, "
        "B has piece 1 of 2 bytes 01 03");
  CHECK(host::DifferenceOf(Replay(text).log, Replay(text).log, "B") == "");
}
