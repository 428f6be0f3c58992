// What a host gets of a simulated instrument, read with the tests' clock.
#pragma once

#include <string>
#include <vector>

#include "host/fields/fields.h"
#include "host/stream/decoder.h"
#include "tests/support/reading.h"
#include "tests/support/simulated_line.h"

namespace fields_test {

struct KeptSection {
  host::Section section;
  std::vector<host::Cells> rows;
};

class Keeper final : public host::SectionListener {
 public:
  void BeginSection(const host::Section& section) override { sections.push_back({section, {}}); }
  void AddRow(const host::Section&, const host::Cells& cells) override {
    sections.back().rows.push_back(cells);
  }

  std::vector<KeptSection> sections;
};

// The sections of a whole reading of all groups.
inline std::vector<KeptSection> ReadAll(const simulator::Settings& settings) {
  support::Reading reading;
  support::Connect(reading.port, settings);
  reading.Groups("BTMSHE");
  reading.driver.SetupDateTime({2016, 9, 0, 1, 22}, {2016, 9, 0, 3, 1});
  reading.Run(settings.model.starts_with("k7") ? 2 : 1);
  Keeper keeper;
  host::Decoder decoder(keeper);
  for (const support::Bytes& write : reading.stream.writes) decoder.Take(write);
  decoder.Finish();
  return keeper.sections;
}

// A 521 has its units by its firmware: w for code 1.
inline simulator::Settings Instrument(const std::string& model, int unitsCode) {
  simulator::Settings settings;
  settings.model = model;
  if (model == "521" && unitsCode == 1) settings.special.version = 11;
  settings.special.unitsCode = unitsCode;
  return settings;
}

// All that the sections told of the instrument's units.
inline host::UnitSettings Seen(const std::vector<KeptSection>& sections) {
  host::UnitSettings settings;
  for (const KeptSection& kept : sections) {
    settings.See(kept.section);
    for (const host::Cells& row : kept.rows) settings.See(kept.section, row);
  }
  return settings;
}

}  // namespace fields_test
