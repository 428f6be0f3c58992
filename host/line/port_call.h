// A call of the driver to its port, as a value.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace host {

struct PortCall {
  enum class Name { kControl, kTimeouts, kLine, kBuffers, kRead, kWrite };

  Name name{};
  // As many as the call has, in its order; of a read the milliseconds and the count, of a write
  // none.
  std::array<long long, 6> arguments{};
  std::string sent{};  // of a write

  bool operator==(const PortCall&) const = default;
};

struct CallResult {
  int value = 0;           // bool as 0 and 1; of a read the number of bytes received
  std::string received{};  // of a read
  std::string dropped{};   // as LinePort tells it
};

struct PortCallName {
  PortCall::Name name;
  std::string_view text;
  std::size_t arguments;
};
inline constexpr PortCallName kPortCalls[] = {
    {PortCall::Name::kControl, "control", 1}, {PortCall::Name::kTimeouts, "timeouts", 5},
    {PortCall::Name::kLine, "line", 6},       {PortCall::Name::kBuffers, "buffers", 2},
    {PortCall::Name::kRead, "read", 2},       {PortCall::Name::kWrite, "write", 0}};

inline const PortCallName& NameOf(const PortCall& call) {
  return kPortCalls[static_cast<std::size_t>(call.name)];
}

// "10 01 4f"; of more than most bytes the first ones and "...".
std::string HexText(std::string_view bytes, std::size_t most = std::string_view::npos);

// For people: "read of 64 bytes within 500 ms", "write of 8 bytes 10 01 ...".
std::string Describe(const PortCall& call);

}  // namespace host
