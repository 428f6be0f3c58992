// What a driver's stream comes to, for a comparison with another one.
#pragma once

#include <cstdint>
#include <string>

#include "host/reading/wrapped_listener.h"

namespace host {

struct StreamTotal {
  std::size_t pieces = 0;
  std::size_t bytes = 0;
  // FNV-1a of 64 bits over what docs/raw-file.md writes behind the file's head.
  std::uint64_t sum = 14695981039346656037U;

  void Add(ByteView piece);
  bool operator==(const StreamTotal&) const = default;
};

// "44 pieces, 1034 bytes, sum 0123456789abcdef".
std::string Describe(const StreamTotal& total);

// Passes everything on.
class StreamSum final : public WrappedListener {
 public:
  explicit StreamSum(RunListener& to) : WrappedListener(to) {}
  void AddPiece(ByteView piece) override;
  // Once the run has ended.
  const StreamTotal& Total() const { return total_; }

 private:
  StreamTotal total_;
};

}  // namespace host
