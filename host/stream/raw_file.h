// A stream as a file that keeps where each write call ended; docs/raw-file.md tells its form.
#pragma once

#include <filesystem>
#include <fstream>
#include <string>

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

// Write calls of a driver that were kept, one after the other.
class KeptPieces {
 public:
  virtual ~KeptPieces() = default;
  // The next one; false at the end, or where what was kept makes no sense any more.
  virtual bool Next(Bytes& piece) = 0;
  // Once Next has returned false: why that is not the end of a whole stream; empty when it is.
  virtual const std::string& Trouble() const = 0;
};

// Takes the memory of one piece, whatever the size of the file.
class RawFileReader final : public KeptPieces {
 public:
  // Far more than a write call of the driver has.
  static constexpr std::size_t kMostInPiece = 1'048'576;  // 1 MiB

  // Throws std::runtime_error with one sentence when it is no file, cannot be read, or is not a raw
  // file.
  explicit RawFileReader(const std::filesystem::path& path);
  bool Next(Bytes& piece) override;
  const std::string& Trouble() const override { return trouble_; }

 private:
  bool EndHere();
  bool StopAt(const char* reason);

  std::string name_;  // for people
  std::ifstream file_;
  std::size_t pieces_ = 0;
  std::string trouble_;
};

}  // namespace host
