// Keeps the driver's stream, for irvela decode.
#pragma once

#include "host/reading/run_listener.h"
#include "host/stream/raw_file.h"

namespace host {

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
