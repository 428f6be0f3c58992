// A file that is written in large pieces.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace host {

// What is appended reaches the system when 64 KiB are together, and at Flush. Throws
// std::runtime_error with the reason when it cannot be written; what was gathered is lost then.
class OutputFile {
 public:
  // Begins an empty file, at once.
  explicit OutputFile(std::filesystem::path path);

  void Append(std::string_view bytes);
  void Flush();
  // Flushes and lets go of the file; the next flush opens it again and goes on at its end.
  void Close();
  bool HasPending() const { return !pending_.empty(); }

 private:
  void Open(std::ios::openmode mode);

  std::filesystem::path path_;
  std::ofstream file_;
  std::string pending_;
};

}  // namespace host
