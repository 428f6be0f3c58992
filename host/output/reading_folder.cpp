#include "host/output/reading_folder.h"

#include <fmt/format.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <string>

#include "host/output/csv.h"
#include "host/reading/settings.h"
#include "host/system/files.h"
#include "host/system/output_file.h"

namespace host {
namespace {

namespace fs = std::filesystem;

// Beside the file that it becomes.
fs::path NewOf(const fs::path& path) {
  fs::path beside = path;
  beside += ".new";
  return beside;
}

bool Says(const fs::path& path, const std::string& text) {
  std::error_code none;
  if (fs::file_size(path, none) != text.size() || none) return false;
  std::string said(text.size(), '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(said.data(), static_cast<std::streamsize>(said.size()));
  return file && said == text;
}

std::string FirstField(const std::string& line) {
  const char ends[] = {kStandardCsv.separator, kExcelRuCsv.separator, '\r', '\0'};
  return line.substr(0, line.find_first_of(ends));
}

// A file name that CsvFolder gives, and nothing that leads elsewhere.
bool IsOwnName(const std::string& name) {
  constexpr std::string_view kEnd = ".csv";
  return name.ends_with(kEnd) && name.find_first_of("/\\:") == std::string::npos;
}

// Names of the files of an earlier reading, its index among them; none when there is no index.
std::set<std::string> EarlierFiles(const fs::path& folder) {
  std::ifstream index(folder / kIndexName, std::ios::binary);
  std::string line;
  if (!std::getline(index, line)) return {};
  if (line.starts_with(kExcelRuCsv.begin))
    line.erase(0, std::string_view(kExcelRuCsv.begin).size());
  if (FirstField(line) != "file") return {};
  std::set<std::string> names = {kIndexName, kColumnsName};
  while (std::getline(index, line)) {
    if (const std::string name = FirstField(line); IsOwnName(name)) names.insert(name);
  }
  return names;
}

bool IsEmptyOrNone(const fs::path& folder) {
  std::error_code none;
  return !fs::is_directory(folder, none) || fs::is_empty(folder, none);
}

// The first CSV file that an earlier reading does not name; empty when there is none.
std::string ForeignFile(const fs::path& folder, const std::set<std::string>& earlier) {
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    std::string name = PathText(entry.path().filename());
    if (name.ends_with(".csv") && earlier.count(name) == 0) return name;
  }
  return {};
}

void Remove(const fs::path& path) {
  std::error_code error;
  fs::remove(path, error);
  if (error) throw FileError("remove", path, error);
}

}  // namespace

void CheckOutFolder(const fs::path& folder, bool force) {
  if (IsEmptyOrNone(folder)) return;
  const std::set<std::string> earlier = EarlierFiles(folder);
  const std::string refused = "--out " + PathText(folder) + ": the folder ";
  if (earlier.empty()) {
    throw UsageError(refused + "holds other files and no earlier reading; name another one");
  }
  if (!force) {
    throw UsageError(refused +
                     "holds an earlier reading; name another one, or replace that with --force");
  }
  const std::string foreign = ForeignFile(folder, earlier);
  if (foreign.empty()) return;
  throw UsageError(fmt::format(
      "{}holds {}, which is no part of the reading in it; name another one", refused, foreign));
}

// The index goes last: what is left after a break can be removed in the same way.
void RemoveEarlierReading(const fs::path& folder) {
  const std::set<std::string> earlier = EarlierFiles(folder);
  for (const std::string& name : earlier) {
    const fs::path path = folder / PathOf(name);
    Remove(NewOf(path));
    if (name != kIndexName) Remove(path);
  }
  if (!earlier.empty()) Remove(folder / kIndexName);
}

void RewriteFile(const fs::path& path, const std::string& text) {
  if (Says(path, text)) return;
  const fs::path beside = NewOf(path);
  try {
    OutputFile file(beside);
    file.Append(text);
    file.Close();
    fs::rename(beside, path);
  } catch (const std::exception&) {
    std::error_code ignored;
    fs::remove(beside, ignored);
    throw;
  }
}

}  // namespace host
