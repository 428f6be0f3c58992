#include "host/stream/raw_file.h"

#include <fmt/format.h>

#include <array>
#include <cstring>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>

#include "host/system/files.h"

namespace host {
namespace {

constexpr std::string_view kSignature = "IRVRAW1\n";
constexpr std::size_t kLengthSize = 4;

std::size_t LengthAt(ByteView bytes) {
  return bytes[0] | static_cast<std::size_t>(bytes[1]) << 8U |
         static_cast<std::size_t>(bytes[2]) << 16U | static_cast<std::size_t>(bytes[3]) << 24U;
}

Bytes LoadWhole(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file || std::filesystem::is_directory(path)) throw FileError("read", path);
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

RawFileWriter::RawFileWriter(const std::filesystem::path& path) : file_(path) {
  file_.Append(kSignature);
  Flush();
}

void RawFileWriter::Append(ByteView piece) {
  const std::size_t length = piece.size();
  const std::array<char, kLengthSize> prefix = {
      static_cast<char>(length), static_cast<char>(length >> 8U), static_cast<char>(length >> 16U),
      static_cast<char>(length >> 24U)};
  file_.Append({prefix.data(), prefix.size()});
  file_.Append({reinterpret_cast<const char*>(piece.data()), piece.size()});
}

RawFile LoadRawFile(const std::filesystem::path& path) {
  const Bytes bytes = LoadWhole(path);
  if (bytes.size() < kSignature.size() ||
      std::memcmp(bytes.data(), kSignature.data(), kSignature.size()) != 0) {
    throw std::runtime_error(fmt::format("{} is not a raw file of this program", PathText(path)));
  }
  RawFile raw;
  ByteView rest = ByteView(bytes).subspan(kSignature.size());
  while (!rest.empty()) {
    const bool whole = rest.size() >= kLengthSize && LengthAt(rest) <= rest.size() - kLengthSize;
    if (!whole) {
      raw.trouble = fmt::format("{} is cut short after {} pieces; shown is what it holds",
                                PathText(path), raw.pieces.size());
      break;
    }
    const ByteView piece = rest.subspan(kLengthSize, LengthAt(rest));
    raw.pieces.emplace_back(piece.begin(), piece.end());
    rest = rest.subspan(kLengthSize + piece.size());
  }
  return raw;
}

}  // namespace host
