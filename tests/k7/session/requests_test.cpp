#include "k7/session/requests.h"

#include <doctest/doctest.h>

#include "k7/reads/parameter_block.h"
#include "tests/k7/simulated.h"

using support::ToHex;

TEST_CASE("the archive request: the end's minute, second and extra number stand in the start") {
  const k7::Stamp from = {{2255, 3, 1, 10, 20, 30}, 0x1111};
  const k7::Stamp to = {{2016, 3, 2, 11, 40, 50}, 0x2233};
  const auto request = k7::BuildArchiveRequest(1, 6, 0xE8, from, to);
  CHECK(ToHex({request.begin(), request.end()}) ==
        "04 05 FF FF 01 06 E8 49 08 FF 03 01 0A 28 32 33 22 49 08 10 03 02 0B 00 00 00 00");
}

TEST_CASE("a block of a database has at most 20 parameters, a request at most 50") {
  k7test::Reading line("k7-521");
  line.driver.stopRequest = 0;
  const auto transport = std::make_unique<k7::Transport>(line.driver);
  const auto requests = std::make_unique<k7::Requests>(line.driver, *transport);
  tav::RecordStream out(line.driver);
  transport->Open(1, k7::FrameMode::kLong);
  CHECK(k7::ReadParamBlock(line.driver, *requests, out, 0, {0, 21}));
  CHECK(line.stream.writes.size() == 20);
  CHECK(requests->QueryParams(0, 0, 51) == k7::kReadParameters);
  CHECK(k7test::RangeOf(line.requests.at(0)) == "0:0+20");
  CHECK(k7test::RangeOf(line.requests.at(1)) == "0:0+50");
}
