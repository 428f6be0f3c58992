// A run as one JSON document; docs/outputs.md tells its members.
#pragma once

#include "host/output/gathered_run.h"
#include "host/output/screen.h"

namespace host {

class JsonDocument final : public Document {
 public:
  // screen must outlive it.
  explicit JsonDocument(Screen& screen) : screen_(screen) {}
  void Show(const GatheredRun& run) override;

 private:
  Screen& screen_;
};

}  // namespace host
