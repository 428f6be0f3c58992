// A stream as a file that keeps where each write call ended; docs/raw-file.md tells its form.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "host/stream/section.h"
#include "host/system/output_file.h"

namespace host {

// Throws std::runtime_error with the reason when the file cannot be written.
class RawFileWriter {
 public:
  explicit RawFileWriter(const std::filesystem::path& path);
  void Append(ByteView piece);
  void Flush() { file_.Flush(); }

 private:
  OutputFile file_;
};

struct RawFile {
  std::vector<Bytes> pieces;
  std::string trouble;  // empty, or why the file ends before its time
};

// Throws std::runtime_error when there is no such file or it is not a raw file.
RawFile LoadRawFile(const std::filesystem::path& path);

}  // namespace host
