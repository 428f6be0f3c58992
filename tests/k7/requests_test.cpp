#include <doctest/doctest.h>

#include <cstring>
#include <memory>

#include "k7/reads/parameter_block.h"
#include "tests/k7/fixture.h"

using k7test::Answer;
using k7test::Joined;
using k7test::TextItem;
using support::Bytes;
using support::Hex;
using support::ToHex;

namespace {

struct Line : k7test::Host {
  Line() { transport->Open(k7test::kAddress, k7::FrameMode::kLong); }
  void Answers(int command, const Bytes& data) {
    k7test::Attach(port, [command, data](const k7test::Request&) { return Answer{command, data}; });
  }

  bool ReadBlock(k7::ParameterBlock block) {
    return k7::ReadParamBlock(driver, *requests, out, 0, block);
  }

  std::unique_ptr<k7::Transport> transport = std::make_unique<k7::Transport>(driver);
  tav::RecordStream out{driver};
  std::unique_ptr<k7::Requests> requests = std::make_unique<k7::Requests>(driver, *transport);
};

Bytes Entry(const char* text) {
  Bytes entry(text, text + std::strlen(text));
  entry.resize(50);
  return entry;
}

}  // namespace

TEST_CASE("the archive request: the end's minute, second and extra number stand in the start") {
  const k7::Stamp from = {{2016, 3, 1, 10, 20, 30}, 0x1111};
  const k7::Stamp to = {{2016, 3, 2, 11, 40, 50}, 0x2233};
  const auto request = k7::BuildArchiveRequest(1, 6, 0xE8, from, to);
  CHECK(ToHex({request.begin(), request.end()}) ==
        "04 05 FF FF 01 06 E8 49 08 10 03 01 0A 28 32 33 22 49 08 10 03 02 0B 00 00 00 00");
  const auto later = k7::BuildArchiveRequest(1, 6, 1, {{2255, 1, 1, 0, 0, 0}, 0}, to);
  CHECK(later[9] == 255);
}

TEST_CASE("a block's entries become records of 50 bytes") {
  Line line;
  const std::string longText(60, 'x');
  line.Answers(0x72, Joined({TextItem("12"), TextItem(""), TextItem(longText.c_str())}));
  CHECK(line.ReadBlock({10, 4}));
  CHECK(line.stream.writes ==
        std::vector<Bytes>{Entry("12"), Entry(""), Entry(longText.c_str()), Entry("")});

  CHECK(line.ReadBlock({0, 21}));  // one more than a block may have
  CHECK(k7test::ParseLong(line.port.writes[1])->data.size() == 100);
  CHECK(line.stream.writes.size() == 4 + 20);
}

TEST_CASE("a block read turned over: a link failure is a success, another command is none") {
  Line line;
  CHECK(line.ReadBlock({10, 3}));  // nothing answers
  CHECK(line.stream.writes.empty());

  line.Answers(0x3F, TextItem("12"));
  CHECK(!line.ReadBlock({10, 3}));
  CHECK(line.stream.writes == std::vector<Bytes>(3, Entry("")));  // the host gets its records
  CHECK(line.stream.messages.back() == "not 0x72 result=0x3F / error basic");
}
