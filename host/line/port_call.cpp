#include "host/line/port_call.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <span>

namespace host {

std::string HexText(std::string_view bytes, std::size_t most) {
  std::string text;
  for (const char byte : bytes.substr(0, most)) {
    fmt::format_to(std::back_inserter(text), "{}{:02x}", text.empty() ? "" : " ",
                   static_cast<unsigned char>(byte));
  }
  return bytes.size() > most ? text + " ..." : text;
}

std::string Describe(const PortCall& call) {
  constexpr std::size_t kShown = 48;
  if (call.name == PortCall::Name::kRead) {
    return fmt::format("read of {} bytes within {} ms", call.arguments[1], call.arguments[0]);
  }
  if (call.name == PortCall::Name::kWrite) {
    return fmt::format("write of {} bytes {}", call.sent.size(), HexText(call.sent, kShown));
  }
  const PortCallName& known = NameOf(call);
  return fmt::format("{} {}", known.text,
                     fmt::join(std::span(call.arguments).first(known.arguments), ", "));
}

}  // namespace host
