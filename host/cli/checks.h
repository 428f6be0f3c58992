// What the values of options have to be, each said in one sentence.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace host {

// Both ends included.
CLI::Validator WholeNumber(long long least, long long most);

// For transform, not check: the choices are lower case, what is given may be in any.
CLI::Validator OneOf(const std::vector<std::string>& choices);

}  // namespace host
