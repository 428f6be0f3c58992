// A whole run, as it is shown at its end.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "host/fields/fields.h"
#include "host/reading/run_listener.h"
#include "host/stream/cell.h"

namespace host {

struct GatheredRow {
  TAVDT clock{};  // of the instrument, when the row's section came
  Cells cells;    // as shown; what a cut row lacks at its end is left out
};

// All that came of a section, also when it came in parts.
struct GatheredSection {
  Section section;
  std::vector<Field> fields;  // as shown, one per column
  std::vector<GatheredRow> rows;
  std::optional<SectionAccount> account;
};

struct GatheredRun {
  std::optional<ReadSettings> settings;   // none: a stream that was kept
  std::string line;                       // its address, or the name of the file
  std::vector<GatheredSection> sections;  // in the order in which they are read
  std::vector<SectionAccount> neverCame;  // accounts of sections that are not among them
  RunEnd end;
};

// Something that shows a run once it is known as a whole.
class Document {
 public:
  virtual ~Document() = default;
  virtual void Show(const GatheredRun& run) = 0;
};

// Names a section among those of a run. What has the same name is one section: archives, logs and
// current values by their columns too, the settings of an instrument however many of them came.
std::string GatheringKey(const Section& section);

}  // namespace host
