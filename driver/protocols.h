// The protocols that this driver reads by, a row each: what the host asks about a kind and what the
// reading thread needs of it.
#pragma once

#include <memory>
#include <span>

#include "TKSplDrv/records.h"
#include "driver/reader.h"

struct Protocol {
  tav::Mode mode;
  const char* englishName;
  const char* russianName;
  std::span<const int> speeds;  // bit/s; the first also stands for an index that there is not
  std::span<const tav::ReadGroup> groups;
  int largestNumber;       // of an instrument on the line, letter 'N'
  unsigned long exitCode;  // of the reading thread
  std::unique_ptr<Reader> (*make)(TavDrvV1& driver);
};

std::span<const Protocol> Protocols();

// The protocol of a kind; null for one that this driver does not have.
const Protocol* FindProtocol(int kind);
