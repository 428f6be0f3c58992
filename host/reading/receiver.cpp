#include "host/reading/receiver.h"

#include <exception>

#include "host/stream/code_page.h"

namespace host {

template <class Action>
bool Receiver::TellListener(Action action) {
  const std::lock_guard lock(telling_);
  try {
    action();
    return true;
  } catch (const std::exception& error) {
    Refuse(error.what());
    return false;
  }
}

bool Receiver::Message(const char* text1, const char* text2, unsigned code) {
  if (closed_) return false;
  return TellListener([&] {
    if (closed_) return;
    const host::Message message{Utf8FromCp1251(text1), Utf8FromCp1251(text2), code};
    // Whatever fails below, the end of the reading must not be missed.
    Learn(message);
    if (!refused_) decoder_.Pause();
    // A row of K7 parameters comes in a piece for each, from one question after the other.
    if (!refused_ && message.subject == "error query") TakePiece({});
    listener_.Tell(message);
  });
}

void Receiver::Learn(const host::Message& message) {
  const std::lock_guard lock(mutex_);
  if (auto date = RecordDate(message)) {
    record_ = std::move(*date);
    return;
  }
  if (auto step = StepName(message)) {
    step_ = std::move(*step);
    record_.clear();
  }
  if (const auto result = ReadingResult(message)) {
    status_.succeeded = *result;
  } else if (IsError(message)) {
    status_.lastError = Explain(message);
  }
  if (message.subject == "Tip") status_.identified = true;
  if (IsEndOfReading(message)) {
    status_.ended = true;
    ended_.notify_all();
  }
}

bool Receiver::Write(const void* data, unsigned length) {
  if (refused_ || closed_) return false;
  return TellListener([&] {
    if (closed_) return;
    TakePiece({static_cast<const unsigned char*>(data), length});
  });
}

void Receiver::TakePiece(ByteView piece) {
  listener_.AddPiece(piece);
  decoder_.Take(piece);
}

void Receiver::Refuse(const std::string& reason) {
  const std::lock_guard lock(mutex_);
  if (status_.refusal.empty()) status_.refusal = reason;
  refused_ = true;
}

void Receiver::Pulse(int percent) {
  Progress progress{percent, {}};
  {
    const std::lock_guard lock(mutex_);
    progress.step = record_.empty() ? step_ : step_ + ": " + record_;
  }
  TellListener([&] {
    if (!refused_) listener_.Keep();
    listener_.ShowProgress(progress);
  });
}

ReceiverStatus Receiver::Status() const {
  const std::lock_guard lock(mutex_);
  return status_;
}

bool Receiver::WaitForEnd(std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  return ended_.wait_for(lock, limit, [&] { return status_.ended; });
}

// The driver's thread looks before the lock too: whoever closes keeps the lock for a while.
std::unique_lock<std::mutex> Receiver::Close() {
  closed_ = true;
  return std::unique_lock(telling_);
}

StreamCounts Receiver::Finish() {
  // What the listener threw at is not told again, so this goes on to the end of the section.
  while (!TellListener([&] { decoder_.Finish(); })) {
  }
  if (!refused_) TellListener([&] { listener_.Keep(); });
  return decoder_.Counts();
}

}  // namespace host
