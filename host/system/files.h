// Paths and file errors. Texts are UTF-8 on every system.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace host {

std::filesystem::path PathOf(const std::string& utf8);
std::string PathText(const std::filesystem::path& path);

// "cannot write x.csv: No space left on device", with the reason that the last call left.
std::runtime_error FileError(const char* action, const std::filesystem::path& path);
// The same with the reason that a call returned.
std::runtime_error FileError(const char* action, const std::filesystem::path& path,
                             const std::error_code& reason);

// All of it, at once. Throws std::runtime_error when it cannot be written.
void WriteStandardOutput(const std::string& text);
// Whether it can be written or not: a terminal that is gone has nobody to tell.
void WriteStandardError(const std::string& text);

}  // namespace host
