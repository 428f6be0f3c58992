// The host's end of the driver's stream: tells a listener what comes in, and keeps what the
// messages tell about the reading.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>

#include "TKSplDrv/host.h"
#include "host/reading/messages.h"
#include "host/reading/run_listener.h"
#include "host/stream/decoder.h"

namespace host {

struct ReceiverStatus {
  bool ended = false;             // the driver's thread sent its last message
  std::optional<bool> succeeded;  // as the driver reported it
  std::string refusal;            // why the listener takes no more; empty: it does
  std::string lastError;          // what the last message of an error means
  bool identified = false;        // the instrument told its model
};

class Receiver final : public HostStream {
 public:
  // listener must outlive the receiver. It is called by one thread at a time.
  explicit Receiver(RunListener& listener) : listener_(listener), decoder_(listener) {}

  bool Message(const char* text1, const char* text2, unsigned code) override;
  bool Write(const void* data, unsigned length) override;

  // From the host's thread.
  // Tells the listener how far the reading is, and to keep what it has.
  void Pulse(int percent);
  bool Refused() const { return refused_; }
  ReceiverStatus Status() const;
  // Whether the reading ended within the time limit.
  bool WaitForEnd(std::chrono::milliseconds limit);
  // From here on what comes in is not taken. Returns when the call that is under way has returned,
  // with the lock under which the listener is told.
  std::unique_lock<std::mutex> Close();
  // Once nothing comes in any more: tells what was left open. No more is told after it.
  StreamCounts Finish();

 private:
  // Calls the listener; what it throws is a refusal.
  template <class Action>
  bool TellListener(Action action);
  void TakePiece(ByteView piece);
  void Learn(const host::Message& message);
  void Refuse(const std::string& reason);

  std::mutex telling_;  // before mutex_ where both are needed
  RunListener& listener_;
  Decoder decoder_;
  std::atomic<bool> refused_ = false;
  std::atomic<bool> closed_ = false;

  mutable std::mutex mutex_;
  std::condition_variable ended_;
  ReceiverStatus status_;
  std::string step_;    // what is read
  std::string record_;  // which record of it, or empty
};

}  // namespace host
