#include "simulator/plant.h"

#include <doctest/doctest.h>

using namespace simulator;

TEST_CASE("sums that go on with the clock are those that are taken anew") {
  RunningPeriod running;
  const Moment begin = ToMoment({2016, 9, 1, 0, 0, 0});
  for (const Plant& plant : {Plant{}, Plant{Site::kGas, 5}}) {
    for (const int hours : {0, 5, 300, 300, 20}) {
      const Moment end = begin + std::chrono::hours(hours);
      const Measured anew = MeasuredPeriod(plant, begin, end);
      CHECK(running.Until(plant, begin, end).values == anew.values);
      CHECK(running.Until(plant, begin, end).situation == anew.situation);
    }
  }
}
