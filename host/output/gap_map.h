// The archives of the store as maps, with a glyph for each record.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/store/coverage.h"

namespace host {

struct MapStyle {
  std::size_t width = 0;  // of the screen, in characters
  bool utf8 = false;      // it shows more than ASCII
};

// Hours: days across, hours down; days: months down; months: years down. A legend stands first.
std::string GapsMap(const std::vector<SectionCoverage>& archives, const MapStyle& style);

}  // namespace host
