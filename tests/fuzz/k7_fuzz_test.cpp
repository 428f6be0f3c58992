// The fuzz target on inputs that look like replies, from a fixed seed. Any crash, hang or report of
// a sanitizer is a failure. More of them by hand: IRVELA_FUZZ_RUNS=1000000.
#include "tests/fuzz/k7_fuzz.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <random>
#include <vector>

namespace {

using Bytes = std::vector<std::uint8_t>;

int Runs() {
  const char* const runs = std::getenv("IRVELA_FUZZ_RUNS");
  return runs != nullptr ? std::atoi(runs) : 100000;
}

// Frame starts, tags and lengths, honest and not, between bytes of any kind.
class Generator {
 public:
  Bytes Next() {
    Bytes input;
    for (int pieces = Below(120); pieces >= 0; --pieces) Append(input);
    return input;
  }

 private:
  int Below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }

  void Append(Bytes& input) {
    static const Bytes kPieces[] = {
        {0x49, 0x08, 0x10, 0x04, 0x01, 0x00, 0x00, 0x00, 0x00, 0x00},
        {0x30, 0x08},
        {0x30, 0x82, 0x01, 0x00},
        {0x30, 0x84, 0xFF, 0xFF, 0xFF, 0xFF},
        {0x09, 0x04, 0x00, 0x00, 0x80, 0x3F},
        {0x02, 0xFF},
        {0x49, 0x00},
        {0x10, 0x01, 0x90, 0x01, 0x00},
        {0x10, 0x00, 0x3F, 0xC0, 0x16, 0x00},
        {0x01, 0xFF},
        {0x09, 0xFF},
        {0x00},
    };
    const int choice = Below(16);
    if (choice < 12) {
      input.insert(input.end(), kPieces[choice].begin(), kPieces[choice].end());
    } else {
      for (int i = Below(20); i >= 0; --i) input.push_back(static_cast<std::uint8_t>(Below(256)));
    }
  }

  std::mt19937 random_{721};
};

}  // namespace

TEST_CASE("a K7 reading of bytes that no instrument sends") {
  Generator generator;
  int runs = 0;
  for (const int all = Runs(); runs < all; ++runs) {
    const Bytes input = generator.Next();
    REQUIRE(LLVMFuzzerTestOneInput(input.data(), input.size()) == 0);
  }
  CHECK(runs > 0);
}
