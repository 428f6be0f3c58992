// What the store holds, for people and programs.
#pragma once

#include <string>
#include <vector>

#include "host/store/kept.h"

namespace host {

// Below a line for each instrument one for each of its sections.
std::string KeptText(const std::vector<KeptSection>& sections);

// A list of objects, one a line: serial, model, place, kind, section, records, first, last,
// missing, absent, changed. first and last are null where there are no records.
std::string KeptJson(const std::vector<KeptSection>& sections);

}  // namespace host
