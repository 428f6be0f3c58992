// What a driver makes of a trace, for a comparison with another driver.
#pragma once

#include <string>
#include <vector>

#include "host/reading/run_listener.h"

namespace host {

// Keeps every piece of the stream and every message, in the order in which they came, in memory.
class ReplayLog final : public RunListener {
 public:
  void AddPiece(ByteView piece) override;
  void Tell(const Message& message) override;
  // Where the driver departed from the trace; empty: nowhere.
  void SetTrouble(const std::string& trouble) { trouble_ = trouble; }
  const std::string& Trouble() const { return trouble_; }
  const std::vector<std::string>& Entries() const { return entries_; }
  // "44 pieces with 1034 bytes, 20 messages".
  std::string Summary() const;

 private:
  std::vector<std::string> entries_;  // as people see them
  std::size_t pieces_ = 0;
  std::size_t bytes_ = 0;
  std::string trouble_;
};

// One sentence about where they first differ, and empty when they do not. other: how people know
// the second one.
std::string DifferenceOf(const ReplayLog& one, const ReplayLog& two, const std::string& other);

}  // namespace host
