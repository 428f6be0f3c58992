// What the fuzzer and the test with a fixed seed run: any bytes at all as the line's and the
// instrument's part of a K7 reading.
#pragma once

#include <cstddef>
#include <cstdint>

// Returns 0; what goes wrong shows as a crash, a sanitizer's report or an endless run.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
