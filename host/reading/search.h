// Finds out how an instrument is spoken to: by which protocol and at which speed.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/line/line_port.h"
#include "host/reading/introduction.h"

namespace host {

struct SearchOptions {
  bool anyKind = false;   // else that of the settings
  bool anySpeed = false;  // else that of the settings, or the usual one of each kind
  bool Wanted() const { return anyKind || anySpeed; }
};

// Those that the driver offers, in the order in which they are to be tried: the older kind first,
// and the usual speed of each. Throws UsageError when there is none.
std::vector<Way> WaysToTry(const DriverLibrary& library, const ReadSettings& settings,
                           const SearchOptions& options);

struct FoundInstrument {
  Way way;
  std::string model;  // as it identifies itself
};

// Asks once by each way until the instrument tells its model; again, as often as the settings have
// attempts but at most three times, when nobody does: one disturbed reply must not hide it.
// messages is told the driver's messages. Nothing: nobody answered, or a stop was asked for.
std::optional<FoundInstrument> FindInstrument(const DriverLibrary& library,
                                              const ReadSettings& settings,
                                              const std::vector<Way>& ways, LinePort& line,
                                              RunListener& messages, const AskStop& askStop);

// One sentence for when it was not found.
std::string NobodyAnswers(const ReadSettings& settings, const std::vector<Way>& tried);

}  // namespace host
