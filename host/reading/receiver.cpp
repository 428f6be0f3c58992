#include "host/reading/receiver.h"

#include <exception>

#include "host/stream/code_page.h"

namespace host {

void Broadcast::Begin(const Section& section) {
  ++sections_;
  for (SectionListener* listener : listeners_) listener->Begin(section);
}

void Broadcast::AddRow(const Section& section, ByteView row) {
  ++rows_;
  for (SectionListener* listener : listeners_) listener->AddRow(section, row);
}

void Broadcast::End(const Section& section) {
  for (SectionListener* listener : listeners_) listener->End(section);
}

bool Receiver::Message(const char* text1, const char* text2, unsigned /*code*/) {
  try {
    const host::Message message{Utf8FromCp1251(text1), Utf8FromCp1251(text2)};
    // Whatever fails below, the end of the reading must not be missed.
    Learn(message);
    const bool hasText = !message.detail.empty() || !message.subject.empty();
    if (verbose_ && hasText) progress_.Print(Describe(message));
    if (!refused_) {
      decoder_.Pause();
      if (raw_ != nullptr) raw_->Flush();
    }
    return true;
  } catch (const std::exception& error) {
    Refuse(error.what());
    return false;
  }
}

void Receiver::Learn(const host::Message& message) {
  const std::lock_guard lock(mutex_);
  if (const auto step = StepName(message)) status_.step = *step;
  if (const auto date = RecordDate(message)) {
    status_.step = status_.step.substr(0, status_.step.find(": ")) + ": " + *date;
  }
  if (const auto result = ReadingResult(message)) {
    status_.succeeded = *result;
  } else if (IsError(message)) {
    status_.lastError = Describe(message);
  }
  if (IsEndOfReading(message)) {
    status_.ended = true;
    ended_.notify_all();
  }
}

bool Receiver::Write(const void* data, unsigned length) {
  try {
    if (refused_) return false;
    const ByteView piece(static_cast<const unsigned char*>(data), length);
    if (raw_ != nullptr) raw_->Append(piece);
    decoder_.Take(piece);
    return true;
  } catch (const std::exception& error) {
    Refuse(error.what());
    return false;
  }
}

void Receiver::Refuse(const std::string& reason) {
  const std::lock_guard lock(mutex_);
  if (status_.refusal.empty()) status_.refusal = reason;
  refused_ = true;
}

ReceiverStatus Receiver::Status() const {
  const std::lock_guard lock(mutex_);
  return status_;
}

bool Receiver::WaitForEnd(std::chrono::milliseconds limit) {
  std::unique_lock lock(mutex_);
  return ended_.wait_for(lock, limit, [&] { return status_.ended; });
}

std::size_t Receiver::Finish() {
  if (!refused_) {
    decoder_.Finish();
    if (raw_ != nullptr) raw_->Flush();
  }
  return decoder_.Ignored();
}

}  // namespace host
