// Who is who in the store: instruments, their sections, and the formats of the sections.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "host/fields/fields.h"
#include "host/reading/run_listener.h"
#include "host/store/database.h"
#include "host/stream/section.h"

namespace host {

struct Instrument {
  std::string kind;     // of the protocol: "older", "k7"
  std::string model;    // as the instrument tells it
  std::string serial;   // "@" and the place where the instrument does not tell one
  std::string version;  // of its firmware
  std::string place;    // line and network number, as it was read last
};

// Where a run found its instrument: "tcp:gateway:4001, number 1".
std::string PlaceOf(const Run& run);

// All of it within a transaction. Each returns the key of what is there already, or is made.
class Catalogue {
 public:
  // database must outlive it.
  explicit Catalogue(Database& database) : database_(database) {}

  // present: that is its version and place now; else one that is known keeps those that it has.
  long long Add(const Instrument& instrument, bool present = true);
  // records: the table of its records; empty when it has none, or none has come yet.
  long long AddSection(long long instrument, const std::string& kind, const std::string& system,
                       const std::string& records);
  // Empty: none has come yet.
  std::string RecordsOf(long long section);
  long long AddFormat(long long section, const std::vector<Column>& columns,
                      const std::vector<Field>& fields);
  // Whether two formats know units of one field that differ.
  bool Contradict(long long one, long long other);

 private:
  void AddColumn(long long format, std::size_t position, const Column& column, const Field& field);

  Database& database_;
  std::map<std::pair<long long, long long>, bool> contradictions_;
};

}  // namespace host
