// Wrong usage that the option library found, in sentences that say what to do.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace host {

// No option and no argument takes an empty text: one that is given is most likely a variable of a
// script that was never set. Throws UsageError.
void RefuseEmptyTexts(const std::vector<std::string>& arguments);

// app: what threw; arguments: what it was given.
std::string UsageSentence(const CLI::App& app, const CLI::ParseError& error,
                          const std::vector<std::string>& arguments);

}  // namespace host
