// How much of a continuous reading is told, and when it is enough.
#pragma once

#include <atomic>
#include <chrono>
#include <functional>
#include <map>
#include <string>

#include "host/reading/wrapped_listener.h"

namespace host {

struct Pace {
  std::chrono::seconds interval{0};  // at least, between rows of current values; 0: all of them
  std::size_t count = 0;             // of such rows of each heat system; 0: without an end
  std::chrono::seconds duration{0};  // once the archives are read; 0: without an end
};

// The driver keeps its own pace; rows of current values that were not asked for are left out here,
// and sections of them that are left without a row. So is a row that says the same as the one
// a second before it, clock included: an instrument may be read many times within a second. Hours
// and days are told whenever they come. The pieces of the stream are told whole.
class FollowPace final : public WrappedListener {
 public:
  using Clock = std::chrono::steady_clock;
  using Now = std::function<Clock::time_point()>;

  // to must outlive it. now is called from two threads.
  FollowPace(RunListener& to, const Pace& pace, Now now = Clock::now)
      : WrappedListener(to), pace_(pace), now_(std::move(now)) {}

  void BeginRun(const Run& run) override;
  void BeginSection(const Section& section) override;
  void AddRow(const Section& section, const Cells& cells) override;
  void EndSection(const Section& section) override;
  void Tell(const Message& message) override;

  // The same question, with the answer that it is done once the count or the duration is reached.
  // It must not outlive this.
  AskStop With(AskStop askStop) const;

  // Once the run has ended.
  std::size_t Rows() const { return rows_; }
  std::chrono::seconds Elapsed() const;

 private:
  struct HeatSystem {
    std::string lastRow;
    Clock::time_point lastTime{};
    Clock::time_point next = Clock::time_point::min();
    std::size_t rows = 0;
  };

  bool Done() const;
  bool Wanted(const Section& section, const Cells& cells);
  void BeginCycle();

  const Pace pace_;
  const Now now_;
  Clock::time_point begun_{};
  std::size_t rows_ = 0;
  bool open_ = false;  // the section that comes in was told
  std::map<std::string, HeatSystem> systems_;
  // What Done looks at, from the other thread.
  Clock::time_point started_{};  // before following_ is set
  std::atomic<bool> following_ = false;
  std::atomic<bool> counted_ = false;
};

}  // namespace host
