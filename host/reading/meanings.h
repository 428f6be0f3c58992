// What the driver's messages mean, in words: one table for both protocols.
#pragma once

#include <optional>
#include <string>

#include "host/reading/messages.h"

namespace host {

struct Meaning {
  // Something went wrong, and no message before this one has told more about it.
  bool error = false;
  std::string what;  // "the clock could not be read"; may be empty
  std::string why;   // "no reply"; may be empty, not both
};

// Nothing for a message that is no more than its own words.
std::optional<Meaning> MeaningOf(const Message& message);

}  // namespace host
