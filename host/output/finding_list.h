// What the checks found, for people and programs.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "host/checks/rules.h"

namespace host {

// Below a line for each instrument one for each finding: rule, section, when, sentence.
std::string FindingsText(const std::vector<Finding>& findings);

// A list of objects, one a line: serial, model, place, rule, note, kind, section, from, to,
// records, field, unit, expected, found, difference, text. What a finding does not have is null.
std::string FindingsJson(const std::vector<Finding>& findings);

// A line for each rule.
std::string RulesText(std::span<const Rule> rules);

}  // namespace host
