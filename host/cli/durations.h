// Times that pass, on the command line.
#pragma once

#include <chrono>
#include <string>

namespace host {

// "90" and "90s" are seconds, "2m" minutes, "1h" hours, "1d" days; at most kMostTime. Throws
// UsageError that names the option when it is no such text or less than least.
std::chrono::seconds RequireDuration(const char* option, const std::string& text,
                                     std::chrono::seconds least = std::chrono::seconds(1));

// "+03:00", "-03:30", "3" as seconds, up to a day. Throws UsageError that names --utc-offset.
long RequireOffset(const std::string& text);

// Far beyond any reading, and safe to reckon with in every unit of time.
inline constexpr std::chrono::hours kMostTime{24 * 1000};

}  // namespace host
