// Sections as comma-separated values, with an empty line between two. Lines with "#" tell of each
// section: its title, what the driver calls its columns, and what is missing.
#pragma once

#include "host/output/csv.h"
#include "host/output/gathered_run.h"
#include "host/output/screen.h"

namespace host {

class CsvDocument final : public Document {
 public:
  // screen must outlive it.
  CsvDocument(const CsvDialect& dialect, Screen& screen) : dialect_(dialect), screen_(screen) {}
  void Show(const GatheredRun& run) override;

 private:
  std::string Comment(const std::string& text) const;
  std::string TextOf(const GatheredSection& gathered) const;

  CsvDialect dialect_;
  Screen& screen_;
};

}  // namespace host
