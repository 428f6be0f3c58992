#include "host/reading/follow_labels.h"

#include "host/reading/record_events.h"

namespace host {

void FollowLabels::Tell(const Message& message) {
  if (const ModelPlan* plan = FindPlan(kind_, message)) {
    plan_ = plan;
    return;
  }
  const RecordEvent event = EventOf(message);
  switch (event.kind) {
    case RecordEvent::Kind::kPart:
      batchPart_ = event.text;
      break;
    case RecordEvent::Kind::kPartIdle:
      idle_.insert(batchPart_);
      break;
    case RecordEvent::Kind::kCycle:
      cycling_ = true;
      next_ = 0;
      part_.clear();
      break;
    case RecordEvent::Kind::kBlockLost:
      if (cycling_) NextPart();
      break;
    default:
      break;
  }
}

void FollowLabels::NextPart() {
  if (plan_ == nullptr) return;
  const auto& parts = plan_->parts;
  while (next_ < parts.size() && idle_.contains(parts[next_])) ++next_;
  part_ = next_ < parts.size() ? parts[next_] : std::string();
  ++next_;
}

void FollowLabels::Correct(Title& title) {
  if (!cycling_) return;
  if (title.kind == tav::TitleKind::kCurrent) NextPart();
  if (!part_.empty()) title.section = part_;
}

}  // namespace host
