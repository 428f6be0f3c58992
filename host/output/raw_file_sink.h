// Keeps the driver's stream, for irvela decode.
#pragma once

#include <string>

#include "host/reading/run_listener.h"
#include "host/stream/raw_file.h"

namespace host {

// Of a file that is to be kept: option: that names it; out: the folder beside it, or empty; force:
// a file may be written over. Throws UsageError with the reason when it cannot be kept there.
void CheckNewFile(const std::string& option, const std::string& name, const std::string& out,
                  bool force);

class RawFileSink final : public RunListener {
 public:
  // Throws std::runtime_error with the reason when the file cannot be written.
  explicit RawFileSink(const std::filesystem::path& path) : file_(path) {}
  void AddPiece(ByteView piece) override { file_.Append(piece); }
  void Keep() override { file_.Flush(); }
  void EndRun(const RunEnd& /*end*/) override { file_.Flush(); }

 private:
  RawFileWriter file_;
};

}  // namespace host
