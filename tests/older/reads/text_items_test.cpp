#include "older/reads/text_items.h"

#include <doctest/doctest.h>

#include "tests/support/hex.h"

using older::DateForm;
using support::Bytes;
using tav::Type;

TEST_CASE("text items become their columns' bytes") {
  using namespace std::string_literals;
  struct Case {
    Type type;
    std::string text;  // padded with blanks
    const char* value;
    bool parses = true;
    DateForm form = DateForm::kNone;
    std::uint8_t width = 0;  // of characters
  };
  constexpr const char* kNoDate = "00 00 00 00 00 00 00";
  const Case cases[] = {
      {Type::kFloat, "12.5", "00 00 48 41"},
      {Type::kFloat, "8,5", "00 00 00 41"},
      {Type::kFloat, "3\0junk!"s, "00 00 40 40"},
      {Type::kFloat, "?1", "00 00 00 00", false},
      {Type::kFloat, "", "00 00 00 00"},
      {Type::kFloat, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "00 00 00 00", false},
      {Type::kByte, "257", "01"},
      {Type::kByte, "-1", "FF"},
      {Type::kInt16, "65537", "01 00"},
      {Type::kInt32, "70000", "70 11 01 00"},
      {Type::kInt32, "12.5", "0C 00 00 00"},
      {Type::kInt32, "x", "00 00 00 00", false},
      {Type::kDateTime, "09:30:05", "01 00 01 01 09 1E 05", true, DateForm::kTimeOfDay},
      {Type::kDateTime, "9x30y5", "01 00 01 01 09 1E 05", true, DateForm::kTimeOfDay},
      {Type::kDateTime, "23:59", kNoDate, false, DateForm::kTimeOfDay},
      {Type::kDateTime, "23:59:", kNoDate, false, DateForm::kTimeOfDay},
      {Type::kDateTime, "31.12.94", "2E 08 0C 1F 00 00 00", true, DateForm::kDate},
      {Type::kDateTime, "01.02.95", "CB 07 02 01 00 00 00", true, DateForm::kDate},
      {Type::kDateTime, "27.03", "01 00 03 1B 00 00 00", true, DateForm::kDayOfYear},
      {Type::kDateTime, "1/4/16", "01 00 04 01 00 00 00", true, DateForm::kDayOfYear},
      {Type::kDateTime, "27", kNoDate, false, DateForm::kDayOfYear},
      {Type::kDateTime, "..03", kNoDate, false, DateForm::kDayOfYear},
      {Type::kChars, "\x8F\xE0 1234", "CF F0 20 31 32 33 34 20 00", true, DateForm::kNone, 9},
      {Type::kChars, "bar \0junk"s, "62 61 72 20 00 00 00 00 00 00 00 00 00 00 00", true,
       DateForm::kNone, 15},
      {Type::kChars, "0123456789abcdef", "30 31 32 33 34 35 36 37 38 39 61 62 63 64 65", true,
       DateForm::kNone, 15},
  };
  for (const Case& c : cases) {
    CAPTURE(c.text);
    tav::Column column = {"column", c.type, tav::Unit::Chosen(0)};
    column.form = static_cast<std::uint8_t>(c.form);
    if (c.width != 0) column.width = c.width;
    Bytes item(c.text.begin(), c.text.end());
    item.resize(older::ItemSize(column), ' ');
    CHECK(item.size() == (c.width == 15 ? 16 : 8));
    Bytes value(column.width, 0xAA);
    CHECK(older::DecodeItem(column, item, value) == c.parses);
    CHECK(support::ToHex(value) == c.value);
  }
}
