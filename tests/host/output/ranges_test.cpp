// What is missing, in words.
#include "host/output/ranges.h"

#include <doctest/doctest.h>

using tav::TitleKind;

TEST_CASE("missing records are told as ranges of dates") {
  const host::DateRange one{{2016, 9, 1, 3, 0, 0}, {2016, 9, 1, 3, 0, 0}};
  const host::DateRange within{{2016, 9, 2, 5, 0, 0}, {2016, 9, 2, 7, 0, 0}};
  const host::DateRange over{{2016, 7, 31, 23, 0, 0}, {2016, 9, 1, 0, 0, 0}};
  struct Case {
    TitleKind kind;
    std::vector<host::DateRange> ranges;
    std::size_t most;
    std::string text;
  };
  const Case cases[] = {
      {TitleKind::kHourly, {one, within}, 2, "2016-09-01 03:00, 2016-09-02 05:00 to 07:00"},
      {TitleKind::kHourly, {over, one, one}, 1, "2016-07-31 23:00 to 2016-09-01 00:00 and 2 more"},
      {TitleKind::kDaily, {within, over}, 9, "2016-09-02, 2016-07-31 to 2016-09-01"},
      {TitleKind::kMonthly, {one, over}, 9, "2016-09, 2016-07 to 2016-09"},
  };
  for (const Case& item : cases) {
    CHECK(host::RangesText(item.kind, item.ranges, item.most) == item.text);
  }
  host::SectionAccount account{TitleKind::kHourly, "", 744, 741, 0, 3, {}, {one}, "no reply"};
  CHECK(host::MissingText(account) == "missing 3 of 744: 2016-09-01 03:00 (no reply)");
  CHECK(host::NotHeldText(account) == "");
  account = {TitleKind::kCurrent, "", 1, 0, 1, 0, {}, {}, ""};
  CHECK(host::MissingText(account) == "");
  CHECK(host::NotHeldText(account) == "the instrument does not hold 1 of 1");
}
