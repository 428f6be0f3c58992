#include "older/reads/text_items.h"

#include <doctest/doctest.h>

#include "common/cp1251.h"
#include "tests/support/hex.h"

using namespace common::literals;
using older::DateForm;
using support::Bytes;
using support::Hex;
using support::ToHex;

namespace {

Bytes Item(const std::string& text, std::size_t size) {
  Bytes item(text.begin(), text.end());
  item.resize(size, ' ');
  return item;
}

}  // namespace

TEST_CASE("text items become their columns' bytes") {
  using namespace std::string_literals;
  struct Case {
    const char* column;
    tav::Type type;
    std::string text;
    const char* value;
    bool parses = true;
    DateForm form = DateForm::kNone;
  };
  const Case cases[] = {
      {"f", tav::Type::kFloat, "12.5", "00 00 48 41"},
      {"f", tav::Type::kFloat, "8,5", "00 00 00 41"},
      {"f", tav::Type::kFloat, "3\0junk!"s, "00 00 40 40"},
      {"f", tav::Type::kFloat, "?1", "00 00 00 00", false},
      {"f", tav::Type::kFloat, "", "00 00 00 00"},
      {"f", tav::Type::kFloat, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF", "00 00 00 00", false},
      {"B", tav::Type::kByte, "257", "01"},
      {"B", tav::Type::kByte, "-1", "FF"},
      {"S", tav::Type::kInt16, "65537", "01 00"},
      {"L", tav::Type::kInt32, "70000", "70 11 01 00"},
      {"TO", tav::Type::kDateTime, "09:30:05", "01 00 01 01 09 1E 05", true, DateForm::kTimeOfDay},
      {"TMK", tav::Type::kDateTime, "23:59", "00 00 00 00 00 00 00", false, DateForm::kTimeOfDay},
      {"DO", tav::Type::kDateTime, "31.12.94", "2E 08 0C 1F 00 00 00", true, DateForm::kDate},
      {"DO", tav::Type::kDateTime, "01.02.95", "CB 07 02 01 00 00 00", true, DateForm::kDate},
      {"DL", tav::Type::kDateTime, "27.03", "01 00 03 1B 00 00 00", true, DateForm::kDayOfYear},
      {"DSommer", tav::Type::kDateTime, "1/4/16", "01 00 04 01 00 00 00", true,
       DateForm::kDayOfYear},
  };
  for (const Case& c : cases) {
    CAPTURE(c.column);
    CAPTURE(c.text);
    tav::Column column = {c.column, c.type, tav::Unit::Chosen(0)};
    column.form = static_cast<std::uint8_t>(c.form);
    Bytes value(column.width, 0xAA);
    CHECK(older::DecodeItem(column, Item(c.text, 8), value) == c.parses);
    CHECK(ToHex(value) == c.value);
  }
}

TEST_CASE("text items of characters") {
  using namespace std::string_literals;
  const tav::Column shortText = {
      "c", tav::Type::kChars, tav::Unit::Chosen(0), tav::Role::kValue, nullptr, nullptr, 9};
  const tav::Column longText = {
      "c", tav::Type::kChars, tav::Unit::Chosen(0), tav::Role::kValue, nullptr, nullptr, 15};
  CHECK(older::ItemSize(shortText) == 8);
  CHECK(older::ItemSize(longText) == 16);

  Bytes value(9, 0xAA);
  CHECK(older::DecodeItem(shortText, Hex("8F E0 31 32 33 34 35 36"), value));
  CHECK(ToHex(value) == "CF F0 31 32 33 34 35 36 00");
  value.assign(15, 0xAA);
  CHECK(older::DecodeItem(longText, Item("bar \0junk"s, 16), value));
  CHECK(ToHex(value) == "62 61 72 20 00 00 00 00 00 00 00 00 00 00 00");
  CHECK(older::DecodeItem(longText, Item("0123456789abcdef", 16), value));
  CHECK(ToHex(value) == "30 31 32 33 34 35 36 37 38 39 61 62 63 64 65");
}
