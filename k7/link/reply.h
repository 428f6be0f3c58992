// What an accepted reply carried.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "k7/link/frame_search.h"

namespace k7 {

// The command of the reply that a query got, never 0; nothing when every attempt failed or the host
// asked to stop, which the messages tell.
using ReceivedCommand = std::optional<std::uint8_t>;

struct Reply {
  std::array<std::uint8_t, kReceiveLimit> bytes{};  // zero behind the data
  std::size_t length = 0;                           // as the frame reports it

  void Clear() {
    bytes.fill(0);
    length = 0;
  }
};

}  // namespace k7
