#include "host/reading/messages.h"

#include <doctest/doctest.h>

using host::Message;

TEST_CASE("messages are understood") {
  struct Case {
    Message message;
    const char* step;   // null: none is announced
    const char* error;  // null: no error
  };
  const Case cases[] = {
      {{"Start Read", "Month ОВ"}, "months ОВ", nullptr},
      {{"Start Read ТВ1 ИЗМ", "Sit"}, "log ТВ1 ИЗМ", nullptr},
      {{"...", "Чтение текущих"}, "Чтение текущих", nullptr},
      {{"ошибка", "Чтение текущих"}, nullptr, "Чтение текущих: ошибка"},
      {{"2 Error: 12", "PoitkaArh"}, nullptr, "PoitkaArh: 2 Error: 12 (no reply)"},
      {{"17", "Dt"}, nullptr, "Dt: 17 (the reply's checksum is wrong)"},
      {{"Read 0", "Error Version"}, nullptr, "Error Version: Read 0 (no reply)"},
      {{"Error Init", "Start Opros"}, nullptr, nullptr},
      {{"2016.09.04:13.05.09", "Start Opros"}, "opening the session", nullptr},
      {{"2016.09.04 00:00:00", "Data not found"}, nullptr, nullptr},
      {{"04.09.2016:13", "Date:hour"}, nullptr, nullptr},
  };
  for (const Case& item : cases) {
    CAPTURE(item.message.detail);
    const auto step = host::StepName(item.message);
    CHECK(step.value_or("none") == (item.step == nullptr ? "none" : item.step));
    CHECK(host::IsError(item.message) == (item.error != nullptr));
    if (item.error != nullptr) CHECK(host::Describe(item.message) == item.error);
  }
  CHECK(host::ReadingResult({"OK", "ReadStop"}) == true);
  CHECK(host::ReadingResult({"Error", "ReadStop"}) == false);
  CHECK(!host::ReadingResult({"OK", "Tip"}));
  CHECK(host::IsEndOfReading({"2016.09.04:13.05.09", "Opros End"}));
}
