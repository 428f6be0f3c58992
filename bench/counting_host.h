// A host that only counts, and a port that tells how long it was busy.
#pragma once

#include <chrono>
#include <cstdint>
#include <type_traits>

#include "TKSplDrv/host.h"

namespace bench {

class CountingStream final : public HostStream {
 public:
  bool Message(const char* /*text1*/, const char* /*text2*/, unsigned /*code*/) override {
    return true;
  }
  bool Write(const void* /*data*/, unsigned length) override {
    bytes += length;
    return true;
  }
  std::uint64_t bytes = 0;
};

// Passes everything to another port, counts the requests of nine bytes and adds up the time.
class TimedPort final : public HostPort {
 public:
  explicit TimedPort(HostPort& port) : port_(port) {}

  bool Control(int code) override {
    return Timed([&] { return port_.Control(code); });
  }
  bool SetTimeouts(unsigned a, unsigned b, unsigned c, unsigned d, unsigned e) override {
    return port_.SetTimeouts(a, b, c, d, e);
  }
  void Reserved2() override {}
  bool SetLine(int a, int b, int baud, int dataBits, int parity, int stopBits) override {
    return port_.SetLine(a, b, baud, dataBits, parity, stopBits);
  }
  void Reserved4() override {}
  bool SetBuffers(int input, int output) override { return port_.SetBuffers(input, output); }
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    return Timed([&] { return port_.Read(timeoutMs, count, destination); });
  }
  int Write(const void* data, unsigned length) override {
    if (length == 9) ++requests;
    return Timed([&] { return port_.Write(data, length); });
  }

  std::uint64_t requests = 0;
  std::chrono::nanoseconds busy{0};

 private:
  template <typename Call>
  std::invoke_result_t<Call> Timed(Call call) {
    const auto start = std::chrono::steady_clock::now();
    const auto result = call();
    busy += std::chrono::steady_clock::now() - start;
    return result;
  }

  HostPort& port_;
};

}  // namespace bench
