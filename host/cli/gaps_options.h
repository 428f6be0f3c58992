// The command line of irvela gaps.
#pragma once

#include <cstddef>

#include "host/cli/selection_options.h"

namespace host {

struct GapsOptions {
  enum class Format { kTable, kJson, kMap };

  StoreChoice store;
  Format format = Format::kTable;
};

class GapsParser {
 public:
  // gaps must outlive it, and it the app.
  explicit GapsParser(GapsOptions& gaps) : gaps_(gaps), selection_(gaps.store) {}

  void AddTo(CLI::App& app);
  // Throws UsageError.
  void Finish() { selection_.Finish(); }

 private:
  GapsOptions& gaps_;
  SelectionParser selection_;
};

}  // namespace host
