// Whether Ctrl-C was pressed, for what can be stopped.
#pragma once

#include <utility>

#include "host/output/screen.h"
#include "host/reading/run_listener.h"
#include "host/system/console.h"

namespace host {

// Says so when it stops, once.
class StopAsked {
 public:
  // screen must outlive it.
  explicit StopAsked(Screen& screen) : screen_(screen) {}
  StopRequest operator()() {
    if (!Interrupted()) return StopRequest::kNone;
    if (!std::exchange(told_, true)) screen_.PrintLine("irvela: stopping ...");
    return StopRequest::kInterrupted;
  }

 private:
  Screen& screen_;
  bool told_ = false;
};

}  // namespace host
