// The settings of a reading as JSON, as a trace keeps them; docs/trace.md tells the members.
#pragma once

#include <string>

#include "host/reading/settings.h"

namespace host {

// An object on one line, its members in the order of the alphabet.
std::string SettingsJson(const ReadSettings& settings);

// What is not there has its default. Throws std::exception when these are no settings that the
// command line would take; what the driver offers is not looked at.
ReadSettings ParseSettings(const std::string& json);

// "2016-09-04 13:05:09".
std::string DateText(const SYSTEMTIME& time);
// Throws std::invalid_argument when the text is no such date.
SYSTEMTIME ParseDate(std::string text);

}  // namespace host
