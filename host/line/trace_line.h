// A line that keeps a trace of what is done with it.
#pragma once

#include <mutex>

#include "host/line/trace_file.h"
#include "host/line/wrapped_line.h"

namespace host {

// Asks the driver to stop at the end of a port call, so that the trace says exactly when; a driver
// that makes no call is asked a tenth of a second later.
class TraceLine final : public WrappedLine {
 public:
  // trace must outlive the line.
  TraceLine(std::unique_ptr<LinePort> line, TraceWriter& trace)
      : WrappedLine(std::move(line)), trace_(trace) {}

  bool Control(int code) override;
  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override;
  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override;
  bool SetBuffers(int input, int output) override;
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  int Write(const void* data, unsigned length) override;

  void BeginRun(const std::string& settings, const StopDriver& stop) override;
  StopCause Decide(StopCause wanted, const StopDriver& stop) override;
  StopCause EndRun(bool obeyed, StopCause cause) override;

 private:
  // make calls the line and returns the result's value.
  template <class Make>
  int Record(TraceEvent event, Make make);
  void BeginCall();
  void EndCall(TraceEvent& event);
  void AddState(TraceEvent& event);

  std::mutex mutex_;
  TraceWriter& trace_;
  StopDriver stop_;
  StopCause wanted_{};    // the driver is still to be asked
  bool waiting_ = false;  // since the last look
  bool calling_ = false;  // a call is under way
  bool lost_ = false;     // as the trace knows it
  std::string trouble_;   // as the trace knows it
};

}  // namespace host
