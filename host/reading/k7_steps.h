// How far a reading of a K7 instrument is: the driver does not tell.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "host/reading/messages.h"
#include "host/reading/settings.h"

namespace host {

// Counts requests: a step of the reading has about as many as there are records in the period, and
// each heat system has the same steps.
class K7Steps {
 public:
  explicit K7Steps(const ReadSettings& settings);
  void Take(const Message& message);
  // 0 to 99.
  int Percent() const;

 private:
  struct Step {
    std::string name;  // as the driver announces it
    std::size_t requests;
  };
  void Begin(const std::string& name);

  std::vector<Step> steps_;       // of a heat system
  std::size_t requests_ = 0;      // of all of them
  std::size_t systems_ = 1;       // that the model has
  std::size_t begunSystems_ = 0;  // the last one is being read
  std::size_t before_ = 0;        // requests of the steps of this system that are done
  std::size_t inStep_ = 0;        // requests done of the step
  std::size_t stepRequests_ = 0;  // that the step has
};

}  // namespace host
