#include <cstdio>
#include <cstring>

#include "TKSplDrv/conversions.h"
#include "common/format.h"
#include "common/scan.h"

unsigned SysTimeToCharS(char* buffer, const SYSTEMTIME* time) {
  // Never more than the 13 bytes that a caller has to provide, whatever the fields hold.
  constexpr std::size_t kDigits = 12;
  const auto text = common::Format("%02d%02d%02d%02d%02d%02d", time->wDay, time->wMonth,
                                   time->wYear % 100, time->wHour, time->wMinute, time->wSecond);
  std::memcpy(buffer, text.characters, kDigits);
  buffer[kDigits] = '\0';
  return 1;
}

unsigned IntToCharS(char* buffer, int value) {
  std::sprintf(buffer, "%02d", value);
  return 1;
}

char* UcToSChar(char* buffer, unsigned long value) {
  std::sprintf(buffer, "%lu", value);
  return buffer;
}

double AnsiToDouble(const char* text) {
  double value = 0.0;
  common::ScanDouble(text, value);
  return value;
}

unsigned StrExtr(const char* source, char* target, int first, int last) {
  // One character beyond last is copied, and the terminator stands at last + 1 of the target
  // wherever the copy ended: both intended.
  for (int i = 0; i <= last - first + 1; ++i) target[i] = source[first + i];
  target[last + 1] = '\0';
  return 1;
}

namespace {

unsigned char CyrillicDosToWindows(unsigned char c) {
  if (c >= 0x80 && c <= 0xAF) return static_cast<unsigned char>(c + 0x40);
  if (c >= 0xE0 && c <= 0xEF) return static_cast<unsigned char>(c + 0x10);
  if (c == 0xF0) return 0xA8;
  if (c == 0xF1) return 0xB8;
  return c;
}

}  // namespace

unsigned ConvertCharDtoW(char* text, int last) {
  for (int i = 0; i <= last; ++i) {
    text[i] = static_cast<char>(CyrillicDosToWindows(static_cast<unsigned char>(text[i])));
  }
  return 1;
}
