// Asks each network number of a line who is there.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "host/line/counting_line.h"
#include "host/reading/introduction.h"
#include "host/system/clock.h"

namespace host {

struct ScanPlan {
  std::vector<int> numbers;  // each 0 to 255
  std::vector<Way> ways;     // in which each is asked, until it answers by one of them
};

struct ScanAnswer {
  enum class Kind {
    kSilent,  // by none of the ways did a byte come
    kBroken,  // bytes came, but not all that an instrument tells of itself
    kAnswers
  };

  int number = 0;
  Kind kind = Kind::kSilent;
  Way way{};  // by which it came; meaningless for silence
  // As the instrument tells them; empty or nothing: it did not.
  std::string model{};
  std::string version{};
  std::string serial{};
  std::optional<ClockReading> clock{};
  std::string reason{};  // of a broken answer: "the reply was cut short"
};

// Who is told how far the scan is; from the thread that scans.
class ScanListener {
 public:
  virtual ~ScanListener() = default;
  virtual void ShowProgress(const Progress& /*progress*/) {}
  // All ways in which the number is asked are tried.
  virtual void TakeAnswer(const ScanAnswer& /*answer*/) {}
};

struct ScanTools {
  CountingLine& line;
  RunListener& messages;  // is told the driver's
  AskStop askStop;        // about ten times a second
  std::function<SYSTEMTIME()> localTime = LocalNow;
  std::function<std::chrono::steady_clock::time_point()> now = std::chrono::steady_clock::now;
};

// One answer for each number that was asked, in the order of the plan: those behind a stop, or the
// end of the line, are left out. A number that was silent becomes a broken answer when bytes come
// before the next question is asked. Throws std::runtime_error when the driver does not start.
std::vector<ScanAnswer> ScanLine(const DriverLibrary& library, const ScanPlan& plan,
                                 const ScanTools& tools, ScanListener& listener);

}  // namespace host
