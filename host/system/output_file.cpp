#include "host/system/output_file.h"

#include <utility>

#include "host/system/files.h"

namespace host {
namespace {

constexpr std::size_t kTogether = 64 * 1024;

}  // namespace

OutputFile::OutputFile(std::filesystem::path path) : path_(std::move(path)) {
  // What is handed over is large already.
  file_.rdbuf()->pubsetbuf(nullptr, 0);
  Open(std::ios::trunc);
}

void OutputFile::Open(std::ios::openmode mode) {
  file_.open(path_, std::ios::binary | std::ios::out | mode);
  if (!file_) throw FileError("write", path_);
}

void OutputFile::Append(std::string_view bytes) {
  pending_ += bytes;
  if (pending_.size() >= kTogether) Flush();
}

void OutputFile::Flush() {
  if (pending_.empty()) return;
  if (!file_.is_open()) Open(std::ios::app);
  file_.write(pending_.data(), static_cast<std::streamsize>(pending_.size()));
  file_.flush();
  pending_.clear();
  if (!file_) throw FileError("write", path_);
}

void OutputFile::Close() {
  Flush();
  if (file_.is_open()) file_.close();
}

}  // namespace host
