// Where the system has a place for a program's files.
#pragma once

#include <filesystem>

namespace host {

// For what the user's programs keep, on this machine: XDG_DATA_HOME, else ~/.local/share; on
// Windows LOCALAPPDATA. Empty when the user has none.
std::filesystem::path DataFolder();

}  // namespace host
