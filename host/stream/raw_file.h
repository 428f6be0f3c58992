// A stream as a file that keeps where each write call ended; docs/raw-file.md tells its form.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "host/stream/section.h"

namespace host {

// Throws std::runtime_error with the reason when the file cannot be written.
class RawFileWriter {
 public:
  explicit RawFileWriter(const std::filesystem::path& path);
  void Append(ByteView piece);
  void Flush();

 private:
  void Check();

  std::filesystem::path path_;
  std::ofstream file_;
};

struct RawFile {
  std::vector<Bytes> pieces;
  std::string trouble;  // empty, or why the file ends before its time
};

// Throws std::runtime_error when there is no such file or it is not a raw file.
RawFile LoadRawFile(const std::filesystem::path& path);

}  // namespace host
