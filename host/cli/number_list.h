// Lists of numbers on the command line.
#pragma once

#include <string>
#include <vector>

namespace host {

// "1-32", "5,1,7-9": in the order in which they are named, each once. Throws UsageError that names
// the option when the text is none, or a number is not within 0 and most.
std::vector<int> RequireNumbers(const std::string& option, const std::string& text, int most);

}  // namespace host
