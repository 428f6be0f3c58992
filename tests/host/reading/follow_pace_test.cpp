#include "host/reading/follow_pace.h"

#include <doctest/doctest.h>

#include "tests/host/stream_writer.h"

using namespace host_test;
using namespace std::chrono_literals;

namespace {

// A continuous reading of two heat systems, by a clock that is set. What it told stands in text:
// "ТВ1 7, ", "hours, ".
class Following final : public host::RunListener {
 public:
  explicit Following(const host::Pace& pace)
      : pace_(*this, pace, [this] { return host::FollowPace::Clock::time_point(now); }) {
    pace_.BeginRun({});
  }

  void Current(const char* system, std::uint32_t value) {
    Give({{tav::TitleKind::kCurrent, "", "", "", system, {}}, {}, {}}, value);
  }
  void Hours() { Give({{tav::TitleKind::kHourly, "", "", "", "", {}}, {}, {}}, 0); }
  void Cycle() { pace_.Tell({"reading...", "Nonstop"}); }
  bool Done() const {
    return pace_.With([] { return host::StopRequest::kNone; })() == host::StopRequest::kDone;
  }
  std::size_t Rows() const { return pace_.Rows(); }

  void BeginSection(const host::Section& section) override { name_ = section.title.section; }
  void AddRow(const host::Section&, const host::Cells& cells) override {
    text += name_ + ' ' + host::CellText(cells[0]) + ", ";
  }
  void EndSection(const host::Section&) override { CHECK(!name_.empty()); }

  std::chrono::seconds now = 1000s;
  std::string text;

 private:
  void Give(host::Section section, std::uint32_t value) {
    if (section.title.section.empty()) section.title.section = "hours";
    name_.clear();
    pace_.BeginSection(section);
    pace_.AddRow(section, {value});
    pace_.EndSection(section);
  }

  std::string name_;
  host::FollowPace pace_;
};

}  // namespace

TEST_CASE("rows of current values come at most in their interval") {
  Following following({10s, 0, 0s});
  std::uint32_t value = 0;
  for (const auto seconds : {0, 9, 12, 12, 19, 20, 55, 56, 64, 65}) {
    following.now = 1000s + std::chrono::seconds(seconds);
    following.Current("a", ++value);
  }
  following.Current("b", 1);
  following.Hours();
  following.Hours();
  CHECK(following.text == "a 1, a 3, a 6, a 7, a 10, b 1, hours 0, hours 0, ");
  CHECK(following.Rows() == 8);
}

TEST_CASE("a row that is read again within a second is left out") {
  Following following({});
  for (const std::uint32_t value : {1U, 1U, 2U, 1U}) following.Current("a", value);
  following.now += 1s;
  following.Current("a", 1);
  CHECK(following.text == "a 1, a 2, a 1, a 1, ");
}

TEST_CASE("a count ends the reading with the cycle in which every heat system has it") {
  Following following({0s, 2, 0s});
  following.Current("a", 1);
  following.Current("b", 1);
  following.Cycle();
  following.Current("a", 2);
  following.Current("a", 3);
  following.Cycle();
  CHECK(!following.Done());
  following.Current("b", 2);
  CHECK(!following.Done());
  following.Cycle();
  CHECK(following.Done());
  CHECK(following.text == "a 1, b 1, a 2, b 2, ");
}

TEST_CASE("a duration counts from the first cycle on") {
  Following following({0s, 0, 60s});
  following.now += 100s;
  CHECK(!following.Done());
  following.Cycle();
  following.now += 59s;
  following.Cycle();
  CHECK(!following.Done());
  following.now += 1s;
  CHECK(following.Done());
}
