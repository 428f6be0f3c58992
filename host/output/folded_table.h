// Lines of texts as a table that is no wider than a screen.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace host {

using TextLine = std::vector<std::string>;

struct FoldedTable {
  std::vector<TextLine> headings;
  std::vector<TextLine> rows;  // may be shorter than the headings, or one longer
  std::size_t leftOut = 0;     // rows that are not shown,
  std::size_t leftOutAt = 0;   // before the row of this number
  bool keyed = false;          // the first column says which row it is, and stands in each block
  std::size_t width = 0;       // of the screen, in characters
};

// Columns that do not fit beside the others stand in blocks below each other; a block leaves out
// the rows that have nothing in it. Columns that have a heading are aligned on the right, but the
// first.
std::string TextOf(const FoldedTable& table);

// "  a  bb" for each line, begun by the indent, with columns as wide as needed and aligned on the
// left.
std::string ListText(const std::vector<TextLine>& lines, const char* indent = "  ");

}  // namespace host
