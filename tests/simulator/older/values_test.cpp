#include <doctest/doctest.h>

#include "simulator/older/encoding.h"
#include "tests/simulator/line.h"

using namespace simulator;

TEST_CASE("numbers and texts are encoded as the instruments have them") {
  const struct {
    double value;
    const char* bytes;
  } floats[] = {{1, "00 00 00 7F"},     {-4, "00 00 80 81"},         {0.1, "CD CC 4C 7B"},
                {0, "00 00 00 00"},     {0.99999999, "00 00 00 7F"}, {1e300, "FF FF 7F FE"},
                {1e-300, "00 00 00 00"}};
  for (const auto& one : floats) {
    Bytes bytes;
    older::PutFloat(bytes, one.value);
    CHECK(support::ToHex(bytes) == one.bytes);
  }
  Bytes text;
  older::PutText(text, "Апря Ёё1", 9, ' ');
  CHECK(support::ToHex(text) == "80 AF E0 EF 20 F0 F1 31 20");
}

TEST_CASE("records are there from the clock back to the first of January three years ago") {
  Line line(FixedSettings("521"));
  const std::pair<const char*, bool> records[] = {
      {"48 74 09 04 0D", true},  {"48 74 09 04 0E", false}, {"59 74 09 04 00", true},
      {"59 74 09 05 00", false}, {"4D 74 09 00 00", true},  {"4D 74 0A 00 00", false},
      {"48 71 01 01 00", true},  {"48 70 0C 1F 17", false}};
  for (const auto& [request, there] : records) {
    CAPTURE(request);
    CHECK((line.Ask(request) != "10 01 21 02 DB 16") == there);
  }
}
