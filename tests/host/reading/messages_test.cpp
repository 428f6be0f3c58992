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
      {{"2016.09.04:13.05.09", "Start Opros"}, "opening the session", nullptr},
      {{"04.09.2016:13", "Date:hour"}, nullptr, nullptr},
      {{"2016.09.04 00:00:00", "Data not found"}, nullptr, nullptr},
      // Attempts: 521 counts from 10 higher in the second half of what it asks for.
      {{"2 Error: 12", "PoitkaArh"}, nullptr, "an archive record could not be read: no reply"},
      {{"1 Error Cmp: 0", "PoitkaArh"},
       nullptr,
       "an archive record could not be read: two readings were not the same"},
      {{"1 Error: 27", "PoitkaReadBD"},
       nullptr,
       "the database could not be read: the reply's checksum is wrong"},
      {{"1 Error: 11", "PoitkaReadBD"},
       nullptr,
       "the database could not be read: the request could not be sent"},
      {{"1 Error: 22", "PoitkaReadBDOB"},
       nullptr,
       "the database could not be read: the instrument refused the request: error 2"},
      {{"1 Error: 12", "PoitkaReadTek"}, nullptr, "the current values could not be read: no reply"},
      {{"1 Error: 22", "PoitkaReadTek"},
       nullptr,
       "the current values could not be read: no good reply, or the instrument refused the "
       "request"},
      {{"1 Error: 27", "PoitkaReadTek"},
       nullptr,
       "the current values could not be read: the reply's checksum is wrong"},
      // What sums up such messages.
      {{"27", "BD"}, nullptr, nullptr},
      {{"Error Init", "Start Opros"}, nullptr, nullptr},
      {{"error", "Init"}, nullptr, nullptr},
      {{"count=3", "error query"}, nullptr, nullptr},
      {{"Error", "ReadStop"}, nullptr, nullptr},
      // What has a row of its own.
      {{"Read 0", "Error Version"}, nullptr, "the instrument could not be identified: no reply"},
      {{"Read 5", "Error Version"},
       nullptr,
       "the instrument could not be identified: the reply was cut short"},
      {{"7", "Error Version"},
       nullptr,
       "the instrument could not be identified: the reply is damaged"},
      {{"X.X.?", "Version"}, nullptr, "the driver does not know this version of the instrument"},
      {{"vX.2.11", "Version"}, nullptr, nullptr},
      {{"2", "Init Opros Error ТВ"}, nullptr, nullptr},
      {{"ir=0", "error read (0)"}, nullptr, "no reply"},
      {{"ir=12", "error read (0)"}, nullptr, "the reply was damaged or cut short"},
      {{"undefined 1234", "error start "},
       nullptr,
       "the instrument could not be identified: the driver does not know this model"},
      {{"not 0x41 result=0x43", "error oper"},
       nullptr,
       "the current values could not be read: the reply was one to another request"},
      {{"2016.9.4 0:0:0", "query error"},
       nullptr,
       "the records from 2016.9.4 0:0:0 on could not be read: no good reply"},
      {{"ошибка", "Чтение почасовых"}, nullptr, "the hours could not be read whole"},
      // The driver swaps the two words for the database.
      {{"ошибка", "Чтение БД ТВ"}, nullptr, nullptr},
      {{"успешно", "Чтение БД ОВ"}, nullptr, "the database could not be read whole"},
  };
  for (const Case& item : cases) {
    CAPTURE(item.message.detail);
    const auto step = host::StepName(item.message);
    CHECK(step.value_or("none") == (item.step == nullptr ? "none" : item.step));
    CHECK(host::IsError(item.message) == (item.error != nullptr));
    if (item.error != nullptr) CHECK(host::Explain(item.message) == item.error);
  }
  CHECK(host::Describe({"17", "Dt"}) == "Dt: 17 (the clock could not be read)");
  CHECK(host::Describe({"2 Error: 12", "PoitkaArh"}) == "PoitkaArh: 2 Error: 12 (no reply)");
  CHECK(host::Describe({"УРМ521", "Tip"}) == "Tip: УРМ521");
  CHECK(host::ReadingResult({"OK", "ReadStop"}) == true);
  CHECK(host::ReadingResult({"Error", "ReadStop"}) == false);
  CHECK(!host::ReadingResult({"OK", "Tip"}));
  CHECK(host::IsEndOfReading({"2016.09.04:13.05.09", "Opros End"}));
}
