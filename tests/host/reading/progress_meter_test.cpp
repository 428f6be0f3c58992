#include "host/reading/progress_meter.h"

#include <doctest/doctest.h>

namespace {

class Last final : public host::RunListener {
 public:
  void ShowProgress(const host::Progress& progress) override { shown = progress; }
  host::Progress shown;
};

SYSTEMTIME Moment(unsigned short day, unsigned short hour) {
  return {2016, 9, 0, day, hour, 0, 0, 0};
}

}  // namespace

TEST_CASE("a k7 reading's progress is counted from its requests") {
  Last last;
  host::ProgressMeter::Clock::time_point now;
  host::ProgressMeter meter(last, [&] { return now; });
  host::Run run;
  run.settings.emplace();
  run.settings->kind = tav::Mode::kK7;
  run.settings->groups = "TH";
  run.settings->from = Moment(1, 13);
  run.settings->to = Moment(3, 12);  // 48 hours
  meter.BeginRun(run);
  struct Step {
    host::Message message;
    int times;
    int percent;
    long long left;  // s, of 100 s that have passed at 50 %; below 0: not known
  };
  const Step steps[] = {
      {{"УРМ523", "Tip"}, 1, 0, -1},
      {{"ТВ1", "Ch"}, 1, 0, -1},
      {{"...", "Чтение текущих"}, 1, 0, -1},
      {{"...", "Чтение почасовых"}, 1, 2, -1},
      {{"2016.9.1 13:0:0", "read..."}, 24, 26, 284},
      {{"2016.9.1 13:0:0", "read..."}, 30, 50, 100},
      {{"ТВ2", "Ch"}, 1, 50, 100},
      {{"...", "Чтение почасовых"}, 1, 52, 92},
      {{"2016.9.1 13:0:0", "read..."}, 48, 99, 1},
  };
  now += std::chrono::seconds(100);
  for (const Step& step : steps) {
    for (int i = 0; i < step.times; ++i) meter.Tell(step.message);
    meter.ShowProgress({0, "hours"});
    CHECK(last.shown.percent == step.percent);
    CHECK(last.shown.secondsLeft.value_or(-1) == step.left);
  }
  meter.EndRun({});
  CHECK(last.shown.percent == 100);
}
