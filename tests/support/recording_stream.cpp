#include "tests/support/recording_stream.h"

#include <algorithm>

namespace support {

std::string MessageLine(const char* text1, const char* text2, unsigned code) {
  std::string line = std::string(text1) + " / " + text2;
  if (code != 0) line += " / " + std::to_string(code);
  return line;
}

bool RecordingStream::Message(const char* text1, const char* text2, unsigned code) {
  messages.push_back(MessageLine(text1, text2, code));
  if (onMessage) onMessage(messages.back());
  return true;
}

bool RecordingStream::Write(const void* data, unsigned length) {
  const int index = writeCalls++;
  if (refuseWriteAt >= 0 && index >= refuseWriteAt) return false;
  const auto* bytes = static_cast<const std::uint8_t*>(data);
  writes.emplace_back(bytes, bytes + length);
  if (onWrite) onWrite();
  return true;
}

Bytes RecordingStream::Stream() const {
  Bytes stream;
  for (const Bytes& piece : writes) stream.insert(stream.end(), piece.begin(), piece.end());
  return stream;
}

bool RecordingStream::Said(const std::string& line) const { return CountOf(line) > 0; }

int RecordingStream::CountOf(const std::string& line) const {
  return static_cast<int>(std::count(messages.begin(), messages.end(), line));
}

}  // namespace support
