#include "host/stream/raw_file.h"

#include <fmt/format.h>

#include <array>
#include <stdexcept>
#include <string_view>

#include "host/system/files.h"

namespace host {
namespace {

constexpr std::string_view kSignature = "IRVRAW1\n";
constexpr std::size_t kLengthSize = 4;

using Prefix = std::array<char, kLengthSize>;

Prefix PrefixOf(std::size_t length) {
  return {static_cast<char>(length), static_cast<char>(length >> 8U),
          static_cast<char>(length >> 16U), static_cast<char>(length >> 24U)};
}

std::size_t LengthIn(const Prefix& prefix) {
  std::size_t length = 0;
  for (std::size_t i = 0; i < prefix.size(); ++i) {
    length |= static_cast<std::size_t>(static_cast<unsigned char>(prefix[i])) << 8U * i;
  }
  return length;
}

// A device or a pipe may never end, and a folder opens like a file on some systems.
void RequireFile(const std::filesystem::path& path) {
  std::error_code ignored;
  const auto status = std::filesystem::status(path, ignored);
  if (std::filesystem::is_directory(status)) {
    throw std::runtime_error(fmt::format("{} is a folder, not a raw file", PathText(path)));
  }
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    throw std::runtime_error(
        fmt::format("{} is no regular file; save the stream in one first", PathText(path)));
  }
}

// Returns how many bytes came.
std::size_t Read(std::ifstream& file, char* to, std::size_t count) {
  file.read(to, static_cast<std::streamsize>(count));
  return static_cast<std::size_t>(file.gcount());
}

}  // namespace

RawFileWriter::RawFileWriter(const std::filesystem::path& path) : file_(path) {
  file_.Append(kSignature);
  Flush();
}

void RawFileWriter::Append(ByteView piece) {
  const Prefix prefix = PrefixOf(piece.size());
  file_.Append({prefix.data(), prefix.size()});
  file_.Append({reinterpret_cast<const char*>(piece.data()), piece.size()});
}

RawFileReader::RawFileReader(const std::filesystem::path& path) : name_(PathText(path)) {
  RequireFile(path);
  file_.open(path, std::ios::binary);
  if (!file_) throw FileError("read", path);
  std::array<char, kSignature.size()> signature{};
  const std::size_t count = Read(file_, signature.data(), signature.size());
  if (std::string_view(signature.data(), count) != kSignature) {
    throw std::runtime_error(
        fmt::format("{} is not a file that irvela read --raw has kept", name_));
  }
}

bool RawFileReader::Next(Bytes& piece) {
  Prefix prefix{};
  const std::size_t got = Read(file_, prefix.data(), prefix.size());
  if (file_.bad()) return StopAt("cannot be read further");
  if (got == 0) return EndHere();
  if (got < prefix.size()) return StopAt("is cut short");
  const std::size_t length = LengthIn(prefix);
  if (length > kMostInPiece) return StopAt("is damaged");
  piece.resize(length);
  if (Read(file_, reinterpret_cast<char*>(piece.data()), length) < length) {
    return StopAt("is cut short");
  }
  ++pieces_;
  return true;
}

bool RawFileReader::EndHere() {
  if (pieces_ == 0) trouble_ = fmt::format("{} holds nothing: nothing had been read", name_);
  return false;
}

bool RawFileReader::StopAt(const char* reason) {
  trouble_ =
      fmt::format("{} {} after {} pieces; shown is what stands before", name_, reason, pieces_);
  return false;
}

}  // namespace host
