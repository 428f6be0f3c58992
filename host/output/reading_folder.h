// Folders that hold a reading: what CsvFolder leaves, and what may be replaced.
#pragma once

#include <filesystem>

namespace host {

inline constexpr const char* kIndexName = "index.csv";
inline constexpr const char* kColumnsName = "columns.csv";

// Throws UsageError unless the folder does not exist, is empty, or, with force, holds an earlier
// reading and no other CSV file.
void CheckOutFolder(const std::filesystem::path& folder, bool force);

// Removes the files that the index of an earlier reading names, and the index; other files stay.
// Does nothing where there is no index. Throws std::runtime_error when a file cannot be removed.
void RemoveEarlierReading(const std::filesystem::path& folder);

// Writes the text into a file beside it, which then takes its place, unless the file says the same
// already. Throws std::runtime_error when that cannot be done; the file is as it was then.
void RewriteFile(const std::filesystem::path& path, const std::string& text);

}  // namespace host
