#include "host/reading/follow_pace.h"

#include <algorithm>
#include <utility>

namespace host {
namespace {

// To which an instrument's clock is exact.
constexpr std::chrono::seconds kOneSecond{1};

std::string RowText(const Section& section, const Cells& cells) {
  std::string text = DateText(section.title.time);
  for (const Cell& cell : cells) {
    text += '|';
    AppendCell(text, cell);
  }
  return text;
}

}  // namespace

void FollowPace::BeginRun(const Run& run) {
  begun_ = now_();
  Wrapped().BeginRun(run);
}

// One of current values is told with its first row.
void FollowPace::BeginSection(const Section& section) {
  open_ = section.title.kind != tav::TitleKind::kCurrent;
  if (open_) Wrapped().BeginSection(section);
}

void FollowPace::AddRow(const Section& section, const Cells& cells) {
  const bool current = section.title.kind == tav::TitleKind::kCurrent;
  if (current && !Wanted(section, cells)) return;
  if (!std::exchange(open_, true)) Wrapped().BeginSection(section);
  ++rows_;
  Wrapped().AddRow(section, cells);
}

void FollowPace::EndSection(const Section& section) {
  if (std::exchange(open_, false)) Wrapped().EndSection(section);
}

bool FollowPace::Wanted(const Section& section, const Cells& cells) {
  HeatSystem& system = systems_[SectionKey(section)];
  if (pace_.count > 0 && system.rows >= pace_.count) return false;
  const Clock::time_point now = now_();
  if (now < system.next) return false;
  std::string row = RowText(section, cells);
  if (row == system.lastRow && now - system.lastTime < kOneSecond) return false;
  system.lastRow = std::move(row);
  system.lastTime = now;
  ++system.rows;
  // Late rows do not put off the next ones, unless by a whole interval.
  const Clock::time_point next = std::max(system.next, Clock::time_point()) + pace_.interval;
  system.next = next > now ? next : now + pace_.interval;
  return true;
}

void FollowPace::Tell(const Message& message) {
  if (BeginsCycle(message)) BeginCycle();
  Wrapped().Tell(message);
}

// Every heat system has had its turn by now, in the reading before the first cycle or in a cycle.
void FollowPace::BeginCycle() {
  if (!following_) {
    started_ = now_();
    following_ = true;
  }
  if (pace_.count == 0 || systems_.empty()) return;
  counted_ = std::all_of(systems_.begin(), systems_.end(),
                         [&](const auto& known) { return known.second.rows >= pace_.count; });
}

bool FollowPace::Done() const {
  if (counted_) return true;
  return following_ && pace_.duration.count() > 0 && now_() - started_ >= pace_.duration;
}

AskStop FollowPace::With(AskStop askStop) const {
  return [this, askStop = std::move(askStop)] {
    const StopRequest request = askStop();
    return request == StopRequest::kNone && Done() ? StopRequest::kDone : request;
  };
}

std::chrono::seconds FollowPace::Elapsed() const {
  return std::chrono::duration_cast<std::chrono::seconds>(now_() - begun_);
}

}  // namespace host
