// Which part of the instrument a section of continuous reading belongs to: its titles do not tell,
// or tell the part that was read last before.
#pragma once

#include <set>
#include <string>

#include "host/reading/model_plan.h"
#include "host/stream/section.h"

namespace host {

class FollowLabels {
 public:
  explicit FollowLabels(tav::Mode kind) : kind_(kind) {}

  void Tell(const Message& message);
  // Names the part in the title. Each cycle goes through the parts that are worth reading; the
  // current values of one come before its records.
  void Correct(Title& title);

 private:
  void NextPart();

  tav::Mode kind_;
  const ModelPlan* plan_ = nullptr;
  std::string batchPart_;       // that the reading before the first cycle is at
  std::set<std::string> idle_;  // parts that are left out
  bool cycling_ = false;
  std::size_t next_ = 0;
  std::string part_;
};

}  // namespace host
