#include <doctest/doctest.h>

#include <limits>

#include "common/cp1251.h"
#include "tests/support/reading.h"

using namespace common::literals;
using support::Hex;

namespace {

using Fixture = support::Reading;

}  // namespace

TEST_CASE("the host's questions") {
  Fixture f;
  const struct {
    int kind, language;
    const char* text;
  } names[] = {{1, 9, "Irvela 52x/72x"},
               {1, 25, "Ирвела 52x/72x"_w},
               {2, 9, "Irvela K7"},
               {2, 25, "Ирвела K7"_w},
               {1, 7, ""},
               {5, 9, "as it was"}};
  for (const auto& name : names) {
    char text[30] = "as it was";
    CHECK(f.driver.GetName(name.kind, text, name.language) == 2);
    CHECK(std::string(text) == name.text);
  }

  const struct {
    int kind, index, baud;
    unsigned count;
  } bauds[] = {{1, 3, 2400, 1},  {2, 1, 2400, 4}, {2, 2, 4800, 4}, {2, 3, 9600, 4},
               {2, 4, 19200, 4}, {2, 5, 2400, 4}, {2, 0, 2400, 4}, {3, 1, -7, 0}};
  for (const auto& b : bauds) {
    int baud = -7;
    CHECK(f.driver.GetBaud(b.kind, b.index, &baud) == b.count);
    CHECK(baud == b.baud);
  }

  const std::string offered = "BEHMSTbehmst";
  for (const char letter : offered + "PpJjAxX" + '\0') {
    const unsigned reads = offered.find(letter) != std::string::npos ? 1 : 0;
    CHECK(f.driver.CanReadGroup(1, letter) == reads);
    CHECK(f.driver.CanReadGroup(2, letter) == reads);
    CHECK(f.driver.CanReadGroup(3, letter) == 0);
  }

  int limit = 0;
  for (const int kind : {1, 2, 9}) CHECK(f.driver.GetNumberLimit(kind, 'N', &limit) == 1);
  CHECK(limit == 255);
  CHECK(f.driver.GetNumberLimit(1, 'n', &limit) == 0);
}

TEST_CASE("set-up takes what it knows and refuses the rest") {
  Fixture f;
  CHECK(f.driver.SetupNumer('N', 5) == 1);
  CHECK(f.driver.SetupNumer('n', 6) == 0);
  CHECK(f.driver.numberN == 5);

  for (int i = 0; i < kReadGroupCount; ++i) {
    CHECK(f.driver.SetupReadGroup(kReadGroupLetters[i], true) == 1);
    CHECK(f.driver.groupFlag[i] == 1);
  }
  CHECK(f.driver.SetupReadGroup('A', true) == 0);
  CHECK(f.driver.SetupReadGroup('\0', true) == 0);

  CHECK(f.driver.param[0] == 1);
  int value = 42;
  for (int index = -1; index <= 20; ++index) {
    const bool known = (index >= 1 && index <= 9) || index == 16;
    CHECK(f.driver.SetupParametr(static_cast<char>(index), 0, &value) == (known ? 1U : 0U));
  }
  CHECK(f.driver.param[8] == 42);
  CHECK(f.driver.param16 == 42);
  CHECK(f.driver.SetupParametr(1, 4, nullptr) == 0);
}

TEST_CASE("progress and its end") {
  Fixture f;
  f.driver.prStep = 12.5F;
  f.driver.SetPr(0);
  f.driver.IncPr(3);
  CHECK(f.driver.GetPr() == 37);
  f.driver.IncPr(5);
  CHECK(f.driver.GetPr() == 99);  // exactly 100 becomes 99
  constexpr int kMost = std::numeric_limits<int>::max();
  for (const int any : {kMost, -kMost - 1}) {
    f.driver.SetPr(any);
    CHECK(f.driver.GetPr() == any);
  }
  for (int i = 0; i < 2; ++i) f.driver.IncPr(-kMost);
  CHECK(f.driver.GetPr() == -kMost - 1);
  f.driver.prStep = std::numeric_limits<float>::quiet_NaN();
  f.driver.IncPr(1);
  CHECK(f.driver.GetPr() == 0);
  f.driver.ReadStop(true);
  CHECK(f.driver.GetPr() == 101);

  struct Failure {
    float before, after;
  };
  for (const Failure& c : {Failure{0, -1}, Failure{37.5F, -37.5F}, Failure{-37.5F, -37.5F}}) {
    f.driver.progress = c.before;
    f.driver.Stop();
    CHECK(f.driver.ReadStop(false) == 1);
    CHECK(f.driver.progress == c.after);
    CHECK(f.driver.IsStop() == 0);
  }
  CHECK(f.stream.messages.front() == "OK / ReadStop");
  CHECK(f.stream.messages.back() == "Error / ReadStop");
}

TEST_CASE("records and messages that no reading writes") {
  Fixture f;
  const struct {
    std::string text;
    const char* written;
  } cases[] = {{"", "00"}, {"V1", "02 56 31"}, {std::string(258, 'x'), "02 78 78"}};
  for (const auto& c : cases) {
    f.stream.writes.clear();
    CHECK(f.driver.WriteTavRec(c.text.c_str()) == 1);
    CHECK(f.stream.Stream() == Hex(c.written));
    CHECK(f.stream.writes.size() == 2);
  }
  CHECK(f.driver.MessageDT(2016, 3, 5, 7) == 1);
  CHECK(f.stream.messages.back() == "05.03.2016:07 / Date:hour");
}

TEST_CASE("the port is set up in order, and the first refusal ends it") {
  const std::vector<std::string> all = {"SetBuffers 1024 1024", "SetLine 1 0 2400 8 2 0",
                                        "SetTimeouts 5000 0 5000 100 1000", "Control 5"};
  for (std::size_t refused = 0; refused < all.size(); ++refused) {
    Fixture f;
    f.driver.SetupBaud(2400);
    f.port.refuse = all[refused];
    CHECK(f.driver.Start(3) == 0);
    CHECK(f.port.setUp == std::vector<std::string>(
                              all.begin(), all.begin() + 1 + static_cast<std::ptrdiff_t>(refused)));
    CHECK(f.driver.idle == 1);
    CHECK(f.stream.messages.empty());
    f.port.refuse = "";
    CHECK(f.driver.Start(3) == 1);  // it may be tried again
  }
}
