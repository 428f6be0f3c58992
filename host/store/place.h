// Where the store is when nothing else is said.
#pragma once

#include <string>

namespace host {

// The address, or the file in the user's data folder, which is made, when it is empty. Throws
// std::runtime_error when there is no such folder.
std::string PlaceOfStore(const std::string& address);

// Throws std::runtime_error when the place is a file that is not there.
void RequireStore(const std::string& place);

}  // namespace host
