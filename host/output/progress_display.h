// Shows how far a reading is: a bar on a terminal, else a line now and then.
#pragma once

#include <string>

#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

class ProgressDisplay final : public RunListener {
 public:
  // screen must outlive it.
  explicit ProgressDisplay(Screen& screen) : screen_(screen) {}
  void ShowProgress(const Progress& progress) override;
  void EndRun(const RunEnd& end) override;

 private:
  void Draw(const Progress& progress);
  void Announce();

  Screen& screen_;
  int percent_ = 0;
  std::string step_;
  std::string drawn_;
  std::string announcedStep_;
  int announcedPercent_ = -1;
};

}  // namespace host
