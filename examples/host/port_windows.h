// The system's part of the example: a COM port, a pause, and the driver's DLL.
#pragma once

#include <windows.h>

#include "TKSplDrv/driver.h"

class SerialPort final : public HostPort {
 public:
  explicit SerialPort(const char* name) {
    char path[64] = "\\\\.\\";
    lstrcpynA(path + 4, name, sizeof path - 4);
    line_ = CreateFileA(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  }
  ~SerialPort() { CloseHandle(line_); }

  bool IsOpen() const { return line_ != INVALID_HANDLE_VALUE; }

  // 5 once at the start, 3 before a request: drop what came in earlier.
  bool Control(int /*code*/) override { return PurgeComm(line_, PURGE_RXCLEAR) != 0; }

  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override {
    timeouts_ = {readInterval, readPerByte, readConstant, writePerByte, writeConstant};
    return SetCommTimeouts(line_, &timeouts_) != 0;
  }

  void Reserved2() override {}

  bool SetLine(int, int, int baud, int dataBits, int parity, int stopBits) override {
    DCB settings = {};
    settings.DCBlength = sizeof settings;
    if (!GetCommState(line_, &settings)) return false;
    settings.BaudRate = static_cast<DWORD>(baud);
    settings.ByteSize = static_cast<BYTE>(dataBits);
    settings.Parity = static_cast<BYTE>(parity);
    settings.StopBits = static_cast<BYTE>(stopBits);
    settings.fParity = parity != NOPARITY;
    return SetCommState(line_, &settings) != 0;
  }

  void Reserved4() override {}

  bool SetBuffers(int input, int output) override {
    return SetupComm(line_, static_cast<DWORD>(input), static_cast<DWORD>(output)) != 0;
  }

  // Waits at most this long for all the bytes.
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    timeouts_.ReadIntervalTimeout = 0;
    timeouts_.ReadTotalTimeoutMultiplier = 0;
    timeouts_.ReadTotalTimeoutConstant = timeoutMs;
    SetCommTimeouts(line_, &timeouts_);
    DWORD received = 0;
    if (!ReadFile(line_, destination, count, &received, nullptr)) return 0;
    return static_cast<int>(received);
  }

  int Write(const void* data, unsigned length) override {
    DWORD written = 0;
    if (!WriteFile(line_, data, length, &written, nullptr)) return 0;
    return static_cast<int>(written);
  }

 private:
  HANDLE line_;
  COMMTIMEOUTS timeouts_ = {};
};

inline void Pause(unsigned milliseconds) { Sleep(milliseconds); }

// Null when the DLL is not there.
inline decltype(&LInit) FindDriver() {
  const HMODULE library = LoadLibraryA("TKSplDrv.dll");
  if (library == nullptr) return nullptr;
  return reinterpret_cast<decltype(&LInit)>(
      reinterpret_cast<void*>(GetProcAddress(library, "LInit")));
}
