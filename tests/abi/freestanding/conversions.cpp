#include "tests/abi/freestanding/checks.h"

namespace {

// Each row is called four times.
void CheckDates() {
  SYSTEMTIME time{2016, 2, 0, 28, 23, 5, 9, 0};
  SYSTEMTIME copy{};
  TAVDT record{};
  Expect({{Of("DateTimeIncH", &DateTimeIncH), {&time}, 1},
          {Of("DateTimeIncD", &DateTimeIncD), {&time}, 1},
          {Of("DateTimeIncM", &DateTimeIncM), {&time}, 1},
          {Of("DateTimeSysToTav", &DateTimeSysToTav), {&record, &time}, 1},
          {Of("DateTimeTavToSys", &DateTimeTavToSys), {&copy, &record}, 1},
          {Of("GetAbsH", &GetAbsH), {Half(1), Rubbish(1), Rubbish(1), Rubbish(5)}, 29},
          {Of("GetAbsD", &GetAbsD), {Half(1), Rubbish(1), Rubbish(1)}, 1}});
  Check(time.wMonth == 7 && time.wDay == 4 && time.wHour == 3, "DateTimeInc", "wrong steps");
  Check(record.year == 2016 && record.month == 7 && record.second == 9, "DateTimeSysToTav",
        "wrong date");
  Check(copy.wDay == 4 && copy.wMinute == 5, "DateTimeTavToSys", "wrong date");
  // Its result is 16 bits wide.
  const unsigned month = Call(Of("GetAbsM", &GetAbsM), Arguments(Half(2), Rubbish(3)), 4);
  Check((month & 0xFFFF) == 14, "GetAbsM", "wrong result");
}

void CheckTexts() {
  char date[20], two[20], number[20], part[20], letter[] = "\x9F";
  char source[] = "abcdef", dateText[] = "04.09.16/13:05:09", decimal[] = "12.5x";
  SYSTEMTIME time{2005, 1, 0, 2, 3, 4, 5, 0};
  struct {
    TAVDT record;  // returned through a pointer that the caller passes and removes
    unsigned char behind;
  } memory{{}, 0x77};
  Expect({{Of("DtUrmToTav", &DtUrmToTav), {&memory, dateText}, Word(&memory)},
          {Of("SysTimeToCharS", &SysTimeToCharS), {date, &time}, 1},
          {Of("IntToCharS", &IntToCharS), {two, 7}, 1},
          {Of("UcToSChar", &UcToSChar), {number, 4000000000U}, Word(number)},
          {Of("StrExtr", &StrExtr), {source, part, 0, 2}, 1}});
  Check(memory.record.year == 2016 && memory.record.second == 9 && memory.behind == 0x77,
        "DtUrmToTav", "wrong date, or behind the record");
  Check(DtUrmToTav(dateText).day == 4, "DtUrmToTav", "wrong day");
  Check(SameText(date, "020105030405"), "SysTimeToCharS", "wrong text");
  Check(SameText(two, "07") && SameText(number, "4000000000"), "numbers", "wrong text");
  Check(SameText(part, "abc"), "StrExtr", "wrong text");
  Expect({{Of("ConvertCharDtoW", &ConvertCharDtoW), {letter, 0}, 1}});
  Check(SameText(letter, "\xDF"), "ConvertCharDtoW", "wrong letter");
  Check(AnsiToDouble(decimal) == 12.5, "AnsiToDouble", "wrong number");
}

void CheckBlocks() {
  unsigned char failed = 7;
  auto* block = static_cast<unsigned*>(_malloc_(4, &failed));
  Check(failed == 0 && block != nullptr && *block == 0, "_malloc_", "no zero-filled block");
  Check(_free_(block) && _free_(_malloc_(1)) && _free_(nullptr), "_free_", "wrong result");
}

}  // namespace

void CheckConversions() {
  CheckDates();
  CheckTexts();
  CheckBlocks();
}
