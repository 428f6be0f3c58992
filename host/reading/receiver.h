// The host's end of the driver's stream: passes records to the decoder and keeps what the messages
// tell about the reading.
#pragma once

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "TKSplDrv/host.h"
#include "host/output/progress.h"
#include "host/reading/messages.h"
#include "host/stream/decoder.h"
#include "host/stream/raw_file.h"
#include "host/stream/section.h"

namespace host {

// Tells several listeners, none of which it owns.
class Broadcast final : public SectionListener {
 public:
  explicit Broadcast(std::vector<SectionListener*> listeners) : listeners_(std::move(listeners)) {}
  void Begin(const Section& section) override;
  void AddRow(const Section& section, ByteView row) override;
  void End(const Section& section) override;
  std::size_t Sections() const { return sections_; }
  std::size_t Rows() const { return rows_; }

 private:
  std::vector<SectionListener*> listeners_;
  std::size_t sections_ = 0;
  std::size_t rows_ = 0;
};

struct ReceiverStatus {
  bool ended = false;             // the driver's thread sent its last message
  std::optional<bool> succeeded;  // as the driver reported it
  std::string refusal;            // why a record was refused; empty: none was
  std::string lastError;          // the last message that told of an error
  std::string step;               // what is being read
};

class Receiver final : public HostStream {
 public:
  // raw may be null. All must outlive the receiver.
  Receiver(SectionListener& listener, RawFileWriter* raw, Progress& progress, bool verbose)
      : decoder_(listener), raw_(raw), progress_(progress), verbose_(verbose) {}

  bool Message(const char* text1, const char* text2, unsigned code) override;
  bool Write(const void* data, unsigned length) override;

  // From the host's thread.
  ReceiverStatus Status() const;
  // Whether the reading ended within the time limit.
  bool WaitForEnd(std::chrono::milliseconds limit);
  // Once the driver's thread is gone: tells what was left open, and how many pieces of the stream
  // made no sense.
  std::size_t Finish();

 private:
  void Learn(const host::Message& message);
  void Refuse(const std::string& reason);

  Decoder decoder_;
  RawFileWriter* raw_;
  Progress& progress_;
  bool verbose_;
  std::atomic<bool> refused_ = false;
  mutable std::mutex mutex_;
  std::condition_variable ended_;
  ReceiverStatus status_;
};

}  // namespace host
