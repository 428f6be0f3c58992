// Every frame that passes in readings of every model.
#include <doctest/doctest.h>

#include <algorithm>
#include <map>

#include "tests/host/completeness/simulated_reading.h"
#include "tests/host/frames/recorded_line.h"
#include "tests/support/hex.h"

using frames_test::Passed;
using frames_test::Record;
using host::frames::FrameClass;

namespace {

// One behind the other, every byte, each with a name.
void CheckLabels(const Passed& passed) {
  INFO(passed.frame.summary, " ", support::ToHex(passed.bytes));
  REQUIRE(!passed.frame.labels.empty());
  std::size_t at = passed.frame.First();
  for (const auto& label : passed.frame.labels) {
    CHECK(label.first == at);
    CHECK(label.count > 0);
    CHECK(!label.name.empty());
    at += label.count;
  }
  CHECK(at - passed.frame.First() == passed.bytes.size());
}

std::map<FrameClass, std::size_t> Counts(const std::vector<Passed>& all) {
  std::map<FrameClass, std::size_t> counts;
  for (const Passed& passed : all) ++counts[passed.frame.kind];
  return counts;
}

bool IsUnknown(const std::string& name) {
  constexpr const char* kUnknown[] = {"data", "not described", "value", "unknown item"};
  return std::find(std::begin(kUnknown), std::end(kUnknown), name) != std::end(kUnknown);
}

}  // namespace

TEST_CASE("a reading of every model is explained to its last byte") {
  for (const simulator::Choice& model : simulator::Models()) {
    INFO(std::string(model.name));
    const auto all = Record(completeness::Instrument(model.name));
    CHECK(all.size() > 40);
    for (const Passed& passed : all) {
      CheckLabels(passed);
      INFO(passed.frame.summary, " ", support::ToHex(passed.bytes));
      const FrameClass kind = passed.frame.kind;
      const bool good = kind == FrameClass::kWakeUp || kind == FrameClass::kRequest ||
                        kind == FrameClass::kReply || kind == FrameClass::kErrorReply;
      CHECK(good);
      for (const auto& label : passed.frame.labels) {
        CHECK(!IsUnknown(label.name));
        if (label.name == "checksum") CHECK(label.meaning == "right");
      }
    }
    const auto counts = Counts(all);
    CHECK(counts.at(FrameClass::kRequest) <=
          counts.at(FrameClass::kReply) +
              (counts.contains(FrameClass::kErrorReply) ? counts.at(FrameClass::kErrorReply) : 0));
  }
}

TEST_CASE("what goes wrong on the line is called by its name") {
  struct Case {
    const char* model;
    const char* fault;
    FrameClass expected;
  };
  const Case cases[] = {{"521", "flipped-bit", FrameClass::kWrongChecksum},
                        {"522", "cut-reply", FrameClass::kCutShort},
                        {"523", "noise", FrameClass::kNoise},
                        {"721", "error-reply", FrameClass::kErrorReply},
                        {"k7-521", "flipped-bit", FrameClass::kWrongChecksum},
                        {"k7-523", "cut-reply", FrameClass::kCutShort},
                        {"k7-521", "noise", FrameClass::kNoise},
                        {"k7-521", "wrong-sequence", FrameClass::kLate},
                        {"k7-523", "other-command", FrameClass::kLate},
                        {"k7-521", "echo", FrameClass::kEcho},
                        {"k7-521", "false-starts", FrameClass::kCutShort},
                        {"k7-523", "unknown-items", FrameClass::kReply},
                        {"k7-521", "past-end", FrameClass::kReply},
                        {"k7-521", "stamp-alone", FrameClass::kReply},
                        {"k7-523", "empty-reply", FrameClass::kReply}};
  for (const Case& item : cases) {
    INFO(std::string(item.model), " ", std::string(item.fault));
    const auto all = Record(completeness::Instrument(item.model, {{item.fault, 3}}));
    for (const Passed& passed : all) CheckLabels(passed);
    const auto counts = Counts(all);
    CHECK(counts.contains(item.expected));
  }
}
