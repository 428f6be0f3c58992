#include "TKSplDrv/conversions.h"

#include <doctest/doctest.h>

#include <cstring>
#include <string>

#include "common/cp1251.h"
#include "tests/support/hex.h"

using namespace common::literals;

TEST_CASE("absolute numbers follow the four-year calendar") {
  CHECK(GetAbsD(1, 1, 1) == 1);
  CHECK(GetAbsD(2016, 3, 1) - GetAbsD(2016, 2, 28) == 2);
  CHECK(GetAbsD(2015, 3, 1) - GetAbsD(2015, 2, 28) == 1);
  CHECK(GetAbsD(2100, 3, 1) - GetAbsD(2100, 2, 28) == 2);
  CHECK(GetAbsH(2016, 9, 4, 13) - GetAbsH(2016, 9, 4, 0) == 13);
  CHECK(GetAbsM(2016, 1) - GetAbsM(2015, 12) == 1);
  CHECK(GetAbsD(1, 13, 1) == 1);  // a month outside the table counts no days before it
}

TEST_CASE("every day of two centuries is one after the day before") {
  SYSTEMTIME date{1950, 1, 0, 1, 23, 30, 15, 7};
  unsigned day = GetAbsD(1950, 1, 1);
  while (date.wYear < 2150) {
    DateTimeIncH(&date);
    REQUIRE(GetAbsD(date.wYear, static_cast<unsigned char>(date.wMonth),
                    static_cast<unsigned char>(date.wDay)) == ++day);
    REQUIRE(date.wHour == 0);
    date.wHour = 23;
  }
  CHECK(date.wMinute == 30);
  CHECK(date.wMilliseconds == 7);
}

TEST_CASE("stepping a date") {
  const struct {
    const char* name;
    unsigned (*step)(SYSTEMTIME*);
    SYSTEMTIME from, to;
  } steps[] = {
      {"year end by an hour", DateTimeIncH, {2016, 12, 0, 31, 23, 5}, {2017, 1, 0, 1, 0, 5}},
      {"an hour past 23", DateTimeIncH, {2016, 1, 0, 1, 40}, {2016, 1, 0, 2, 0}},
      {"into a leap day", DateTimeIncD, {2016, 2, 0, 28, 7}, {2016, 2, 0, 29, 7}},
      {"out of a leap day", DateTimeIncD, {2016, 2, 0, 29}, {2016, 3, 0, 1}},
      {"no leap day", DateTimeIncD, {2015, 2, 0, 28}, {2015, 3, 0, 1}},
      {"a day past the month", DateTimeIncD, {2016, 4, 0, 31}, {2016, 5, 0, 1}},
      {"a month past 12", DateTimeIncM, {2016, 14, 0, 9}, {2017, 1, 0, 9}},
  };
  for (const auto& step : steps) {
    CAPTURE(step.name);
    SYSTEMTIME date = step.from;
    CHECK(step.step(&date) == 1);
    CHECK(std::memcmp(&date, &step.to, sizeof date) == 0);
  }
}

TEST_CASE("the instrument's date text") {
  const std::pair<const char*, TAVDT> cases[] = {
      {"04-09-16 13:05:09", {2016, 9, 4, 13, 5, 9}},
      {"04.09.16/13:05:09", {2016, 9, 4, 13, 5, 9}},
      {"01.01.95 00:00:00", {1995, 1, 1, 0, 0, 0}},
      {"01.01.94 00:00:00", {2094, 1, 1, 0, 0, 0}},
      {"01.01.2016 00:00:00", {3916, 1, 1, 0, 0, 0}},
      {"01.01.-1 00:00:00", {1899, 1, 1, 0, 0, 0}},
      {"04.09", {2000, 9, 4, 0, 0, 0}},
      {"04", {2000, 0, 4, 0, 0, 0}},
      {"04.09.16x13y05z09", {2016, 9, 4, 13, 5, 9}},
  };
  for (const auto& [text, expected] : cases) {
    CAPTURE(text);
    const TAVDT date = DtUrmToTav(text);
    CHECK(std::memcmp(&date, &expected, sizeof date) == 0);
  }
}

TEST_CASE("dates between the platform and the host keep what they do not carry") {
  SYSTEMTIME system{2000, 1, 6, 1, 1, 1, 1, 999};
  const TAVDT tav{2016, 9, 4, 13, 5, 9};
  CHECK(DateTimeTavToSys(&system, &tav) == 1);
  CHECK(system.wDayOfWeek == 6);
  CHECK(system.wMilliseconds == 999);
  TAVDT back;
  CHECK(DateTimeSysToTav(&back, &system) == 1);
  CHECK(std::memcmp(&back, &tav, sizeof tav) == 0);
}

TEST_CASE("texts of numbers and dates") {
  char text[32];
  const SYSTEMTIME date{2005, 1, 0, 12, 13, 14, 59, 0};
  CHECK(SysTimeToCharS(text, &date) == 1);
  CHECK(std::string(text) == "120105131459");
  CHECK(IntToCharS(text, 7) == 1);
  CHECK(std::string(text) == "07");
  CHECK(std::string(UcToSChar(text, 4294967295UL)) == "4294967295");

  for (const auto& [number, value] : {std::pair{"12.5", 12.5},
                                      {"  +3e2x", 300.0},
                                      {"-.25", -0.25},
                                      {"\t7", 7.0},
                                      {"+-1", 0.0},
                                      {"", 0.0},
                                      {"no", 0.0},
                                      {"12,5", 12.0}}) {
    CAPTURE(number);
    CHECK(AnsiToDouble(number) == value);
  }
}

TEST_CASE("a copied piece ends where the target says, not where the copy ends") {
  char whole[] = "........";
  CHECK(StrExtr("abcdefgh", whole, 0, 2) == 1);
  CHECK(std::string(whole) == "abc");
  char later[] = "........";
  StrExtr("abcdefgh", later, 2, 4);
  CHECK(std::string(later, 8) == std::string("cdef.\0..", 8));
}

TEST_CASE("Cyrillic letters of code page 866, and source texts in code page 1251") {
  char text[] = "\x80\x9F\xA0\xAF\xE0\xEF\xF0\xF1\xB0\xDF\xF2\xFF z";
  CHECK(ConvertCharDtoW(text, -1) == 1);
  CHECK(text[0] == '\x80');
  ConvertCharDtoW(text, 12);
  CHECK(std::string(text) == "\xC0\xDF\xE0\xEF\xF0\xFF\xA8\xB8\xB0\xDF\xF2\xFF z");
  CHECK(std::string("Ирвела 52x ёЁ"_w) == "\xC8\xF0\xE2\xE5\xEB\xE0 52x \xB8\xA8");
}

TEST_CASE("blocks are zeroed and null is released") {
  unsigned char failed = 7;
  auto* block = static_cast<unsigned char*>(_malloc_(64, &failed));
  REQUIRE(block != nullptr);
  CHECK(failed == 0);
  CHECK(support::Bytes(block, block + 64) == support::Bytes(64));
  CHECK(_free_(block) == 1);
  CHECK(_free_(nullptr) == 1);
}
