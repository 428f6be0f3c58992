// Which groups of data the host wants.
#pragma once

#include "TKSplDrv/driver.h"

// Whether a group is wanted, by its letter in upper or lower case; upper is one of
// kReadGroupLetters.
inline bool GroupWanted(const TavDrvV1& driver, char upper) {
  for (int i = 0; i < kReadGroupCount; i += 2) {
    // A letter's lower case stands right behind it.
    if (kReadGroupLetters[i] == upper)
      return driver.groupFlag[i] != 0 || driver.groupFlag[i + 1] != 0;
  }
  return false;
}
