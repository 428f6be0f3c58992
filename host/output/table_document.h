// Sections for people: one row of many values as a list, several rows as an aligned table. Numbers
// are rounded, and wide tables folded, for display only.
#pragma once

#include <cstddef>
#include <string>

#include "host/output/gathered_run.h"
#include "host/output/screen.h"

namespace host {

class TableDocument final : public Document {
 public:
  // At most maxRows rows of a section, the first and the last ones, with the number of those left
  // out; 0 means all, of the ranges of what is missing too. width: of the screen, in characters.
  // screen must outlive it.
  TableDocument(std::size_t maxRows, std::size_t width, Screen& screen)
      : maxRows_(maxRows), width_(width), screen_(screen) {}
  void Show(const GatheredRun& run) override;

 private:
  std::string Table(const GatheredSection& gathered) const;
  std::string TextOf(const GatheredSection& gathered) const;
  std::string Lines(const SectionAccount& account, const std::string& before) const;
  std::string NeverCame(const GatheredRun& run) const;

  std::size_t maxRows_;
  std::size_t width_;
  Screen& screen_;
};

}  // namespace host
