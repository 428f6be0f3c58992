// What a scan found, for people and programs.
#pragma once

#include <chrono>
#include <string>
#include <vector>

#include "host/reading/scan.h"

namespace host {

// A table of those that answer, a line for each broken answer, one for the silent numbers, and what
// may break an answer where one is broken.
std::string ScanText(const std::vector<ScanAnswer>& answers);

// A list of objects, one a line, of every number that was asked: number, answer ("answers",
// "broken", "silent"), kind, speed, model, version, serial, clock, machine_clock, clock_difference
// (s that the instrument's clock is ahead), reason. What is not known is null.
std::string ScanJson(const std::vector<ScanAnswer>& answers);

// "number 5 answers: УРМ523 V3, number 12822465"; empty of a silent one.
std::string AnswerLine(const ScanAnswer& answer);

// "3 numbers answer, 1 answer is broken, 28 are silent".
std::string ScanSummary(const std::vector<ScanAnswer>& answers);

// "1-4, 7, 9-32" of numbers that rise.
std::string NumbersText(const std::vector<int>& numbers);

}  // namespace host
