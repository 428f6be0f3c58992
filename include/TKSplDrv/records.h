// The record format: what a driver writes into the host's stream, and the letters and numbers by
// which a host asks for it. Shared by the driver, which writes it, and by hosts, which read it;
// docs/output-records.md shows a stream piece by piece.
//
// A section is a title, its column headers, rows with a marker before each, and in archives and
// logs an end marker. Integers are little-endian, texts are code page 1251.
#pragma once

#include "TKSplDrv/types.h"

namespace tav {

// --- Titles: the first byte of a section ---

enum class TitleKind : char {
  kCurrent = 'O',   // current values, totals
  kHourly = 'H',    // archives: a row an hour,
  kDaily = 'D',     // a day,
  kMonthly = 'M',   // a month
  kLog = 'S',       // changes, situations, events: a row an entry
  kDatabase = 'B',  // parameters
};

// --- Column headers ---

// The type of a column's values.
enum class Type : char {
  kFloat = 'f',     // 4-byte float
  kDouble = 'd',    // 8-byte float
  kInt32 = 'L',     // 4-byte unsigned integer
  kInt16 = 'S',     // 2-byte unsigned integer
  kByte = 'B',      // 1-byte unsigned integer
  kDateTime = 't',  // a TAVDT, 7 bytes
  kChars = 'c',     // characters, as many as the column is wide
};

// Bytes in a row of a type that has only one width; 0 for characters.
constexpr unsigned char WidthOf(Type type) {
  switch (type) {
    case Type::kFloat:
    case Type::kInt32:
      return 4;
    case Type::kDouble:
      return 8;
    case Type::kInt16:
      return 2;
    case Type::kByte:
      return 1;
    case Type::kDateTime:
      return sizeof(TAVDT);
    case Type::kChars:
      break;
  }
  return 0;
}

// What a column's values are to a host.
enum class Role : char {
  kKey = 'I',          // the date and time of the row
  kValue = 'd',        // everything else
  kAccumulated = 'i',  // gathered over the interval of the row
};

// The group of a column that belongs to none.
inline constexpr char kDefaultGroup[] = "default";

// --- Markers: one byte ---

inline constexpr char kRowMarker = 'g';  // a row follows
inline constexpr char kEndMarker = 's';  // an archive or a log is complete

// --- Messages ---

// The code of the notice of continuous reading that new values are there; of all others it is 0.
inline constexpr unsigned kNewValues = 1;

// --- What a host asks for ---

// The driver kind: which protocol Start reads by.
enum class Mode : int {
  kOlder = 1,  // models 521, 522, 523, 521.1x and 721
  kK7 = 2,
};

// Letters of SetupReadGroup. Each has a flag of its own in lower case too, that means the same.
enum class ReadGroup : char {
  kDatabase = 'B',
  kCurrent = 'T',  // current values and totals
  kMonths = 'M',
  kDays = 'S',
  kHours = 'H',
  kLogs = 'E',
};

// Numbers of SetupParametr; 5 to 9 are stored and not used.
enum class Parameter : char {
  kAttempts = 1,       // at each request; 1 when never set
  kDoubleReading = 2,  // 0: one good reply is enough
  kValidityTest = 3,   // 0: off
  kPause = 4,          // milliseconds after a failed attempt
  kContinuous = 16,    // 1: after the reading go on with the newest values until Stop
};

}  // namespace tav
