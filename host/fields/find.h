// Finding sections and columns in the tables.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/fields/layout.h"
#include "host/stream/section.h"

namespace host {

// Of each model.
std::span<const std::span<const Layout>> AllLayouts();

tav::Type TypeIn(const ColumnRun& run, const Entry& entry);
const char* CaptionOf(const Entry& entry);

// The layout that describes a section; null when none does. Texts of models and sections are shared
// between models; their columns are not.
const Layout* FindLayout(const Section& section);

// Gives columns of which only name, caption and true unit are known, and the name of each one's
// field, their types, widths and roles; what no layout has stays as it is.
void CompleteColumns(Section& section, const std::vector<std::string>& fields);

// A column in a layout, and the run that it stands in; both null when it is not there.
struct FoundEntry {
  const Entry* entry = nullptr;
  const ColumnRun* run = nullptr;
};
FoundEntry FindEntry(const Layout& layout, const Column& column);

}  // namespace host
