// Which part of the store is meant.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/reading/settings.h"
#include "host/store/catalogue.h"
#include "host/store/database.h"

namespace host {

// What a user names; what stands empty leaves nothing out.
struct Selection {
  std::string serial;  // the instrument's
  std::string system;  // part of the instrument: "ТВ1"
  std::string groups = AllReadGroups();
  // Times of records, of log entries, of the clock beside values; both included.
  std::optional<SYSTEMTIME> from{};
  std::optional<SYSTEMTIME> to{};
};

// An archive, a log, values or parameters of an instrument, as the store has it.
struct StoredSection {
  long long id = 0;
  long long instrument = 0;
  Instrument of;
  tav::TitleKind kind{};
  std::string system;
  std::string records;  // the table of its records; empty: no archive, or none has come
};

// In the order of serial numbers, and of an instrument as it was read first; within Read. Throws
// std::runtime_error when the store has no such instrument.
std::vector<StoredSection> FindSections(Database& database, const Selection& selection);

// Those of each instrument, in the same order.
std::vector<std::vector<StoredSection>> ByInstrument(std::vector<StoredSection> sections);

// "УРМ523, number 12822465".
std::string NameOf(const Instrument& instrument);

}  // namespace host
