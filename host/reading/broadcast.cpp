#include "host/reading/broadcast.h"

#include <exception>

namespace host {

void Broadcast::BeginRun(const Run& run) {
  for (const auto& listener : listeners_) listener->BeginRun(run);
}

void Broadcast::AddPiece(ByteView piece) {
  for (const auto& listener : listeners_) listener->AddPiece(piece);
}

void Broadcast::BeginSection(const Section& section) {
  for (const auto& listener : listeners_) listener->BeginSection(section);
}

void Broadcast::AddRow(const Section& section, const Cells& cells) {
  for (const auto& listener : listeners_) listener->AddRow(section, cells);
}

void Broadcast::EndSection(const Section& section) {
  TellAll([&](RunListener& listener) { listener.EndSection(section); });
}

void Broadcast::Tell(const Message& message) {
  for (const auto& listener : listeners_) listener->Tell(message);
}

void Broadcast::ShowProgress(const Progress& progress) {
  for (const auto& listener : listeners_) listener->ShowProgress(progress);
}

void Broadcast::Keep() {
  for (const auto& listener : listeners_) listener->Keep();
}

void Broadcast::EndRun(const RunEnd& end) {
  TellAll([&](RunListener& listener) { listener.EndRun(end); });
}

void Broadcast::TellAll(const std::function<void(RunListener&)>& tell) {
  std::exception_ptr first;
  for (const auto& listener : listeners_) {
    try {
      tell(*listener);
    } catch (const std::exception&) {
      if (!first) first = std::current_exception();
    }
  }
  if (first) std::rethrow_exception(first);
}

}  // namespace host
