#include "host/reading/replay_log.h"

#include <fmt/format.h>

#include <algorithm>

#include "host/line/port_call.h"

namespace host {
namespace {

// These two carry the time of this machine.
bool TellsTheTime(const Message& message) {
  return message.subject == "Start Opros" || message.subject == "Opros End";
}

std::string EntryText(const ReplayLog& log, std::size_t index) {
  if (index < log.Entries().size()) return log.Entries()[index];
  return log.Trouble().empty() ? "nothing more" : "nothing more (" + log.Trouble() + ')';
}

}  // namespace

void ReplayLog::AddPiece(ByteView piece) {
  ++pieces_;
  bytes_ += piece.size();
  const std::string bytes(piece.begin(), piece.end());
  entries_.push_back(fmt::format("piece {} of {} bytes {}", pieces_, bytes.size(), HexText(bytes)));
}

void ReplayLog::Tell(const Message& message) {
  const std::string text = TellsTheTime(message) ? message.subject : host::Describe(message);
  entries_.push_back(fmt::format("message \"{}\", code {}", text, message.code));
}

std::string ReplayLog::Summary() const {
  return fmt::format("{} pieces with {} bytes, {} messages", pieces_, bytes_,
                     entries_.size() - pieces_);
}

std::string DifferenceOf(const ReplayLog& one, const ReplayLog& two, const std::string& other) {
  const auto& ours = one.Entries();
  const auto& theirs = two.Entries();
  const auto [end, _] = std::mismatch(ours.begin(), ours.end(), theirs.begin(), theirs.end());
  const auto index = static_cast<std::size_t>(end - ours.begin());
  if (index < std::max(ours.size(), theirs.size())) {
    return fmt::format(
        "the drivers differ after {} pieces and messages: this one has {}, {} has {}", index,
        EntryText(one, index), other, EntryText(two, index));
  }
  if (one.Trouble() == two.Trouble()) return {};
  return fmt::format("the drivers differ in the end: this one: {}; {}: {}",
                     one.Trouble().empty() ? "as in the trace" : one.Trouble(), other,
                     two.Trouble().empty() ? "as in the trace" : two.Trouble());
}

}  // namespace host
