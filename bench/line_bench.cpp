// What an exchange costs in processor time: a whole reading of a 523's hours (driver, line,
// decoder, CSV files) beside a libmodbus RTU client that makes as many exchanges of about the same
// size and does nothing with them. Both lines are pseudo terminals that another process answers at
// once; the runs alternate, because the machine may not be the same from one second to the next.
//
//   line_bench [RUNS]
#include <fmt/format.h>
#include <modbus.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "bench/responder.h"
#include "host/line/open_line.h"
#include "host/line/wrapped_line.h"
#include "host/output/csv_folder.h"
#include "host/reading/driver_library.h"
#include "host/reading/reading.h"
#include "simulator/catalogue/catalogue.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using View = std::span<const std::uint8_t>;

struct Cost {
  double microseconds = 0;  // of processor time, both of the program and of the system for it
  int exchanges = 0;
  int received = 0;  // bytes

  double PerExchange() const { return microseconds / exchanges; }
};

double ProcessorTime() {
  constexpr double kTicksPerMicrosecond = CLOCKS_PER_SEC / 1e6;
  return static_cast<double>(std::clock()) / kTicksPerMicrosecond;
}

class CountingLine final : public host::WrappedLine {
 public:
  CountingLine(std::unique_ptr<host::LinePort> line, Cost& cost)
      : WrappedLine(std::move(line)), cost_(cost) {}

  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    const int received = WrappedLine::Read(timeoutMs, count, destination);
    cost_.received += received;
    return received;
  }
  int Write(const void* data, unsigned length) override {
    if (length > 1) ++cost_.exchanges;  // a single byte wakes the instrument
    return WrappedLine::Write(data, length);
  }

 private:
  Cost& cost_;
};

bench::Responder::Answer Model523() {
  simulator::Settings settings;
  settings.model = "523";
  settings.clock = simulator::ClockTime{2016, 3, 2, 12, 10, 0};
  const std::shared_ptr instrument =
      simulator::MakeInstrument(settings, simulator::ClockOf(settings));
  return [instrument](View request) {
    Bytes reply;
    for (const auto& exchange : instrument->Receive(request)) {
      for (const auto& part : exchange.reply) {
        reply.insert(reply.end(), part.bytes.begin(), part.bytes.end());
      }
    }
    return reply;
  };
}

// Two months of hours of both heat systems.
Cost ReadHours(const std::string& device) {
  Cost cost;
  host::Run run;
  run.line = "serial:" + device;
  run.settings.emplace();
  run.settings->groups = "H";
  run.settings->from = {2016, 1, 0, 1, 0, 0, 0, 0};
  run.settings->to = {2016, 3, 0, 1, 0, 0, 0, 0};
  const auto folder = std::filesystem::temp_directory_path() / "irvela-line-bench";
  const double start = ProcessorTime();
  {
    CountingLine line(host::OpenLine(run.line), cost);
    host::CsvFolder csv(folder);
    const auto end = host::RunReading(host::DriverLibrary(""), run, line, csv,
                                      [] { return host::StopRequest::kNone; });
    if (end.ending != host::Ending::kRead) throw std::runtime_error(end.reason);
  }
  cost.microseconds = ProcessorTime() - start;
  std::filesystem::remove_all(folder);
  return cost;
}

void AppendCrc(Bytes& frame) {
  unsigned crc = 0xFFFF;
  for (const std::uint8_t byte : frame) {
    crc ^= byte;
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) != 0 ? (crc >> 1) ^ 0xA001 : crc >> 1;
  }
  frame.push_back(static_cast<std::uint8_t>(crc & 0xFF));
  frame.push_back(static_cast<std::uint8_t>(crc >> 8));
}

// Registers with whatever value, as many as bytes 4 and 5 of the request ask for.
Bytes Registers(View request) {
  const auto bytes = static_cast<std::uint8_t>(2 * request[5]);
  Bytes reply(3U + bytes, 0x5A);
  reply[0] = request[0];
  reply[1] = request[1];
  reply[2] = bytes;
  AppendCrc(reply);
  return reply;
}

constexpr int kReplyHeader = 3;
constexpr int kReplyEnd = 2;

// So many that the replies are as long as those of the reading were on average.
int RegistersLike(const Cost& reading) {
  return (reading.received / reading.exchanges - kReplyHeader - kReplyEnd) / 2;
}

Cost ReadByModbus(const std::string& device, const Cost& reading) {
  Cost cost;
  const int registers = RegistersLike(reading);
  std::vector<std::uint16_t> values(static_cast<std::size_t>(registers));
  const double start = ProcessorTime();
  modbus_t* client = modbus_new_rtu(device.c_str(), 19200, 'N', 8, 1);
  modbus_set_slave(client, 1);
  if (modbus_connect(client) != 0) throw std::runtime_error(modbus_strerror(errno));
  for (; cost.exchanges < reading.exchanges; ++cost.exchanges) {
    if (modbus_read_registers(client, 0, registers, values.data()) != registers) {
      throw std::runtime_error(modbus_strerror(errno));
    }
    cost.received += kReplyHeader + 2 * registers + kReplyEnd;
  }
  modbus_close(client);
  modbus_free(client);
  cost.microseconds = ProcessorTime() - start;
  return cost;
}

// The calls that the driver makes for an exchange.
int Exchange(host::LinePort& line, View request, std::span<std::uint8_t> reply) {
  constexpr int kDropReceived = 3;
  constexpr unsigned kLimit = 500;
  const auto data = static_cast<unsigned>(reply.size()) - kReplyHeader - kReplyEnd;
  line.Control(kDropReceived);
  line.Write(request.data(), static_cast<unsigned>(request.size()));
  int received = line.Read(kLimit, kReplyHeader, reply.data());
  received += line.Read(kLimit, data, &reply[kReplyHeader]);
  return received + line.Read(kLimit, kReplyEnd, &reply[kReplyHeader + data]);
}

Cost ReadByLine(const std::string& device, const Cost& reading) {
  Cost cost;
  const int registers = RegistersLike(reading);
  const Bytes request = {1, 3, 0, 0, 0, static_cast<std::uint8_t>(registers), 0, 0};
  Bytes reply(static_cast<std::size_t>(kReplyHeader + 2 * registers + kReplyEnd));
  const double start = ProcessorTime();
  const auto line = host::OpenLine("serial:" + device);
  line->SetLine(1, 0, 19200, 8, 2, 0);
  for (; cost.exchanges < reading.exchanges; ++cost.exchanges) {
    const int received = Exchange(*line, request, reply);
    if (received != static_cast<int>(reply.size())) throw std::runtime_error("no reply");
    cost.received += received;
  }
  cost.microseconds = ProcessorTime() - start;
  return cost;
}

// What one kind of client took in all its runs.
struct Client {
  const char* name;
  Cost last;
  std::vector<double> costs;  // of an exchange

  const Cost& Add(const Cost& cost) {
    last = cost;
    costs.push_back(cost.PerExchange());
    return last;
  }
};

double Median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() / 2];
}

// The ratio is the median of those of runs that follow each other.
void Print(const Client& client, const Client& other) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < client.costs.size(); ++i) {
    ratios.push_back(client.costs[i] / other.costs[i]);
  }
  const auto [least, most] = std::minmax_element(client.costs.begin(), client.costs.end());
  fmt::print("{:<17} {:>6} exchanges {:>4} bytes {:>6.1f} us ({:.1f} to {:.1f}), {:.2f} of {}\n",
             client.name, client.last.exchanges, client.last.received / client.last.exchanges,
             Median(client.costs), *least, *most, Median(ratios), other.name);
}

void Compare(int runs) {
  const bench::Responder meter(Model523());
  const bench::Responder registers(Registers);
  Client irvela{"irvela's reading", {}, {}}, line{"irvela's line", {}, {}},
      modbus{"libmodbus", {}, {}};
  for (int i = 0; i < runs; ++i) {
    const Cost& reading = irvela.Add(ReadHours(meter.Device()));
    modbus.Add(ReadByModbus(registers.Device(), reading));
    line.Add(ReadByLine(registers.Device(), reading));
  }
  for (const Client& client : {irvela, line, modbus}) Print(client, modbus);
}

}  // namespace

int main(int count, char** arguments) {
  try {
    Compare(count > 1 ? std::max(1, std::atoi(arguments[1])) : 9);
    return 0;
  } catch (const std::exception& error) {
    fmt::print(stderr, "line_bench: {}\n", error.what());
    return 1;
  }
}
