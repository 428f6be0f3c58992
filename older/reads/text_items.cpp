#include "older/reads/text_items.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "TKSplDrv/conversions.h"
#include "common/scan.h"

namespace older {
namespace {

using TerminatedItem = std::array<char, kLongItemSize + 1>;

TerminatedItem Terminated(std::span<const std::uint8_t> item) {
  TerminatedItem text{};
  std::memcpy(text.data(), item.data(), std::min(item.size(), kLongItemSize));
  return text;
}

bool IsBlank(const char* text) { return text[std::strspn(text, " ")] == '\0'; }

void StoreCharacters(std::span<const std::uint8_t> characters, std::span<std::uint8_t> value) {
  std::copy(characters.begin(), characters.end(), value.begin());
  ConvertCharDtoW(reinterpret_cast<char*>(value.data()), static_cast<int>(characters.size()) - 1);
}

bool DecodeFloat(const char* text, std::span<std::uint8_t> value) {
  double number = 0;
  if (!common::ScanDouble(text, number)) return false;
  const auto single = static_cast<float>(number);
  std::memcpy(value.data(), &single, sizeof single);
  return true;
}

bool DecodeInteger(const char* text, std::span<std::uint8_t> value) {
  std::uint32_t number = 0;
  if (!common::Scanner(text).Integer(number)) return false;
  std::memcpy(value.data(), &number, value.size());
  return true;
}

bool ScanFields(const char* text, std::span<std::uint32_t> fields) {
  common::Scanner scanner(text);
  for (std::uint32_t& field : fields) {
    if (&field != &fields.front() && !scanner.Separator()) return false;
    if (!scanner.Integer(field)) return false;
  }
  return true;
}

// Year 1 marks a date without a year.
bool DecodeDate(DateForm form, const char* text, std::span<std::uint8_t> value) {
  const auto byte = [](std::uint32_t number) { return static_cast<unsigned char>(number); };
  std::uint32_t fields[3] = {};
  if (!ScanFields(text, std::span(fields).first(form == DateForm::kDayOfYear ? 2 : 3))) {
    return false;
  }
  TAVDT date = {1, 1, 1, 0, 0, 0};
  if (form == DateForm::kTimeOfDay) {
    date.hour = byte(fields[0]);
    date.minute = byte(fields[1]);
    date.second = byte(fields[2]);
  } else {
    date.day = byte(fields[0]);
    date.month = byte(fields[1]);
    if (form == DateForm::kDate) date.year = common::FullYear(fields[2]);
  }
  std::memcpy(value.data(), &date, sizeof date);
  return true;
}

}  // namespace

bool DecodeItem(const Column& column, std::span<const std::uint8_t> item,
                std::span<std::uint8_t> value) {
  std::fill(value.begin(), value.end(), std::uint8_t{0});
  if (column.type == Type::kChars) {
    if (item.size() > kItemSize) {
      DecodeText(item.first(value.size()), value);
    } else {
      StoreCharacters(item, value);
    }
    return true;
  }
  const TerminatedItem text = Terminated(item);
  if (IsBlank(text.data())) return true;
  if (column.type == Type::kFloat) return DecodeFloat(text.data(), value);
  if (column.type != Type::kDateTime) return DecodeInteger(text.data(), value);
  return DecodeDate(DateForm{column.form}, text.data(), value);
}

common::ShortText ItemText(std::span<const std::uint8_t> item) {
  TerminatedItem text = Terminated(item);
  std::size_t length = std::strlen(text.data());
  while (length > 0 && text[length - 1] == ' ') --length;
  ConvertCharDtoW(text.data(), static_cast<int>(length) - 1);
  return common::Format("%.*s", static_cast<int>(length), text.data());
}

void DecodeText(std::span<const std::uint8_t> text, std::span<std::uint8_t> value) {
  const auto end = std::find(text.begin(), text.end(), std::uint8_t{0});
  std::fill(value.begin(), value.end(), std::uint8_t{0});
  StoreCharacters(text.first(static_cast<std::size_t>(end - text.begin())), value);
}

}  // namespace older
