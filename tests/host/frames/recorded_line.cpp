#include "tests/host/frames/recorded_line.h"

#include "host/frames/feeding_line.h"
#include "tests/host/completeness/simulated_reading.h"

namespace frames_test {

std::vector<Passed> Record(const simulator::Settings& settings) {
  std::vector<Passed> passed;
  host::frames::FrameFeed feed(
      [&](const host::frames::Frame& frame, host::ByteView bytes, long long) {
        passed.push_back({frame, {bytes.begin(), bytes.end()}});
      });
  host::frames::FeedingLine line(std::make_unique<completeness::SimulatedPort>(settings), feed);
  completeness::ReadOver(line, completeness::Asked(settings.model, 2, 0));
  feed.Finish();
  return passed;
}

}  // namespace frames_test
