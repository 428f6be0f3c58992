// The system's part of the example: a serial line by termios, a pause, and the linked driver.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>

#include "TKSplDrv/driver.h"

class SerialPort final : public HostPort {
 public:
  explicit SerialPort(const char* name) : line_(open(name, O_RDWR | O_NOCTTY)) {}
  ~SerialPort() { close(line_); }

  bool IsOpen() const { return line_ >= 0; }

  // 5 once at the start, 3 before a request: drop what came in earlier.
  bool Control(int /*code*/) override { return tcflush(line_, TCIFLUSH) == 0; }

  // Read waits by itself, and a write takes what it takes.
  bool SetTimeouts(unsigned, unsigned, unsigned, unsigned, unsigned) override { return true; }

  void Reserved2() override {}

  // The driver asks for nothing but 8 data bits, even parity and one stop bit.
  bool SetLine(int, int, int baud, int, int, int) override {
    termios settings = {};
    settings.c_cflag = CS8 | PARENB | CREAD | CLOCAL;
    const auto speed = static_cast<speed_t>(baud);
    return cfsetspeed(&settings, speed) == 0 && tcsetattr(line_, TCSAFLUSH, &settings) == 0;
  }

  void Reserved4() override {}

  bool SetBuffers(int, int) override { return true; }

  // Waits at most this long for all the bytes.
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    using std::chrono::milliseconds;
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + milliseconds(timeoutMs);
    unsigned received = 0;
    while (received < count) {
      const auto left = std::chrono::duration_cast<milliseconds>(end - Clock::now()).count();
      pollfd line = {line_, POLLIN, 0};
      if (left <= 0 || poll(&line, 1, static_cast<int>(left)) <= 0) break;
      const auto got = read(line_, static_cast<char*>(destination) + received, count - received);
      if (got <= 0) break;
      received += static_cast<unsigned>(got);
    }
    return static_cast<int>(received);
  }

  int Write(const void* data, unsigned length) override {
    const auto written = write(line_, data, length);
    return written < 0 ? 0 : static_cast<int>(written);
  }

 private:
  int line_;
};

inline void Pause(unsigned milliseconds) { usleep(milliseconds * 1000); }

inline decltype(&LInit) FindDriver() { return &LInit; }
