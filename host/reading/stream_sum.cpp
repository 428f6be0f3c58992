#include "host/reading/stream_sum.h"

#include <fmt/format.h>

namespace host {
namespace {

void AddByte(std::uint64_t& sum, unsigned byte) { sum = (sum ^ byte) * 1099511628211U; }

}  // namespace

void StreamTotal::Add(ByteView piece) {
  ++pieces;
  bytes += piece.size();
  for (const unsigned shift : {0U, 8U, 16U, 24U}) AddByte(sum, (piece.size() >> shift) & 0xFF);
  for (const unsigned char byte : piece) AddByte(sum, byte);
}

std::string Describe(const StreamTotal& total) {
  return fmt::format("{} pieces, {} bytes, sum {:016x}", total.pieces, total.bytes, total.sum);
}

void StreamSum::AddPiece(ByteView piece) {
  total_.Add(piece);
  Wrapped().AddPiece(piece);
}

}  // namespace host
