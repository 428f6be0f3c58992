#include "host/report/packed.h"

#include <zlib.h>

#include <cstdint>
#include <new>
#include <string_view>

namespace host {
namespace {

constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

// Up to three bytes as four digits.
void AppendGroup(std::string& text, std::string_view bytes) {
  std::uint32_t group = 0;
  for (std::size_t i = 0; i < 3; ++i) {
    const unsigned char byte = i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0;
    group = group << 8 | byte;
  }
  for (std::size_t i = 0; i < 4; ++i) {
    text += i <= bytes.size() ? kDigits[group >> (18 - 6 * i) & 63] : '=';
  }
}

// The library does not write to what it is given.
Bytef* BytesOf(const std::string& bytes) {
  return reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
}

class Deflater {
 public:
  Deflater() {
    constexpr int kRaw = -MAX_WBITS;
    constexpr int kMemory = 9;
    const int result =
        deflateInit2(&stream_, Z_BEST_COMPRESSION, Z_DEFLATED, kRaw, kMemory, Z_DEFAULT_STRATEGY);
    if (result != Z_OK) throw std::bad_alloc();
  }
  ~Deflater() { deflateEnd(&stream_); }
  Deflater(const Deflater&) = delete;
  Deflater& operator=(const Deflater&) = delete;

  // Z_BLOCK: what comes next is coded by itself; Z_FINISH: nothing comes.
  void Add(const std::string& bytes, int flush) {
    stream_.next_in = BytesOf(bytes);
    stream_.avail_in = static_cast<uInt>(bytes.size());
    do {
      stream_.next_out = reinterpret_cast<Bytef*>(room_.data());
      stream_.avail_out = static_cast<uInt>(room_.size());
      deflate(&stream_, flush);
      packed_.append(room_.data(), room_.size() - stream_.avail_out);
    } while (stream_.avail_out == 0);
  }
  const std::string& Packed() const { return packed_; }

 private:
  z_stream stream_ = {};
  std::string room_ = std::string(65536, '\0');
  std::string packed_;
};

std::string Base64(std::string_view bytes) {
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) AppendGroup(text, bytes.substr(i, 3));
  return text;
}

}  // namespace

std::string Packed(const std::vector<std::string>& pieces) {
  Deflater deflater;
  for (const std::string& piece : pieces) deflater.Add(piece, Z_BLOCK);
  deflater.Add("", Z_FINISH);
  return Base64(deflater.Packed());
}

}  // namespace host
