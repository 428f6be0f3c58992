// What a trace tells of its scan beside the calls of the driver.
#pragma once

#include <string>

#include "host/reading/scan.h"

namespace host {

struct TracedScan {
  ScanPlan plan;
  std::string line;    // its address
  SYSTEMTIME begun{};  // local time of the machine
};

// JSON objects on one line.
std::string ToJson(const TracedScan& scan);
std::string ScanEndJson(int exitCode);

// Whether the head of a trace is that of a scan; any JSON object.
bool IsOfScan(const std::string& head);

}  // namespace host
