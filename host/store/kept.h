// What the store holds.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace host {

// An archive, a log, current values or parameters of an instrument.
struct KeptSection {
  std::string serial;
  std::string model;  // as the instrument tells it
  std::string place;  // line and network number, as it was read last
  std::string kind;   // "hours"
  std::string system;
  std::size_t records = 0;  // archive records, log entries, or snapshots
  std::string first{};      // their times; of snapshots the instrument's clock
  std::string last{};
  std::size_t missing = 0;  // asked for without a good answer,
  std::size_t absent = 0;   // not held by the instrument,
  std::size_t changed = 0;  // replaced by other ones
};

// In the order of serial numbers, and of an instrument as it was read first. address: as
// MakeStoreSink takes it, of a store that is there. Throws std::runtime_error.
std::vector<KeptSection> ListKept(const std::string& address);

}  // namespace host
