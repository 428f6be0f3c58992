// The command line of irvela params.
#pragma once

#include <optional>
#include <string>

#include "host/cli/selection_options.h"

namespace host {

struct ParamsOptions {
  StoreChoice store;
  std::optional<SYSTEMTIME> at;  // none: as known last
  bool history = false;          // what changed, instead of what is set
  bool json = false;
};

class ParamsParser {
 public:
  // options must outlive it, and it the app.
  explicit ParamsParser(ParamsOptions& options) : options_(options), selection_(options.store) {}

  void AddTo(CLI::App& app);
  // Throws UsageError.
  void Finish();

 private:
  ParamsOptions& options_;
  SelectionParser selection_;
  std::string at_;
};

}  // namespace host
