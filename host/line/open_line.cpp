#include "host/line/open_line.h"

#include <fmt/format.h>

#include <stdexcept>
#include <utility>

#include "host/line/rfc2217.h"
#include "host/line/stream_line.h"
#include "host/line/tcp.h"
#include "host/line/wrapped_line.h"

namespace host {
namespace {

struct LineAddress {
  enum class Kind { kSerial, kTcp, kRfc2217, kSimulated } kind;
  std::string place;
};

struct Scheme {
  std::string_view prefix;
  LineAddress::Kind kind;
};
constexpr Scheme kSchemes[] = {{"serial:", LineAddress::Kind::kSerial},
                               {"tcp:", LineAddress::Kind::kTcp},
                               {"rfc2217:", LineAddress::Kind::kRfc2217},
                               {"simulate:", LineAddress::Kind::kSimulated}};

LineAddress Parse(const std::string& address) {
  for (const Scheme& scheme : kSchemes) {
    if (address.starts_with(scheme.prefix) && address.size() > scheme.prefix.size()) {
      return {scheme.kind, address.substr(scheme.prefix.size())};
    }
  }
  throw std::invalid_argument(fmt::format(
      "{} is no line: serial:DEVICE, tcp:HOST:PORT, rfc2217:HOST:PORT and simulate:MODEL are",
      address));
}

std::unique_ptr<LinePort> OpenSerialLine(const std::string& device) {
  return std::make_unique<StreamLine>(device, OpenDevice(device));
}

using OpenGateway = std::unique_ptr<Channel> (*)(const TcpAddress& address);

std::unique_ptr<Channel> OpenRfc2217(const TcpAddress& address) {
  return NegotiateRfc2217(OpenConnection(address), NameOf(address));
}

std::unique_ptr<LinePort> OpenGatewayLine(const TcpAddress& address, OpenGateway open,
                                          const LineReport& report) {
  return std::make_unique<StreamLine>(
      NameOf(address),
      std::make_unique<Reconnecting>([address, open] { return open(address); }, report));
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
  const TcpAddress address = ParseTcpAddress(instrument->Address());
  auto line = std::make_unique<StreamLine>(NameOf(address), OpenConnection(address));
#else
  auto instrument = simulator::ServePty(settings, "");
  auto line = OpenSerialLine(instrument->Address());
#endif
  return std::make_unique<SimulatedLine>(std::move(instrument), std::move(line));
}

}  // namespace

void CheckLineAddress(const std::string& address) {
  const LineAddress parsed = Parse(address);
  const bool gateway =
      parsed.kind == LineAddress::Kind::kTcp || parsed.kind == LineAddress::Kind::kRfc2217;
  if (gateway) ParseTcpAddress(parsed.place);
}

std::unique_ptr<LinePort> OpenLine(const std::string& address, const simulator::Settings& simulated,
                                   const LineReport& report) {
  const LineAddress parsed = Parse(address);
  if (parsed.kind == LineAddress::Kind::kSerial) return OpenSerialLine(parsed.place);
  if (parsed.kind == LineAddress::Kind::kTcp) {
    return OpenGatewayLine(ParseTcpAddress(parsed.place), OpenConnection, report);
  }
  if (parsed.kind == LineAddress::Kind::kRfc2217) {
    return OpenGatewayLine(ParseTcpAddress(parsed.place), OpenRfc2217, report);
  }
  simulator::Settings settings = simulated;
  settings.model = parsed.place;
  return OpenSimulatedLine(settings);
}

}  // namespace host
