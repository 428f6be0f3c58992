#include "tests/abi/freestanding/system.h"

namespace {

unsigned passedCount = 0;
unsigned failedCount = 0;

void Print(const char* text) {
  constexpr unsigned long kStandardOutput = static_cast<unsigned long>(-11);
  unsigned long length = 0;
  while (text[length] != '\0') ++length;
  unsigned long written = 0;
  WriteFile(GetStdHandle(kStandardOutput), text, length, &written, nullptr);
}

}  // namespace

// What compilers call on their own, and the mark of a program that uses floating point.
extern "C" {
extern const int _fltused = 0;

void* memset(void* target, int value, decltype(sizeof 0) size) {
  for (decltype(size) i = 0; i < size; ++i)
    static_cast<volatile char*>(target)[i] = static_cast<char>(value);
  return target;
}

void* memcpy(void* target, const void* source, decltype(sizeof 0) size) {
  for (decltype(size) i = 0; i < size; ++i)
    static_cast<volatile char*>(target)[i] = static_cast<const char*>(source)[i];
  return target;
}
}

// Named by the table of a class with a virtual destructor; the test frees nothing through it.
void operator delete(void* /*block*/) noexcept {}

bool SameText(const char* left, const char* right) {
  while (*left != '\0' && *left == *right) {
    ++left;
    ++right;
  }
  return *left == *right;
}

void Check(bool passed, const char* name, const char* detail) {
  ++(passed ? passedCount : failedCount);
  if (passed) return;
  Print("FAILED: ");
  Print(name);
  Print(": ");
  Print(detail);
  Print("\n");
}

unsigned ExitCode() { return failedCount == 0 && passedCount != 0 ? 0 : 1; }
