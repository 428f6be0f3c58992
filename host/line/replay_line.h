// A line that answers as a trace tells, at once, to a driver that does what the trace tells.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <mutex>
#include <string>

#include "host/line/line_port.h"
#include "host/line/trace_file.h"

namespace host {

// Where the driver does something else, the line says so as its trouble and is lost.
class ReplayLine final : public LinePort {
 public:
  // trace must outlive the line.
  explicit ReplayLine(const Trace& trace) : trace_(trace) {}

  bool Control(int code) override;
  bool SetTimeouts(unsigned readInterval, unsigned readPerByte, unsigned readConstant,
                   unsigned writePerByte, unsigned writeConstant) override;
  bool SetLine(int unknown1, int unknown0, int baud, int dataBits, int parity,
               int stopBits) override;
  bool SetBuffers(int input, int output) override;
  int Read(unsigned timeoutMs, unsigned count, void* destination) override;
  int Write(const void* data, unsigned length) override;

  bool Lost() const override { return lost_; }
  std::string Trouble() const override;
  std::string_view Dropped() const override { return dropped_; }

  void BeginRun(const std::string& settings, const StopDriver& stop) override;
  StopCause Decide(StopCause wanted, const StopDriver& stop) override;
  StopCause EndRun(bool obeyed, StopCause cause) override;

  // Once the reading has ended: no more runs may follow in the trace.
  void Finish();
  // The replay is not to go on: the line is lost.
  void Interrupt();
  // Whether the driver, or the reading, did something else than the trace tells; Trouble says what.
  bool Departed() const;
  // From the host's thread, between two runs: whether the trace tells of none that follows.
  bool RunsAreOver() const;
  // For what the last run was stopped up to now, as the trace tells. From any thread, as the next.
  StopCause StoppedFor() const;
  // Of the recorded reading, up to now.
  std::chrono::milliseconds Elapsed() const { return std::chrono::milliseconds(ms_); }

 private:
  const TraceEvent* Next() const;
  const TraceEvent& Take();
  const TraceEvent* ForcedEnd() const;  // when it comes next
  bool Follow(const PortCall& call, CallResult& result);
  CallResult Repeat(const PortCall& call);
  bool RepeatFlag(const PortCall& call) { return Repeat(call).value != 0; }
  std::string Place() const;
  void Depart(const std::string& what);

  const Trace& trace_;
  mutable std::mutex mutex_;  // guards what follows
  std::size_t next_ = 0;
  std::size_t calls_ = 0;
  StopDriver stop_;
  StopCause cause_{};
  int idlePolls_ = 0;  // in which nothing happened
  std::size_t lastNext_ = 0;
  bool departed_ = false;
  std::string trouble_;
  std::atomic<bool> lost_ = false;
  std::atomic<long long> ms_ = 0;
  std::string dropped_;  // for the driver's thread
};

}  // namespace host
