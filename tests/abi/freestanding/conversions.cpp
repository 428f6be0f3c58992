#include "TKSplDrv/conversions.h"

#include "tests/abi/freestanding/checks.h"
#include "tests/abi/freestanding/probe.h"
#include "tests/abi/freestanding/system.h"

namespace {

template <class Function>
Callee Of(const char* name, Function* function) {
  return {name, reinterpret_cast<const void*>(function), nullptr, Convention::kC};
}

constexpr unsigned Half(unsigned value) { return 0xDEAD0000U | value; }

void CheckDates() {
  SYSTEMTIME time{2016, 2, 0, 28, 23, 5, 9, 0};
  Expect(Of("DateTimeIncH", &DateTimeIncH), Arguments(&time), 1);
  Check(time.wDay == 29 && time.wHour == 3, "DateTimeIncH", "wrong time");
  Expect(Of("DateTimeIncD", &DateTimeIncD), Arguments(&time), 1);
  Check(time.wMonth == 3 && time.wDay == 4, "DateTimeIncD", "wrong date");
  Expect(Of("DateTimeIncM", &DateTimeIncM), Arguments(&time), 1);
  Check(time.wMonth == 7, "DateTimeIncM", "wrong date");

  TAVDT record{};
  Expect(Of("DateTimeSysToTav", &DateTimeSysToTav), Arguments(&record, &time), 1);
  Check(record.year == 2016 && record.month == 7 && record.second == 9, "DateTimeSysToTav",
        "wrong date");
  Expect(Of("DateTimeTavToSys", &DateTimeTavToSys), Arguments(&time, &record), 1);

  Expect(Of("GetAbsH", &GetAbsH), Arguments(Half(1), Rubbish(1), Rubbish(1), Rubbish(5)), 29);
  Expect(Of("GetAbsD", &GetAbsD), Arguments(Half(1), Rubbish(1), Rubbish(1)), 1);
  // Its result is 16 bits wide.
  const unsigned month = Call(Of("GetAbsM", &GetAbsM), Arguments(Half(2), Rubbish(3)), 4);
  Check((month & 0xFFFF) == 14, "GetAbsM", "wrong result");
}

// Returned through a pointer that the caller passes and removes.
void CheckReturnedRecord() {
  struct {
    TAVDT record;
    unsigned char behind;
  } memory{{}, 0x77};
  Expect(Of("DtUrmToTav", &DtUrmToTav), Arguments(&memory.record, "04.09.16/13:05:09"),
         Word(&memory.record));
  Check(memory.record.year == 2016 && memory.record.day == 4 && memory.record.second == 9,
        "DtUrmToTav", "wrong date");
  Check(memory.behind == 0x77, "DtUrmToTav", "writes behind the record");
  const TAVDT returned = DtUrmToTav("01.01.95 00:00:00");
  Check(returned.year == 1995, "DtUrmToTav", "wrong year");
}

void CheckTexts() {
  char text[20] = {};
  const SYSTEMTIME time{2005, 1, 0, 2, 3, 4, 5, 0};
  Expect(Of("SysTimeToCharS", &SysTimeToCharS), Arguments(text, &time), 1);
  Check(SameText(text, "020105030405"), "SysTimeToCharS", "wrong text");
  Expect(Of("IntToCharS", &IntToCharS), Arguments(text, 7), 1);
  Check(SameText(text, "07"), "IntToCharS", "wrong text");
  Expect(Of("UcToSChar", &UcToSChar), Arguments(text, 4000000000U), Word(text));
  Check(SameText(text, "4000000000"), "UcToSChar", "wrong text");
  Expect(Of("StrExtr", &StrExtr), Arguments("abcdef", text, 0, 2), 1);
  Check(SameText(text, "abc"), "StrExtr", "wrong text");
  text[0] = '\x9F';
  Expect(Of("ConvertCharDtoW", &ConvertCharDtoW), Arguments(text, 0), 1);
  Check(text[0] == '\xDF', "ConvertCharDtoW", "wrong letter");
  Check(AnsiToDouble("12.5x") == 12.5, "AnsiToDouble", "wrong number");
}

void CheckBlocks() {
  unsigned char failed = 7;
  void* block = _malloc_(64, &failed);
  Check(block != nullptr && failed == 0, "_malloc_", "fails");
  for (unsigned i = 0; i < 64; ++i) {
    if (static_cast<char*>(block)[i] != 0) Check(false, "_malloc_", "the block is not zero");
  }
  Check(_free_(block) == 1, "_free_", "wrong result");
  Expect(Of("_free_", &_free_), Arguments(0), 1);
  Check(_free_(_malloc_(1)) == 1, "_malloc_", "wrong result");
}

}  // namespace

void CheckConversions() {
  CheckDates();
  CheckReturnedRecord();
  CheckTexts();
  CheckBlocks();
}
