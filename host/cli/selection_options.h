// The options that choose a part of the store, for the commands that look into it.
#pragma once

#include <optional>
#include <string>

#include "host/store/selection.h"

namespace CLI {
class App;
}

namespace host {

struct StoreChoice {
  std::optional<std::string> db;  // as OpenStore takes it
  Selection selection;
};

class SelectionParser {
 public:
  // choice must outlive it, and it the app.
  explicit SelectionParser(StoreChoice& choice) : choice_(choice) {}

  void AddTo(CLI::App& app);
  // Which kinds of sections, for commands that can leave some out.
  void AddGroupsTo(CLI::App& app);
  // Throws UsageError.
  void Finish();

 private:
  StoreChoice& choice_;
  std::string from_;
  std::string to_;
};

}  // namespace host
