// Which groups of data the host wants.
#pragma once

#include "TKSplDrv/driver.h"
#include "TKSplDrv/records.h"

// Where a letter's flag stands in TavDrvV1::groupFlag; -1 for a letter that has none.
constexpr int GroupIndex(char letter) {
  for (int i = 0; i < kReadGroupCount; ++i) {
    if (kReadGroupLetters[i] == letter) return i;
  }
  return -1;
}

constexpr int GroupIndex(tav::ReadGroup group) { return GroupIndex(static_cast<char>(group)); }

// Whether a letter in upper or lower case is a group's: its lower case stands right behind it.
constexpr bool IsLetterOf(tav::ReadGroup group, char letter) {
  const int index = GroupIndex(group);
  return letter == kReadGroupLetters[index] || letter == kReadGroupLetters[index + 1];
}

// Whether a group is wanted, by its letter in upper or lower case.
inline bool GroupWanted(const TavDrvV1& driver, tav::ReadGroup group) {
  const int index = GroupIndex(group);
  return driver.groupFlag[index] != 0 || driver.groupFlag[index + 1] != 0;
}
