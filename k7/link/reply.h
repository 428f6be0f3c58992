// What an accepted reply carried.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "k7/link/frame_search.h"

namespace k7 {

struct Reply {
  std::array<std::uint8_t, kReceiveLimit> bytes{};  // ReplyBuf; zero behind the data
  std::size_t length = 0;                           // as the frame reports it

  void Clear() {
    bytes.fill(0);
    length = 0;
  }
};

}  // namespace k7
