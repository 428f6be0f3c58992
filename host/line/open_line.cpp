#include "host/line/open_line.h"

#include <fmt/format.h>

#include <stdexcept>
#include <utility>

#include "host/line/stream_line.h"
#include "host/line/tcp.h"
#include "host/line/wrapped_line.h"

namespace host {
namespace {

struct LineAddress {
  enum class Kind { kSerial, kTcp, kSimulated } kind;
  std::string place;
};

struct Scheme {
  std::string_view prefix;
  LineAddress::Kind kind;
};
constexpr Scheme kSchemes[] = {{"serial:", LineAddress::Kind::kSerial},
                               {"tcp:", LineAddress::Kind::kTcp},
                               {"simulate:", LineAddress::Kind::kSimulated}};

LineAddress Parse(const std::string& address) {
  for (const Scheme& scheme : kSchemes) {
    if (address.starts_with(scheme.prefix) && address.size() > scheme.prefix.size()) {
      return {scheme.kind, address.substr(scheme.prefix.size())};
    }
  }
  throw std::invalid_argument(
      fmt::format("{} is no line: serial:DEVICE, tcp:HOST:PORT and simulate:MODEL are", address));
}

std::unique_ptr<LinePort> OpenSerialLine(const std::string& device) {
  return std::make_unique<StreamLine>(device, OpenDevice(device));
}

std::unique_ptr<LinePort> OpenTcpLine(const TcpAddress& address) {
  return std::make_unique<StreamLine>(NameOf(address), OpenConnection(address));
}

// Keeps the instrument that answers at the other end.
class SimulatedLine final : public WrappedLine {
 public:
  SimulatedLine(std::unique_ptr<simulator::Served> instrument, std::unique_ptr<LinePort> line)
      : WrappedLine(std::move(line)), instrument_(std::move(instrument)) {}

 private:
  std::unique_ptr<simulator::Served> instrument_;
};

std::unique_ptr<LinePort> OpenSimulatedLine(const simulator::Settings& settings) {
#if defined(_WIN32)
  auto instrument = simulator::ServeTcp(settings, 0);
  auto line = OpenTcpLine(ParseTcpAddress(instrument->Address()));
#else
  auto instrument = simulator::ServePty(settings, "");
  auto line = OpenSerialLine(instrument->Address());
#endif
  return std::make_unique<SimulatedLine>(std::move(instrument), std::move(line));
}

}  // namespace

void CheckLineAddress(const std::string& address) {
  const LineAddress parsed = Parse(address);
  if (parsed.kind == LineAddress::Kind::kTcp) ParseTcpAddress(parsed.place);
}

std::unique_ptr<LinePort> OpenLine(const std::string& address,
                                   const simulator::Settings& simulated) {
  const LineAddress parsed = Parse(address);
  if (parsed.kind == LineAddress::Kind::kSerial) return OpenSerialLine(parsed.place);
  if (parsed.kind == LineAddress::Kind::kTcp) return OpenTcpLine(ParseTcpAddress(parsed.place));
  simulator::Settings settings = simulated;
  settings.model = parsed.place;
  return OpenSimulatedLine(settings);
}

}  // namespace host
