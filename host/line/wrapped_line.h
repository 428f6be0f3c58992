// A line that passes everything to another one. Derive from it and override what is to differ.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "host/line/line_port.h"

namespace host {

class WrappedLine : public LinePort {
 public:
  explicit WrappedLine(std::unique_ptr<LinePort> line) : line_(std::move(line)) {}

  bool Control(int code) override { return line_->Control(code); }
  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override {
    return line_->SetTimeouts(readInterval, readPerByte, readConstant, writePerByte, writeConstant);
  }
  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override {
    return line_->SetLine(unknown1, unknown0, baud, dataBits, parity, stopBits);
  }
  bool SetBuffers(int input, int output) override { return line_->SetBuffers(input, output); }
  int Read(unsigned timeoutMs, unsigned count, void* destination) override {
    return line_->Read(timeoutMs, count, destination);
  }
  int Write(const void* data, unsigned length) override { return line_->Write(data, length); }

  bool Lost() const override { return line_->Lost(); }
  std::string Trouble() const override { return line_->Trouble(); }
  std::string_view Dropped() const override { return line_->Dropped(); }
  std::optional<LineCounts> Counts() const override { return line_->Counts(); }

  void Hurry(bool hurry) override { line_->Hurry(hurry); }

  void BeginRun(const std::string& settings, const StopDriver& stop) override {
    line_->BeginRun(settings, stop);
  }
  StopCause Decide(StopCause wanted, const StopDriver& stop) override {
    return line_->Decide(wanted, stop);
  }
  StopCause EndRun(bool obeyed, StopCause cause) override { return line_->EndRun(obeyed, cause); }

 protected:
  LinePort& Wrapped() { return *line_; }

 private:
  std::unique_ptr<LinePort> line_;
};

}  // namespace host
