// Shows the driver's messages, in its own words.
#pragma once

#include "host/output/screen.h"
#include "host/reading/run_listener.h"

namespace host {

class MessagePrinter final : public RunListener {
 public:
  // screen must outlive it.
  explicit MessagePrinter(Screen& screen) : screen_(screen) {}
  void Tell(const Message& message) override {
    // A notice says nothing in words.
    const bool hasText = !message.detail.empty() || !message.subject.empty();
    if (hasText) screen_.PrintLine(Describe(message));
  }

 private:
  Screen& screen_;
};

}  // namespace host
