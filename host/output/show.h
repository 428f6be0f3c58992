// All sections at once, as they are shown after a reading.
#pragma once

#include <string>
#include <vector>

#include "host/output/format.h"
#include "host/stream/section.h"

namespace host {

// table: at most maxRows rows of a section, 0 for all. csv: each section under a line with "#" and
// its title, with an empty line between two. json: one document; ending and reason, when not
// empty, go into it as "result" and "reason".
struct ShowSettings {
  Format format = Format::kTable;
  std::size_t maxRows = 0;
  std::string ending;
  std::string reason;
};

std::string ShowSections(const std::vector<KeptSection>& sections, const ShowSettings& settings);

}  // namespace host
